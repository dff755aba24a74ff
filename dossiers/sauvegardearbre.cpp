#include "dossiers/sauvegardearbre.h"

#include "dossiers/contenudossier.h"
#include "dossiers/libellecompte.h"
#include "dossiers/noeuddossier.h"

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;
using noeuddossier::deplacee;
using noeuddossier::numerosuivant;
using noeuddossier::parcourt;
using noeuddossier::renommee;
using noeuddossier::sansrangee;
using noeuddossier::supprimee;

qint64 SauvegardeArbre::numero(int noeud) const {
    return noeuddossier::numero(noeuds_.key(noeud));
}

bool SauvegardeArbre::porte(int noeud, QChar lettre) const {
    return noeuds_.tag(noeud).contains(lettre);
}

bool SauvegardeArbre::sauve(std::vector<int>& retires) {
    const int racine = noeuds_.childAt(0, 0);
    int restent = noeuds_.children(racine);
    for (int enfant = noeuds_.child(racine); enfant != 0; enfant = noeuds_.next(enfant)) {
        bool supprime = false;
        if (!miseajourauplusbas(enfant, supprime))
            return false;
        // The last one that is left of them stays on the screen.
        if (!supprime || restent == 1)
            continue;
        retires.push_back(enfant);
        --restent;
    }
    return sauvenumero();
}

bool SauvegardeArbre::ecritneuf(int noeud) {
    compteurordre_ = noeuds_.place(noeud) + 1;
    return ajouterangee(noeud) && sauvenumero();
}

Changements SauvegardeArbre::changements(const std::vector<qint64>& perdus) const {
    Changements tous = changements_;
    for (const qint64 perdu : perdus) {
        const int noeud = noeuds_.indexOf(noeuddossier::cle(perdu));
        // A save before the move may have given it its row.
        if (noeud == 0 || trouve(noeud))
            continue;
        const QString nom = sanscompteur(noeuds_.text(noeud));
        tous.dossiers.push_back({perdu, numero(noeuds_.parent(noeud)), nom});
        tous.noms.push_back({perdu, std::nullopt, nom});
    }
    std::erase_if(tous.abandonnes, [this](const DossierPerdu& un) { return !aenfants(un.numero); });
    return tous;
}

bool SauvegardeArbre::aenfants(qint64 numero) const {
    Recordset& dossiers = magasin_.rsarborescences();
    dossiers.setIndex(u"enfants"_s);
    dossiers.seek(Seek::GreaterOrEqual, numero);
    return !dossiers.eof() && dossiers.number(u"dépendance"_s) == numero;
}

bool SauvegardeArbre::sauvenumero() {
    Recordset& parametres = magasin_.rsparametres();
    parametres.moveFirst();
    if (numerosuivant(parametres.number(u"dernoarborescence"_s)) == prochainnumero_)
        return true;
    // The next number that is free, to which the next window adds one again: one number is never given.
    parametres.edit();
    parametres.setValue(u"dernoarborescence"_s, prochainnumero_);
    return parametres.update();
}

bool SauvegardeArbre::miseajourauplusbas(int noeud, bool& supprime) {
    bool bon = true;
    parcourt(noeuds_, noeud, [&](int un) {
        if (!bon)
            return;
        if (!porte(un, supprimee)) {
            bon = sauvenoeud(un);
        } else if (noeuds_.children(un) == 0) {
            bon = supprimerangee(un);
            supprime = supprime || un == noeud;
        }
        // A marked dossier with children in the tree keeps its row, as it was.
    });
    return bon;
}

bool SauvegardeArbre::trouve(int noeud) const {
    Recordset& dossiers = magasin_.rsarborescences();
    dossiers.setIndex(u"primarykey"_s);
    dossiers.seek(Seek::Equal, numero(noeud));
    return !dossiers.noMatch() && dossiers.number(u"numerodutype"_s) == numero(noeud);
}

