#include "platform/text/ansi.h"
#include "search/etatformulaire.h"
#include "tests/search/recherche_support.h"

#include <random>

using namespace velm;
using namespace velm::test;

namespace {

const ItemsFormulaire items{{u"(Tous)"_s, u"crédit"_s, u"vente"_s},
                            {u"(Tous)"_s, u"Arrêt"_s, u"Décret"_s},
                            {u"et"_s, u"ou"_s, u"et non"_s, u"ou non"_s}};

class FichierCriteresTest : public BaseRecherche {
protected:
    static EtatFormulaire formulaire() {
        EtatFormulaire forme;
        forme.ongletrecherche = 1;
        forme.Textedico = u"vente consommateur"_s;
        forme.checkandordico = false;
        forme.Combonombredico = 2;
        forme.texterapide = u"rapide"_s;
        forme.combonombre = 1;
        forme.criteres.motcle = u"vente"_s;
        forme.criteres.type = 2;
        forme.criteres.textejour = u"1"_s;
        forme.criteres.textemois = u"2"_s;
        forme.criteres.texteannee = u"2003"_s;
        forme.criteres.texterech = {u"défaut « caché »"_s, u"garantie"_s};
        forme.criteres.motentier = {true, false};
        forme.criteres.respectminmaj = {false, true};
        forme.criteres.emplacement = {false, true, true};
        forme.criteres.conjonction = Criteres::Sauf;
        for (std::size_t i = 0; i < forme.boutons.size(); ++i)
            forme.boutons[i] = i % 3 == 0;
        return forme;
    }
    void remplit(int nombre) {
        for (int i = 1; i <= nombre; ++i) {
            const QString numero = sixchiffres(i);
            const QString cle = u"EU"_s + numero;
            const QString titre = u"Titre %1"_s.arg(i);
            ASSERT_EQ(liste.ajouteauflex({u"EU", numero, titre, u"un", u"deux", {}, cle}), 0);
        }
    }
    QByteArray octets(const EtatFormulaire& forme) const { return ecritcriteres(fichierde(forme, items, liste)); }
    static EtatFormulaire relu(const QByteArray& octets, int prefixe = 0) {
        const auto fichier = litfichiercriteres(octets);
        EXPECT_TRUE(fichier.has_value());
        return etatde(fichier.value_or(FichierCriteres{}), items, prefixe);
    }
    QStringList rangees() const {
        QStringList toutes;
        for (int rang = 1; rang < liste.rows(); ++rang) {
            QStringList champs;
            for (const auto champ :
                 {ListeSelection::Titre, ListeSelection::Motcle1, ListeSelection::Motcle2, ListeSelection::Motcle3,
                  ListeSelection::Numart, ListeSelection::Reference, ListeSelection::Clef})
                champs << liste.champ(rang, champ);
            toutes << champs.join(u'|');
        }
        return toutes;
    }
    /// The lines of a file, without their ends.
    static QList<QByteArray> lignes(const QByteArray& octets) {
        QList<QByteArray> toutes;
        for (qsizetype place = 0; place < octets.size();) {
            const qsizetype fin = octets.indexOf("\r\n", place);
            toutes << octets.mid(place, fin - place);
            place = fin + 2;
        }
        return toutes;
    }
    static QByteArray joint(const QList<QByteArray>& lignes, const QByteArray& fin = "\r\n") {
        QByteArray octets;
        for (const QByteArray& ligne : lignes)
            octets += ligne + fin;
        return octets;
    }
};

} // namespace

TEST_F(FichierCriteresTest, SavingAndReadingBackRestoresEveryControl) {
    EXPECT_EQ(relu(octets(formulaire())), formulaire());
    EtatFormulaire vide;
    vide.criteres.emplacement = {};
    EXPECT_EQ(relu(octets(vide)), vide);
}

TEST_F(FichierCriteresTest, TheLinesStandInTheirOrder) {
    remplit(1);
    const QByteArray attendu = "VELMORante 2000 - CV2\r\n1\r\nvente consommateur\r\n0\r\n2\r\nrapide\r\n1\r\nvente\r\n"
                               "0\r\n1\r\n1\r\nd\xE9"
                               "faut \xAB cach\xE9 \xBB\r\n1\r\n0\r\net non\r\ngarantie\r\n0\r\n1\r\n"
                               "D\xE9"
                               "cret\r\n1\r\n2\r\n2003\r\nX  X  X  X \r\n2\r\n0\r\n1\r\n2\r\n3\r\n5\r\n4\r\n"
                               "Titre 1\r\nun\r\ndeux\r\n\r\nEU\r\n000001\r\nEU000001\r\n";
    QByteArray obtenu = octets(formulaire());
    EXPECT_EQ(lignes(obtenu).size(), 30 + 7);
    // Columns 4 and 5 as the list has them.
    const QList<QByteArray> toutes = lignes(obtenu);
    for (int colonne = 0; colonne < 6; ++colonne)
        EXPECT_EQ(toutes.at(24 + colonne).toInt(), liste.coldata(colonne));
    EXPECT_EQ(obtenu, attendu);
}

