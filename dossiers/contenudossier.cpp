#include "dossiers/contenudossier.h"

#include "dossiers/libellecompte.h"
#include "platform/base/failure.h"
#include "platform/controls/redraw.h"
#include "platform/engine/recordset.h"

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Where a row stands while it changes its place with another one: places are unique in a dossier.
constexpr qint64 placeprovisoire = 999999;
/// The key of its item meanwhile. No document has it, so that the other item may take the one that this one had.
const QString cleprovisoire = u"XXXXXXXXX"_s;

} // namespace

ContenuDossier::ContenuDossier(Magasin& magasin, ListItems& elements, QString libelleextrait)
    : magasin_(magasin), elements_(elements), libelleextrait_(std::move(libelleextrait)) {}

QString ContenuDossier::suffixe(const Extrait& extrait) const {
    return extrait.entier() ? QString() : u" ["_s + libelleextrait_ + u']';
}

void ContenuDossier::liste(qint64 numero) {
    const RedrawOff sansdessin(elements_);
    elements_.clear();
    // One question for all rows: field by field, those of a full dossier would be waited for.
    QString erreur;
    const auto rangees = magasin_.dbdossiers().openQuery(
        u"SELECT référence, numart, noordre, titre, positiondébut, positionfin FROM données WHERE arborescence=?1 "
        "ORDER BY noordre"_s,
        {numero}, &erreur);
    if (!rangees)
        runtimeError(erreur);
    for (; !rangees->eof(); rangees->moveNext()) {
        const Extrait extrait{rangees->number(4), rangees->number(5)};
        const QString code = rangees->text(0);
        elements_.add(0, cleelement(code + rangees->text(1), rangees->number(2), extrait),
                      rangees->text(3) + suffixe(extrait), code);
    }
}

void ContenuDossier::ajouteenattente(const ElementEnAttente& element) {
    const Extrait extrait{element.itemdebut, element.itemlongueur};
    qint64 k = 1;
    while (!elements_.add(0, cleelement(element.itemreference, k, extrait), element.itemtitre + suffixe(extrait),
                          element.itemreference.left(2)))
        ++k;
}

RangeeRangee ContenuDossier::rangee(const Magasin& magasin) {
    const Recordset& donnees = magasin.rsdonnees();
    return {donnees.number(u"arborescence"_s),
            donnees.number(u"noordre"_s),
            {donnees.text(u"référence"_s), donnees.text(u"numart"_s)},
            donnees.text(u"titre"_s),
            {donnees.number(u"positiondébut"_s), donnees.number(u"positionfin"_s)}};
}

void ContenuDossier::ecritrangee(const Magasin& magasin, const RangeeRangee& rangee) {
    Recordset& donnees = magasin.rsdonnees();
    donnees.setValue(u"arborescence"_s, rangee.dossier);
    donnees.setValue(u"noordre"_s, rangee.noordre);
    donnees.setValue(u"référence"_s, rangee.document.code);
    donnees.setValue(u"numart"_s, rangee.document.numero);
    donnees.setValue(u"titre"_s, rangee.titre);
    donnees.setValue(u"positiondébut"_s, rangee.extrait.debut);
    donnees.setValue(u"positionfin"_s, rangee.extrait.longueur);
}

bool ContenuDossier::trouve(const QString& cle, qint64 noordre) const {
    const Cle document = documentdelacle(cle);
    Recordset& donnees = magasin_.rsdonnees();
    donnees.setIndex(u"iref"_s);
    donnees.seek(Seek::Equal, document.code, document.numero, noordre);
    return !donnees.noMatch();
}

QString ContenuDossier::titrenu(int index) const {
    const QString& texte = elements_.text(index);
    if (!estextrait(elements_.key(index)))
        return texte;
    return texte.left(std::max<qsizetype>(0, texte.size() - libelleextrait_.size() - 3));
}

