// Settings that cannot be used.
#include "core/tablereglages.h"
#include "parametres_support.h"

using namespace velm;

namespace {

/// Decides about values that cannot be used as a test wants, and keeps what it was asked.
struct Juge {
    std::vector<RuntimeFailure> fautes;
    bool accepte = true;
    std::function<bool(const RuntimeFailure&)> decide() {
        return [this](const RuntimeFailure& faute) {
            fautes.push_back(faute);
            return accepte;
        };
    }
};

} // namespace

TEST_F(ParametresTest, AValueThatCannotBeUsedIsNamedWithItsFileSectionAndKey) {
    std::optional<RuntimeFailure> fin;
    const auto avant = setRuntimeErrorHandler([&](const RuntimeFailure& faute) {
        fin = faute;
        throw test::Arret("");
    });
    stocke("EDITEUR", "PRINTERMARGEHAUTE", "large");
    EXPECT_THROW(premiers(), test::Arret);
    ASSERT_TRUE(fin && fin->setting);
    EXPECT_EQ(fin->what, Failure::NotANumber);
    EXPECT_EQ(fin->setting->file, magasin_.path());
    EXPECT_EQ(fin->setting->section, u"EDITEUR");
    EXPECT_EQ(fin->setting->key, u"PRINTERMARGEHAUTE");
    EXPECT_EQ(fin->setting->text, u"large");
    EXPECT_FALSE(fin->said) << "nobody has been asked";
    stocke("EDITEUR", "PRINTERMARGEHAUTE", "99999999999");
    EXPECT_THROW(premiers(), test::Arret);
    EXPECT_EQ(fin->what, Failure::ArrayBounds);
    EXPECT_EQ(fin->parts, (QStringList{QStringLiteral("99999999999"), QStringLiteral("2147483647")}));
    stocke("EDITEUR", "PRINTERMARGEHAUTE", "-99999999999");
    EXPECT_THROW(premiers(), test::Arret);
    EXPECT_EQ(fin->parts.value(1), u"-2147483648");
    setRuntimeErrorHandler(avant);
}

TEST_F(ParametresTest, AnAcceptedDefaultStandsInForTheValueAndTheFileKeepsIt) {
    Juge juge;
    reglages_.surfaute(juge.decide());
    stocke("EDITEUR", "PRINTERMARGEHAUTE", "large");
    stocke("TOOLS", "NOMBRE", "21");
    stocke("EDITEUR", "CHOIXIMPRIMANTE", "peut-être");
    const Parametres p = premiers();
    EXPECT_EQ(p.impression.margehaute, 567);
    EXPECT_TRUE(p.impression.choiximprimante);
    EXPECT_TRUE(p.outils.empty());
    ASSERT_EQ(juge.fautes.size(), 3u);
    EXPECT_EQ(juge.fautes[2].what, Failure::ArrayBounds);
    EXPECT_EQ(juge.fautes[2].parts, (QStringList{QStringLiteral("21"), QStringLiteral("20")}));
    premiers();
    EXPECT_EQ(juge.fautes.size(), 3u) << "asked once for each";
    EXPECT_EQ(ReglagesStore(magasin_.path()).get(u"EDITEUR", u"PRINTERMARGEHAUTE"), u"large");
    EXPECT_EQ(ReglagesStore(magasin_.path()).get(u"TOOLS", u"NOMBRE"), u"21");
    // Until the user saves it: then it counts again.
    EXPECT_TRUE(
        reglages_.savesetting(QStringLiteral("editeur"), QStringLiteral("printermargehaute"), QStringLiteral("567")));
    EXPECT_EQ(ReglagesStore(magasin_.path()).get(u"EDITEUR", u"PRINTERMARGEHAUTE"), u"567");
    EXPECT_TRUE(reglages_.savesetting(QStringLiteral("EDITEUR"), QStringLiteral("PRINTERMARGEHAUTE"),
                                      QStringLiteral("encore")));
    premiers();
    EXPECT_EQ(juge.fautes.size(), 4u);
}

TEST_F(ParametresTest, WhatTheProgramWritesByItselfLeavesAValueThatIsSetAside) {
    Juge juge;
    reglages_.surfaute(juge.decide());
    stocke("EDITEUR", "LARGEURSELECTION", "abc");
    EXPECT_EQ(seconds().largeurselection, 4305);
    const auto note = [this](double valeur) {
        EXPECT_TRUE(reglages_.note(reglage::largeurselection, valeur));
        return ReglagesStore(magasin_.path()).get(u"EDITEUR", u"LARGEURSELECTION");
    };
    EXPECT_EQ(note(4305), u"abc");
    EXPECT_EQ(note(5000), u"5000");
    EXPECT_EQ(note(4305), u"4305") << "nothing is set aside any more";
}

TEST_F(ParametresTest, ThePublishersLineStandsInAndMayBeAtFaultItself) {
    Juge juge;
    reglages_.surfaute(juge.decide());
    maitre(QStringLiteral("[TOOLS]\r\nNOMBRE=22\r\n[EDITEUR]\r\nPRINTERMARGEHAUTE=600\r\n"));
    stocke("EDITEUR", "PRINTERMARGEHAUTE", "large");
    stocke("TOOLS", "NOMBRE", "21");
    const Parametres p = premiers();
    EXPECT_EQ(p.impression.margehaute, 600);
    EXPECT_TRUE(p.outils.empty());
    ASSERT_EQ(juge.fautes.size(), 3u);
    EXPECT_EQ(juge.fautes[1].setting->file, magasin_.path());
    EXPECT_EQ(juge.fautes[2].setting->file, reglages_.fichiermaitre());
    EXPECT_EQ(juge.fautes[2].setting->text, u"22");
}

TEST_F(ParametresTest, ARefusedDefaultEndsTheProgramWithoutSayingItAgain) {
    Juge juge;
    juge.accepte = false;
    reglages_.surfaute(juge.decide());
    bool dite = false;
    const auto avant = setRuntimeErrorHandler([&](const RuntimeFailure& faute) {
        dite = faute.said;
        throw test::Arret("");
    });
    stocke("TOOLS", "NOMBRE", "21");
    EXPECT_THROW(premiers(), test::Arret);
    EXPECT_TRUE(dite);
    setRuntimeErrorHandler(avant);
}
