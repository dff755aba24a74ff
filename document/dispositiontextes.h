#pragma once
// How a document window is divided: a panel left of the text or above it, the text, two lists below. Twips throughout;
// the toolkit's pixels are made of the edges of the rectangles, so that nothing gapes and nothing overlaps.
#include "document/hautdeslistes.h"

#include <QPoint>
#include <QRect>
#include <QString>

#include <algorithm>

namespace velm {

/// Where the panel lies.
enum class Arrangement {
    ACote, ///< left of the text
    Dessus ///< above it
};

/// What the panel shows.
enum class Bloc {
    Recherche, ///< words are looked up in the collection
    Arbre,     ///< the contents of the collection
    Liste      ///< the list of its documents
};

/// Where every control lies. Sizes are never negative, and nothing reaches beyond the window.
struct PlacesTextes {
    QRect panneau;               ///< of whichever block is shown
    bool panneaulisible = false; ///< there is room enough in it to show a block
    QRect separateur;
    QRect rtfRichTextBox1;
    QRect separateurlisteh;
    QRect separateurlistev;
    QRect entetelistedesliens;
    QRect entetelistedescorrelats;
    QRect flexlistedesliens;
    QRect flexlistedescorreles;
};

class DispositionTextes {
public:
    /// The position counts from the window's top with a tool bar of this height, whatever height the real one has.
    static constexpr int hauteurbarre = 360;

    // ---- state, which the window keeps and stores
    Arrangement arrangement = Arrangement::Dessus;
    int posseparateur = 1000;
    int posseparateurlisteh = 0;
    int posseparateurlistev = 0;
    bool listesvisibles = false; ///< the lists are open; whether there is a place for them: listesplacees()
    int hauteurbloc = 0;         ///< a panel above the text gets no more height than this; 0 for no such limit

    bool droite() const { return arrangement == Arrangement::ACote; } ///< the panel's bar stands upright
    bool replie() const;                                              ///< the panel is folded away

    /// Inner size of the window. Places nothing yet. Shown lists get the height that they need anew, or the part of the
    /// window that the user has given them.
    void changetaille(int largeur, int hauteur, const MesuresTextes& mesures);
    int largeur() const { return largeur_; }
    int hauteur() const { return hauteur_; }

    /// The stored position as a new window takes it: with the selection list hidden it must not begin folded.
    void charge(bool listeselectionvisible);
    /// Halves the lower lists.
    void partagelistes() { posseparateurlistev = largeur_ / 2 - 30; }
    /// Folds the panel away.
    void plie();
    /// A first window: the panel lies beside the text, as wide as titles need it.
    void commence();
    /// The user works in the panel: it stays visible in a window that has become low or narrow.
    void gardepanneau() { panneauvoulu_ = petite(); }
    /// Opens a panel that is too small to show a block; the search block above the text is content with a line.
    void deplie(Bloc bloc);
    void changearrangement(Arrangement nouveau);
    /// Where the panel's bar is put by a double click.
    int placehabituelle() const;
    void prendplacehabituelle();
    /// Shows the grids under the text, so high that each has `besoin` for itself, but never higher than a good quarter
    /// of the window or half of the text: whole rows then, one at least. Shown already, they become no smaller, and
    /// stay where the user has put them.
    void ouvrelistes(int besoin);
    void fermelistes();
    /// They are open, and the window is not lower than those are that leave all to the text, unless the user has opened
    /// them in one that is no higher.
    bool listesplacees() const { return listesvisibles && hauteur_ >= std::min(hauteurbasse, hauteurauxlistes_); }

    /// Places the panel, its bar and the text.
    void deplaceseparateur();
    /// Places the lower lists, then all the rest. To be called on every resize.
    void replaceseparateur();
    /// A bar, by its name, is dropped with its upper left corner there. False: none of this window's bars.
    bool lache(const QString& source, const QPoint& coin);

    const PlacesTextes& places() const { return places_; }

private:
    bool basse() const { return hauteur_ < hauteurbasse; }
    bool petite() const { return droite() ? largeur_ < largeuretroite : basse(); }
    bool panneauvisible() const;
    int hauteurpanneau(int hauteur) const;
    int hautdutexte() const;
    int hauteurentete() const { return basse() && !listesplacees() ? 0 : mesures_.entete; }
    int hauteurtrait() const { return basse() && !listesplacees() ? 0 : mesures_.trait; }
    void placelistes();
    QRect rect(int gauche, int haut, int largeur, int hauteur) const;

    /// A window that is lower leaves the text what the line of the search and the lists would take.
    static constexpr int hauteurbasse = 4800;
    /// A narrower one leaves it what a panel beside it would take.
    static constexpr int largeuretroite = 6000;

    int largeur_ = 0;
    int hauteur_ = 0;
    bool panneauvoulu_ = false; ///< the user has asked for the panel in a low or narrow window
    int hauteurauxlistes_ = 0;  ///< of the window when the lists were opened
    HautDesListes hautdeslistes_;
    MesuresTextes mesures_;
    PlacesTextes places_;
};

/// Width of the fields of the search block in a panel of this width, and height of its list of results under fields of
/// the height `champs`.
int widthblocrecherche(int largeur);
int Heightblocrecherche(int hauteur, int champs);

/// A rectangle of twips in pixels: its edges are rounded, so that neighbours stay neighbours.
QRect pixelsdetwips(const QRect& twips);

} // namespace velm
