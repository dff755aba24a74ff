// The store of the dossiers: the tree and a dossier read, the tree saved, a file taken in, the store repaired.
#include "core/schemas.h"
#include "dossiers/arbredossiers.h"
#include "dossiers/contenudossier.h"
#include "dossiers/fichierdossier.h"
#include "dossiers/reparation.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace velm;

/// A store of its own; of its items, each `perdu`-th belongs to no dossier (0: none). Every tenth dossier is under the
/// root, each other one under the one before that its number leads to.
class Essai {
public:
    Essai(int dossiers, int elements, int perdu = 0) {
        const auto cree = Database::create(dossier_.filePath(u"dossiers.dat"_s), dossiersSchema());
        {
            TableWriter table(*cree.database, u"arborescences"_s,
                              {u"numerodutype"_s, u"dépendance"_s, u"ordre"_s, u"typededonnées"_s, u"nbarticles"_s});
            for (int n = 1; n <= dossiers; ++n)
                table.add({n,
                           n % 10 == 1           ? 0
                           : n / 10 * 10 + 1 < n ? n / 10 * 10 + 1
                                                 : n - 9,
                           n, u"Dossier numéro %1"_s.arg(n), elements / dossiers});
            TableWriter rangees(*cree.database, u"données"_s,
                                {u"arborescence"_s, u"noordre"_s, u"référence"_s, u"numart"_s, u"titre"_s,
                                 u"positiondébut"_s, u"positionfin"_s});
            for (int i = 0; i < elements; ++i)
                rangees.add({perdu != 0 && i % perdu == 0 ? dossiers + 1 + i % 7 : 1 + i % dossiers,
                             1 + i / dossiers + i, u"CO"_s, u"%1"_s.arg(i % 1000, 6, 10, QChar(u'0')),
                             u"Article L111-%1 du code de la consommation"_s.arg(i), 0, 0});
            TableWriter parametres(*cree.database, u"paramètres"_s, {u"dernoarborescence"_s});
            parametres.add({dossiers});
            parametres.finish();
        }
        cree.database->sync();
        cree.database->close();
        magasin.ouvredossiers(dossier_.path());
        arbre.litprochainnumero();
    }
    void remet(const QByteArray& octets) {
        magasin.fermedossiers();
        QFile fichier(magasin.cheminbasedossiers());
        if (fichier.open(QIODevice::WriteOnly))
            fichier.write(octets);
        fichier.close();
        magasin.ouvredossiers(dossier_.path());
    }
    QByteArray octets() const {
        QFile fichier(magasin.cheminbasedossiers());
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    }

private:
    QTemporaryDir dossier_;
    SablierMuet sablier_;

public:
    Magasin magasin;
    TreeNodes noeuds;
    ListItems elements;
    ArbreDossiers arbre{magasin, noeuds, sablier_, u"Mes dossiers"_s};
    ContenuDossier contenu{magasin, elements, u"extrait"_s};
};

void charge(benchmark::State& etat, bool tout) {
    Essai essai(2000, 20'000);
    for ([[maybe_unused]] const auto& tour : etat) {
        essai.arbre.chargearbre();
        if (tout)
            essai.arbre.toutdevelopper();
    }
    etat.counters["nodes"] = essai.noeuds.count();
}

void liste(benchmark::State& etat) {
    Essai essai(1, 5000);
    for ([[maybe_unused]] const auto& tour : etat)
        essai.contenu.liste(1);
    etat.counters["items"] = essai.elements.count();
}

void sauve(benchmark::State& etat) {
    Essai essai(2000, 20'000);
    essai.arbre.chargearbre();
    essai.arbre.toutdevelopper();
    // The copy of the day is none of what is saved.
    essai.arbre.Sauvearbre();
    for ([[maybe_unused]] const auto& tour : etat) {
        if (!essai.arbre.Sauvearbre().ok())
            etat.SkipWithError("not saved");
    }
}

/// From the file's bytes to the store: the dossier with its items, as one change.
void importe(benchmark::State& etat) {
    Essai essai(2000, 20'000);
    essai.arbre.chargearbre();
    essai.arbre.Sauvearbre();
    FichierDossier fichier{.nom = u"Reçu"_s, .elements = {}};
    for (int i = 1; i <= 5000; ++i)
        fichier.elements.emplace_back(u"CO%1 %2"_s.arg(i % 1000, 6, 10, QChar(u'0')).arg(i),
                                      u"Article L111-%1 du code de la consommation"_s.arg(i));
    const QByteArray octets = ecritfichierdossier(fichier);
    for ([[maybe_unused]] const auto& tour : etat) {
        const auto lu = litfichierdossier(octets);
        const int noeud = essai.arbre.ajoute(essai.noeuds.childAt(0, 0), lu->nom);
        const EchecEcriture echec = essai.magasin.ecrit([&] {
            return essai.arbre.ecritneuf(noeud) && essai.contenu.importe(lu->elements, essai.arbre.numero(noeud)).ok();
        });
        if (!echec.ok())
            etat.SkipWithError("not imported");
        essai.contenu.montre(lu->elements);
    }
    etat.counters["items"] = essai.elements.count();
}

void repare(benchmark::State& etat) {
    Essai essai(2000, 100'000, 10);
    const QByteArray octets = essai.octets();
    BilanReparation bilan;
    for ([[maybe_unused]] const auto& tour : etat) {
        bilan = Reparation::repare(essai.magasin);
        if (!bilan.faite())
            etat.SkipWithError("not repaired");
        etat.PauseTiming();
        essai.remet(octets);
        etat.ResumeTiming();
    }
    etat.counters["removed"] = static_cast<double>(bilan.elements);
}

} // namespace

BENCHMARK_CAPTURE(charge, unniveau, false)->Name("Dossiers/tree, one level")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(charge, tout, true)->Name("Dossiers/tree, all levels")->Unit(benchmark::kMillisecond);
BENCHMARK(liste)->Name("Dossiers/5000 items listed")->Unit(benchmark::kMillisecond);
BENCHMARK(sauve)->Name("Dossiers/2000 saved")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(importe)->Name("Dossiers/5000 items imported")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(repare)->Name("Dossiers/100000 items repaired")->Unit(benchmark::kMillisecond)->Iterations(3)->UseRealTime();

BENCHMARK_MAIN();
