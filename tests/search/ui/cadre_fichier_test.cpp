// The search form as files keep it and bring it back.
#include "cadre_support.h"

using namespace velm;
using namespace velm::test;

TEST_F(CadreTest, AFileFindsItsKeywordThoughTheCriteriaWereNeverShown) {
    FichierCriteres fichier;
    fichier.ongletrecherche = 2;
    fichier.combomotcle = u"Vente"_s;
    formulaire->formulaire().prendfichier(fichier);
    EXPECT_EQ(onglets().currentIndex(), 2);
    EXPECT_EQ(combo(u"combomotcle"_s).currentText(), u"Vente");
    EXPECT_EQ(combo(u"combomotcle"_s).count(), 4);
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
