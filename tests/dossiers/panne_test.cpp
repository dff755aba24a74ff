// Every change of a file in a save, a move, a swap, an import may fail: the store then is as it was, one failure is
// told, and the next try succeeds.
#include "differences.h"
#include "disqueenpanne.h"

namespace velm::test {
namespace {

struct Sorte {
    int code;
    bool ensuite; ///< nothing works from there on
};

constexpr std::array sortes{Sorte{SQLITE_FULL, true}, Sorte{SQLITE_FULL, false}, Sorte{SQLITE_IOERR_WRITE, true},
                            Sorte{SQLITE_IOERR_WRITE, false}};

class PanneTest : public MagasinTest {
protected:
    void SetUp() override {
        MagasinTest::SetUp();
        std::vector<RangeeDossier> dossiersdebut;
        for (int i = 1; i <= 40; ++i)
            dossiersdebut.push_back({i, i % 3 == 0 ? i - 1 : 0, i, QString(120, u'n'), i == 1 ? 3 : 0});
        ouvre(dossiersdebut, {{1, 1, u"CO000001"_s, u"Titre"_s, 0, 0},
                              {1, 2, u"CO000002"_s, u"Titre"_s, 0, 0},
                              {1, 3, u"CO000003"_s, u"Titre"_s, 0, 0}});
        magasin.fermedossiers();
        QFile fichier(chemin());
        ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
        debut_ = fichier.readAll();
    }
    /// A window on a store with forty dossiers and some items.
    void prepare() {
        magasin.fermedossiers();
        disque.guerit();
        QFile fichier(chemin());
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly) && fichier.write(debut_) == debut_.size());
        fichier.close();
        magasin.ouvredossiers(dossier());
        ASSERT_FALSE(magasin.dossiersindisponibles());
        // A small cache puts changed pages into the file before the end of a change.
        ASSERT_TRUE(magasin.dbdossiers().execute(u"PRAGMA cache_size=4"_s));
        ensemble([this] {
            arbre.litprochainnumero();
            arbre.chargearbre();
            arbre.toutdevelopper();
            contenu.liste(1);
        });
    }
    /// Under one lock, which is quicker than one for each row.
    void ensemble(const std::function<void()>& lecture) {
        ASSERT_TRUE(magasin.dbdossiers().execute(u"BEGIN"_s));
        lecture();
        ASSERT_TRUE(magasin.dbdossiers().execute(u"COMMIT"_s));
    }
    TablesModele tables() {
        TablesModele toutes;
        ensemble([&] { toutes = {dossiers(), elements(), derniernumero()}; });
        return toutes;
    }
    QString vu() const { return dessinnoeuds(noeuds) + u"\n\n"_s + dessinelements(lignes); }
    int noeud(qint64 numero) const { return noeuds.indexOf(ArbreDossiers::clenoeud(numero)); }

    using Travail = std::function<EchecEcriture()>;
    /// Lets each change of `travail` fail, in each way; `avant` comes before it and changes no file.
    void faillit(
        const Travail& travail, const std::function<void()>& avant = [] {}) {
        int injectees = 0;
        for (const Sorte& sorte : sortes) {
            for (int quand = 1;; ++quand) {
                prepare();
                avant();
                const bool atteinte = faillit(travail, sorte, quand);
                if (HasFatalFailure() || HasFailure()) {
                    ADD_FAILURE() << "change " << quand << ", code " << sorte.code << ", " << sorte.ensuite;
                    return;
                }
                if (!atteinte)
                    break;
                ++injectees;
            }
        }
        EXPECT_GT(injectees, 20);
        RecordProperty("pannes", injectees);
    }
    /// False where there were not so many changes.
    bool faillit(const Travail& travail, const Sorte& sorte, int quand) {
        const TablesModele etait = tables();
        const QString dessin = vu();
        const qint64 prochain = arbre.prochainnumero();
        const bool modifie = arbre.modifie();
        disque.tombe(quand, sorte.code, sorte.ensuite);
        const EchecEcriture echec = travail();
        const bool atteinte = disque.pannes() > 0;
        disque.guerit();
        if (!atteinte) {
            EXPECT_TRUE(echec.ok());
            return false;
        }
        // The engine may do without what failed: the forcing of a folder, the deletion of a journal that is tried
        // again.
        if (!echec.ok()) {
            EXPECT_NE(echec.obstacle, Obstacle::Exists);
            EXPECT_FALSE(magasin.dbdossiers().inTransaction());
            EXPECT_EQ(differencedestables(tables(), etait), QString());
            EXPECT_EQ(vu(), dessin);
            EXPECT_EQ(arbre.prochainnumero(), prochain);
            EXPECT_EQ(arbre.modifie(), modifie);
            EXPECT_TRUE(magasin.dbdossiers().check());
            const EchecEcriture second = travail();
            EXPECT_TRUE(second.ok()) << second.mots.toStdString();
        }
        EXPECT_NE(differencedestables(tables(), etait), QString());
        EXPECT_TRUE(magasin.dbdossiers().check());
        return true;
    }

    DisqueEnPanne disque;
    TreeNodes noeuds;
    ListItems lignes;
    ArbreDossiers arbre{magasin, noeuds, sablier, u"Mes dossiers"_s};
    ContenuDossier contenu{magasin, lignes, u"extrait"_s};

private:
    QByteArray debut_;
};

TEST_F(PanneTest, ASaveIsWholeOrNotAtAll) {
    faillit([this] { return arbre.Sauvearbre(); },
            [this] {
                noeuds.setText(arbre.ajoute(noeud(5), QString()), u"Nouveau"_s);
                arbre.commencerenommage(noeud(7));
                noeuds.setText(noeud(7), u"Autre"_s);
                arbre.deplace(noeud(8), noeud(10));
                arbre.monte(noeud(20));
                arbre.marquersuppression(noeud(1), true);
            });
}

TEST_F(PanneTest, AMoveOfAnItemIsWholeOrNotAtAll) {
    faillit([this] { return contenu.deplace(1, 5).echec; });
}

TEST_F(PanneTest, ASwapIsWholeOrNotAtAll) {
    faillit([this] { return contenu.echange(1, 2).echec; });
}

TEST_F(PanneTest, ADeletionOfAnItemIsWholeOrNotAtAll) {
    faillit([this] { return contenu.supprime(2, 1).echec; });
}

TEST_F(PanneTest, ARenamingOfAnItemIsWholeOrNotAtAll) {
    faillit([this] {
        QString texte = u"Autre"_s;
        return contenu.renomme(2, texte).echec;
    });
}

TEST_F(PanneTest, AnItemIsStoredOrNot) {
    faillit([this] { return contenu.range({u"CO000009"_s, u"Titre"_s, 3, 4}, 5); });
}

TEST_F(PanneTest, AnImportIsWholeOrNotAtAll) {
    ContenuDossier::Paires paires;
    for (int i = 1; i <= 60; ++i)
        paires.emplace_back(u"CO%1 3 10 20P"_s.arg(i, 6, 10, QChar(u'0')), QString(100, u't'));
    faillit([&] { return contenu.importe(paires, 41); });
}

TEST_F(PanneTest, ANewDossierAndItsItemsAreOneChange) {
    // An import inside another change is a part of that.
    const ContenuDossier::Paires paires{{u"CO000001 1"_s, u"a"_s}, {u"CO000002 2"_s, u"b"_s}};
    faillit([&] { return magasin.ecrit([&] { return contenu.importe(paires, 41).ok() && arbre.Sauvearbre().ok(); }); });
}

} // namespace
} // namespace velm::test
