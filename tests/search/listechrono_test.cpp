// The chronological list: which rows, in which order, and how a date stands in three columns.
#include "search/barresannees.h"
#include "tests/search/listes_support.h"

#include <QLocale>

using namespace velm;
using namespace velm::test;

namespace {

class ChronoTest : public BaseDates {
protected:
    void quatre() {
        ouvre({{u"CO000001"_s, u"trois"_s, u"2005-02-18"_s, {u"bail"_s}},
               {u"CO000002"_s, u"sans"_s},
               {u"JP000007"_s, u"un"_s, u"1999-12-31"_s},
               {u"EU000001"_s, u"deux"_s, u"2005-02-01"_s},
               {u"EU000002"_s, u"vide"_s, u""_s}});
    }
    QStringList dates(const SourceDocuments& liste) const {
        QStringList toutes;
        for (int row = 0; row < liste.rowCount(); ++row)
            toutes << QStringList{liste.text(row, ListeChrono::Annee), liste.text(row, ListeChrono::Mois),
                                  liste.text(row, ListeChrono::Jour)}
                          .join(u'/');
        return toutes;
    }
};

} // namespace

TEST_F(ChronoTest, RowsComeInDateOrder) {
    quatre();
    EXPECT_EQ(cles(*chrono()), (QStringList{u"JP000007"_s, u"EU000001"_s, u"CO000001"_s}));
}

TEST_F(ChronoTest, DayMonthNameAndYearStandInThreeColumns) {
    quatre();
    EXPECT_EQ(dates(*chrono()), (QStringList{u"1999/m12/31"_s, u"2005/m02/1"_s, u"2005/m02/18"_s}));
    const auto liste = chrono();
    EXPECT_EQ(liste->text(2, ListeChrono::Titre), u"trois");
    EXPECT_EQ(liste->text(2, ListeChrono::MotCle1), u"bail");
    EXPECT_EQ(liste->text(2, ListeChrono::Clef), u"CO000001") << "hidden";
    const Colonnes colonnes(ListeChrono::modele());
    EXPECT_EQ(colonnes.ordre(), u"9870123");
    EXPECT_EQ(colonnes.largeurs(), u"000700001000000700003000002000002000002000");
}

TEST_F(ChronoTest, MonthNamesComeFromTheLocale) {
    quatre();
    const auto liste = pleine(std::make_unique<ListeChrono>(corpus, TypesChoisis()));
    EXPECT_EQ(liste->text(0, ListeChrono::Mois), QLocale::system().standaloneMonthName(12));
    EXPECT_FALSE(liste->text(0, ListeChrono::Mois).isEmpty());
}

TEST_F(ChronoTest, NoTypeListsNothing) {
    quatre();
    EXPECT_EQ(chrono(TypesChoisis::decodes(u""))->rowCount(), 0);
}

TEST_F(ChronoTest, OnlyPressedTypesAreListed) {
    quatre();
    EXPECT_EQ(cles(*chrono(TypesChoisis::decodes(u"COJP"))), (QStringList{u"JP000007"_s, u"CO000001"_s}));
}

TEST_F(ChronoTest, ACodeThatIsNoCollectionIsNotListed) {
    ouvre({{u"CO000001"_s, u"un"_s, u"2005-02-18"_s}, {u"XX000002"_s, u"autre"_s, u"2005-02-19"_s}});
    EXPECT_EQ(cles(*chrono()), QStringList{u"CO000001"_s});
    EXPECT_EQ(cles(*chrono(TypesChoisis::decodes(u"CO"))), QStringList{u"CO000001"_s});
}

TEST_F(ChronoTest, ADocumentWithoutACodeIsNotListed) {
    ouvre({{u"CO000001"_s, u"un"_s, u"2005-02-18"_s}, {QString(u""_s), u"autre"_s, u"2005-02-19"_s}});
    EXPECT_EQ(chrono()->rowCount(), 1);
}

