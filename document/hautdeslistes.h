#pragma once
// How much of a document window the two lists below the text take. Twips throughout.

namespace velm {

/// What the toolkit needs for the parts of a fixed height.
struct MesuresTextes {
    int barre = 0;  ///< the tool bar on top
    int entete = 0; ///< the headers of the two lists
    int trait = 75; ///< thickness of the bars that are dragged
    int titres = 0; ///< the headers of the grids
    int rangee = 1; ///< a row of the grids; above 0
};

class HautDesListes {
public:
    /// All rows of the longer list would take this height; lists that are shown already become no smaller.
    void demande(int besoin, bool deja);
    /// The user has put the bar above the lists to that place of a window of that height.
    void lache(int place, int hauteur);
    void oublie() { deplaces_ = false; } ///< the lists have again the height that they need
    /// Where the bar above the lists lies in a window of that height, with the text's upper edge there: the part of the
    /// window that the user has given them, else no higher than they need, a good quarter of the window or half of the
    /// text: whole rows then, one at least.
    int place(int hauteur, int texte, const MesuresTextes& mesures) const;
    bool deplaces() const { return deplaces_; }

private:
    int besoin_ = 0;
    bool deplaces_ = false;
    int lachesa_ = 0;
    int hauteurlors_ = 1;
};

} // namespace velm
