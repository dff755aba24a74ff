// The commands in the real frame: their deeds, their buttons and entries, the windows that they are given to.
#include "core/fenetrefille.h"
#include "core/tablereglages.h"
#include "platform/widgets/frame/childarea.h"
#include "shell/actions.h"
#include "shell/bureau.h"
#include "shell/commandes.h"
#include "shell/recherches.h"
#include "tests/shell/ecran_support.h"

#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

#include <random>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A window that says what it can do, and notes what it is told.
class FilleEssai : public QWidget, public FenetreFille {
public:
    Nature nature() const override { return Nature::Liste; }
    QString reference() const override { return u"CO000001"_s; }
    bool peut(Ordre ordre) const override { return capable == ordre; }
    void fait(Ordre ordre) override { faits.push_back(ordre); }
    void activation() override { ++activations; }
    void ecritreglages() override { ++ecritures; }
    void decharge() override { ++*decharges; }

    std::optional<Ordre> capable;
    std::vector<Ordre> faits;
    int activations = 0;
    int ecritures = 0;
    std::shared_ptr<int> decharges = std::make_shared<int>(0); ///< looked at when the window has gone
};

class ActionsTest : public test::EcranTest {
protected:
    FilleEssai& metfille(std::optional<Ordre> capable = {}) {
        auto* fille = new FilleEssai;
        fille->capable = capable;
        bureau().ajoute(*fille, *fille);
        aire().activate(fille);
        return *fille;
    }
    Bureau& bureau() const { return programme->bureau(); }
    Commandes& commandesdecadre() const { return programme->cadre().commandes(); }

    /// Every button that is shown is as its command is, and what needs a window is as the active one says.
    void verifieaccord() const {
        for (const Toolbar* barre : {&barrecommande(), &barreecran(), &barreoutils(), &volet().recherchetoolbar()}) {
            for (int rang = 1; rang <= barre->buttonCount(); ++rang) {
                const QString cle = barre->keyAt(rang);
                if (!barre->widget(cle) || !barre->isButtonVisible(cle))
                    continue;
                const auto ordre = ordredubouton(cle);
                ASSERT_TRUE(ordre) << cle.toStdString();
                const QAction& action = actions().de(ordre->ordre, ordre->rang);
                EXPECT_EQ(barre->widget(cle)->isEnabled(), action.isEnabled()) << cle.toStdString();
                EXPECT_EQ(barre->widget(cle)->isChecked(), action.isChecked()) << cle.toStdString();
            }
        }
        const FenetreFille* devant = bureau().devant();
        for (const LigneCommande& ligne : commandes()) {
            if (ligne.besoin != Besoin::Fenetre || !actions().de(ligne.ordre).isVisible())
                continue;
            EXPECT_EQ(actions().de(ligne.ordre).isEnabled(), devant && devant->peut(ligne.ordre))
                << ligne.entree.nom.toString().toStdString();
        }
    }
    QStringList outils() const {
        QStringList montres;
        const Toolbar& barre = barreoutils();
        for (int rang = 1; rang <= barre.buttonCount(); ++rang) {
            if (barre.isButtonVisible(barre.keyAt(rang)))
                montres << barre.toolTip(barre.keyAt(rang));
        }
        QStringList entrees;
        for (const QAction* entree : actions().serie(Ordre::Outil)) {
            if (entree->isVisible())
                entrees << QString(entree->text()).replace(u"&&"_s, u"&"_s);
        }
        EXPECT_EQ(montres, entrees);
        return montres;
    }
};

} // namespace

// ---- deeds

TEST_F(ActionsTest, EveryCommandHasADeedButThoseThatWait) {
    demarre(QString());
    for (const LigneCommande& ligne : commandes()) {
        const std::string nom = (ligne.bouton.cle.toString() + u' ' + ligne.entree.nom.toString()).toStdString();
        EXPECT_EQ(commandesdecadre().sait(ligne.ordre), ligne.besoin != Besoin::Attente) << nom;
        EXPECT_FALSE(ligne.besoin == Besoin::Attente && actions().de(ligne.ordre).isEnabled()) << nom;
    }
}

