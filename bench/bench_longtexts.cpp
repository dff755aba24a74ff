// Texts that no publisher writes but a damaged or hostile base may hold: until the first page shows, until all is laid
// out, the longest time that the window does not answer meanwhile, and the memory beside the size of the text.
#include "platform/widgets/text/richtextbox.h"

#include <QApplication>
#include <QFile>

#include <benchmark/benchmark.h>
#include <ctime>
#include <malloc.h>

namespace {

using namespace velm;
using namespace Qt::Literals::StringLiterals;

struct Text {
    RichText rich;
    std::vector<LinkRange> links;
};

FormatId face(RichText& rich, std::int32_t colour = autoColour) {
    CharFormat format;
    format.family = u"Liberation Serif"_s;
    format.size = 22;
    format.colour = colour;
    return rich.intern(format);
}

/// One paragraph without a place where a line may end.
Text word(qsizetype characters) {
    Text text;
    text.rich.append(QString(characters, u'x'), face(text.rich), 0);
    return text;
}

Text links(qsizetype count) {
    Text text;
    const FormatId plain = face(text.rich);
    const FormatId blue = face(text.rich, 0xFF0000);
    for (qsizetype i = 0; i < count; ++i) {
        const qsizetype start = text.rich.length();
        text.rich.append(u"article"_s, blue, 0);
        text.links.push_back({start, text.rich.length()});
        text.rich.append(u" et "_s, plain, 0);
    }
    return text;
}

Text pageBreaks(qsizetype count) {
    Text text;
    text.rich.append(u"\r\n\f\r\n"_s.repeated(count), face(text.rich), 0);
    return text;
}

/// One paragraph of words.
Text paragraph(qsizetype characters) {
    Text text;
    const QString words = u"Le professionnel informe le consommateur, de manière lisible, du prix du bien. "_s;
    text.rich.append(words.repeated(characters / words.size()), face(text.rich), 0);
    return text;
}

/// Kilobytes of a line of the process's own account.
qint64 account(const char* name) {
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : file.readAll().split('\n'))
        if (line.startsWith(name))
            return line.simplified().split(' ').at(1).toLongLong();
    return 0;
}

void forgetPeak() {
    malloc_trim(0);
    QFile file(u"/proc/self/clear_refs"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}

/// Of the processor, so that a busy machine tells the same.
class Watch {
public:
    double milliseconds() const { return double(std::clock() - begun_) * 1000 / CLOCKS_PER_SEC; }

private:
    std::clock_t begun_ = std::clock();
};

void shown(benchmark::State& state, Text (*make)(qsizetype)) {
    for ([[maybe_unused]] auto _ : state) {
        const Text text = make(state.range(0));
        auto view = std::make_unique<RichTextBox>();
        view->resize(900, 800);
        view->show();
        QApplication::processEvents();
        forgetPeak();
        const qint64 before = account("VmRSS");
        const Watch watch;
        view->setRedraw(false);
        view->control().richTextForEdit() = text.rich;
        view->control().notifyChanged();
        view->setRedraw(true);
        view->setLinkRanges(text.links);
        view->viewport()->repaint();
        state.counters["first_ms"] = watch.milliseconds();
        double pause = 0;
        while (!view->isSettled()) {
            const Watch turn;
            QApplication::processEvents();
            pause = std::max(pause, turn.milliseconds());
        }
        state.counters["settled_ms"] = watch.milliseconds();
        state.counters["pause_ms"] = pause;
        state.counters["bytes_per_char"] =
            double(account("VmHWM") - before) * 1024 / double(std::max<qsizetype>(1, text.rich.length()));
        const Watch closing;
        view.reset();
        state.counters["closed_ms"] = closing.milliseconds();
    }
}

BENCHMARK_CAPTURE(shown, word, &word)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->Arg(100'000)
    ->Arg(400'000)
    ->Arg(1'000'000);
BENCHMARK_CAPTURE(shown, links, &links)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->Arg(2'000)
    ->Arg(10'000)
    ->Arg(50'000)
    ->Arg(200'000);
BENCHMARK_CAPTURE(shown, pageBreaks, &pageBreaks)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->Arg(100'000)
    ->Arg(500'000);
BENCHMARK_CAPTURE(shown, paragraph, &paragraph)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->Arg(3'000'000)
    ->Arg(30'000'000);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
