// Printing, the preview, PDF files, saving and sending, from the buttons and entries of the frame.
#include "shell/bureau.h"
#include "tests/shell/impressions_support.h"

#include <QMenu>
#include <QPointer>
#include <QTimer>

#include <set>

using namespace velm;
using test::ImpressionsTest;
using namespace Qt::Literals::StringLiterals;

TEST_F(ImpressionsTest, TheButtonPrintsTheDocumentInFrontUnderItsTitle) {
    commence(u"CO1"_s);
    presse(barrecommande(), "Imprimer");
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    EXPECT_EQ(imprimante.travaux[0].titre, u"Article premier");
    EXPECT_TRUE(textede(imprimante.travaux[0].pages).contains(u"Voir l’article 2 et le site ou nous."));
    EXPECT_TRUE(imprimante.questions.empty());
    EXPECT_TRUE(visible("Imprimer"));
    EXPECT_FALSE(visible("imprimereject"));
}

TEST_F(ImpressionsTest, ItsLinksLeadOutOfThePages) {
    commence(u"CO1"_s);
    donne(Ordre::Imprimer);
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    QStringList adresses;
    for (const JobLink& lien : imprimante.travaux[0].pages.pages.at(0).links)
        adresses << lien.address;
    EXPECT_EQ(adresses, (QStringList{u"https://example.org"_s, u"mailto:a@example.org"_s}));
}

TEST_F(ImpressionsTest, WithTheDialogTheUserIsAskedAndMayGiveUp) {
    regle(u"EDITEUR", u"CHOIXIMPRIMANTE", u"1"_s);
    commence(u"CO1"_s);
    imprimante.reponse = ReponseImpression::Annule;
    donne(Ordre::Imprimer);
    EXPECT_EQ(imprimante.questions.size(), 1U);
    EXPECT_TRUE(imprimante.travaux.empty());
    programme->fenetre(0)->vue().setSelStart(0);
    programme->fenetre(0)->vue().setSelLength(4);
    imprimante.reponse = ReponseImpression::Selection;
    donne(Ordre::Imprimer);
    EXPECT_TRUE(imprimante.questions.back().selectionpossible);
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    EXPECT_EQ(textede(imprimante.travaux[0].pages), u"Voir");
}

TEST_F(ImpressionsTest, AnOpenJobChangesTheButtonsAndGoesOnUntilItIsEnded) {
    sansejection();
    commence(u"CO1"_s);
    EXPECT_FALSE(entree("mfichier2", 2)->isVisible());
    donne(Ordre::Imprimer);
    EXPECT_TRUE(imprimante.travaux.empty()) << "nothing goes out before the end";
    EXPECT_FALSE(visible("Imprimer"));
    EXPECT_TRUE(visible("imprimereject"));
    EXPECT_TRUE(entree("mfichier2", 2)->isVisible());
    EXPECT_FALSE(entree("mfichier2", 3)->isEnabled()) << "the printer of the job stays";
    programme->ouvre(decoupecle(u"CO000002"_s));
    presse(barrecommande(), "imprimereject");
    entree("mfichier2", 2)->trigger();
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    const JobPages& pages = imprimante.travaux[0].pages;
    EXPECT_EQ(pages.pages.size(), 1U);
    EXPECT_TRUE(textede(pages).contains(u"nous."));
    EXPECT_TRUE(textede(pages).contains(u"Deux."));
    EXPECT_TRUE(visible("Imprimer"));
    EXPECT_FALSE(visible("imprimereject"));
    EXPECT_FALSE(entree("mfichier2", 2)->isVisible());
}

TEST_F(ImpressionsTest, TheButtonsEntriesPrintEndAndAbandon) {
    sansejection();
    commence(u"CO1"_s);
    donne(Ordre::Imprimer);
    const auto choisit = [this](int rang) {
        QMenu* menu = barrecommande().menu(u"imprimereject"_s);
        emit menu->aboutToShow();
        menu->actions().at(rang)->trigger();
    };
    choisit(0);
    choisit(1);
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    EXPECT_EQ(textede(imprimante.travaux[0].pages).count(u"Voir"), 2);
    donne(Ordre::Imprimer);
    choisit(2);
    EXPECT_EQ(imprimante.travaux.size(), 1U);
    EXPECT_TRUE(visible("Imprimer"));
    EXPECT_FALSE(programme->impressions().impressionouverte());
}

