// What shows at the start of the real program: splash, windows of the last run, tip; and the small windows of its
// menus.
#include "core/schemas.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/text/richtextbox.h"
#include "shell/bureau.h"
#include "tests/shell/ecran_support.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QMdiSubWindow>
#include <QScreen>

using namespace velm;

namespace {

/// The texts under which a label was painted.
class Peints final : public QObject {
public:
    explicit Peints(const QString& nom) : nom_(nom) { qApp->installEventFilter(this); }
    QStringList textes;

    bool eventFilter(QObject* objet, QEvent* evenement) override {
        const auto* label = qobject_cast<QLabel*>(objet);
        if (evenement->type() == QEvent::Paint && label && label->objectName() == nom_ &&
            (textes.isEmpty() || textes.last() != label->text()))
            textes << label->text();
        return false;
    }

private:
    QString nom_;
};

/// A pointer that remembers the shapes it took.
class SablierNote final : public Sablier {
public:
    QList<int> pris;
    int pointeur() const override { return pris.isEmpty() ? defaut : pris.last(); }
    void fixepointeur(int valeur) override { pris << valeur; }
};

class DemarrageTest : public test::EcranTest {
protected:
    void SetUp() override {
        EcranTest::SetUp();
        ASSERT_TRUE(QFile::copy(QStringLiteral(VELM_SOURCE_DIR "/langues/TIPS.FR"),
                                dossier.filePath(QStringLiteral("langues/TIPS.FR"))));
    }
    QDialog* fenetre(const char* nom) const {
        auto* trouvee = ecran().findChild<QDialog*>(QString::fromLatin1(nom));
        return trouvee && trouvee->isVisible() ? trouvee : nullptr;
    }
    QDialog* astuce() const { return fenetre("frmTip"); }
    void ferme(const char* nom) const {
        QTest::keyClick(fenetre(nom), Qt::Key_Escape);
        EVENTUALLY(!ecran().findChild<QDialog*>(QString::fromLatin1(nom)));
    }
    void restaure(const QString& fenetres, const QString& contenus) {
        regle(u"GENERALITES", u"RESTAUREFEN", QStringLiteral("1"));
        regle(u"POSITIONFORME", u"MDICHILD", fenetres);
        regle(u"POSITIONFORME", u"MDICHILDCONTENU", contenus);
        ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
    }
    QStringList restaurees() const {
        QStringList cles;
        for (const Textes* ouverte : programme->bureau().fenetres())
            cles << ouverte->referencecourante();
        return cles;
    }
};

} // namespace

TEST_F(DemarrageTest, TheTipShowsAtTheStartUntilItIsUnticked) {
    regle(u"OPTIONS", u"TIPS", QStringLiteral("1"));
    demarre(QString());
    ASSERT_NE(astuce(), nullptr);
    EXPECT_TRUE(astuce()->isModal());
    EXPECT_FALSE(astuce()->findChild<QLabel*>(QStringLiteral("lblTipText"))->text().isEmpty());
    auto* boite = astuce()->findChild<QCheckBox*>(QStringLiteral("chkLoadTipsAtStartup"));
    EXPECT_TRUE(boite->isChecked());
    boite->click();
    EXPECT_EQ(reglage("OPTIONS", "TIPS"), u"0");
    ferme("frmTip");
    redemarre();
    EXPECT_EQ(astuce(), nullptr);
}

TEST_F(DemarrageTest, TheTipOfAStartLeavesTheStartPageToBeSeen) {
    regle(u"OPTIONS", u"TIPS", QStringLiteral("1"));
    demarre(QString());
    ASSERT_NE(astuce(), nullptr);
    const QRect libre = ecran().screen()->availableGeometry();
    EXPECT_LE(libre.right() - astuce()->geometry().right(), 24);
    EXPECT_GT(astuce()->geometry().bottom(), libre.center().y());
    EXPECT_TRUE(libre.contains(astuce()->geometry()));
    ferme("frmTip");
    entree("maide0", 0)->trigger();
    ASSERT_NE(astuce(), nullptr);
    EXPECT_LE(std::abs(astuce()->geometry().center().x() - libre.center().x()), 2) << "who asks has it in the middle";
}

TEST_F(DemarrageTest, WithoutASettingTheTipShows) {
    ASSERT_TRUE(QFile::remove(dossier.filePath(QStringLiteral("reglages.ini"))));
    demarre(QString());
    EXPECT_NE(astuce(), nullptr);
}

