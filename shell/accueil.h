#pragma once
// The splash, from the first step of the start to the frame. A start that does not take long has none: it would come
// and go before anybody could read it.
#include "core/langue.h"
#include "platform/system/sablier.h"
#include "shell/logique/ecrans.h"

#include <QElapsedTimer>

#include <chrono>
#include <memory>

namespace velm {

class frmSplash;

class EcranAccueil final : public Accueil {
public:
    /// `patience`: how long a start may take before the splash comes. Neither `langue` nor `sablier` is owned.
    EcranAccueil(Langue& langue, Sablier& sablier, std::chrono::milliseconds patience);
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
    void montresillefaut();
    void ouvre();

    Langue& langue_;
    Sablier& sablier_;
    std::chrono::milliseconds patience_;
    QElapsedTimer depuisledebut_;
    bool voulue_ = false;
    QString etape_;
    std::unique_ptr<frmSplash> fenetre_;
};

} // namespace velm
