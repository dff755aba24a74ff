// The search form in the frame of the program.
#include "core/schemas.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/grid/flexgrid.h"
#include "search/ui/frmvelmorselect.h"
#include "shell/bureau.h"
#include "shell/recherches.h"
#include "shell/selection.h"
#include "shell/volet.h"
#include "tests/shell/ecran_support.h"
#include "tests/support/rounds.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class RecherchesCadreTest : public EcranTest {
protected:
    void SetUp() override {
        EcranTest::SetUp();
        const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        QString packs;
        for (int indice = 0; indice < nombredecollections; ++indice) {
            qint64 nombre = 0;
            for (const DocumentEssai& d : documents())
                nombre += d.cle.startsWith(typedindice(indice)) ? 1 : 0;
            packs += sixchiffres(nombre);
        }
        const auto parametres = base.database->openTable(u"paramètres"_s);
        parametres->addNew();
        parametres->setValue(u"nbarticles"_s, packs);
        ASSERT_TRUE(parametres->update());
    }

    Toolbar& barre() const { return volet().recherchetoolbar(); }
    FrmVelmorSelect* formulaire() const { return programme->recherches().formulaire(); }
    bool montre() const { return formulaire() && formulaire()->isVisible(); }
    QLineEdit& champ(const QString& nom) const { return *formulaire()->findChild<QLineEdit*>(nom); }
    void clique(const QString& nom) const {
        QTest::mouseClick(formulaire()->findChild<QPushButton*>(nom), Qt::LeftButton);
    }
    const ListeSelection& liste() const { return programme->selection().liste(); }
};

constexpr int nombreuses = test::rounds(120'000);

/// Enough documents for a search to give the window its turns.
class LongueRechercheTest : public RecherchesCadreTest {
protected:
    std::vector<DocumentEssai> documents() const override {
        std::vector<DocumentEssai> tous;
        tous.reserve(nombreuses);
        for (int numero = 1; numero <= nombreuses; ++numero)
            tous.push_back({u"CO"_s + sixchiffres(numero), u"Contrat de vente"_s, {}});
        return tous;
    }
    /// Starts a quick search that finds all of them, and does something at its first turn.
    void cherche(const std::function<void()>& chose) {
        formulaire()->findChild<QComboBox*>(u"combonombre"_s)->setCurrentIndex(2);
        champ(u"texterapide"_s).setText(u"vente"_s);
        bool fait = false;
        QTimer::singleShot(0, formulaire(), [&] {
            fait = true;
            enpleine = programme->selection().controle().remplissage().encours();
            chose();
        });
        clique(u"cmdokrapide"_s);
        EXPECT_TRUE(fait);
        EXPECT_TRUE(enpleine);
    }

    bool enpleine = false;
};

} // namespace

TEST_F(RecherchesCadreTest, ItsButtonShowsAndHidesTheForm) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    EXPECT_EQ(formulaire(), nullptr);
    presse(barrecommande(), "Rechercher");
    ASSERT_TRUE(montre());
    EXPECT_TRUE(barre().value(u"affichercritères"_s));
    EXPECT_EQ(barre().toolTip(u"affichercritères"_s), u"Masquer les critères de recherche");
    EXPECT_EQ(aire().activeChild(), formulaire());
    EXPECT_EQ(ecran().focusWidget(), &champ(u"texterapide"_s));
    champ(u"texterapide"_s).setText(u"gardé"_s);
    presse(barre(), "affichercritères");
    EXPECT_FALSE(montre());
    EXPECT_EQ(barre().toolTip(u"affichercritères"_s), u"Afficher les critères de recherche");
    presse(barre(), "affichercritères");
    EXPECT_TRUE(montre());
    EXPECT_EQ(champ(u"texterapide"_s).text(), u"gardé");
}

TEST_F(RecherchesCadreTest, HidingThePaneHidesTheForm) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    presse(barrecommande(), "Rechercher");
    ASSERT_TRUE(montre());
    champ(u"texterapide"_s).setText(u"rien de tel"_s);
    clique(u"cmdokrapide"_s);
    presse(barrecommande(), "Rechercher");
    EXPECT_FALSE(volet().isVisible());
    EXPECT_FALSE(montre());
    EXPECT_FALSE(barre().value(u"affichercritères"_s));
    // A search has run: the list is there, if empty, and the form stays where it is.
    presse(barrecommande(), "Rechercher");
    EXPECT_TRUE(volet().isVisible());
    EXPECT_TRUE(programme->selection().flex().isVisible());
    EXPECT_FALSE(montre());
}

