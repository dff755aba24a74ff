#include "dossiers/arbredossiers.h"

#include "dossiers/libellecompte.h"
#include "platform/base/failure.h"
#include "platform/controls/redraw.h"
#include "platform/text/number.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString ferme = u"dossierfermé"_s;
const QString ouvert = u"dossierouvert"_s;
const QString marqueimage = u"suppr"_s;
const QString provisoire = u"$"_s; ///< behind the keys of what is being built anew
constexpr QChar charge = u'+';
constexpr QChar sansrangee = u'A';
constexpr QChar deplacee = u'D';
constexpr QChar renommee = u'R';
constexpr QChar supprimee = u'S';

/// A store may hold any numbers: behind the greatest one come the first ones again.
qint64 numerosuivant(qint64 numero) {
    return numero == std::numeric_limits<qint64>::max() ? 1 : numero + 1;
}

/// Calls `fait` for a node and all below it, each before what is below it; from the first child to the last.
template <typename Fait>
void parcourt(const TreeNodes& noeuds, int noeud, Fait fait) {
    std::vector<int> reste{noeud};
    while (!reste.empty()) {
        const int prochain = reste.back();
        reste.pop_back();
        fait(prochain);
        for (int place = noeuds.children(prochain) - 1; place >= 0; --place)
            reste.push_back(noeuds.childAt(prochain, place));
    }
}

} // namespace

ArbreDossiers::ArbreDossiers(Magasin& magasin, TreeNodes& noeuds, Sablier& sablier, QString racine)
    : magasin_(magasin), noeuds_(noeuds), sablier_(sablier), texteracine_(std::move(racine)) {}

QString ArbreDossiers::clenoeud(qint64 numero) {
    return u"X "_s + numberText(numero);
}

qint64 ArbreDossiers::numerodelacle(const QString& cle) {
    QStringView numero = QStringView(cle).mid(2);
    if (numero.endsWith(provisoire))
        numero.chop(provisoire.size());
    return wholeNumber(numero).value_or(0);
}

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
    if (noeuds_.indexOf(clenoeud(numero)) != 0)
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
    compteurordre_ = noeuds_.place(noeud) + 1;
    return ajouterangee(noeud) && sauvenumero();
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
    const EchecEcriture echec = magasin_.ecrit([&] { return sauve(retires); });
    if (!echec.ok()) {
        prochainnumero_ = numero;
        return echec;
    }
    for (const int noeud : retires)
        noeuds_.remove(noeud);
    modifie_ = false;
    return echec;
}

bool ArbreDossiers::sauve(std::vector<int>& retires) {
    compteurordre_ = 0;
    int restent = noeuds_.children(racine());
    for (int enfant = noeuds_.child(racine()); enfant != 0; enfant = noeuds_.next(enfant)) {
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

bool ArbreDossiers::sauvenumero() {
    Recordset& parametres = magasin_.rsparametres();
    parametres.moveFirst();
    if (numerosuivant(parametres.number(u"dernoarborescence"_s)) == prochainnumero_)
        return true;
    // The next number that is free, to which the next window adds one again: one number is never given.
    parametres.edit();
    parametres.setValue(u"dernoarborescence"_s, prochainnumero_);
    return parametres.update();
}

bool ArbreDossiers::miseajourauplusbas(int noeud, bool& supprime) {
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

bool ArbreDossiers::trouve(int noeud) const {
    Recordset& dossiers = magasin_.rsarborescences();
    dossiers.setIndex(u"primarykey"_s);
    dossiers.seek(Seek::Equal, numero(noeud));
    return !dossiers.noMatch() && dossiers.number(u"numerodutype"_s) == numero(noeud);
}

bool ArbreDossiers::supprimerangee(int noeud) {
    if (!trouve(noeud))
        return true;
    Recordset& elements = magasin_.rsdonnees();
    elements.setIndex(u"primarykey"_s);
    elements.seek(Seek::GreaterOrEqual, numero(noeud));
    for (; !elements.eof() && elements.number(u"arborescence"_s) == numero(noeud); elements.moveNext()) {
        if (!elements.remove())
            return false;
    }
    return magasin_.rsarborescences().remove();
}

bool ArbreDossiers::sauvenoeud(int noeud) {
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

void ArbreDossiers::ecritnom(Recordset& table, int noeud) const {
    table.setValue(u"typededonnées"_s, sanscompteur(noeuds_.text(noeud)));
    table.setValue(u"nbarticles"_s, compteurarbo(noeuds_.text(noeud)));
}

bool ArbreDossiers::ajouterangee(int noeud) {
    prochainnumero_ = std::max(prochainnumero_, numero(noeud));
    // As letters stay, a dossier of this window may have been saved already: no other place could make room for it.
    const bool nouvelle = !trouve(noeud);
    return ecritavecreprise(
        [&](Recordset& dossiers) {
            if (nouvelle)
                dossiers.setValue(u"numerodutype"_s, numero(noeud));
            dossiers.setValue(u"dépendance"_s, numero(noeuds_.parent(noeud)));
            ecritnom(dossiers, noeud);
        },
        nouvelle);
}

bool ArbreDossiers::changerangee(int noeud, bool parent) {
    return ecritavecreprise(
        [&](Recordset& dossiers) {
            if (parent)
                dossiers.setValue(u"dépendance"_s, numero(noeuds_.parent(noeud)));
            ecritnom(dossiers, noeud);
        },
        false);
}

bool ArbreDossiers::renommerangee(int noeud) {
    if (!trouve(noeud))
        return true;
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
bool ArbreDossiers::ecritavecreprise(const std::function<void(Recordset&)>& champs, bool nouvelle) {
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
