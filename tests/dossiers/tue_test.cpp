// A process that is killed while it changes the store leaves the state before a change or the one behind it.
// VELM_MORTS kills so many instead of the suite's.
#include "differences.h"
#include "tests/support/rounds.h"

#include <chrono>
#include <csignal>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace velm::test {
namespace {

/// A user who makes the same changes for the same number: one after the other, each a single write of the store.
class Travailleur {
public:
    Travailleur(const QString& dossier, unsigned graine) : hasard_(graine) {
        magasin.ouvredossiers(dossier);
        // A small cache puts changed pages into the file before the end of a change.
        magasin.dbdossiers().execute(u"PRAGMA cache_size=3"_s);
        arbre_.litprochainnumero();
    }
    bool change() {
        switch (hasard_() % 6) {
        case 0:
            return sauve();
        case 1:
            return contenu_
                .range({u"CO%1"_s.arg(nombre(40), 6, 10, QChar(u'0')), u"Titre"_s, nombre(3), nombre(3)},
                       dossierauhasard())
                .ok();
        case 2:
            return importe();
        default:
            return element();
        }
    }
    TablesModele tables() {
        TablesModele toutes;
        Recordset& a = magasin.rsarborescences();
        a.setIndex(u"primarykey"_s);
        for (a.moveFirst(); !a.eof(); a.moveNext())
            toutes.arborescences.push_back({a.number(u"numerodutype"_s), a.number(u"dépendance"_s),
                                            a.number(u"ordre"_s), a.text(u"typededonnées"_s),
                                            a.number(u"nbarticles"_s)});
        Recordset& d = magasin.rsdonnees();
        d.setIndex(u"primarykey"_s);
        for (d.moveFirst(); !d.eof(); d.moveNext())
            toutes.donnees.push_back({d.number(u"arborescence"_s), d.number(u"noordre"_s),
                                      d.text(u"référence"_s) + d.text(u"numart"_s), d.text(u"titre"_s),
                                      d.number(u"positiondébut"_s), d.number(u"positionfin"_s)});
        Recordset& p = magasin.rsparametres();
        p.moveFirst();
        toutes.dernoarborescence = p.number(u"dernoarborescence"_s);
        return toutes;
    }

    Magasin magasin;

private:
    int nombre(int borne) { return static_cast<int>(hasard_() % static_cast<unsigned>(borne)); }
    int noeudauhasard() { return noeuds_.childAt(0, 0) + nombre(noeuds_.count()); }
    qint64 dossierauhasard() { return 1 + nombre(12); }
    bool sauve() {
        arbre_.chargearbre();
        arbre_.toutdevelopper();
        if (noeuds_.count() < 60)
            noeuds_.setText(arbre_.ajoute(noeudauhasard(), QString()), QString(400, u'n'));
        else
            arbre_.marquersuppression(noeudauhasard(), true);
        arbre_.deplace(noeudauhasard(), noeudauhasard());
        arbre_.monte(noeudauhasard());
        return arbre_.Sauvearbre().ok();
    }
    bool importe() {
        ContenuDossier::Paires paires;
        for (int i = 1 + nombre(30); i > 0; --i)
            paires.emplace_back(u"EU%1 3 10 20P"_s.arg(i, 6, 10, QChar(u'0')), QString(300, u't'));
        const qint64 ou = 1000 + nombre(1'000'000);
        return contenu_.importe(paires, ou).ok();
    }
    bool element() {
        contenu_.liste(dossierauhasard());
        if (elements_.count() < 2)
            return contenu_.range({u"JP000001"_s, u"Titre"_s, 0, 0}, dossierauhasard()).ok();
        const int i = 1 + nombre(elements_.count() - 1);
        QString titre = QString(nombre(500), u'r');
        switch (nombre(4)) {
        case 0:
            return contenu_.deplace(i, dossierauhasard()).echec.ok();
        case 1:
            return contenu_.renomme(i, titre).echec.ok();
        case 2:
            return contenu_.supprime(i, dossierauhasard()).echec.ok();
        default:
            contenu_.echange(i, i + 1); // another dossier's row may refuse it
            return true;
        }
    }