TEST_F(FichierCriteresTest, TheTypeButtonsAreSavedAsXAndBlank) {
    EtatFormulaire forme;
    forme.boutons[1] = true;
    forme.boutons[10] = true;
    EXPECT_EQ(lignes(octets(forme)).at(22), " X        X");
    QList<QByteArray> toutes = lignes(octets(forme));
    toutes[22] = "X";
    EXPECT_EQ(relu(joint(toutes)).boutons, (std::array<bool, 11>{true}));
    toutes[22] = "xyzXXXXXXXXXXXXXXXXXX";
    EXPECT_EQ(relu(joint(toutes)).boutons,
              (std::array<bool, 11>{false, false, false, true, true, true, true, true, true, true, true}));
}

TEST_F(FichierCriteresTest, RowsComeBackAsTheyWere) {
    remplit(40);
    const QStringList avant = rangees();
    const auto fichier = litfichiercriteres(octets(formulaire()));
    ASSERT_TRUE(fichier);
    liste.vide();
    remplit(3);
    rendlignes(*fichier, liste);
    EXPECT_EQ(rangees(), avant);
}

TEST_F(FichierCriteresTest, RowsOfAMovedGridLandUnderTheirHeaders) {
    remplit(5);
    const QStringList avant = rangees();
    std::mt19937 moteur(5);
    std::uniform_int_distribution<int> colonne(0, 5);
    for (int ronde = 0; ronde < 60; ++ronde) {
        const auto fichier = litfichiercriteres(octets(formulaire()));
        ASSERT_TRUE(fichier);
        liste.deplacecolonne(colonne(moteur), colonne(moteur));
        rendlignes(*fichier, liste);
        ASSERT_EQ(rangees(), avant) << ronde;
    }
}

TEST_F(FichierCriteresTest, ACountOfOneRestoresTheCriteriaAndLeavesTheListEmpty) {
    const QByteArray sansrangee = octets(formulaire());
    EXPECT_EQ(lignes(sansrangee).at(23), "1");
    EXPECT_EQ(lignes(sansrangee).size(), 30);
    remplit(2);
    const auto fichier = litfichiercriteres(sansrangee);
    ASSERT_TRUE(fichier);
    rendlignes(*fichier, liste);
    EXPECT_EQ(liste.rows(), 1);
    EXPECT_EQ(etatde(*fichier, items, 0), formulaire());
}

TEST_F(FichierCriteresTest, NegationIsNotSaved) {
    EtatFormulaire nie = formulaire();
    nie.criteres.prefixe = 1;
    EXPECT_EQ(octets(nie), octets(formulaire()));
    EXPECT_EQ(relu(octets(nie), 0).criteres.prefixe, 0);
    EXPECT_EQ(relu(octets(nie), 1).criteres.prefixe, 1);
}

TEST_F(FichierCriteresTest, CodesStayInTheBoxAndAreReplacedInTheWord) {
    EtatFormulaire forme;
    forme.criteres.texterech = {u"a^pb"_s, u"c^td"_s};
    const auto fichier = litfichiercriteres(octets(forme));
    ASSERT_TRUE(fichier);
    EXPECT_EQ(etatde(*fichier, items, 0).criteres.texterech, forme.criteres.texterech);
    rendmots(*fichier, liste);
    EXPECT_EQ(liste.mot1, u"a\r\nb");
    EXPECT_EQ(liste.mot2, u"c\td");
}

TEST_F(FichierCriteresTest, TheCriteriaTextBeatsTheQuickTextAsFirstWord) {
    FichierCriteres fichier;
    liste.mot1 = u"avant"_s;
    liste.mot2 = u"avant"_s;
    rendmots(fichier, liste);
    EXPECT_EQ(liste.mot1, u"avant");
    EXPECT_TRUE(liste.mot2.isEmpty()) << "the second word is set even when empty";
    fichier.texterapide = u"ra^tpide"_s;
    rendmots(fichier, liste);
    EXPECT_EQ(liste.mot1, u"ra\tpide");
    fichier.criteres.texterech[0] = u"critère"_s;
    rendmots(fichier, liste);
    EXPECT_EQ(liste.mot1, u"critère");
}

