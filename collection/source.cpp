#include "collection/source.h"

#include "collection/chaine.h"
#include "collection/inclusions.h"
#include "collection/lecture.h"
#include "core/texte.h"
#include "platform/system/files.h"
#include "platform/text/letters.h"

#include <QSet>

#include <algorithm>
#include <map>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr QByteArrayView marqueutf8 = "\xEF\xBB\xBF";
const QString fichierdelarbre = u"arborescence.jsonl"_s;
/// Less than this is read sooner than a thread is started.
constexpr qsizetype octetspartranche = 65536;
/// Of documents that include one another in a circle.
constexpr std::size_t plusdeclesnommees = 8;

/// Where a line-based file may be cut so that each thread gets about the same.
std::vector<QByteArrayView> tranchesdelignes(QByteArrayView contenu, int nombre) {
    std::vector<QByteArrayView> tranches;
    qsizetype debut = 0;
    for (int k = 0; k < nombre && debut < contenu.size(); ++k) {
        qsizetype fin = contenu.size();
        if (k + 1 < nombre) {
            fin = contenu.indexOf('\n', debut + (contenu.size() - debut) / (nombre - k));
            fin = fin < 0 ? contenu.size() : fin + 1;
        }
        tranches.push_back(contenu.sliced(debut, fin - debut));
        debut = fin;
    }
    return tranches;
}

struct Lecturedetranche {
    std::vector<Fiche> fiches;
    Problemes problemes;
};

} // namespace

SourceDossier::~SourceDossier() = default;

SourceDossier::SourceDossier(const QString& source) : SourceDossier(std::make_unique<DossierDeFichiers>(source)) {}

SourceDossier::SourceDossier(std::unique_ptr<const FichiersSource> fichiers) : source_(std::move(fichiers)) {
    if (const Obstacle obstacle = source_->obstacle(); obstacle != Obstacle::None) {
        problemes_.push_back({Texte::FichierIllisible, false, {}, 0, {source_->lieu()}, obstacle});
        return;
    }
    litreglages();
    litnoeuds();
    litdocuments();
    std::ranges::move(arbre_.verifie(fichierdelarbre), std::back_inserter(problemes_));
    range();
    for (Fiche& fiche : fiches_)
        verifiedocument(fiche);
    completetypes();
    verifieinclusions();
}

void SourceDossier::probleme(int fichier, qint64 ligne, Texte texte, const QString& argument, bool avertissement) {
    problemes_.push_back({texte, avertissement, fichier < 0 ? QString() : nomdufichier(fichier), ligne,
                          argument.isEmpty() ? QStringList() : QStringList{argument}});
}

bool SourceDossier::litfichier(const QString& nom, bool exige) {
    FileBytes lu = source_->lit(nom);
    if (!lu.ok()) {
        if (exige || lu.error.kind != Obstacle::Missing)
            problemes_.push_back({Texte::FichierIllisible, false, nom, 0, {nom}, lu.error.kind});
        return false;
    }
    if (lu.bytes.startsWith(marqueutf8))
        lu.bytes.remove(0, marqueutf8.size());
    fichiers_.push_back({nom, std::move(lu.bytes)});
    return true;
}

void SourceDossier::litreglages() {
    reglages_.couleurs.fill(0xFFFFFF);
    if (!litfichier(u"collection.json"_s, false))
        return;
    litcollection(fichiers_.back().contenu, reglages_, [this](Probleme p) {
        p.fichier = fichiers_.back().nom;
        problemes_.push_back(std::move(p));
    });
}

void SourceDossier::litnoeuds() {
    if (!litfichier(fichierdelarbre, false))
        return;
    const auto fichier = static_cast<int>(fichiers_.size()) - 1;
    parcourtlignes(fichiers_.back().contenu, 1, [&](QByteArrayView ligne, qint64 numero) {
        Noeud noeud;
        const Signale signale([&](Probleme p) {
            p.fichier = nomdufichier(fichier);
            p.ligne = numero;
            problemes_.push_back(std::move(p));
        });
        if (litnoeud(ligne, noeud, signale) && !arbre_.ajoute(noeud, numero))
            probleme(fichier, numero, Texte::NoeudEnDouble, QString::number(noeud.numero));
    });
}