TEST_F(DemarrageTest, TheTipOpensFromTheMenuWithTipsOffAndCanBeTurnedOnAgain) {
    demarre(QString());
    EXPECT_EQ(astuce(), nullptr);
    entree("maide0", 0)->trigger();
    ASSERT_NE(astuce(), nullptr);
    auto* boite = astuce()->findChild<QCheckBox*>(QStringLiteral("chkLoadTipsAtStartup"));
    EXPECT_FALSE(boite->isChecked());
    boite->click();
    ferme("frmTip");
    redemarre();
    EXPECT_NE(astuce(), nullptr);
}

TEST_F(DemarrageTest, NoTipStandsBeforeAFrameThatStartsMinimised) {
    regle(u"OPTIONS", u"TIPS", QStringLiteral("1"));
    regle(u"POSITIONMDI", u"WINDOWSSTATE", QStringLiteral("1"));
    demarre(QString());
    EXPECT_TRUE(ecran().isMinimized());
    EXPECT_EQ(astuce(), nullptr);
}

TEST_F(DemarrageTest, NoTipStandsBeforeADossierOfTheCommandLine) {
    regle(u"OPTIONS", u"TIPS", QStringLiteral("1"));
    ecritdossiers();
    demarre(dossier.filePath(QStringLiteral("mien.dV2")));
    EXPECT_EQ(astuce(), nullptr);
}

TEST_F(DemarrageTest, TheSmallWindowsStandInTheMiddleOfTheScreenOfAMaximisedFrame) {
    demarre(QString());
    for (const auto& [tableau, nom] : {std::pair("maide0", "frmTip"), std::pair("maide1", "frmAbout")}) {
        entree(tableau, 0)->trigger();
        ASSERT_NE(fenetre(nom), nullptr);
        const QPoint ecart = fenetre(nom)->geometry().center() - ecran().screen()->availableGeometry().center();
        EXPECT_LE(std::max(std::abs(ecart.x()), std::abs(ecart.y())), 2) << nom;
        ferme(nom);
    }
}

TEST_F(DemarrageTest, TheAboutBoxPutsTheHourglassAwayOnceItShows) {
    SablierNote note;
    OptionsProgramme options;
    options.dossierprogramme = dossier.path();
    options.fichierprogramme = dossier.filePath(QStringLiteral("velm2000"));
    options.fichierreglages = dossier.filePath(QStringLiteral("reglages.ini"));
    options.dossierinstance = dossier.path();
    options.dossierdonnees = dossier.filePath(QStringLiteral("donnees"));
    programme = std::make_unique<Programme>(
        options, MondeExterieur{dialogues, navigateur, processus, note, pressepapiers, courrier, imprimante, lecteurs});
    ASSERT_EQ(programme->demarre(), Demarrage::EnMarche);
    note.pris.clear();
    entree("maide1", 0)->trigger();
    EXPECT_NE(fenetre("frmAbout"), nullptr);
    EXPECT_EQ(note.pris, (QList<int>{Sablier::attente, Sablier::defaut}));
    programme.reset(); // before the pointer that it knows
}

TEST_F(DemarrageTest, TheSideEditorsEntryShowsAsTheSettingWants) {
    demarre(QString());
    EXPECT_TRUE(entree("mediteur")->isVisible());
    for (const auto& [valeur, visible] : {std::pair("0", false), std::pair("False", false), std::pair("-1", true)}) {
        regle(u"MASTER", u"EDITEUR", QString::fromLatin1(valeur));
        programme.reset();
        demarre(QString());
        EXPECT_EQ(entree("mediteur")->isVisible(), visible) << valeur;
    }
}

TEST_F(DemarrageTest, TheAboutBoxNamesTheCollectionOfTheOpenBase) {
    {
        const auto base =
            Database::open(dossier.filePath(QStringLiteral("velm2000.dat")), OpenMode::Shared, corpusSchema());
        TableWriter parametres(*base.database, QStringLiteral("paramètres"), {QStringLiteral("titre")});
        ASSERT_TRUE(parametres.add({QStringLiteral("Ma collection")}));
    }
    demarre(QString());
    entree("maide1", 0)->trigger();
    ASSERT_NE(fenetre("frmAbout"), nullptr);
    const auto* titre = fenetre("frmAbout")->findChild<QLabel*>(QStringLiteral("lblCollection"));
    ASSERT_NE(titre, nullptr);
    EXPECT_TRUE(titre->text().contains(QStringLiteral("Ma collection")));
}