TEST_F(FichierCriteresTest, AnotherFirstLineIsNoCriteriaFile) {
    for (const QByteArray& ligne :
         {QByteArray(), QByteArray("VELMORante 2000 - DV2"), QByteArray("velmorante 2000 - CV2"),
          QByteArray(" VELMORante 2000 - CV2"), QByteArray("VELMORante 2000 - CV2 "),
          QByteArray("VELMORante 2000 - CV"), QByteArray("\xEF\xBB\xBFVELMORante 2000 - CV2")})
        EXPECT_FALSE(litfichiercriteres(ligne + "\r\n1\r\n")) << ligne.constData();
    EXPECT_TRUE(litfichiercriteres("VELMORante 2000 - CV2"));
}

TEST_F(FichierCriteresTest, AnUnknownItemSelectsTheFirst) {
    QList<QByteArray> toutes = lignes(octets(formulaire()));
    toutes[7] = "consumer";
    toutes[14] = "and not";
    toutes[18] = "Judgment";
    const EtatFormulaire forme = relu(joint(toutes));
    EXPECT_TRUE(forme.criteres.motcle.isEmpty());
    EXPECT_EQ(forme.criteres.type, 0);
    EXPECT_EQ(forme.criteres.conjonction, Criteres::Et);
    EXPECT_EQ(forme.criteres.texterech, formulaire().criteres.texterech);
}

TEST_F(FichierCriteresTest, NumbersAreReadByTheirValueAndMustStandForAnItem) {
    QList<QByteArray> toutes = lignes(octets(formulaire()));
    for (const int ligne : {1, 4, 6})
        toutes[ligne] = "  2 ";
    EtatFormulaire forme = relu(joint(toutes));
    EXPECT_EQ(forme.ongletrecherche, 2);
    EXPECT_EQ(forme.Combonombredico, 2);
    EXPECT_EQ(forme.combonombre, 2);
    for (const QByteArray& faux : {QByteArray("3"), QByteArray("-1"), QByteArray("x"), QByteArray("1e300"),
                                   QByteArray("-1e300"), QByteArray("99999999999999999999")}) {
        for (const int ligne : {1, 4, 6})
            toutes[ligne] = faux;
        forme = relu(joint(toutes));
        EXPECT_EQ(forme.ongletrecherche, 0);
        EXPECT_EQ(forme.Combonombredico, 0);
        EXPECT_EQ(forme.combonombre, 0);
    }
}

TEST_F(FichierCriteresTest, AFileCutAtEveryByteGivesItsWholeRowsAndTheLinesBefore) {
    remplit(3);
    const QByteArray entier = octets(formulaire());
    const QStringList rangs = rangees();
    const QList<QByteArray> toutes = lignes(entier);
    for (qsizetype taille = 0; taille < entier.size(); ++taille) {
        const auto fichier = litfichiercriteres(entier.first(taille));
        if (taille < FichierCriteres::entete.size()) {
            EXPECT_FALSE(fichier);
            continue;
        }
        ASSERT_TRUE(fichier) << taille;
        // As many lines as are whole.
        const qsizetype completes = entier.first(taille).count("\r\n");
        if (completes != 2) {
            EXPECT_EQ(fichier->Textedico, completes < 2 ? QString() : ansi::decode(toutes.at(2))) << taille;
        }
        rendlignes(*fichier, liste);
        const qsizetype attendues = completes <= 30 ? 0 : (completes - 30) / 7;
        EXPECT_GE(liste.lignes(), attendues) << taille;
        EXPECT_LE(liste.lignes(), attendues + 1) << taille;
        EXPECT_EQ(rangees().mid(0, attendues), rangs.mid(0, attendues)) << taille;
    }
}

TEST_F(FichierCriteresTest, WrongCountsGiveTheRowsThatAreThere) {
    remplit(3);
    QList<QByteArray> toutes = lignes(octets(formulaire()));
    const QStringList rangs = rangees();
    const std::pair<QByteArray, int> cas[] = {
        {"4", 3},  {"3", 2}, {"100", 3},      {"2147483647", 3}, {"1e300", 3},     {"1", 0},     {"0", 0},
        {"-7", 0}, {"", 0},  {"beaucoup", 0}, {"2.6", 2},        {" 4 lignes", 3}, {"-1e300", 0}};
    for (const auto& [nombre, attendues] : cas) {
        toutes[23] = nombre;
        const auto fichier = litfichiercriteres(joint(toutes));
        ASSERT_TRUE(fichier);
        rendlignes(*fichier, liste);
        EXPECT_EQ(rangees(), rangs.mid(0, attendues)) << nombre.constData();
    }
}

