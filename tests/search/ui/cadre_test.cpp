// What the three tabs share: collections, options, focus, hiding, what is remembered.
#include "cadre_support.h"

using namespace velm;
using namespace velm::test;

TEST_F(CadreTest, TheFirstFormLooksIntoAllCollectionsForAllWords) {
    EXPECT_EQ(formulaire->windowTitle(), u"t2429");
    EXPECT_EQ(onglets().currentIndex(), 0);
    EXPECT_EQ(onglets().tabText(0), u"t2715");
    EXPECT_EQ(onglets().tabText(1), u"t2716");
    EXPECT_EQ(onglets().tabText(2), u"t7301");
    EXPECT_EQ(barre().buttonCount(), nombredecollections);
    EXPECT_EQ(enfonces(), touteslettres());
    EXPECT_EQ(barre().widget(barre().keyAt(11))->toolTip(), plainTip(u"t20"_s));
    EXPECT_EQ(barre().widget(barre().keyAt(11))->text(), u"t20") << "by their names";
    EXPECT_FALSE(barre().widget(barre().keyAt(1))->icon().isNull());
    EXPECT_TRUE(coche(u"checkandordico"_s).isChecked());
    for (int place = 0; place < 3; ++place)
        EXPECT_TRUE(coche(u"emplacement(%1)"_s.arg(place)).isChecked());
    EXPECT_EQ(combo(u"prefixe"_s).currentIndex(), 0);
    EXPECT_EQ(combo(u"conjonction"_s).currentText(), u"t2130");
    EXPECT_TRUE(option1());
    EXPECT_FALSE(option2possible());
    EXPECT_FALSE(progression().isVisible());
    EXPECT_EQ(combo(u"combonombre"_s).itemText(0), u"50");
    EXPECT_EQ(combo(u"Combonombredico"_s).itemText(2), u"t2718");
    for (const QString& nom : {u"cmdok"_s, u"cmdokrapide"_s, u"cmdokdico"_s})
        EXPECT_EQ(bouton(nom).text(), chercher);
    for (const QString& nom : {u"annuler"_s, u"annulerrapide"_s, u"annulerdico"_s})
        EXPECT_EQ(bouton(nom).text(), u"t1118");
}

TEST_F(CadreTest, AllCollectionsArePressedAndReleasedAtOnce) {
    clique(u"toutdéselect"_s);
    EXPECT_EQ(enfonces(), QByteArray());
    QTest::mouseClick(barre().widget(u"JP"_s), Qt::LeftButton);
    EXPECT_EQ(enfonces(), "C");
    clique(u"toutsélect"_s);
    EXPECT_EQ(enfonces(), touteslettres());
}

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

TEST_F(CadreTest, NoEntryOfAListIsSeenEmptyThoughItIsOne) {
    auto& prefixe = un<ListeAvecVide>(u"prefixe"_s);
    EXPECT_EQ(prefixe.itemText(0), u" ");
    EXPECT_EQ(prefixe.vu(prefixe.itemText(0)), u"t9736");
    EXPECT_EQ(prefixe.vu(prefixe.itemText(1)), u"t1501");
    onglet(Onglet::Criteres);
    const auto image = [&] { return prefixe.grab().toImage(); };
    const QImage dite = image();
    prefixe.setItemText(0, u"t9736"_s);
    EXPECT_EQ(image(), dite) << "as if it were written";
}

TEST_F(CadreTest, TheButtonsStandBelowTheLastField) {
    const auto ecart = [this](const QWidget& dessus, const QWidget& dessous) {
        return dessous.mapTo(formulaire.get(), QPoint()).y() -
               dessus.mapTo(formulaire.get(), QPoint(0, dessus.height())).y();
    };
    formulaire->resize(900, 900);
    EVENTUALLY(ecart(combo(u"combonombre"_s), bouton(u"cmdokrapide"_s)) < 40);
    const int rapide = onglets().height();
    onglet(Onglet::Criteres);
    EVENTUALLY(onglets().height() > rapide + 60);
    onglet(Onglet::Rapide);
    EVENTUALLY(onglets().height() == rapide);
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
    champ(u"textejour"_s).setFocus();
    formulaire->resize(700, 700);
    formulaire->resize(700, 260);
    EVENTUALLY(vue(champ(u"textejour"_s)));
}

