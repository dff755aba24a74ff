#include "dossiers/remisepertes.h"

#include "dossiers/libellecompte.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

/// The dossier that one comes back into: its own, or the root, if that is gone or its number has become another's.
qint64 RemisePertes::parentde(const Perte& perte) const {
    const bool sien = rangees_.existe(perte.parent) && rangees_.nom(perte.parent) == perte.nomparent;
    return sien ? perte.parent : 0;
}

/// Gives a dossier its row again, the last one of all.
bool RemisePertes::recree(const Perte& perte) const {
    const qint64 numero = perte.rangee.dossier;
    const bool danslarbre = rangees_.noeud(numero) != 0;
    const qint64 parent = danslarbre ? rangees_.dossier(numero).parent : parentde(perte);
    const qint64 elements = gestion_.arbre().comptearticle(numero);
    Recordset& dossiers = magasin_.rsarborescences();
    QString erreur;
    const auto dernier = magasin_.dbdossiers().openQuery(u"SELECT max(ordre) FROM arborescences"_s, &erreur);
    dossiers.addNew();
    dossiers.setValue(u"numerodutype"_s, numero);
    dossiers.setValue(u"dépendance"_s, parent);
    dossiers.setValue(u"ordre"_s, dernier ? comptechange(dernier->number(0), 1) : numero);
    dossiers.setValue(u"typededonnées"_s, perte.nomdossier);
    dossiers.setValue(u"nbarticles"_s, elements);
    return dossiers.update();
}

/// The dossier of a loss has a row afterwards, and the loss its number.
bool RemisePertes::retrouvedossier(Perte& perte) {
    qint64& numero = perte.rangee.dossier;
    if (numero == 0)
        return true;
    if (!rangees_.dossierlu(numero)) {
        if (rangees_.noeud(numero) == 0)
            parents_.push_back(parentde(perte));
        return recree(perte);
    }
    if (rangees_.nom(numero) == perte.nomdossier)
        return true;
    ArbreDossiers& arbre = gestion_.arbre();
    int& noeud = nouveaux_[{numero, perte.nomdossier}];
    const bool deja = noeud != 0;
    if (!deja) {
        const int parent = rangees_.noeud(parentde(perte));
        noeud = arbre.ajoute(parent != 0 ? parent : noeuds_.childAt(0, 0), perte.nomdossier);
    }
    numero = arbre.numero(noeud);
    return deja || arbre.ecritneuf(noeud);
}

/// The row of a title that was emptied; it may have changed its place since.
bool RemisePertes::remettitre(const Perte& perte) const {
    RangeeRangee ici = perte.rangee;
    ici.titre = perte.apres;
    Recordset& donnees = magasin_.rsdonnees();
    const auto sienne = [&] {
        RangeeRangee la = ContenuDossier::rangee(magasin_);
        la.noordre = ici.noordre;
        return la == ici;
    };
    if (!rangees_.trouve(ici)) {
        donnees.seek(Seek::GreaterOrEqual, ici.dossier);
        while (!donnees.eof() && donnees.number(u"arborescence"_s) == ici.dossier && !sienne())
            donnees.moveNext();
        if (donnees.eof() || !sienne())
            return false;
    }
    donnees.edit();
    donnees.setValue(u"titre"_s, perte.rangee.titre);
    return donnees.update();
}

bool RemisePertes::remet(Perte perte) {
    const qint64 ancien = rangees_.dossierlu(perte.rangee.dossier) ? perte.rangee.dossier : 0;
    if (!retrouvedossier(perte))
        return false;
    if (perte.dundossier() || (perte.sorte == Perte::Sorte::Titre && remettitre(perte)))
        return true;
    // A dossier that had to be made again counts what is in it.
    const qint64 compte =
        ancien == perte.rangee.dossier ? perte.compte.value_or(perte.rangee.dossier) : perte.rangee.dossier;
    comptes_.push_back(compte);
    return rangees_.place(perte.rangee, true) && ContenuDossier::changecompte(magasin_, compte, 1);
}

void RemisePertes::montre(JournalDossiers& journal) {
    ArbreDossiers& arbre = gestion_.arbre();
    for (const auto& [ancien, noeud] : nouveaux_)
        journal.renumerote(ancien.first, ancien.second, arbre.numero(noeud));
    // What the tree does not have comes with its count.
    std::vector<int> connus;
    for (const qint64 numero : comptes_)
        connus.push_back(rangees_.noeud(numero));
    for (const qint64 parent : parents_)
        montreenfants(parent);
    for (const int noeud : connus)
        arbre.modifierelements(noeud, 1);
    if (!connus.empty())
        arbre.notemodifie();
}

/// Loads the children of a dossier anew, so that one that came back is among them.
void RemisePertes::montreenfants(qint64 parent) {
    const int noeud = rangees_.noeud(parent);
    if (!noeuds_.tag(noeud).startsWith(noeuddossier::charge))
        return;
    noeuds_.setTag(noeud, noeuds_.tag(noeud).mid(1));
    gestion_.arbre().developperbranche(noeud);
}

void RemisePertes::renonce() {
    for (const auto& [ancien, noeud] : nouveaux_)
        noeuds_.remove(noeud);
}

} // namespace velm