bool SauvegardeArbre::supprimerangee(int noeud) {
    if (!trouve(noeud))
        return true;
    const Recordset& dossiers = magasin_.rsarborescences();
    changements_.supprimes.push_back(
        {numero(noeud), dossiers.number(u"dépendance"_s), dossiers.text(u"typededonnées"_s)});
    Recordset& elements = magasin_.rsdonnees();
    elements.setIndex(u"primarykey"_s);
    elements.seek(Seek::GreaterOrEqual, numero(noeud));
    if (elements.eof() || elements.number(u"arborescence"_s) != numero(noeud))
        changements_.abandonnes.push_back(changements_.supprimes.back());
    for (; !elements.eof() && elements.number(u"arborescence"_s) == numero(noeud); elements.moveNext()) {
        changements_.elements.push_back({ContenuDossier::rangee(magasin_), std::nullopt});
        if (!elements.remove())
            return false;
    }
    return magasin_.rsarborescences().remove();
}

bool SauvegardeArbre::sauvenoeud(int noeud) {
    ++compteurordre_;
    bool fait = false;
    if (porte(noeud, sansrangee)) {
        if (!ajouterangee(noeud))
            return false;
        fait = true;
    }
    if (porte(noeud, deplacee) && trouve(noeud)) {
        if (!changerangee(noeud, true))
            return false;
        fait = true;
    }
    if (porte(noeud, renommee)) {
        if (!renommerangee(noeud))
            return false;
        fait = true;
    }
    // What was not touched gets its name, its count and its place anew all the same.
    return fait || !trouve(noeud) || changerangee(noeud, false);
}

/// Of the current row, before it is written.
void SauvegardeArbre::notenom(int noeud) {
    const QString avant = magasin_.rsarborescences().text(u"typededonnées"_s);
    if (const QString apres = sanscompteur(noeuds_.text(noeud)); apres != avant)
        changements_.noms.push_back({numero(noeud), avant, apres});
}

void SauvegardeArbre::ecritnom(Recordset& table, int noeud) const {
    table.setValue(u"typededonnées"_s, sanscompteur(noeuds_.text(noeud)));
    table.setValue(u"nbarticles"_s, compteurarbo(noeuds_.text(noeud)));
}

bool SauvegardeArbre::ajouterangee(int noeud) {
    prochainnumero_ = std::max(prochainnumero_, numero(noeud));
    // As letters stay, a dossier of this window may have been saved already: no other place could make room for it.
    const bool nouvelle = !trouve(noeud);
    if (nouvelle)
        changements_.noms.push_back({numero(noeud), std::nullopt, sanscompteur(noeuds_.text(noeud))});
    else
        notenom(noeud);
    return ecritavecreprise(
        [&](Recordset& dossiers) {
            if (nouvelle)
                dossiers.setValue(u"numerodutype"_s, numero(noeud));
            dossiers.setValue(u"dépendance"_s, numero(noeuds_.parent(noeud)));
            ecritnom(dossiers, noeud);
        },
        nouvelle);
}

bool SauvegardeArbre::changerangee(int noeud, bool parent) {
    notenom(noeud);
    return ecritavecreprise(
        [&](Recordset& dossiers) {
            if (parent)
                dossiers.setValue(u"dépendance"_s, numero(noeuds_.parent(noeud)));
            ecritnom(dossiers, noeud);
        },
        false);
}

bool SauvegardeArbre::renommerangee(int noeud) {
    if (!trouve(noeud))
        return true;
    notenom(noeud);
    Recordset& dossiers = magasin_.rsarborescences();
    dossiers.edit();
    ecritnom(dossiers, noeud);
    dossiers.setValue(u"ordre"_s, compteurordre_);
    if (dossiers.update())
        return true;
    if (magasin_.dbdossiers().obstacle() != Obstacle::Exists)
        return false;
    // Where another row has that place, this one keeps its own.
    dossiers.edit();
    ecritnom(dossiers, noeud);
    return dossiers.update();
}

/// A place that another row has already is passed over, until one is free: as many as there are rows, at most. Nothing
/// else is tried again.
bool SauvegardeArbre::ecritavecreprise(const std::function<void(Recordset&)>& champs, bool nouvelle) {
    Recordset& dossiers = magasin_.rsarborescences();
    const auto ecrit = [&] {
        if (nouvelle)
            dossiers.addNew();
        else
            dossiers.edit();
        champs(dossiers);
        dossiers.setValue(u"ordre"_s, compteurordre_);
        return dossiers.update();
    };
    if (ecrit())
        return true;
    for (qint64 essais = dossiers.recordCount(); essais >= 0; --essais) {
        if (magasin_.dbdossiers().obstacle() != Obstacle::Exists)
            return false;
        ++compteurordre_;
        if (ecrit())
            return true;
    }
    return false;
}

} // namespace velm
