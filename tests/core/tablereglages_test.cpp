// Settings by their names: where they stand, what they are by default, who is told of a change.
#include "core/tablereglages.h"
#include "parametres_support.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <array>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class TableReglages : public ParametresTest {
protected:
    QString ligne(const char16_t* section, const char16_t* cle) const {
        return ReglagesStore(magasin_.path()).get(section, cle, u"(absent)"_s);
    }
};

/// The section and the key of every row, as they stand in the table.
QStringList lignesdelatable() {
    QFile table(QStringLiteral(VELM_SOURCE_DIR "/core/tablereglages.h"));
    EXPECT_TRUE(table.open(QIODevice::ReadOnly));
    static const QRegularExpression ligne(uR"re(\{u"([^"]+)", u"([^"]+)"\})re"_s);
    QStringList toutes;
    for (const auto& trouvee : ligne.globalMatch(QString::fromUtf8(table.readAll())))
        toutes << trouvee.captured(1) + u'/' + trouvee.captured(2);
    return toutes;
}

} // namespace

TEST_F(TableReglages, OnlyWhatTheUserHasStoredExists) {
    maitre(u"[GENERALITES]\nFOND=0\n"_s);
    EXPECT_FALSE(reglages_.existe(reglage::fond.cle)) << "the publisher's line is not the user's";
    EXPECT_FALSE(reglages_.existe(reglage::fenetreetat[3].cle));
    reglages_.ecrit(reglage::fenetreetat[3], 0);
    EXPECT_TRUE(reglages_.existe(reglage::fenetreetat[3].cle));
    EXPECT_FALSE(reglages_.existe(reglage::fenetreetat[4].cle));
}

TEST_F(TableReglages, ANumberStandsInTheKey) {
    EXPECT_EQ(reglage::outilcommande[12].cle.nom(), u"COMMANDE12");
    EXPECT_EQ(reglage::fenetreetat[0].cle.nom(), u"WINDOWSSTATE0");
    EXPECT_EQ(reglage::stylenom[7].cle.nom(), u"STYLE07-NOM");
    EXPECT_EQ(reglage::stylenom[42].cle.nom(), u"STYLE42-NOM");
    EXPECT_EQ(reglage::margehaute[Imprime::Documents].cle.nom(), u"PRINTERMARGEHAUTE");
    EXPECT_EQ(reglage::margehaute[Imprime::Dossiers].cle.nom(), u"PRINTERMARGEHAUTEDOSSIER");
    EXPECT_EQ(reglage::fond.cle.nomdesection() + u'/' + reglage::fond.cle.nom(), u"GENERALITES/FOND");
}

TEST_F(TableReglages, NoSettingStandsThereTwice) {
    const QStringList lignes = lignesdelatable();
    EXPECT_GT(lignes.size(), 100);
    const QSet<QString> seules(lignes.begin(), lignes.end());
    EXPECT_EQ(seules.size(), lignes.size());
}

