#include "dossiers/rangeesdossiers.h"

#include "dossiers/contenudossier.h"
#include "dossiers/libellecompte.h"
#include "dossiers/noeuddossier.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

bool RangeesDossiers::dossierlu(qint64 numero) const {
    Recordset& dossiers = magasin_.rsarborescences();
    dossiers.setIndex(u"primarykey"_s);
    dossiers.seek(Seek::Equal, numero);
    return !dossiers.noMatch();
}

int RangeesDossiers::noeud(qint64 numero) const {
    return noeuds_.indexOf(noeuddossier::cle(numero));
}

bool RangeesDossiers::existe(qint64 numero) const {
    return numero == 0 || dossierlu(numero) || noeud(numero) != 0;
}

DossierPerdu RangeesDossiers::dossier(qint64 numero) const {
    if (dossierlu(numero)) {
        const Recordset& dossiers = magasin_.rsarborescences();
        return {numero, dossiers.number(u"dépendance"_s), dossiers.text(u"typededonnées"_s)};
    }
    const int un = noeud(numero);
    return {numero, noeuddossier::numero(noeuds_.key(noeuds_.parent(un))), sanscompteur(noeuds_.text(un))};
}

bool RangeesDossiers::occupee(qint64 dossier, qint64 noordre) const {
    Recordset& donnees = magasin_.rsdonnees();
    donnees.setIndex(u"primarykey"_s);
    donnees.seek(Seek::Equal, dossier, noordre);
    return !donnees.noMatch();
}

bool RangeesDossiers::trouve(const RangeeRangee& rangee) const {
    return occupee(rangee.dossier, rangee.noordre) && ContenuDossier::rangee(magasin_) == rangee;
}

bool RangeesDossiers::place(RangeeRangee rangee, bool nouvelle) const {
    Recordset& donnees = magasin_.rsdonnees();
    const Bookmark sienne = nouvelle ? Bookmark() : donnees.bookmark();
    if (occupee(rangee.dossier, rangee.noordre) && donnees.bookmark() != sienne) {
        rangee.noordre = 1;
        while (occupee(rangee.dossier, rangee.noordre) && donnees.bookmark() != sienne)
            ++rangee.noordre;
    }
    if (nouvelle) {
        donnees.addNew();
    } else {
        if (!donnees.setBookmark(sienne))
            return false;
        donnees.edit();
    }
    ContenuDossier::ecritrangee(magasin_, rangee);
    return donnees.update();
}

} // namespace velm