TEST_F(ImpressionsTest, APrinterThatTakesNothingLeavesTheJobOpenAndIsSaidInPassing) {
    sansejection();
    commence(u"CO1"_s);
    donne(Ordre::Imprimer);
    imprimante.works = false;
    donne(Ordre::EjecterPage);
    EXPECT_TRUE(programme->impressions().impressionouverte());
    EXPECT_TRUE(dialogues.messages.empty());
    EXPECT_EQ(barreetat().panelText(u"wait"_s), mots(9593));
    imprimante.works = true;
    donne(Ordre::EjecterPage);
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    const JobPages& pages = imprimante.travaux[0].pages;
    // The header of the first try is not there a second time.
    std::set<std::pair<float, float>> places;
    for (const JobRun& run : pages.pages.at(0).runs)
        EXPECT_TRUE(places.insert({run.x, run.baseline}).second);
}

TEST_F(ImpressionsTest, AnEndedProgramAsksWhatBecomesOfTheOpenJob) {
    for (const bool finit : {true, false}) {
        sansejection();
        ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
        donne(Ordre::Imprimer);
        imprimante.travaux.clear();
        dialogues.answers = {Bouton::Oui, finit ? Bouton::Oui : Bouton::Non};
        EXPECT_TRUE(programme->quitteprogramme());
        EXPECT_EQ(dialogues.messages.back().titre, mots(4403));
        EXPECT_EQ(imprimante.travaux.size(), finit ? 1U : 0U);
        programme.reset();
    }
}

TEST_F(ImpressionsTest, WithTheSearchFormInFrontTheListIsPrinted) {
    commence(QString());
    programme->recherches().montre(true);
    EXPECT_FALSE(action(Ordre::Imprimer).isEnabled()) << "there is no row";
    programme->selection().controle().remplissage().remplitdecles({u"CO000001"_s, u"JP000007"_s});
    programme->selection().controle().affichemenuselection(true);
    ASSERT_EQ(programme->bureau().devant()->nature(), Nature::Recherche);
    EXPECT_TRUE(action(Ordre::Imprimer).isEnabled()) << "it has got rows, and the form was in front before";
    EXPECT_TRUE(action(Ordre::Apercu).isEnabled());
    dialogues.answers = {Bouton::Oui};
    donne(Ordre::Imprimer);
    EXPECT_EQ(imprimante.tableaux.size(), 1U);
    // Without a document window only a list that is seen.
    programme->selection().controle().affichemenuselection(false);
    programme->recherches().montre(true);
    EXPECT_FALSE(action(Ordre::Imprimer).isEnabled());
    donne(Ordre::Apercu);
    EXPECT_EQ(apercu(), nullptr);
}

TEST_F(ImpressionsTest, ThePrinterIsChosenForAllJobs) {
    commence(u"CO1"_s);
    entree("mfichier2", 3)->trigger();
    EXPECT_EQ(imprimante.configurations, 1);
}

// ---- the preview

TEST_F(ImpressionsTest, ThePreviewOfADocumentShowsItsPagesAndPrintsIt) {
    commence(u"EU1"_s);
    donne(Ordre::Apercu);
    ASSERT_NE(apercu(), nullptr);
    EXPECT_EQ(apercu()->windowTitle(), mots(9589));
    EXPECT_GT(apercu()->vue().count(), 5);
    EXPECT_TRUE(imprimante.travaux.empty());
    EXPECT_FALSE(boutonapercu(u"abandonner"_s).isVisible());
    const auto pages = apercu()->pages().pages.size();
    QTest::mouseClick(&boutonapercu(u"imprimer"_s), Qt::LeftButton);
    EVENTUALLY(apercu() == nullptr);
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    EXPECT_EQ(imprimante.travaux[0].pages.pages.size(), pages) << "as it was shown";
    EXPECT_EQ(textede(imprimante.travaux[0].pages).count(u"Paragraphe"), 400);
}

