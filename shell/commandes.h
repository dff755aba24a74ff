#pragma once
// Every button and menu entry of the frame finds its deed here.
#include "shell/logique/barres.h"

#include <QHash>
#include <QObject>

#include <functional>

namespace velm {

class Bureau;
class Ecrangeneral;

class Commandes final : public QObject {
    Q_OBJECT

public:
    /// What the commands ask of the program around the frame.
    struct Programme {
        std::function<void()> quitte;
        std::function<void()> aide;
        std::function<void()> astuce;
        std::function<void()> apropos;
        std::function<void()> partenaires;
        std::function<void()> cherche;                     ///< the find dialog
        std::function<void(bool visible)> montreselection; ///< shows or hides the panel of the selection list
    };

    Commandes(Ecrangeneral& ecran, Bureau& bureau, EtatBarres& barres, Reglages& reglages, Programme programme);

    /// A button of the command bar by its key, as a click tells it. An unknown key does nothing.
    void commande(const QString& cle);
    /// An entry of a drop-down of that bar, from 1.
    void commandemenu(const QString& cle, int rang);
    /// A menu entry by its array and index.
    void entree(const QString& nom, int indice);

    /// Copies the selection of the active document (without one the whole of it), or all rows of the active list.
    void copier();
    void toutselectionner();
    /// Moves or hides a bar.
    void placebarre(Barre barre, int position);
    void commutebarreetat();
    void changeunefenetre(bool une);
    void montreselection(bool montree);

private:
    using Deed = std::function<void(int indice)>;
    void apprendcommandes();
    void apprendentrees();
    void basculebarre(Barre barre);

    Ecrangeneral& ecran_;
    Bureau& bureau_;
    EtatBarres& barres_;
    Reglages& reglages_;
    Programme programme_;
    QHash<QString, Deed> commandes_;
    QHash<QString, Deed> entrees_;
};

} // namespace velm
