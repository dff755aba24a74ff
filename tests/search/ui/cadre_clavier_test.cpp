// The keys in the search form, and where the focus is.
#include "cadre_support.h"

using namespace velm;
using namespace velm::test;

TEST_F(CadreTest, TheTabKeyReachesTheCollectionsOnceAndTheArrowKeysWalkThem) {
    barre().widget(u"CO"_s)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_TRUE(barre().widget(u"EU"_s)->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_FALSE(barre().value(u"EU"_s));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_FALSE(barre().isAncestorOf(QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_TRUE(barre().widget(u"EU"_s)->hasFocus());
    for (const auto& [touche, code] : {std::pair(Qt::Key_End, u"DI"_s), std::pair(Qt::Key_Right, u"DI"_s),
                                       std::pair(Qt::Key_Home, u"CO"_s), std::pair(Qt::Key_Up, u"CO"_s)}) {
        QTest::keyClick(QApplication::focusWidget(), touche);
        EXPECT_TRUE(barre().widget(code)->hasFocus()) << qPrintable(code);
    }
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_GT(QApplication::focusWidget()->y(), barre().widget(u"CO"_s)->y());
    EXPECT_EQ(QApplication::focusWidget()->x(), barre().widget(u"CO"_s)->x());
    EXPECT_FALSE(barre().value(u"??"_s));
    EXPECT_EQ(barre().keyAt(0) + barre().keyAt(12), QString());
}

TEST_F(CadreTest, AFormThatIsTooLowIsScrolledToWhereTheKeysGo) {
    formulaire->resize(700, 240);
    onglet(Onglet::Criteres);
    const auto vue = [this](const QWidget& celui) {
        const auto& fenetre = *formulaire->findChild<QScrollArea*>()->viewport();
        return fenetre.rect().contains(QRect(celui.mapTo(&fenetre, QPoint()), celui.size()));
    };
    champ(u"textemois"_s).setFocus();
    QTest::keyClick(&champ(u"textemois"_s), Qt::Key_Tab);
    EVENTUALLY(vue(champ(u"texteannée"_s)));
    QScrollBar& barre = *formulaire->findChild<QScrollArea*>()->verticalScrollBar();
    const auto enbas = [&] {
        barre.setValue(barre.maximum());
        return !vue(champ(u"texterech(0)"_s));
    };
    ASSERT_TRUE(QTest::qWaitFor(enbas));
    champ(u"texterech(0)"_s).setFocus();
    EVENTUALLY(vue(champ(u"texterech(0)"_s)));
    onglet(Onglet::Rapide);
    barre.setValue(0);
    onglet(Onglet::Criteres);
    champ(u"texterech(1)"_s).setFocus();
    EVENTUALLY(vue(champ(u"texterech(1)"_s)));
    champ(u"textejour"_s).setFocus();
    formulaire->resize(700, 700);
    formulaire->resize(700, 260);
    EVENTUALLY(vue(champ(u"textejour"_s)));
}

TEST_F(CadreTest, TheSearchingButtonStaysTheDefaultOneWhereverTheFocusWas) {
    for (const auto& [celui, nom] : {std::pair(Onglet::Mots, u"cmdokdico"_s), std::pair(Onglet::Criteres, u"cmdok"_s),
                                     std::pair(Onglet::Rapide, u"cmdokrapide"_s)}) {
        onglet(celui);
        EXPECT_TRUE(bouton(nom).isDefault()) << nom.toStdString();
        bouton(nom).setFocus();
        QTest::keyClick(&bouton(nom), Qt::Key_Tab);
        EXPECT_FALSE(bouton(nom).hasFocus());
        EXPECT_TRUE(bouton(nom).isDefault()) << nom.toStdString();
    }
}

TEST_F(CadreTest, TheActiveFormPutsTheFocusIntoTheTextOfItsTab) {
    const std::array boites{u"texterapide"_s, u"texterech(0)"_s, u"Textedico"_s};
    for (int rang = 0; rang < 3; ++rang) {
        onglets().setCurrentIndex(rang);
        barre().widget(u"CO"_s)->setFocus();
        formulaire->activation();
        EXPECT_TRUE(champ(boites.at(static_cast<std::size_t>(rang))).hasFocus()) << rang;
    }
}

TEST_F(CadreTest, AClickThatMakesTheFormActiveKeepsTheFocusWhereItFellInTheForm) {
    QWidget cadre;
    auto* dehors = new QLineEdit(&cadre);
    formulaire->setParent(&cadre);
    formulaire->show();
    cadre.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&cadre));
    QTest::mousePress(&cadre, Qt::LeftButton);
    const auto apres = [this](QWidget* ici) {
        ici->setFocus();
        formulaire->activation();
        return QApplication::focusWidget();
    };
    EXPECT_EQ(apres(barre().widget(u"CO"_s)), barre().widget(u"CO"_s));
    EXPECT_EQ(apres(dehors), &champ(u"texterapide"_s));
    EXPECT_EQ(apres(formulaire.get()), &champ(u"texterapide"_s));
    QTest::mouseRelease(&cadre, Qt::LeftButton);
    formulaire->setParent(nullptr);
}

TEST_F(CadreTest, KeysAndTheWheelLeaveTheTextThatIsBeingTyped) {
    champ(u"texterapide"_s).setText(u"bail"_s);
    clique(u"cmdokrapide"_s);
    champ(u"texterapide"_s).setText(u"vente"_s);
    champ(u"texterapide"_s).setFocus();
    QTest::keyClick(&champ(u"texterapide"_s), Qt::Key_Up);
    QTest::keyClick(&champ(u"texterapide"_s), Qt::Key_PageUp);
    EXPECT_EQ(champ(u"texterapide"_s).text(), u"vente");
    QTest::keyClick(&champ(u"texterapide"_s), Qt::Key_Down);
    auto* const boite = qobject_cast<QComboBox*>(champ(u"texterapide"_s).parentWidget());
    EXPECT_TRUE(boite->view()->isVisible());
    EXPECT_EQ(champ(u"texterapide"_s).text(), u"vente");
    boite->hidePopup();
}

TEST_F(CadreTest, TheTabKeyGoesAsOneReads) {
    const auto marche = [this](const QString& debut, qsizetype pas) {
        champ(debut).setFocus();
        QStringList noms{debut};
        while (noms.size() < pas) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            noms << QApplication::focusWidget()->objectName();
        }
        return noms;
    };
    EXPECT_EQ(marche(u"texterapide"_s, 4),
              (QStringList{u"texterapide"_s, u"combonombre"_s, u"cmdokrapide"_s, u"annulerrapide"_s}));
    onglet(Onglet::Criteres);
    EXPECT_EQ(
        marche(u"texterech(0)"_s, 19),
        (QStringList{u"texterech(0)"_s, u"motentier(0)"_s, u"respectminmaj(0)"_s, u"conjonction"_s, u"texterech(1)"_s,
                     u"motentier(1)"_s, u"respectminmaj(1)"_s, u"emplacement(0)"_s, u"emplacement(1)"_s,
                     u"emplacement(2)"_s, u"combomotcle"_s, u"combotype"_s, u"textejour"_s, u"textemois"_s,
                     u"texteannée"_s, u"Option1"_s, u"cmdok"_s, u"annuler"_s, u"annulercriteres"_s}));
    onglet(Onglet::Mots);
    QStringList mots{u"Textedico"_s, u"checkandordico"_s, u"Combonombredico"_s, u"cmdokdico"_s, u"annulerdico"_s};
    EXPECT_EQ(marche(u"Textedico"_s, 5), mots);
    EXPECT_TRUE(un<QListWidget>(u"resultat"_s).isHidden()) << "as long as there is nothing to be said of the words";
    champ(u"Textedico"_s).setText(u"clause*"_s);
    clique(u"cmdokdico"_s);
    EXPECT_EQ(marche(u"Textedico"_s, 6), mots << u"resultat"_s);
}