void SourceDossier::litdocuments() {
    QStringList noms = source_->noms(u"documents*.jsonl"_s);
    if (noms.isEmpty())
        noms << u"documents.jsonl"_s;
    for (const QString& nom : std::as_const(noms)) {
        if (!litfichier(nom, true))
            continue;
        const int fichier = static_cast<int>(fichiers_.size()) - 1;
        const QByteArray& contenu = fichiers_.back().contenu;
        const auto parts = std::clamp<qsizetype>(contenu.size() / octetspartranche, 1, nombredouvriers());
        const auto tranches = tranchesdelignes(contenu, static_cast<int>(parts));
        std::vector<Lecturedetranche> lues(tranches.size());
        std::vector<qint64> premieres(tranches.size(), 1);
        for (std::size_t k = 1; k < tranches.size(); ++k)
            premieres[k] = premieres[k - 1] + std::count(tranches[k - 1].begin(), tranches[k - 1].end(), '\n');
        const auto lit = [&](std::size_t k) {
            parcourtlignes(tranches[k], premieres[k], [&](QByteArrayView ligne, qint64 numero) {
                Fiche fiche;
                fiche.fichier = fichier;
                fiche.ligne = numero;
                fiche.brut = ligne;
                const Signale signale([&](Probleme p) {
                    p.fichier = nom;
                    p.ligne = numero;
                    lues[k].problemes.push_back(std::move(p));
                });
                if (litdocument(ligne, *source_, fiche, signale))
                    lues[k].fiches.push_back(std::move(fiche));
            });
        };
        std::vector<std::thread> equipe;
        for (std::size_t k = 1; k < tranches.size(); ++k)
            equipe.emplace_back(lit, k);
        if (!tranches.empty())
            lit(0);
        for (std::thread& membre : equipe)
            membre.join();
        for (Lecturedetranche& lue : lues) {
            std::move(lue.fiches.begin(), lue.fiches.end(), std::back_inserter(fiches_));
            std::move(lue.problemes.begin(), lue.problemes.end(), std::back_inserter(problemes_));
        }
    }
}

/// Puts the documents in the order of their keys, tells of keys that come twice, and drops all but the first.
void SourceDossier::range() {
    std::array<std::size_t, nombredecollections> rangs{};
    for (std::size_t r = 0; r < nombredecollections; ++r)
        rangs[static_cast<std::size_t>(collectionsparcode()[r])] = r;
    const auto ordre = [&](const Fiche& f) {
        return std::pair(rangs[static_cast<std::size_t>(collectiondelacle(f.entete.cle))], f.entete.cle);
    };
    std::stable_sort(fiches_.begin(), fiches_.end(),
                     [&](const Fiche& a, const Fiche& b) { return ordre(a) < ordre(b); });
    const auto fin = std::unique(fiches_.begin(), fiches_.end(), [&](const Fiche& a, const Fiche& b) {
        if (a.entete.cle != b.entete.cle)
            return false;
        probleme(b.fichier, b.ligne, Texte::CleEnDouble, textedelacle(b.entete.cle));
        return true;
    });
    fiches_.erase(fin, fiches_.end());
    for (std::size_t i = 0; i < fiches_.size(); ++i) {
        auto& [premier, nombre] = tranches_[static_cast<std::size_t>(collectiondelacle(fiches_[i].entete.cle))];
        if (nombre++ == 0)
            premier = i;
    }
}

qsizetype SourceDossier::cherche(CleDocument cle) const {
    const int collection = collectiondelacle(cle);
    if (collection < 0 || collection >= nombredecollections)
        return -1;
    const auto [premier, nombre] = tranches_[static_cast<std::size_t>(collection)];
    const auto debut = fiches_.begin() + static_cast<std::ptrdiff_t>(premier);
    const auto fin = debut + static_cast<std::ptrdiff_t>(nombre);
    const auto trouve =
        std::lower_bound(debut, fin, cle, [](const Fiche& f, CleDocument c) { return f.entete.cle < c; });
    return trouve != fin && trouve->entete.cle == cle ? trouve - fiches_.begin() : -1;
}

Corps SourceDossier::corps(qsizetype i) const {
    const Fiche& f = fiche(i);
    if (!f.rtf.isNull())
        return {{}, f.rtf};
    return {litparagraphes(f.brut), {}};
}

