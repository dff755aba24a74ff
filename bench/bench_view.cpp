// From content ready to painted: the document view, and beside it a text edit that is given the same content as HTML or
// as bare text. The argument is the size of the document in characters.
#include "platform/widgets/text/richhtml.h"
#include "platform/widgets/text/richtextbox.h"
#include "tests/platform/typeset/sampletext.h"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace {

using namespace velm;

constexpr int marksCount = 100;

const RichText& content(qsizetype size) {
    static std::map<qsizetype, RichText> made;
    const auto known = made.find(size);
    return known != made.end() ? known->second : made.emplace(size, sample::longText(size)).first->second;
}

/// The view in a window, with a document about to be shown.
struct Shown {
    explicit Shown(const RichText& document) : text(document) {
        view.resize(900, 800);
        view.show();
        QApplication::processEvents();
    }
    void load() {
        view.setRedraw(false);
        view.control().setText(u"");
        view.control().richTextForEdit() = text;
        view.control().notifyChanged();
    }
    void paint() {
        view.setRedraw(true);
        view.viewport()->repaint();
    }

    const RichText& text;
    RichTextBox view;
};

void opened(benchmark::State& state) {
    Shown shown(content(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        shown.load();
        state.ResumeTiming();
        shown.paint();
    }
}

void openedAtMiddle(benchmark::State& state) {
    Shown shown(content(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        shown.load();
        state.ResumeTiming();
        shown.view.setSelStart(shown.text.length() / 2);
        shown.paint();
    }
}

void marked(benchmark::State& state) {
    Shown shown(content(state.range(0)));
    shown.load();
    shown.paint();
    CharChange mark;
    mark.mask = CharChange::Colour | CharChange::Bold;
    mark.values.bold = true;
    const qsizetype step = shown.text.length() / (marksCount + 1);
    for (auto _ : state) {
        state.PauseTiming();
        mark.values.colour = mark.values.colour == 255 ? 0xFF0000 : 255;
        shown.view.setRedraw(false);
        for (int i = 0; i < marksCount; ++i)
            shown.view.control().richTextForEdit().changeCharacters(i * step, 8, mark);
        shown.view.control().notifyChanged();
        state.ResumeTiming();
        shown.paint();
    }
}

void laidOutWhole(benchmark::State& state) {
    Shown shown(content(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        shown.load();
        state.ResumeTiming();
        shown.paint();
        while (!shown.view.isSettled())
            QApplication::processEvents();
    }
}

void resized(benchmark::State& state) {
    Shown shown(content(state.range(0)));
    shown.load();
    shown.paint();
    int width = 500;
    for (auto _ : state) {
        width = width == 500 ? 560 : 500;
        shown.view.resize(width, 800);
        shown.view.viewport()->repaint();
    }
}

void peer(benchmark::State& state, bool html) {
    const RichText& text = content(state.range(0));
    const QString given = html ? richHtml(text, 0, text.length()) : text.text();
    QTextEdit edit;
    edit.setReadOnly(true);
    edit.resize(900, 800);
    edit.show();
    for (auto _ : state) {
        state.PauseTiming();
        edit.clear();
        QApplication::processEvents();
        state.ResumeTiming();
        html ? edit.setHtml(given) : edit.setPlainText(given);
        edit.viewport()->repaint();
    }
}

void peerHtml(benchmark::State& state) {
    peer(state, true);
}
void peerPlain(benchmark::State& state) {
    peer(state, false);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(5'000)->Arg(50'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(opened)->Apply(sizes);
BENCHMARK(openedAtMiddle)->Apply(sizes);
BENCHMARK(marked)->Apply(sizes);
BENCHMARK(laidOutWhole)->Apply(sizes);
BENCHMARK(resized)->Apply(sizes);
BENCHMARK(peerHtml)->Apply(sizes);
BENCHMARK(peerPlain)->Apply(sizes);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
