// The entries of a dossier: listing many of them, and what happens to a long list that is there.
#include "platform/widgets/list/listview.h"
#include "platform/widgets/look/look.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace {

using namespace velm;
using namespace Qt::Literals::StringLiterals;

constexpr int many = 5000;

struct Titles {
    Titles() {
        for (int i = 0; i < many; ++i) {
            keys << u"AA%1"_s.arg(i);
            texts << u"Article L. 121-%1 sur les pratiques commerciales déloyales et trompeuses"_s.arg(i);
        }
    }
    QStringList keys;
    QStringList texts;
};

struct Listed {
    explicit Listed(ListArrangement arrangement) {
        list.resize(700, 500);
        list.setImages([](const QString&) {
            QPixmap picture(32, 32);
            picture.fill(Qt::darkCyan);
            return QIcon(picture);
        });
        list.setArrangement(arrangement);
        list.show();
        QApplication::processEvents();
    }
    void fill() {
        static const Titles titles;
        ListItems& items = list.items();
        items.setRedraw(false);
        items.clear();
        for (int i = 0; i < many; ++i)
            items.add(0, titles.keys.at(i), titles.texts.at(i), u"AA"_s);
        items.setRedraw(true);
    }
    /// Lays out what waits for it, and paints.
    void paint() {
        QApplication::processEvents();
        list.viewport()->repaint();
    }

    ListView list;
};

ListArrangement arrangementOf(const benchmark::State& state) {
    return static_cast<ListArrangement>(state.range(0));
}

/// From nothing to painted.
void listed(benchmark::State& state) {
    Listed shown(arrangementOf(state));
    for (auto _ : state) {
        shown.fill();
        shown.paint();
    }
}
BENCHMARK(listed)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

/// Another arrangement of what is listed, and back.
void arrangedAnew(benchmark::State& state) {
    Listed shown(ListArrangement::List);
    shown.fill();
    for (auto _ : state) {
        shown.list.setArrangement(arrangementOf(state));
        shown.paint();
        shown.list.setArrangement(ListArrangement::List);
        shown.paint();
    }
}
BENCHMARK(arrangedAnew)->DenseRange(1, 2)->Unit(benchmark::kMillisecond);

/// One entry goes and comes a place higher, as when it is moved up.
void movedUp(benchmark::State& state) {
    Listed shown(arrangementOf(state));
    shown.fill();
    shown.paint();
    for (auto _ : state) {
        shown.list.items().remove(many / 2);
        shown.list.items().add(many / 2 - 1, u"AA%1"_s.arg(many / 2 - 1), u"Article"_s, u"AA"_s);
        shown.list.items().select(many / 2 - 1);
        shown.paint();
    }
}
BENCHMARK(movedUp)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

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