    std::mt19937 hasard_;
    TreeNodes noeuds_;
    ListItems elements_;
    SablierMuet sablier_;
    ArbreDossiers arbre_{magasin, noeuds_, sablier_, u"Mes dossiers"_s};
    ContenuDossier contenu_{magasin, elements_, u"extrait"_s};
};

class TueTest : public MagasinTest {
protected:
    /// Works until it is killed; says after each change that it is done.
    [[noreturn]] void travaille(unsigned graine, int dit) {
        Travailleur lui(dossier(), graine);
        while (lui.change() && write(dit, "x", 1) == 1) {
        }
        _exit(3);
    }
    /// How many changes a process had done when it was killed, a while after the first.
    qsizetype tue(unsigned graine, std::chrono::microseconds delai) {
        std::array<int, 2> tuyau{};
        EXPECT_EQ(pipe(tuyau.data()), 0);
        const pid_t enfant = fork();
        if (enfant == 0)
            travaille(graine, tuyau[1]);
        ::close(tuyau[1]);
        std::array<char, 4096> octets{};
        ssize_t lus = read(tuyau[0], octets.data(), 1);
        qsizetype faits = std::max<ssize_t>(lus, 0);
        std::this_thread::sleep_for(delai);
        EXPECT_EQ(kill(enfant, SIGKILL), 0);
        int fin = 0;
        EXPECT_EQ(waitpid(enfant, &fin, 0), enfant);
        EXPECT_TRUE(WIFSIGNALED(fin)) << "it gave up by itself: " << WEXITSTATUS(fin);
        while ((lus = read(tuyau[0], octets.data(), octets.size())) > 0)
            faits += lus;
        ::close(tuyau[0]);
        return faits;
    }
    /// The tables after so many changes and after one more, made anew on a copy of the store.
    static std::pair<TablesModele, TablesModele> refait(const QString& copie, unsigned graine, qsizetype faits) {
        Travailleur lui(copie, graine);
        lui.magasin.dbdossiers().execute(u"PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY"_s);
        for (qsizetype i = 0; i < faits; ++i)
            EXPECT_TRUE(lui.change());
        TablesModele avant = lui.tables();
        EXPECT_TRUE(lui.change());
        return {avant, lui.tables()};
    }
};

TEST_F(TueTest, AKilledProcessLeavesTheOldStateOrTheNewOne) {
    const int demandes = qEnvironmentVariableIntValue("VELM_MORTS");
    std::mt19937 hasard(std::random_device{}());
    int interrompus = 0;
    int derriere = 0;
    for (int tour = 0, tours = demandes > 0 ? demandes : rounds(30); tour < tours; ++tour) {
        const QTemporaryDir copie;
        ASSERT_TRUE(QFile::copy(chemin(), copie.filePath(u"dossiers.dat"_s)));
        const auto graine = static_cast<unsigned>(hasard());
        const qsizetype faits = tue(graine, std::chrono::microseconds(hasard() % 40'000));
        interrompus += QFile::exists(chemin() + u"-journal"_s) ? 1 : 0;
        const auto [avant, apres] = refait(copie.path(), graine, faits);
        magasin.ouvredossiers(dossier());
        ASSERT_FALSE(magasin.dossiersindisponibles());
        ASSERT_TRUE(magasin.sain());
        const TablesModele tables{dossiers(), elements(), derniernumero()};
        magasin.fermedossiers();
        const bool nouvel = differencedestables(tables, avant) != QString();
        derriere += nouvel ? 1 : 0;
        ASSERT_EQ(nouvel ? differencedestables(tables, apres) : QString(), QString())
            << "seed " << graine << ", " << faits << " changes";
    }
    RecordProperty("interrompus", interrompus);
    RecordProperty("derriere", derriere);
    std::printf("%d killed inside a change, %d behind one that was not told\n", interrompus, derriere);
}

} // namespace
} // namespace velm::test
