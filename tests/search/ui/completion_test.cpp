// Words proposed while one is typed.
#include "search/motscommencant.h"
#include "search/ui/completionmots.h"
#include "tests/search/ui/formulaire_support.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QScreen>

using namespace velm;
using namespace velm::test;

namespace {

class CompletionTest : public FormulaireTest {
protected:
    void SetUp() override {
        FormulaireTest::SetUp();
        onglet(Onglet::Mots);
        mots_ = &champ(u"Textedico"_s);
        mots_->setFocus();
        completion_ = mots_->findChild<CompletionMots*>();
        ASSERT_NE(completion_, nullptr);
    }
    static QWidget* popup() { return QApplication::activePopupWidget(); }
    static QStringList proposes() {
        QStringList tous;
        if (const auto* vue = qobject_cast<QAbstractItemView*>(popup())) {
            for (int rang = 0; rang < vue->model()->rowCount(); ++rang)
                tous << vue->model()->index(rang, 0).data().toString();
        }
        return tous;
    }

    QLineEdit* mots_ = nullptr;
    CompletionMots* completion_ = nullptr;
};

} // namespace

TEST_F(CompletionTest, WordsOfTheIndexAreProposedAfterAPause) {
    QTest::keyClicks(mots_, u"bail cl"_s);
    EXPECT_FALSE(completion_->montree());
    EVENTUALLY(completion_->montree());
    EXPECT_EQ(proposes(), (QStringList{u"clause"_s, u"clauses"_s}));
    EXPECT_EQ(mots_->text(), u"bail cl");
}

TEST_F(CompletionTest, AChosenWordTakesThePlaceOfTheOneTyped) {
    QTest::keyClicks(mots_, u"bail cl"_s);
    EVENTUALLY(completion_->montree());
    ASSERT_NE(popup(), nullptr);
    QTest::keyClick(popup(), Qt::Key_Down);
    QTest::keyClick(popup(), Qt::Key_Down);
    QTest::keyClick(popup(), Qt::Key_Return);
    EXPECT_EQ(mots_->text(), u"bail clauses");
    EXPECT_FALSE(completion_->montree());
    EXPECT_TRUE(volet.publications.empty());
    QTest::keyClick(mots_, Qt::Key_Return);
    EXPECT_EQ(volet.publications.size(), 1U);
    EXPECT_EQ(lignes(), (QStringList{u"bail : inconnu"_s, u"clauses : 2"_s}));
}

TEST_F(CompletionTest, ReturnWithoutAChoiceSearchesWhatWasTyped) {
    QTest::keyClicks(mots_, u"claus"_s);
    EVENTUALLY(completion_->montree());
    QTest::keyClick(popup(), Qt::Key_Return);
    EXPECT_EQ(mots_->text(), u"claus");
    EXPECT_EQ(lignes(), QStringList{u"claus : inconnu"_s});
    EXPECT_FALSE(completion_->montree());
}

TEST_F(CompletionTest, TypingOnGoesIntoTheLine) {
    QTest::keyClicks(mots_, u"cl"_s);
    EVENTUALLY(completion_->montree());
    QTest::keyClicks(popup(), u"auses"_s);
    EXPECT_EQ(mots_->text(), u"clauses");
    EVENTUALLY(!completion_->montree());
    QTest::keyClicks(mots_, u"*"_s);
    QTest::keyClicks(mots_, u" co"_s);
    EVENTUALLY(completion_->montree());
    EXPECT_EQ(proposes(), QStringList{u"contrat"_s});
    QTest::keyClick(popup(), Qt::Key_Escape);
    EXPECT_FALSE(completion_->montree());
    EXPECT_TRUE(formulaire->isVisible());
}

TEST_F(CompletionTest, ASearchTakesTheProposalsBack) {
    QTest::keyClicks(mots_, u"cl"_s);
    QTest::keyClick(mots_, Qt::Key_Return);
    QTest::qWait(2 * CompletionMots::pause);
    EXPECT_FALSE(completion_->montree());
}

