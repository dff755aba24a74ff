// The roads to a document, on the publisher's real collection where it lies beside the repository and on the sample
// elsewhere: the contents tree of the largest collection, the lists of links, commands by the thousand. VELM_BASE names
// a base that is compiled already.
#include "collection/collection.h"
#include "core/cle.h"
#include "document/arborescence.h"
#include "document/liens.h"
#include "document/navigation.h"
#include "platform/widgets/tree/treeview.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <random>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

struct Collection {
    Collection() {
        QString chemin = qEnvironmentVariable("VELM_BASE");
        if (chemin.isEmpty()) {
            const QString reelle = QStringLiteral(VELM_SOURCE_DIR "/../shared/corpus");
            const bool la = QFile::exists(reelle + u"/documents.jsonl"_s);
            chemin = dossier.filePath(u"velm2000.dat"_s);
            if (!compile(la ? reelle : QStringLiteral(VELM_SOURCE_DIR "/collection/exemple"), chemin).faite())
                abandonne();
        }
        if (corpus.connecte(chemin) != OpenError::None)
            abandonne();
        corpus.ouvretables();
        for (int indice = 0; indice < nombredecollections; ++indice) {
            const QString code = typedindice(indice);
            if (corpus.compterarticles(code) > corpus.compterarticles(plusgrande))
                plusgrande = code;
        }
        for (std::size_t i = 0; i < parametres.imagesfermees.size(); ++i)
            parametres.imagesfermees[i] = parametres.imagesouvertes[i] = u"chapitre"_s;
        const auto cles = corpus.base().openQuery(u"SELECT référence, numart, titre FROM données"_s);
        for (; cles && !cles->eof(); cles->moveNext())
            titres.insert(cles->text(u"référence"_s) + cles->text(u"numart"_s), cles->text(u"titre"_s));
    }
    [[noreturn]] static void abandonne() {
        std::fputs("bench_navigation: no base\n", stderr);
        std::exit(1);
    }
    /// The key with most rows of the links' table at one end.
    QString plusliee(const QString& bout) const {
        const auto lignes = corpus.base().openQuery(
            u"SELECT référence%1||numart%1 AS cle, count(*) AS n FROM liens GROUP BY 1 ORDER BY 2 DESC, 1 LIMIT 1"_s
                .arg(bout));
        return lignes && !lignes->eof() ? lignes->text(u"cle"_s) : QString();
    }
    std::string nom() const { return plusgrande.toStdString() + ", " + std::to_string(titres.size()) + " documents"; }

    QTemporaryDir dossier;
    Corpus corpus;
    Parametres parametres;
    SablierMuet sablier;
    QString plusgrande = u"CO"_s;
    QHash<QString, QString> titres;
    Arborescence arborescence{corpus, parametres, sablier, [](int) { return u"Collection"_s; }};
};

/// Lives as long as the application object.
std::unique_ptr<Collection> commune;

void premierchargement(benchmark::State& state) {
    Collection& collection = *commune;
    TreeNodes arbre;
    for ([[maybe_unused]] auto _ : state)
        collection.arborescence.chargearbrebase(arbre, collection.plusgrande);
    state.counters["nodes"] = arbre.count();
    state.SetLabel(collection.nom());
}
BENCHMARK(premierchargement)->Unit(benchmark::kMillisecond);

void premierchargementpeint(benchmark::State& state) {
    Collection& collection = *commune;
    QImage image(400, 900, QImage::Format_ARGB32_Premultiplied);
    for ([[maybe_unused]] auto _ : state) {
        TreeView vue;
        vue.resize(image.size());
        collection.arborescence.chargearbrebase(vue.nodes(), collection.plusgrande);
        vue.show();
        vue.render(&image);
    }
}
BENCHMARK(premierchargementpeint)->Unit(benchmark::kMillisecond);

/// Every node of the collection is opened in its order; what counts is the slowest of these openings.
void expansionlapluslente(benchmark::State& state) {
    Collection& collection = *commune;
    int noeuds = 0;
    QString lente;
    for ([[maybe_unused]] auto _ : state) {
        TreeNodes arbre;
        collection.arborescence.chargearbrebase(arbre, collection.plusgrande);
        double pire = 0;
        for (int noeud = 1; noeud <= arbre.count(); ++noeud) {
            const auto debut = std::chrono::steady_clock::now();
            collection.arborescence.developpe(arbre, noeud);
            const double duree = std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count();
            if (duree > pire) {
                pire = duree;
                lente = arbre.key(noeud);
            }
        }
        noeuds = arbre.count();
        state.SetIterationTime(pire);
    }
    state.counters["nodes"] = noeuds;
    state.SetLabel(lente.toStdString());
}
BENCHMARK(expansionlapluslente)->UseManualTime()->Iterations(5)->Unit(benchmark::kMillisecond);

void rechercherunebranche(benchmark::State& state) {
    Collection& collection = *commune;
    TreeNodes arbre;
    const auto profonde = collection.corpus.base().openQuery(
        u"WITH RECURSIVE p(n, d) AS (SELECT numerodutype, 1 FROM arborescences WHERE référence='%1' AND dépendance=0 "
        "UNION ALL SELECT a.numerodutype, d+1 FROM arborescences a JOIN p ON a.dépendance=p.n WHERE d<20) "
        "SELECT n FROM p ORDER BY d DESC LIMIT 1"_s.arg(collection.plusgrande));
    const qint64 numero = profonde && !profonde->eof() ? profonde->number(u"n"_s) : 0;
    for ([[maybe_unused]] auto _ : state) {
        collection.arborescence.chargearbrebase(arbre, collection.plusgrande);
        collection.arborescence.cherchebranche(arbre, numero);
    }
    state.SetLabel(arbre.key(std::max(1, arbre.selected())).toStdString());
}
BENCHMARK(rechercherunebranche)->Unit(benchmark::kMillisecond);