TEST_F(ActionsTest, ACommandWithoutADeedIsRefused) {
    demarre(QString());
    EXPECT_FALSE(commandesdecadre().fait(Ordre::Options));
    for (const Ordre ordre : {Ordre::Copier, Ordre::ToutSelectionner})
        EXPECT_TRUE(commandesdecadre().fait(ordre)) << "with no window there is nothing to do it to";
    EXPECT_TRUE(commandesdecadre().fait(Ordre::BarreEtat));
    EXPECT_EQ(reglage("BARRE", "ETAT"), u"0");
}

TEST_F(ActionsTest, NoShortcutIsTwoCommands) {
    demarre(u"CO1"_s);
    QMap<QString, QString> vues;
    for (const QAction* action : ecran().findChildren<QAction*>()) {
        const auto* menu = qobject_cast<QMenu*>(action->parent());
        if (action->shortcut().isEmpty() || (menu && qobject_cast<QMdiSubWindow*>(menu->parent())))
            continue;
        const QString touche = action->shortcut().toString();
        EXPECT_FALSE(vues.contains(touche))
            << touche.toStdString() << ": " << vues.value(touche).toStdString() << ", " << action->text().toStdString();
        vues.insert(touche, action->text());
    }
    EXPECT_GT(vues.size(), 15) << "with those of the document's own bar";
}

TEST_F(ActionsTest, AMarkFollowsWhatIsDoneAndNotThePress) {
    demarre(QString());
    QObject::disconnect(&actions(), &Actions::commande, nullptr, nullptr);
    presse(barrecommande(), "Rechercher");
    actions().de(Ordre::BarreEtat).trigger();
    EXPECT_FALSE(barrecommande().value(u"Rechercher"_s));
    EXPECT_TRUE(actions().estcochee(Ordre::BarreEtat));
    actions().coche(Ordre::Rechercher, true);
    EXPECT_TRUE(barrecommande().value(u"Rechercher"_s));
    presse(barrecommande(), "Rechercher");
    EXPECT_TRUE(barrecommande().value(u"Rechercher"_s));
}

TEST_F(ActionsTest, AnEntryAtTheSideOfAHistoryJumpsThere) {
    demarre(u"CO1"_s);
    for (const QStringView cle : {u"CO000002", u"JP000007"})
        programme->ouvre(decoupecle(cle));
    QMenu* cote = barrecommande().menu(u"Précédent"_s);
    emit cote->aboutToShow();
    ASSERT_EQ(cote->actions().size(), 2);
    cote->actions().at(1)->trigger();
    EXPECT_EQ(bureau().navigation().referencecourante(), u"CO000001");
    QMenu* retour = barrecommande().menu(u"Suivant"_s);
    emit retour->aboutToShow();
    ASSERT_EQ(retour->actions().size(), 2);
    retour->actions().at(1)->trigger();
    EXPECT_EQ(bureau().navigation().referencecourante(), u"JP000007");
}

TEST_F(ActionsTest, AnEntryAtTheSideOfAButtonIsACommandOfItsOwn) {
    demarre(QString());
    std::vector<Ordre> donnees;
    QObject::connect(&actions(), &Actions::commande, &actions(),
                     [&donnees](Ordre ordre, int) { donnees.push_back(ordre); });
    QMenu* cote = barrecommande().menu(u"imprimereject"_s);
    const auto choisit = [cote](int rang) {
        emit cote->aboutToShow();
        cote->actions().at(rang)->trigger();
    };
    choisit(1);
    EXPECT_TRUE(donnees.empty()) << "it waits";
    actions().permet(Ordre::EjecterPage, true);
    choisit(1);
    EXPECT_EQ(donnees, std::vector{Ordre::EjecterPage});
}

// ---- the windows