TEST_F(RecherchesCadreTest, AFormThatClosesReleasesItsButton) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    entree("mselection")->trigger();
    ASSERT_TRUE(montre());
    clique(u"annulerrapide"_s);
    EXPECT_FALSE(montre());
    EXPECT_FALSE(barre().value(u"affichercritères"_s));
    EXPECT_EQ(barre().toolTip(u"affichercritères"_s), u"Afficher les critères de recherche");
    presse(barre(), "affichercritères");
    ASSERT_TRUE(montre());
    // By the window's own key.
    QTest::keyClick(&champ(u"texterapide"_s), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(montre());
    EXPECT_FALSE(barre().value(u"affichercritères"_s));
    EXPECT_NE(formulaire(), nullptr);
}

TEST_F(RecherchesCadreTest, ASearchFillsTheListAndItsRowsOpen) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    presse(barrecommande(), "Rechercher");
    champ(u"texterapide"_s).setText(u"arrêt"_s);
    QTest::keyClick(&champ(u"texterapide"_s), Qt::Key_Return);
    EXPECT_EQ(programme->selection().flex().rows(), 2);
    EXPECT_TRUE(programme->selection().flex().isVisible());
    EXPECT_TRUE(barre().isButtonEnabled(u"sauvercritères"_s));
    presse(barre(), "suivantrecherche");
    ASSERT_NE(programme->fenetre(2), nullptr);
    EXPECT_EQ(programme->fenetre(2)->referencecourante(), u"JP000007");
    champ(u"texterapide"_s).setText(u"rien de tel"_s);
    clique(u"cmdokrapide"_s);
    EXPECT_EQ(programme->selection().flex().rows(), 1);
    EXPECT_FALSE(barre().isButtonEnabled(u"sauvercritères"_s));
    EXPECT_TRUE(barre().isButtonEnabled(u"ouvrircritères"_s));
}

TEST_F(RecherchesCadreTest, ASearchIsSavedAndOpenedAgain) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    presse(barrecommande(), "Rechercher");
    champ(u"texterapide"_s).setText(u"article"_s);
    clique(u"cmdokrapide"_s);
    ASSERT_EQ(liste().lignes(), 2);
    const QString chemin = dossier.filePath(u"essai.cv2"_s);
    dialogues.saveFiles.push_back(chemin);
    presse(barre(), "sauvercritères");
    presse(barre(), "envoyercritères");
    ASSERT_EQ(courrier.mails.size(), 1U);
    EXPECT_EQ(courrier.mails.front().fileName, u"VELM2000.CV2");
    champ(u"texterapide"_s).setText(u"autre chose"_s);
    clique(u"cmdokrapide"_s);
    clique(u"annulerrapide"_s);
    ASSERT_EQ(liste().lignes(), 0);
    dialogues.openFiles.push_back(chemin);
    presse(barre(), "ouvrircritères");
    EXPECT_TRUE(montre());
    EXPECT_TRUE(barre().value(u"affichercritères"_s));
    EXPECT_EQ(champ(u"texterapide"_s).text(), u"article");
    EXPECT_EQ(liste().lignes(), 2);
    EXPECT_TRUE(barre().isButtonEnabled(u"sauvercritères"_s));

    // The same file on the command line.
    redemarre(chemin);
    EXPECT_TRUE(volet().isVisible());
    ASSERT_TRUE(montre());
    EXPECT_EQ(champ(u"texterapide"_s).text(), u"article");
    EXPECT_EQ(programme->selection().flex().rows(), 3);
    EXPECT_TRUE(programme->selection().flex().isVisible());
}

TEST_F(RecherchesCadreTest, AFileThatIsNoneIsSaidAndChangesNothing) {
    const QString chemin = dossier.filePath(u"faux.CV2"_s);
    {
        QFile faux(chemin);
        ASSERT_TRUE(faux.open(QIODevice::WriteOnly));
        faux.write("autre chose\r\n");
    }
    ASSERT_EQ(demarre(chemin), Demarrage::EnMarche);
    EXPECT_EQ(dialogues.texts(), QStringList{u"Format de fichier non reconnu"_s});
    EXPECT_TRUE(volet().isVisible());
    EXPECT_EQ(liste().lignes(), 0);
}

TEST_F(RecherchesCadreTest, WhatTheFormHoldsIsWrittenWhenTheProgramEnds) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    presse(barrecommande(), "Rechercher");
    formulaire()->findChild<QComboBox*>(u"Combonombredico"_s)->setCurrentIndex(2);
    champ(u"texterapide"_s).setText(u"article"_s);
    clique(u"cmdokrapide"_s);
    redemarre();
    EXPECT_EQ(reglage("RECHERCHE", "COMBONOMBREDICO"), u"2");
    presse(barrecommande(), "Rechercher");
    EXPECT_EQ(formulaire()->findChild<QComboBox*>(u"Combonombredico"_s)->currentIndex(), 2);
    EXPECT_EQ(qobject_cast<QComboBox*>(champ(u"texterapide"_s).parentWidget())->itemText(0), u"article");
}

