#include "core/cle.h"
#include "shell/logique/pagedepart.h"
#include "shell/logique/premierzoom.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

QString enchiffres(Texte lequel) {
    return QString::number(static_cast<int>(lequel));
}

PageDepart pagede(const std::vector<QString>& cles, const std::vector<QString>& libelles) {
    return pagedepart(cles, libelles, enchiffres);
}

} // namespace

TEST(PageDepartTest, AllCollectionsStandInTheirOrder) {
    const PageDepart vide = pagede({}, {});
    ASSERT_EQ(vide.collections.size(), static_cast<std::size_t>(nombredecollections));
    for (int indice = 0; indice < nombredecollections; ++indice)
        EXPECT_EQ(vide.collections.at(static_cast<std::size_t>(indice)),
                  (CollectionOfferte{indice, QString::number(10 + indice)}));
    EXPECT_TRUE(vide.derniers.empty());
}

TEST(PageDepartTest, TheLastDocumentsLoseTheirCodeAndKeepTheirRank) {
    const PageDepart celle = pagede({u"CL000001"_s, QString(), u"DI000002"_s, u"CO000003"_s},
                                    {u"CL-Une  loi"_s, QString(), u"Sans code"_s, u"CO-"_s});
    EXPECT_EQ(celle.derniers, (std::vector<DernierOffert>{{0, 3, u"Une loi"_s}, {2, 10, u"Sans code"_s}}));
}

TEST(BilanDepartTest, ItSaysHowManyAreShownOfHowMany) {
    const Libelles texte = [](Texte lequel) { return enchiffres(lequel) + u" %1 %2"_s; };
    const auto dit = [&texte](qint64 montres, std::optional<qint64> entout) {
        return bilandepart(u"dol"_s, montres, entout, texte);
    };
    const auto voulu = [](Texte lequel, const QString& suite) { return enchiffres(lequel) + suite; };
    EXPECT_EQ(dit(0, 0), voulu(Texte::BureauRienTrouve, u" dol %2"_s));
    EXPECT_EQ(dit(1, 1), voulu(Texte::BilanUnDocument, u" %1 %2"_s));
    EXPECT_EQ(dit(9, 9), voulu(Texte::BilanDocuments, u" 9 %2"_s));
    EXPECT_EQ(dit(9, 545), voulu(Texte::BilanPremiersSur, u" 9 545"_s));
    EXPECT_EQ(dit(1, 2), voulu(Texte::BilanPremiersSur, u" 1 2"_s));
    EXPECT_EQ(dit(9, std::nullopt), voulu(Texte::BureauPremiers, u" 9 %2"_s)) << "nobody knows yet";
    EXPECT_EQ(dit(1, std::nullopt), voulu(Texte::BilanUnDocument, u" %1 %2"_s));
}

TEST(PageDepartTest, OnlyACodeBeforeAHyphenIsLeftOutAndNoKeyIsNoDocument) {
    EXPECT_EQ(pagede({u"CO000003"_s}, {u"COmité d’avis"_s}).derniers.at(0).titre, u"COmité d’avis");
    EXPECT_TRUE(pagede({QString()}, {u"Un titre"_s}).derniers.empty());
}

TEST(PageDepartTest, AListThatIsShorterEndsBoth) {
    EXPECT_EQ(pagede({u"CL000001"_s, u"CL000002"_s}, {u"CL-Une loi"_s}).derniers.size(), 1U);
}

TEST(PremierZoomTest, OnAWideScreenTheSheetTakesThreeFifthsOfItsRoom) {
    for (const int largeur : {0, 683, 1280, 1366, 1499})
        EXPECT_EQ(premierzoom(largeur), 100) << largeur;
    EXPECT_EQ(premierzoom(1680), 120);
    EXPECT_EQ(premierzoom(1920), 140);
    EXPECT_EQ(premierzoom(2560), 200);
    EXPECT_EQ(premierzoom(3840), 200) << "large enough for everybody";
}
