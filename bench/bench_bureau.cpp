// The reading desk with a whole collection: what a reader waits for in the windows, and what a long session costs.
//   bench_bureau BASE [--documents N]     without --documents the benchmarks run, with it N documents are opened and
//   closed
#include "bench/programmedessai.h"
#include "core/cle.h"
#include "document/placedocument.h"
#include "document/ui/panneautextes.h"
#include "document/ui/textes.h"
#include "platform/engine/recordset.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/text/richtextbox.h"
#include "platform/widgets/tree/treeview.h"
#include "search/recherchedico.h"
#include "search/typescherches.h"
#include "shell/bureau.h"
#include "shell/depart.h"
#include "shell/ecrangeneral.h"
#include "shell/groupedepart.h"
#include "shell/selection.h"
#include "shell/vuedepart.h"
#include "tests/platform/typeset/sampletext.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QTableView>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <malloc.h>
#include <memory>

namespace {

using namespace velm;

/// The collection whose tree and list are shown: that with the most documents.
constexpr int collection = 3;

class Bureaudessai : public bench::ProgrammeDessai {
public:
    explicit Bureaudessai(const QString& base) : ProgrammeDessai(bench::lien(base)) {
        ecrit(u"POSITIONFORME", u"WINDOWSSTATE10", QStringLiteral("0")); // windows of their usual size
        demarre();
    }

    Bureau& bureau() { return programme().bureau(); }
    Navigation& navigation() { return bureau().navigation(); }
    Corpus& corpus() { return programme().corpus(); }
    Selection& selection() { return programme().selection(); }
    VueDepart& pagededepart() { return programme().cadre().depart().vue(); }

    /// A fresh window of the collection, painted.
    Textes& fenetre() {
        ferme();
        navigation().ouvrefenetre(collection);
        peint();
        return *bureau().fenetre(collection);
    }
    void ferme() {
        // The next window begins with a block that costs nothing.
        for (Textes* fenetre : bureau().fenetres())
            emit fenetre->barrechild().buttonClicked(QStringLiteral("recherchedico"));
        bureau().fermefenetres();
        oublie();
    }
    /// Keys of the collection in order of the length of their bodies.
    QStringList clesparlongueur(bool mesure = true) {
        std::vector<std::pair<qint64, QString>> cles;
        const QString code = typedindice(collection);
        Recordset& donnees = corpus().donnees();
        donnees.setIndex(QStringLiteral("primarykey"));
        for (donnees.seek(Seek::GreaterOrEqual, code); !donnees.eof(); donnees.moveNext()) {
            if (donnees.text(QStringLiteral("référence")) != code)
                break;
            cles.emplace_back(mesure ? donnees.bytes(QStringLiteral("contenu")).size() : 0,
                              code + donnees.text(QStringLiteral("numart")));
        }
        std::ranges::sort(cles);
        QStringList liste;
        for (const auto& [taille, cle] : cles)
            liste.append(cle);
        return liste;
    }
};

Bureaudessai* bureau = nullptr;

void presse(Textes& fenetre, const QString& cle) {
    emit fenetre.barrechild().buttonClicked(cle);
    Bureaudessai::peint();
}

void sommaire(benchmark::State& etat) {
    for ([[maybe_unused]] const auto& tour : etat) {
        etat.PauseTiming();
        Textes& fenetre = bureau->fenetre();
        etat.ResumeTiming();
        presse(fenetre, QStringLiteral("arbre"));
    }
}

/// The slowest expansion of a walk that opens every node of the tree.
void developpement(benchmark::State& etat) {
    double pire = 0;
    int noeuds = 0;
    for ([[maybe_unused]] const auto& tour : etat) {
        Textes& fenetre = bureau->fenetre();
        presse(fenetre, QStringLiteral("arbre"));
        TreeView& arbre = fenetre.panneau().arbre();
        for (int noeud = 1; noeud <= arbre.nodes().count(); ++noeud) {
            if (arbre.nodes().children(noeud) == 0)
                continue;
            QElapsedTimer montre;
            montre.start();
            arbre.expand(arbre.indexOf(noeud));
            Bureaudessai::peint();
            pire = std::max(pire, static_cast<double>(montre.nsecsElapsed()) * 1e-9);
        }
        noeuds = arbre.nodes().count();
        etat.SetIterationTime(pire);
    }
    etat.counters["nodes"] = noeuds;
}

void liste(benchmark::State& etat) {
    int lignes = 0;
    for ([[maybe_unused]] const auto& tour : etat) {
        etat.PauseTiming();
        Textes& fenetre = bureau->fenetre();
        etat.ResumeTiming();
        presse(fenetre, QStringLiteral("tableau"));
        lignes = fenetre.panneau().flex().rows() - 1;
    }
    etat.counters["rows"] = lignes;
}

void ouverture(benchmark::State& etat) {
    const QStringList cles = bureau->clesparlongueur();
    Textes& fenetre = bureau->fenetre();
    qsizetype rang = cles.size() / 2;
    for ([[maybe_unused]] const auto& tour : etat) {
        // Neighbours in length: all of median size, none shown twice in a row.
        rang = cles.size() / 2 + (rang + 1) % 20;
        bureau->navigation().navigue(QStringLiteral("TA") + cles.at(rang));
        fenetre.vue().viewport()->repaint();
    }
}

/// From the words to the painted rows, as the search form goes there.
void deuxmots(benchmark::State& etat) {
    RemplissageListe& liste = bureau->selection().controle().remplissage();
    FlexGrid& flex = bureau->selection().flex();
    const DemandeDico demande{QStringLiteral("consommateur garantie"), touteslettres(), true, limitedindex(0)};
    liste.montreliste();
    Bureaudessai::peint();
    qint64 lignes = 0;
    for ([[maybe_unused]] const auto& tour : etat) {
        liste.remplit(
            [&](const std::stop_token& arret) {
                lignes = liste
                             .cherchemots(
                                 demande, [](const QString&) {}, arret)
                             .hits;
                liste.acheve();
            },
            [] {});
        flex.view()->viewport()->repaint();
    }
    etat.counters["rows"] = static_cast<double>(lignes);
}

/// All occurrences of a word in a document of a million characters, marked and painted.
void marques(benchmark::State& etat) {
    constexpr qsizetype longueur = 1'000'000;
    const auto nombre = static_cast<qsizetype>(etat.range(0));
    const QString mot = QStringLiteral("zyxwvut");
    RichText texte = sample::longText(longueur);
    for (qsizetype rang = 1; rang <= nombre; ++rang)
        texte.replace(rang * (texte.length() / (nombre + 1)), mot.size(), mot);
    RichTextBox vue;
    vue.resize(900, 800);
    vue.show();
    qsizetype marquees = 0;
    for ([[maybe_unused]] const auto& tour : etat) {
        etat.PauseTiming();
        vue.control().richTextForEdit() = texte;
        vue.control().notifyChanged();
        Bureaudessai::peint();
        etat.ResumeTiming();
        marquees = marquemots(vue.control(), {mot, QString(), 0}, {255, true, false, true}).nombre;
        vue.viewport()->repaint();
    }
    etat.counters["marks"] = static_cast<double>(marquees);
}

/// From the last letter that is typed on the start page to its first rows, painted.
void depart(benchmark::State& etat, const char* mot) {
    bureau->ferme();
    VueDepart& page = bureau->pagededepart();
    Bureaudessai::peint();
    for ([[maybe_unused]] const auto& tour : etat) {
        etat.PauseTiming();
        page.champ().clear();
        page.montretrouves({}, false);
        Bureaudessai::peint();
        etat.ResumeTiming();
        page.champ().setText(QString::fromUtf8(mot));
        while (page.trouves().lignes().empty())
            QCoreApplication::processEvents();
        page.viewport()->repaint();
    }
    etat.counters["rows"] = static_cast<double>(page.trouves().lignes().size());
}

/// What the status bar tells of the document that stands last in the largest collection.
void place(benchmark::State& etat) {
    Recordset& donnees = bureau->corpus().donnees();
    donnees.setIndex(QStringLiteral("icattitre"));
    donnees.seek(Seek::GreaterOrEqual, typedindice(collection) + u'Z');
    donnees.movePrevious();
    const Cle cle{donnees.text(QStringLiteral("référence")), donnees.text(QStringLiteral("numart"))};
    qint64 rang = 0;
    for ([[maybe_unused]] const auto& tour : etat)
        rang = placedocument(bureau->corpus(), cle).rang;
    etat.counters["rank"] = static_cast<double>(rang);
}

BENCHMARK_CAPTURE(depart, frequent, "garantie")
    ->Name("Start page/first rows, frequent text")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(depart, rare, "sortie de crise")
    ->Name("Start page/first rows, rare text")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(place)->Name("Status bar/place of the last document")->Unit(benchmark::kMillisecond);
BENCHMARK(deuxmots)->Name("Search/two words, 50 rows painted")->Unit(benchmark::kMillisecond);
BENCHMARK(marques)->Name("Marks/in 1 MB")->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(sommaire)->Name("Tree/first show")->Unit(benchmark::kMillisecond);
BENCHMARK(developpement)->Name("Tree/slowest expansion")->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);
BENCHMARK(liste)->Name("List/shown")->Unit(benchmark::kMillisecond);
BENCHMARK(ouverture)->Name("Navigate/median article")->Unit(benchmark::kMillisecond);

