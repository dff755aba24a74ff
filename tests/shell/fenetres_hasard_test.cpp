// A hand that does anything to the windows of the real frame, in any order: nothing ends, and all that tells of a
// window tells the same. VELM_LONG=1 makes it 10,000 steps, VELM_SEED repeats a walk.
#include "document/ui/listedeliens.h"
#include "document/ui/voletliens.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/tree/treeview.h"
#include "search/ui/frmvelmorselect.h"
#include "shell/recherches.h"
#include "tests/shell/selection_support.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QScreen>
#include <QTabWidget>

#include <random>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::size_t plusdefenetres = 9;

/// What the toolkit complains about while one lives.
class Plaintes {
public:
    Plaintes() {
        textes().clear();
        avant_ = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& texte) {
            // The platform without a screen says so of each shape of the pointer and of what it cannot do.
            if (!texte.startsWith(u"This plugin does not support"))
                textes() << texte;
        });
    }
    ~Plaintes() { qInstallMessageHandler(avant_); }
    Plaintes(const Plaintes&) = delete;
    Plaintes& operator=(const Plaintes&) = delete;
    static QStringList& textes() {
        static QStringList tous;
        return tous;
    }

private:
    QtMessageHandler avant_ = nullptr;
};

class FenetresAuHasard : public SelectionTest {
protected:
    struct Geste {
        const char* nom;
        void (FenetresAuHasard::*fait)();
    };

    int hasard(int nombre) { return static_cast<int>(de_() % static_cast<unsigned>(nombre)); }
    bool pileouface() { return hasard(2) == 0; }
    template <typename Liste>
    auto un(const Liste& liste) {
        return *std::next(std::begin(liste), hasard(static_cast<int>(std::size(liste))));
    }
    void presseun(Toolbar& barre, std::initializer_list<const char*> cles) {
        const QString cle = QString::fromUtf8(un(std::vector<const char*>(cles)));
        if (barre.isButtonEnabled(cle) && barre.isButtonVisible(cle))
            QTest::mouseClick(barre.widget(cle), Qt::LeftButton);
    }
    void touche(Qt::Key touche, Qt::KeyboardModifiers avec = {}) {
        QWidget* ici = QApplication::focusWidget();
        QTest::keyClick(ici ? ici : &ecran(), touche, avec);
    }
    QMdiSubWindow* cadre() {
        const auto cadres = aire().subWindowList();
        return cadres.isEmpty() ? nullptr : cadres.at(hasard(static_cast<int>(cadres.size())));
    }
    QWidget* formulaire() const { return programme->recherches().formulaire(); }

    // ---- what a hand does

