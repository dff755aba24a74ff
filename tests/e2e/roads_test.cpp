#include "document/ui/listedeliens.h"
#include "document/ui/panneautextes.h"
#include "document/ui/voletliens.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/grid/flexgrid.h"
#include "platform/widgets/text/richtextbox.h"
#include "platform/widgets/tree/treeview.h"
#include "shell/bureau.h"
#include "tests/e2e/hosted.h"

#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTextBlock>

namespace velm::e2e {

namespace {

/// A test that starts and ends the program with its own hands.
class Roads : public Hosted {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(layOut());
        host->setSetting(u"GENERALITES", u"RESTAUREFEN", u"1"_s);
    }

    /// Asks to quit by the keyboard, and answers.
    void quit(QMessageBox::StandardButton answer, const QString& picture = {}) {
        key(u"ctrl+q"_s);
        ASSERT_TRUE(becomes([] { return Host::box() && Host::box()->isActiveWindow(); }));
        if (!picture.isEmpty())
            photo(picture);
        ASSERT_TRUE(touch([answer] { return Host::box() ? Spot::of(Host::box()->button(answer)) : Spot(); }));
        ASSERT_TRUE(becomes([] { return !Host::box(); }));
    }

    // ---- what is looked at; in the program's thread

    QString shownKey() const { return host->front() ? host->front()->referencecourante() : QString(); }
    bool shows(const QString& reference) const { return shownKey() == reference && host->front()->isActiveWindow(); }

    /// A button of the frame's bars.
    Spot command(const QString& name) const { return Spot::named(host->bar(u"barrecommande"_s), name); }
    Spot slot(const QString& name) const { return Spot::named(host->bar(u"barreécran"_s), name); }
    /// A control of the window in front.
    Spot inFront(const QString& name) const { return Spot::named(host->front(), name); }

    /// A node of the tree in front, by the beginning of its text; scrolled to nothing, seen or not.
    QModelIndex node(const QString& beginning) const {
        if (!host->front())
            return {};
        const TreeView& tree = host->front()->panneau().arbre();
        const auto all = tree.model()->match(tree.model()->index(0, 0), Qt::AccessibleTextRole, beginning, 1,
                                             Qt::MatchStartsWith | Qt::MatchRecursive | Qt::MatchCaseSensitive);
        return all.isEmpty() ? QModelIndex() : all.front();
    }
    Spot nodeSpot(const QString& beginning) const {
        const QModelIndex index = node(beginning);
        if (!index.isValid())
            return {};
        const TreeView& tree = host->front()->panneau().arbre();
        const QRect row = tree.visualRect(index) & tree.viewport()->rect();
        return {tree.viewport(), row};
    }

    /// The words of the text in front.
    Spot words(const QString& what) const {
        if (!host->front())
            return {};
        const RichTextBox& view = host->front()->vue();
        QTextCursor found = view.document()->find(what);
        if (found.isNull())
            return {};
        QTextCursor first(found);
        first.setPosition(found.selectionStart() + 2);
        const QRect place = view.cursorRect(first).adjusted(0, 0, 4, 0);
        const bool whole = view.viewport()->rect().contains(place);
        return whole ? Spot{view.viewport(), place} : Spot{};
    }
    Spot row(FlexGrid& grid, const QString& beginning) const {
        for (int number = 1; number < grid.rows(); ++number) {
            if (grid.text(number, 2) != beginning)
                continue;
            const QTableView& view = *grid.view();
            const QRect cell = view.visualRect(view.model()->index(number - 1, 1));
            return {view.viewport(), cell & view.viewport()->rect()};
        }
        return {};
    }

    // ---- what the user does

    void openNode(const QString& beginning) {
        ASSERT_TRUE(touch([&] { return nodeSpot(beginning); })) << beginning.toStdString();
        ASSERT_TRUE(becomes([&] { return host->front()->panneau().arbre().currentIndex() == node(beginning); }));
        key(u"Right"_s);
        ASSERT_TRUE(becomes([&] { return host->front()->panneau().arbre().isExpanded(node(beginning)); }));
    }
    void openFirstDocument() {
        ASSERT_TRUE(touch([this] { return slot(u"CO"_s); }));
        ASSERT_TRUE(becomes([this] { return host->front() && host->front()->indice() == 0; }));
        ASSERT_TRUE(touch([this] { return tool(u"arbre"_s); }));
        ASSERT_TRUE(touch([this] { return tool(u"barrehoriz"_s); }));
        ASSERT_TRUE(becomes([this] {
            const auto* bar = qobject_cast<SplitterBar*>(inFront(u"separateur"_s).widget);
            return bar && bar->orientation() == Qt::Vertical && host->front()->panneau().arbre().isVisible();
        }));
        const int before = inProgram([this] { return host->front()->panneau().arbre().width(); });
        ASSERT_TRUE(drag([this] { return inFront(u"separateur"_s); }, {120, 0}));
        ASSERT_TRUE(becomes([&] { return host->front()->panneau().arbre().width() == before + 120; }));
        ASSERT_NO_FATAL_FAILURE(openNode(u"Code de la consommation"_s));
        ASSERT_NO_FATAL_FAILURE(openNode(u"Livre préliminaire"_s));
        ASSERT_NO_FATAL_FAILURE(openNode(u"Titre unique"_s));
        ASSERT_TRUE(touch([this] { return nodeSpot(u"Article 2 "_s); }));
        ASSERT_TRUE(becomes([this] { return shows(u"CO000002"_s); }));
    }
    void follow(const QString& link, const QString& target) {
        for (int turn = 0; turn < 40 && inProgram([&] { return !words(link).widget; }); ++turn)
            ASSERT_TRUE(touch([this] { return Spot::of(host->front()->vue().viewport()); }, Hand::WheelDown));
        ASSERT_TRUE(touch([&] { return words(link); })) << link.toStdString();
        ASSERT_TRUE(becomes([&] { return shows(target); })) << target.toStdString();
    }
};

} // namespace

