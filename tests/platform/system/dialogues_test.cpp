#include "platform/system/dialogues.h"
#include "tests/support/dialogues_script.h"

#include <gtest/gtest-spi.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

TEST(Dialogues, AnAbandonedBoxIsNeverAYes) {
    EXPECT_EQ(boutonAbandon(Bouton::Oui | Bouton::Non | Bouton::Annuler), Bouton::Annuler);
    EXPECT_EQ(boutonAbandon(Bouton::Oui | Bouton::Non | Bouton::Aide), Bouton::Non);
    EXPECT_EQ(boutonAbandon(Bouton::Ok), Bouton::Ok);
}

TEST(Dialogues, AFilterTextIsPairsOfLabelAndPattern) {
    const auto filters = lisfiltres(u"Base (*.DAT)|*.DAT|Tous les fichiers (*.*)|*.*"_s);
    ASSERT_EQ(filters.size(), 2);
    EXPECT_EQ(filters[0].libelle, u"Base (*.DAT)"_s);
    EXPECT_EQ(filters[0].motifs, (QStringList{u"*.DAT"_s, u"*.dat"_s}));
    EXPECT_EQ(filters[1].libelle, u"Tous les fichiers (*.*)"_s);
    EXPECT_EQ(filters[1].motifs, QStringList(u"*"_s));
}

TEST(Dialogues, AFilterMayHaveSeveralPatterns) {
    const auto filters = lisfiltres(u"Texte|*.txt; *.Rtf"_s);
    ASSERT_EQ(filters.size(), 1);
    EXPECT_EQ(filters[0].motifs, (QStringList{u"*.txt"_s, u"*.TXT"_s, u"*.Rtf"_s, u"*.rtf"_s, u"*.RTF"_s}));
}

TEST(Dialogues, DamagedFiltersAreLeftOut) {
    EXPECT_TRUE(lisfiltres(QString()).isEmpty());
    EXPECT_TRUE(lisfiltres(u"label"_s).isEmpty());
    EXPECT_TRUE(lisfiltres(u"label|"_s).isEmpty());
    EXPECT_TRUE(lisfiltres(u"label| ; "_s).isEmpty());
    EXPECT_EQ(lisfiltres(u"|*.a|b"_s).size(), 1);
}

TEST(Dialogues, AnExtensionIsPutBehindANameWithoutOne) {
    EXPECT_EQ(avecextension(u"/a/b"_s, u"dv2"_s), u"/a/b.dv2"_s);
    EXPECT_EQ(avecextension(u"/a/b.txt"_s, u"dv2"_s), u"/a/b.txt"_s);
    EXPECT_EQ(avecextension(u"/a.x/b"_s, u"dv2"_s), u"/a.x/b.dv2"_s);
    EXPECT_EQ(avecextension(u"/a/b."_s, u"dv2"_s), u"/a/b.dv2"_s);
    EXPECT_EQ(avecextension(u"/a/b"_s, QString()), u"/a/b"_s);
    EXPECT_EQ(avecextension(QString(), u"dv2"_s), QString());
}

TEST(DialoguesScript, AnswersInOrderAndRemembersWhatWasAsked) {
    test::DialoguesScript user;
    user.answers = {Bouton::Oui, Bouton::Non};
    EXPECT_EQ(
        user.message(u"Quitter ?"_s, u"Velmorante"_s, Icone::Question, Bouton::Oui | Bouton::Non, Bouton::Non, 13),
        Bouton::Oui);
    EXPECT_EQ(user.message(u"Encore ?"_s, {}, Icone::Question, Bouton::Oui | Bouton::Non), Bouton::Non);
    EXPECT_EQ(user.message(u"12"_s, {}), Bouton::Ok) << "a box with one button needs no script";
    ASSERT_EQ(user.messages.size(), 3U);
    EXPECT_EQ(user.messages[0].contexteAide, 13);
    EXPECT_EQ(user.messages[0].defaut, Bouton::Non);
    EXPECT_EQ(user.texts(), (QStringList{u"Quitter ?"_s, u"Encore ?"_s, u"12"_s}));
    user.openFiles = {u"/a/b.dat"_s};
    EXPECT_EQ(user.openFile({u"t"_s, u"/a"_s, u"f"_s, {}, {}}), u"/a/b.dat"_s);
    EXPECT_EQ(user.fileQuestions.back().dossier, u"/a"_s);
}

TEST(DialoguesScript, AQuestionOutsideTheScriptFailsTheTestAndDoesNotBlock) {
    EXPECT_NONFATAL_FAILURE(
        {
            test::DialoguesScript user;
            EXPECT_EQ(user.message(u"?"_s, {}, Icone::Question, Bouton::Oui | Bouton::Non), Bouton::Non);
        },
        "no answer");
    EXPECT_NONFATAL_FAILURE(
        {
            test::DialoguesScript user;
            EXPECT_FALSE(user.openFile({}));
        },
        "no answer");
}

} // namespace