TEST_F(CadreTest, KeysWalkTheTabs) {
    for (const auto& [touche, boite] :
         {std::pair(Qt::Key_PageDown, u"texterech(0)"_s), std::pair(Qt::Key_PageDown, u"Textedico"_s),
          std::pair(Qt::Key_PageDown, u"texterapide"_s), std::pair(Qt::Key_PageUp, u"Textedico"_s)}) {
        QTest::keyClick(QApplication::focusWidget(), touche, Qt::ControlModifier);
        EXPECT_TRUE(champ(boite).hasFocus()) << qPrintable(boite);
    }
}

TEST_F(CadreTest, AFormThatWaitsWithATabHasTheFocusInItsBoxWhenItComes) {
    QMainWindow fenetre;
    fenetre.setCentralWidget(formulaire.get());
    formulaire->hide();
    formulaire->setFocus();
    ASSERT_EQ(fenetre.focusWidget(), formulaire.get());
    onglet(Onglet::Mots);
    formulaire->show();
    fenetre.show();
    fenetre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    EXPECT_TRUE(champ(u"Textedico"_s).hasFocus());
    fenetre.takeCentralWidget();
}

TEST_F(CadreTest, AChangeOfTabsTakesTheFocusFromNothingElse) {
    QMainWindow fenetre;
    fenetre.setCentralWidget(formulaire.get());
    QLineEdit dehors(&fenetre);
    fenetre.show();
    fenetre.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&fenetre));
    for (QWidget* const autre : std::initializer_list<QWidget*>{&dehors, barre().widget(u"CO"_s)}) {
        autre->setFocus();
        ASSERT_TRUE(autre->hasFocus());
        onglet(Onglet::Criteres);
        EXPECT_TRUE(autre->hasFocus());
        onglet(Onglet::Rapide);
    }
    fenetre.takeCentralWidget();
}
