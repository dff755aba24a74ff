#pragma once
// The frame: menus, three bars, status bar, selection panel and the area of the windows. It holds them, tells what was
// pressed, and decides nothing.
#include "platform/controls/buttonmenus.h"
#include "shell/logique/barres.h"
#include "shell/logique/seance.h"

#include <QMainWindow>

#include <functional>

namespace velm {

class ChildArea;
class MenusEcran;
class StatusBar;
class Toolbar;
class VoletSelection;

class Ecrangeneral final : public QMainWindow {
    Q_OBJECT

public:
    /// `texte` gives a text by its number.
    explicit Ecrangeneral(const std::function<QString(int)>& texte);
    ~Ecrangeneral() override;

    ChildArea& aire() const { return *aire_; }
    MenusEcran& menus() const { return *menus_; }
    Toolbar& barrecommande() const { return *barrecommande_; }
    Toolbar& barreecran() const { return *barreecran_; }
    Toolbar& barreoutils() const { return *barreoutils_; }
    StatusBar& barreetat() const { return *barreetat_; }
    VoletSelection& picturesselection() const { return *volet_; }

    /// Takes the place of the last run, twips. A place off every screen is moved onto one.
    void place(const PositionFenetre& position);
    void montre();
    PositionFenetre position() const;

    /// Docks a bar (0 hides it), checks its position in the menus and its button.
    void placebarre(Barre barre, int position);
    void montrebarreetat(bool visible);
    void placefond(const FondEcran& fond);
    /// Shows or hides the selection panel, and its button and menu entry.
    void montreselection(bool visible);
    /// The button of a slot, and its entry in the view menu.
    void montreslot(int indice, bool ouverte);
    /// The three buttons that arrange the windows.
    void montredispositions(bool visibles);

    /// Closes without asking.
    void ferme();

    /// Asked before the user's closing; false keeps the frame open.
    std::function<bool()> avantfermeture;

signals:
    /// A button of the command bar, or of its drop-downs.
    void commande(const QString& cle);
    void commandemenu(const QString& cle, int rang);
    /// A button of the window bar; slot from 0.
    void slotpresse(int indice);
    /// The mouse's own buttons.
    void historiquevoulu(bool precedent);

protected:
    void closeEvent(QCloseEvent* evenement) override;
    void changeEvent(QEvent* evenement) override;
    void mousePressEvent(QMouseEvent* evenement) override;

private:
    Toolbar* barre(const char* nom, int texte, Barre laquelle);
    void garnitcommande(const std::function<QString(int)>& texte);
    void garnitecran(const std::function<QString(int)>& texte);
    void garnitselection(const std::function<QString(int)>& texte);
    Toolbar& de(Barre barre) const;
    void peintfond();
    void posepointeurs();
    /// Key of a slot's button: the code, or "Index" for the last, which has no collection.
    static QString clebouton(int indice);

    std::function<QString(int)> texte_;
    ButtonMenus ejections_; ///< what the button of the print job offers
    ChildArea* aire_;
    VoletSelection* volet_;
    MenusEcran* menus_;
    Toolbar* barrecommande_ = nullptr;
    Toolbar* barreecran_ = nullptr;
    Toolbar* barreoutils_ = nullptr;
    StatusBar* barreetat_;
    FondEcran fond_;
    int etat_ = 2;
    bool parcode_ = false;
    bool enfermeture_ = false;
};

} // namespace velm
