// The words of a search in a document window: marks, the walk, the block, and the lists that become a selection.
#include "document/ui/blocrecherche.h"
#include "document/ui/listedeliens.h"
#include "platform/widgets/look/noteline.h"
#include "platform/widgets/text/hitstrip.h"
#include "tests/document/ui/textes_base.h"
#include "tests/support/eventually.h"

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QTextCursor>
#include <QTextDocument>
#include <QToolButton>

#include <set>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int rose = 0x8000FF;

class TextesMotsTest : public BaseTextes {
protected:
    /// A window that knows how to mark and how to look words up.
    Textes& fenetre(const char* cle) {
        banc->mots.connue = true;
        celle = std::make_unique<Textes>(indicedetype(QString::fromLatin1(cle, 2)), banc->contexte());
        celle->resize(900, 700);
        celle->show();
        celle->lecture().affiche(decoupecle(QString::fromLatin1(cle)), QString());
        celle->lecture().parcours().referencecourante = QString::fromLatin1(cle);
        return *celle;
    }
    void SetUp() override {
        BaseTextes::SetUp();
        banc->mots.commemarquer = {rose, true, false, true};
    }
    void TearDown() override {
        celle.reset();
        BaseTextes::TearDown();
    }
    static bool visible(Textes& fenetre, const QString& cle) { return fenetre.barrechild().isButtonVisible(cle); }
    static int nombredemarques(Textes& fenetre) {
        int nombre = 0;
        const RichText& texte = fenetre.vue().control().richText();
        texte.forEachRun(0, texte.length(), [&](qsizetype, qsizetype, FormatId format) {
            nombre += texte.charFormat(format).colour == rose ? 1 : 0;
        });
        return nombre;
    }

    std::unique_ptr<Textes> celle;
};

} // namespace

TEST_F(TextesMotsTest, WordsThatComeWithADocumentAreMarkedAndShowTheButtons) {
    Textes& ici = fenetre("CO000002");
    EXPECT_FALSE(visible(ici, u"motsuivant"_s));
    ici.recoitmots(u"ligne"_s, u"texte"_s);
    for (const QString& cle : {u"motprécédent"_s, u"motsuivant"_s, u"marqueauto"_s}) {
        EXPECT_TRUE(visible(ici, cle)) << cle.toStdString();
        EXPECT_TRUE(ici.barrechild().isButtonEnabled(cle));
    }
    EXPECT_TRUE(ici.barrechild().value(u"marqueauto"_s));
    // "Texte" stands at the very first character and is not marked.
    EXPECT_EQ(nombredemarques(ici), 80);
    EXPECT_EQ(ici.lecture().mots().mot1, u"ligne"_s);
    EXPECT_EQ(ici.lecture().mots().mot2, u"texte"_s);
    EXPECT_EQ(ici.lecture().mots().posdepartrecherche, 0);
}

TEST_F(TextesMotsTest, TheMarksShowBesideTheScrollBarAndTheirCurrentOneDiffers) {
    Textes& ici = fenetre("CO000002");
    ici.recoitmots(u"ligne 7"_s, QString());
    const auto& barre = *ici.vue().findChild<HitStrip*>();
    EXPECT_EQ(barre.ticks().size(), 11U);
    EXPECT_TRUE(ici.vue().seenHits().current.isNull());
    presse(ici, u"motsuivant"_s);
    EXPECT_FALSE(ici.vue().seenHits().current.isNull());
    presse(ici, u"marqueauto"_s);
    EXPECT_TRUE(barre.ticks().empty());
}

TEST_F(TextesMotsTest, TheHitThatTheWalkReachesIsNotAtTheEdge) {
    Textes& ici = fenetre("CO000002");
    ici.recoitmots(u"ligne"_s, QString());
    for (int i = 0; i < 60; ++i) {
        presse(ici, u"motsuivant"_s);
        const QRect ou = ici.vue().seenHits().current;
        ASSERT_FALSE(ou.isNull()) << i;
        ASSERT_LT(ou.bottom(), ici.vue().viewport()->height() - 40) << i;
    }
}

TEST_F(TextesMotsTest, NoWordHidesTheButtons) {
    Textes& ici = fenetre("CO000002");
    ici.recoitmots(u"ligne"_s, QString());
    ici.recoitmots(QString(), QString());
    for (const QString& cle : {u"motprécédent"_s, u"motsuivant"_s, u"marqueauto"_s})
        EXPECT_FALSE(visible(ici, cle)) << cle.toStdString();
    EXPECT_EQ(nombredemarques(ici), 0);
}

TEST_F(TextesMotsTest, AutomaticMarkingOffMarksNothingOnOpening) {
    banc->mots.commemarquer.automatique = false;
    Textes& ici = fenetre("CO000002");
    ici.recoitmots(u"ligne"_s, QString());
    EXPECT_EQ(nombredemarques(ici), 0);
    EXPECT_FALSE(ici.barrechild().value(u"marqueauto"_s));
    EXPECT_TRUE(visible(ici, u"marqueauto"_s));
    presse(ici, u"marqueauto"_s);
    EXPECT_EQ(nombredemarques(ici), 80);
    EXPECT_EQ(ici.focusWidget(), &ici.vue());
}