TEST_F(RecherchesCadreTest, ABadDateHoldsTheFocusInTheFormAndTakesItFromNoOtherWindow) {
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    presse(barrecommande(), "Rechercher");
    aire().arrange(ChildArea::Arrangement::TileVertical);
    formulaire()->findChild<QTabWidget*>(u"ongletrecherche"_s)->setCurrentIndex(1);
    const auto quitte = [this](QWidget& vers) {
        QTest::mouseClick(&champ(u"texteannée"_s), Qt::LeftButton);
        champ(u"texteannée"_s).setText(u"4"_s);
        QTest::mouseClick(&champ(u"textejour"_s), Qt::LeftButton);
        champ(u"textejour"_s).setText(u"32"_s);
        QTest::mouseClick(&vers, Qt::LeftButton);
        QCoreApplication::processEvents();
        return QApplication::focusWidget();
    };
    // Its words have the focus whenever a window with their block comes forward.
    auto* mots = programme->fenetre(0)->findChild<QLineEdit*>(u"Textedico"_s);
    EXPECT_EQ(quitte(*programme->fenetre(0)->vue().viewport()), mots);
    EXPECT_EQ(aire().activeChild(), programme->fenetre(0));
    EXPECT_EQ(quitte(champ(u"texterech(0)"_s)), &champ(u"textejour"_s));
    EXPECT_EQ(aire().activeChild(), formulaire());
}

TEST_F(LongueRechercheTest, TheWindowAnswersWhileASearchRuns) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    presse(barrecommande(), "Rechercher");
    int tours = 0;
    QTimer horloge;
    QObject::connect(&horloge, &QTimer::timeout, &horloge, [&tours] { ++tours; });
    cherche([&] { horloge.start(1); });
    EXPECT_GT(tours, 1);
    EXPECT_EQ(liste().lignes(), nombreuses);
}

TEST_F(LongueRechercheTest, ClosingTheFormInTheMiddleKeepsWhatWasFound) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    presse(barrecommande(), "Rechercher");
    cherche([&] { formulaire()->close(); });
    EXPECT_FALSE(montre());
    EXPECT_GT(liste().lignes(), 0);
    EXPECT_LT(liste().lignes(), nombreuses);
    EXPECT_EQ(programme->selection().flex().rows(), liste().rows());
    EXPECT_TRUE(programme->selection().flex().isVisible());
    EXPECT_TRUE(barre().isButtonEnabled(u"sauvercritères"_s));
    EXPECT_FALSE(barre().value(u"affichercritères"_s));
}

TEST_F(LongueRechercheTest, ClosingTheProgramInTheMiddleEndsTheSearch) {
    ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    presse(barrecommande(), "Rechercher");
    dialogues.answers.push_back(Bouton::Oui);
    cherche([&] { ecran().close(); });
    EXPECT_FALSE(ecran().isVisible());
    EXPECT_FALSE(programme->corpus().connecte());
    EXPECT_FALSE(programme->selection().controle().remplissage().encours());
    EXPECT_EQ(reglage("RECHERCHE", "COMBONOMBRE"), u"2");
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(LongueRechercheTest, ClosingTheProgramDuringEverySearchEndsIt) {
    for (const auto& [onglet, bouton] : {std::pair(1, u"cmdok"_s), std::pair(2, u"cmdokdico"_s)}) {
        if (onglet == 2) {
            const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
            const auto dico = base.database->openTable(u"dico"_s);
            QByteArray postes;
            for (int numero = 1; numero <= nombreuses / 2; ++numero)
                postes += QByteArray("A") + char(numero >> 16 & 0xFF) + char(numero >> 8 & 0xFF) + char(numero & 0xFF);
            dico->addNew();
            dico->setValue(u"mot"_s, u"VENTE"_s);
            dico->setValue(u"liste"_s, postes);
            ASSERT_TRUE(dico->update());
        }
        ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
        presse(barrecommande(), "Rechercher");
        formulaire()->findChild<QTabWidget*>(u"ongletrecherche"_s)->setCurrentIndex(onglet);
        formulaire()->findChild<QComboBox*>(u"Combonombredico"_s)->setCurrentIndex(2);
        champ(u"Textedico"_s).setText(u"vente"_s);
        dialogues.answers = onglet == 2 ? std::deque{Bouton::Non, Bouton::Oui} : std::deque{Bouton::Oui};
        bool fait = false;
        QTimer::singleShot(0, formulaire(), [&] {
            fait = programme->selection().controle().remplissage().encours();
            ecran().close();
        });
        clique(bouton);
        EXPECT_TRUE(fait) << onglet;
        EXPECT_FALSE(programme->corpus().connecte());
        EXPECT_FALSE(programme->selection().controle().remplissage().encours());
        programme.reset();
    }
}
