#include "document/sourceliens.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

SourceLiens source() {
    return SourceLiens({{u"EU"_s, u"Zoo"_s, decoupecle(u"EU000001"_s)},
                        {u"CO"_s, u"Été"_s, decoupecle(u"CO000002"_s)},
                        {u"EU"_s, u"ete"_s, decoupecle(u"EU000003"_s)}});
}

QStringList cles(const SourceLiens& source) {
    QStringList toutes;
    for (int rang = 0; rang < source.rowCount(); ++rang)
        toutes << source.cle(rang).texte();
    return toutes;
}

} // namespace

TEST(SourceLiensTest, ARowShowsTheCollectionTheTitleAndTheKey) {
    const SourceLiens liens = source();
    EXPECT_EQ(liens.rowCount(), 3);
    EXPECT_EQ(liens.text(1, 0), u"CO");
    EXPECT_EQ(liens.text(1, 1), u"Été");
    EXPECT_EQ(liens.text(1, 2), u"CO000002");
    EXPECT_EQ(liens.cle(1), (Cle{u"CO"_s, u"000002"_s}));
    const Colonnes colonnes(SourceLiens::modele(),
                            [](Texte lequel) { return QString::number(static_cast<int>(lequel)); });
    EXPECT_EQ(colonnes.visibles(), 2) << "the key is not seen";
    EXPECT_EQ(colonnes.titre(1), u"300");
    EXPECT_TRUE(colonnes.titre(0).isEmpty());
}

TEST(SourceLiensTest, OutsideThereIsNothing) {
    SourceLiens liens = source();
    for (const int rang : {-1, 3}) {
        EXPECT_TRUE(liens.text(rang, 0).isEmpty());
        EXPECT_TRUE(liens.cle(rang).vide());
    }
    EXPECT_TRUE(liens.text(0, 3).isEmpty());
    EXPECT_FALSE(liens.sort(3, false));
    EXPECT_FALSE(liens.sort(-1, false));
    EXPECT_EQ(cles(liens), (QStringList{u"EU000001"_s, u"CO000002"_s, u"EU000003"_s}));
}

TEST(SourceLiensTest, RowsStandInFrenchOrderAndEqualOnesAsTheyWere) {
    SourceLiens liens = source();
    EXPECT_TRUE(liens.sort(SourceLiens::Titre, false));
    EXPECT_EQ(cles(liens), (QStringList{u"EU000003"_s, u"CO000002"_s, u"EU000001"_s}));
    EXPECT_TRUE(liens.sort(SourceLiens::Titre, true));
    EXPECT_EQ(cles(liens), (QStringList{u"EU000001"_s, u"CO000002"_s, u"EU000003"_s}));
    EXPECT_TRUE(liens.sort(SourceLiens::Code, false));
    EXPECT_EQ(cles(liens), (QStringList{u"CO000002"_s, u"EU000001"_s, u"EU000003"_s}));
    EXPECT_TRUE(liens.sort(SourceLiens::Clef, true));
    EXPECT_EQ(cles(liens), (QStringList{u"EU000003"_s, u"EU000001"_s, u"CO000002"_s}));
}