    void ouvreundocument() {
        if (programme->bureau().fenetres().size() < plusdefenetres)
            programme->bureau().navigation().navigue(u"TA"_s + un(cles_), pileouface());
    }
    void basculeunslot() { presseun(barreecran(), {"CO", "EU", "JP", "CL"}); }
    void fermecelledevant() {
        const auto comment = hasard(4);
        QMdiSubWindow* lequel = cadre();
        if (comment == 0)
            touche(Qt::Key_W, Qt::ControlModifier);
        else if (comment == 1)
            touche(Qt::Key_F4, Qt::ControlModifier);
        else if (lequel && comment == 2)
            lequel->close();
        else if (lequel && lequel->widget())
            lequel->widget()->close();
    }
    void change() {
        const bool retour = pileouface();
        const Qt::KeyboardModifiers avec = retour ? Qt::ControlModifier | Qt::ShiftModifier : Qt::ControlModifier;
        touche(pileouface() ? Qt::Key_F6 : retour ? Qt::Key_Backtab : Qt::Key_Tab, avec);
    }
    void histoire() {
        const Qt::KeyboardModifiers avec = pileouface() ? Qt::AltModifier : Qt::AltModifier | Qt::ShiftModifier;
        touche(pileouface() ? Qt::Key_Left : Qt::Key_Right, avec);
    }
    void voisin() { touche(pileouface() ? Qt::Key_Up : Qt::Key_Down, Qt::AltModifier); }
    void retaille() { ecran().resize(360 + hasard(430), 260 + hasard(330)); }
    void changedetat() {
        QMdiSubWindow* lequel = cadre();
        if (!lequel || lequel->isHidden())
            return;
        if (const int etat = hasard(3); etat == 0)
            lequel->showMaximized();
        else if (etat == 1)
            lequel->showMinimized();
        else
            lequel->showNormal();
    }
    void deplace() {
        QMdiSubWindow* lequel = cadre();
        if (lequel && !lequel->isMaximized() && !lequel->isMinimized())
            lequel->setGeometry(hasard(300) - 50, hasard(200), 150 + hasard(500), 120 + hasard(400));
    }
    void cliqueuntitre() {
        if (QMdiSubWindow* lequel = cadre(); lequel && lequel->isVisible())
            QTest::mouseClick(lequel, Qt::LeftButton, {}, {lequel->width() / 2, 8});
    }
    void doublecliqueuntitre() {
        if (QMdiSubWindow* lequel = cadre(); lequel && lequel->isVisible())
            QTest::mouseDClick(lequel, Qt::LeftButton, {}, {lequel->width() / 2, 8});
    }
    void dispose() { entree("mdisposition", hasard(3))->trigger(); }
    void range() { entree(un(std::array{"mbarre1", "mbarre2", "mbarre3"}), hasard(5))->trigger(); }
    void barredetat() { entree("maffichage0", 3)->trigger(); }
    void mode() { entree("maffichagetfu")->trigger(); }
    void panneau() { presseun(barrecommande(), {"Rechercher"}); }
    void liste() { presseun(barre(), {"affichercritères", "suivantrecherche", "précédentrecherche", "regrouper"}); }
    void choisitunefenetre() {
        QAction* entreechoisie = entree("mlistefenetre", 1 + hasard(4));
        if (entreechoisie->isVisible())
            entreechoisie->trigger();
    }
    void bloc() {
        if (Textes* devant = active())
            presseun(devant->barrechild(), {"arbre", "tableau", "recherchedico", "barrehoriz", "barreverti"});
    }
    void listesdeliens() {
        Textes* devant = active();
        if (devant && devant->isVisible())
            QTest::mouseClick((pileouface() ? devant->volet().liens() : devant->volet().correlats()).bouton(),
                              Qt::LeftButton);
    }
    void tireunebarre() {
        const auto barres = ecran().findChildren<SplitterBar*>();
        SplitterBar* laquelle = barres.at(hasard(static_cast<int>(barres.size())));
        if (!laquelle->isVisible())
            return;
        const QPoint prise = laquelle->rect().center();
        QTest::mousePress(laquelle, Qt::LeftButton, {}, prise);
        QTest::mouseMove(laquelle, prise + QPoint(hasard(800) - 400, hasard(800) - 400));
        if (pileouface())
            QTest::mouseRelease(laquelle, Qt::LeftButton, {}, laquelle->rect().center());
        else
            touche(Qt::Key_Escape);
    }
    void touches() {
        constexpr std::array lesquelles{Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Down,    Qt::Key_Up,
                                        Qt::Key_Left, Qt::Key_Right,   Qt::Key_Return,  Qt::Key_Escape,
                                        Qt::Key_Home, Qt::Key_End,     Qt::Key_PageDown};
        for (int fois = 0; fois <= hasard(6); ++fois)
            touche(un(lesquelles));
    }
    void cherche() {
        Textes* devant = active();
        auto* mots = devant ? devant->findChild<QLineEdit*>(u"Textedico"_s) : nullptr;
        if (!mots || !mots->isVisible())
            return;
        mots->setText(un(QStringList{u"prix"_s, u"deux prix"_s, u"introuvable"_s}));
        mots->setFocus();
        touche(Qt::Key_Return);
    }
    void remplit() { programme->selection().controle().remplissage().remplitdecles(cles_.mid(hasard(3))); }
    void formulairedemots() {
        if (!formulaire() || !formulaire()->isVisible())
            return;
        auto* onglets = formulaire()->findChild<QTabWidget*>(u"ongletrecherche"_s);
        onglets->setCurrentIndex(hasard(3));
        for (QComboBox* boite : formulaire()->findChildren<QComboBox*>()) {
            if (boite->isVisible() && hasard(3) == 0) {
                QTest::mouseClick(boite, Qt::LeftButton, {}, {boite->width() - 6, boite->height() / 2});
                // A hand cannot touch anything else before the list has gone.
                if (QWidget* liste = QApplication::activePopupWidget())
                    QTest::keyClick(liste, pileouface() ? Qt::Key_Escape : Qt::Key_Return);
                ecran().activateWindow(); // as a window manager does, which never made the list active
            }
        }
    }
    void cherchedansleformulaire() {
        if (!formulaire() || !formulaire()->isVisible())
            return;
        auto* mots = formulaire()->findChild<QLineEdit*>(u"Textedico"_s);
        if (!mots || !mots->isVisible())
            return;
        mots->setText(un(QStringList{u"prix"_s, u"deux"_s, u"rien"_s}));
        mots->setFocus();
        touche(Qt::Key_Return);
    }
    void laissevenir() { QCoreApplication::processEvents(); }
    void enterre() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    static const std::vector<Geste>& gestes() {
        using Au = FenetresAuHasard;
        static const std::vector<Geste> tous{{"ouvreundocument", &Au::ouvreundocument},
                                             {"ouvreundocument", &Au::ouvreundocument},
                                             {"basculeunslot", &Au::basculeunslot},
                                             {"basculeunslot", &Au::basculeunslot},
                                             {"fermecelledevant", &Au::fermecelledevant},
                                             {"fermecelledevant", &Au::fermecelledevant},
                                             {"change", &Au::change},
                                             {"histoire", &Au::histoire},
                                             {"voisin", &Au::voisin},
                                             {"retaille", &Au::retaille},
                                             {"retaille", &Au::retaille},
                                             {"changedetat", &Au::changedetat},
                                             {"changedetat", &Au::changedetat},
                                             {"deplace", &Au::deplace},
                                             {"cliqueuntitre", &Au::cliqueuntitre},
                                             {"doublecliqueuntitre", &Au::doublecliqueuntitre},
                                             {"dispose", &Au::dispose},
                                             {"range", &Au::range},
                                             {"barredetat", &Au::barredetat},
                                             {"mode", &Au::mode},
                                             {"panneau", &Au::panneau},
                                             {"liste", &Au::liste},
                                             {"choisitunefenetre", &Au::choisitunefenetre},
                                             {"bloc", &Au::bloc},
                                             {"listesdeliens", &Au::listesdeliens},
                                             {"tireunebarre", &Au::tireunebarre},
                                             {"touches", &Au::touches},
                                             {"cherche", &Au::cherche},
                                             {"remplit", &Au::remplit},
                                             {"formulairedemots", &Au::formulairedemots},
                                             {"cherchedansleformulaire", &Au::cherchedansleformulaire},
                                             {"laissevenir", &Au::laissevenir},
                                             {"enterre", &Au::enterre}};
        return tous;
    }