TEST_F(CadreTest, EveryControlHasANameToSpeak) {
    for (const QWidget* controle : formulaire->findChildren<QWidget*>()) {
        if (controle->focusPolicy() == Qt::NoFocus || controle->objectName().isEmpty() ||
            controle->objectName().startsWith(u"qt_") || controle->objectName() == u"numerotype")
            continue;
        const auto* ecrit = qobject_cast<const QAbstractButton*>(controle);
        EXPECT_TRUE(!controle->accessibleName().isEmpty() || (ecrit && !ecrit->text().isEmpty()) ||
                    qobject_cast<const QTabWidget*>(controle))
            << qPrintable(controle->objectName());
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

TEST_F(CadreTest, TheListCanBeNarrowedWhileItShowsRows) {
    formulaire->activation();
    EXPECT_FALSE(option2possible());
    remplit();
    EXPECT_TRUE(option2possible());
    EXPECT_TRUE(option1());
    static_cast<void>(remplissage.present());
    formulaire->activation();
    EXPECT_FALSE(option2possible());
    remplissage.acheve();
    formulaire->activation();
    EXPECT_TRUE(option2possible());
    EXPECT_TRUE(option1());
    liste.vide();
    un<QRadioButton>(u"Option2"_s).setChecked(true);
    formulaire->activation();
    EXPECT_FALSE(option2possible());
    EXPECT_TRUE(option1());
}

TEST_F(CadreTest, ComingToTheCriteriaChoosesNarrowingWhenThereIsSomethingToNarrow) {
    onglet(Onglet::Criteres);
    EXPECT_FALSE(option2possible());
    onglet(Onglet::Rapide);
    remplit();
    onglet(Onglet::Criteres);
    EXPECT_TRUE(option2possible());
    EXPECT_TRUE(option2());
    onglet(Onglet::Mots);
    static_cast<void>(remplissage.present());
    onglet(Onglet::Criteres);
    EXPECT_FALSE(option2possible());
    EXPECT_TRUE(option1());
}

TEST_F(CadreTest, TheKeywordListIsFilledOnce) {
    EXPECT_EQ(combo(u"combomotcle"_s).count(), 1);
    onglet(Onglet::Criteres);
    EXPECT_EQ(combo(u"combomotcle"_s).count(), 4);
    EXPECT_EQ(combo(u"combomotcle"_s).itemText(0), u"t900");
    EXPECT_EQ(combo(u"combomotcle"_s).itemText(1), u"Bail");
    combo(u"combomotcle"_s).setCurrentIndex(2);
    onglet(Onglet::Rapide);
    onglet(Onglet::Criteres);
    EXPECT_EQ(combo(u"combomotcle"_s).count(), 4);
    EXPECT_EQ(combo(u"combomotcle"_s).currentIndex(), 2);
}

TEST_F(CadreTest, AHundredThousandKeywordsAreOfferedAndFound) {
    constexpr int nombre = 100'000;
    {
        TableWriter table(corpus.base(), u"motclés"_s, {u"motcle"_s});
        for (int numero = 1; numero <= nombre; ++numero)
            ASSERT_TRUE(table.add({u"mot %1"_s.arg(numero)}));
    }
    corpus.ouvretables();
    onglet(Onglet::Criteres);
    EXPECT_EQ(combo(u"combomotcle"_s).count(), nombre + 4);
    combo(u"combomotcle"_s).setCurrentIndex(combo(u"combomotcle"_s).findText(u"mot 77777"_s, Qt::MatchFixedString));
    EXPECT_EQ(formulaire->formulaire().fichier().combomotcle, u"mot 77777");
    clique(u"cmdok"_s);
    EXPECT_EQ(liste.lignes(), 0);
    clique(u"annulercriteres"_s);
    EXPECT_EQ(combo(u"combomotcle"_s).currentIndex(), 0);
}

TEST_F(CadreTest, AFileFindsItsKeywordThoughTheCriteriaWereNeverShown) {
    FichierCriteres fichier;
    fichier.ongletrecherche = 2;
    fichier.combomotcle = u"Vente"_s;
    formulaire->formulaire().prendfichier(fichier);
    EXPECT_EQ(onglets().currentIndex(), 2);
    EXPECT_EQ(combo(u"combomotcle"_s).currentText(), u"Vente");
    EXPECT_EQ(combo(u"combomotcle"_s).count(), 4);
}

TEST_F(CadreTest, TheLimitListsAreRemembered) {
    combo(u"combonombre"_s).setCurrentIndex(1);
    combo(u"Combonombredico"_s).setCurrentIndex(2);
    formulaire->formulaire().decharge();
    EXPECT_EQ(magasin.get(u"RECHERCHE", u"COMBONOMBRE"), u"1");
    EXPECT_EQ(magasin.get(u"RECHERCHE", u"COMBONOMBREDICO"), u"2");
    ouvreformulaire();
    EXPECT_EQ(combo(u"combonombre"_s).currentIndex(), 1);
    EXPECT_EQ(combo(u"Combonombredico"_s).currentIndex(), 2);
}

TEST_F(CadreTest, AStoredLimitThatIsNoneGivesTheFirst) {
    for (const QString& valeur : {u"3"_s, u"-1"_s, u"deux"_s, u"1e300"_s}) {
        magasin.save(u"RECHERCHE", u"COMBONOMBRE", valeur);
        ouvreformulaire();
        EXPECT_EQ(combo(u"combonombre"_s).currentIndex(), 0) << qPrintable(valeur);
    }
}

TEST_F(CadreTest, TheLastTextsAreOfferedAgainNewestFirst) {
    for (int rang = 1; rang <= 14; ++rang) {
        champ(u"texterapide"_s).setText(u"texte %1"_s.arg(rang));
        clique(u"cmdokrapide"_s);
    }
    champ(u"texterapide"_s).setText(u"texte 8"_s);
    clique(u"cmdokrapide"_s);
    champ(u"texterapide"_s).clear();
    clique(u"cmdokrapide"_s);
    const QStringList voulus = derniersde(u"texterapide"_s);
    ASSERT_EQ(voulus.size(), DerniersTextes::plusdetextes);
    EXPECT_EQ(voulus.mid(0, 3), (QStringList{u"texte 8"_s, u"texte 14"_s, u"texte 13"_s}));
    EXPECT_EQ(voulus.last(), u"texte 3");
    EXPECT_TRUE(derniersde(u"Textedico"_s).isEmpty());
    formulaire->formulaire().decharge();
    ouvreformulaire();
    EXPECT_EQ(derniersde(u"texterapide"_s), voulus);
    EXPECT_EQ(champ(u"texterapide"_s).text(), QString());
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

TEST_F(CadreTest, AFileRestoresTheFormAndItsRows) {
    champ(u"texterapide"_s).setText(u"contrat^p"_s);
    champ(u"Textedico"_s).setText(u"clause"_s);
    champ(u"texterech(1)"_s).setText(u"juge"_s);
    onglet(Onglet::Criteres);
    combo(u"combomotcle"_s).setCurrentIndex(2);
    combo(u"conjonction"_s).setCurrentIndex(3);
    combo(u"combotype"_s).setCurrentIndex(1);
    combo(u"prefixe"_s).setCurrentIndex(1);
    coche(u"checkandordico"_s).setChecked(false);
    combo(u"Combonombredico"_s).setCurrentIndex(2);
    QTest::mouseClick(barre().widget(u"JP"_s), Qt::LeftButton);
    clique(u"toutdéselect"_s);
    QTest::mouseClick(barre().widget(u"CO"_s), Qt::LeftButton);
    onglet(Onglet::Mots);
    clique(u"cmdokdico"_s);
    const QStringList trouvees = cles();
    ASSERT_EQ(trouvees.size(), 4);
    onglet(Onglet::Criteres);
    const FichierCriteres fichier = formulaire->formulaire().fichier();
    const QByteArray octets = ecritcriteres(fichier);
    ASSERT_TRUE(litfichiercriteres(octets));

    ouvreformulaire();
    liste.vide();
    formulaire->formulaire().prendfichier(*litfichiercriteres(octets));
    EXPECT_EQ(onglets().currentIndex(), 1);
    EXPECT_EQ(ecritcriteres(formulaire->formulaire().fichier()), octets);
    EXPECT_EQ(champ(u"texterapide"_s).text(), u"contrat^p");
    EXPECT_EQ(champ(u"texterech(1)"_s).text(), u"juge");
    EXPECT_EQ(combo(u"combomotcle"_s).currentText(), u"Prêt");
    EXPECT_EQ(combo(u"conjonction"_s).currentIndex(), 3);
    EXPECT_EQ(combo(u"combotype"_s).currentText(), u"Loi");
    EXPECT_EQ(combo(u"prefixe"_s).currentIndex(), 0); // the negation is not in the file
    EXPECT_FALSE(coche(u"checkandordico"_s).isChecked());
    EXPECT_EQ(combo(u"Combonombredico"_s).currentIndex(), 2);
    EXPECT_EQ(enfonces(), "A");
    EXPECT_EQ(cles(), trouvees);
    EXPECT_EQ(liste.resultat().mot1, u"contrat\r\n");
    EXPECT_EQ(liste.resultat().mot2, u"juge");
    EXPECT_TRUE(option2possible());
    EXPECT_EQ(panneau.last(), u" 4 documents");
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(CadreTest, AFileSavedDuringASearchHoldsWhatWasFoundByThen) {
    remplit();
    std::size_t trouvees = 0;
    evenement = [&] {
        if (liste.lignes() == 3)
            trouvees = formulaire->formulaire().fichier().lignes.size();
    };
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(trouvees, 3U);
}

TEST_F(CadreTest, AFileOpenedDuringASearchEndsIt) {
    champ(u"texterapide"_s).setText(u"arrêt"_s);
    clique(u"cmdokrapide"_s);
    const FichierCriteres fichier = formulaire->formulaire().fichier();
    champ(u"texterapide"_s).setText(u"contrat"_s);
    pendant([&] { formulaire->formulaire().prendfichier(fichier); });
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(cles(), QStringList{u"JP000001"_s});
    EXPECT_EQ(champ(u"texterapide"_s).text(), u"arrêt");
    EXPECT_EQ(panneau.last(), u" 1 document");
    EXPECT_EQ(bouton(u"cmdokrapide"_s).text(), chercher);
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
    EXPECT_EQ(marche(u"Textedico"_s, 6), (QStringList{u"Textedico"_s, u"checkandordico"_s, u"Combonombredico"_s,
                                                      u"cmdokdico"_s, u"annulerdico"_s, u"resultat"_s}));
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