Probleme SourceDossier::lieu(qsizetype i) const {
    const Fiche& f = fiche(i);
    return {Texte{}, false, nomdufichier(f.fichier), f.ligne, {}, Obstacle::None, f.fichierrtf};
}

/// The text that an article belongs to: what the source says, else the head of its branch if that names the number,
/// else the piece of its origin that does, else the head of the branch, else the document's own title.
QString SourceDossier::titredutexte(const Entete& e) const {
    if (!e.titretexte.isEmpty() || (e.numarticle.isEmpty() && e.numtitre.isEmpty()))
        return e.titretexte;
    const QString tete = arbre_.libelledetete(e.noeud);
    if (!e.numtitre.isEmpty() && !tete.contains(e.numtitre)) {
        for (const QStringView morceau : QStringView(e.source).split(u';')) {
            if (morceau.contains(e.numtitre))
                return morceau.trimmed().toString();
        }
    }
    return tete.isEmpty() ? e.titre : tete;
}

void SourceDossier::verifiedocument(Fiche& f) {
    Entete& e = f.entete;
    const auto collection = static_cast<std::size_t>(collectiondelacle(e.cle));
    if (e.couleur < 0)
        e.couleur = reglages_.couleurs[collection];
    if (e.noeud != 0) {
        const Noeud* noeud = arbre_.trouve(e.noeud);
        if (noeud == nullptr)
            probleme(f.fichier, f.ligne, Texte::NoeudInconnu, QString::number(e.noeud));
        else if (noeud->collection != collectiondelacle(e.cle)) {
            problemes_.push_back({Texte::AutreCollection,
                                  false,
                                  nomdufichier(f.fichier),
                                  f.ligne,
                                  {QString::number(e.noeud), typedindice(noeud->collection)}});
        }
    } else if (arbre_.aunebranche(collectiondelacle(e.cle))) {
        // The tree shows documents without a node only in a collection that has no branches.
        probleme(f.fichier, f.ligne, Texte::ChampManquant, u"noeud"_s, true);
    }
    e.titretexte = titredutexte(e);
}

/// Kinds of document: those of collection.json, and no others then; else those that occur, by their labels.
void SourceDossier::completetypes() {
    if (reglages_.typesdonnes) {
        QSet<QString> connus;
        for (const TypeDeDocument& type : reglages_.types)
            connus.insert(type.libelle);
        for (const Fiche& f : fiches_) {
            if (!f.entete.type.isEmpty() && !connus.contains(f.entete.type))
                probleme(f.fichier, f.ligne, Texte::TypeInconnu, f.entete.type);
        }
        return;
    }
    QSet<QString> vus;
    std::map<QByteArray, QStringList> libelles;
    for (const Fiche& f : fiches_) {
        if (f.entete.type.isEmpty() || vus.contains(f.entete.type))
            continue;
        vus.insert(f.entete.type);
        libelles[sortKey(f.entete.type)] << f.entete.type;
    }
    for (auto& [cle, memes] : libelles) {
        memes.sort();
        for (const QString& libelle : memes)
            reglages_.types.push_back({static_cast<qint64>(reglages_.types.size()) + 1, libelle});
    }
}

/// Tells of each inclusion that leads back to a document on its own way, with the documents in between.
void SourceDossier::verifieinclusions() {
    Inclusions inclusions(fiches_.size());
    for (std::size_t i = 0; i < fiches_.size(); ++i) {
        for (const CleDocument incluse : fiches_[i].inclusions)
            inclusions[i].push_back(cherche(incluse));
    }
    for (const BoucleDInclusions& boucle : bouclesdinclusions(inclusions)) {
        QStringList cles;
        for (std::size_t i = 0; i < std::min(boucle.size(), plusdeclesnommees); ++i)
            cles << textedelacle(cle(boucle[i]));
        if (boucle.size() > plusdeclesnommees)
            cles << u"…"_s;
        cles << textedelacle(cle(boucle.front()));
        Probleme tourne = lieu(boucle.back());
        tourne.texte = Texte::InclusionsEnBoucle;
        tourne.arguments = {cles.join(u" → "_s)};
        problemes_.push_back(std::move(tourne));
    }
}

} // namespace velm