TEST_F(FichierCriteresTest, ColumnsThatAreNoneOrTwiceLoseNothingElse) {
    remplit(1);
    QList<QByteArray> toutes = lignes(octets(formulaire()));
    for (const int ligne : {24, 25, 26})
        toutes[ligne] = "0";
    toutes[27] = "77";
    toutes[28] = "-3";
    toutes[29] = "6";
    const auto fichier = litfichiercriteres(joint(toutes));
    ASSERT_TRUE(fichier);
    rendlignes(*fichier, liste);
    EXPECT_EQ(rangees(), QStringList(u"deux||||||EU000001"_s));
}

TEST_F(FichierCriteresTest, LoneLineEndsEndLinesToo) {
    remplit(2);
    const QList<QByteArray> toutes = lignes(octets(formulaire()));
    const auto attendu = litfichiercriteres(joint(toutes));
    ASSERT_TRUE(attendu);
    EXPECT_EQ(litfichiercriteres(joint(toutes, "\n")), attendu);
    EXPECT_EQ(litfichiercriteres(joint(toutes, "\r")), attendu);
}

TEST_F(FichierCriteresTest, ALineEndInsideATextIsABlank) {
    EtatFormulaire forme = formulaire();
    forme.texterapide = u"a\r\nb\rc\nd"_s;
    liste.ajouteauflex({u"CO", u"000001", u"un\ndeux", {}, {}, {}, u"CO000001"});
    const auto fichier = litfichiercriteres(octets(forme));
    ASSERT_TRUE(fichier);
    EXPECT_EQ(fichier->texterapide, u"a b c d");
    rendlignes(*fichier, liste);
    EXPECT_EQ(rangees(), QStringList(u"un deux||||000001|CO|CO000001"_s));
}

TEST_F(FichierCriteresTest, WhatTheCodePageLacksIsAQuestionMark) {
    EtatFormulaire forme;
    forme.texterapide = u"œuvre € Łódź"_s;
    EXPECT_EQ(lignes(octets(forme)).at(5), "\x9Cuvre \x80 ?\xF3"
                                           "d?");
    EXPECT_EQ(relu(octets(forme)).texterapide, u"œuvre € ?ód?");
}

TEST_F(FichierCriteresTest, AListThatTakesNoMoreKeepsTheRowsSoFar) {
    remplit(5);
    const auto fichier = litfichiercriteres(octets(formulaire()));
    ASSERT_TRUE(fichier);
    liste.limitelignes(3);
    rendlignes(*fichier, liste);
    EXPECT_EQ(liste.lignes(), 3);
}

TEST_F(FichierCriteresTest, TheKeywordListIsFilledOnce) {
    documents = {{u"CO000001"_s, u"a"_s}};
    ouvre();
    const auto ajoute = [&](const QString& motcle) {
        TableWriter table(corpus.base(), u"motclés"_s, {u"motcle"_s, u"nbarticle"_s});
        ASSERT_TRUE(table.add({motcle, 1}));
    };
    corpus.base().releaseLocks();
    ajoute(u"vente"_s);
    ajoute(u"crédit"_s);
    corpus.ouvretables();
    ListeMotsCles motscles(u"(Tous)"_s);
    FichierCriteres fichier;
    fichier.combomotcle = u"(Tous)"_s;
    EXPECT_FALSE(motscles.manque(fichier));
    fichier.combomotcle = u"vente"_s;
    EXPECT_TRUE(motscles.manque(fichier));
    EXPECT_EQ(motscles.items().size(), 1);
    motscles.lirelesmotscles(corpus);
    EXPECT_FALSE(motscles.manque(fichier));
    const QStringList lus = motscles.items();
    EXPECT_EQ(lus, QStringList({u"(Tous)"_s, u"crédit"_s, u"vente"_s})); // in the order of the key
    ajoute(u"bail"_s);
    motscles.lirelesmotscles(corpus);
    EXPECT_EQ(motscles.items(), lus);
}

TEST_F(FichierCriteresTest, AnEmptyKeywordTableLeavesTheFirstItem) {
    documents = {{u"CO000001"_s, u"a"_s}};
    ouvre();
    ListeMotsCles motscles(u"(Tous)"_s);
    motscles.lirelesmotscles(corpus);
    EXPECT_EQ(motscles.items(), QStringList(u"(Tous)"_s));
}
