// Real keys and clicks on the document windows: which control has the focus, what a window leaves behind that closes,
// and what the next run makes of the places.
#include "document/ui/panneautextes.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/text/richtextbox.h"
#include "platform/widgets/tree/treeview.h"
#include "shell/bureau.h"
#include "shell/volet.h"
#include "tests/e2e/hosted.h"

#include <QMdiSubWindow>
#include <QMenuBar>

namespace velm::e2e {

namespace {

class Windows : public Hosted {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(layOut());
        host->setSetting(u"GENERALITES", u"CHECKQUIT", u"1"_s);
        host->setSetting(u"GENERALITES", u"RESTAUREFEN", u"1"_s);
        ASSERT_NO_FATAL_FAILURE(start());
    }
    void quit() {
        key(u"ctrl+q"_s);
        ASSERT_TRUE(becomes([this] { return host->hasEnded(); }));
        inProgram([this] { host->clear(); });
    }
    void open(const QString& document) {
        inProgram([&] { host->program().ouvre(decoupecle(document)); });
        ASSERT_TRUE(becomes([&] { return shows(document); }));
    }

    // ---- what is looked at; in the program's thread

    bool shows(const QString& document) const {
        return host->front() && host->front()->referencecourante() == document && host->front()->isActiveWindow();
    }
    QMdiSubWindow* window() const { return host->frame()->pieces().aire.around(host->front()); }
    Spot title() const { return {window(), QRect(window()->width() / 2, 4, 8, 8)}; }
    /// The three small buttons that a maximised window puts into the menu bar: down, back, away.
    Spot corner(int number) const {
        QWidget* buttons = host->frame()->menuBar()->cornerWidget(Qt::TopRightCorner);
        const int width = buttons ? buttons->width() / 3 : 0;
        return {buttons, buttons ? QRect(width * number, 0, width, buttons->height()) : QRect()};
    }
};

} // namespace

TEST_F(Windows, TheTreeHasTheFocusAgainWhenItsWindowComesBack) {
    ASSERT_NO_FATAL_FAILURE(open(u"CO000002"_s));
    ASSERT_TRUE(touch([this] { return tool(u"arbre"_s); }));
    ASSERT_TRUE(touch([this] { return tool(u"barrehoriz"_s); }));
    ASSERT_TRUE(touch([this] { return Spot::of(host->front()->panneau().arbre().viewport()); }));
    ASSERT_TRUE(becomes([this] { return host->front()->panneau().arbre().hasFocus(); }));
    ASSERT_NO_FATAL_FAILURE(open(u"JP000003"_s));
    // Not the word search, which takes the focus whenever its window comes forward.
    ASSERT_TRUE(touch([this] { return tool(u"arbre"_s); }));
    ASSERT_TRUE(touch([this] { return Spot::of(host->front()->vue().viewport()); }));
    ASSERT_TRUE(becomes([this] { return host->front()->vue().hasFocus(); }));
    // One beside the other, then one behind the other.
    for (const bool filling : {false, true}) {
        ASSERT_TRUE(!filling || touch([this] { return title(); }, Hand::DoubleClick));
        ASSERT_TRUE(becomes([&] { return window()->isMaximized() == filling; }));
        for (const auto& [there, back] : {std::pair{u"ctrl+Tab"_s, u"ctrl+Tab"_s}, {u"alt+Left"_s, u"alt+Right"_s}}) {
            key(there);
            ASSERT_TRUE(becomes([this] { return shows(u"CO000002"_s); }));
            EXPECT_TRUE(inProgram([this] { return host->front()->panneau().arbre().hasFocus(); })) << filling;
            key(back);
            ASSERT_TRUE(becomes([this] { return shows(u"JP000003"_s); }));
            EXPECT_TRUE(inProgram([this] { return host->front()->vue().hasFocus(); })) << filling;
        }
        photo(filling ? u"42-retour-agrandi"_s : u"41-retour"_s);
    }
}

TEST_F(Windows, WhatClosesIsForgottenWhenTheAreaTakesAnotherSize) {
    for (const auto& document : {u"CO000002"_s, u"JP000003"_s, u"GL000012"_s})
        ASSERT_NO_FATAL_FAILURE(open(document));
    for (const auto& next : {u"JP000003"_s, u"CO000002"_s}) {
        key(u"ctrl+w"_s);
        ASSERT_TRUE(becomes([&] { return shows(next); }));
        for (const bool visible : {true, false}) {
            key(u"ctrl+shift+f"_s);
            ASSERT_TRUE(becomes([&] { return host->frame()->pieces().volet.isVisible() == visible; }));
        }
    }
    photo(u"43-fermees"_s);
    ASSERT_TRUE(touch([this] { return title(); }, Hand::DoubleClick));
    ASSERT_TRUE(becomes([this] { return window()->isMaximized(); }));
    key(u"ctrl+F4"_s);
    ASSERT_TRUE(becomes([this] { return !host->front(); }));
    key(u"ctrl+shift+f"_s);
    ASSERT_TRUE(becomes([this] { return host->frame()->pieces().volet.isVisible(); }));
    ASSERT_NO_FATAL_FAILURE(quit());
}

TEST_F(Windows, TheNextRunFindsEachWindowAsItWas) {
    ASSERT_NO_FATAL_FAILURE(open(u"CO000002"_s));
    ASSERT_NO_FATAL_FAILURE(open(u"JP000003"_s));
    ASSERT_TRUE(drag([this] { return title(); }, {90, 60}));
    const QRect moved = inProgram([this] { return window()->geometry(); });
    ASSERT_NO_FATAL_FAILURE(quit());

    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(becomes([this] { return shows(u"JP000003"_s); }));
    EXPECT_EQ(inProgram([this] { return window()->geometry(); }), moved);
    key(u"ctrl+Tab"_s);
    ASSERT_TRUE(becomes([this] { return shows(u"CO000002"_s); }));
    const QRect behind = inProgram([this] { return window()->geometry(); });
    ASSERT_TRUE(touch([this] { return title(); }, Hand::DoubleClick));
    ASSERT_TRUE(becomes([this] { return window()->isMaximized(); }));
    ASSERT_NO_FATAL_FAILURE(quit());

    ASSERT_NO_FATAL_FAILURE(start());
    ASSERT_TRUE(becomes([this] { return shows(u"CO000002"_s); }));
    EXPECT_TRUE(inProgram([this] { return window()->isMaximized(); }));
    photo(u"44-agrandie"_s);
    ASSERT_TRUE(touch([this] { return corner(1); }));
    ASSERT_TRUE(becomes([this] { return !window()->isMaximized(); }));
    EXPECT_EQ(inProgram([this] { return window()->geometry(); }), behind);
    key(u"ctrl+Tab"_s);
    ASSERT_TRUE(becomes([this] { return shows(u"JP000003"_s); }));
    EXPECT_EQ(inProgram([this] { return window()->geometry(); }), moved);
    photo(u"45-places"_s);
}

} // namespace velm::e2e
