// Paper: the pages of a text, formatted, kept as a job, and written as a PDF.
#include "platform/paper/pdffile.h"
#include "platform/paper/printjob.h"
#include "platform/richtext/rtf.h"
#include "tests/platform/typeset/sampletext.h"

#include <QFile>
#include <QGuiApplication>

#include <benchmark/benchmark.h>
#include <cstdio>
#include <optional>

namespace {

using namespace velm;

constexpr PrintDevice::Sheet a4{11906, 16838, 11906, 16838, 0, 0};
const QRect rectangle{1134, 1134, 11906 - 2 * 1134, 16838 - 2 * 1134};

void printed(PrintJob& job, const RichText& text) {
    for (qsizetype at = 0;;) {
        const auto done = job.format(text, at, -1, rectangle);
        if (done.next >= text.length())
            break;
        at = done.next;
        job.newPage();
    }
    job.release();
}

void formatted(benchmark::State& state) {
    const RichText text = sample::longText(state.range(0));
    double pages = 0;
    for ([[maybe_unused]] const auto& turn : state) {
        PrintJob job(a4, [](const JobPages&) {});
        printed(job, text);
        pages = static_cast<double>(job.pages().pages.size());
    }
    state.counters["pages"] = pages;
    state.counters["pages/s"] =
        benchmark::Counter(pages * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

/// Short texts that run on in one job.
void runningOn(benchmark::State& state) {
    const RichText text = sample::longText(3000);
    for ([[maybe_unused]] const auto& turn : state) {
        PrintJob job(a4, [](const JobPages&) {});
        for (int i = 0; i < state.range(0); ++i) {
            job.newPage();
            printed(job, text);
        }
        state.counters["pages"] = static_cast<double>(job.pages().pages.size());
    }
}

void writtenAsPdf(benchmark::State& state) {
    PrintJob job(a4, [](const JobPages&) {});
    printed(job, sample::longText(state.range(0)));
    for ([[maybe_unused]] const auto& turn : state)
        state.counters["bytes"] = static_cast<double>(pdfOf(job.pages(), {}).size());
    state.counters["pages"] = static_cast<double>(job.pages().pages.size());
}

/// What the system says of this process: the most memory that it ever had, in megabytes.
double peak() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    constexpr double kilo = 1024;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').front().toDouble() / kilo;
    }
    return 0;
}

/// How much more memory a job of so many pages takes than there was before: in the making, and with its PDF.
bool weigh(qsizetype pages) {
    const RichText text = sample::longText(1'000'000);
    const double before = peak();
    PrintJob job(a4, [](const JobPages&) {});
    while (static_cast<qsizetype>(job.pages().pages.size()) < pages) {
        job.newPage();
        printed(job, text);
    }
    const double made = peak();
    const qsizetype bytes = pdfOf(job.pages(), {}).size();
    std::printf("%zu pages: %.0f MB more, with a PDF of %.1f MB: %.0f MB more\n", job.pages().pages.size(),
                made - before, static_cast<double>(bytes) / 1e6, peak() - before);
    return bytes > 0;
}

bool write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/// A PDF of a file, as other programs make one.
bool convert(const QString& from, const QString& to) {
    QFile file(from);
    RichText text;
    if (!file.open(QIODevice::ReadOnly) || !readRtf(file.readAll(), text))
        return false;
    PrintJob job(a4, [](const JobPages&) {});
    printed(job, text);
    return write(to, pdfOf(job.pages(), {}));
}

/// What bench/pdf.py asks for; nothing else to do then.
std::optional<bool> asked(const QStringList& words) {
    if (words.size() == 3 && words[1] == QLatin1String("--export"))
        return write(words[2], writeRtf(sample::longText(1'000'000)));
    if (words.size() == 4 && words[1] == QLatin1String("--convert"))
        return convert(words[2], words[3]);
    if (words.size() == 3 && words[1] == QLatin1String("--weigh"))
        return weigh(words[2].toLongLong());
    return {};
}

} // namespace

BENCHMARK(formatted)->Arg(50'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(writtenAsPdf)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(runningOn)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (const std::optional<bool> done = asked(QGuiApplication::arguments()))
        return *done ? 0 : 1;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
