// A tree of cases, what is stored in it by the pointer and by the keys, and the next run, with real keys and clicks.
#include "dossiers/ui/dialoguepertes.h"
#include "dossiers/ui/frmdossiers.h"
#include "platform/widgets/list/listview.h"
#include "platform/widgets/tree/treeview.h"
#include "shell/fenetredossiers.h"
#include "tests/e2e/hosted.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

namespace velm::e2e {

namespace {

class Filing : public Hosted {
protected:
    void begin(const QString& base, const QString& document) {
        ASSERT_NO_FATAL_FAILURE(layOut(base));
        host->setSetting(u"GENERALITES", u"CHECKQUIT", u"1"_s);
        ASSERT_NO_FATAL_FAILURE(start());
        inProgram([&] { host->program().ouvre(decoupecle(document)); });
        ASSERT_TRUE(becomes([&] { return shows(document); }));
    }

    // ---- what is looked at; in the program's thread

    frmdossiers* window() const { return host->program().dossiers().fenetre(); }
    TreeView& tree() const { return *window()->findChild<TreeView*>(u"TreeView1"_s); }
    ListView& items() const { return *window()->findChild<ListView*>(u"contenudossier"_s); }
    Spot button(const QString& name) const {
        return window() ? Spot::of(window()->findChild<QPushButton*>(name)) : Spot();
    }
    int node(const QString& text) const {
        if (!window())
            return 0;
        for (int one = 1; one <= tree().nodes().count(); ++one) {
            if (tree().nodes().text(one) == text)
                return one;
        }
        return 0;
    }
    Spot nodeOf(const QString& text) const {
        if (!window() || node(text) == 0)
            return {};
        return {tree().viewport(), tree().visualRect(tree().indexOf(node(text)))};
    }
    Spot item(int number) const { return window() ? Spot{items().viewport(), items().itemPlace(number)} : Spot(); }
    bool shows(const QString& document) const {
        return host->front() && host->front()->referencecourante() == document;
    }

    // ---- what the user does

