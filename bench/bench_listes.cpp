// The windows of lists over as many documents as a base may have, in the real program: from the press of a button to
// painted rows, released collections, sorts, scrolling; and the same table as a plain widget holds it.
//   bench_listes BASE [--memory]     a base of `velmoutil synthese 1000000 BASE --mots 4 --sans-texte`; with --memory
//   what a list adds is told in place of the times
#include "bench/programmedessai.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"
#include "shell/actions.h"
#include "shell/ecrangeneral.h"
#include "shell/fenetreslistes.h"
#include "shell/fenetretypes.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMdiSubWindow>
#include <QTableView>
#include <QTableWidget>
#include <QToolButton>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <ctime>
#include <malloc.h>
#include <memory>

namespace {

using namespace velm;
using namespace Qt::Literals::StringLiterals;

class Programmedessai : public bench::ProgrammeDessai {
public:
    explicit Programmedessai(const QString& base) : ProgrammeDessai(bench::lien(base)) {
        demarre();
        // The collections are counted once the frame is seen.
        QElapsedTimer temps;
        temps.start();
        constexpr int laisser = 500;
        while (temps.elapsed() < laisser)
            QCoreApplication::processEvents();
    }

    FenetreTypes& fenetre(Ordre ordre) const {
        return *static_cast<FenetreTypes*>(programme().listes().fenetre(ordre));
    }
    /// The press of the button, until its rows are painted.
    FenetreTypes& ouvre(Ordre ordre) const {
        programme().ecran()->pieces().actions.de(ordre).trigger();
        attend(fenetre(ordre));
        return fenetre(ordre);
    }
    void ferme(Ordre ordre) const {
        programme().ecran()->pieces().aire.around(&fenetre(ordre))->close();
        oublie();
    }
    /// The longest time that the window did not answer, in milliseconds.
    static double attend(FenetreTypes& fenetre) {
        double plus = 0;
        QElapsedTimer temps;
        temps.start();
        do {
            QCoreApplication::processEvents();
            plus = std::max(plus, static_cast<double>(temps.nsecsElapsed()) / 1e6);
            temps.restart();
        } while (fenetre.encours());
        fenetre.flex().view()->viewport()->repaint();
        return plus;
    }
};

Programmedessai* programme = nullptr;

void ouverture(benchmark::State& state, Ordre ordre) {
    for (auto _ : state) {
        state.counters["rows"] = programme->ouvre(ordre).flex().rows() - 1;
        state.PauseTiming();
        programme->ferme(ordre);
        state.ResumeTiming();
    }
}

void index(benchmark::State& state) {
    ouverture(state, Ordre::Index);
}

void chrono(benchmark::State& state) {
    ouverture(state, Ordre::Chrono);
}

void typereleve(benchmark::State& state) {
    FenetreTypes& fenetre = programme->ouvre(Ordre::Index);
    bool enfonce = true;
    for (auto _ : state) {
        enfonce = !enfonce;
        fenetre.barre().widget(u"EU"_s)->click();
        Programmedessai::attend(fenetre);
        if (enfonce)
            continue;
        state.counters["rows"] = fenetre.flex().rows() - 1;
    }
    programme->ferme(Ordre::Index);
}

void tri(benchmark::State& state, Ordre ordre, int place) {
    FenetreTypes& fenetre = programme->ouvre(ordre);
    double sansreponse = 0;
    for (auto _ : state) {
        emit fenetre.flex().doubleClicked(0, place);
        sansreponse = std::max(sansreponse, Programmedessai::attend(fenetre));
    }
    state.counters["unanswered_ms"] = sansreponse;
    programme->ferme(ordre);
}

void tridelindexpartitre(benchmark::State& state) {
    tri(state, Ordre::Index, 2);
}

void tridesdatespartitre(benchmark::State& state) {
    tri(state, Ordre::Chrono, 3);
}

void tridesdatesparmois(benchmark::State& state) {
    tri(state, Ordre::Chrono, 1);
}

/// What this thread has had of a core, in milliseconds.
double travaille() {
    timespec temps{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &temps);
    return static_cast<double>(temps.tv_sec) * 1e3 + static_cast<double>(temps.tv_nsec) / 1e6;
}

/// A jump of the bar and its frame; the longest of them is told, and the longest work, which other programs do not
/// lengthen.
void defilement(benchmark::State& state) {
    FenetreTypes& fenetre = programme->ouvre(Ordre::Chrono);
    double plus = 0;
    double plusdetravail = 0;
    int haut = 1;
    for (auto _ : state) {
        QElapsedTimer temps;
        temps.start();
        const double avant = travaille();
        haut = static_cast<int>((qint64{haut} + 7919 * 13) % std::max(fenetre.flex().rows() - 60, 1)) + 1;
        fenetre.flex().setTopRow(haut);
        fenetre.flex().view()->viewport()->repaint();
        plus = std::max(plus, static_cast<double>(temps.nsecsElapsed()) / 1e6);
        plusdetravail = std::max(plusdetravail, travaille() - avant);
    }
    state.counters["longest_ms"] = plus;
    state.counters["longest_work_ms"] = plusdetravail;
    programme->ferme(Ordre::Chrono);
}

// ---- the same as a widget of the toolkit holds it

std::unique_ptr<QTableWidget> tableau(int lignes) {
    auto table = std::make_unique<QTableWidget>(lignes, 6);
    const QStringList mots{u"garantie"_s, u"vente"_s, u"crédit"_s, u"bail"_s};
    for (int ligne = 0; ligne < lignes; ++ligne) {
        table->setItem(ligne, 0, new QTableWidgetItem(u"CO"_s));
        table->setItem(ligne, 1, new QTableWidgetItem(QString::number(ligne)));
        table->setItem(ligne, 2,
                       new QTableWidgetItem(u"Code de la consommation, art. L. %1 : garantie et vente"_s.arg(
                           qint64{ligne} * 7919 % lignes)));
        for (int place = 3; place < 6; ++place)
            table->setItem(ligne, place, new QTableWidgetItem(mots.at((ligne + place) % mots.size())));
    }
    table->resize(1000, 800);
    table->show();
    QCoreApplication::processEvents();
    return table;
}

void pairouverture(benchmark::State& state) {
    for (auto _ : state)
        tableau(static_cast<int>(state.range(0)));
}

void pairtri(benchmark::State& state) {
    const auto table = tableau(static_cast<int>(state.range(0)));
    bool descendant = false;
    for (auto _ : state) {
        table->sortItems(2, descendant ? Qt::DescendingOrder : Qt::AscendingOrder);
        table->viewport()->repaint();
        descendant = !descendant;
    }
}

BENCHMARK(index)->Unit(benchmark::kMillisecond);
BENCHMARK(typereleve)->Iterations(10)->Unit(benchmark::kMillisecond);
BENCHMARK(chrono)->Unit(benchmark::kMillisecond);
BENCHMARK(tridelindexpartitre)->Iterations(4)->Unit(benchmark::kMillisecond);
BENCHMARK(tridesdatespartitre)->Iterations(4)->Unit(benchmark::kMillisecond);
BENCHMARK(tridesdatesparmois)->Iterations(4)->Unit(benchmark::kMillisecond);
BENCHMARK(defilement)->Iterations(500)->Unit(benchmark::kMillisecond);
BENCHMARK(pairouverture)->Arg(100'000)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(pairtri)->Arg(100'000)->Iterations(2)->Unit(benchmark::kMillisecond);

/// Bytes that the program holds, and megabytes that a list adds to them.
double pris() {
    return static_cast<double>(mallinfo2().uordblks + mallinfo2().hblkhd) / (1024.0 * 1024.0);
}

void memoire() {
    for (const auto& [ordre, nom] : {std::pair{Ordre::Index, "index"}, {Ordre::Chrono, "chrono"}}) {
        programme->ouvre(ordre);
        programme->ferme(ordre); // what is made once
        const double avant = pris();
        const int lignes = programme->ouvre(ordre).flex().rows() - 1;
        std::printf("%s: %d rows, %.1f MB\n", nom, lignes, pris() - avant);
        programme->ferme(ordre);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    look::apply(application, look::Theme::Light);
    benchmark::Initialize(&argc, argv);
    const QStringList arguments = application.arguments();
    const auto base = std::ranges::find_if(arguments.begin() + 1, arguments.end(),
                                           [](const QString& un) { return !un.startsWith(u'-'); });
    Programmedessai essai(base == arguments.end() ? QString() : *base);
    if (!essai.prete()) {
        std::fputs("no base to list\n", stderr);
        return 1;
    }
    programme = &essai;
    if (arguments.contains(u"--memory"_s))
        memoire();
    else
        benchmark::RunSpecifiedBenchmarks();
    return 0;
}