TEST_F(DemarrageTest, ThePartnersWindowOpensFromItsEntryInThePicturesSize) {
    ASSERT_TRUE(QImage(140, 90, QImage::Format_RGB32).save(dossier.filePath(QStringLiteral("partners.bmp"))));
    demarre(QString());
    entree("maide1", 1)->trigger();
    ASSERT_NE(fenetre("sponsor"), nullptr);
    EXPECT_EQ(fenetre("sponsor")->size(), QSize(140, 90));
    ferme("sponsor");
}

TEST_F(DemarrageTest, TheSplashPaintsTheStepsOfTheStart) {
    regle(u"GENERALITES", u"RESTAUREFEN", QStringLiteral("1"));
    regle(u"POSITIONFORME", u"MDICHILD", QStringLiteral("-1  X         "));
    regle(u"POSITIONFORME", u"MDICHILDCONTENU", QString(16, u' ') + QStringLiteral("JP000007"));
    const Peints etapes(QStringLiteral("lblEtape"));
    patience = std::chrono::milliseconds(0);
    demarre(QString());
    EXPECT_EQ(etapes.textes,
              (QStringList{QStringLiteral("Démarrage du programme..."), QStringLiteral("Base documentaire ouverte..."),
                           QStringLiteral("Préparation de la fenêtre principale..."),
                           QStringLiteral("Préparation des fenêtres..."),
                           QStringLiteral("Jurisprudence - Préparation des fenêtres..."),
                           QStringLiteral("Préparation des outils..."), QStringLiteral("Langue...")}));
    for (const QWidget* fenetre : QApplication::topLevelWidgets())
        EXPECT_NE(fenetre->objectName(), u"frmSplash");
}

