#include "dossiers/reprises.h"

#include "dossiers/remisepertes.h"

#include <QHash>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Where rows stand while several of them change their places: beyond all that are given.
constexpr qint64 premiereplaceprovisoire = 1999999;

} // namespace

Reprises::Reprises(GestionDossiers& gestion, Magasin& magasin, TreeNodes& noeuds, JournalDossiers& journal)
    : gestion_(gestion), magasin_(magasin), noeuds_(noeuds), journal_(journal), rangees_(magasin, noeuds) {
    gestion_.ecoute(this);
}

Reprises::~Reprises() {
    gestion_.ecoute(nullptr);
}

void Reprises::dit() const {
    if (quandchange)
        quandchange();
}

// ---- what is heard

std::vector<Perte> Reprises::pertes(const Changements& changements) const {
    QHash<qint64, const DossierPerdu*> supprimes;
    for (const DossierPerdu& un : changements.supprimes)
        supprimes[un.numero] = &un;
    std::vector<Perte> toutes;
    const auto ajoute = [&](Perte::Sorte sorte, const RangeeRangee& rangee, const DossierPerdu& dossier) {
        toutes.push_back({{}, sorte, rangee, dossier.nom, dossier.parent, {}, rangees_.nom(dossier.parent)});
    };
    for (const auto& [avant, apres] : changements.elements) {
        if (!avant || (apres && (!apres->titre.isEmpty() || avant->titre.isEmpty())))
            continue;
        const DossierPerdu* const avec = supprimes.value(avant->dossier);
        ajoute(apres ? Perte::Sorte::Titre : Perte::Sorte::Element, *avant,
               avec != nullptr ? *avec : rangees_.dossier(avant->dossier));
        if (!apres && changements.moins.value_or(avant->dossier) != avant->dossier)
            toutes.back().compte = changements.moins;
    }
    for (const DossierPerdu& un : changements.dossiers)
        ajoute(Perte::Sorte::Dossier, {un.numero, 0, {}, {}, {}}, un);
    for (const DossierPerdu& un : changements.abandonnes)
        ajoute(Perte::Sorte::DossierSupprime, {un.numero, 0, {}, {}, {}}, un);
    return toutes;
}

void Reprises::vachanger(const Changements& changements) {
    encours_ = changements;
    notees_.clear();
    notees_ = pertes(encours_);
    journal_.note(notees_);
}

void Reprises::change(bool fait) {
    Changements finis = std::exchange(encours_, {});
    const std::vector<Perte> notees = std::exchange(notees_, {});
    if (!fait) {
        journal_.retire(notees);
    } else if (!finis.parcommande) {
        journal_.renomme(finis.noms);
    } else {
        faits_.push_back(std::move(finis));
        if (faits_.size() > pas)
            faits_.erase(faits_.begin());
    }
    dit();
}

void Reprises::vareparer() {
    encours_.parcommande = false; // also where no more than that can be read
    Changements changements = encours_;
    Recordset& donnees = magasin_.rsdonnees();
    donnees.setIndex(u"primarykey"_s);
    for (const Perte& une : journal_.pertes()) {
        const qint64 numero = une.rangee.dossier;
        if (!une.dundossier() || rangees_.dossierlu(numero))
            continue;
        donnees.seek(Seek::GreaterOrEqual, numero);
        for (; !donnees.eof() && donnees.number(u"arborescence"_s) == numero; donnees.moveNext())
            changements.elements.push_back({ContenuDossier::rangee(magasin_), std::nullopt});
        changements.supprimes.push_back({numero, une.parent, une.nomdossier});
    }
    vachanger(changements);
}

/// A number is asked for when a dossier is made: rarely, and seldom one that is taken.
bool Reprises::connait(qint64 numero) const {
    return std::any_of(journal_.pertes().begin(), journal_.pertes().end(), [&](const Perte& une) {
        return une.rangee.dossier == numero || une.parent == numero || une.compte == numero;
    });
}

// ---- undo

bool Reprises::possible(const ChangementElement& un) const {
    return (!un.apres || rangees_.trouve(*un.apres)) && (!un.avant || rangees_.existe(un.avant->dossier));
}

