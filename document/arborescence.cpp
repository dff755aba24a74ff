#include "document/arborescence.h"

#include "platform/text/number.h"

#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int racine = 1;
constexpr QChar marquefeuille = u'@';
const QString chargee = u"+"_s;

/// Keeps the tree from being painted for each of many changes.
class SansRedessin {
public:
    explicit SansRedessin(TreeNodes& arbre) : arbre_(arbre), avant_(arbre.redraw()) { arbre_.setRedraw(false); }
    ~SansRedessin() { arbre_.setRedraw(avant_); }
    SansRedessin(const SansRedessin&) = delete;
    SansRedessin& operator=(const SansRedessin&) = delete;

private:
    TreeNodes& arbre_;
    bool avant_;
};

struct Branche {
    qint64 numero;
    QString libelle;
    bool feuilles;
};

/// The rows below a node. They are taken before anything is added: each of them seeks in the same table.
std::vector<Branche> branches(Recordset& table, const QString& code, qint64 parent, bool uneseule) {
    std::vector<Branche> lues;
    table.setIndex(u"enfants"_s);
    table.seek(Seek::Equal, code, parent);
    if (table.noMatch())
        return lues;
    for (; !table.eof(); table.moveNext()) {
        if (table.number(u"dépendance"_s) != parent ||
            table.text(u"référence"_s).compare(code, Qt::CaseInsensitive) != 0)
            break;
        lues.push_back(
            {table.number(u"numerodutype"_s), table.text(u"typededonnées"_s), table.number(u"nbarticles"_s) != 0});
        if (uneseule)
            break;
    }
    return lues;
}

bool feuille(const QString& cle) {
    return cle.startsWith(marquefeuille);
}

/// Where a title goes on behind what it repeats of a text above it: behind the last comma or dash up to which the text
/// begins as the title does. 0 where it repeats nothing, or has nothing else to say.
qsizetype finrepetee(const QString& titre, const QString& audessus) {
    qsizetype fin = 0;
    for (const auto& coupure : {u", "_s, u" - "_s, u" \u2013 "_s, u" : "_s, u"\u00A0: "_s}) {
        for (qsizetype la = titre.indexOf(coupure); la > 0; la = titre.indexOf(coupure, la + 1)) {
            const bool repete = audessus.startsWith(QStringView(titre).first(la), Qt::CaseInsensitive) &&
                                (audessus.size() == la || !audessus.at(la).isLetterOrNumber());
            const qsizetype suite = la + coupure.size();
            if (repete && suite < titre.size())
                fin = std::max(fin, suite);
        }
    }
    return fin;
}

/// How much of a title is a word before a number, with what parts the two ("Article 3"); 0 for none.
qsizetype motdevantnombre(const QString& titre) {
    qsizetype fin = 0;
    while (fin < titre.size() && titre.at(fin).isLetter())
        ++fin;
    const bool devant = fin > 0 && fin + 1 < titre.size() && titre.at(fin).isSpace() && titre.at(fin + 1).isDigit();
    return devant ? fin + 1 : 0;
}

/// The leaves beside a node begin with the same letters.
bool commelevoisin(const TreeNodes& arbre, int noeud, QStringView debut) {
    const int parent = arbre.parent(noeud);
    const int place = arbre.place(noeud);
    for (const int voisine : {place - 1, place + 1}) {
        const int celui = voisine >= 0 && voisine < arbre.children(parent) ? arbre.childAt(parent, voisine) : 0;
        if (celui != 0 && feuille(arbre.key(celui)) && arbre.text(celui).startsWith(debut))
            return true;
    }
    return false;
}

/// Every branch on the way from the root to a node is open.
bool ouvertejusqua(const TreeNodes& arbre, int noeud) {
    int parent = arbre.parent(noeud);
    while (parent != 0 && arbre.expanded(parent))
        parent = arbre.parent(parent);
    return parent == 0;
}

qint64 numerodenoeud(const QString& cle) {
    return wholeNumber(QStringView(cle).sliced(std::min<qsizetype>(2, cle.size()))).value_or(0);
}

} // namespace

Arborescence::Arborescence(Corpus& corpus, const Parametres& parametres, Sablier& sablier, Libelle libelle)
    : corpus_(corpus), parametres_(parametres), sablier_(sablier), libelle_(std::move(libelle)) {}