/// Does some work on the row of an entry, if that is found.
ContenuDossier::Fait ContenuDossier::faitsur(int index, const std::function<bool(Changements&)>& travail) const {
    const QString cle = elements_.key(index);
    Fait fait;
    fait.echec = ecritvu(magasin_, temoin_, [&](Changements& changements) {
        fait.trouve = trouve(cle, noordredelacle(cle));
        return !fait.trouve || travail(changements);
    });
    return fait;
}

ContenuDossier::Fait ContenuDossier::renomme(int index, QString& texte) {
    const Fait fait = faitsur(index, [&](Changements& changements) {
        Recordset& donnees = magasin_.rsdonnees();
        const RangeeRangee avant = rangee(magasin_);
        RangeeRangee apres = avant;
        apres.titre = texte;
        if (apres != avant)
            changements.elements.push_back({avant, apres});
        donnees.edit();
        donnees.setValue(u"titre"_s, texte);
        return donnees.update();
    });
    if (estextrait(elements_.key(index)))
        texte += u" ["_s + libelleextrait_ + u']';
    return fait;
}

ContenuDossier::Fait ContenuDossier::supprime(int index, qint64 dossier) {
    const Fait fait = faitsur(index, [&](Changements& changements) {
        changements.elements.push_back({rangee(magasin_), std::nullopt});
        changements.moins = dossier;
        return magasin_.rsdonnees().remove() && changecompte(magasin_, dossier, -1);
    });
    if (fait.echec.ok() && fait.trouve)
        elements_.remove(index);
    return fait;
}

bool ContenuDossier::changecompte(const Magasin& magasin, qint64 dossier, qint64 delta) {
    Recordset& dossiers = magasin.rsarborescences();
    dossiers.setIndex(u"primarykey"_s);
    dossiers.seek(Seek::Equal, dossier);
    if (dossiers.noMatch())
        return true;
    dossiers.edit();
    dossiers.setValue(u"nbarticles"_s, comptechange(dossiers.number(u"nbarticles"_s), delta));
    return dossiers.update();
}

ContenuDossier::Fait ContenuDossier::echange(int i, int j) {
    const QString a = elements_.key(i);
    const QString b = elements_.key(j);
    Fait fait;
    fait.echec = ecritvu(magasin_, temoin_, [&](Changements& changements) {
        return inversercontenuordre(i, j, fait.trouve, changements);
    });
    if (!fait.echec.ok()) {
        elements_.setKey(i, cleprovisoire);
        elements_.setKey(j, b);
        elements_.setKey(i, a);
        return fait;
    }
    if (!fait.trouve)
        return fait;
    const QString cle = elements_.key(i);
    const QString texte = elements_.text(i);
    elements_.remove(i);
    elements_.add(j, cle, texte, cle.left(2));
    elements_.select(j);
    return fait;
}

bool ContenuDossier::inversercontenuordre(int i, int j, bool& trouvees, Changements& changements) {
    const QString a = elements_.key(i);
    const QString b = elements_.key(j);
    const qint64 placea = noordredelacle(a);
    const qint64 placeb = noordredelacle(b);
    Recordset& donnees = magasin_.rsdonnees();
    const auto ecritplace = [&](qint64 place, qint64 finale) {
        const RangeeRangee avant = rangee(magasin_);
        RangeeRangee apres = avant;
        apres.noordre = finale;
        if (avant.noordre != placeprovisoire)
            changements.elements.push_back({avant, apres});
        donnees.edit();
        donnees.setValue(u"noordre"_s, place);
        return donnees.update();
    };
    trouvees = trouve(a, placea);
    if (!trouvees)
        return true;
    elements_.setKey(i, cleprovisoire);
    if (!ecritplace(placeprovisoire, placeb))
        return false;
    if (trouve(b, placeb)) {
        if (!ecritplace(placea, placea))
            return false;
        elements_.setKey(j, avecnoordre(b, placea));
    }
    if (!trouve(a, placeprovisoire) || !ecritplace(placeb, placeb))
        return false;
    // A list that came from a file may have the key already: the entry then keeps the one that it had.
    return elements_.setKey(i, avecnoordre(a, placeb)) || elements_.setKey(i, a);
}