TEST_F(TableReglages, EachKindIsReadAndWrittenAsItIsStored) {
    EXPECT_TRUE(reglages_.lit(reglage::barreetat));
    EXPECT_EQ(reglages_.lit(reglage::astuces), 1);
    EXPECT_EQ(reglages_.lit(reglage::largeurselection), 4305);
    EXPECT_EQ(reglages_.lit(reglage::langue), u"FR");
    EXPECT_EQ(reglages_.lit(reglage::dossierbase, u"/ici"_s), u"/ici");
    EXPECT_EQ(reglages_.lit(reglage::fenetrehauteur[3]), 4245);

    EXPECT_TRUE(reglages_.ecrit(reglage::barreetat, false));
    EXPECT_TRUE(reglages_.ecrit(reglage::astuces, 0));
    EXPECT_TRUE(reglages_.ecrit(reglage::largeurselection, 1234.5));
    EXPECT_TRUE(reglages_.ecrit(reglage::langue, u"EN"_s));
    EXPECT_TRUE(reglages_.ecrit(reglage::dossierbase, u"/là"_s));
    EXPECT_TRUE(reglages_.ecrit(reglage::fenetrehauteur[3], 77));
    EXPECT_EQ(ligne(u"BARRE", u"ETAT"), u"0");
    EXPECT_EQ(ligne(u"OPTIONS", u"TIPS"), u"0");
    EXPECT_EQ(ligne(u"EDITEUR", u"LARGEURSELECTION"), u"1234.5");
    EXPECT_EQ(ligne(u"LANGUE", u"EXTENSION"), u"EN");
    EXPECT_EQ(ligne(u"BASE", u"CHEMIN"), u"/là");
    EXPECT_EQ(ligne(u"POSITIONFORME", u"WINDOWSHEIGHT3"), u"77");

    EXPECT_FALSE(reglages_.lit(reglage::barreetat));
    EXPECT_EQ(reglages_.lit(reglage::astuces), 0);
    EXPECT_EQ(reglages_.lit(reglage::largeurselection), 1234.5);
    EXPECT_EQ(reglages_.lit(reglage::langue), u"EN");
    EXPECT_EQ(reglages_.lit(reglage::dossierbase, u"/ici"_s), u"/là");
    EXPECT_EQ(reglages_.lit(reglage::fenetrehauteur[3]), 77);
    EXPECT_EQ(reglages_.lit(reglage::fenetrehauteur[4]), 4245) << "each slot has its own";
}

TEST_F(TableReglages, ThePublisherSpeaksWhereTheTableSaysSo) {
    maitre(u"[BARRE]\r\nETAT=0\r\n[OPTIONS]\r\nTIPS=0\r\n[LANGUE]\r\nEXTENSION=EN\r\n[BASE]\r\nCHEMIN=/publié\r\n"
           "[POSITIONFORME]\r\nWINDOWSHEIGHT3=5\r\nMDICHILD=X\r\n"_s);
    EXPECT_FALSE(reglages_.lit(reglage::barreetat));
    EXPECT_EQ(reglages_.lit(reglage::astuces), 0);
    EXPECT_EQ(reglages_.lit(reglage::langue), u"EN");
    EXPECT_EQ(reglages_.lit(reglage::dossierbase, u"/ici"_s), u"/ici");
    EXPECT_EQ(reglages_.lit(reglage::fenetrehauteur[3]), 4245);
    EXPECT_EQ(reglages_.lit(reglage::fenetresouvertes), QString());
}

TEST_F(TableReglages, AFreeSettingIsTheNumberThatItBeginsWith) {
    const test::GardeArret garde;
    stocke("POSITIONFORME", "WINDOWSLEFT2", "12abc");
    stocke("RECHERCHE", "COMBONOMBRE", "rien");
    EXPECT_EQ(reglages_.lit(reglage::fenetregauche[2]), 12);
    EXPECT_EQ(reglages_.litlibre(reglage::combonombre), 0);
    EXPECT_THROW(reglages_.lit(reglage::combonombre), test::Arret);
}

TEST_F(TableReglages, NumbersOutOfTheirBoundsAreErrors) {
    const test::GardeArret garde;
    stocke("TOOLS", "NOMBRE", "21");
    stocke("EDITEUR", "STYLE03-EXPOSANT", "32768");
    EXPECT_THROW(reglages_.lit(reglage::nombreoutils), test::Arret);
    EXPECT_THROW(reglages_.lit(reglage::styleexposant[3]), test::Arret);
    stocke("EDITEUR", "STYLE03-EXPOSANT", "32767");
    EXPECT_EQ(reglages_.lit(reglage::styleexposant[3]), 32767);
}

TEST_F(TableReglages, AChangeIsToldToThoseThatListenToThatSetting) {
    int fond = 0;
    int autre = 0;
    const auto lui = reglages_.quandchange(reglage::fond.cle, [&] { ++fond; });
    const auto voisin = reglages_.quandchange(reglage::fondno.cle, [&] { ++autre; });
    reglages_.ecrit(reglage::fond, 0);
    EXPECT_EQ(fond, 1);
    reglages_.ecrit(reglage::fond, 0);
    EXPECT_EQ(fond, 1) << "nothing has changed";
    reglages_.note(reglage::fond, 1);
    EXPECT_EQ(fond, 2);
    EXPECT_EQ(autre, 0);
}

