#pragma once
// The three bars of the frame: what stands on them, where they stand, and the pop-ups that move them.
#include "core/texte.h"
#include "platform/controls/buttonmenus.h"
#include "shell/logique/placesdesbarres.h"

#include <QObject>

#include <array>

class QCursor;
class QMainWindow;
class QMenu;

namespace velm {

class Actions;
class Toolbar;

/// Puts the buttons of a list onto a bar, as far as they are not there yet; a command that is hidden has none. `texte`
/// gives a text by its number, for the tool tips.
void garnit(Toolbar& barre, std::span<const PlaceDeBarre> places, Actions& actions, const Libelles& texte);

class BarresEcran final : public QObject {
    Q_OBJECT

public:
    /// The bars and their pop-ups are the frame's, which also outlives this, as the actions do.
    BarresEcran(QMainWindow& cadre, Actions& actions, const Libelles& texte);

    /// Docks a bar by its position number (0 hides it). One without a button stays hidden until it has one.
    void place(Barre barre, int position);
    /// Shows a button of the command bar, or hides it.
    void montrebouton(Ordre ordre, bool visible);
    /// What the command bar offers at the side of a button, which is not owned: the n-th entry is rank n of its
    /// command.
    void offre(Ordre ordre, const ButtonMenus& entrees);
    /// The collection of a slot has no document, or has some: its button is faint, and its tool tip says so.
    void marquevide(int rang, bool vide);
    void posepointeur(const QCursor& pointeur);

private:
    Toolbar& de(Barre barre) const { return *barres_.at(static_cast<std::size_t>(barre)); }
    void construit(Barre barre, const QString& nom, Texte titre);
    QMenu* deplacements(Barre barre, const QString& nom) const;
    void construitejections();
    void choisitacote(const QString& bouton, int rang);
    void montreoutils();
    void ancre(Barre barre);

    QMainWindow& cadre_;
    Actions& actions_;
    Libelles texte_;
    ButtonMenus ejections_; ///< what the button of the print job offers
    std::array<Toolbar*, toutesbarres.size()> barres_{};
    std::array<int, toutesbarres.size()> positions_{};
};

} // namespace velm
