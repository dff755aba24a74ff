#pragma once
// How documents are reached: openings and steps, the windows of the twelve slots, two levels of history, the last
// documents.
#include "core/cle.h"
#include "core/corpus.h"
#include "core/reglages.h"
#include "document/historique.h"

#include <QString>
#include <QStringList>

#include <array>

namespace velm {

/// What the navigation keeps with each document window.
struct Parcours {
    Historique historique;
    /// Key of the document shown as a text, which the entries of the lists begin with; empty for none.
    QString referencecourante;
    QString titrecourant;

    Cle cle() const { return decoupecle(referencecourante); }
};

/// How a document is opened.
struct OptionsOuverture {
    bool replier = false; ///< the window folds its panel at its next activation
    QString ancre = {};   ///< where the caret is put, unless the document is shown already
};

/// What is read in a document window, as the navigation sees it.
class LectureNavigable {
public:
    virtual ~LectureNavigable() = default;
    virtual Parcours& parcours() = 0;
    /// Shows a document with the state of its button `abc`; see affichedocument().
    virtual void affiche(const Cle& cle, const QString& ancre) = 0;
    /// False when the memory did not suffice for the document: asked for again, it is shown again.
    virtual bool entiere() const { return true; }
    virtual QString titre() = 0; ///< of the document shown
};

/// The tool bar of a document window, as the navigation sees it.
class BarreNavigable {
public:
    virtual ~BarreNavigable() = default;
    /// `propriétés`, `abc` and their separators become visible, `Haut` and `Bas` enabled; with the dossiers open
    /// `document` becomes visible.
    virtual void montreboutons(bool dossiersouverts) = 0;
    virtual void activehistorique(bool precedent, bool suivant) = 0; ///< enables or disables the two buttons
    virtual void activevoisin(bool haut, bool actif) = 0;            ///< `Haut` or `Bas`
};

/// A document window as the navigation sees it. It tells Navigation::fermee() when it goes.
class FenetreNavigable {
public:
    virtual ~FenetreNavigable() = default;
    virtual LectureNavigable& lecture() = 0;
    virtual BarreNavigable& barrechild() = 0;
    virtual void prendfocus() = 0; ///< wants to be in front, and to have the focus
};

/// What the navigation asks of the frame.
class HoteNavigation {
public:
    virtual ~HoteNavigation() = default;
    /// A new window, captioned with the slot's label; null when there is no memory, which the frame has then said.
    virtual FenetreNavigable* creefenetre(int indice) = 0;
    /// Shows again, or hides, the window of a slot.
    virtual void montrefenetre(int indice, bool visible) = 0;
    /// The slot's button is to be down or up and its entry in the window menus checked or not.
    virtual void slotchange(int indice, bool ouverte) = 0;
    virtual void activehistorique(bool precedent, bool suivant) = 0; ///< of the frame's two buttons
    virtual void majderniersdocuments() = 0;                         ///< the last documents have changed
    virtual bool dossiersouverts() const = 0;
};

class Navigation {
public:
    static constexpr int nombrederniers = 9;

    Navigation(HoteNavigation& hote, Corpus& corpus);

    /// Shows a document in the window of its collection. A key that no window has a slot for does nothing.
    void ouvre(const Cle& cle, const OptionsOuverture& options = {});
    /// A step in the frame's history, or a jump to its n-th entry. In an empty list it does nothing; a jump beyond the
    /// last entry goes to it, one before the first to the first. The history of the window that it leads to follows.
    void pas(Sens sens, int n = unpas);
    /// The same in the history of the window of a slot; that of the frame does not follow.
    void pasfenetre(int indice, Sens sens, int n = unpas);
    /// Carries out a command, see litcommande(). What is none does nothing.
    void navigue(const QString& commande, bool replier = false, const QString& ancre = QString());
    /// Records the document that the window of its slot has just shown: last documents and histories.
    void memoriser(const Cle& cle, const QString& titre);

    /// Makes the window of a slot from 0 to 10. One that was there stays, and is no longer addressed by the slot.
    void ouvrefenetre(int indice);
    /// Shows or hides the window of a slot; it is made when there is none to show.
    void basculefenetre(int indice, bool visible);
    /// A window was unloaded: the slot counts as closed, also when another window of it is still there.
    void fermee(int indice, const FenetreNavigable* fenetre);

    /// The index list, which is slot 11 and no document window, came or went.
    void indexouvert(bool ouvert);

    FenetreNavigable* fenetre(int indice) const;
    bool fenetreouverte(int indice) const; ///< slots 0 to 11, like maffichagef()
    /// Whether the slot's entry in the window menus is checked: its window is open and not hidden.
    bool maffichagef(int indice) const;
    /// Whether the window must fold its panel at this activation; asking clears it.
    bool prendreplier(int indice);

    /// One window for each collection, or a new one at each opening.
    bool unefenetre() const { return maffichagetfu_; }
    void changeunefenetre(bool une) { maffichagetfu_ = une; }

    /// Shows the neighbour in title order of the document of a window; at either end the button is disabled.
    void voisin(FenetreNavigable& fenetre, const QString& code, bool haut);

    const Historique& historique() const { return global_.historique; }
    const QString& referencecourante() const { return global_.referencecourante; }
    const QString& titrecourant() const { return global_.titrecourant; }

    /// The newest first; empty entries at the end.
    using Derniers = std::array<QString, nombrederniers>;
    const Derniers& derniersdocuments() const { return derniersdocuments_; }
    const Derniers& derniersdocumentslibelles() const { return derniersdocumentslibelles_; }
    void chargederniers(const Reglages& reglages);
    void sauvederniers(Reglages& reglages) const;

private:
    void montre(const Cle& cle, const OptionsOuverture& options);
    void assurefenetre(int indice);
    void marchefenetre(int indice, Sens sens, int n);
    int marche(Sens sens, int n);
    void retientdernier(const QString& cle, const QString& libelle);
    void rafraichitglobal();
    void rafraichit(int indice);

    struct Emplacement {
        FenetreNavigable* fenetre = nullptr;
        bool ouverte = false;
        bool cochee = false;
        bool replier = false;
    };
    Emplacement* emplacement(int indice); ///< of documents: null for slot 11
    const Emplacement* emplacement(int indice) const;

    HoteNavigation& hote_;
    Corpus& corpus_;
    std::array<Emplacement, nombredefenetres> emplacements_;
    bool maffichagetfu_ = true;
    Parcours global_;
    Derniers derniersdocuments_;
    Derniers derniersdocumentslibelles_;
};

} // namespace velm
