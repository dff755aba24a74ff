// A window that is a list, with more documents than fit anywhere.
#include "document/ui/fenetreliste.h"
#include "platform/widgets/frame/statusbar.h"
#include "platform/widgets/frame/toolbar.h"
#include "tests/document/ui/liste_support.h"
#include "tests/support/dialogues_script.h"
#include "tests/support/eventually.h"
#include "tests/support/outside_script.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>

#include <new>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int beaucoup = 10'000;

QString texte(Texte lequel) {
    return lequel == Texte::MotDocument    ? u"document"_s
           : lequel == Texte::MotDocuments ? u"documents"_s
                                           : textenumerote(lequel);
}

class FenetreListeTest : public testing::Test {
protected:
    void SetUp() override { construit(); }

    void construit() {
        fenetre = std::make_unique<FenetreListe>(
            DescriptionListe{
                u"fEssai"_s,
                u"Liste d'essai"_s,
                SourceEssai::modele(),
                {{{u"ESSAI", u"ORDRECOLONNE"}, u"01", Maitre::Non}, {{u"ESSAI", u"LARGEURCOLONNE"}, u"", Maitre::Non}}},
            ContexteListe{reglages, dialogues, imprimante, pressepapiers, sablier, texte,
                          [this](const Cle& cle, const QString&) { ouvertes << cle.texte(); }});
        fenetre->resize(600, 400);
        fenetre->show();
    }
    void remplit(int nombre = beaucoup) {
        fenetre->remplit([nombre] { return SourceEssai::de(nombre); });
    }
    FlexGrid& flex() const { return fenetre->flex(); }
    QString compte() const { return fenetre->etat().panelText(u"nombre"_s); }
    QString lu(const QString& nom) const { return magasin.get(u"ESSAI", nom, u"(absent)"_s); }

    QTemporaryDir dossier;
    ReglagesStore magasin{dossier.filePath(u"reglages.ini"_s)};
    Reglages reglages{magasin};
    DialoguesScript dialogues;
    ImprimanteScript imprimante;
    PressePapiersScript pressepapiers;
    SablierMuet sablier;
    QStringList ouvertes;
    std::unique_ptr<FenetreListe> fenetre;
};

} // namespace

TEST_F(FenetreListeTest, TheWindowIsABarAGridAndALine) {
    EXPECT_EQ(fenetre->objectName(), u"fEssai");
    EXPECT_EQ(fenetre->windowTitle(), u"Liste d'essai");
    EXPECT_TRUE(flex().isHidden()) << "there is no list yet";
    EXPECT_EQ(compte(), QString());
    remplit();
    EXPECT_TRUE(flex().isVisible());
    EXPECT_EQ(flex().rows(), beaucoup + 1);
    EXPECT_EQ(flex().accessibleName(), u"Liste d'essai");
    EXPECT_LE(fenetre->barre().geometry().bottom(), flex().y());
    EXPECT_LE(flex().geometry().bottom(), fenetre->etat().y());
}

TEST_F(FenetreListeTest, TheLineSaysHowManyThereAre) {
    remplit();
    EXPECT_EQ(compte(), u" 10000 documents");
    remplit(1);
    EXPECT_EQ(compte(), u" 1 document");
    fenetre->remplit([] { return nullptr; });
    EXPECT_EQ(compte(), QString());
    EXPECT_TRUE(flex().isHidden());
    remplit(0);
    EXPECT_EQ(compte(), u" 0 document");
    EXPECT_TRUE(flex().isVisible());
}

TEST_F(FenetreListeTest, DocumentsAreOpenedByTheMouseTheKeyboardAndTheMenu) {
    remplit();
    doubleclique(flex(), 2, 0);
    EXPECT_EQ(ouvertes, QStringList{u"CO009999"_s});
    QTest::keyClick(flex().view(), Qt::Key_Down, Qt::ShiftModifier);
    QTest::keyClick(flex().view(), Qt::Key_Return);
    EXPECT_EQ(ouvertes.sliced(1), (QStringList{u"CO009999"_s, u"CO009998"_s}));
    clique(flex(), 2, 0, Qt::RightButton);
    auto* menu = fenetre->findChild<QMenu*>(u"ContextMenu"_s);
    ASSERT_NE(menu, nullptr);
    EVENTUALLY(menu->isVisible());
    menu->close();
    fenetre->findChild<QAction*>(u"ContextMenuOuvrir"_s)->trigger();
    EXPECT_EQ(ouvertes.size(), 5);
}

