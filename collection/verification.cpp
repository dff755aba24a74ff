// The checks that look along chains: parents of nodes, inclusions of documents.
#include "collection/source.h"

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Branches below this have no picture in the tree, which is not meant to go so deep.
constexpr int profondeurmaximale = 10;
constexpr qsizetype plusdeclesnommees = 8;

enum class Etat : quint8 { Neuf, EnCours, Fini };

} // namespace

void SourceDossier::verifienoeuds() {
    std::vector<Etat> etats(noeuds_.size(), Etat::Neuf);
    std::vector<int> profondeurs(noeuds_.size(), 0);
    std::vector<std::size_t> chemin;
    for (std::size_t depart = 0; depart < noeuds_.size(); ++depart) {
        chemin.clear();
        std::size_t i = depart;
        int profondeur = 0;
        while (etats[i] == Etat::Neuf) {
            etats[i] = Etat::EnCours;
            chemin.push_back(i);
            const Noeud& noeud = noeuds_[i];
            if (noeud.parent == 0)
                break;
            const auto parent = parnumero_.constFind(noeud.parent);
            if (parent == parnumero_.constEnd()) {
                probleme(fichiernoeuds_, lignesdesnoeuds_[i], probleme::parentabsent, QString::number(noeud.parent));
                break;
            }
            if (noeuds_[*parent].collection != noeud.collection) {
                problemes_.push_back({probleme::autrecollection,
                                      false,
                                      nomdufichier(fichiernoeuds_),
                                      lignesdesnoeuds_[i],
                                      {QString::number(noeud.parent), typedindice(noeuds_[*parent].collection)}});
            }
            i = *parent;
            if (etats[i] == Etat::EnCours)
                probleme(fichiernoeuds_, lignesdesnoeuds_[chemin.back()], probleme::noeudsenboucle,
                         QString::number(noeud.numero));
            else if (etats[i] == Etat::Fini)
                profondeur = profondeurs[i];
        }
        std::reverse(chemin.begin(), chemin.end());
        for (const std::size_t n : chemin) {
            profondeurs[n] = ++profondeur;
            etats[n] = Etat::Fini;
            if (profondeur == profondeurmaximale + 1)
                probleme(fichiernoeuds_, lignesdesnoeuds_[n], probleme::horslimites, QString::number(profondeur));
        }
    }
}

/// Tells of each inclusion that leads back to a document on its own way, with the documents in between.
void SourceDossier::verifieinclusions() {
    struct Pas {
        std::size_t document;
        std::size_t prochaine;
    };
    std::vector<Etat> etats(fiches_.size(), Etat::Neuf);
    std::vector<Pas> chemin;
    const auto boucle = [&](std::size_t retour) {
        QStringList cles;
        auto p = std::find_if(chemin.begin(), chemin.end(), [&](const Pas& pas) { return pas.document == retour; });
        for (; p != chemin.end() && cles.size() < plusdeclesnommees; ++p)
            cles << textedelacle(fiches_[p->document].entete.cle);
        if (p != chemin.end())
            cles << u"…"_s;
        cles << textedelacle(fiches_[retour].entete.cle);
        Probleme tourne = lieu(static_cast<qsizetype>(chemin.back().document));
        tourne.id = probleme::inclusionsenboucle;
        tourne.arguments = {cles.join(u" → "_s)};
        problemes_.push_back(std::move(tourne));
    };
    for (std::size_t depart = 0; depart < fiches_.size(); ++depart) {
        if (etats[depart] != Etat::Neuf || fiches_[depart].inclusions.empty())
            continue;
        chemin.assign(1, {depart, 0});
        etats[depart] = Etat::EnCours;
        while (!chemin.empty()) {
            Pas& pas = chemin.back();
            const auto& inclusions = fiches_[pas.document].inclusions;
            if (pas.prochaine == inclusions.size()) {
                etats[pas.document] = Etat::Fini;
                chemin.pop_back();
                continue;
            }
            const qsizetype cible = cherche(inclusions[pas.prochaine++]);
            if (cible < 0)
                continue;
            const auto c = static_cast<std::size_t>(cible);
            if (etats[c] == Etat::EnCours) {
                boucle(c);
            } else if (etats[c] == Etat::Neuf) {
                etats[c] = Etat::EnCours;
                chemin.push_back({c, 0});
            }
        }
    }
}

} // namespace velm
