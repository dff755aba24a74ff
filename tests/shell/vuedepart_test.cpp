// The start page by itself: when it counts, where the Tab key stops, how it lies.
#include "core/cle.h"
#include "shell/groupedepart.h"
#include "shell/vuedepart.h"
#include "tests/support/eventually.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class VueDepartTest : public testing::Test {
protected:
    VueDepartTest()
        : vue([](Texte numero) { return u"Texte %1 de la page"_s.arg(static_cast<int>(numero)); },
              {[this] {
                   ++pages;
                   PageDepart page;
                   for (int indice = 0; indice < nombredecollections; ++indice)
                       page.collections.push_back({indice, u"Collection du rang %1"_s.arg(indice)});
                   for (int rang = 0; rang < derniers; ++rang)
                       page.derniers.push_back({rang, 0, u"Document du rang %1"_s.arg(rang)});
                   return page;
               },
               [this](int indice) {
                   ++comptes;
                   return indice == 0 ? 0 : 5;
               }}) {
        vue.resize(900, 700);
        vue.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&vue));
        EVENTUALLY(!lignes()[0]->suite().isEmpty());
        QCoreApplication::processEvents();
    }
    const std::vector<LigneDepart*>& lignes() const { return vue.collections().lignes(); }
    QWidget& feuille() const { return *vue.findChild<QWidget*>(u"feuille"_s); }

    int pages = 0;
    int comptes = 0;
    int derniers = 0;
    VueDepart vue;
};

} // namespace

TEST_F(VueDepartTest, DocumentsAreCountedOnceAndThePageIsAskedForEachTime) {
    EXPECT_EQ(comptes, nombredecollections);
    for (int fois = 2; fois < 4; ++fois) {
        vue.hide();
        vue.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&vue));
        vue.viewport()->repaint();
        QCoreApplication::processEvents();
        EXPECT_EQ(pages, fois);
    }
    EXPECT_EQ(comptes, nombredecollections);
    EXPECT_EQ(lignes().size(), std::size_t(nombredecollections)) << "the same rows";
}

TEST_F(VueDepartTest, TheTabKeyStopsAtTheFirstCollectionThatHasDocuments) {
    EXPECT_FALSE(lignes()[0]->isEnabled());
    EXPECT_EQ(lignes()[0]->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(lignes()[1]->focusPolicy(), Qt::TabFocus);
}

TEST_F(VueDepartTest, TheSheetHangsAThirdDownWithHoweverManyColumns) {
    const auto pend = [this] {
        const int libre = vue.viewport()->height() - feuille().height();
        return libre > 24 && feuille().y() == libre / 3;
    };
    EVENTUALLY(pend());
    vue.resize(360, 700);
    EVENTUALLY(lignes()[10]->x() == lignes()[0]->x());
    EVENTUALLY(pend());
    vue.resize(900, 700);
    EVENTUALLY(lignes()[10]->x() > lignes()[0]->x());
    EVENTUALLY(pend());
}

TEST_F(VueDepartTest, TheFieldStandsWhereItDoesWhateverIsBelowIt) {
    const auto haut = [this] {
        QCoreApplication::sendPostedEvents();
        return vue.champ().mapTo(&vue, QPoint()).y();
    };
    const int avant = haut();
    vue.champ().setText(u"bail"_s);
    vue.montretrouves({}, 0);
    EXPECT_EQ(haut(), avant);
    vue.resize(900, 760);
    EXPECT_GT(haut(), avant);
    vue.resize(900, 700);
    EXPECT_EQ(haut(), avant);
}

TEST_F(VueDepartTest, TheArrowKeysLeadFromGroupToGroupAndStayInTheLastRow) {
    derniers = 2;
    vue.hide();
    vue.show();
    const auto ici = [this] { return vue.window()->focusWidget(); };
    const std::vector<LigneDepart*>& dessous = vue.derniers().lignes();
    ASSERT_EQ(dessous.size(), 2U);
    dessous.front()->setFocus();
    QTest::keyClick(dessous.front(), Qt::Key_Up);
    EXPECT_EQ(ici(), lignes().back());
    QTest::keyClick(lignes().back(), Qt::Key_Down);
    EXPECT_EQ(ici(), dessous.front());
    QTest::keyClick(dessous.front(), Qt::Key_Down);
    QTest::keyClick(dessous.back(), Qt::Key_Down);
    EXPECT_EQ(ici(), dessous.back()) << "there is nothing below";
}

TEST_F(VueDepartTest, OnlyARowThatCanBePressedLightsUpUnderThePointer) {
    const auto change = [](LigneDepart& ligne) {
        const QImage avant = ligne.grab().toImage();
        ligne.setAttribute(Qt::WA_UnderMouse, true);
        const bool autre = ligne.grab().toImage() != avant;
        ligne.setAttribute(Qt::WA_UnderMouse, false);
        return autre;
    };
    EXPECT_TRUE(change(*lignes()[1]));
    EXPECT_FALSE(change(*lignes()[0])) << "it has no documents";
}

TEST_F(VueDepartTest, TheDownKeyStaysInTheFieldWhereNothingIsBelow) {
    for (LigneDepart* ligne : lignes())
        ligne->setEnabled(false);
    vue.champ().setFocus();
    QTest::keyClick(&vue.champ(), Qt::Key_Down);
    EXPECT_EQ(vue.window()->focusWidget(), &vue.champ());
}