TEST_F(ChronoTest, CodesAreFoundWhateverTheirCase) {
    ouvre({{u"co000001"_s, u"petit"_s, u"2005-02-18"_s}, {u"CO000002"_s, u"grand"_s, u"2005-02-19"_s}});
    EXPECT_EQ(chrono(TypesChoisis::decodes(u"CO"))->rowCount(), 2);
    const auto liste = index(TypesChoisis::decodes(u"CO"));
    EXPECT_EQ(liste->rowCount(), 2) << "as in the index";
    ASSERT_TRUE(liste->sort(2, false));
    EXPECT_EQ(liste->text(0, 2), u"grand");
}

TEST_F(ChronoTest, DocumentsWithoutADateAreNotListed) {
    quatre();
    const QStringList tous = cles(*chrono());
    EXPECT_FALSE(tous.contains(u"CO000002")) << "none";
    EXPECT_FALSE(tous.contains(u"EU000002")) << "an empty one";
}

TEST_F(ChronoTest, TheIndexOfDatesIsLeftInPlace) {
    quatre();
    corpus.donnees().setIndex(u"primarykey"_s);
    chrono();
    EXPECT_EQ(corpus.donnees().index(), u"idate");
    EXPECT_TRUE(corpus.document({u"JP"_s, u"000007"_s})) << "who needs another sets it";
}

TEST_F(ChronoTest, ASortOnTheMonthIsAlphabetical) {
    ouvre({{u"CO000001"_s, u"a"_s, u"2000-01-05"_s},
           {u"CO000002"_s, u"b"_s, u"2001-08-05"_s},
           {u"CO000003"_s, u"c"_s, u"2002-04-05"_s}});
    const QStringList noms{u"janvier"_s, u"août"_s, u"avril"_s};
    const auto liste = pleine(std::make_unique<ListeChrono>(corpus, TypesChoisis(), IntervalleDates(), [](int mois) {
        return mois == 1 ? u"janvier"_s : mois == 8 ? u"août"_s : u"avril"_s;
    }));
    EXPECT_EQ(colonne(*liste, ListeChrono::Mois), noms);
    ASSERT_TRUE(liste->sort(ListeChrono::Mois, false));
    EXPECT_EQ(colonne(*liste, ListeChrono::Mois), (QStringList{u"août"_s, u"avril"_s, u"janvier"_s}));
    ASSERT_TRUE(liste->sort(ListeChrono::Mois, true));
    EXPECT_EQ(colonne(*liste, ListeChrono::Mois), (QStringList{u"janvier"_s, u"avril"_s, u"août"_s}));
}

TEST_F(ChronoTest, YearsAndDaysSortAsNumbers) {
    ouvre({{u"CO000001"_s, u"a"_s, u"0987-01-05"_s},
           {u"CO000002"_s, u"b"_s, u"1804-03-21"_s},
           {u"CO000003"_s, u"c"_s, u"2150-08-10"_s},
           {u"CO000004"_s, u"d"_s, u"vers 1900"_s}});
    const auto liste = chrono();
    ASSERT_TRUE(liste->sort(ListeChrono::Jour, false));
    EXPECT_EQ(colonne(*liste, ListeChrono::Jour), (QStringList{QString(), u"5"_s, u"10"_s, u"21"_s}));
    EXPECT_EQ(liste->find(ListeChrono::Jour, u"1"_s, 0), std::nullopt) << "numbers do not stand as their texts do";
    ASSERT_TRUE(liste->sort(ListeChrono::Annee, true));
    EXPECT_EQ(colonne(*liste, ListeChrono::Annee), (QStringList{u"2150"_s, u"1804"_s, u"987"_s, u"vers 1900"_s}));
}

TEST_F(ChronoTest, DatesThatNoCalendarHasAreShownAsTheyStand) {
    ouvre({{u"CO000001"_s, u"a"_s, u"2005-02-30"_s},
           {u"CO000002"_s, u"b"_s, u"2005-13-01"_s},
           {u"CO000003"_s, u"c"_s, u"0000-00-00"_s},
           {u"CO000004"_s, u"d"_s, u"bientôt"_s},
           {u"CO000005"_s, u"e"_s, u"1850-07-14"_s}});
    EXPECT_EQ(dates(*chrono()),
              (QStringList{u"0/00/0"_s, u"1850/m07/14"_s, u"2005/m02/30"_s, u"2005/13/1"_s, u"bientôt//"_s}));
}