TEST_F(DemarrageTest, ARunThatHasNotBegunEndsWithoutAFrame) {
    programme = std::make_unique<Programme>(
        optionsprogramme({}),
        MondeExterieur{dialogues, navigateur, processus, sablier, pressepapiers, courrier, imprimante, lecteurs});
    programme->termine();
    EXPECT_EQ(programme->fenetre(0), nullptr);
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(DemarrageTest, AStartThatDoesNotTakeLongHasNoSplash) {
    const Peints etapes(QStringLiteral("lblEtape"));
    patience = std::chrono::hours(1);
    demarre(QString());
    EXPECT_EQ(etapes.textes, QStringList());
}

TEST_F(DemarrageTest, TheTipWaitsWhileADocumentOfTheCommandLineIsRead) {
    regle(u"OPTIONS", u"TIPS", QStringLiteral("1"));
    demarre(QStringLiteral("CO1"));
    QCoreApplication::processEvents();
    EXPECT_EQ(astuce(), nullptr);
    programme->ouvre(decoupecle(u"JP000007"));
    aire().around(programme->fenetre(0))->close();
    QCoreApplication::processEvents();
    EXPECT_EQ(astuce(), nullptr) << "another window is open";
    aire().around(programme->fenetre(2))->close();
    EVENTUALLY(astuce() != nullptr);
    ferme("frmTip");
    programme->ouvre(decoupecle(u"JP000007"));
    QCoreApplication::processEvents();
    aire().around(programme->fenetre(2))->close();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(astuce(), nullptr) << "once";
}

TEST_F(DemarrageTest, OnAFirstStartDocumentsFillTheFrame) {
    ASSERT_TRUE(QFile::remove(dossier.filePath(QStringLiteral("reglages.ini"))));
    regle(u"OPTIONS", u"TIPS", QStringLiteral("0"));
    demarre(QStringLiteral("CO1"));
    EXPECT_TRUE(aire().around(programme->fenetre(0))->isMaximized());
    redemarre(QStringLiteral("JP7"));
    EXPECT_TRUE(aire().around(programme->fenetre(2))->isMaximized());
    aire().around(programme->fenetre(2))->showNormal();
    redemarre(QStringLiteral("JP7"));
    EXPECT_FALSE(aire().around(programme->fenetre(2))->isMaximized());
}

TEST_F(DemarrageTest, SavedWindowStringsOfAnyFormOpenWhatTheyName) {
    restaure(QStringLiteral("00"), QStringLiteral("CO000002")); // too short: the active one only
    EXPECT_EQ(restaurees(), QStringList{QStringLiteral("CO000002")});
    programme.reset();
    restaure(QStringLiteral("-1X X") + QString(400, u'X'),
             QStringLiteral("CO000001") + QString(8, u' ') + QStringLiteral("JP000007") + QString(4000, u' '));
    EXPECT_EQ(restaurees(), (QStringList{QStringLiteral("CO000001"), QStringLiteral("JP000007")}));
    programme.reset();
    restaure(QStringLiteral("-1XXXXXXXXXXXX"), QString()); // open slots without a key
    EXPECT_TRUE(restaurees().isEmpty());
    programme.reset();
    restaure(QStringLiteral("zz\u00E9XX\tXX"),
             QStringLiteral("-1+1-1+1LITAP999TA\u00E9\u00E9\u00E9\u00E9\u00E9\u00E9CO")
                 .repeated(5)); // nonsense: no key of a collection among them
    for (const Textes* fenetre : programme->bureau().fenetres())
        EXPECT_EQ(fenetre->vue().control().length(), 0) << fenetre->referencecourante().toStdString();
    EXPECT_TRUE(programme->ecran()->isVisible());
    EXPECT_TRUE(dialogues.messages.empty());
}

TEST_F(DemarrageTest, AKeyOfAnotherSlotOpensItsOwnCollection) {
    restaure(QStringLiteral("01 X          "), QString(8, u' ') + QStringLiteral("JP000007"));
    EXPECT_EQ(restaurees(), QStringList{QStringLiteral("JP000007")});
    EXPECT_EQ(programme->bureau().active(), programme->fenetre(2));
}

TEST_F(DemarrageTest, EachGroundNumberOfTheSettingsIsTaken) {
    for (int numero = -2; numero <= 6; ++numero) {
        regle(u"GENERALITES", u"FOND", QStringLiteral("1"));
        regle(u"GENERALITES", u"FONDNO", QString::number(numero));
        regle(u"GENERALITES", u"FONDCOULEUR", QStringLiteral("255"));
        demarre(QString());
        const bool image = numero >= 0 && numero <= 4;
        EXPECT_EQ(aire().backPicture().isNull(), !image) << numero;
        const auto fond = fondecran(numero, 255);
        if (fond && fond->couleur) {
            const auto c = static_cast<uint>(*fond->couleur);
            EXPECT_EQ(aire().backColour(), QColor(int(c & 0xFF), int(c >> 8 & 0xFF), int(c >> 16))) << numero;
        } else {
            EXPECT_NE(aire().backColour(), QColor(Qt::red)) << numero;
        }
        programme.reset();
    }
}

TEST_F(DemarrageTest, AMaximisedFrameHasASensibleSizeToComeBackTo) {
    // What an earlier maximised run has written.
    regle(u"POSITIONMDI", u"WINDOWSSTATE", QStringLiteral("2"));
    regle(u"POSITIONMDI", u"WINDOWSWIDTH", QStringLiteral("900000"));
    demarre(QString());
    EXPECT_TRUE(ecran().isMaximized());
    const QRect libre = ecran().screen()->availableGeometry();
    const QRect normale = ecran().normalGeometry();
    EXPECT_TRUE(libre.contains(normale));
    EXPECT_LT(normale.width(), libre.width());
    EXPECT_GE(normale.width(), libre.width() / 2);
}

TEST_F(DemarrageTest, AFrameComesBackWhereItWas) {
    regle(u"POSITIONMDI", u"WINDOWSSTATE", QStringLiteral("0"));
    regle(u"POSITIONMDI", u"WINDOWSLEFT", QStringLiteral("600"));
    regle(u"POSITIONMDI", u"WINDOWSTOP", QStringLiteral("750"));
    regle(u"POSITIONMDI", u"WINDOWSWIDTH", QStringLiteral("7500"));
    regle(u"POSITIONMDI", u"WINDOWSHEIGHT", QStringLiteral("6000"));
    demarre(QString());
    EXPECT_EQ(ecran().geometry(), QRect(40, 50, 500, 400));
    redemarre();
    EXPECT_EQ(ecran().geometry(), QRect(40, 50, 500, 400));
    EXPECT_EQ(reglage("POSITIONMDI", "WINDOWSWIDTH"), u"7500");
}