TEST_F(CompletionTest, OnlyTheWordUnderTheCaretCounts) {
    const QString separateurs = u" ,'"_s;
    EXPECT_EQ(mottape(u"l'eau", 5, separateurs), (MotTape{2, u"eau"_s}));
    EXPECT_EQ(mottape(u"une clause", 3, separateurs), (MotTape{0, u"une"_s}));
    EXPECT_EQ(mottape(u"clause", 3, separateurs), std::nullopt);
    EXPECT_EQ(mottape(u"c", 1, separateurs), std::nullopt);
    EXPECT_EQ(mottape(u"clau*", 5, separateurs), std::nullopt);
    EXPECT_EQ(mottape(u"L12", 3, separateurs), std::nullopt);
    EXPECT_EQ(mottape(u"une ", 4, separateurs), std::nullopt);
    EXPECT_EQ(mottape(u"une", 9, separateurs), std::nullopt);
}

TEST_F(CompletionTest, WordsAreFoundWhateverTheirCaseAndAccents) {
    EXPECT_EQ(motscommencant(corpus, u"PRE"_s, 10), QStringList{u"prêt"_s});
    EXPECT_EQ(motscommencant(corpus, u"prê"_s, 10), QStringList{u"prêt"_s});
    EXPECT_EQ(motscommencant(corpus, u"c"_s, 2), (QStringList{u"clause"_s, u"clauses"_s}));
    EXPECT_EQ(motscommencant(corpus, u"clause"_s, 10), QStringList{u"clauses"_s});
    EXPECT_TRUE(motscommencant(corpus, u"zz'\"%"_s, 10).isEmpty());
    EXPECT_TRUE(motscommencant(corpus, QString(), 10).isEmpty());
    corpus.dico().setIndex(u"primarykey"_s);
    corpus.dico().seek(Seek::Equal, u"CONTRAT"_s);
    motscommencant(corpus, u"cl"_s, 10);
    EXPECT_EQ(corpus.dico().text(u"mot"_s), u"CONTRAT");
    corpus.fermebase();
    EXPECT_TRUE(motscommencant(corpus, u"cl"_s, 10).isEmpty());
}

/// On a low screen, above and below the field.
TEST(CompletionMotsTest, NoRowOfTheListIsCut) {
    QWidget fenetre;
    auto* ligne = new QLineEdit(&fenetre);
    const auto mots = [](const QString&, int nombre) { return QStringList(nombre, u"garantie"_s); };
    auto* completion = new CompletionMots(ligne, mots, u" "_s, u"Mots"_s);
    QAbstractItemView& liste = *completion->findChild<QCompleter*>()->popup();
    QFont grande = fenetre.font();
    grande.setPixelSize(60);
    liste.setFont(grande);
    const int ecran = fenetre.screen()->availableGeometry().height();
    for (const int haut : {ecran / 5, ecran / 2 - 20, ecran * 3 / 4}) {
        fenetre.setGeometry(0, haut, 300, 40);
        fenetre.show();
        QApplication::setActiveWindow(&fenetre);
        ligne->setFocus();
        ligne->clear();
        QTest::keyClicks(ligne, u"ga"_s);
        EVENTUALLY(completion->montree());
        const int rangee = liste.sizeHintForRow(0);
        EXPECT_EQ(liste.viewport()->height() % rangee, 0) << haut;
        EXPECT_GE(liste.viewport()->height(), rangee);
        EXPECT_LE(liste.viewport()->height(), 10 * rangee);
        const QRect champ = QRect(ligne->mapToGlobal(QPoint()), ligne->size()).adjusted(0, 4, 0, -4);
        EXPECT_FALSE(liste.geometry().intersects(champ)) << haut;
        EXPECT_LT(std::min(std::abs(liste.geometry().top() - champ.bottom()),
                           std::abs(liste.geometry().bottom() - champ.top())),
                  12)
            << "beside the field";
        completion->renonce();
    }
}