TEST_F(ChronoTest, AnIntervalIsBoundedByBeginningsOfDates) {
    quatre();
    EXPECT_EQ(cles(*chrono({}, {u"2005"_s, {}})).size(), 2);
    EXPECT_EQ(cles(*chrono({}, {{}, u"2005-02-01"_s})), (QStringList{u"JP000007"_s, u"EU000001"_s}));
    EXPECT_EQ(cles(*chrono({}, {u"2005-02"_s, u"2005"_s})).size(), 2) << "a bound counts whatever follows it";
    EXPECT_EQ(cles(*chrono({}, {u"2006"_s, {}})).size(), 0);
    EXPECT_EQ(cles(*chrono({}, {u"'; DROP"_s, u"'"_s})).size(), 0);
}

TEST_F(ChronoTest, TheYearsAreCountedAndLeadToTheirFirstRow) {
    std::vector<DocumentDate> documents;
    for (int n = 1; n <= 500; ++n)
        documents.push_back({u"CO"_s + sixchiffres(n), QString::number(500 - n),
                             u"%1-%2-10"_s.arg(1990 + n % 7).arg(1 + n % 12, 2, 10, QChar(u'0'))});
    documents.push_back({u"EU000001"_s, u"z"_s, u"1804-03-21"_s});
    documents.push_back({u"EU000002"_s, u"y"_s, u"jamais"_s});
    ouvre(documents);
    const auto liste = chrono();
    const std::vector<AnneeChrono> annees = liste->annees();
    ASSERT_EQ(annees.size(), 8U);
    EXPECT_EQ(annees.front().annee, 1804);
    int tous = 0;
    for (const AnneeChrono& une : annees) {
        EXPECT_EQ(une.premiere, tous);
        tous += une.nombre;
        EXPECT_EQ(liste->premiere(une.annee, une.annee), une.premiere);
        EXPECT_EQ(liste->find(ListeChrono::Annee, QString::number(une.annee), 0), une.premiere);
    }
    EXPECT_EQ(tous, 501) << "what is no date has no year";
    EXPECT_EQ(liste->find(ListeChrono::Annee, u"7"_s, 0), -1);
    // In another order the first row of a year is where it stands then.
    ASSERT_TRUE(liste->sort(ListeChrono::Titre, false));
    EXPECT_TRUE(liste->annees().empty());
    const int rang = liste->premiere(1992, 1992);
    ASSERT_GE(rang, 0);
    EXPECT_EQ(liste->text(rang, ListeChrono::Annee), u"1992");
    for (int row = 0; row < rang; ++row)
        EXPECT_NE(liste->text(row, ListeChrono::Annee), u"1992");
    EXPECT_EQ(liste->premiere(1700, 1700), -1);
}

TEST(BarresAnneesTest, ThereIsABarForEachYearWhereThereIsRoom) {
    const std::vector<AnneeChrono> annees{{1998, 3, 0}, {2000, 5, 3}};
    const auto barres = barresdesannees(annees, 10);
    ASSERT_EQ(barres.size(), 3U);
    EXPECT_EQ(barres[1].annee, 1999);
    EXPECT_EQ(barres[1].nombre, 0);
    EXPECT_EQ(barres[2].nombre, 5);
}

TEST(BarresAnneesTest, YearsFarAwayTakeNoRoomAndManyYearsShareBars) {
    const std::vector<AnneeChrono> loin{{1, 1, 0}, {2000, 5, 1}, {9999, 2, 6}};
    EXPECT_EQ(barresdesannees(loin, 10).size(), 3U);
    std::vector<AnneeChrono> beaucoup;
    for (int annee = 1800; annee < 2000; ++annee)
        beaucoup.push_back({annee, 2, 0});
    const auto barres = barresdesannees(beaucoup, 60);
    ASSERT_LE(barres.size(), 60U);
    int tous = 0;
    for (const BarreAnnees& une : barres) {
        EXPECT_LE(une.annee, une.derniere);
        tous += une.nombre;
    }
    EXPECT_EQ(tous, 400);
    EXPECT_TRUE(barresdesannees({}, 60).empty());
    EXPECT_TRUE(barresdesannees(beaucoup, 0).empty());
}
