#include "dossiers/cleelement.h"

#include <gtest/gtest.h>

namespace velm::test {
namespace {

using namespace Qt::Literals::StringLiterals;

TEST(CleElement, TellsDocumentPlaceAndExtract) {
    EXPECT_EQ(cleelement(u"CO000123"_s, 2, {}), u"CO000123 2");
    EXPECT_EQ(cleelement(u"CO000123"_s, 3, {1204, 310}), u"CO000123 3 1204 310P");
    EXPECT_EQ(cleelement(u"CO000123"_s, -3, {}), u"CO000123-3");
}

TEST(CleElement, AnExtractMayBeginAtOffset0) {
    EXPECT_EQ(cleelement(u"EU000001"_s, 1, {0, 5}), u"EU000001 1 0 5P");
    EXPECT_FALSE((Extrait{0, 5}).entier());
    EXPECT_TRUE((Extrait{0, 0}).entier());
}

TEST(CleElement, IsReadBack) {
    EXPECT_EQ(documentdelacle(u"CO000123 3 1204 310P"_s), (Cle{u"CO"_s, u"000123"_s}));
    EXPECT_EQ(noordredelacle(u"CO000123 3 1204 310P"_s), 3);
    EXPECT_EQ(noordredelacle(u"CO000123 12"_s), 12);
    EXPECT_EQ(extraitdelacle(u"CO000123 3 1204 310P"_s), (Extrait{1204, 310}));
    EXPECT_EQ(extraitdelacle(u"CO000123 12"_s), (Extrait{}));
    EXPECT_TRUE(estextrait(u"CO000123 3 1204 310P"_s));
    EXPECT_FALSE(estextrait(u"CO000123 12"_s));
}

TEST(CleElement, WithoutItsLetterOrItsSecondPositionItIsNoExtract) {
    EXPECT_EQ(extraitdelacle(u"CO000123 3 1204 310"_s), (Extrait{}));
    EXPECT_EQ(extraitdelacle(u"CO000123 3 1204P"_s), (Extrait{}));
    EXPECT_EQ(extraitdelacle(u"CO000123 3P"_s), (Extrait{}));
}

TEST(CleElement, TheWholeTailOfAnExtractIsOneNumber) {
    EXPECT_EQ(nombredelaqueue(u"CO000123 3 1204 310P"_s), 31204310);
    EXPECT_EQ(nombredelaqueue(u"CO000123 12"_s), 12);
}

TEST(CleElement, AnotherPlaceKeepsTheTail) {
    EXPECT_EQ(avecnoordre(u"CO000123 3 1204 310P"_s, 12), u"CO000123 12 1204 310P");
    EXPECT_EQ(avecnoordre(u"CO000123 12"_s, 3), u"CO000123 3");
}

TEST(CleElement, AnyTextIsReadWithoutHarm) {
    for (const auto& cle : {u""_s, u"P"_s, u"CO"_s, u"CO000123"_s, u"CO000123 "_s, u"CO000123 P"_s, u"CO000123 3 P"_s,
                            u"CO000123 3 1204P"_s, u"         P"_s, u"CO000123 99999999999999999999 1 2P"_s}) {
        EXPECT_EQ(documentdelacle(cle).texte(), cle.left(8));
        EXPECT_GE(noordredelacle(cle), 0);
        nombredelaqueue(cle);
        EXPECT_TRUE(extraitdelacle(cle).debut >= 0);
        EXPECT_EQ(avecnoordre(cle, 1).left(8), (cle.left(8) + u" 1"_s).left(8));
    }
}

} // namespace
} // namespace velm::test