TEST_F(ImpressionsTest, ThePreviewIsAskedForOnceAndClosesOnEscape) {
    commence(u"CO1"_s);
    donne(Ordre::Apercu);
    FrmApercu* const premiere = apercu();
    donne(Ordre::Apercu);
    EXPECT_EQ(apercu(), premiere);
    QTest::keyClick(premiere, Qt::Key_Escape);
    EVENTUALLY(apercu() == nullptr);
    EXPECT_TRUE(imprimante.travaux.empty());
    // It remembers its size.
    donne(Ordre::Apercu);
    apercu()->resize(700, 500);
    QTest::keyClick(apercu(), Qt::Key_Escape);
    EVENTUALLY(apercu() == nullptr);
    donne(Ordre::Apercu);
    EXPECT_EQ(apercu()->size(), QSize(700, 500));
}

TEST_F(ImpressionsTest, APreviewThatIsClosedWhileItIsMadeStopsBeingMade) {
    commence(u"EU1"_s);
    QPointer<FrmApercu> vu;
    QTimer::singleShot(0, &ecran(), [&] {
        vu = apercu();
        if (vu)
            vu->reject();
    });
    donne(Ordre::Apercu);
    ASSERT_TRUE(vu) << "it was seen before all of it was made";
    EXPECT_TRUE(vu->pages().pages.empty());
    EVENTUALLY(apercu() == nullptr);
    donne(Ordre::Apercu);
    EXPECT_GT(apercu()->pages().pages.size(), 5U);
}

TEST_F(ImpressionsTest, ThePreviewOfAnOpenJobShowsWhereItGoesOnAndEndsOrAbandonsIt) {
    sansejection();
    commence(u"CO1"_s);
    for (const QString& fin : {u"imprimer"_s, u"abandonner"_s}) {
        imprimante.travaux.clear();
        donne(Ordre::Imprimer);
        donne(Ordre::Apercu);
        ASSERT_NE(apercu(), nullptr);
        EXPECT_EQ(apercu()->windowTitle(), mots(9590));
        EXPECT_EQ(boutonapercu(u"imprimer"_s).text(), mots(4405));
        EXPECT_EQ(textede(apercu()->pages()).count(u"Voir"), 1);
        EXPECT_TRUE(programme->impressions().impressionouverte()) << "it is only looked at";
        QTest::mouseClick(&boutonapercu(fin), Qt::LeftButton);
        EVENTUALLY(apercu() == nullptr);
        EXPECT_FALSE(programme->impressions().impressionouverte());
        EXPECT_EQ(imprimante.travaux.size(), fin == u"imprimer" ? 1U : 0U);
    }
}

TEST_F(ImpressionsTest, ThePreviewOfTheListShowsItsRows) {
    commence(QString());
    programme->selection().controle().remplissage().remplitdecles({u"CO000001"_s, u"JP000007"_s});
    programme->selection().controle().affichemenuselection(true);
    programme->recherches().montre(true);
    donne(Ordre::Apercu);
    ASSERT_NE(apercu(), nullptr);
    EXPECT_EQ(apercu()->windowTitle(), mots(9618));
    EXPECT_TRUE(textede(apercu()->pages()).contains(u"Article premier"));
    dialogues.answers = {Bouton::Oui};
    QTest::mouseClick(&boutonapercu(u"imprimer"_s), Qt::LeftButton);
    EVENTUALLY(apercu() == nullptr);
    EXPECT_EQ(imprimante.tableaux.size(), 1U);
}

TEST_F(ImpressionsTest, MarginsWithoutRoomAreToldAndNoPreviewStays) {
    regle(u"EDITEUR", u"PRINTERMARGEHAUTE", u"20000"_s);
    commence(u"CO1"_s);
    donne(Ordre::Apercu);
    EXPECT_EQ(dialogues.texts(), QStringList{mots(9647)});
    EVENTUALLY(apercu() == nullptr);
    donne(Ordre::Imprimer);
    EXPECT_EQ(dialogues.messages.size(), 2U);
    EXPECT_TRUE(imprimante.travaux.empty());
    EXPECT_FALSE(programme->impressions().impressionouverte());
}

TEST_F(ImpressionsTest, TheProgramMayEndUnderAnOpenPreview) {
    commence(u"EU1"_s);
    donne(Ordre::Apercu);
    programme->termine();
    programme.reset();
}

// ---- files and mail

TEST_F(ImpressionsTest, ADocumentBecomesAPdfWithItsTitle) {
    commence(u"CO1"_s);
    const QString chemin = dossier.filePath(u"essai.pdf"_s);
    dialogues.saveFiles = {chemin};
    donne(Ordre::ExporterPdf);
    QFile fichier(chemin);
    ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
    EXPECT_TRUE(fichier.readAll().startsWith("%PDF"));
    EXPECT_EQ(dialogues.fileQuestions.back().extension, u"pdf");
    EXPECT_FALSE(dialogues.fileQuestions.back().nom.contains(u':'));
    EXPECT_EQ(barreetat().panelText(u"wait"_s), mots(9596, {programme->fenetre(0)->lecture().titrecourant()}));
}

