// Reading and writing RTF: thousands of different documents of about 10 KB, as a collection holds them.
#include "platform/richtext/rtf.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <array>
#include <benchmark/benchmark.h>
#include <random>
#include <vector>

namespace {

using velm::RichText;

constexpr std::size_t documents = 5000;
constexpr qsizetype documentSize = 10240;

using Words = std::vector<QByteArray>;

/// French-looking words, as RTF writes them.
Words makeWords(std::mt19937& random) {
    constexpr std::array syllables = {"con", "tra", "som",   "ma",      "teur", "vi",       "ce",   "pro",
                                      "du",  "it",  "\\'e9", "pr\\'e9", "le",   "gi",       "sla",  "tion",
                                      "ga",  "ran", "tie",   "d\\'e8",  "ment", "\\'e0 l'", "fran", "\\'e7ais"};
    Words words;
    for (int i = 0; i < 3000; ++i) {
        QByteArray word;
        for (auto k = 1U + random() % 4; k > 0; --k)
            word += syllables[random() % syllables.size()];
        words.push_back(word);
    }
    return words;
}

void addSentence(QByteArray& rtf, const Words& words, std::mt19937& random) {
    for (auto k = 6U + random() % 14; k > 0; --k) {
        if (random() % 40 == 0)
            rtf += "{\\b\\i " + words[random() % words.size()] + "} ";
        else if (random() % 60 == 0)
            rtf += "\\u8217\\'92";
        else
            rtf += words[random() % words.size()] + ' ';
    }
}

QByteArray makeDocument(const Words& words, std::mt19937& random) {
    QByteArray rtf =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1036{\\fonttbl{\\f0\\froman\\fcharset0 Times New Roman;}"
        "{\\f1\\fswiss\\fcharset0 Arial;}{\\f2\\fnil\\fcharset2 Symbol;}}\r\n"
        "{\\colortbl ;\\red0\\green0\\blue128;\\red128\\green0\\blue0;}\r\n\\uc1\\pard\\plain\\f1\\fs28\\b ";
    addSentence(rtf, words, random);
    rtf += "\\par\r\n";
    while (rtf.size() < documentSize) {
        switch (random() % 8) {
        case 0:
            rtf +=
                "\\pard\\qj\\fi-360\\li720{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf2\\pnindent0{\\pntxtb\\'B7}}"
                "\\f0\\fs20 ";
            break;
        case 1:
            rtf += "\\trowd\\trgaph70\\cellx3000\\cellx6000\\pard\\intbl\\f0\\fs18 ";
            addSentence(rtf, words, random);
            rtf += "\\cell ";
            addSentence(rtf, words, random);
            rtf += "\\cell\\row\r\n";
            continue;
        case 2:
            rtf += "\\pard\\cf1\\b\\f1\\fs22 Article L. " + QByteArray::number(random() % 900) + "\\cf0\\b0\\par\r\n";
            continue;
        default:
            rtf += "\\pard\\qj\\sa120\\plain\\f0\\fs20 ";
            break;
        }
        for (auto k = 2U + random() % 4; k > 0; --k)
            addSentence(rtf, words, random);
        rtf += "\\par\r\n";
    }
    return rtf + "}\r\n";
}

const std::vector<QByteArray>& corpus() {
    static const std::vector<QByteArray> made = [] {
        std::mt19937 random(2000);
        const Words words = makeWords(random);
        std::vector<QByteArray> all;
        for (std::size_t i = 0; i < documents; ++i)
            all.push_back(makeDocument(words, random));
        return all;
    }();
    return made;
}

std::int64_t bytesOf(const std::vector<QByteArray>& all) {
    std::int64_t bytes = 0;
    for (const QByteArray& rtf : all)
        bytes += rtf.size();
    return bytes;
}

void textOfDocuments(benchmark::State& state) {
    const auto& all = corpus();
    QString text;
    for ([[maybe_unused]] auto _ : state) {
        for (const QByteArray& rtf : all) {
            velm::rtfToText(rtf, text, velm::RtfLoad::Whole);
            benchmark::DoNotOptimize(text.constData());
        }
    }
    state.SetBytesProcessed(state.iterations() * bytesOf(all));
}
BENCHMARK(textOfDocuments)->Unit(benchmark::kMillisecond);

void readDocuments(benchmark::State& state) {
    const auto& all = corpus();
    RichText text;
    for ([[maybe_unused]] auto _ : state) {
        for (const QByteArray& rtf : all) {
            velm::readRtf(rtf, text);
            benchmark::DoNotOptimize(text.length());
        }
    }
    state.SetBytesProcessed(state.iterations() * bytesOf(all));
}
BENCHMARK(readDocuments)->Unit(benchmark::kMillisecond);

void writeDocuments(benchmark::State& state) {
    std::vector<RichText> texts(documents / 5);
    for (std::size_t i = 0; i < texts.size(); ++i)
        velm::readRtf(corpus()[i], texts[i]);
    std::int64_t bytes = 0;
    for ([[maybe_unused]] auto _ : state) {
        for (const RichText& text : texts)
            bytes += velm::writeRtf(text).size();
    }
    state.SetBytesProcessed(bytes);
}
BENCHMARK(writeDocuments)->Unit(benchmark::kMillisecond);

/// Lays the documents down as files, so that other programs read the same ones.
bool exportDocuments(const QString& folder) {
    int number = 0;
    for (const QByteArray& rtf : corpus()) {
        QFile file(folder + u'/' + QString::number(++number) + QStringLiteral(".rtf"));
        if (!file.open(QIODevice::WriteOnly) || file.write(rtf) != rtf.size())
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && qstrcmp(argv[1], "--export") == 0)
        return exportDocuments(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
