#include "collection/tableau.h"

#include "collection/largeur.h"

#include <QList>

#include <algorithm>
#include <array>
#include <numeric>

namespace velm {
namespace {

/// Width that a page offers, and the least distance between two columns.
constexpr int largeurdepage = 9000;
constexpr int gouttiere = 200;
constexpr int gouttiereetroite = 110;
/// A lone long column may begin this far to the right.
constexpr int retraitmaximal = 4200;
constexpr int taillenormale = 20; // half points
constexpr int taillereduite = 18;
/// Sizes and distances of columns that are tried in turn, down to the smallest that can still be read.
struct Essai {
    int taille;
    int gouttiere;
};
constexpr std::array<Essai, 6> essais = {{{taillenormale, gouttiere},
                                          {taillereduite, gouttiere},
                                          {16, gouttiere},
                                          {16, gouttiereetroite},
                                          {14, gouttiereetroite},
                                          {12, gouttiereetroite}}};
/// The font at hand may be a little wider than the one measured.
constexpr double aisance = 1.05;
constexpr int retraitdespoursuites = 284;

/// A word with its formats: fragments that no blank parts.
struct Mot {
    std::vector<Fragment> fragments;
    int largeur = 0; ///< at a size of one half point, in 1000ths
};

struct Cellule {
    std::vector<std::vector<Mot>> lignes; ///< parted by the author's line ends
};
using Rangee = std::vector<Cellule>;

struct Table {
    std::vector<Rangee> rangees;
    std::vector<LienDeTableau> liens;
    std::size_t colonnes = 0;
};

int twips(int largeur, int demipoints) {
    // 10 twips to the half point, widths in 1000ths of the size.
    return static_cast<int>(largeur * demipoints * aisance / 100.0) + 1;
}

class Lecture {
public:
    Lecture(Table& table, const SignaleBalisage& signale) : table_(table), signale_(signale) {}

    void rangee(QStringView texte) {
        Rangee rangee;
        for (const QStringView cellule : texte.split(u'\t'))
            rangee.push_back(lit(cellule));
        while (!rangee.empty() && vide(rangee.back()))
            rangee.pop_back();
        if (rangee.empty())
            return;
        table_.colonnes = std::max(table_.colonnes, rangee.size());
        table_.rangees.push_back(std::move(rangee));
    }

private:
    static bool vide(const Cellule& cellule) {
        return std::all_of(cellule.lignes.begin(), cellule.lignes.end(),
                           [](const auto& ligne) { return ligne.empty(); });
    }

    Cellule lit(QStringView texte) {
        Cellule cellule;
        cellule.lignes.emplace_back();
        decoupebalisage(texte, morceaux_, signale_);
        int lien = -1;
        colle_ = false;
        for (const Morceau& morceau : morceaux_) {
            switch (morceau.genre) {
            case Morceau::Genre::Texte:
                mots(cellule.lignes.back(), morceau, lien);
                break;
            case Morceau::Genre::Lien:
            case Morceau::Genre::Web:
            case Morceau::Genre::Mail:
                lien = static_cast<int>(table_.liens.size());
                table_.liens.push_back({morceau.genre, morceau.texte});
                break;
            case Morceau::Genre::FinDeLien:
                lien = -1;
                break;
            case Morceau::Genre::FinDeLigne:
                if (lien < 0)
                    cellule.lignes.emplace_back();
                colle_ = false;
                break;
            case Morceau::Genre::Inclusion:
            case Morceau::Genre::SautDePage:
                signale_(texte, false);
                break;
            }
        }
        return cellule;
    }

    void mots(std::vector<Mot>& ligne, const Morceau& morceau, int lien) {
        const QStringView texte = morceau.texte;
        qsizetype i = 0;
        while (i < texte.size()) {
            if (texte[i] == u' ') {
                colle_ = false;
                ++i;
                continue;
            }
            qsizetype fin = texte.indexOf(u' ', i);
            if (fin < 0)
                fin = texte.size();
            if (!colle_ || ligne.empty())
                ligne.emplace_back();
            const QStringView mot = texte.sliced(i, fin - i);
            ligne.back().fragments.push_back({mot, morceau.gras, morceau.italique, lien});
            ligne.back().largeur += largeurdetexte(mot, morceau.gras);
            colle_ = true;
            i = fin;
        }
    }

