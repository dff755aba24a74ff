#include "document/historique.h"
#include "navigation_modele.h"

#include <gtest/gtest.h>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString cle = u"CO000001"_s;

QString texte(std::initializer_list<int> codes) {
    QString ecrit;
    for (const int code : codes)
        ecrit += QChar(code);
    return ecrit;
}

QString suivant(QString suffixe) {
    EXPECT_TRUE(suffixesuivant(suffixe));
    return suffixe;
}

TEST(Suffixe, TheTailStepsFromNothingToCode0To255ToTwoCharacters) {
    EXPECT_EQ(suivant({}), texte({0}));
    EXPECT_EQ(suivant(texte({0})), texte({1}));
    EXPECT_EQ(suivant(texte({254})), texte({255}));
    EXPECT_EQ(suivant(texte({255})), texte({0, 0}));
    EXPECT_EQ(suivant(texte({0, 0})), texte({0, 1}));
    EXPECT_EQ(suivant(texte({7, 254})), texte({7, 255}));
}

TEST(Suffixe, AfterACarryTheSecondCharacterIsTheDigitZero) {
    EXPECT_EQ(suivant(texte({0, 255})), texte({1}) + u'0');
    EXPECT_EQ(suivant(texte({254, 255})), texte({255}) + u'0');
}

TEST(Suffixe, BehindTheLastTailThereIsNone) {
    for (const QString& sans : {texte({255, 255}), u"abc"_s, u"abcd"_s}) {
        QString suffixe = sans;
        EXPECT_FALSE(suffixesuivant(suffixe));
        EXPECT_EQ(suffixe, sans);
    }
}

TEST(Suffixe, ARepeatedKeyGetsATailThatMakesItUnique) {
    ListeHistorique liste;
    for (int i = 0; i < 3; ++i)
        liste.ajoute(cle, {}, u"Titre"_s);
    EXPECT_EQ(liste.menus().at(3).key, cle);
    EXPECT_EQ(liste.menus().at(2).key, cle + texte({0}));
    EXPECT_EQ(liste.menus().at(1).key, cle + texte({1}));
    EXPECT_EQ(liste.cle(1), cle);
    EXPECT_EQ(liste.suffixe(1), texte({1}));
    EXPECT_EQ(liste.titre(1), u"Titre"_s);
}

TEST(Suffixe, TailsAreTakenInTheirOrderWithoutGaps) {
    ListeHistorique liste;
    QString attendu;
    constexpr int nombre = 1 + 256 + 256 + 3 * 208;
    for (int i = 0; i < nombre; ++i) {
        liste.ajoute(cle, {}, {});
        ASSERT_EQ(liste.suffixe(1), attendu) << i;
        attendu = pasdesuffixe(attendu);
    }
}

TEST(Suffixe, AListHoldsAsManyCopiesAsThereAreTails) {
    ListeHistorique liste;
    constexpr int tous = 1 + 256 + 256 + 255 * 208;
    for (int i = 0; i < tous + 5; ++i)
        liste.ajoute(cle, {}, {});
    EXPECT_EQ(liste.nombre(), tous);
    EXPECT_EQ(liste.suffixe(1), texte({255, 255}));
    liste.ajoute(u"CO000002"_s, {}, {});
    EXPECT_EQ(liste.nombre(), tous + 1);
}

TEST(Suffixe, AFreedTailIsTakenAgain) {
    ListeHistorique liste;
    liste.ajoute(cle, texte({4}), {});
    for (int i = 0; i < 5; ++i)
        liste.ajoute(cle, {}, {});
    EXPECT_EQ(liste.suffixe(1), texte({3}));
    liste.ajoute(cle, {}, {});
    EXPECT_EQ(liste.suffixe(1), texte({5}));
    liste.retire();
    liste.retire();
    liste.ajoute(cle, {}, {});
    EXPECT_EQ(liste.suffixe(1), texte({3}));
}

TEST(Suffixe, AnEntrysOwnTailIsSteppedFromWhereItStands) {
    ListeHistorique liste;
    liste.ajoute(cle, texte({200}), {});
    liste.ajoute(cle, texte({200}), {});
    EXPECT_EQ(liste.suffixe(1), texte({201}));
    liste.ajoute(cle, texte({200}), {});
    EXPECT_EQ(liste.suffixe(1), texte({202}));
    liste.ajoute(cle, texte({7}), {});
    EXPECT_EQ(liste.suffixe(1), texte({7}));
}

TEST(Suffixe, ATailOfThreeCharactersIsNotAddedTwice) {
    ListeHistorique liste;
    liste.ajoute(cle, u"abc"_s, {});
    liste.ajoute(cle, u"abc"_s, {});
    EXPECT_EQ(liste.nombre(), 1);
}

TEST(Suffixe, KeysOfOtherLengthsDoNotCollideWithTails) {
    ListeHistorique liste;
    liste.ajoute(cle, {}, {});
    liste.ajoute(cle + texte({0}), {}, u"neuf"_s); // reads as the same document with a tail
    liste.ajoute(cle, {}, u"suivant"_s);
    EXPECT_EQ(liste.menus().at(1).key, cle + texte({1}));
    EXPECT_EQ(liste.menus().at(2).key, cle + texte({0}));
    liste.ajoute(u"CO1"_s, {}, {});
    liste.ajoute(u"CO1"_s, {}, {});
    EXPECT_EQ(liste.menus().at(1).key, u"CO1"_s + texte({0}));
    for (int i = liste.nombre(); i > 0; --i)
        liste.retire();
    EXPECT_TRUE(liste.vide());
    liste.retire();
    EXPECT_EQ(liste.nombre(), 0);
}

TEST(Suffixe, AnEmptyKeyIsNoDocument) {
    ListeHistorique liste;
    liste.ajoute({}, {}, u"rien"_s);
    EXPECT_TRUE(liste.vide());
}

TEST(Suffixe, ADocumentIsFoundWhateverItsTail) {
    ListeHistorique liste;
    liste.ajoute(cle, texte({9}), {});
    liste.ajoute(u"EU000003"_s, {}, {});
    EXPECT_TRUE(liste.contient(cle));
    EXPECT_TRUE(liste.contient(u"EU000003"));
    EXPECT_FALSE(liste.contient(u"CO000002"));
}

} // namespace
} // namespace velm::test
