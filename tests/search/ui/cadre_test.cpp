// What the three tabs share: collections, options, hiding, what is remembered.
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
