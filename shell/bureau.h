#pragma once
// The desk: the windows in the frame, whatever they are, the document windows among them in their slots, and what keeps
// the frame's bars and menus in step with them.
#include "core/fenetrefille.h"
#include "document/navigation.h"
#include "platform/widgets/frame/childarea.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <vector>

class QMdiSubWindow;

namespace velm {

class Actions;
class Ecrangeneral;
class Textes;

class Bureau final : public QObject, public HoteNavigation {
    Q_OBJECT

public:
    /// `fabrique` makes the window of a slot; the frame's area takes it over.
    /// The frame, its area and its actions outlive the desk.
    Bureau(Ecrangeneral& ecran, ChildArea& aire, Actions& actions, Corpus& corpus,
           std::function<Textes*(int indice)> fabrique);
    ~Bureau() override;

    Navigation& navigation() { return navigation_; }
    /// There was no memory for a window: to be said to the user. The run goes on without the window.
    std::function<void()> sansmemoire;

    /// Takes a window in, hidden, with what it can do; the frame's area takes it over.
    QMdiSubWindow* ajoute(QWidget& fenetre, FenetreFille& contrat);
    /// What the active window can do; null when none is active.
    FenetreFille* devant() const;
    /// All windows in the order of their making, hidden ones too.
    std::vector<FenetreFille*> filles() const;

    // ---- HoteNavigation
    FenetreNavigable* creefenetre(int indice) override;
    void montrefenetre(int indice, bool visible) override;
    void slotchange(int indice, bool ouverte) override;
    void activehistorique(bool precedent, bool suivant) override;
    void majderniersdocuments() override;
    bool dossiersouverts() const override { return dossiersouverts_; }
    void changedossiersouverts(bool ouverts) { dossiersouverts_ = ouverts; }

    /// A slot's command was given: makes, shows or hides its window.
    void basculeslot(int indice);
    /// Brings a slot's window forward, from the window list.
    void amene(int indice);
    void arrange(ChildArea::Arrangement disposition);

    int comptefenetres() const { return static_cast<int>(documents_.size()); }
    /// The document windows among them.
    std::vector<Textes*> fenetres() const { return documents_; }
    Textes* fenetre(int indice) const;
    /// The active document window; null when none is.
    Textes* active() const;
    /// Created forms, the frame among them.
    int nombredeformes() const;
    /// Shows the buttons that arrange windows when there are more than three forms; `fermees`: close now, and count
    /// still.
    void majdispositions(int fermees = 0);
    /// Every window writes what its closing writes, and stays open.
    void notefenetres();
    /// Closes every window for good: none of them shows anything any more.
    void fermefenetres();
    /// Lets `ouverture` open the windows of the last run: one that was left as an icon stays one.
    void restaure(const std::function<void()>& ouverture);

signals:
    /// Another window is in front, or what it shows has become another; or another slot is open.
    void devantchange();

private:
    /// A window and its contract, which go together.
    struct Fille {
        QWidget* fenetre;
        FenetreFille* contrat;
    };
    void oublie(const QObject* fenetre);
    void activee();
    void suitactive();
    void fermecachee(int indice);
    void suit(Textes& fenetre);
    void avance(Textes& fenetre);

    Ecrangeneral& ecran_;
    ChildArea& aire_;
    Actions& actions_;
    std::function<Textes*(int)> fabrique_;
    Navigation navigation_;
    std::vector<Fille> filles_;
    std::vector<Textes*> documents_;
    bool dossiersouverts_ = false;
    int enfabrication_ = 0;
    bool enfermeture_ = false;
    bool enrestauration_ = false;
    QTimer apresfermeture_{this}; ///< some time after the last window has closed its memory goes back to the system
};

} // namespace velm