void Arborescence::chargearbrebase(TreeNodes& arbre, const QString& code) {
    const SansRedessin ensemble(arbre);
    arbre.clear();
    arbre.add(0, code + numberText(0), libelle_(indicedetype(code)), imagenoeud(1, false), imagenoeud(1, true));
    profondeurmax_ = avance;
    chargebranche(arbre, racine);
}

void Arborescence::chargebranche(TreeNodes& arbre, int noeud) {
    if (!arbre.contains(noeud) || feuille(arbre.key(noeud)))
        return;
    const SansRedessin ensemble(arbre);
    charge(arbre, noeud, false);
}

/// Loads what hangs from a node, down to `profondeurmax_`, and no deeper than there are pictures of depths.
/// `feuillesvues`: its documents are in the tree already.
void Arborescence::charge(TreeNodes& arbre, int noeud, bool feuillesvues) {
    const QString cle = arbre.key(noeud);
    const QString code = cle.left(2);
    const qint64 numero = numerodenoeud(cle);
    const int profondeur = niveaunoeud(arbre, noeud) + 1;
    const bool limite = profondeur >= profondeurmax_ || profondeur >= profondeursimages;
    const std::vector<Branche> lues = branches(corpus_.arborescences(), code, numero, limite);
    if (limite && !lues.empty())
        return;
    for (const Branche& branche : lues) {
        const int ajoute = arbre.add(noeud, code + numberText(branche.numero), branche.libelle,
                                     imagenoeud(profondeur, false), imagenoeud(profondeur, true));
        if (ajoute == 0)
            continue;
        if (branche.feuilles)
            ajoutefeuilles(arbre, ajoute, code, branche.numero);
        charge(arbre, ajoute, branche.feuilles);
    }
    // Documents of a node that has no branches and counts no documents hang under the root.
    if (lues.empty() && !feuillesvues)
        ajoutefeuilles(arbre, arbre.indexOf(code + numberText(0)), code, numero);
    arbre.setTag(noeud, chargee);
}

void Arborescence::ajoutefeuilles(TreeNodes& arbre, int parent, const QString& code, qint64 numero) {
    if (parent == 0)
        return;
    const QString image = u"document"_s;
    Recordset& donnees = corpus_.donnees();
    donnees.setIndex(u"numerodutype"_s);
    donnees.seek(Seek::Equal, numero);
    if (donnees.noMatch())
        return;
    for (; !donnees.eof() && donnees.number(u"numeroarborescence"_s) == numero; donnees.moveNext()) {
        const QString reference = donnees.text(u"référence"_s);
        if (reference.compare(code, Qt::CaseInsensitive) == 0)
            arbre.add(parent, marquefeuille + Cle{reference, donnees.text(u"numart"_s)}.texte(),
                      donnees.text(u"titre"_s), image, image);
    }
}

void Arborescence::developpe(TreeNodes& arbre, int noeud) {
    if (!arbre.contains(noeud) || arbre.children(noeud) == 0)
        return;
    const Attente attente(sablier_);
    devance(arbre, noeud);
}

/// Loads what the children of a node that opens lack below them.
void Arborescence::devance(TreeNodes& arbre, int noeud) {
    const SansRedessin ensemble(arbre);
    profondeurmax_ = niveaunoeud(arbre, noeud) + avance;
    // Documents of a branch may come to hang under the root while it is being walked: only what stands now is looked
    // at.
    const int nombre = arbre.children(noeud);
    for (int place = 0; place < nombre; ++place) {
        const int enfant = arbre.childAt(noeud, place);
        if (arbre.tag(enfant) != chargee)
            chargebranche(arbre, enfant);
    }
}

void Arborescence::ouvre(TreeNodes& arbre, int noeud) {
    if (arbre.children(noeud) == 0)
        return;
    devance(arbre, noeud);
    arbre.setExpanded(noeud, true);
}

void Arborescence::ouvreancetres(TreeNodes& arbre, int noeud) {
    std::vector<int> chemin;
    for (int parent = arbre.parent(noeud); parent != 0; parent = arbre.parent(parent))
        chemin.push_back(parent);
    std::reverse(chemin.begin(), chemin.end());
    for (const int parent : chemin)
        ouvre(arbre, parent);
}

