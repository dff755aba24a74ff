// Paper: the pages of a text, formatted and kept as a job.
#include "platform/paper/printjob.h"
#include "tests/platform/typeset/sampletext.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

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

} // namespace

BENCHMARK(formatted)->Arg(50'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(runningOn)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