TEST_F(ActionsTest, WhatTheActiveWindowCanDoIsOnInBarAndMenuAndDoneByIt) {
    demarre(QString());
    FilleEssai& fille = metfille();
    verifieaccord();
    EXPECT_FALSE(entree("mfichier2", 0)->isEnabled());
    fille.capable = Ordre::Imprimer;
    fille.surchangement();
    EXPECT_TRUE(entree("mfichier2", 0)->isEnabled());
    EXPECT_TRUE(barrecommande().isButtonEnabled(u"Imprimer"_s));
    presse(barrecommande(), "Imprimer");
    entree("mfichier2", 0)->trigger();
    EXPECT_EQ(fille.faits, (std::vector{Ordre::Imprimer, Ordre::Imprimer}));
    metfille(); // which cannot
    EXPECT_FALSE(barrecommande().isButtonEnabled(u"Imprimer"_s));
    presse(barrecommande(), "Imprimer");
    EXPECT_EQ(fille.faits.size(), 2U);
    aire().activate(&fille);
    EXPECT_TRUE(barrecommande().isButtonEnabled(u"Imprimer"_s));
    aire().around(&fille)->close();
    EVENTUALLY(bureau().filles().size() == 1U);
    EXPECT_FALSE(barrecommande().isButtonEnabled(u"Imprimer"_s));
    verifieaccord();
}

TEST_F(ActionsTest, TheButtonThatCopiesIsOnWithSomethingToCopy) {
    demarre(QString());
    const auto offert = [this] { return barrecommande().isButtonEnabled(u"Copier"_s); };
    EXPECT_FALSE(offert());
    presse(barreecran(), "CO");
    EXPECT_FALSE(offert()) << "a window without a document";
    programme->ouvre(decoupecle(u"CO000001"));
    EXPECT_TRUE(offert());
    programme->recherches().montre(true);
    EXPECT_FALSE(offert());
    FilleEssai& liste = metfille();
    EXPECT_FALSE(offert());
    liste.capable = Ordre::Copier;
    liste.surchangement();
    EXPECT_TRUE(offert());
    EXPECT_FALSE(ecran().menuBar()->findChild<QMenu*>(u"medition"_s)->menuAction()->isVisible());
    presse(barrecommande(), "Copier");
    EXPECT_EQ(liste.faits, std::vector{Ordre::Copier});
}

TEST_F(ActionsTest, TheMenuOfSendingIsOnWithAWindowThatCanSend) {
    demarre(QString());
    const QMenu* envoi = ecran().findChild<QMenu*>(u"mfichiersend"_s);
    EXPECT_FALSE(envoi->isEnabled());
    metfille(Ordre::EnvoyerTexte);
    EXPECT_TRUE(envoi->isEnabled());
    metfille();
    EXPECT_FALSE(envoi->isEnabled());
}

TEST_F(ActionsTest, AWindowIsToldOnceEachTimeItBecomesTheActiveOne) {
    demarre(QString());
    FilleEssai& premiere = metfille();
    FilleEssai& seconde = metfille();
    EXPECT_EQ(premiere.activations, 1);
    EXPECT_EQ(seconde.activations, 1);
    aire().activate(&premiere);
    aire().activate(&premiere);
    EXPECT_EQ(premiere.activations, 2);
    EXPECT_EQ(seconde.activations, 1);
    EXPECT_EQ(bureau().devant(), &premiere);
}

TEST_F(ActionsTest, TheRunsEndTellsEveryWindow) {
    demarre(u"CO1"_s);
    FilleEssai& fille = metfille();
    const EtatFenetres etat = programme->cadre().etatfenetres();
    ASSERT_EQ(etat.filles.size(), 2U);
    EXPECT_EQ(etat.filles.at(0).nature, Nature::Document);
    EXPECT_EQ(etat.filles.at(0).reference, u"CO000001");
    EXPECT_EQ(etat.filles.at(1).nature, Nature::Liste);
    programme->enregistre();
    EXPECT_EQ(fille.ecritures, 1);
    EXPECT_EQ(*fille.decharges, 0);
    EXPECT_EQ(reglage("POSITIONFORME", "MDICHILDCONTENU").trimmed(), u"CO000001");
    const std::shared_ptr<const int> decharges = fille.decharges;
    dialogues.answers.push_back(Bouton::Oui);
    ASSERT_TRUE(programme->quitteprogramme());
    EXPECT_EQ(*decharges, 1);
}