/// Loads and opens what leads to the branch of a number, and tells of each node from the first one that stood in the
/// tree. Stops short of it, and gives false, where the base does not know the way.
bool Arborescence::descend(TreeNodes& arbre, qint64 numero, const std::function<void(int noeud)>& passe) {
    if (!arbre.contains(racine))
        return false;
    const QString code = arbre.key(racine).left(2);
    const auto noeudde = [&](qint64 cherche) { return arbre.indexOf(code + numberText(cherche)); };
    // Upwards from the branch, to the first ancestor that is in the tree.
    std::vector<qint64> manquants;
    QSet<qint64> vus;
    Recordset& table = corpus_.arborescences();
    table.setIndex(u"primarykey"_s);
    qint64 courant = numero;
    while (noeudde(courant) == 0) {
        table.seek(Seek::Equal, courant);
        if (vus.contains(courant) || table.noMatch())
            return false;
        vus.insert(courant);
        manquants.push_back(courant);
        courant = table.number(u"dépendance"_s);
    }
    // And down again: opening a branch loads what its children lack.
    int noeud = noeudde(courant);
    ouvreancetres(arbre, noeud);
    passe(noeud);
    std::reverse(manquants.begin(), manquants.end());
    for (const qint64 suivant : manquants) {
        ouvre(arbre, noeud);
        noeud = noeudde(suivant);
        if (noeud == 0)
            return false;
        passe(noeud);
    }
    return true;
}

void Arborescence::cherchebranche(TreeNodes& arbre, qint64 numero) {
    if (!arbre.contains(racine))
        return;
    const Attente attente(sablier_);
    const SansRedessin ensemble(arbre);
    descend(arbre, numero, [&arbre](int noeud) { arbre.select(noeud); });
}

void Arborescence::choisitdocument(TreeNodes& arbre, const Cle& cle) {
    const int noeud = feuillede(arbre, cle);
    if (noeud == 0)
        return;
    const Attente attente(sablier_);
    const SansRedessin ensemble(arbre);
    ouvreancetres(arbre, noeud);
    arbre.select(noeud);
}

int Arborescence::mene(TreeNodes& arbre, const Cle& cle, qint64 numero) {
    // Where all is open there is nothing to do, and nothing to paint anew.
    if (const int ici = feuillede(arbre, cle); ici != 0 && ouvertejusqua(arbre, ici))
        return ici;
    const SansRedessin ensemble(arbre);
    if (feuillede(arbre, cle) == 0 && !descend(arbre, numero, [](int) {}))
        return 0;
    const int noeud = feuillede(arbre, cle);
    if (noeud != 0)
        ouvreancetres(arbre, noeud);
    return noeud;
}

int Arborescence::feuillede(const TreeNodes& arbre, const Cle& cle) {
    return arbre.indexOf(marquefeuille + cle.texte());
}

// ---- nodes

QString Arborescence::libellecourt(const TreeNodes& arbre, int noeud) {
    const QString& titre = arbre.text(noeud);
    if (!feuille(arbre.key(noeud)))
        return titre;
    for (int parent = arbre.parent(noeud); parent != 0; parent = arbre.parent(parent)) {
        if (const qsizetype debut = finrepetee(titre, arbre.text(parent)); debut > 0)
            return titre.sliced(debut);
    }
    const qsizetype mot = motdevantnombre(titre);
    return mot > 0 && commelevoisin(arbre, noeud, QStringView(titre).first(mot)) ? titre.sliced(mot) : titre;
}

int Arborescence::niveaunoeud(const TreeNodes& arbre, int noeud) {
    int niveau = 0;
    for (; arbre.contains(noeud) && noeud != racine && arbre.parent(noeud) != 0; noeud = arbre.parent(noeud))
        ++niveau;
    return niveau;
}

QString Arborescence::imagenoeud(int profondeur, bool ouvert) const {
    const auto& images = ouvert ? parametres_.imagesouvertes : parametres_.imagesfermees;
    return profondeur >= 0 && profondeur < profondeursimages ? images[static_cast<std::size_t>(profondeur)] : QString();
}

Cle Arborescence::documentde(const TreeNodes& arbre, int noeud, const QString& code) {
    if (!arbre.contains(noeud) || !feuille(arbre.key(noeud)))
        return {};
    // The row may write the code in another case than its collection does.
    return {code, decoupecle(QStringView(arbre.key(noeud)).sliced(1)).numero};
}

QStringList Arborescence::chemin(const TreeNodes& arbre, int noeud) {
    QStringList noms;
    for (int branche = feuille(arbre.key(noeud)) ? arbre.parent(noeud) : noeud; arbre.contains(branche);
         branche = arbre.parent(branche))
        noms.prepend(arbre.text(branche));
    return noms;
}

} // namespace velm
