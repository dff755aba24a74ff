#pragma once
// The text that the link pass walks over. Private to this folder.
#include "document/plat.h"

#include <optional>
#include <vector>

namespace velm::passes {

/// Length of the beginning of a link: the brace, a letter, and a character that is passed over.
inline constexpr qsizetype entete = 3;

/// What is written, and what is still to be read: a chain of stretches of the original, from which links cut pieces in
/// the middle, and into which they can put copies. Distances count from the reading place. The next brace, bar and line
/// end are found once each and then known by their distance from the end, which no change before them moves.
class SuiteLiens {
public:
    SuiteLiens(const Plat& texte, RichText& hote);

    /// Writes up to the next such character; false (and all is written) when there is none.
    bool avance(char16_t unite);
    void ecrit(qsizetype nombre);
    void laisse(qsizetype nombre);
    Plat finit();

    qsizetype position() const { return vers_.longueur(); }
    qsizetype longueur() const { return vers_.longueur() + reste_; }
    char16_t suivant(qsizetype distance) const;
    QString texte(qsizetype distance, qsizetype longueur) const;

    /// Distance of the first "}" or "|" behind the reading place.
    std::optional<qsizetype> accolade() { return distance(cherche(accolade_, u'}', derrieretete())); }
    std::optional<qsizetype> barre() { return distance(cherche(barre_, u'|', derrieretete())); }

    /// The characters between the bar and the brace that were asked for last; the brace stands behind the bar.
    QString cible() const;

    /// Puts the text shown by the token [0, q] in its place: the characters from 3 up to the bar at `b`, which may lie
    /// behind the token. They take the format of the token's first character.
    void montre(qsizetype q, qsizetype b);

private:
    struct Noeud {
        qsizetype debut;
        qsizetype fin;
        std::size_t suivant;
    };
    /// Where a character was found, or where to begin to look for it.
    struct Lieu {
        enum class Etat { Inconnu, Avant, Trouve, Absent };
        Etat etat = Etat::Inconnu; ///< Avant: it stands here or behind
        std::size_t noeud = 0;
        qsizetype place = 0;
        qsizetype reste = 0; ///< characters from here on
    };
    /// A shown text: from the reading place, or from where the nearer one ends, until `reste` characters are left.
    struct Region {
        qsizetype reste;
        FormatId caractere;
        FormatId paragraphe;
    };

    std::optional<qsizetype> distance(const Lieu& lieu) const {
        return lieu.etat == Lieu::Etat::Absent ? std::nullopt : std::optional(reste_ - lieu.reste);
    }
    /// The first such character at `depuis` or behind it.
    const Lieu& cherche(Lieu& lieu, char16_t unite, const Lieu& depuis);
    Lieu derrieretete() const { return {Lieu::Etat::Avant, tete_, noeuds_[tete_].debut + 1, reste_ - 1}; }
    Lieu derriereaccolade() const {
        return {Lieu::Etat::Avant, accolade_.noeud, accolade_.place + 1, accolade_.reste - 1};
    }
    std::size_t suitnoeud(std::size_t noeud) const { return noeuds_[noeud].suivant; }
    void passevides();
    FormatId caracterepremier() const;
    /// Format of the paragraph that goes on behind the token.
    FormatId paragraphederriere();
    void coupe(qsizetype nombre);
    void copie(qsizetype nombre);
    void laissedevant(qsizetype nombre);
    std::size_t nouveau(const Noeud& noeud);
    std::size_t partage(std::size_t noeud, qsizetype place);
    void oublieregions();

    const Plat& de_;
    RichText& hote_;
    Plat vers_;
    std::vector<Noeud> noeuds_;
    std::vector<std::size_t> libres_; ///< passed, to be used again
    std::size_t tete_ = 0;
    qsizetype reste_ = 0;
    Lieu accolade_;
    Lieu barre_;
    Lieu ligne_;
    std::vector<Region> regions_; ///< the nearest one last
};

} // namespace velm::passes
