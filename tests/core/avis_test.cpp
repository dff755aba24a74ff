#include "core/avis.h"
#include "tests/support/dialogues_script.h"

#include <gtest/gtest.h>

using namespace velm;

namespace {

class AvisTest : public testing::Test {
protected:
    AvisTest() { langue.choisitfichier(source, source, QStringLiteral("FR")); }

    static RuntimeFailure faute(const char* cle) {
        return {Failure::NotANumber,
                {QStringLiteral("S/K"), QStringLiteral("abc")},
                FaultySetting{QStringLiteral("/home/moi//reglages.ini"), QStringLiteral("GENERALITES"),
                              QString::fromLatin1(cle), QStringLiteral("abc")}};
    }
    QString texte(int numero) { return langue.lireressource(Texte{numero}); }

    const QString source = QStringLiteral(VELM_SOURCE_DIR);
    test::DialoguesScript dialogues;
    Langue langue{[this](const QString& numero) { avis.textemanquant(numero); }};
    Avis avis{dialogues, langue};
};

/// Without any language file.
class AvisMuet : public AvisTest {
protected:
    AvisMuet() { langue.choisitfichier(QStringLiteral("/nulle/part"), QStringLiteral("/nulle/part"), {}); }
};

} // namespace

TEST_F(AvisTest, AMissingTextShowsItsNumberAndFromTheThirdBoxOnAnOfferToBeSilent) {
    for (const int numero : {9901, 9902, 9903, 9904})
        langue.lireressource(Texte{numero});
    ASSERT_EQ(dialogues.messages.size(), 4u);
    EXPECT_EQ(dialogues.texts(), (QStringList{QStringLiteral("9901"), QStringLiteral("9902"), QStringLiteral("9903"),
                                              QStringLiteral("9904")}));
    for (std::size_t rang = 0; rang < 4; ++rang) {
        const Message& boite = dialogues.messages[rang];
        EXPECT_EQ(boite.titre, QString());
        EXPECT_EQ(boite.boutons, Bouton::Ok);
        EXPECT_EQ(boite.option, rang < 2 ? QString() : texte(9518)) << rang;
    }
}

TEST_F(AvisTest, ATickedOfferSilencesMissingTextsForTheRun) {
    dialogues.ticks = {true};
    for (const int numero : {9901, 9902, 9903, 9904, 9901})
        langue.lireressource(Texte{numero});
    EXPECT_EQ(dialogues.messages.size(), 3u);
}

