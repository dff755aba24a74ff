// Columns from one run to the next.
#include "colonnes_oracle.h"
#include "colonnes_support.h"
#include "core/reglages.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ColonnesGardees : public testing::Test {
protected:
    QString lu(const QString& nom) const { return magasin.get(u"LISTE", nom, u"(absent)"_s); }

    QTemporaryDir dossier;
    ReglagesStore magasin{dossier.filePath(u"reglages.ini"_s)};
    Reglages reglages{magasin};
    ClesColonnes cles{{{u"LISTE", u"ORDRE"}, u"012354", Maitre::Non}, {{u"LISTE", u"LARGEURS"}, u"", Maitre::Non}};
};

} // namespace

TEST_F(ColonnesGardees, NothingIsWrittenOfColumnsThatNobodyHasTouched) {
    Colonnes colonnes(trouves());
    litcolonnes(reglages, cles, colonnes);
    ecritcolonnes(reglages, cles, colonnes);
    EXPECT_EQ(lu(cles.ordre.cle.nom()), u"(absent)");
    EXPECT_EQ(lu(cles.largeurs.cle.nom()), u"(absent)");
}

TEST_F(ColonnesGardees, ColumnsComeBackAsTheyWereLeft) {
    Colonnes colonnes(trouves());
    colonnes.deplace(0, 2);
    colonnes.changelargeur(2, 4500);
    ecritcolonnes(reglages, cles, colonnes);
    EXPECT_EQ(lu(cles.ordre.cle.nom()), u"120354");
    EXPECT_EQ(lu(cles.largeurs.cle.nom()), u"002000002000004500002000000500001000");
    Colonnes encore(trouves());
    litcolonnes(reglages, cles, encore);
    EXPECT_EQ(champs(encore), champs(colonnes));
    EXPECT_EQ(largeurs(encore), largeurs(colonnes));
}

TEST_F(ColonnesGardees, OneThatWasMovedKeepsTheWidthThatWasStoredForIt) {
    magasin.save(u"LISTE", cles.largeurs.cle.nom(), u"004500002000002000002000000500001000"_s);
    Colonnes colonnes(trouves());
    litcolonnes(reglages, cles, colonnes);
    colonnes.deplace(0, 3);
    ecritcolonnes(reglages, cles, colonnes);
    Colonnes encore(trouves());
    litcolonnes(reglages, cles, encore);
    EXPECT_EQ(encore.largeur(3), 4500);
    EXPECT_EQ(encore.largeur(0), 2000);
}

TEST_F(ColonnesGardees, TheUsualOrderReplacesAnotherAndOneThatIsDamaged) {
    for (const QString& garde : {u"120354"_s, u"999999"_s}) {
        magasin.save(u"LISTE", cles.ordre.cle.nom(), garde);
        ecritcolonnes(reglages, cles, Colonnes(trouves()));
        EXPECT_EQ(lu(cles.ordre.cle.nom()), u"012354");
    }
    magasin.save(u"LISTE", cles.largeurs.cle.nom(), u"004500"_s);
    ecritcolonnes(reglages, cles, Colonnes(trouves()));
    EXPECT_EQ(lu(cles.largeurs.cle.nom()), OracleTrouves::masquelargeurs);
}
