#pragma once
// The search form in the frame: makes it when it is first wanted, shows and hides it, and does what the bar of the list
// asks of it. The form lives as long as the frame.
#include "search/dialoguescriteres.h"
#include "search/ui/frmvelmorselect.h"

#include <QObject>
#include <QPointer>

namespace velm {

class Bureau;
class Ecrangeneral;
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
        std::function<QString(int)> texte;
    };
    Recherches(Ecrangeneral& ecran, Bureau& bureau, Selection& selection, const Services& services);

    /// Null as long as nobody has wanted it.
    FrmVelmorSelect* formulaire() const { return formulaire_; }
    void montre(bool montre);
    /// Restores the search of a criteria file; without a name the user chooses one.
    void ouvrircriteres(const QString& nom = {});
    void sauvercriteres();
    void envoyercriteres();

private:
    FrmVelmorSelect& leformulaire();
    void clicbarre(const QString& cle);
    void basculeformulaire();

    Ecrangeneral& ecran_;
    Bureau& bureau_;
    Selection& selection_;
    Services services_;
    FichiersCriteres fichiers_;
    QPointer<FrmVelmorSelect> formulaire_;
};

} // namespace velm
