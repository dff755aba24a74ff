// The last documents.
#include "core/reglages.h"
#include "navigation_banc.h"

#include <QTemporaryDir>

namespace velm::test {
namespace {

class DerniersDocuments : public BancNavigation {
protected:
    void ouvre(int debut, int fin) {
        for (int numero = debut; numero <= fin; ++numero)
            navigue(u"TACO"_s + sixchiffres(numero));
    }
};

TEST_F(DerniersDocuments, TheLastDocumentsHoldNineEntriesTheNewestFirst) {
    ouvre(1, 9);
    ASSERT_EQ(derniers().size(), 9);
    EXPECT_EQ(derniers().first(), u"CO000009"_s);
    EXPECT_EQ(derniers().last(), u"CO000001"_s);
    EXPECT_EQ(hote.majderniers, 9);
}

TEST_F(DerniersDocuments, TheTenthDocumentPushesOutTheOldest) {
    ouvre(1, 10);
    ASSERT_EQ(derniers().size(), 9);
    EXPECT_EQ(derniers().first(), u"CO000010"_s);
    EXPECT_EQ(derniers().last(), u"CO000002"_s);
}

TEST_F(DerniersDocuments, ReopeningAListedDocumentMovesItUpAndShortensTheList) {
    ouvre(1, 9);
    navigue(u"TACO000005"_s);
    EXPECT_EQ(derniers(), (QStringList{u"CO000005"_s, u"CO000009"_s, u"CO000008"_s, u"CO000007"_s, u"CO000006"_s,
                                       u"CO000004"_s, u"CO000003"_s, u"CO000002"_s}));
    EXPECT_TRUE(navigation.derniersdocumentslibelles().back().isEmpty());
}

TEST_F(DerniersDocuments, ReopeningTheNinthBringsItUpWithoutADuplicate) {
    ouvre(1, 9);
    navigue(u"TACO000001"_s);
    ASSERT_EQ(derniers().size(), 9);
    EXPECT_EQ(derniers().first(), u"CO000001"_s);
    EXPECT_EQ(derniers().count(u"CO000001"_s), 1);
    EXPECT_EQ(derniers().last(), u"CO000002"_s);
}

TEST_F(DerniersDocuments, TheFirstOneOpenedAgainChangesNothing) {
    ouvre(1, 3);
    const int avant = hote.majderniers;
    navigue(u"TACO000003"_s);
    EXPECT_EQ(hote.majderniers, avant);
}

TEST_F(DerniersDocuments, TheLabelOfALastDocumentIsCodeDashTitle) {
    navigue(u"TAEU000004"_s);
    EXPECT_EQ(navigation.derniersdocumentslibelles()[0], u"EU-EU numéro 4"_s);
}

TEST_F(DerniersDocuments, TheyAreKeptFromRunToRun) {
    QTemporaryDir dossier;
    const QString fichier = dossier.filePath(u"reglages.ini"_s);
    {
        ReglagesStore magasin(fichier);
        Reglages reglages(magasin);
        ouvre(1, 4);
        navigation.sauvederniers(reglages);
        EXPECT_EQ(magasin.get(u"DERNIERSDOCUMENTS", u"NOM0"), u"CO-CO numéro 4"_s);
        EXPECT_EQ(magasin.get(u"DERNIERSDOCUMENTS", u"REF0"), u"CO000004"_s);
        EXPECT_EQ(magasin.get(u"DERNIERSDOCUMENTS", u"REF3"), u"CO000001"_s);
        EXPECT_TRUE(magasin.contains(u"DERNIERSDOCUMENTS", u"NOM8"));
    }
    ReglagesStore magasin(fichier);
    Navigation autre(hote, corpus);
    autre.chargederniers(Reglages(magasin));
    EXPECT_EQ(autre.derniersdocuments(), navigation.derniersdocuments());
    EXPECT_EQ(autre.derniersdocumentslibelles(), navigation.derniersdocumentslibelles());
}

TEST_F(DerniersDocuments, WithoutSettingsTheListIsEmpty) {
    QTemporaryDir dossier;
    ReglagesStore magasin(dossier.filePath(u"rien.ini"_s));
    ouvre(1, 2);
    navigation.chargederniers(Reglages(magasin));
    EXPECT_TRUE(derniers().isEmpty());
    EXPECT_EQ(navigation.derniersdocumentslibelles(), Navigation::Derniers());
}

} // namespace
} // namespace velm::test