TEST_F(AvisMuet, TheOfferItselfMayBeMissing) {
    for (const int numero : {1, 2, 3, 4})
        langue.lireressource(Texte{numero});
    EXPECT_EQ(dialogues.texts(),
              (QStringList{QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4")}));
    EXPECT_EQ(dialogues.messages.back().option, u"9518");
}

TEST_F(AvisMuet, TheButtonsOfABoxAskForNoOtherBox) {
    EXPECT_EQ(avis.libellebouton(Bouton::Oui), QString());
    EXPECT_TRUE(dialogues.messages.empty());
    langue.lireressource(Texte{1});
    EXPECT_EQ(dialogues.messages.size(), 1u) << "only they are silent";
}

TEST_F(AvisTest, EachButtonHasItsWord) {
    EXPECT_EQ(avis.libellebouton(Bouton::Oui), texte(9270));
    EXPECT_EQ(avis.libellebouton(Bouton::Ok), texte(9274));
    EXPECT_EQ(avis.libellebouton(Bouton::Aucun), QString());
}

TEST_F(AvisTest, ASettingAtFaultIsNamedAndItsDefaultOffered) {
    dialogues.answers = {Bouton::Oui, Bouton::Non};
    EXPECT_TRUE(avis.continueavecledefaut(faute("CHECKQUIT")));
    EXPECT_FALSE(avis.continueavecledefaut(faute("FOND")));
    ASSERT_EQ(dialogues.messages.size(), 2u);
    const Message& boite = dialogues.messages.front();
    for (const char* partie : {"/home/moi/reglages.ini", "GENERALITES", "CHECKQUIT", "abc"})
        EXPECT_TRUE(boite.texte.contains(QStringLiteral("«\u00A0%1\u00A0»").arg(QString::fromUtf8(partie)))) << partie;
    for (const char* partie : {"ce n’est pas un nombre.", "valeur par défaut"})
        EXPECT_TRUE(boite.texte.contains(QString::fromUtf8(partie))) << boite.texte.toStdString();
    EXPECT_EQ(boite.titre, texte(9513));
    EXPECT_EQ(boite.accord, texte(9782));
    EXPECT_EQ(boite.refus, texte(9783));
    EXPECT_EQ(boite.boutons, Bouton::Oui | Bouton::Non);
    EXPECT_EQ(boite.option, QString()) << "the first one stands alone";
    EXPECT_EQ(dialogues.messages.back().option, texte(9516));
}

TEST_F(AvisTest, OneAnswerMayServeForAllSettingsThatFollow) {
    dialogues.answers = {Bouton::Oui, Bouton::Oui};
    dialogues.ticks = {true};
    for (const char* cle : {"A", "B", "C", "D"})
        EXPECT_TRUE(avis.continueavecledefaut(faute(cle)));
    EXPECT_EQ(dialogues.messages.size(), 2u);
}

TEST_F(AvisTest, ATickWithARefusalAnswersForNothing) {
    dialogues.answers = {Bouton::Oui, Bouton::Non, Bouton::Oui};
    dialogues.ticks = {true};
    avis.continueavecledefaut(faute("A"));
    EXPECT_FALSE(avis.continueavecledefaut(faute("B")));
    avis.continueavecledefaut(faute("C"));
    EXPECT_EQ(dialogues.messages.size(), 3u);
}

TEST_F(AvisTest, ANumberBeyondItsLimitIsSaidWithTheLimitAndALongValueIsCut) {
    RuntimeFailure erreur = faute("NOMBRE");
    erreur.what = Failure::ArrayBounds;
    erreur.parts = {QStringLiteral("21"), QStringLiteral("20")};
    erreur.setting->text = QString(100'000, u'9');
    avis.fin(erreur);
    ASSERT_EQ(dialogues.messages.size(), 1u);
    const Message& boite = dialogues.messages.front();
    EXPECT_TRUE(boite.texte.contains(QStringLiteral("la limite est 20."))) << boite.texte.toStdString();
    EXPECT_TRUE(boite.texte.contains(QStringLiteral("999…")));
    EXPECT_LT(boite.texte.size(), 600);
    EXPECT_TRUE(boite.texte.contains(texte(9517))) << "what can be done";
    EXPECT_EQ(boite.titre, texte(9400));
    EXPECT_EQ(boite.icone, Icone::Stop);
}

TEST_F(AvisTest, EachKindOfErrorThatEndsTheProgramHasItsReason) {
    const std::pair<Failure, int> raisons[] = {{Failure::ArrayBounds, 9405},  {Failure::NotANumber, 9406},
                                               {Failure::MissingTable, 9407}, {Failure::Engine, 9408},
                                               {Failure::MissingIndex, 9409}, {Failure::MissingField, 9410}};
    for (const auto& [genre, numero] : raisons) {
        const QStringList parties{QStringLiteral("un"), QStringLiteral("deux")};
        avis.fin({genre, parties});
        EXPECT_TRUE(dialogues.messages.back().texte.contains(remplace(texte(numero), parties))) << numero;
        EXPECT_FALSE(dialogues.messages.back().texte.contains(texte(9517)));
    }
}

TEST_F(AvisTest, WhatTheUserKnowsAlreadyIsNotSaidAgain) {
    RuntimeFailure erreur = faute("CHECKQUIT");
    erreur.said = true;
    avis.fin(erreur);
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(AvisTest, NoMemoryIsSaidAsItStrikes) {
    avis.sansmemoire(false);
    avis.sansmemoire(true);
    EXPECT_EQ(dialogues.texts(), (QStringList{texte(9519), texte(9520)}));
}
