// What holds for every window in every state, in each language; the scale is that of the environment.
#include "core/ordre.h"
#include "document/ui/textes.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/icons.h"
#include "shell/bureau.h"
#include "shell/ecrangeneral.h"
#include "tests/support/eventually.h"
#include "tests/vues/clavier.h"
#include "tests/vues/examen.h"
#include "tests/vues/traits.h"
#include "tests/vues/visite.h"

#include <QApplication>
#include <QFileDialog>
#include <QMap>
#include <QMdiSubWindow>
#include <QMenu>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>
#include <map>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What was found on a walk: by kind, each fault once, with the first place where it was met.
class Findings {
public:
    void look(const Sight& sight) {
        // The toolkit's own dialog is not ours to mend.
        if (qobject_cast<const QFileDialog*>(&sight.window))
            return;
        ++sights_;
        if (!squeezed(sight)) {
            note(u"clipped"_s, sight, clipped(sight.window));
            note(u"overlapping"_s, sight, overlapping(sight.window));
        }
        note(u"tips"_s, sight, equalTips(sight.window));
        note(u"letters"_s, sight, equalMnemonics(sight.window));
        note(u"unnamed"_s, sight, unnamed(sight.window));
        if (qobject_cast<const QMenu*>(&sight.window) || QApplication::activePopupWidget())
            return;
        QApplication::setActiveWindow(sight.window.window());
        if (!QApplication::focusWidget() && !reachable(sight.window).isEmpty())
            note(u"focus"_s, sight, {u"nothing has the focus"_s});
        QWidget& window = worked(sight.window);
        if (!known(window)) {
            note(u"tab"_s, sight, tabFaults(window));
            note(u"rings"_s, sight, withoutRing(window));
        }
    }

    void missed(const QStringList& names) {
        for (const QString& name : names)
            faults_[u"missed"_s].insert(name, QString());
    }

    int sights() const { return sights_; }
    QString of(const QString& kind) const {
        QString lines;
        const QMap<QString, QString> found = faults_.value(kind);
        for (auto fault = found.cbegin(); fault != found.cend(); ++fault)
            lines += u"\n  "_s + fault.key() + (fault.value().isEmpty() ? QString() : u"  ["_s + fault.value() + u']');
        return lines;
    }

private:
    void note(const QString& kind, const Sight& sight, const QStringList& faults) {
        for (const QString& fault : faults) {
            if (!faults_[kind].contains(fault))
                faults_[kind].insert(fault, sight.name);
        }
    }
    /// Where a hand has left the documents a strip of the screen, they show what they can.
    static bool squeezed(const Sight& sight) {
        return QStringList{u"windows-columns"_s, u"windows-rows"_s, u"windows-icon"_s, u"results-wide"_s,
                           u"results-grouped"_s}
            .contains(sight.name);
    }
    /// Of the frame the child window in front, where there is one: the key stays in it.
    static QWidget& worked(QWidget& window) {
        const auto* const frame = qobject_cast<const Ecrangeneral*>(&window);
        QWidget* const child = frame ? frame->pieces().aire.activeChild() : nullptr;
        return child ? *child : window;
    }
    /// Whether the same controls of the same window have been walked through.
    bool known(QWidget& window) {
        QString mark = QString::fromLatin1(window.metaObject()->className());
        for (const QWidget* const widget : reachable(window))
            mark += u' ' + widget->objectName() + QString::fromLatin1(widget->metaObject()->className());
        const bool met = walked_.contains(mark);
        walked_ << mark;
        return met;
    }

    QMap<QString, QMap<QString, QString>> faults_;
    QStringList walked_;
    int sights_ = 0;
};

/// One walk for each language, for all tests.
const Findings& walkedIn(const QString& language) {
    static std::map<QString, Findings> all;
    if (!all.contains(language)) {
        Findings& findings = all[language];
        findings.missed(walk({{}, language, look::Theme::Light}, [&](const Sight& sight) { findings.look(sight); }));
    }
    return all[language];
}

class EachWindow : public testing::TestWithParam<const char*> {
protected:
    const Findings& findings() const { return walkedIn(QString::fromLatin1(GetParam())); }
    std::string faults(const QString& kind) const { return findings().of(kind).toStdString(); }
};

INSTANTIATE_TEST_SUITE_P(InEachLanguage, EachWindow, testing::Values("FR", "EN"),
                         [](const auto& one) { return std::string(one.param); });

/// A frame with three documents, one over the other.
class Closing : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(guide.prepare({}));
        guide.host().setSetting(u"OPTIONS", u"TIPS", u"0"_s);
        ASSERT_TRUE(guide.start());
        for (const auto& key : {u"CO000088"_s, u"JP000003"_s, u"LT000022"_s})
            guide.open(key);
        ASSERT_EQ(guide.missed(), QStringList());
        QApplication::setActiveWindow(guide.host().frame());
        ASSERT_TRUE(QTest::qWaitForWindowActive(guide.host().frame()));
    }
    void TearDown() override { guide.forget(); }

    Guide guide{{}, [](const Sight&) {}};
};

} // namespace