bool ContenuDossier::ajouterangee(const RangeeRangee& rangee) const {
    Recordset& donnees = magasin_.rsdonnees();
    donnees.addNew();
    ecritrangee(magasin_, rangee);
    return donnees.update();
}

/// Whether a place of a dossier can be had; its own a row can always have.
bool ContenuDossier::placelibre(qint64 dossier, qint64 noordre, Bookmark sienne) const {
    Recordset& donnees = magasin_.rsdonnees();
    donnees.setIndex(u"primarykey"_s);
    donnees.seek(Seek::Equal, dossier, noordre);
    return donnees.noMatch() || donnees.bookmark() == sienne;
}

EchecEcriture ContenuDossier::range(const ElementEnAttente& element, qint64 dossier) {
    return ecritvu(magasin_, temoin_, [&](Changements& changements) {
        qint64 k = 1;
        while (!placelibre(dossier, k, {}))
            ++k;
        const RangeeRangee neuve{dossier,
                                 k,
                                 documentdelacle(element.itemreference),
                                 element.itemtitre,
                                 {element.itemdebut, element.itemlongueur}};
        changements.elements.push_back({std::nullopt, neuve});
        changements.plus = dossier;
        return ajouterangee(neuve);
    });
}

bool ContenuDossier::trouvedelaqueue(const QString& cle) const {
    const Cle document = documentdelacle(cle);
    const qint64 place = nombredelaqueue(cle);
    Recordset& donnees = magasin_.rsdonnees();
    donnees.setIndex(u"iref"_s);
    donnees.seek(Seek::GreaterOrEqual, document.code, document.numero);
    const auto dudocument = [&] {
        return !donnees.eof() && donnees.text(u"référence"_s) == document.code &&
               donnees.text(u"numart"_s) == document.numero;
    };
    for (; dudocument(); donnees.moveNext()) {
        if (donnees.number(u"noordre"_s) == place)
            return true;
    }
    return false;
}

ContenuDossier::Fait ContenuDossier::deplace(int index, qint64 dossier, qint64 liste) {
    const QString cle = elements_.key(index);
    Fait fait;
    fait.echec = ecritvu(magasin_, temoin_, [&](Changements& changements) {
        // Whether a row is found or not: the list loses the entry, and both counts change.
        changements.moins = liste;
        changements.plus = dossier;
        fait.trouve = trouvedelaqueue(cle);
        if (!fait.trouve)
            return true;
        Recordset& donnees = magasin_.rsdonnees();
        const Bookmark sienne = donnees.bookmark();
        const RangeeRangee avant = rangee(magasin_);
        qint64 k = 1;
        while (!placelibre(dossier, k, sienne))
            ++k;
        RangeeRangee apres = avant;
        apres.dossier = dossier;
        apres.noordre = k;
        changements.elements.push_back({avant, apres});
        if (!donnees.setBookmark(sienne))
            return false;
        donnees.edit();
        donnees.setValue(u"arborescence"_s, dossier);
        donnees.setValue(u"noordre"_s, k);
        return donnees.update();
    });
    if (fait.echec.ok())
        elements_.remove(index);
    return fait;
}

void ContenuDossier::montre(const Paires& paires) {
    elements_.setRedraw(false);
    elements_.clear();
    for (const auto& [cle, texte] : paires)
        elements_.add(0, cle, texte, cle.left(2));
    elements_.setRedraw(true);
}

EchecEcriture ContenuDossier::importe(const Paires& paires, qint64 dossier) {
    return magasin_.ecrit([&] {
        qint64 noordre = 0;
        return std::all_of(paires.begin(), paires.end(), [&](const auto& paire) {
            const auto& [cle, texte] = paire;
            return ajouterangee({dossier, ++noordre, documentdelacle(cle), texte, extraitdelacle(cle)});
        });
    });
}

} // namespace velm
