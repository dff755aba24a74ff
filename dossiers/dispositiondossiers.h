#pragma once
// How the window of the dossiers is divided, in pixels: tree, splitter and list beside each other under a line of bars,
// and the column of commands at the right. What tree and list have together is shared in a proportion that stays when
// the window changes its size.
#include <QRect>
#include <QSize>

namespace velm {

class DispositionDossiers {
public:
    struct Mesures {
        int barre = 0;   ///< height of the line of bars
        int barres = 0;  ///< width that the bars need
        int ligne = 0;   ///< height of a line above the tree; 0 without one
        int colonne = 0; ///< width that the commands need
    };
    struct Places {
        QRect ligne;
        QRect arbre;
        QRect separateur;
        QRect liste;
        QRect colonne;
        QRect barre;    ///< of what is done with files
        QRect barrevue; ///< of the list's views; ends where the list ends
        friend bool operator==(const Places&, const Places&) = default;
    };

    /// The tree's part, from 0 to 1.
    void partage(double part);
    double part() const { return part_; }
    /// The splitter was dropped with its left edge there.
    void separe(int x, QSize fenetre, const Mesures& mesures);
    Places places(QSize fenetre, const Mesures& mesures, int largeurbarrevue) const;

    /// The least that leaves all of it usable.
    static QSize minimum(const Mesures& mesures);

private:
    double part_ = 0.4;
};

} // namespace velm