TEST_F(TextesMotsTest, ReleasingTheMarkButtonReloadsTheTextWithTheCaretAtTheStart) {
    Textes& ici = fenetre("CO000002");
    ici.recoitmots(u"ligne"_s, QString());
    ici.vue().setSelStart(200);
    ici.barrechild().setValue(u"abc"_s, true);
    presse(ici, u"marqueauto"_s);
    EXPECT_EQ(nombredemarques(ici), 0);
    EXPECT_EQ(ici.vue().selStart(), 0);
    EXPECT_FALSE(ici.barrechild().value(u"marqueauto"_s));
    EXPECT_FALSE(ici.barrechild().value(u"abc"_s));
    EXPECT_EQ(ici.lecture().mots().mot1, u"ligne"_s);
}

TEST_F(TextesMotsTest, TheViewAndNotTheCaretGoesToTheFirstMark) {
    Textes& ici = fenetre("CO000002");
    ici.recoitmots(u"Ligne 70"_s, QString());
    EXPECT_EQ(ici.vue().selStart(), 0);
    EXPECT_GT(ici.vue().verticalScrollBar()->value(), 0);
    const QTextCursor marque = ici.vue().document()->find(u"Ligne 70"_s);
    EXPECT_TRUE(ici.vue().viewport()->rect().contains(ici.vue().cursorRect(marque)));
}

TEST_F(TextesMotsTest, TheButtonsWalkThroughTheHitsAndStayAtTheLast) {
    Textes& ici = fenetre("CO000002");
    ici.recoitmots(u"ligne 7"_s, QString());
    QList<qsizetype> debuts;
    for (int i = 0; i < 12; ++i) {
        presse(ici, u"motsuivant"_s);
        debuts << ici.vue().selStart();
        EXPECT_EQ(ici.vue().selLength(), 7);
    }
    // "Ligne 7" and "Ligne 70" to "Ligne 79".
    EXPECT_TRUE(std::is_sorted(debuts.begin(), debuts.end()));
    EXPECT_EQ(debuts.at(10), debuts.at(11));
    EXPECT_EQ(std::set<qsizetype>(debuts.begin(), debuts.end()).size(), 11);
    presse(ici, u"motprécédent"_s);
    EXPECT_EQ(ici.vue().selStart(), debuts.at(9));
}

TEST_F(TextesMotsTest, ADocumentOpenedByOtherMeansKeepsTheWordsButIsNotMarked) {
    Textes& ici = fenetre("CO000002");
    ici.recoitmots(u"ligne"_s, u"texte"_s);
    ici.lecture().affiche({u"CO"_s, u"000003"_s}, QString());
    EXPECT_EQ(ici.lecture().mots().mot1, u"ligne"_s);
    EXPECT_TRUE(visible(ici, u"motsuivant"_s));
    EXPECT_EQ(nombredemarques(ici), 0);
    EXPECT_FALSE(ici.barrechild().value(u"marqueauto"_s));
}

TEST_F(TextesMotsTest, OtherWordsForTheSameDocumentTakeTheOldMarksAway) {
    Textes& ici = fenetre("CO000002");
    ici.recoitmots(u"ligne 1"_s, QString());
    EXPECT_EQ(nombredemarques(ici), 11);
    ici.recoitmots(u"ligne 20"_s, QString());
    EXPECT_EQ(nombredemarques(ici), 1);
}

// ---- the block

TEST_F(TextesMotsTest, TheBlockLooksWordsUpInTheCollectionOfItsWindow) {
    Textes& ici = fenetre("CO000002");
    presse(ici, u"barrehoriz"_s);
    presse(ici, u"recherchedico"_s);
    auto* boite = controle<QLineEdit>(ici, u"Textedico"_s);
    EXPECT_EQ(boite, banc->mots.completee);
    EXPECT_EQ(ici.focusWidget(), boite);
    banc->mots.lignes = {u"vente : 12 ( 3 )"_s, u"xyz : inconnu"_s};
    QTest::keyClicks(boite, u"vente xyz"_s);
    QTest::keyClick(boite, Qt::Key_Return);
    EXPECT_EQ(banc->mots.demandes, QStringList{u"CO:vente xyz"_s});
    auto* resultat = controle<QListWidget>(ici, u"resultat"_s);
    EXPECT_EQ(resultat->count(), 2);
    banc->mots.lignes = {u"vente : 12 ( 3 )"_s};
    QTest::mouseClick(controle<QPushButton>(ici, u"cmdokdico"_s), Qt::LeftButton);
    EXPECT_EQ(banc->mots.demandes.size(), 2);
    EXPECT_EQ(resultat->count(), 1);
}

