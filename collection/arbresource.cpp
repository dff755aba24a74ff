#include "collection/arbresource.h"

#include "core/texte.h"

#include <algorithm>

namespace velm {
namespace {

/// Branches below this have no picture in the tree, which is not meant to go so deep.
constexpr int profondeurmaximale = 10;

enum class Etat : quint8 { Neuf, EnCours, Fini };

} // namespace

bool ArbreSource::ajoute(const Noeud& noeud, qint64 ligne) {
    if (parnumero_.contains(noeud.numero))
        return false;
    parnumero_.insert(noeud.numero, noeuds_.size());
    avecbranche_[static_cast<std::size_t>(noeud.collection)] = true;
    noeuds_.push_back(noeud);
    lignes_.push_back(ligne);
    return true;
}

const Noeud* ArbreSource::trouve(qint64 numero) const {
    const auto trouve = parnumero_.constFind(numero);
    return trouve == parnumero_.constEnd() ? nullptr : &noeuds_[*trouve];
}

QString ArbreSource::libelledetete(qint64 numero) const {
    const Noeud* tete = trouve(numero);
    if (tete == nullptr)
        return {};
    // Parents that go round are told elsewhere.
    for (std::size_t pas = 0; pas < noeuds_.size(); ++pas) {
        const Noeud* parent = trouve(tete->parent);
        if (parent == nullptr)
            break;
        tete = parent;
    }
    return tete->libelle;
}

Problemes ArbreSource::verifie(const QString& fichier) const {
    Problemes problemes;
    const auto signale = [&](std::size_t noeud, Texte texte, const QStringList& arguments) {
        problemes.push_back({texte, false, fichier, lignes_[noeud], arguments});
    };
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
                signale(i, Texte::ParentAbsent, {QString::number(noeud.parent)});
                break;
            }
            if (const int autre = noeuds_[*parent].collection; autre != noeud.collection)
                signale(i, Texte::AutreCollection, {QString::number(noeud.parent), typedindice(autre)});
            i = *parent;
            if (etats[i] == Etat::EnCours)
                signale(chemin.back(), Texte::NoeudsEnBoucle, {QString::number(noeud.numero)});
            else if (etats[i] == Etat::Fini)
                profondeur = profondeurs[i];
        }
        std::reverse(chemin.begin(), chemin.end());
        for (const std::size_t n : chemin) {
            profondeurs[n] = ++profondeur;
            etats[n] = Etat::Fini;
            if (profondeur == profondeurmaximale + 1)
                signale(n, Texte::NumeroHorsLimites, {QString::number(profondeur)});
        }
    }
    return problemes;
}

} // namespace velm