/// All of them leave their places: a swap could not be undone row by row.
bool Reprises::ecarte(const std::vector<ChangementElement>& elements) const {
    qint64 provisoire = premiereplaceprovisoire;
    return std::all_of(elements.begin(), elements.end(), [&](const ChangementElement& un) {
        ++provisoire;
        if (!un.apres)
            return true;
        if (!rangees_.trouve(*un.apres))
            return false;
        Recordset& donnees = magasin_.rsdonnees();
        donnees.edit();
        donnees.setValue(u"noordre"_s, provisoire);
        return donnees.update();
    });
}

bool Reprises::refait(const Changements& changements, const ChangementElement& un, qint64 provisoire) const {
    // As the deletion lowered the stored count.
    if (!un.apres)
        return rangees_.place(*un.avant, true) &&
               ContenuDossier::changecompte(magasin_, changements.moins.value_or(un.avant->dossier), 1);
    RangeeRangee ici = *un.apres;
    ici.noordre = provisoire;
    if (!rangees_.trouve(ici))
        return false;
    return un.avant ? rangees_.place(*un.avant, false) : magasin_.rsdonnees().remove();
}

bool Reprises::refaittout(const Changements& changements) const {
    qint64 provisoire = premiereplaceprovisoire;
    return ecarte(changements.elements) &&
           std::all_of(changements.elements.begin(), changements.elements.end(),
                       [&](const ChangementElement& un) { return refait(changements, un, ++provisoire); });
}

Reprises::Fait Reprises::annule() {
    Fait fait;
    if (faits_.empty())
        return fait;
    const Changements dernier = faits_.back();
    const auto& elements = dernier.elements;
    Changements inverse;
    for (const auto& [avant, apres] : elements)
        inverse.elements.push_back({apres, avant});
    std::vector<Perte> retrouvees;
    std::vector<Perte> nouvelles;
    fait.echec = magasin_.ecrit([&] {
        fait.fait =
            std::all_of(elements.begin(), elements.end(), [this](const ChangementElement& un) { return possible(un); });
        retrouvees = pertes(dernier);
        nouvelles = pertes(inverse);
        return !fait.fait || refaittout(dernier);
    });
    if (!fait.echec.ok())
        return {fait.echec, false};
    faits_.pop_back();
    if (!fait.fait)
        return fait;
    journal_.retire(retrouvees);
    journal_.note(nouvelles);
    compte(dernier.moins, 1);
    compte(dernier.plus, -1);
    relit(elements.empty() || !elements.front().avant ? nullptr : &*elements.front().avant);
    dit();
    return fait;
}

/// The count that the tree shows.
void Reprises::compte(std::optional<qint64> dossier, qint64 delta) {
    if (!dossier)
        return;
    gestion_.arbre().modifierelements(rangees_.noeud(*dossier), delta);
    gestion_.arbre().notemodifie();
}

/// Lists anew what is listed. The selection stays, or goes to a row that came back.
void Reprises::relit(const RangeeRangee* rangee) {
    ListItems& elements = gestion_.donnees().elements;
    const int avant = elements.selected();
    gestion_.noeudclique(noeuds_.selected());
    int choisi = std::min(avant, elements.count());
    if (rangee != nullptr) {
        const Cle& document = rangee->document;
        const QString cle = cleelement(document.code + document.numero, rangee->noordre, rangee->extrait);
        if (const int revenue = elements.indexOf(cle); revenue != 0)
            choisi = revenue;
    }
    elements.select(choisi);
    if (gestion_.sourcedeliste())
        gestion_.listefocus();
}

// ---- what was lost

Reprises::Fait Reprises::remet(const std::vector<Perte>& pertes) {
    const std::vector<Perte> toutes = pertes; // they may be the journal's own
    RemisePertes remise(gestion_, magasin_, noeuds_);
    Fait fait;
    fait.echec = magasin_.ecrit(
        [&] { return std::all_of(toutes.begin(), toutes.end(), [&](const Perte& une) { return remise.remet(une); }); });
    fait.fait = fait.echec.ok();
    if (!fait.fait) {
        remise.renonce();
        return fait;
    }
    journal_.retire(toutes);
    // It can no longer be read at most: then it is not shown, and the next look at the dossiers tells why.
    magasin_.lit([&] { remise.montre(journal_); });
    relit(nullptr);
    dit();
    return fait;
}

} // namespace velm
