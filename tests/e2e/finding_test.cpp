// The road of one request: two words, the list, a document with its marks, and what else a hand does on the way.
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/text/richtextbox.h"
#include "search/ui/frmvelmorselect.h"
#include "shell/recherches.h"
#include "shell/selection.h"
#include "shell/volet.h"
#include "tests/e2e/hosted.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>

namespace velm::e2e {

namespace {

constexpr int markColour = 0x002E5C; // as the publisher gives it

class Finding : public Hosted {
protected:
    void SetUp() override { begin({}); }
    /// On the collection of a base, or on the sample.
    void begin(const QString& base) {
        ASSERT_NO_FATAL_FAILURE(layOut(base));
        host->setSetting(u"GENERALITES", u"CHECKQUIT", u"1"_s);
        start();
    }

    // ---- what is looked at; in the program's thread

    Selection& list() const { return host->program().selection(); }
    FlexGrid& grid() const { return list().flex(); }
    QWidget* form() const { return host->program().recherches().formulaire(); }
    QWidget* finder() const { return host->frame()->findChild<QDialog*>(u"frmFindForm"_s); }
    Spot command(const QString& name) const { return Spot::named(host->bar(u"barrecommande"_s), name); }
    Spot listTool(const QString& name) const {
        return Spot::named(&host->frame()->pieces().volet.recherchetoolbar(), name);
    }
    Spot tab(int number) const {
        auto* tabs = form() ? form()->findChild<QTabWidget*>(u"ongletrecherche"_s) : nullptr;
        return tabs ? Spot{tabs->tabBar(), tabs->tabBar()->tabRect(number)} : Spot();
    }
    Spot row(int number) const {
        const QTableView& view = *grid().view();
        return {view.viewport(), view.visualRect(view.model()->index(number - 1, 0)) & view.viewport()->rect()};
    }
    Spot header(int place) const {
        const QHeaderView& header = *grid().view()->horizontalHeader();
        const int column = header.logicalIndex(place);
        return {header.viewport(),
                QRect(header.sectionViewportPosition(column), 0, header.sectionSize(column), header.height())};
    }
    int marks() const {
        int count = 0;
        const RichText& text = host->front()->vue().control().richText();
        text.forEachRun(0, text.length(), [&](qsizetype, qsizetype, FormatId format) {
            count += text.charFormat(format).colour == markColour ? 1 : 0;
        });
        return count;
    }
    QString selected() const { return host->front() ? host->front()->vue().control().selText().toLower() : QString(); }
    bool shows(const QString& document) const {
        return host->front() && host->front()->referencecourante() == document;
    }

    // ---- what the user does

