// The four passes on documents of 1 and 5 million characters, beside their literal wording, and on texts made to be
// slow.
#include "document/balises.h"
#include "tests/document/oracle_passes.h"

#include <QHash>

#include <benchmark/benchmark.h>

namespace {

using namespace velm;
using namespace Qt::Literals::StringLiterals;

struct Formulaire final : FormulaireRiche {
    RichTextControl& rtfRichTextBox1() override { return controle; }
    ListesLiens* listes() override { return aveclistes ? &liens : nullptr; }
    RichTextControl controle;
    ListesLiens liens;
    bool aveclistes = true;
};

struct Source final : SourceDeContenu {
    void prepare() override {}
    std::optional<QByteArray> contenu(const Cle& cle) override {
        const auto corps = textes.constFind(cle.texte());
        return corps == textes.constEnd() ? std::nullopt : std::optional(*corps);
    }
    QHash<QString, QByteArray> textes;
};

TableStyles styles() {
    TableStyles table;
    for (int i = 0; i < 10; ++i) {
        Style& style = table.styles[static_cast<std::size_t>(i)];
        style.nom = u"Style%1"_s.arg(i);
        style.type = i % 3 == 2;
        style.nomdelafonte = u"Fonte%1"_s.arg(i % 4);
        style.tailledelafonte = 9 + i;
        style.gras = i % 2 == 0;
        style.puce = i == 4;
        style.tabulations = i == 5 ? u"0056701134"_s : QString();
    }
    table.stylesuite = u"Suite"_s;
    table.ajoutecondense(u"Style3"_s);
    return table;
}

/// 2,000 links, 1,000 sections and 200 inclusions to the million characters, in paragraphs of 300.
QString document(qsizetype longueur) {
    QString texte;
    const QString mots = u"Le consommateur dispose d'un délai de quatorze jours pour exercer son droit. "_s;
    for (qsizetype i = 0; texte.size() < longueur; ++i) {
        if (i % 2 == 0)
            texte += u"{S=Style%1}"_s.arg(i / 2 % 10);
        texte += mots;
        texte += u"{L=l'article L. 121-%1|CO%2}"_s.arg(i).arg(i % 1000000, 6, 10, QChar(u'0'));
        texte += mots + mots;
        if (i % 10 == 0)
            texte += u"{I=GL%1}"_s.arg(i / 10 % 20, 6, 10, QChar(u'0'));
        texte += mots + u"\r\n"_s;
        if (i % 2 == 1)
            texte += u"{-S}"_s;
        texte += mots + mots + u"\r\n"_s;
        if (i % 100 == 99)
            texte += u"{FF}"_s;
    }
    return texte;
}

using Passes = void (*)(FormulaireRiche&, bool, const ContextePasses&);

void run(benchmark::State& state, const QString& texte, bool abc = false, bool aveclistes = true,
         Passes passes = chargecontenu) {
    const TableStyles table = styles();
    Source source;
    for (int i = 0; i < 20; ++i) {
        RichText corps;
        corps.replace(0, 0, QString(u"Formulaire %1 : nom, prénom, adresse.\r\n"_s.arg(i)).repeated(3));
        source.textes[u"GL%1"_s.arg(i, 6, 10, QChar(u'0'))] = writeRtf(corps);
    }
    SablierMuet sablier;
    RichText rich;
    rich.replace(0, 0, texte);
    Formulaire formulaire;
    formulaire.aveclistes = aveclistes;
    for (auto _ : state) {
        state.PauseTiming();
        formulaire.controle.richTextForEdit() = rich;
        formulaire.controle.notifyChanged();
        state.ResumeTiming();
        passes(formulaire, abc, {table, source, sablier});
    }
    state.counters["chars"] = static_cast<double>(texte.size());
    state.SetItemsProcessed(state.iterations() * texte.size());
}

void BM_Document(benchmark::State& state) {
    run(state, document(state.range(0) * 1'000'000));
}
BENCHMARK(BM_Document)->Arg(1)->Arg(5)->Unit(benchmark::kMillisecond);

/// The literal wording on the same documents, of 100,000, 1 million and 5 million characters.
void BM_DocumentLiteral(benchmark::State& state) {
    run(state, document(state.range(0) * 100'000), false, true, test::oraclechargecontenu);
}
BENCHMARK(BM_DocumentLiteral)->Arg(1)->Arg(10)->Arg(50)->Unit(benchmark::kMillisecond)->Iterations(1);

void BM_Condense(benchmark::State& state) {
    run(state, document(state.range(0) * 1'000'000), true);
}
BENCHMARK(BM_Condense)->Arg(1)->Arg(5)->Unit(benchmark::kMillisecond);

/// Nothing to resolve.
void BM_SansBalise(benchmark::State& state) {
    run(state, document(1'000'000).remove(u'{'));
}
BENCHMARK(BM_SansBalise)->Unit(benchmark::kMillisecond);

/// A million characters (or the number given) of unbalanced or deeply nested tokens.
void BM_Hostile(benchmark::State& state, const QString& avant, const QString& milieu, const QString& apres) {
    const qsizetype longueur = state.range(0) * 1'000'000;
    const qsizetype niveaux = longueur / (avant.size() + apres.size());
    run(state, avant.repeated(niveaux) + milieu + apres.repeated(niveaux), false, state.range(1) != 0);
}
#define HOSTILE(nom, ...)                                                                                              \
    BENCHMARK_CAPTURE(BM_Hostile, nom, __VA_ARGS__)                                                                    \
        ->Args({1, 0})                                                                                                 \
        ->Args({1, 1})                                                                                                 \
        ->Args({4, 0})                                                                                                 \
        ->Unit(benchmark::kMillisecond)                                                                                \
        ->Iterations(1)
HOSTILE(braces, u"{"_s, u""_s, u""_s);
HOSTILE(closingBraces, u"}"_s, u"{"_s, u""_s);
HOSTILE(inclusionOpenings, u"{I="_s, u""_s, u""_s);
HOSTILE(inclusionsUnknown, u"{I=CO999999}"_s, u""_s, u""_s);
HOSTILE(inclusionsNested, u"{I"_s, u"{I=CO999999}"_s, u"=x}"_s);
HOSTILE(inclusionsSmallInOneParagraph, u"ab {I=GL000001}"_s, u""_s, u""_s);
HOSTILE(pageBreaksInOneParagraph, u"{FF}"_s, u""_s, u""_s);
HOSTILE(styleOpenings, u"{S="_s, u""_s, u""_s);
HOSTILE(styleSectionsUnclosed, u"{S=Style1}x"_s, u""_s, u""_s);
HOSTILE(styleSectionsNested, u"{S"_s, u"{S=Style1}"_s, u"=Style2}x"_s);
HOSTILE(styleSectionsNestedClosed, u"{S"_s, u"{S=Style1}"_s, u"=Style2}x{-S}"_s);
HOSTILE(styleClosingsNested, u"{-"_s, u"{S=Style1}{-S}"_s, u"S}"_s);
HOSTILE(styleClosings, u"{-S}"_s, u"{S=Style1}"_s, u"{-S}"_s);
HOSTILE(linkOpenings, u"{L="_s, u""_s, u""_s);
HOSTILE(linkOpeningsWithBars, u"{L="_s, u"}"_s, u"|"_s);
HOSTILE(linksNested, u"{L="_s, u"x"_s, u"|CO000001}"_s);
HOSTILE(webLinksNested, u"{U="_s, u"x"_s, u"|a}"_s);
HOSTILE(webLinksNestedTight, u"{U="_s, u"}|"_s, u""_s);
HOSTILE(mailOpenings, u"{E="_s, u""_s, u"|"_s);
HOSTILE(webLinksAdjacent, u"{U=x|a}"_s, u""_s, u""_s);
HOSTILE(unknownTokens, u"{x}"_s, u""_s, u""_s);

/// What grows until the bound stops it.
void BM_Croissance(benchmark::State& state, const QString& texte) {
    const TableStyles table = styles();
    Source source;
    source.textes[u"CO000001"_s] = "{\\rtf1 x\\{I=CO000001\\}}";
    SablierMuet sablier;
    for (auto _ : state) {
        Formulaire formulaire;
        formulaire.controle.setText(texte);
        chargecontenu(formulaire, false, {table, source, sablier});
        state.counters["chars"] = static_cast<double>(formulaire.controle.length());
    }
}
BENCHMARK_CAPTURE(BM_Croissance, selfInclusion, u"{I=CO000001}"_s)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(BM_Croissance, linkBehindBrace, u"{U=}{U=}|"_s)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_CAPTURE(BM_Croissance, circle, u"{U={X}{U={X}|"_s)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