TEST_P(EachWindow, IsReached) {
    EXPECT_GT(findings().sights(), 50);
    EXPECT_TRUE(faults(u"missed"_s).empty()) << faults(u"missed"_s);
}

TEST_P(EachWindow, CutsNoWords) {
    EXPECT_TRUE(faults(u"clipped"_s).empty()) << faults(u"clipped"_s);
}

TEST_P(EachWindow, LaysNoControlOnAnother) {
    EXPECT_TRUE(faults(u"overlapping"_s).empty()) << faults(u"overlapping"_s);
}

TEST_P(EachWindow, HasNoTwoEqualTips) {
    EXPECT_TRUE(faults(u"tips"_s).empty()) << faults(u"tips"_s);
}

TEST_P(EachWindow, HasNoTwoEqualLetters) {
    EXPECT_TRUE(faults(u"letters"_s).empty()) << faults(u"letters"_s);
}

TEST_P(EachWindow, SaysWhatItsControlsAre) {
    EXPECT_TRUE(faults(u"unnamed"_s).empty()) << faults(u"unnamed"_s);
}

TEST_P(EachWindow, IsWalkedByTabAndComesRound) {
    EXPECT_TRUE(faults(u"tab"_s).empty()) << faults(u"tab"_s);
}

TEST_P(EachWindow, ShowsWhereTheFocusIs) {
    EXPECT_TRUE(faults(u"rings"_s).empty()) << faults(u"rings"_s);
}

TEST_P(EachWindow, HasTheFocusSomewhere) {
    EXPECT_TRUE(faults(u"focus"_s).empty()) << faults(u"focus"_s);
}

TEST_F(Closing, LeavesTheFocusInTheNextWindow) {
    const ChildArea& area = guide.host().frame()->pieces().aire;
    for (int left = 2; left >= 0; --left) {
        QWidget* const front = guide.front();
        ASSERT_NE(front, nullptr);
        area.around(front)->close();
        EVENTUALLY(guide.host().program().bureau().fenetres().size() == std::size_t(left));
        EVENTUALLY(QApplication::focusWidget() != nullptr);
        QWidget* const focus = QApplication::focusWidget();
        EXPECT_TRUE(focus && (left == 0 || guide.front()->isAncestorOf(focus))) << left;
    }
}

TEST_F(Closing, OfADialogGivesTheFocusBack) {
    for (const Ordre order : {Ordre::Chercher, Ordre::Astuce}) {
        const QWidget* const before = QApplication::focusWidget();
        ASSERT_NE(before, nullptr);
        guide.command(order);
        EVENTUALLY(QApplication::activeWindow() && QApplication::activeWindow() != guide.host().frame());
        dismiss(*QApplication::activeWindow());
        QApplication::setActiveWindow(guide.host().frame());
        EVENTUALLY(QApplication::focusWidget() == before);
    }
}

TEST(Bars, OfTheFrameHaveButtonsThatCanBeHit) {
    constexpr int least = 36;
    Guide guide({}, [](const Sight&) {});
    ASSERT_TRUE(guide.prepare({}));
    guide.host().setSetting(u"OPTIONS", u"TIPS", u"0"_s);
    ASSERT_TRUE(guide.start());
    int buttons = 0;
    for (const auto& name : {u"barrecommande"_s, u"barreécran"_s, u"barreoutils"_s}) {
        const Toolbar* const bar = guide.frameBar(name);
        ASSERT_NE(bar, nullptr);
        EXPECT_EQ(bar->iconSize(), QSize(24, 24));
        for (int index = 1; index <= bar->buttonCount(); ++index) {
            const QToolButton* const button = bar->widget(bar->keyAt(index));
            if (!button || !button->isVisible())
                continue;
            ++buttons;
            EXPECT_GE(std::min(button->width(), button->height()), least) << qPrintable(bar->keyAt(index));
        }
    }
    EXPECT_GT(buttons, 15);
    guide.forget();
}

TEST(Pictures, AreDrawnOnWholePixels) {
    // Slants and curves are half-tones whatever one does; straight strokes must be none. What is drawn on a grid of 24
    // cannot be sharp at 20, which no bar uses.
    constexpr double most = 0.45;
    for (const int side : {16, 24, 32}) {
        for (const double density : {1., 1.5, 2.}) {
            double sum = 0;
            const QStringList names = iconNames();
            for (const QString& name : names)
                sum += halfTones(
                    icon(name).pixmap(QSize(side, side), density).toImage().convertToFormat(QImage::Format_ARGB32));
            EXPECT_LE(sum / double(names.size()), most) << side << " x " << density;
        }
    }
}

} // namespace velm::vues