    void open() {
        ASSERT_TRUE(touch([this] { return Spot::named(host->bar(u"barrecommande"_s), u"Dossiers"_s); }));
        ASSERT_TRUE(becomes([this] { return window() && window()->isActiveWindow(); }));
    }
    void store() {
        ASSERT_TRUE(touch([this] { return tool(u"document"_s); }));
        ASSERT_TRUE(becomes([this] { return window() && window()->isActiveWindow() && window()->gestion().attend(); }));
    }
    void close() {
        ASSERT_TRUE(touch([this] { return button(u"cmdok"_s); }));
        ASSERT_TRUE(becomes([this] { return !window() && host->frame()->isActiveWindow(); }));
    }
    void create(const QString& letters) {
        ASSERT_TRUE(touch([this] { return button(u"ajouter"_s); }));
        ASSERT_TRUE(becomes([] { return qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr; }));
        for (const QChar letter : letters)
            key(letter);
        key(u"Return"_s);
        ASSERT_TRUE(becomes([&] { return node(letters) != 0; }));
    }
    void restart() {
        key(u"ctrl+q"_s);
        ASSERT_TRUE(becomes([this] { return host->hasEnded(); }));
        inProgram([this] { host->clear(); });
        ASSERT_NO_FATAL_FAILURE(start());
    }
    /// The first entry of a dossier, by the key that deletes.
    void remove(const QString& dossier) {
        ASSERT_TRUE(touch([&] { return nodeOf(dossier); }));
        ASSERT_TRUE(becomes([this] { return items().items().count() == 1; }));
        ASSERT_TRUE(touch([this] { return item(1); }));
        key(u"Delete"_s);
        ASSERT_TRUE(becomes([this] { return items().items().count() == 0; }));
    }
    void walk(const QString& document, const QString& picture);
    void find(const QString& picture);
};

} // namespace

void Filing::walk(const QString& document, const QString& picture) {
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_NO_FATAL_FAILURE(create(u"a"_s));
    ASSERT_NO_FATAL_FAILURE(create(u"b"_s));
    ASSERT_NO_FATAL_FAILURE(create(u"c"_s));
    ASSERT_NO_FATAL_FAILURE(close());

    // By the pointer, then by the keys.
    ASSERT_NO_FATAL_FAILURE(store());
    photo(picture + u"-attente"_s);
    ASSERT_TRUE(touch([this] { return nodeOf(u"c"_s); }));
    ASSERT_TRUE(becomes([this] { return node(u"c [1]"_s) != 0 && !window()->gestion().attend(); }));
    ASSERT_NO_FATAL_FAILURE(close());
    ASSERT_NO_FATAL_FAILURE(store());
    ASSERT_TRUE(becomes([this] { return tree().hasFocus(); }));
    key(u"Down"_s);
    ASSERT_TRUE(becomes([this] { return tree().nodes().selected() == node(u"a"_s); }));
    key(u"Return"_s);
    ASSERT_TRUE(becomes([this] { return node(u"a [1]"_s) != 0; }));
    photo(picture + u"-range"_s);
    ASSERT_NO_FATAL_FAILURE(close());

    ASSERT_NO_FATAL_FAILURE(restart());
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_TRUE(touch([this] { return nodeOf(u"c [1]"_s); }));
    ASSERT_TRUE(becomes([this] { return items().items().count() == 1; }));
    photo(picture + u"-retour"_s);
    // To another dossier with the hand, and the emptied one is deleted.
    const QPoint way = inProgram([this] {
        const Spot from = item(1);
        const Spot to = nodeOf(u"b"_s);
        return to.widget->mapToGlobal(to.part.center()) - from.widget->mapToGlobal(from.part.center());
    });
    ASSERT_TRUE(drag([this] { return item(1); }, way, [&] { photo(picture + u"-tire"_s); }));
    ASSERT_TRUE(becomes([this] { return node(u"b [1]"_s) != 0 && node(u"c"_s) != 0; }));
    ASSERT_TRUE(touch([this] { return nodeOf(u"c"_s); }));
    key(u"Delete"_s);
    ASSERT_TRUE(becomes([this] { return tree().nodes().image(node(u"c"_s)) == u"dossierfermésuppr"; }));
    ASSERT_TRUE(touch([this] { return nodeOf(u"b [1]"_s); }));
    ASSERT_TRUE(touch([this] { return item(1); }, Hand::DoubleClick));
    ASSERT_TRUE(becomes([&] { return !window() && shows(document) && host->frame()->isActiveWindow(); }));

    ASSERT_NO_FATAL_FAILURE(open());
    EXPECT_EQ(inProgram([this] { return node(u"c"_s); }), 0);
    EXPECT_NE(inProgram([this] { return node(u"b [1]"_s); }), 0);
    key(u"Escape"_s);
    ASSERT_TRUE(becomes([this] { return !window(); }));
}

/// What is deleted comes back by the undo key, and in the next run from the list of what was lost.
void Filing::find(const QString& picture) {
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_NO_FATAL_FAILURE(remove(u"b [1]"_s));
    key(u"ctrl+z"_s);
    ASSERT_TRUE(becomes([this] { return items().items().count() == 1 && node(u"b [1]"_s) != 0; }));
    ASSERT_NO_FATAL_FAILURE(remove(u"b [1]"_s));
    ASSERT_NO_FATAL_FAILURE(close());
    ASSERT_NO_FATAL_FAILURE(restart());
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_TRUE(becomes([this] { return node(u"b"_s) != 0; }));
    ASSERT_TRUE(touch([this] { return button(u"retrouver"_s); }));
    ASSERT_TRUE(becomes([this] {
        const auto* const lost = window()->findChild<DialoguePertes*>();
        return lost && lost->isActiveWindow();
    }));
    photo(picture + u"-pertes"_s);
    key(u"Return"_s);
    ASSERT_TRUE(becomes([this] { return node(u"b [1]"_s) != 0 && window()->isActiveWindow(); }));
    ASSERT_NO_FATAL_FAILURE(close());
}

TEST_F(Filing, ATreeIsBuiltFilledCarriedIntoTheNextRunAndOpenedFrom) {
    ASSERT_NO_FATAL_FAILURE(begin({}, u"CO000088"_s));
    ASSERT_NO_FATAL_FAILURE(walk(u"CO000088"_s, u"71-dossiers"_s));
    ASSERT_NO_FATAL_FAILURE(find(u"71-dossiers"_s));
}

TEST_F(Filing, TheSameInTheRealCollection) {
    const QString base = realCollection();
    if (base.isEmpty())
        GTEST_SKIP() << "the real collection is not at hand";
    ASSERT_NO_FATAL_FAILURE(begin(base, u"CO000978"_s));
    ASSERT_NO_FATAL_FAILURE(walk(u"CO000978"_s, u"75-dossiers-reel"_s));
}

} // namespace velm::e2e
