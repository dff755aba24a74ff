// The lists and the contents tree: filling, sorting, first painting. The sizes are those of the largest collection and
// of all collections together.
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/look/look.h"
#include "platform/widgets/tree/treeview.h"

#include <QApplication>
#include <QTableView>

#include <benchmark/benchmark.h>
#include <random>

namespace {

using namespace velm;
using namespace Qt::Literals::StringLiterals;

constexpr int collectionSize = 13041;
constexpr int columns = 5;

/// Titles as collections have them: they share long beginnings and have accents.
std::vector<QStringList> rowsOf(int count) {
    static const QStringList words{u"article"_s, u"arrêté"_s,  u"décret"_s,       u"règlement"_s, u"loi"_s,
                                   u"de la"_s,   u"relatif"_s, u"consommation"_s, u"étiquetage"_s};
    std::mt19937 random(1);
    const auto word = [&] { return words.at(static_cast<qsizetype>(random() % static_cast<unsigned>(words.size()))); };
    std::vector<QStringList> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        rows.push_back({u"Code de la "_s + word() + u", "_s + word() + u" "_s + word() + u" n° "_s +
                            QString::number(random() % 20000U),
                        word(), word(), word(), QString::number(i).rightJustified(6, u'0')});
    }
    return rows;
}

struct Shown {
    Shown() {
        grid.resize(600, 800);
        grid.setCols(columns);
        for (int col = 0; col < columns - 1; ++col) {
            grid.setColWidth(col, 2000);
            grid.setHeader(col, u"Colonne"_s);
        }
        grid.setColWidth(columns - 1, 0);
        grid.show();
        QApplication::processEvents();
    }
    FlexGrid grid;
};

void filled(benchmark::State& state) {
    const std::vector<QStringList> rows = rowsOf(60000);
    Shown shown;
    for (auto _ : state) {
        shown.grid.setRedraw(false);
        shown.grid.setRows(1);
        shown.grid.addItems(rows);
        shown.grid.setRedraw(true);
        shown.grid.view()->viewport()->repaint();
    }
}

void filledOneByOne(benchmark::State& state) {
    QStringList lines;
    for (const QStringList& row : rowsOf(60000))
        lines.append(row.join(u'\t'));
    Shown shown;
    for (auto _ : state) {
        shown.grid.setRedraw(false);
        shown.grid.setRows(1);
        for (const QString& line : lines)
            shown.grid.addItem(line);
        shown.grid.setRedraw(true);
        shown.grid.view()->viewport()->repaint();
    }
}

void sorted(benchmark::State& state) {
    const std::vector<QStringList> rows = rowsOf(100000);
    Shown shown;
    shown.grid.addItems(rows);
    bool descending = false;
    for (auto _ : state) {
        shown.grid.sort(0, descending);
        descending = !descending;
        shown.grid.view()->viewport()->repaint();
    }
}

void collectionShown(benchmark::State& state) {
    const std::vector<QStringList> rows = rowsOf(collectionSize);
    for (auto _ : state) {
        Shown shown;
        shown.grid.setMergeCells(true);
        shown.grid.setRedraw(false);
        shown.grid.addItems(rows);
        shown.grid.sort(0, false);
        shown.grid.setRedraw(true);
        shown.grid.view()->viewport()->repaint();
    }
}

void mergedPageScrolled(benchmark::State& state) {
    Shown shown;
    shown.grid.setMergeCells(true);
    shown.grid.addItems(rowsOf(collectionSize));
    shown.grid.sort(1, false);
    int row = 1;
    for (auto _ : state) {
        row = row % 13000 + 17;
        shown.grid.setTopRow(row);
        shown.grid.view()->viewport()->repaint();
    }
}

class Million : public GridSource {
public:
    int rowCount() const override { return 1000000; }
    QString text(int row, int column) const override { return QString::number(row * columns + column); }
    bool sort(int column, bool descending) override {
        Q_UNUSED(descending)
        return column == 0;
    }
};

void millionRowsShown(benchmark::State& state) {
    Shown shown;
    for (auto _ : state) {
        shown.grid.setSource(std::make_unique<Million>());
        shown.grid.setRow(700000);
        shown.grid.view()->viewport()->repaint();
    }
}

/// A collection's tree: chapters of some twenty documents, in books of some twenty chapters.
void plant(TreeNodes& nodes, int count) {
    nodes.add(0, u"CL 0"_s, u"Collection"_s, u"collectionfermée"_s, u"collectionouverte"_s);
    for (int node = 2; node <= count; ++node)
        nodes.add((node - 2) / 20 + 1, u"CL"_s + QString::number(node), u"Chapitre "_s + QString::number(node),
                  u"chapitrefermé"_s, u"chapitreouvert"_s);
}

void treePlanted(benchmark::State& state) {
    TreeView tree;
    tree.resize(300, 800);
    tree.show();
    QApplication::processEvents();
    const int open = static_cast<int>(state.range(0));
    for (auto _ : state) {
        tree.nodes().setRedraw(false);
        tree.nodes().clear();
        plant(tree.nodes(), collectionSize);
        for (int node = 1; node <= open; ++node)
            tree.nodes().setExpanded(node, true);
        tree.nodes().setRedraw(true);
        tree.viewport()->repaint();
    }
}

/// The user opens a branch, and what lies below its children is loaded on the way.
void branchOpened(benchmark::State& state) {
    TreeView tree;
    tree.resize(300, 800);
    tree.show();
    QApplication::processEvents();
    QObject::connect(&tree, &TreeView::expanding, &tree, [&tree](int node) {
        TreeNodes& nodes = tree.nodes();
        nodes.setRedraw(false);
        for (int child = nodes.child(node); child != 0; child = nodes.next(child)) {
            for (int i = 0; i < 20; ++i)
                nodes.add(child, {}, u"Article"_s, u"document"_s, u"document"_s);
        }
        nodes.setRedraw(true);
    });
    for (auto _ : state) {
        state.PauseTiming();
        tree.nodes().setRedraw(false);
        tree.nodes().clear();
        plant(tree.nodes(), collectionSize);
        tree.nodes().setExpanded(1, true);
        tree.nodes().setRedraw(true);
        tree.viewport()->repaint();
        state.ResumeTiming();
        tree.expand(tree.indexOf(3));
        tree.viewport()->repaint();
    }
}

BENCHMARK(filled)->Unit(benchmark::kMillisecond);
BENCHMARK(filledOneByOne)->Unit(benchmark::kMillisecond);
BENCHMARK(sorted)->Unit(benchmark::kMillisecond);
BENCHMARK(collectionShown)->Unit(benchmark::kMillisecond);
BENCHMARK(mergedPageScrolled)->Unit(benchmark::kMillisecond);
BENCHMARK(millionRowsShown)->Unit(benchmark::kMillisecond);
BENCHMARK(treePlanted)->Arg(1)->Arg(600)->Unit(benchmark::kMillisecond);
BENCHMARK(branchOpened)->Iterations(100)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    look::apply(application, look::Theme::Light);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
