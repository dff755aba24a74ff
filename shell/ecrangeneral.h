#pragma once
// The frame: menus, three bars, status bar, selection panel and the area of the windows. It holds and places them, and
// decides nothing: what is pressed is told by its actions.
#include "core/ordre.h"
#include "core/texte.h"
#include "shell/logique/barres.h"
#include "shell/logique/seance.h"

#include <QMainWindow>

#include <functional>

namespace velm {

class Actions;
class BarresEcran;
class ButtonMenus;
class ChildArea;
class StatusBar;
class VoletSelection;

class Ecrangeneral final : public QMainWindow {
    Q_OBJECT

public:
    /// `texte` gives a text by its number.
    explicit Ecrangeneral(const Libelles& texte);

    /// What stands in it and is worked on by others: for whoever puts the program together to hand on.
    struct Pieces {
        Actions& actions;
        ChildArea& aire;
        VoletSelection& volet;
    };
    Pieces pieces() const { return {*actions_, *aire_, *volet_}; }

    /// Takes the place of the last run, twips. A place off every screen is moved onto one.
    void place(const PositionFenetre& position);
    void montre();
    PositionFenetre position() const;

    /// Docks a bar (0 hides it), and checks where it stands.
    void placebarre(Barre barre, int position);
    void montrebarreetat(bool visible);
    void placefond(const FondEcran& fond);
    void montreselection(bool visible);
    /// The three buttons that arrange the windows.
    void montredispositions(bool visibles);
    /// Of the buttons that print: the plain one, or, while a job is open, the one with its entries.
    void montreejections(bool ouvert);
    /// The collection of a slot has no document, or has some.
    void marquevide(int rang, bool vide);
    /// What stands at the side of a button of the command bar; not owned.
    void offre(Ordre ordre, const ButtonMenus& entrees);

    /// Into the status bar, until something else is said; empty for nothing.
    void dit(const QString& texte);
    /// Where the document in front stands; empty texts for none.
    struct Lieu {
        QString chemin;
        QStringList abreges; ///< the same without its first parts, the longest first
        QString reference;
        QString position;
    };
    void ditlieu(const Lieu& lieu);
    /// In the place of the path, until it is called with an empty text.
    void ditenpassant(const QString& texte);
    void ditzoom(const QString& texte);

    /// What is shown in the front window, for the frame's own title; empty for nothing.
    void changetitre(const QString& titre);

    /// Closes without asking.
    void ferme();

    /// Asked before the user's closing; false keeps the frame open.
    std::function<bool()> avantfermeture;

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;
    void mousePressEvent(QMouseEvent* evenement) override;

private:
    void construitbarreetat(const Libelles& texte);
    void offrezoom();
    void peintfond();
    void posepointeurs();
    void montretitre();

    ChildArea* aire_;
    VoletSelection* volet_;
    Actions* actions_;
    BarresEcran* barres_ = nullptr;
    StatusBar* barreetat_;
    Libelles texte_;
    QString titre_; ///< of what is shown in the front window
    FondEcran fond_;
    int etat_ = 2;
    bool parcode_ = false;
    bool enfermeture_ = false;
};

} // namespace velm
