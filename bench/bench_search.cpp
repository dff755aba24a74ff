// The searches and the list they fill, on 100,000 documents: on the base that VELM_BASE names, else on an invented
// collection with short bodies, which no search here reads.
#include "bench/basederecherche.h"
#include "core/cle.h"
#include "search/listeselection.h"
#include "search/postings.h"
#include "search/recherchedico.h"
#include "search/rechercherapide.h"
#include "search/typescherches.h"

#include <benchmark/benchmark.h>
#include <cstdlib>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

constexpr int documents = 100'000;
constexpr int motsparcorps = 60;

struct Base : BaseDeRecherche {
    Base() : BaseDeRecherche({documents, motsparcorps}) {}
    QByteArray liste(const QString& mot) {
        corpus.dico().setIndex(u"primarykey"_s);
        corpus.dico().seek(Seek::Equal, mot.toUpper());
        return corpus.dico().noMatch() ? QByteArray() : corpus.dico().bytes(u"liste"_s);
    }
};

std::unique_ptr<Base> commune;

void fusiondedeuxmots(benchmark::State& state) {
    const QByteArray a = commune->liste(u"consommateur"_s);
    const QByteArray b = commune->liste(u"garantie"_s);
    qsizetype trouves = 0;
    for ([[maybe_unused]] auto _ : state)
        trouves = intersectionlistes(a, b).size() / octetsparentree;
    state.counters["a"] = static_cast<double>(a.size() / octetsparentree);
    state.counters["b"] = static_cast<double>(b.size() / octetsparentree);
    state.counters["both"] = static_cast<double>(trouves);
}
BENCHMARK(fusiondedeuxmots)->Unit(benchmark::kMillisecond);

void uniondedeuxmots(benchmark::State& state) {
    const QByteArray a = commune->liste(u"consommateur"_s);
    const QByteArray b = commune->liste(u"garantie"_s);
    qsizetype trouves = 0;
    for ([[maybe_unused]] auto _ : state)
        trouves = unionlistes(a, b).size() / octetsparentree;
    state.counters["any"] = static_cast<double>(trouves);
}
BENCHMARK(uniondedeuxmots)->Unit(benchmark::kMillisecond);

void chercheligne(benchmark::State& state, const QString& mots, qint64 limite) {
    qint64 lignes = 0;
    Marche marche;
    RechercheDico recherche(commune->corpus, marche, {[&](const QString&) { ++lignes; }, QString()});
    Resultat resultat;
    for ([[maybe_unused]] auto _ : state) {
        lignes = 0;
        resultat.lignes.vide();
        recherche.cherche({mots, touteslettres(), !mots.contains(u'*'), limite}, resultat);
    }
    state.counters["lines"] = static_cast<double>(lignes);
    state.counters["rows"] = static_cast<double>(resultat.hits);
}

void deuxmotsjusquauxcinquantelignes(benchmark::State& state) {
    chercheligne(state, u"consommateur garantie"_s, limitedindex(0));
}
BENCHMARK(deuxmotsjusquauxcinquantelignes)->Unit(benchmark::kMillisecond);

void deuxmotssanslimite(benchmark::State& state) {
    chercheligne(state, u"consommateur garantie"_s, sanslimite);
}
BENCHMARK(deuxmotssanslimite)->Unit(benchmark::kMillisecond);

void joker(benchmark::State& state) {
    chercheligne(state, u"bro*"_s, 1);
}
BENCHMARK(joker)->Unit(benchmark::kMillisecond);

void rapidesansresultat(benchmark::State& state) {
    Marche marche;
    RechercheRapide recherche(commune->corpus, marche);
    Resultat resultat;
    for ([[maybe_unused]] auto _ : state) {
        recherche.cherche({u"zyxwvut"_s, touteslettres()}, resultat);
        if (resultat.hits != 0)
            state.SkipWithError("the text is in the base");
    }
    state.counters["documents"] = static_cast<double>(resultat.vus);
}
BENCHMARK(rapidesansresultat)->Unit(benchmark::kMillisecond);

void rapidetoutesleslignes(benchmark::State& state) {
    Marche marche;
    RechercheRapide recherche(commune->corpus, marche);
    Resultat resultat;
    for ([[maybe_unused]] auto _ : state) {
        resultat.lignes.vide();
        recherche.cherche({QString(), touteslettres()}, resultat);
    }
    state.counters["rows"] = static_cast<double>(resultat.hits);
}
BENCHMARK(rapidetoutesleslignes)->Unit(benchmark::kMillisecond);

struct Fiche {
    QString numart, titre, motcle;
};

std::vector<Fiche> fiches(int nombre) {
    std::vector<Fiche> toutes;
    for (int i = 0; i < nombre; ++i) {
        const auto epars = static_cast<unsigned>(i) * 2654435761U;
        toutes.push_back({sixchiffres(i),
                          u"Code de la consommation, art. L%1 : garantie et dédit n° %2"_s.arg(epars % 1000).arg(epars),
                          u"Droit de rétractation %1"_s.arg(i % 50)});
    }
    return toutes;
}

void remplit(ListeSelection& liste, const std::vector<Fiche>& toutes) {
    liste.vide();
    for (const Fiche& fiche : toutes)
        liste.resultat().lignes.ajoute(
            {u"CO", fiche.numart, fiche.titre, fiche.motcle, fiche.motcle, fiche.motcle, fiche.numart});
}

void remplissage(benchmark::State& state) {
    const std::vector<Fiche> toutes = fiches(static_cast<int>(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        ListeSelection liste([](Texte) { return QString(); });
        remplit(liste, toutes);
        benchmark::DoNotOptimize(liste.rows());
    }
}
BENCHMARK(remplissage)->Arg(60'000)->Unit(benchmark::kMillisecond);

void tripartitre(benchmark::State& state) {
    ListeSelection liste([](Texte) { return QString(); });
    remplit(liste, fiches(static_cast<int>(state.range(0))));
    for ([[maybe_unused]] auto _ : state)
        liste.trie(0, false);
}
BENCHMARK(tripartitre)->Arg(documents)->Unit(benchmark::kMillisecond);

void trideladocumentation(benchmark::State& state) {
    ListeSelection liste([](Texte) { return QString(); });
    Marche marche;
    RechercheRapide(commune->corpus, marche).cherche({QString(), touteslettres()}, liste.resultat());
    bool descendant = false;
    for ([[maybe_unused]] auto _ : state)
        liste.trie(0, std::exchange(descendant, !descendant));
    state.counters["rows"] = liste.lignes();
}
BENCHMARK(trideladocumentation)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    commune = std::make_unique<Base>();
    benchmark::RunSpecifiedBenchmarks();
    commune.reset();
    return 0;
}
