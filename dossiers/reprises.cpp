#include "dossiers/reprises.h"

#include "dossiers/libellecompte.h"

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Where rows stand while several of them change their places: beyond all that are given.
constexpr qint64 premiereplaceprovisoire = 1999999;

} // namespace

Reprises::Reprises(GestionDossiers& gestion, Magasin& magasin, TreeNodes& noeuds, JournalDossiers& journal)
    : gestion_(gestion), magasin_(magasin), noeuds_(noeuds), journal_(journal) {
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

QString Reprises::nomdudossier(qint64 numero) const {
    if (const int noeud = noeuds_.indexOf(ArbreDossiers::clenoeud(numero)); noeud != 0)
        return sanscompteur(noeuds_.text(noeud));
    return dossierlu(numero) ? magasin_.rsarborescences().text(u"typededonnées"_s) : QString();
}

std::vector<Perte> Reprises::pertes(const Changements& changements) const {
    std::vector<Perte> toutes;
    for (const auto& [avant, apres] : changements.elements) {
        if (!avant || (apres && (!apres->titre.isEmpty() || avant->titre.isEmpty())))
            continue;
        toutes.push_back({{},
                          apres ? Perte::Sorte::Titre : Perte::Sorte::Element,
                          *avant,
                          nomdudossier(avant->dossier),
                          0,
                          apres ? apres->titre : QString()});
    }
    for (const DossierPerdu& un : changements.dossiers)
        toutes.push_back({{}, Perte::Sorte::Dossier, {un.numero, 0, {}, {}, {}}, un.nom, un.parent, {}});
    return toutes;
}

void Reprises::vachanger(const Changements& changements) {
    encours_ = changements;
    journal_.note(pertes(encours_));
}

void Reprises::change(bool fait) {
    const Changements finis = std::exchange(encours_, {});
    if (!fait) {
        journal_.retire(pertes(finis));
    } else if (finis.parcommande && !finis.elements.empty()) {
        faits_.push_back(finis.elements);
        if (faits_.size() > pas)
            faits_.erase(faits_.begin());
    }
    dit();
}

// ---- rows

bool Reprises::dossierlu(qint64 numero) const {
    Recordset& dossiers = magasin_.rsarborescences();
    dossiers.setIndex(u"primarykey"_s);
    dossiers.seek(Seek::Equal, numero);
    return !dossiers.noMatch();
}

bool Reprises::existe(qint64 numero) const {
    return numero == 0 || dossierlu(numero) || noeuds_.indexOf(ArbreDossiers::clenoeud(numero)) != 0;
}

bool Reprises::occupee(qint64 dossier, qint64 noordre) const {
    Recordset& donnees = magasin_.rsdonnees();
    donnees.setIndex(u"primarykey"_s);
    donnees.seek(Seek::Equal, dossier, noordre);
    return !donnees.noMatch();
}

/// Whether the row stands where it was left, of the same document; it is the current one then.
bool Reprises::trouve(const RangeeRangee& rangee) const {
    return occupee(rangee.dossier, rangee.noordre) && ContenuDossier::rangee(magasin_) == rangee;
}

/// Writes the current row, or a new one, at its place, or at the first one that is free when that is taken.
bool Reprises::place(RangeeRangee rangee, bool nouvelle) const {
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

/// A new row, which its dossier counts at once.
bool Reprises::ajoute(const RangeeRangee& rangee) const {
    if (!place(rangee, true))
        return false;
    if (!dossierlu(rangee.dossier))
        return true;
    Recordset& dossiers = magasin_.rsarborescences();
    dossiers.edit();
    dossiers.setValue(u"nbarticles"_s, dossiers.number(u"nbarticles"_s) + 1);
    return dossiers.update();
}

bool Reprises::refait(const ChangementElement& changement, qint64 provisoire) const {
    if (!changement.apres)
        return ajoute(*changement.avant);
    RangeeRangee ici = *changement.apres;
    ici.noordre = provisoire;
    if (!trouve(ici))
        return false;
    return changement.avant ? place(*changement.avant, false) : magasin_.rsdonnees().remove();
}

// ---- undo

Reprises::Fait Reprises::annule() {
    Fait fait;
    if (faits_.empty())
        return fait;
    const auto changements = faits_.back();
    fait.echec = magasin_.ecrit([&] {
        fait.fait = std::all_of(changements.begin(), changements.end(), [&](const ChangementElement& un) {
            return un.apres ? trouve(*un.apres) && (!un.avant || existe(un.avant->dossier)) : existe(un.avant->dossier);
        });
        if (!fait.fait)
            return true;
        // First all of them leave their places: a swap could not be undone row by row.
        qint64 provisoire = premiereplaceprovisoire;
        for (const ChangementElement& un : changements) {
            ++provisoire;
            if (!un.apres)
                continue;
            if (!trouve(*un.apres))
                return false;
            magasin_.rsdonnees().edit();
            magasin_.rsdonnees().setValue(u"noordre"_s, provisoire);
            if (!magasin_.rsdonnees().update())
                return false;
        }
        provisoire = premiereplaceprovisoire;
        return std::all_of(changements.begin(), changements.end(),
                           [&](const ChangementElement& un) { return refait(un, ++provisoire); });
    });
    if (!fait.echec.ok())
        return {fait.echec, false};
    faits_.pop_back();
    if (!fait.fait)
        return fait;
    journal_.retire(pertes({changements, {}, true}));
    std::vector<ChangementElement> inverses;
    for (const auto& [avant, apres] : changements)
        inverses.push_back({apres, avant});
    journal_.note(pertes({inverses, {}, true}));
    recompte(inverses);
    dit();
    return fait;
}

/// The counts that the tree shows, and the list, if it is of one of these dossiers.
void Reprises::recompte(const std::vector<ChangementElement>& elements) {
    bool autres = false;
    for (const auto& [avant, apres] : elements) {
        if (avant && apres && avant->dossier == apres->dossier)
            continue;
        autres = true;
        if (avant)
            gestion_.arbre().modifierelements(noeuds_.indexOf(ArbreDossiers::clenoeud(avant->dossier)), -1);
        if (apres)
            gestion_.arbre().modifierelements(noeuds_.indexOf(ArbreDossiers::clenoeud(apres->dossier)), 1);
    }
    if (autres)
        gestion_.arbre().notemodifie();
    gestion_.noeudclique(noeuds_.selected());
}

// ---- what was lost

/// Gives a dossier its row again, the last one below its parent, or below the root if that is gone.
bool Reprises::recree(const DossierPerdu& dossier) const {
    const qint64 parent = existe(dossier.parent) ? dossier.parent : 0;
    const qint64 compte = gestion_.arbre().comptearticle(dossier.numero);
    Recordset& dossiers = magasin_.rsarborescences();
    QString erreur;
    const auto dernier = magasin_.dbdossiers().openQuery(u"SELECT max(ordre) FROM arborescences"_s, &erreur);
    dossiers.addNew();
    dossiers.setValue(u"numerodutype"_s, dossier.numero);
    dossiers.setValue(u"dépendance"_s, parent);
    dossiers.setValue(u"ordre"_s, dernier ? dernier->number(0) + 1 : dossier.numero);
    dossiers.setValue(u"typededonnées"_s, dossier.nom);
    dossiers.setValue(u"nbarticles"_s, compte);
    return dossiers.update();
}

bool Reprises::remettitre(const Perte& perte) const {
    RangeeRangee ici = perte.rangee;
    ici.titre = perte.apres;
    if (!trouve(ici))
        return false;
    magasin_.rsdonnees().edit();
    magasin_.rsdonnees().setValue(u"titre"_s, perte.rangee.titre);
    return magasin_.rsdonnees().update();
}

Reprises::Fait Reprises::remet(const Perte& perte) {
    const Perte une = perte; // it may be one of the journal's own
    const qint64 numero = une.rangee.dossier;
    const bool parti = !existe(numero);
    bool ajoutee = false;
    Fait fait;
    fait.echec = magasin_.ecrit([&] {
        if (parti && !recree({numero, une.parent, une.nomdossier}))
            return false;
        if (une.sorte == Perte::Sorte::Dossier || (une.sorte == Perte::Sorte::Titre && remettitre(une)))
            return true;
        ajoutee = true;
        return ajoute(une.rangee);
    });
    fait.fait = fait.echec.ok();
    if (!fait.fait)
        return fait;
    journal_.retire({une});
    if (parti)
        montre(une.parent);
    if (ajoutee && !parti)
        recompte({{std::nullopt, une.rangee}});
    else
        gestion_.noeudclique(noeuds_.selected());
    dit();
    return fait;
}

/// Loads the children of a dossier anew, so that one that came back is among them.
void Reprises::montre(qint64 parent) {
    int noeud = noeuds_.indexOf(ArbreDossiers::clenoeud(parent));
    if (noeud == 0)
        noeud = noeuds_.childAt(0, 0);
    if (!noeuds_.tag(noeud).startsWith(u'+'))
        return;
    noeuds_.setTag(noeud, noeuds_.tag(noeud).mid(1));
    gestion_.arbre().developperbranche(noeud);
}

} // namespace velm
