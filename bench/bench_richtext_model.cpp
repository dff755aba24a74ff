// The model alone: what the markup passes, the marks and the search of a document cost on long texts.
#include "platform/richtext/control.h"

#include <benchmark/benchmark.h>

namespace velm {
namespace {

constexpr qsizetype million = 1'000'000;

/// About a million characters with `count` tokens; in one paragraph, or one to each token.
QString source(int count, bool onePara) {
    const QString word = QStringLiteral("l\u2019article du Code pr\u00E9voit que ");
    const QString end = onePara ? QStringLiteral(" ") : QStringLiteral("\r\n");
    const QString token = QStringLiteral("{L=voir|COOOOOOO}");
    QString text;
    text.reserve(million + million / 8);
    for (int i = 0; i < count; ++i) {
        while (text.size() < million / count * i)
            text += word;
        text += token + end;
    }
    return text;
}

RichText loaded(const QString& text) {
    RichText result;
    result.append(text, 0, 0);
    return result;
}

void replaceTokens(benchmark::State& state) {
    const RichText text = loaded(source(static_cast<int>(state.range(0)), state.range(1) != 0));
    for (auto _ : state) {
        state.PauseTiming();
        RichText work = text;
        state.ResumeTiming();
        qsizetype at = 0;
        while ((at = work.indexOf(u'{', at)) >= 0)
            work.replace(at, work.indexOf(u'}', at) + 1 - at, u"voir");
        benchmark::DoNotOptimize(work.length());
    }
}
BENCHMARK(replaceTokens)->Args({2000, 0})->Args({20000, 0})->Args({20000, 1})->Unit(benchmark::kMillisecond);

void styleSections(benchmark::State& state) {
    const RichText text = loaded(source(static_cast<int>(state.range(0)), state.range(1) != 0));
    CharChange characters{CharChange::All, {}};
    characters.values.bold = true;
    ParaChange paragraphs{ParaChange::Start | ParaChange::Right | ParaChange::Align, {}};
    paragraphs.values.startIndent = 500;
    for (auto _ : state) {
        state.PauseTiming();
        RichText work = text;
        state.ResumeTiming();
        qsizetype at = 0;
        qsizetype next = 0;
        while ((next = work.indexOf(u"{L=", at)) >= 0) {
            work.changeCharacters(at, next - at, characters);
            work.changeParagraphs(at, next - at, paragraphs);
            work.replace(next, 3, u"");
            characters.values.bold = !characters.values.bold;
            at = next;
        }
        benchmark::DoNotOptimize(work.length());
    }
}
BENCHMARK(styleSections)->Args({1000, 0})->Args({1000, 1})->Args({20000, 1})->Unit(benchmark::kMillisecond);

void markWords(benchmark::State& state) {
    const QString text = source(1000, false);
    for (auto _ : state) {
        state.PauseTiming();
        RichTextControl control;
        control.setText(text);
        control.setRedraw(false);
        state.ResumeTiming();
        qsizetype hit = 0;
        qsizetype count = 0;
        while ((hit = control.find(u"code", hit + 1)) > 0) {
            control.setSelColor(255);
            control.setSelBold(true);
            ++count;
        }
        state.counters["hits"] = static_cast<double>(count);
    }
}
BENCHMARK(markWords)->Unit(benchmark::kMillisecond);

void findAbsent(benchmark::State& state) {
    const RichText text = loaded(source(1000, false));
    const FindOptions options{false, state.range(0) != 0};
    for (auto _ : state)
        benchmark::DoNotOptimize(find(text, u"usufruit", 0, -1, options));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * text.length() * 2);
}
BENCHMARK(findAbsent)->ArgName("matchCase")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void copyAndPaste(benchmark::State& state) {
    const RichText text = loaded(source(1000, false));
    for (auto _ : state) {
        RichText part = text.copy(1000, million / 2);
        part.replace(1000, 0, text);
        benchmark::DoNotOptimize(part.length());
    }
}
BENCHMARK(copyAndPaste)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace velm

BENCHMARK_MAIN();
