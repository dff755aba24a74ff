// The searches by number and by keyword in the frame: from the key or the click to the painted rows.
//   bench_numeros [BASE]     without BASE, on an invented collection of 100,000 documents with 20,000 keywords
#include "bench/programmedessai.h"
#include "collection/collection.h"
#include "core/schemas.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "shell/fenetremotcle.h"
#include "shell/fenetrenumero.h"
#include "shell/fenetreslistes.h"
#include "shell/selection.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QTableView>
#include <QTableWidget>
#include <QToolButton>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <memory>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

constexpr int documents = 100'000;
constexpr int motscles = 20'000;
constexpr int dunmotcle = 10'000;

/// An invented collection with as many keywords, one of which many documents bear.
bool invente(const QString& chemin) {
    if (!synthese({.documents = documents, .mots = 5, .textes = false}, chemin).faite())
        return false;
    const auto base = Database::open(chemin, OpenMode::Shared, corpusSchema());
    if (!base.database || !base.database->execute(u"DELETE FROM motclés"_s) ||
        !base.database->execute(
            u"UPDATE données SET motclé3='Courant' WHERE rowid%10=0 AND rowid<=%1"_s.arg(dunmotcle * 10)))
        return false;
    TableWriter table(*base.database, u"motclés"_s, {u"motcle"_s, u"nbarticle"_s});
    table.add({u"Courant"_s, dunmotcle});
    for (int i = 1; i < motscles; ++i)
        table.add({u"Mot clé inventé numéro %1"_s.arg(i), i % 97});
    return table.finish();
}

class Cadredessai : public bench::ProgrammeDessai {
public:
    explicit Cadredessai(const QString& base) : ProgrammeDessai(base.isEmpty() ? invente : bench::lien(base)) {
        demarre();
    }

    template <typename Fenetre>
    Fenetre& fenetre(Ordre ordre) {
        FenetresListes& listes = programme().cadre().listes();
        if (!listes.fenetre(ordre))
            listes.bascule(ordre);
        listes.amene(ordre);
        peint();
        return static_cast<Fenetre&>(*listes.fenetre(ordre));
    }
    void ferme(Ordre ordre) {
        FenetresListes& listes = programme().cadre().listes();
        listes.amene(ordre);
        listes.bascule(ordre);
        oublie();
        peint();
    }
};

Cadredessai* cadre = nullptr;

void attend(const FenetreNumero& fenetre) {
    while (fenetre.encours())
        QCoreApplication::processEvents();
    fenetre.flex().view()->viewport()->repaint();
}

/// Return in the box of the articles, among the documents of some collections.
void numero(benchmark::State& etat, const QString& texte, QStringView codes) {
    auto& fenetre = cadre->fenetre<FenetreNumero>(Ordre::Numero);
    for (int collection = 0; collection < nombredecollections; ++collection) {
        const QString code = typedindice(collection);
        if (fenetre.types().enfonce(collection) != TypesChoisis::decodes(codes).enfonce(collection))
            fenetre.barre().widget(code)->click();
    }
    for ([[maybe_unused]] const auto& tour : etat) {
        fenetre.noart().setText(texte);
        emit fenetre.noart().returnPressed();
        attend(fenetre);
    }
    etat.counters["rows"] = fenetre.flex().rows() - 1;
}

void trinumeros(benchmark::State& etat) {
    auto& fenetre = cadre->fenetre<FenetreNumero>(Ordre::Numero);
    for ([[maybe_unused]] const auto& tour : etat) {
        fenetre.flex().sort(3, false);
        attend(fenetre);
    }
    etat.counters["rows"] = fenetre.flex().rows() - 1;
}

void listemotscles(benchmark::State& etat) {
    int lignes = 0;
    for ([[maybe_unused]] const auto& tour : etat) {
        auto& fenetre = cadre->fenetre<FenetreMotcle>(Ordre::MotCle);
        fenetre.flex().view()->viewport()->repaint();
        etat.PauseTiming();
        lignes = fenetre.flex().rows() - 1;
        cadre->ferme(Ordre::MotCle);
        etat.ResumeTiming();
    }
    etat.counters["rows"] = lignes;
}

/// The keywords anew in the window that is open.
void motsclesanouveau(benchmark::State& etat) {
    auto& fenetre = cadre->fenetre<FenetreMotcle>(Ordre::MotCle);
    for ([[maybe_unused]] const auto& tour : etat) {
        fenetre.actualise();
        fenetre.flex().view()->viewport()->repaint();
    }
    etat.counters["rows"] = fenetre.flex().rows() - 1;
}

void documentsdunmotcle(benchmark::State& etat, const QString& motcle) {
    RemplissageListe& liste = cadre->programme().selection().controle().remplissage();
    liste.remplitdemotcle(motcle);
    Cadredessai::peint();
    for ([[maybe_unused]] const auto& tour : etat) {
        liste.remplitdemotcle(motcle);
        cadre->programme().selection().flex().view()->viewport()->repaint();
    }
    etat.counters["rows"] = liste.liste().lignes();
}

/// The same keywords in the table that the toolkit offers.
void autretable(benchmark::State& etat) {
    QTableWidget table;
    table.resize(600, 400);
    table.show();
    const Corpus& corpus = cadre->programme().corpus();
    for ([[maybe_unused]] const auto& tour : etat) {
        const auto lignes = corpus.base().openQuery(u"SELECT motcle, nbarticle FROM motclés ORDER BY clé_motcle"_s);
        table.setRowCount(0);
        table.setColumnCount(2);
        table.setRowCount(motscles);
        for (int rang = 0; rang < motscles && !lignes->eof(); ++rang, lignes->moveNext()) {
            table.setItem(rang, 0, new QTableWidgetItem(lignes->text(0)));
            table.setItem(rang, 1, new QTableWidgetItem(lignes->text(1)));
        }
        table.viewport()->repaint();
    }
    etat.counters["rows"] = table.rowCount();
}

} // namespace

BENCHMARK_CAPTURE(numero, exact, u"L111-1"_s, u"COEUJPCLJRPRLTADGLVPDI")
    ->Name("Number/exact, painted")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(numero, absent, u"Z999"_s, u"COEUJPCLJRPRLTADGLVPDI")
    ->Name("Number/not there, three forms")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(numero, etoile, u"L*"_s, u"COEUJPCL")->Name("Number/L*, painted")->Unit(benchmark::kMillisecond);
BENCHMARK(trinumeros)->Name("Number/sorted by title")->Unit(benchmark::kMillisecond);
BENCHMARK(motsclesanouveau)->Name("Keywords/anew")->Unit(benchmark::kMillisecond);
BENCHMARK(listemotscles)->Name("Keywords/window opened")->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK_CAPTURE(documentsdunmotcle, courant, u"Courant"_s)
    ->Name("Keywords/documents of one")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(documentsdunmotcle, accent, u"État"_s)
    ->Name("Keywords/with an accent, not there")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(autretable)->Name("Keywords/peer, QTableWidget")->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    QApplication application(argc, argv);
    velm::look::apply(application, velm::look::Theme::Light);
    Cadredessai essai(QCoreApplication::arguments().value(1));
    if (!essai.prete())
        return 1;
    cadre = &essai;
    benchmark::RunSpecifiedBenchmarks();
}