TEST_F(FenetreListeTest, TheMenuIsOfRowsOnly) {
    remplit();
    emit flex().rightClicked(0, 0, {10, 10});
    EXPECT_FALSE(fenetre->findChild<QMenu*>(u"ContextMenu"_s)->isVisible());
}

TEST_F(FenetreListeTest, ManyDocumentsAreOpenedAfterAQuestionOnly) {
    remplit();
    fenetre->fait(Ordre::ToutSelectionner);
    dialogues.answers = {Bouton::Non};
    fenetre->ouvre();
    EXPECT_TRUE(ouvertes.isEmpty());
    EXPECT_EQ(dialogues.texts(), QStringList{u"t9495"_s});
    flex().setRow(1);
    flex().setRowSel(50);
    fenetre->ouvre();
    EXPECT_EQ(ouvertes.size(), 50);
    EXPECT_EQ(ouvertes.last(), u"CO009951");
}

TEST_F(FenetreListeTest, TheQuestionComesBeforeAnyOfTheDocumentsIsRead) {
    class Comptee final : public SourceDocuments {
    public:
        explicit Comptee(int& lues) : lues_(lues) {}
        int rowCount() const override { return 1'000'000; }
        QString text(int, int) const override { return {}; }
        bool sort(int, bool) override { return false; }
        Cle cle(int) const override {
            ++lues_;
            return {u"CO"_s, u"000001"_s};
        }

    private:
        int& lues_;
    };
    int lues = 0;
    fenetre->remplit([&] { return std::make_unique<Comptee>(lues); });
    fenetre->fait(Ordre::ToutSelectionner);
    lues = 0;
    dialogues.answers = {Bouton::Non};
    fenetre->ouvre();
    EXPECT_EQ(dialogues.texts(), QStringList{u"t9495"_s});
    EXPECT_EQ(lues, 0);
}

