#pragma once
// The tool bar of a document window. It says what was pressed in words of its own: nobody else knows the keys of the
// buttons.
#include "core/texte.h"
#include "document/dispositiontextes.h"
#include "document/lecture.h"
#include "platform/widgets/frame/toolbar.h"

#include <optional>

namespace velm {

class BarreTextes final : public Toolbar, public BarreNavigable, public BarreLecture {
    Q_OBJECT

public:
    /// As it is before the first document. `texte` gives the texts of the language file.
    BarreTextes(const Libelles& texte, QWidget* fenetre);

    /// The drop-downs of the two buttons of the history, which outlives the bar.
    void montrehistorique(const Historique& historique);
    void montrebloc(std::optional<Bloc> bloc); ///< the one that can be seen, if any
    void montrearrangement(Arrangement arrangement);
    void montredossiers(bool ouverts);
    /// There are no marked words to walk through; what marks them stays.
    void cachepasdemots();

    // ---- BarreNavigable
    void montreboutons(bool dossiersouverts) override;
    void activehistorique(bool precedent, bool suivant) override;
    void activevoisin(bool haut, bool actif) override;

    // ---- BarreLecture
    void montreabc(bool enfonce) override;
    void montremarques(bool enfonce) override;
    void montremots(bool visibles) override;

signals:
    void pas(velm::Sens sens, int n); ///< in the window's history; n as in Navigation::pasfenetre()
    void voisin(bool haut);
    void bloc(velm::Bloc bloc);
    void arrangement(velm::Arrangement arrangement);
    void proprietes();
    void abc(bool enfonce);
    void mot(bool suivant);
    void marques(bool enfonce);
    void dossiers(); ///< are to open
    void ranger();   ///< the document is to go into them

private:
    void montre(std::initializer_list<QStringView> cles, bool visibles);

    Libelles texte_;
};

} // namespace velm
