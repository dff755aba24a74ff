#pragma once
// The splash, from the first step of the start to the frame.
#include "core/langue.h"
#include "platform/system/sablier.h"
#include "shell/logique/ecrans.h"

#include <memory>

namespace velm {

class frmSplash;

class EcranAccueil final : public Accueil {
public:
    /// Neither is owned.
    EcranAccueil(Langue& langue, Sablier& sablier);
    ~EcranAccueil() override;
    EcranAccueil(const EcranAccueil&) = delete;
    EcranAccueil& operator=(const EcranAccueil&) = delete;
    EcranAccueil(EcranAccueil&&) = delete;
    EcranAccueil& operator=(EcranAccueil&&) = delete;

    void afficheetape(const QString& texte) override;
    void montreaccueil() override;
    void fermeaccueil() override;
    /// Shows the bar of a long step, from 0 to 100; only while the window is there.
    void avance(double pourcentage);

private:
    Langue& langue_;
    Sablier& sablier_;
    QString etape_;
    std::unique_ptr<frmSplash> fenetre_;
};

} // namespace velm