    static void type(const QString& words) {
        for (const QChar letter : words)
            key(letter == u' ' ? u"space"_s : QString(letter));
    }
    /// Types into the box of a name that has the keyboard, and waits until it holds the words.
    void typeInto(const std::function<QWidget*()>& within, const QString& name, const QString& words) {
        const auto box = [&] { return within() ? within()->findChild<QLineEdit*>(name) : nullptr; };
        ASSERT_TRUE(becomes([&] { return box() && box()->hasFocus(); }));
        type(words);
        ASSERT_TRUE(becomes([&] { return box()->text() == words; }));
    }
    void openForm() {
        ASSERT_TRUE(touch([this] { return command(u"Rechercher"_s); }));
        ASSERT_TRUE(becomes([this] { return form() && form()->isVisible(); }));
    }
    void searchWords(const QString& words, const QString& picture) {
        ASSERT_TRUE(touch([this] { return tab(2); }));
        ASSERT_NO_FATAL_FAILURE(typeInto([this] { return form(); }, u"Textedico"_s, words));
        photo(picture);
        key(u"Return"_s);
        ASSERT_TRUE(becomes([this] { return grid().isVisible() && grid().rows() > 2; }));
    }
    void searchTwoWords() {
        ASSERT_NO_FATAL_FAILURE(openForm());
        ASSERT_NO_FATAL_FAILURE(searchWords(u"vendeur garantie"_s, u"21-mots"_s));
        photo(u"22-liste"_s);
    }
};

using FindingInTheRealCollection = OnTheRealCollection<Finding>;

} // namespace

TEST_F(Finding, TwoWordsAListADocumentWithItsMarksAndTheNextOne) {
    ASSERT_NO_FATAL_FAILURE(searchTwoWords());
    EXPECT_EQ(inProgram([this] { return list().liste().resultat().mot1; }), u"GARANTIE");

    ASSERT_TRUE(touch([this] { return row(1); }));
    ASSERT_TRUE(becomes([this] { return grid().row() == 1 && grid().view()->hasFocus(); }));
    const QString first = inProgram([this] { return grid().text(1, 6); });
    key(u"Return"_s);
    ASSERT_TRUE(becomes([&] { return shows(first); }));
    EXPECT_GT(inProgram([this] { return marks(); }), 1);
    photo(u"23-marques"_s);

    ASSERT_TRUE(touch([this] { return tool(u"motsuivant"_s); }));
    ASSERT_TRUE(becomes([this] { return selected() == u"garantie" || selected() == u"vendeur"; }));
    const qsizetype hit = inProgram([this] { return host->front()->vue().selStart(); });
    photo(u"24-mot-suivant"_s);
    key(u"F3"_s);
    ASSERT_TRUE(becomes([&] { return host->front()->vue().selStart() > hit; }));
    key(u"shift+F3"_s);
    ASSERT_TRUE(becomes([&] { return host->front()->vue().selStart() <= hit; }));

    // In a window this narrow it stands behind the end of the bar.
    inProgram([this] { host->front()->barrechild().widget(u"marqueauto"_s)->click(); });
    ASSERT_TRUE(becomes([this] { return marks() == 0 && host->front()->vue().selStart() == 0; }));

    const QString second = inProgram([this] { return grid().text(2, 6); });
    ASSERT_TRUE(touch([this] { return listTool(u"suivantrecherche"_s); }));
    ASSERT_TRUE(becomes([&] { return shows(second) && marks() > 0; }));
}

TEST_F(Finding, TheListIsSortedEmptiedAndHidden) {
    ASSERT_NO_FATAL_FAILURE(searchTwoWords());
    const int rows = inProgram([this] { return grid().rows(); });
    ASSERT_TRUE(touch([this] { return header(0); }, Hand::DoubleClick));
    ASSERT_TRUE(becomes([this] { return grid().headerCell(0).endsWith(u'>'); }));
    ASSERT_TRUE(touch([this] { return row(2); }));
    key(u"Delete"_s);
    ASSERT_TRUE(becomes([&] { return grid().rows() == rows - 1; }));
    ASSERT_TRUE(touch([this] { return listTool(u"regrouper"_s); }));
    ASSERT_TRUE(becomes([this] { return grid().mergeCells(); }));
    const int before = inProgram([this] { return host->frame()->pieces().volet.width(); });
    ASSERT_TRUE(
        drag([this] { return Spot::named(&host->frame()->pieces().volet, u"separateurrecherche"_s); }, {250, 0}));
    ASSERT_TRUE(becomes([&] { return std::abs(host->frame()->pieces().volet.width() - before - 250) < 8; }));
    photo(u"25-liste-large"_s);
    ASSERT_TRUE(touch([this] { return row(1); }));
    key(u"ctrl+a"_s);
    ASSERT_TRUE(becomes([&] { return grid().selectedRows() == std::pair(1, rows - 2); }));
    key(u"Delete"_s);
    ASSERT_TRUE(becomes([this] { return grid().rows() == 1; }));
    // The key leads to where a search is typed, and from there puts the search away.
    key(u"ctrl+shift+f"_s);
    ASSERT_TRUE(becomes([this] { return form() && form()->isAncestorOf(QApplication::focusWidget()); }));
    key(u"ctrl+shift+f"_s);
    ASSERT_TRUE(
        becomes([this] { return !host->frame()->pieces().volet.isVisible() && !(form() && form()->isVisible()); }));
}

TEST_F(Finding, ATextIsFoundInTheDocument) {
    ASSERT_NO_FATAL_FAILURE(searchTwoWords());
    ASSERT_TRUE(touch([this] { return row(1); }, Hand::DoubleClick));
    ASSERT_TRUE(becomes([this] { return host->front() && !host->front()->referencecourante().isEmpty(); }));
    key(u"ctrl+f"_s);
    ASSERT_NO_FATAL_FAILURE(typeInto([this] { return finder(); }, u"txtFind"_s, u"vendeur"_s));
    key(u"Return"_s);
    ASSERT_TRUE(becomes([this] { return selected() == u"vendeur"; }));
    photo(u"26-chercher"_s);
    key(u"Escape"_s);
    ASSERT_TRUE(becomes([this] { return !finder()->isVisible() && host->frame()->isActiveWindow(); }));
}

TEST_F(FindingInTheRealCollection, ARequestIsAnsweredFromItsWordsToTheMarkedDocument) {
    // A document window looks words up in its own collection.
    ASSERT_TRUE(touch([this] { return Spot::named(host->bar(u"barreécran"_s), u"CL"_s); }));
    ASSERT_TRUE(becomes([this] { return host->front() != nullptr; }));
    ASSERT_TRUE(touch([this] { return Spot::named(host->front(), u"couverturerecherche"_s); }));
    ASSERT_NO_FATAL_FAILURE(typeInto([this] { return host->front(); }, u"Textedico"_s, u"bail commercial"_s));
    key(u"Return"_s);
    ASSERT_TRUE(becomes([this] { return grid().isVisible() && grid().rows() > 5; }));
    photo(u"31-bloc"_s);

    ASSERT_TRUE(touch([this] { return listTool(u"affichercritères"_s); }));
    ASSERT_TRUE(becomes([this] { return form() && form()->isVisible(); }));
    photo(u"32-rapide"_s);
    ASSERT_TRUE(touch([this] { return tab(1); }));
    photo(u"33-criteres"_s);
    ASSERT_NO_FATAL_FAILURE(searchWords(u"consommateur contrat"_s, u"34-mots"_s));
    EXPECT_TRUE(becomes([this] { return grid().rows() == 51; })) << "the limit of the list that is first";
    ASSERT_TRUE(
        drag([this] { return Spot::named(&host->frame()->pieces().volet, u"separateurrecherche"_s); }, {400, 0}));
    // Neighbours are grouped within those of the columns before theirs.
    const int surletitre = inProgram([this] { return header(0).part.left() + 20 - header(1).part.center().x(); });
    ASSERT_TRUE(drag([this] { return header(1); }, {surletitre, 0}));
    ASSERT_TRUE(becomes([this] { return grid().colData(0) == ListeSelection::Motcle1; }));
    ASSERT_TRUE(touch([this] { return listTool(u"regrouper"_s); }));
    ASSERT_TRUE(becomes([this] { return grid().mergeCells() && grid().joinsAbove(2, 0); }));
    photo(u"35-liste-groupee"_s);

    ASSERT_TRUE(touch([this] { return row(1); }, Hand::DoubleClick));
    ASSERT_TRUE(becomes([this] { return host->front() && marks() > 1; }));
    photo(u"36-marques"_s);
}

} // namespace velm::e2e
