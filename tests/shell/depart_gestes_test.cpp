// What is pressed on the start page, and what comes of it.
#include "core/listes.h"
#include "platform/widgets/look/look.h"
#include "tests/shell/depart_support.h"

#include <QLabel>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class DepartGestes : public DepartTest {
protected:
    void trouve(const QString& texte) {
        tape(texte);
        EVENTUALLY(page().trouves().isVisible());
    }
    /// As a search tells of its rows.
    static std::vector<DocumentTrouve> articles(int nombre) {
        std::vector<DocumentTrouve> tous;
        for (int numero = 1; numero <= nombre; ++numero)
            tous.push_back({decoupecle(u"CO"_s + sixchiffres(numero)), u"Article %1"_s.arg(numero)});
        return tous;
    }
    NoteLine* sansderniers() const { return page().findChild<NoteLine*>(u"sansderniers"_s); }
    QColor encre() const { return sansderniers()->findChild<QLabel*>()->palette().color(QPalette::WindowText); }
};

} // namespace

TEST_F(DepartGestes, ItsButtonsLeadToTheListAndToTheForm) {
    commence();
    EVENTUALLY(page().isVisible());
    trouve(u"article"_s);
    bouton(u"touslesresultats"_s)->click();
    EVENTUALLY(volet().isVisible());
    EVENTUALLY(programme->selection().liste().lignes() == 12);
    EXPECT_EQ(barreetat().panelText(u"wait"_s).trimmed(), u"12 documents");
    EXPECT_EQ(programme->recherches().formulaire(), nullptr);
    bouton(u"recherchedetaillee"_s)->click();
    ASSERT_NE(programme->recherches().formulaire(), nullptr);
    EXPECT_TRUE(programme->recherches().formulaire()->isVisible());
}

TEST_F(DepartGestes, AnEmptyFieldPutsNothingIntoTheList) {
    commence();
    EVENTUALLY(page().isVisible());
    champ().setText(u"  "_s);
    QTest::keyClick(&champ(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_FALSE(volet().isVisible());
    EXPECT_TRUE(page().collections().isVisible());
}

TEST_F(DepartGestes, NothingForTheListIsSaidInTheStatusBar) {
    commence();
    EVENTUALLY(page().isVisible());
    tape(u"zzz"_s);
    QTest::keyClick(&champ(), Qt::Key_Return);
    EVENTUALLY(!barreetat().panelText(u"wait"_s).isEmpty());
    EXPECT_EQ(barreetat().panelText(u"wait"_s),
              textecompte(0, [](Texte numero) { return mots(static_cast<int>(numero)); }));
    QCoreApplication::processEvents();
    EXPECT_TRUE(bilan()->text().isEmpty()) << "the list answers, and the page no more";
}

TEST_F(DepartGestes, BehindTheLastRowComesTheButtonAndBeforeTheFirstTheField) {
    commence();
    EVENTUALLY(page().isVisible());
    trouve(u"crédit"_s);
    QTest::keyClick(&champ(), Qt::Key_Down);
    EXPECT_TRUE(page().trouves().lignes()[0]->hasFocus());
    QTest::keyClick(page().trouves().lignes()[0], Qt::Key_End);
    EXPECT_TRUE(page().trouves().lignes()[1]->hasFocus());
    QTest::keyClick(page().trouves().lignes()[1], Qt::Key_Down);
    EXPECT_TRUE(bouton(u"touslesresultats"_s)->hasFocus());
    page().trouves().lignes()[0]->setFocus();
    QTest::keyClick(page().trouves().lignes()[0], Qt::Key_Up);
    EXPECT_TRUE(champ().hasFocus());
}

TEST_F(DepartGestes, WhoWalksTheRowsStaysAmongThemWhenMoreAreFound) {
    commence();
    EVENTUALLY(page().isVisible());
    champ().setFocus();
    page().montretrouves(articles(3), std::nullopt);
    EVENTUALLY(page().trouves().isVisible());
    EXPECT_TRUE(champ().hasFocus());
    EXPECT_EQ(bilan()->text(), mots(9627, {u"3"_s}));
    page().trouves().lignes()[1]->setFocus();
    LigneDepart* celle = page().trouves().lignes()[1];
    page().montretrouves(articles(3), 3);
    EXPECT_EQ(page().trouves().lignes()[1], celle) << "the same rows stay";
    EXPECT_TRUE(celle->hasFocus());
    page().montretrouves(articles(5), 5);
    EXPECT_TRUE(page().trouves().lignes()[0]->hasFocus());
    page().montretrouves({}, 0);
    EXPECT_TRUE(champ().hasFocus()) << "there are none any more";
}

TEST_F(DepartGestes, TheHintGoesWithTheFirstDocumentAndFollowsThePalette) {
    commence();
    EVENTUALLY(page().isVisible());
    ASSERT_NE(sansderniers(), nullptr);
    EXPECT_TRUE(sansderniers()->isVisible());
    const QPalette avant = QApplication::palette();
    for (const look::Theme theme : {look::Theme::Dark, look::Theme::Light}) {
        QApplication::setPalette(look::palette(theme));
        EVENTUALLY(encre() == look::palette(theme).color(QPalette::PlaceholderText));
    }
    QApplication::setPalette(avant);
    programme->ouvre(decoupecle(u"CO000002"));
    EVENTUALLY(!page().isVisible());
    entree("mdisposition", 4)->trigger();
    EVENTUALLY(page().isVisible());
    EXPECT_FALSE(sansderniers()->isVisible());
}

TEST_F(DepartGestes, WhatWasTypedIsForgottenWithTheFieldEmptied) {
    commence();
    EVENTUALLY(page().isVisible());
    tape(u"zzz"_s);
    champ().clear();
    QCoreApplication::processEvents();
    EXPECT_TRUE(page().collections().isVisible());
    EXPECT_TRUE(bilan()->text().isEmpty()) << "nothing was looked for";
}

TEST_F(DepartGestes, ADocumentThatOpensEndsWhatIsLookedFor) {
    commence();
    EVENTUALLY(page().isVisible());
    champ().insert(u"zzz"_s);
    page().hide();
    QCoreApplication::processEvents();
    EXPECT_TRUE(bilan()->text().isEmpty());
}