    Table& table_;
    const SignaleBalisage& signale_;
    std::vector<Morceau> morceaux_;
    bool colle_ = false;
};

int largeurdeligne(const std::vector<Mot>& ligne) {
    int largeur = 0;
    for (const Mot& mot : ligne)
        largeur += mot.largeur + largeurdublanc;
    return std::max(0, largeur - largeurdublanc);
}

/// Widths of the columns with every line whole, and of their longest words.
struct Mesures {
    std::vector<int> entieres, mots;
    bool simples = true; ///< no cell has a line end of its author's
};

bool pleine(const Table& table, const Rangee& rangee) {
    return rangee.size() == 1 && table.colonnes > 1;
}

Mesures mesure(const Table& table) {
    Mesures mesures{std::vector<int>(table.colonnes), std::vector<int>(table.colonnes)};
    for (const Rangee& rangee : table.rangees) {
        if (pleine(table, rangee))
            continue;
        for (std::size_t c = 0; c < rangee.size(); ++c) {
            mesures.simples = mesures.simples && rangee[c].lignes.size() == 1;
            for (const auto& ligne : rangee[c].lignes) {
                mesures.entieres[c] = std::max(mesures.entieres[c], largeurdeligne(ligne));
                for (const Mot& mot : ligne)
                    mesures.mots[c] = std::max(mesures.mots[c], mot.largeur);
            }
        }
    }
    return mesures;
}

int somme(const std::vector<int>& largeurs, int demipoints, int entre = gouttiere) {
    return std::accumulate(largeurs.begin(), largeurs.end(), 0,
                           [=](int total, int l) { return total + twips(l, demipoints) + entre; }) -
           entre;
}

void poseblancs(std::vector<Fragment>& cellule, const Mot& mot) {
    if (!cellule.empty()) {
        // The blank goes with the word before, in one link only if both sides are.
        const Fragment avant = cellule.back();
        const bool memelien = avant.lien == mot.fragments.front().lien;
        cellule.push_back({u" ", avant.gras, avant.italique, memelien ? avant.lien : -1});
    }
    cellule.insert(cellule.end(), mot.fragments.begin(), mot.fragments.end());
}

/// The lines of a cell in a column of a given width (0: no limit; every line of the author's stays whole).
std::vector<std::vector<Fragment>> plie(const Cellule& cellule, int largeur, int demipoints) {
    std::vector<std::vector<Fragment>> lignes;
    for (const auto& ligne : cellule.lignes) {
        lignes.emplace_back();
        int prise = 0;
        for (const Mot& mot : ligne) {
            const int avec = prise + mot.largeur + (prise > 0 ? largeurdublanc : 0);
            if (largeur > 0 && prise > 0 && twips(avec, demipoints) > largeur) {
                lignes.emplace_back();
                prise = 0;
            }
            prise += mot.largeur + (prise > 0 ? largeurdublanc : 0);
            poseblancs(lignes.back(), mot);
        }
    }
    return lignes;
}

void poserangee(std::vector<std::vector<std::vector<Fragment>>> colonnes, bool pleine,
                DispositionTableau& disposition) {
    std::size_t hauteur = 1;
    for (const auto& colonne : colonnes)
        hauteur = std::max(hauteur, colonne.size());
    for (std::size_t l = 0; l < hauteur; ++l) {
        LigneDeTableau ligne;
        for (auto& colonne : colonnes)
            ligne.cellules.push_back(l < colonne.size() ? std::move(colonne[l]) : std::vector<Fragment>());
        while (ligne.cellules.size() > 1 && ligne.cellules.back().empty())
            ligne.cellules.pop_back();
        ligne.derniere = l + 1 == hauteur;
        ligne.pleine = pleine;
        disposition.lignes.push_back(std::move(ligne));
    }
}

void poserangees(const Table& table, const std::vector<int>& largeurs, DispositionTableau& disposition) {
    for (const Rangee& rangee : table.rangees) {
        const bool entiere = pleine(table, rangee);
        std::vector<std::vector<std::vector<Fragment>>> colonnes;
        for (std::size_t c = 0; c < rangee.size(); ++c)
            colonnes.push_back(plie(rangee[c], entiere || largeurs.empty() ? 0 : largeurs[c], disposition.demipoints));
        poserangee(std::move(colonnes), entiere, disposition);
    }
}

void posetaquets(const std::vector<int>& largeurs, DispositionTableau& disposition, int entre = gouttiere) {
    int x = 0;
    disposition.taquets.reserve(largeurs.size());
    for (std::size_t c = 0; c + 1 < largeurs.size(); ++c) {
        x += largeurs[c] + entre;
        disposition.taquets.push_back(x);
    }
}

std::vector<int> enTwips(const std::vector<int>& largeurs, int demipoints) {
    std::vector<int> resultat;
    resultat.reserve(largeurs.size());
    for (const int largeur : largeurs)
        resultat.push_back(twips(largeur, demipoints));
    return resultat;
}

bool suruneligne(const Table& table, const Mesures& mesures, DispositionTableau& disposition) {
    if (!mesures.simples || somme(mesures.entieres, taillereduite) > largeurdepage)
        return false;
    disposition.demipoints = somme(mesures.entieres, taillenormale) <= largeurdepage ? taillenormale : taillereduite;
    posetaquets(enTwips(mesures.entieres, disposition.demipoints), disposition);
    poserangees(table, {}, disposition);
    return true;
}

bool dernierelongue(const Table& table, const Mesures& mesures, DispositionTableau& disposition) {
    if (!mesures.simples || table.colonnes < 2)
        return false;
    const std::vector<int> premieres(mesures.entieres.begin(), mesures.entieres.end() - 1);
    if (somme(premieres, taillenormale) + gouttiere > retraitmaximal)
        return false;
    disposition.demipoints = taillenormale;
    posetaquets(enTwips(mesures.entieres, taillenormale), disposition);
    disposition.suspendu = disposition.taquets.back();
    poserangees(table, {}, disposition);
    return true;
}

/// Every column gets its longest word, and a share of what is left by what it would like to have.
std::vector<int> partage(const Mesures& mesures, const Essai& essai) {
    const int demipoints = essai.taille;
    std::vector<int> largeurs = enTwips(mesures.mots, demipoints);
    const std::vector<int> souhaits = enTwips(mesures.entieres, demipoints);
    double manque = 0;
    for (std::size_t c = 0; c < largeurs.size(); ++c)
        manque += souhaits[c] - largeurs[c];
    const int reste = largeurdepage - somme(mesures.mots, demipoints, essai.gouttiere);
    const double part = manque > reste ? reste / manque : 1.0;
    for (std::size_t c = 0; c < largeurs.size(); ++c)
        largeurs[c] += static_cast<int>((souhaits[c] - largeurs[c]) * part);
    return largeurs;
}

bool encolonnes(const Table& table, const Mesures& mesures, DispositionTableau& disposition) {
    for (const Essai& essai : essais) {
        if (somme(mesures.mots, essai.taille, essai.gouttiere) > largeurdepage)
            continue;
        disposition.demipoints = essai.taille;
        const std::vector<int> largeurs = partage(mesures, essai);
        posetaquets(largeurs, disposition, essai.gouttiere);
        poserangees(table, largeurs, disposition);
        return true;
    }
    return false;
}

void alasuite(const Table& table, DispositionTableau& disposition) {
    disposition.demipoints = taillenormale;
    disposition.suspendu = retraitdespoursuites;
    for (const Rangee& rangee : table.rangees) {
        std::vector<Fragment> texte;
        for (const Cellule& cellule : rangee) {
            for (const auto& ligne : plie(cellule, 0, disposition.demipoints)) {
                if (ligne.empty())
                    continue;
                if (!texte.empty())
                    texte.push_back({u" — ", false, false, -1});
                texte.insert(texte.end(), ligne.begin(), ligne.end());
            }
        }
        LigneDeTableau ligne;
        ligne.cellules.push_back(std::move(texte));
        ligne.derniere = true;
        disposition.lignes.push_back(std::move(ligne));
    }
}

} // namespace

DispositionTableau disposetableau(const std::vector<QStringView>& rangees, const SignaleBalisage& signale) {
    Table table;
    Lecture lecture(table, signale);
    for (const QStringView rangee : rangees)
        lecture.rangee(rangee);
    DispositionTableau disposition;
    disposition.liens = std::move(table.liens);
    if (table.colonnes == 0)
        return disposition;
    const Mesures mesures = mesure(table);
    if (!suruneligne(table, mesures, disposition) && !dernierelongue(table, mesures, disposition) &&
        !encolonnes(table, mesures, disposition))
        alasuite(table, disposition);
    return disposition;
}

} // namespace velm