    // ---- what must be so after each of them

    void verifie() {
        const Navigation& navigation = programme->bureau().navigation();
        for (int indice = 0; indice < nombredecollections; ++indice) {
            const QString code = typedindice(indice);
            const bool cochee = navigation.maffichagef(indice);
            const Textes* fenetre = programme->fenetre(indice);
            EXPECT_EQ(barreecran().value(code), cochee) << code.toStdString();
            EXPECT_EQ(entree("maffichagef", indice)->isChecked(), cochee) << code.toStdString();
            EXPECT_EQ(entree("mlistefenetre", indice + 1)->isVisible(), cochee) << code.toStdString();
            EXPECT_EQ(fenetre && !aire().around(fenetre)->isHidden(), cochee) << code.toStdString();
        }
        const QSize place = ecran().screen()->availableGeometry().size();
        EXPECT_LE(ecran().width(), place.width());
        EXPECT_LE(ecran().height(), place.height());
        const QWidget* devant = aire().activeChild();
        EXPECT_TRUE(!devant || !aire().around(devant)->isHidden());
        const FenetreFille* contrat = programme->bureau().devant();
        for (const Ordre ordre : {Ordre::Copier, Ordre::ToutSelectionner, Ordre::Chercher})
            EXPECT_EQ(actions().de(ordre).isEnabled(), contrat && contrat->peut(ordre)) << static_cast<int>(ordre);
        const QWidget* ici = QApplication::focusWidget();
        EXPECT_TRUE(!ici || ici->isVisible())
            << ici->metaObject()->className() << ' ' << ici->objectName().toStdString() << " of "
            << ici->window()->metaObject()->className() << ", active "
            << (QApplication::activeWindow() ? QApplication::activeWindow()->metaObject()->className() : "none")
            << ", form " << (formulaire() && formulaire()->isVisible());
        EXPECT_TRUE(dialogues.messages.empty()) << dialogues.texts().join(u'|').toStdString();
        EXPECT_EQ(Plaintes::textes().join(u'|').toStdString(), "");
    }

    std::mt19937 de_;
    QStringList cles_{u"CO000001"_s, u"CO000002"_s, u"CO000003"_s, u"CO000004"_s, u"JP000007"_s};
};

} // namespace

TEST_F(FenetresAuHasard, NothingThatIsDoneToTheWindowsEndsTheProgramOrLeavesThemAtOdds) {
    bool donne = false;
    const bool longue = qEnvironmentVariableIsSet("VELM_LONG");
    const int dite = qEnvironmentVariableIntValue("VELM_SEED", &donne);
    // The suite is to say the same each time; the long walks find what is new.
    const unsigned graine = donne ? static_cast<unsigned>(dite) : longue ? std::random_device{}() % 1'000'000 : 1;
    const int pas = longue ? 10'000 : 400;
    std::cout << "VELM_SEED=" << graine << ", " << pas << " steps"
              << std::endl; // told before anything ends the program
    de_.seed(graine);
    regle(u"POSITIONMDI", u"WINDOWSSTATE", u"0"_s);
    ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));

    const Plaintes plaintes;
    QStringList chemin;
    for (int rang = 0; rang < pas && !HasFailure(); ++rang) {
        const Geste geste = un(gestes());
        chemin << QString::fromLatin1(geste.nom);
        (this->*geste.fait)();
        verifie();
    }
    EXPECT_FALSE(HasFailure()) << "VELM_SEED=" << graine << ", step " << chemin.size() << ": "
                               << chemin.last().toStdString() << ", after "
                               << chemin.mid(std::max<qsizetype>(0, chemin.size() - 12)).join(u' ').toStdString();
}