TEST_F(FenetreListeTest, AListThatIsTooLongForPaperIsNotPrinted) {
    remplit(20'001);
    fenetre->imprime();
    EXPECT_EQ(dialogues.texts(), QStringList{u"t9573"_s});
    EXPECT_TRUE(imprimante.tableaux.empty());
    remplit(20'000);
    dialogues.answers = {Bouton::Oui};
    fenetre->imprime();
    EXPECT_EQ(imprimante.tableaux.size(), 1U);
}

TEST_F(FenetreListeTest, TheKeyboardWalksTheRowsAndFindsThemByTheirBeginning) {
    remplit();
    ASSERT_TRUE(QTest::qWaitForWindowActive(fenetre.get()));
    fenetre->setFocus();
    EXPECT_TRUE(flex().view()->hasFocus());
    QTest::keyClick(flex().view(), Qt::Key_End);
    EXPECT_EQ(flex().row(), beaucoup);
    QTest::keyClick(flex().view(), Qt::Key_Home);
    EXPECT_EQ(flex().row(), 1);
    QTest::keyClicks(flex().view(), u"titre 09990"_s);
    EXPECT_EQ(flex().row(), 11);
}

TEST_F(FenetreListeTest, ADoubleClickOnAHeaderSortsAndTheSelectedDocumentStaysSelected) {
    remplit();
    flex().setRow(1);
    doubleclique(flex(), 0, 0);
    EXPECT_EQ(flex().headerCell(0), u"t300>");
    EXPECT_EQ(flex().text(1, 0), u"Titre 00001");
    EXPECT_EQ(flex().row(), beaucoup);
    doubleclique(flex(), 0, 0);
    EXPECT_EQ(flex().headerCell(0), u"t300<");
    EXPECT_EQ(flex().row(), 1);
    doubleclique(flex(), 0, 1);
    EXPECT_EQ(flex().sortMark(0), FlexGrid::Mark::None);
    EXPECT_EQ(flex().text(1, 1), u"mot 0");
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
    EXPECT_TRUE(ouvertes.isEmpty());
}

TEST_F(FenetreListeTest, AListThatIsFilledAnewStaysInOrderAndInPlace) {
    remplit();
    doubleclique(flex(), 0, 0);
    flex().setTopRow(5'000);
    flex().setRow(5'003);
    remplit(9'000);
    EXPECT_EQ(flex().headerCell(0), u"t300>");
    EXPECT_EQ(flex().row(), 5'003);
    EXPECT_EQ(flex().topRow(), 5'000);
    EXPECT_EQ(flex().text(5'003, 0), u"Titre 05003");
}

TEST_F(FenetreListeTest, TheSourceIsMadeUnderTheWaitCursor) {
    int pointeur = Sablier::defaut;
    fenetre->remplit([&] {
        pointeur = sablier.pointeur();
        return SourceEssai::de(3);
    });
    EXPECT_EQ(pointeur, Sablier::attente);
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(FenetreListeTest, WithoutMemoryForAListTheOneThatIsThereStays) {
    remplit(7);
    fenetre->remplit([]() -> std::unique_ptr<SourceDocuments> { throw std::bad_alloc(); });
    EXPECT_EQ(dialogues.texts(), QStringList{u"t9567"_s});
    EXPECT_EQ(dialogues.messages.front().icone, Icone::Exclamation);
    EXPECT_EQ(flex().rows(), 8);
    EXPECT_EQ(compte(), u" 7 documents");
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(FenetreListeTest, CopyingTakesAllRowsAndTheCopyKeyTheSelectedOnes) {
    pressepapiers.contenu.texte = u"d'avant"_s;
    fenetre->fait(Ordre::Copier);
    EXPECT_EQ(pressepapiers.contenu.texte, u"d'avant") << "without a row";
    remplit();
    flex().hide();
    fenetre->fait(Ordre::Copier);
    EXPECT_EQ(pressepapiers.contenu.texte, u"d'avant") << "of a list that is not seen";
    flex().show();
    fenetre->fait(Ordre::Copier);
    const QStringList lignes = pressepapiers.contenu.texte.split(u'\r');
    ASSERT_EQ(lignes.size(), beaucoup);
    EXPECT_EQ(lignes.first(), u"Titre 10000\tmot 0\tCO010000");
    EXPECT_EQ(lignes.last(), u"Titre 00001\tmot 1\tCO000001");
    flex().setRow(2);
    QTest::keyClick(flex().view(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"Titre 09999\tmot 9");
}

TEST_F(FenetreListeTest, PrintingAsksFirstAndTakesAllRows) {
    QAction* const imprime = fenetre->findChild<QAction*>(u"ContextMenuPrint"_s);
    imprime->trigger();
    EXPECT_TRUE(dialogues.messages.empty()) << "there is nothing to print";
    remplit();
    dialogues.answers = {Bouton::Non, Bouton::Oui};
    imprime->trigger();
    EXPECT_TRUE(imprimante.tableaux.empty());
    imprime->trigger();
    ASSERT_EQ(imprimante.tableaux.size(), 1U);
    EXPECT_EQ(imprimante.tableaux.front().title, u"t33");
    EXPECT_EQ(imprimante.tableaux.front().rows.count(u'\r'), beaucoup - 1);
    EXPECT_EQ(imprimante.tableaux.front().headers, (QStringList{u"t300"_s, u"t301"_s, QString()}));
}

TEST_F(FenetreListeTest, TheButtonMergesEqualCellsAndChangesItsToolTip) {
    EXPECT_FALSE(flex().mergeCells());
    EXPECT_EQ(fenetre->barre().toolTip(u"typeflex"_s), u"t2605");
    fenetre->barre().addButton(u"autre"_s, Toolbar::Kind::Plain);
    fenetre->barre().widget(u"autre"_s)->click();
    EXPECT_FALSE(flex().mergeCells()) << "a button of the list's own";
    fenetre->barre().widget(u"typeflex"_s)->click();
    EXPECT_TRUE(flex().mergeCells());
    EXPECT_EQ(fenetre->barre().toolTip(u"typeflex"_s), u"t2608");
    fenetre->barre().widget(u"typeflex"_s)->click();
    EXPECT_FALSE(flex().mergeCells());
}

TEST_F(FenetreListeTest, ClosingWritesTheColumnsAndTheNextWindowHasThem) {
    remplit();
    flex().view()->horizontalHeader()->moveSection(0, 1);
    flex().setColWidth(1, 4321);
    QSignalSpy fermee(fenetre.get(), &FenetreListe::fermee);
    QObject::connect(fenetre.get(), &FenetreListe::fermee, fenetre.get(),
                     [this] { EXPECT_EQ(lu(u"ORDRECOLONNE"_s), u"10"); });
    EXPECT_EQ(lu(u"ORDRECOLONNE"_s), u"(absent)");
    fenetre->close();
    EXPECT_EQ(fermee.size(), 1);
    EXPECT_EQ(lu(u"LARGEURCOLONNE"_s), u"002000004321");
    construit();
    EXPECT_EQ(flex().colData(1), 0);
    EXPECT_EQ(flex().colWidth(1), 4321);
    remplit(3);
    EXPECT_EQ(flex().text(1, 1), u"Titre 00003");
}

TEST_F(FenetreListeTest, TheFrameIsToldWhatTheListCanDoAndWhenThatChanges) {
    int changements = 0;
    fenetre->surchangement = [&] { ++changements; };
    EXPECT_EQ(fenetre->nature(), Nature::Liste);
    EXPECT_TRUE(fenetre->reference().isEmpty());
    for (const Ordre ordre : {Ordre::Copier, Ordre::ToutSelectionner, Ordre::Imprimer, Ordre::Chercher}) {
        EXPECT_FALSE(fenetre->peut(ordre)) << "there are no rows";
        fenetre->fait(ordre);
    }
    remplit(3);
    EXPECT_EQ(changements, 1);
    for (const Ordre ordre : {Ordre::Copier, Ordre::ToutSelectionner})
        EXPECT_TRUE(fenetre->peut(ordre));
    EXPECT_FALSE(fenetre->peut(Ordre::Imprimer)) << "that command prints documents";
    EXPECT_FALSE(fenetre->peut(Ordre::Chercher));
    EXPECT_FALSE(fenetre->peut(Ordre::Quitter));
    fenetre->fait(Ordre::ToutSelectionner);
    EXPECT_EQ(flex().selectedRows(), std::pair(1, 3));
    EXPECT_TRUE(pressepapiers.contenu.texte.isEmpty());
}

TEST_F(FenetreListeTest, AtTheEndOfTheRunTheColumnsAreWrittenOnceAndTheWindowStays) {
    QSignalSpy fermee(fenetre.get(), &FenetreListe::fermee);
    flex().setColWidth(0, 4321);
    fenetre->ecritreglages();
    EXPECT_EQ(lu(u"LARGEURCOLONNE"_s), u"004321002000");
    EXPECT_TRUE(fermee.isEmpty());
    flex().setColWidth(0, 4000);
    fenetre->decharge();
    EXPECT_EQ(lu(u"LARGEURCOLONNE"_s), u"004000002000");
    EXPECT_TRUE(fenetre->isVisible());
    flex().setColWidth(0, 5000);
    fenetre->close();
    EXPECT_EQ(fermee.size(), 1);
    EXPECT_EQ(lu(u"LARGEURCOLONNE"_s), u"004000002000");
}

TEST_F(FenetreListeTest, ColumnsThatNobodyTouchedAreNotWritten) {
    remplit(3);
    fenetre->close();
    EXPECT_EQ(lu(u"ORDRECOLONNE"_s), u"(absent)");
    EXPECT_EQ(lu(u"LARGEURCOLONNE"_s), u"(absent)");
}
