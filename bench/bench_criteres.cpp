// The criteria search through all bodies: on the base that VELM_BASE names, else on an invented collection. With
// --export FOLDER it writes the texts of that base as files instead, for programs to compare with.
#include "bench/basederecherche.h"
#include "platform/richtext/rtf.h"
#include "platform/text/ansi.h"
#include "search/recherchecriteres.h"
#include "search/typescherches.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdlib>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

constexpr int documents = 20'000;

std::unique_ptr<BaseDeRecherche> commune;

enum Facon { Simple, Casse, Entier, SansTable };

void corps(benchmark::State& state, const QString& texte, Facon facon) {
    Criteres criteres;
    criteres.texterech[0] = texte;
    criteres.emplacement = {false, true, false};
    criteres.respectminmaj[0] = facon == Casse;
    criteres.motentier[0] = facon == Entier;
    Marche marche;
    RechercheCriteres recherche(commune->corpus, marche);
    recherche.sanstable(facon == SansTable);
    Resultat resultat;
    for ([[maybe_unused]] auto _ : state) {
        resultat.lignes.vide();
        recherche.cherche(criteres, {}, touteslettres(), resultat);
    }
    state.counters["rows"] = static_cast<double>(resultat.hits);
    state.counters["seen"] = static_cast<double>(resultat.vus);
}

void mesure(const char* nom, const QString& texte, Facon facon) {
    benchmark::RegisterBenchmark(nom, [texte, facon](benchmark::State& state) { corps(state, texte, facon); })
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
}

void touslesdocuments(benchmark::State& state) {
    Criteres criteres;
    Marche marche;
    RechercheCriteres recherche(commune->corpus, marche);
    Resultat resultat;
    for ([[maybe_unused]] auto _ : state) {
        resultat.lignes.vide();
        recherche.cherche(criteres, {}, touteslettres(), resultat);
    }
    state.counters["rows"] = static_cast<double>(resultat.hits);
}
BENCHMARK(touslesdocuments)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The bodies of the rows of the list, of which most go.
void affine(benchmark::State& state) {
    Criteres tous;
    Criteres criteres;
    criteres.texterech[0] = u"garantie"_s;
    criteres.emplacement = {false, true, false};
    Marche marche;
    RechercheCriteres recherche(commune->corpus, marche);
    Resultat resultat;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        resultat.lignes.vide();
        recherche.cherche(tous, {}, touteslettres(), resultat);
        state.ResumeTiming();
        recherche.affine(criteres, {}, resultat);
    }
    state.counters["rows"] = static_cast<double>(resultat.hits);
    state.counters["seen"] = static_cast<double>(resultat.vus);
}
BENCHMARK(affine)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The texts of all bodies as files, for programs that search files.
int exporte(const QString& dossier) {
    const auto corps = commune->corpus.base().openQuery(u"SELECT contenu FROM données_contenu"_s);
    if (!corps)
        return 1;
    constexpr int parfichier = 1000;
    QFile fichier;
    for (int i = 0; !corps->eof(); corps->moveNext(), ++i) {
        if (i % parfichier == 0) {
            fichier.close();
            fichier.setFileName(dossier + u"/%1.txt"_s.arg(i / parfichier));
            if (!fichier.open(QIODevice::WriteOnly))
                return 1;
        }
        if (fichier.write(rtfToText(ansi::encode(corps->text(0)), RtfLoad::Whole).toUtf8() + '\n') < 0)
            return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    commune = std::make_unique<BaseDeRecherche>(optionssynthese(documents));
    if (argc == 3 && QByteArrayView(argv[1]) == "--export")
        return exporte(QFile::decodeName(argv[2]));
    mesure("commun", u"consommateur"_s, Simple);
    mesure("phrase", u"de la"_s, Simple);
    mesure("phrase_sans_table", u"de la"_s, SansTable);
    mesure("phraserare", u"le consommateur"_s, Simple);
    mesure("casse", u"consommateur"_s, Casse);
    mesure("motentier", u"consommateur"_s, Entier);
    mesure("rare", u"clauses abusives"_s, Simple);
    mesure("absent", u"zyxwvut"_s, Simple);
    benchmark::RunSpecifiedBenchmarks();
    commune.reset();
    return 0;
}