TEST_F(Roads, FromTheTreeByLinksAndBackToTheEndAndIntoTheNextRun) {
    ASSERT_NO_FATAL_FAILURE(start());
    photo(u"01-demarrage"_s);

    ASSERT_NO_FATAL_FAILURE(openFirstDocument());
    photo(u"02-document"_s);

    ASSERT_NO_FATAL_FAILURE(follow(u"l’arrêt du 6 mai 1997"_s, u"JP000003"_s));
    photo(u"03-lien"_s);

    ASSERT_TRUE(touch([this] { return command(u"Précédent"_s); }));
    ASSERT_TRUE(becomes([this] { return shows(u"CO000002"_s); }));
    photo(u"04-precedent"_s);
    ASSERT_TRUE(touch([this] { return command(u"Suivant"_s); }));
    ASSERT_TRUE(becomes([this] { return shows(u"JP000003"_s); }));
    key(u"alt+Left"_s);
    ASSERT_TRUE(becomes([this] { return shows(u"CO000002"_s); }));
    photo(u"05-alt-gauche"_s);

    ASSERT_TRUE(touch([this] { return inFront(u"ouvrircorrélats"_s); }));
    ASSERT_TRUE(becomes([this] { return host->front()->volet().correlats().cles().contains(u"GL000012"_s); }));
    photo(u"06-correlats"_s);
    ASSERT_TRUE(
        touch([this] { return row(*host->front()->volet().correlats().grille(), u"GL000012"_s); }, Hand::DoubleClick));
    ASSERT_TRUE(becomes([this] { return shows(u"GL000012"_s); }));
    photo(u"07-correlat"_s);

    ASSERT_TRUE(touch([this] { return command(u"Cascade"_s); }));
    ASSERT_TRUE(becomes([this] {
        const ChildArea& area = host->frame()->pieces().aire;
        return std::ranges::all_of(area.children(), [&](const QWidget* child) {
            return area.stateOf(child) == ChildArea::Normal && !area.twipsOf(child).isEmpty();
        });
    }));
    EXPECT_EQ(inProgram([this] { return host->frame()->pieces().aire.children().size(); }), 3u);
    EXPECT_TRUE(inProgram([this] { return shows(u"GL000012"_s); }));
    photo(u"08-cascade"_s);

    ASSERT_NO_FATAL_FAILURE(quit(QMessageBox::No));
    EXPECT_TRUE(inProgram([this] { return host->frame()->isVisible(); }));
    ASSERT_NO_FATAL_FAILURE(quit(QMessageBox::Yes, u"09-question"_s));
    ASSERT_TRUE(becomes([this] { return host->hasEnded(); }));
    inProgram([this] { host->clear(); });

    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(becomes([this] { return shows(u"GL000012"_s); }));
    const auto restored = inProgram([this] {
        QStringList keys;
        for (const Textes* window : host->program().bureau().fenetres())
            keys << window->referencecourante();
        keys.sort();
        return keys;
    });
    EXPECT_EQ(restored, (QStringList{u"CO000002"_s, u"GL000012"_s, u"JP000003"_s}));
    photo(u"10-restauration"_s);
}

TEST_F(Roads, WindowsAreWalkedAndDividedByKeysAndHand) {
    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_NO_FATAL_FAILURE(openFirstDocument());
    ASSERT_NO_FATAL_FAILURE(follow(u"l’arrêt du 6 mai 1997"_s, u"JP000003"_s));
    key(u"ctrl+Tab"_s);
    ASSERT_TRUE(becomes([this] { return shows(u"CO000002"_s); }));
    key(u"ctrl+F6"_s);
    ASSERT_TRUE(becomes([this] { return shows(u"JP000003"_s); }));
    key(u"ctrl+shift+Tab"_s);
    ASSERT_TRUE(becomes([this] { return shows(u"CO000002"_s); }));

    const auto bar = [this] { return inFront(u"separateur"_s); };
    const auto place = [this] {
        const QWidget* found = inFront(u"separateur"_s).widget;
        return found ? found->pos() : QPoint();
    };
    ASSERT_TRUE(becomes([&] { return bar().widget; }));
    const QPoint before = inProgram(place);
    const QPoint by(60, 60); // the text keeps its room
    ASSERT_TRUE(drag(bar, by));
    ASSERT_TRUE(becomes([&] { return place() != before; }));
    const QPoint dragged = inProgram(place);
    EXPECT_EQ((dragged - before).manhattanLength(), 60);
    photo(u"11-separateur"_s);
    ASSERT_TRUE(drag(bar, by, [&] {
        EXPECT_TRUE(becomes([&] { return place() != dragged; }));
        key(u"Escape"_s);
        EXPECT_TRUE(becomes([&] { return place() == dragged; }));
    }));
    EXPECT_EQ(inProgram(place), dragged);

    key(u"ctrl+F4"_s);
    ASSERT_TRUE(becomes([this] { return shows(u"JP000003"_s); }));
    ASSERT_NO_FATAL_FAILURE(quit(QMessageBox::Yes));
    ASSERT_TRUE(becomes([this] { return host->hasEnded(); }));
}

} // namespace velm::e2e