TEST_F(ImpressionsTest, APdfThatCannotBeWrittenIsTold) {
    commence(u"CO1"_s);
    dialogues.saveFiles = {dossier.path()};
    donne(Ordre::ExporterPdf);
    EXPECT_EQ(dialogues.messages.size(), 1U);
    dialogues.saveFiles = {std::nullopt};
    donne(Ordre::ExporterPdf);
    EXPECT_EQ(dialogues.messages.size(), 1U) << "the user gave up";
}

TEST_F(ImpressionsTest, ThePreviewIsExportedAsItIsAndStays) {
    commence(u"CO1"_s);
    donne(Ordre::Apercu);
    dialogues.saveFiles = {dossier.filePath(u"apercu.pdf"_s)};
    QTest::mouseClick(&boutonapercu(u"exporter"_s), Qt::LeftButton);
    EXPECT_TRUE(QFile::exists(dossier.filePath(u"apercu.pdf"_s)));
    EXPECT_NE(apercu(), nullptr);
}

TEST_F(ImpressionsTest, TheDocumentIsSavedAndSentFromTheMenu) {
    commence(u"CO1"_s);
    dialogues.saveFiles = {dossier.filePath(u"essai.rtf"_s)};
    entree("mfichier0", 0)->trigger();
    QFile fichier(dossier.filePath(u"essai.rtf"_s));
    ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
    EXPECT_TRUE(fichier.readAll().startsWith("{\\rtf1"));
    entree("mfichiersend", 0)->trigger();
    entree("mfichiersend", 1)->trigger();
    ASSERT_EQ(courrier.mails.size(), 2U);
    EXPECT_TRUE(courrier.mails[0].body.contains(u"Voir"));
    EXPECT_TRUE(courrier.mails[1].fileName.endsWith(u".RTF"));
}

TEST_F(ImpressionsTest, WithoutADocumentNothingLeavesTheProgram) {
    commence(QString());
    for (const Ordre ordre : {Ordre::Imprimer, Ordre::ImprimerPage, Ordre::Apercu, Ordre::ExporterPdf,
                              Ordre::Enregistrer, Ordre::EnvoyerTexte, Ordre::EjecterPage, Ordre::AbandonnerTravail})
        EXPECT_FALSE(action(ordre).isEnabled()) << static_cast<int>(ordre);
    EXPECT_TRUE(action(Ordre::ConfigurerImprimante).isEnabled());
}

// ---- dossiers

TEST_F(ImpressionsTest, ADossierIsPrintedAndExportedFromItsWindow) {
    commence(u"CO1"_s);
    ouvre();
    EXPECT_FALSE(bouton(u"imprimer"_s).isEnabled()) << "the root has no items";
    presse(u"ajouter"_s);
    ecrit(u"Affaire Durand"_s);
    const QString neuf = arbre().nodes().key(arbre().nodes().selected());
    ferme();
    range();
    arbre().nodes().select(arbre().nodes().indexOf(neuf));
    QTest::keyClick(&arbre(), Qt::Key_Return);
    EVENTUALLY(bouton(u"imprimer"_s).isEnabled());
    dialogues.answers = {Bouton::Oui};
    presse(u"imprimer"_s);
    EXPECT_EQ(dialogues.messages.back().titre, mots(114));
    EXPECT_TRUE(dialogues.messages.back().texte.contains(u"\"Affaire Durand\" ?"_s));
    ASSERT_EQ(imprimante.travaux.size(), 1U);
    EXPECT_TRUE(textede(imprimante.travaux[0].pages).contains(u"Voir"));
    dialogues.saveFiles = {dossier.filePath(u"dossier.pdf"_s)};
    presse(*fenetre()->findChild<Toolbar*>(u"Toolbar1"_s), "exporterdossier");
    EXPECT_TRUE(QFile::exists(dossier.filePath(u"dossier.pdf"_s)));
    EXPECT_EQ(dialogues.fileQuestions.back().nom, u"Affaire Durand");
    ferme();
}