TEST_F(ActionsTest, BarsAndMenusAgreeWhateverIsDoneToTheWindows) {
    demarre(u"CO1"_s);
    std::mt19937 de(3);
    const auto hasard = [&de](std::size_t bornes) { return static_cast<int>(de() % bornes); };
    const std::vector<QStringView> cles{u"CO000001", u"CO000002", u"JP000007"};
    for (int pas = 0; pas < 150 && !HasFailure(); ++pas) {
        const auto enfants = aire().children();
        QWidget* une = enfants.empty() ? nullptr : enfants.at(static_cast<std::size_t>(hasard(enfants.size())));
        const int fait = hasard(8);
        SCOPED_TRACE(u"step %1: %2"_s.arg(pas).arg(fait).toStdString());
        switch (fait) {
        case 0:
            programme->ouvre(decoupecle(cles.at(static_cast<std::size_t>(hasard(cles.size())))));
            break;
        case 1:
            actions().de(Ordre::Collection, hasard(4)).trigger();
            break;
        case 2:
            if (enfants.size() < 6U)
                metfille(hasard(2) == 0 ? Ordre::Copier : Ordre::Imprimer);
            break;
        case 3:
            if (une)
                aire().around(une)->close();
            break;
        case 4:
            if (une)
                aire().activate(une);
            break;
        case 5:
            actions().de(Ordre::AfficherCriteres).trigger();
            break;
        case 6:
            actions().de(hasard(2) == 0 ? Ordre::Rechercher : Ordre::BarreEcran).trigger();
            break;
        default:
            actions().de(hasard(2) == 0 ? Ordre::Precedent : Ordre::Suivant).trigger();
        }
        verifieaccord();
    }
}

// ---- the user's tools

TEST_F(ActionsTest, ToolsAreMadeRenamedAndRemovedInBarAndMenu) {
    demarre(QString());
    Toolbar& barre = barreoutils();
    EXPECT_EQ(outils(), QStringList());
    EXPECT_FALSE(barre.isVisible());
    actions().changeoutils({{u"Tableur"_s}, {u"Bloc & notes"_s}});
    EXPECT_EQ(outils(), (QStringList{u"Tableur"_s, u"Bloc & notes"_s}));
    EXPECT_TRUE(barre.isVisible());
    EXPECT_EQ(barre.dockedAt(), 4) << "where the settings want it";
    actions().changeoutils({{u"Calculs"_s}, {u"Bloc & notes"_s}, {u"Dessin"_s}});
    EXPECT_EQ(outils(), (QStringList{u"Calculs"_s, u"Bloc & notes"_s, u"Dessin"_s}));
    actions().changeoutils({{u"Dessin"_s}});
    EXPECT_EQ(outils(), QStringList{u"Dessin"_s});
    EXPECT_EQ(actions().nombredoutils(), 1);
    entree("mbarre3", 0)->trigger();
    EXPECT_FALSE(barre.isVisible());
    actions().changeoutils({});
    entree("mbarre3", 2)->trigger();
    EXPECT_FALSE(barre.isVisible()) << "there is nothing on it";
    actions().changeoutils({{u"Dessin"_s}});
    EXPECT_EQ(barre.dockedAt(), 2);
}

TEST_F(ActionsTest, ThereIsRoomForTwentyTools) {
    demarre(QString());
    QList<OutilMontre> trop;
    for (int rang = 1; rang <= reglage::nombremaxoutils + 1; ++rang)
        trop << OutilMontre{u"Outil %1"_s.arg(rang)};
    actions().changeoutils(trop);
    EXPECT_EQ(actions().nombredoutils(), reglage::nombremaxoutils);
    EXPECT_EQ(outils().size(), reglage::nombremaxoutils);
    EXPECT_EQ(outils().last(), u"Outil 20");
}

TEST_F(ActionsTest, AToolIsACommandWithItsRank) {
    demarre(QString());
    actions().changeoutils({{u"Tableur"_s}, {u"Dessin"_s}});
    std::vector<std::pair<Ordre, int>> donnees;
    QObject::connect(&actions(), &Actions::commande, &actions(),
                     [&](Ordre ordre, int rang) { donnees.emplace_back(ordre, rang); });
    presse(barreoutils(), "outil2");
    entree("moutils1", 0)->trigger();
    EXPECT_EQ(donnees, (std::vector{std::pair{Ordre::Outil, 1}, std::pair{Ordre::Outil, 0}}));
    verifieaccord();
}
