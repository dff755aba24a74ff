#pragma once
// The search form in the frame: makes it when it is first wanted, shows and hides it, and brings it criteria and takes
// them from it. The form lives as long as the frame.
#include "core/texte.h"
#include "search/dialoguescriteres.h"
#include "search/ui/frmvelmorselect.h"

#include <QObject>
#include <QPointer>

namespace velm {

class Actions;
class Bureau;
class ChildArea;
class Reglages;
class Selection;

class Recherches final : public QObject {
    Q_OBJECT

public:
    /// What it asks of the outside world; nothing is owned, and all of it outlives this.
    struct Services {
        Reglages& reglages;
        Sablier& sablier;
        Dialogues& dialogues;
        Courrier& courrier;
        Libelles texte;
    };
    Recherches(ChildArea& aire, Actions& actions, Bureau& bureau, Selection& selection, const Services& services);

    /// Null as long as nobody has wanted it.
    FrmVelmorSelect* formulaire() const { return formulaire_; }
    void montre(bool montre);
    /// Shows it, or hides it; an icon comes back.
    void bascule();
    /// Restores the search of a criteria file; without a name the user chooses one.
    void ouvrircriteres(const QString& nom = {});
    void sauvercriteres();
    void envoyercriteres();

private:
    FrmVelmorSelect& leformulaire();

    ChildArea& aire_;
    Actions& actions_;
    Bureau& bureau_;
    Selection& selection_;
    Services services_;
    FichiersCriteres fichiers_;
    QPointer<FrmVelmorSelect> formulaire_;
};

} // namespace velm
