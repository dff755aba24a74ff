// Windows that come back from the last run.
#include "tests/shell/logique/seance_support.h"
#include "tests/support/arret.h"

using namespace velm;
using SeanceDebut = velm::test::SeanceTest;

namespace {

class Restauration : public velm::test::SeanceTest {
protected:
    QStringList restaure(const QString& fenetres, const QString& contenus) {
        stocke("GENERALITES", "RESTAUREFEN", QStringLiteral("1"));
        if (!fenetres.isNull())
            stocke("POSITIONFORME", "MDICHILD", fenetres);
        if (!contenus.isNull())
            stocke("POSITIONFORME", "MDICHILDCONTENU", contenus);
        ecrans.surcharge = [this] {
            ecrans.journal.clear();
            seance().restaurefenetres();
            restaures = ecrans.journal;
        };
        EXPECT_EQ(seance().demarre(), Demarrage::EnMarche);
        return restaures;
    }
    QStringList navigues() const { return restaures.filter(QStringLiteral("navigue")); }

    QStringList restaures;
};

} // namespace

TEST_F(Restauration, WithEmptyStringsOpensNoWindow) {
    EXPECT_TRUE(restaure(QString(), QString()).isEmpty());
}

TEST_F(Restauration, OfShortLongOrNonsenseStringsOpensWhatStandsInThem) {
    const struct {
        const char* fenetres;
        const char* contenus;
        qsizetype etapes; ///< one for each slot that is looked at
        QStringList ouvertes;
    } cas[] = {
        {"é", "C", 0, {}},
        {"xx", "CO000001", 0, {}},
        {"00", "CO0000", 1, {}},
        {"99XXXXXXXXXXXX", "CO000001", 11, {QStringLiteral("navigue TACO000001")}},
        {"11XXXXXXXXXXXX", "CO000001", 12, {QStringLiteral("navigue TACO000001")}},
        {"-1XXXXXXXXXXXXXXXXXXXXXXXXXXX", "CO000001", 11, {QStringLiteral("navigue TACO000001")}},
    };
    for (const auto& [fenetres, contenus, etapes, ouvertes] : cas) {
        oublie();
        corpus.fermebase();
        restaure(QString::fromUtf8(fenetres), QString::fromUtf8(contenus));
        EXPECT_EQ(navigues(), ouvertes) << fenetres;
        EXPECT_EQ(restaures.filter(QStringLiteral("étape")).size(), etapes) << fenetres;
    }
}

TEST_F(Restauration, WithAnActiveSlotOfMinusOneGoesInSlotOrder) {
    restaure(QStringLiteral("-1X X         "), QStringLiteral("CO000005        JP000007").leftJustified(96));
    EXPECT_EQ(restaures, (QStringList{QStringLiteral("étape Code de la consommation - Préparation des fenêtres..."),
                                      QStringLiteral("navigue TACO000005"),
                                      QStringLiteral("étape Jurisprudence - Préparation des fenêtres..."),
                                      QStringLiteral("navigue TAJP000007")}));
}

TEST_F(Restauration, OpensTheActiveSlotLast) {
    restaure(QStringLiteral("00X X         "), QStringLiteral("CO000005        JP000007").leftJustified(96));
    EXPECT_EQ(navigues(), (QStringList{QStringLiteral("navigue TAJP000007"), QStringLiteral("navigue TACO000005")}));
}

TEST_F(Restauration, IgnoresTheTwelfthSlot) {
    QString contenus(88, u' ');
    contenus += QStringLiteral("IN000001");
    EXPECT_TRUE(restaure(QStringLiteral("-1           X"), contenus).isEmpty());
}

TEST_F(Restauration, ShowsTheStepOfAnOpenSlotWithoutDocument) {
    restaure(QStringLiteral("-1X           "), QString(96, u' '));
    EXPECT_EQ(restaures.size(), 1);
    EXPECT_TRUE(navigues().isEmpty());
}