TEST_F(TextesMotsTest, TheBlockSaysWhatCameOfItsSearchAndAsksForAllOfIt) {
    Textes& ici = fenetre("CO000002");
    presse(ici, u"barrehoriz"_s);
    presse(ici, u"recherchedico"_s);
    auto* boite = controle<QLineEdit>(ici, u"Textedico"_s);
    banc->mots.bilan = {u"200 premiers"_s, false, true};
    QTest::keyClicks(boite, u"vente"_s);
    QTest::keyClick(boite, Qt::Key_Return);
    auto* note = ici.findChild<BlocRecherche*>()->findChild<NoteLine*>();
    EXPECT_EQ(note->text(), u"200 premiers");
    QTest::mouseClick(note->link(), Qt::LeftButton);
    EXPECT_EQ(banc->mots.demandes, (QStringList{u"CO:vente"_s, u"CO:vente!"_s}));
}

TEST_F(TextesMotsTest, AClickOnALineOfTheBlockCopiesItsWordAndSearchesAgain) {
    Textes& ici = fenetre("JP000007");
    presse(ici, u"barrehoriz"_s);
    presse(ici, u"recherchedico"_s);
    auto* boite = controle<QLineEdit>(ici, u"Textedico"_s);
    auto* resultat = controle<QListWidget>(ici, u"resultat"_s);
    banc->mots.lignes = {u"prix : 12 ( 3 )"_s, u"rien du tout"_s, u"xyz : inconnu"_s};
    QTest::keyClicks(boite, u"prix"_s);
    QTest::keyClick(boite, Qt::Key_Return);
    const auto clique = [&](int ligne) {
        QTest::mouseClick(resultat->viewport(), Qt::LeftButton, {},
                          resultat->visualItemRect(resultat->item(ligne)).center());
    };
    clique(1);
    EXPECT_EQ(banc->mots.demandes.size(), 1);
    clique(2);
    EXPECT_EQ(boite->text(), u"xyz"_s);
    EXPECT_EQ(banc->mots.demandes, (QStringList{u"JP:prix"_s, u"JP:xyz"_s}));
    EXPECT_EQ(resultat->count(), 3);
}

TEST_F(TextesMotsTest, ADoubleClickOnALineOfTheBlockSearchesOnce) {
    Textes& ici = fenetre("CO000002");
    presse(ici, u"barrehoriz"_s);
    presse(ici, u"recherchedico"_s);
    auto* resultat = controle<QListWidget>(ici, u"resultat"_s);
    banc->mots.lignes = {u"prix : 12 ( 3 )"_s};
    controle<BlocRecherche>(ici, u"blocrecherche"_s)->ajouteligne(banc->mots.lignes.first());
    const QPoint ou = resultat->visualItemRect(resultat->item(0)).center();
    QTest::mouseClick(resultat->viewport(), Qt::LeftButton, {}, ou);
    QTest::mouseDClick(resultat->viewport(), Qt::LeftButton, {}, ou);
    // The list tells the click when the button is let go the second time.
    QTest::mouseRelease(resultat->viewport(), Qt::LeftButton, {}, ou);
    EXPECT_EQ(banc->mots.demandes, QStringList{u"CO:prix"_s});
}

TEST_F(TextesMotsTest, WithoutASearchTheBlockIsOff) {
    Textes& ici = ouvre("CO000002");
    EXPECT_FALSE(controle<QLineEdit>(ici, u"Textedico"_s)->isEnabled());
}

// ---- lists that become the selection list

TEST_F(TextesMotsTest, TheEntriesOfTheListsHandTheirKeysOnInTheOrderOfTheGrid) {
    Textes& ici = ouvre("CO000001");
    QSignalSpy selection(&ici, &Textes::selection);
    QTest::mouseClick(ici.volet().liens().bouton(), Qt::LeftButton);
    auto* menu = controle<QMenu>(ici, u"ContextMenuLiens"_s);
    auto* entree = menu->findChild<QAction*>(u"MnuLiensSelection"_s);
    emit ici.volet().liens().menudemande(ici.mapToGlobal(QPoint(5, 5)));
    EXPECT_TRUE(entree->isEnabled());
    entree->trigger();
    menu->close();
    ASSERT_EQ(selection.size(), 1);
    EXPECT_EQ(selection.first().first().toStringList(), (QStringList{u"CO000003"_s, u"CO000002"_s}));
}

TEST_F(TextesMotsTest, AnEmptyListHandsNothingOn) {
    Textes& ici = ouvre("CO000003");
    QTest::mouseClick(ici.volet().liens().bouton(), Qt::LeftButton);
    auto* menu = controle<QMenu>(ici, u"ContextMenuLiens"_s);
    emit ici.volet().liens().menudemande(ici.mapToGlobal(QPoint(5, 5)));
    EXPECT_FALSE(menu->findChild<QAction*>(u"MnuLiensSelection"_s)->isEnabled());
    menu->close();
}