void liensdudocument(benchmark::State& state) {
    Collection& collection = *commune;
    const QString cle = collection.plusliee(u"départ"_s);
    std::size_t lignes = 0;
    for ([[maybe_unused]] auto _ : state)
        lignes = chargeliens(collection.corpus, decoupecle(cle)).size();
    state.SetLabel(cle.toStdString() + ", " + std::to_string(lignes) + " rows");
}
BENCHMARK(liensdudocument)->Unit(benchmark::kMillisecond);

void correlatsdudocument(benchmark::State& state) {
    Collection& collection = *commune;
    const QString cle = collection.plusliee(u"arrivée"_s);
    std::size_t lignes = 0;
    for ([[maybe_unused]] auto _ : state)
        lignes = chargecorrelats(collection.corpus, decoupecle(cle)).size();
    state.SetLabel(cle.toStdString() + ", " + std::to_string(lignes) + " rows");
}
BENCHMARK(correlatsdudocument)->Unit(benchmark::kMillisecond);

// ---- commands

class Fenetre final : public FenetreNavigable, public LectureNavigable, public BarreNavigable {
public:
    explicit Fenetre(const QHash<QString, QString>& titres) : titres_(titres) {}
    LectureNavigable& lecture() override { return *this; }
    BarreNavigable& barrechild() override { return *this; }
    Parcours& parcours() override { return parcours_; }
    void prendfocus() override {}
    void affiche(const Cle& cle, const QString&) override { titre_ = titres_.value(cle.texte(), titre_); }
    QString titre() override { return titre_; }
    void montreboutons(bool) override {}
    void activehistorique(bool, bool) override {}
    void activevoisin(bool, bool) override {}

private:
    const QHash<QString, QString>& titres_;
    Parcours parcours_;
    QString titre_;
};

class Hote final : public HoteNavigation {
public:
    explicit Hote(const QHash<QString, QString>& titres) : titres_(titres) {}
    FenetreNavigable* creefenetre(int) override {
        return fenetres_.emplace_back(std::make_unique<Fenetre>(titres_)).get();
    }
    void montrefenetre(int, bool) override {}
    void slotchange(int, bool) override {}
    void activehistorique(bool, bool) override {}
    void majderniersdocuments() override {}
    bool dossiersouverts() const override { return true; }

private:
    const QHash<QString, QString>& titres_;
    std::vector<std::unique_ptr<Fenetre>> fenetres_;
};

/// Openings of few documents, so that their copies pile up in the lists, with steps and jumps between.
QStringList commandes(int nombre, const QStringList& cles) {
    std::mt19937 hasard(7); // NOLINT: the same commands each time
    const auto de = [&](int borne) { return static_cast<int>(hasard() % static_cast<unsigned>(borne)); };
    QStringList faites;
    for (int i = 0; i < nombre; ++i) {
        const QString& cle = cles.at(de(static_cast<int>(cles.size())));
        const QString code = cle.left(2);
        const QString sens = de(2) == 0 ? u"-1"_s : u"+1"_s;
        const QString lettre = de(2) == 0 ? u"P"_s : u"S"_s;
        const QString n = QString::number(1 + de(20));
        switch (de(10)) {
        case 0:
        case 1:
            faites << u"TA"_s + sens;
            break;
        case 2:
            faites << u"TA"_s + code + sens;
            break;
        case 3:
            faites << u"LITA"_s + lettre + n;
            break;
        case 4:
            faites << u"LI"_s + code + lettre + n;
            break;
        default:
            faites << u"TA"_s + cle;
        }
    }
    return faites;
}

void commandesauhasard(benchmark::State& state) {
    Collection& collection = *commune;
    QStringList cles = collection.titres.keys();
    cles.sort();
    cles = cles.first(std::min<qsizetype>(cles.size(), 40));
    const QStringList faites = commandes(static_cast<int>(state.range(0)), cles);
    for ([[maybe_unused]] auto _ : state) {
        Hote hote(collection.titres);
        Navigation navigation(hote, collection.corpus);
        for (const QString& commande : faites)
            navigation.navigue(commande);
    }
}
BENCHMARK(commandesauhasard)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

/// One after the other through the titles of the largest collection.
void voisins(benchmark::State& state) {
    Collection& collection = *commune;
    Hote hote(collection.titres);
    Navigation navigation(hote, collection.corpus);
    const int indice = indicedetype(collection.plusgrande);
    QStringList cles = collection.titres.keys().filter(QRegularExpression(u'^' + collection.plusgrande));
    cles.sort();
    if (cles.isEmpty())
        return state.SkipWithError("no documents");
    navigation.ouvre(decoupecle(cles.first()));
    bool haut = false;
    QString avant;
    for ([[maybe_unused]] auto _ : state) {
        avant = navigation.referencecourante();
        navigation.voisin(*navigation.fenetre(indice), collection.plusgrande, haut);
        haut = avant == navigation.referencecourante() ? !haut : haut;
    }
}
BENCHMARK(voisins)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    commune = std::make_unique<Collection>();
    benchmark::RunSpecifiedBenchmarks();
    commune.reset();
    return 0;
}