TEST_F(TableReglages, WritingWhatStandsByDefaultIsNoChange) {
    maitre(u"[BARRE]\r\nETAT=0\r\n[LANGUE]\r\nEXTENSION=EN\r\n"_s);
    stocke("OPTIONS", "TIPS", "1,0");
    int dits = 0;
    const auto dit = [&] { ++dits; };
    const std::array ecoutes{
        reglages_.quandchange(reglage::fond.cle, dit), reglages_.quandchange(reglage::barreetat.cle, dit),
        reglages_.quandchange(reglage::langue.cle, dit), reglages_.quandchange(reglage::astuces.cle, dit),
        reglages_.quandchange(reglage::menuediteur.cle, dit)};
    reglages_.ecrit(reglage::fond, 1);
    reglages_.ecrit(reglage::barreetat, false);
    reglages_.ecrit(reglage::langue, u"EN"_s);
    reglages_.ecrit(reglage::astuces, 1);
    reglages_.ecrit(reglage::menuediteur, true);
    EXPECT_EQ(dits, 0);
    reglages_.ecrit(reglage::langue, u"FR"_s);
    EXPECT_EQ(dits, 1);
}

TEST_F(TableReglages, EachSettingOfASeriesIsHeardAlone) {
    int dits = 0;
    const auto ecoute = reglages_.quandchange(reglage::outilcommande[2].cle, [&] { ++dits; });
    reglages_.ecrit(reglage::outilcommande[1], u"un"_s);
    reglages_.ecrit(reglage::outilchemin[2], u"deux"_s);
    EXPECT_EQ(dits, 0);
    reglages_.ecrit(reglage::outilcommande[2], u"deux"_s);
    EXPECT_EQ(dits, 1);
}

TEST_F(TableReglages, WhoLetsGoIsToldNoMore) {
    int dits = 0;
    auto ecoute = reglages_.quandchange(reglage::fond.cle, [&] { ++dits; });
    reglages_.ecrit(reglage::fond, 0);
    ecoute.reset();
    reglages_.ecrit(reglage::fond, 1);
    EXPECT_EQ(dits, 1);
}

TEST_F(TableReglages, WhoIsToldMayReadWriteAndListen) {
    QStringList dits;
    Reglages::Ecoute seconde;
    const auto premiere = reglages_.quandchange(reglage::fond.cle, [&] {
        dits << QString::number(reglages_.lit(reglage::fond));
        seconde = reglages_.quandchange(reglage::fondno.cle, [&] { dits << u"no"_s; });
        reglages_.ecrit(reglage::fondno, 4);
    });
    reglages_.ecrit(reglage::fond, 0);
    EXPECT_EQ(dits, (QStringList{u"0"_s, u"no"_s}));
}

TEST_F(TableReglages, ALineThatIsSetAsideIsNoChangeUntilItIsReplaced) {
    reglages_.surfaute([](const RuntimeFailure&) { return true; });
    stocke("EDITEUR", "LARGEURSELECTION", "abc");
    EXPECT_EQ(reglages_.lit(reglage::largeurselection), 4305);
    int dits = 0;
    const auto ecoute = reglages_.quandchange(reglage::largeurselection.cle, [&] { ++dits; });
    reglages_.note(reglage::largeurselection, 4305);
    EXPECT_EQ(dits, 0);
    EXPECT_EQ(ligne(u"EDITEUR", u"LARGEURSELECTION"), u"abc");
    reglages_.note(reglage::largeurselection, 5000);
    EXPECT_EQ(dits, 1);
    EXPECT_EQ(ligne(u"EDITEUR", u"LARGEURSELECTION"), u"5000");
}
