#include "dossiers/arbredossiers.h"

#include "dossiers/libellecompte.h"
#include "dossiers/sauvegardearbre.h"
#include "platform/base/failure.h"
#include "platform/controls/redraw.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString ferme = u"dossierfermé"_s;
const QString ouvert = u"dossierouvert"_s;
const QString marqueimage = u"suppr"_s;
const QString provisoire = noeuddossier::provisoire.toString();
using noeuddossier::charge;
using noeuddossier::deplacee;
using noeuddossier::numerosuivant;
using noeuddossier::parcourt;
using noeuddossier::renommee;
using noeuddossier::sansrangee;
using noeuddossier::supprimee;

} // namespace

ArbreDossiers::ArbreDossiers(Magasin& magasin, TreeNodes& noeuds, Sablier& sablier, QString racine)
    : magasin_(magasin), noeuds_(noeuds), sablier_(sablier), texteracine_(std::move(racine)) {}

// ---- loading

void ArbreDossiers::litprochainnumero() {
    Recordset& parametres = magasin_.rsparametres();
    parametres.moveFirst();
    if (parametres.eof())
        runtimeError(Failure::MissingTable, {u"paramètres"_s});
    prochainnumero_ = numerosuivant(parametres.number(u"dernoarborescence"_s));
}

void ArbreDossiers::chargearbre() {
    const QScopedValueRollback pendant(chargement_, true);
    const RedrawOff sansdessin(noeuds_);
    modifie_ = false;
    noeuds_.clear();
    noeuds_.add(0, clenoeud(0), texteracine_, ferme, ouvert);
    developperbranche(racine());
    noeuds_.setExpanded(racine(), true);
}

void ArbreDossiers::developperbranche(int noeud) {
    if (!noeuds_.contains(noeud) || noeuds_.tag(noeud).startsWith(charge))
        return;
    const bool marque = porte(noeud, supprimee);
    const QString suite = marque ? marqueimage : QString();
    QString erreur;
    const auto enfants = magasin_.dbdossiers().openQuery(
        u"SELECT numerodutype, typededonnées, nbarticles FROM arborescences WHERE dépendance=?1 ORDER BY ordre"_s,
        {numero(noeud)}, &erreur);
    if (!enfants)
        runtimeError(erreur);
    for (; !enfants->eof(); enfants->moveNext()) {
        // A dossier that is in the tree stays where it is.
        const int enfant =
            noeuds_.add(noeud, clenoeud(enfants->number(0)), aveccompteur(enfants->text(1), enfants->number(2)),
                        ferme + suite, ouvert + suite);
        if (marque)
            noeuds_.setTag(enfant, supprimee);
    }
    noeuds_.setTag(noeud, charge + noeuds_.tag(noeud));
}

void ArbreDossiers::developpe(int noeud) {
    if (chargement_)
        return;
    const Attente attente(sablier_);
    for (int enfant = noeuds_.child(noeud); enfant != 0; enfant = noeuds_.next(enfant))
        developperbranche(enfant);
}

void ArbreDossiers::toutdevelopper() {
    const RedrawOff sansdessin(noeuds_);
    // What is loaded stands behind all others: one pass reaches every level.
    for (int noeud = 1; noeud <= noeuds_.count(); ++noeud)
        developperbranche(noeud);
    for (int noeud = 1; noeud <= noeuds_.count(); ++noeud)
        noeuds_.setExpanded(noeud, true);
}

void ArbreDossiers::toutreduire() {
    const RedrawOff sansdessin(noeuds_);
    for (int noeud = 1; noeud <= noeuds_.count(); ++noeud)
        noeuds_.setExpanded(noeud, false);
}

// ---- editing

bool ArbreDossiers::pris(qint64 numero) const {
    if (noeuds_.indexOf(clenoeud(numero)) != 0 || (temoin_ != nullptr && temoin_->connait(numero)))
        return true;
    // A store that was damaged may know numbers beyond its last one; what is theirs must not become another's.
    Recordset& dossiers = magasin_.rsarborescences();
    dossiers.setIndex(u"primarykey"_s);
    dossiers.seek(Seek::Equal, numero);
    return !dossiers.noMatch() || comptearticle(numero) != 0;
}

int ArbreDossiers::ajoute(int parent, const QString& nom) {
    while (pris(prochainnumero_))
        prochainnumero_ = numerosuivant(prochainnumero_);
    modifie_ = true;
    const int noeud = noeuds_.add(parent, clenoeud(prochainnumero_), nom, ferme, ouvert);
    noeuds_.setExpanded(parent, true);
    noeuds_.select(noeud);
    noeuds_.setTag(noeud, u"+A"_s);
    prochainnumero_ = numerosuivant(prochainnumero_);
    return noeud;
}

bool ArbreDossiers::ecritneuf(int noeud) {
    return SauvegardeArbre(magasin_, noeuds_, prochainnumero_).ecritneuf(noeud);
}

QString ArbreDossiers::commencerenommage(int noeud) {
    compteuredite_ = compteurarbo(noeuds_.text(noeud));
    noeuds_.setText(noeud, sanscompteur(noeuds_.text(noeud)));
    ajoutelettre(noeud, renommee);
    return noeuds_.text(noeud);
}