/// Resident memory, MB.
double memoire() {
    QFile etat(QStringLiteral("/proc/self/status"));
    if (!etat.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& ligne : etat.readAll().split('\n')) {
        if (ligne.startsWith("VmRSS:"))
            return ligne.mid(6).simplified().split(' ').first().toDouble() / 1024;
    }
    return 0;
}

void session(int documents) {
    // The bodies are not looked at beforehand: the engine's own memory is to fill as it does for a reader.
    const QStringList cles = bureau->clesparlongueur(false);
    double depart = 0;
    for (int rang = 0; rang < documents; ++rang) {
        bureau->navigation().navigue(QStringLiteral("TA") + cles.at((rang * 7919LL) % cles.size()));
        Bureaudessai::peint();
        bureau->ferme();
        if (rang == std::min(99, documents - 1))
            depart = memoire();
    }
    std::printf("%d documents opened and closed: %.1f MB after the first 100, %.1f MB at the end\n", documents, depart,
                memoire());
    malloc_trim(0);
    std::printf("%.1f MB once free memory went back to the system\n", memoire());
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    QApplication application(argc, argv);
    velm::look::apply(application, velm::look::Theme::Light);
    const QStringList mots = QCoreApplication::arguments();
    const QString base = mots.value(1, QCoreApplication::applicationDirPath() + QStringLiteral("/velm2000.dat"));
    Bureaudessai essai(base);
    if (!essai.prete())
        return 1;
    bureau = &essai;
    if (mots.value(2) == QStringLiteral("--documents"))
        session(mots.value(3, QStringLiteral("1000")).toInt());
    else
        benchmark::RunSpecifiedBenchmarks();
    essai.ferme();
}