void ArbreDossiers::remetcompteur(int noeud) {
    noeuds_.setText(noeud, aveccompteur(noeuds_.text(noeud), compteuredite_));
}

void ArbreDossiers::ajoutelettre(int noeud, QChar lettre) {
    if (!porte(noeud, lettre))
        noeuds_.setTag(noeud, noeuds_.tag(noeud) + lettre);
}

void ArbreDossiers::marquersuppression(int noeud, bool marquer) {
    modifie_ = true;
    parcourt(noeuds_, noeud, [&](int un) {
        if (porte(un, supprimee) == marquer)
            return;
        QString lettres = noeuds_.tag(un);
        const QString suite = marquer ? marqueimage : QString();
        if (marquer)
            lettres += supprimee;
        else
            lettres.remove(lettres.indexOf(supprimee), 1);
        noeuds_.setImages(un, ferme + suite, ouvert + suite);
        noeuds_.setTag(un, lettres);
    });
}

bool ArbreDossiers::testearticle(int noeud) const {
    parcourt(noeuds_, noeud, [](int) {});
    return false;
}

bool ArbreDossiers::deplace(int noeud, int cible) {
    if (!noeuds_.setParent(noeud, cible))
        return false;
    marquedeplacement(noeud);
    modifie_ = true;
    return true;
}

void ArbreDossiers::marquedeplacement(int noeud) {
    parcourt(noeuds_, noeud, [this](int un) { ajoutelettre(un, deplacee); });
}

int ArbreDossiers::monte(int noeud) {
    return reconstruit(noeud, noeuds_.childAt(noeuds_.parent(noeud), noeuds_.place(noeud) - 1), Beside::Before);
}

int ArbreDossiers::descend(int noeud) {
    return reconstruit(noeud, noeuds_.next(noeud), Beside::After);
}

int ArbreDossiers::reconstruit(int noeud, int voisin, Beside cote) {
    if (voisin == 0)
        return 0;
    const QString lettres = noeuds_.tag(noeud);
    const bool deroule = noeuds_.expanded(noeud);
    ajoutelettre(voisin, deplacee);
    const int nouveau = noeuds_.addBeside(voisin, cote, noeuds_.key(noeud) + provisoire, noeuds_.text(noeud),
                                          noeuds_.image(noeud), noeuds_.selectedImage(noeud));
    decalechildren(noeud, nouveau);
    noeuds_.remove(noeud);
    noeuds_.select(nouveau);
    noeuds_.setTag(nouveau, lettres);
    ajoutelettre(nouveau, deplacee);
    virerlesmarques(nouveau);
    noeuds_.setExpanded(nouveau, deroule);
    modifie_ = true;
    return nouveau;
}

int ArbreDossiers::decalechildren(int ancien, int nouveau) {
    int copies = 0;
    std::vector<std::pair<int, int>> reste{{ancien, nouveau}};
    while (!reste.empty()) {
        const auto [de, vers] = reste.back();
        reste.pop_back();
        for (int enfant = noeuds_.child(de); enfant != 0; enfant = noeuds_.next(enfant), ++copies) {
            if (porte(enfant, sansrangee))
                perdus_.push_back(numero(enfant));
            // Without the tag: what was marked below a dossier that changes its place is lost.
            const int copie = noeuds_.add(vers, noeuds_.key(enfant) + provisoire, noeuds_.text(enfant),
                                          noeuds_.image(enfant), noeuds_.selectedImage(enfant));
            noeuds_.setExpanded(copie, noeuds_.expanded(enfant));
            reste.emplace_back(enfant, copie);
        }
    }
    return copies;
}

void ArbreDossiers::virerlesmarques(int noeud) {
    parcourt(noeuds_, noeud, [this](int un) { noeuds_.setKey(un, noeuds_.key(un).chopped(1)); });
}

void ArbreDossiers::modifierelements(int noeud, qint64 delta) {
    if (noeuds_.contains(noeud) && !estracine(noeud))
        noeuds_.setText(noeud, compteurchange(noeuds_.text(noeud), delta));
}

// ---- saving

EchecEcriture ArbreDossiers::Sauvearbre() {
    const Attente attente(sablier_);
    const qint64 numero = prochainnumero_;
    std::vector<int> retires;
    const EchecEcriture echec = ecritvu(magasin_, temoin_, [&](Changements& changements) {
        SauvegardeArbre sauvegarde(magasin_, noeuds_, prochainnumero_);
        if (!sauvegarde.sauve(retires))
            return false;
        changements = sauvegarde.changements(perdus_);
        return true;
    });
    if (!echec.ok()) {
        prochainnumero_ = numero;
        return echec;
    }
    for (const int noeud : retires)
        noeuds_.remove(noeud);
    perdus_.clear();
    modifie_ = false;
    return echec;
}

qint64 ArbreDossiers::comptearticle(qint64 numero) const {
    Recordset& elements = magasin_.rsdonnees();
    elements.setIndex(u"primarykey"_s);
    elements.seek(Seek::GreaterOrEqual, numero);
    qint64 compte = 0;
    for (; !elements.eof() && elements.number(u"arborescence"_s) == numero; elements.moveNext())
        ++compte;
    return compte;
}

} // namespace velm
