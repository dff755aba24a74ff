// What the user sees: the pixels that the window really holds, which scrolling moves about without painting them, must
// always be those that painting the whole view anew would give.
#include "tests/support/rounds.h"
#include "viewfixture.h"

#include <QListWidget>
#include <QRandomGenerator>
#include <QScreen>
#include <QSplitter>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A view above a list, as in a document window.
class ScreenTest : public QuietTest {
protected:
    ScreenTest() {
        QApplication::setCursorFlashTime(0); // the caret stands in both pictures
        splitter_.setOrientation(Qt::Vertical);
        splitter_.addWidget(&box_);
        splitter_.addWidget(&list_);
        splitter_.resize(900, 700);
        splitter_.setSizes({450, 250});
        splitter_.show();
        box_.setFocus();
        QApplication::processEvents();
    }

    /// Paints what waits for it, and does nothing else.
    void paintPending() {
        for (int i = 0; i < 4; ++i) { // painting may ask for more
            QCoreApplication::sendPostedEvents(&splitter_, QEvent::UpdateLater);
            QCoreApplication::sendPostedEvents(&splitter_, QEvent::UpdateRequest);
        }
    }
    QImage onScreen() {
        const QRect place(box_.mapTo(&splitter_, QPoint()), box_.size());
        return splitter_.screen()
            ->grabWindow(splitter_.winId(), place.x(), place.y(), place.width(), place.height())
            .toImage()
            .convertToFormat(QImage::Format_RGB888);
    }
    QImage paintedAnew() { return box_.grab().toImage().convertToFormat(QImage::Format_RGB888); }
    /// Nothing, or where the two differ first and last.
    std::string difference() {
        paintPending();
        const QImage seen = onScreen();
        const QImage anew = paintedAnew();
        if (seen.size() != anew.size())
            return "two sizes";
        int first = -1;
        int last = -1;
        for (int y = 0; y < seen.height(); ++y) {
            if (!alike(seen, anew, y)) {
                first = first < 0 ? y : first;
                last = y;
            }
        }
        if (first < 0)
            return {};
        keep(seen, u"seen"_s);
        keep(anew, u"anew"_s);
        return "rows " + std::to_string(first) + " to " + std::to_string(last) + " of " + std::to_string(seen.height());
    }
    bool alike(const QImage& seen, const QImage& anew, int y) const {
        return std::equal(seen.constScanLine(y), seen.constScanLine(y) + 3 * seen.width(), anew.constScanLine(y),
                          [this](uchar one, uchar other) { return std::abs(one - other) <= shades_; });
    }
    /// Where somebody wants to look at the pictures.
    static void keep(const QImage& image, const QString& name) {
        const QString folder = qEnvironmentVariable("VELM_PICTURES");
        if (!folder.isEmpty())
            image.save(folder + u'/' + name + u".png"_s);
    }

    void show(const RichText& text) {
        box_.setRedraw(false);
        box_.control().setText(u"");
        box_.control().richTextForEdit() = text;
        box_.control().notifyChanged();
        box_.setRedraw(true);
    }
    PaperLayout& layout() { return *qobject_cast<PaperLayout*>(box_.document()->documentLayout()); }

    int shades_ = 0; ///< by which a pixel may differ
    QSplitter splitter_;
    RichTextBox& box_ = *new RichTextBox;
    QListWidget& list_ = *new QListWidget;
};

/// What a user and a program can do to a view, at random; each call does one thing and says which.
class Roads : public ScreenTest {
protected:
    int upTo(int bound) { return static_cast<int>(random_.bounded(bound)); }
    qsizetype place() {
        const qsizetype length = box_.control().length();
        return upTo(6) == 0 ? (upTo(2) == 0 ? 0 : length) : random_.bounded(length + 1);
    }

    void document() {
        RichText text = sample::longText(upTo(4) == 0 ? 3000 : 20000 + upTo(200000));
        const int kind = upTo(8);
        if (kind == 0) { // a paragraph in parts
            text.append(u"le prix du bien, "_s.repeated(3000), text.charFormatIdAt(0), text.paraFormatIdAt(0));
        } else if (kind == 1) { // a word in parts
            text.append(QString(50000, u'x'), text.charFormatIdAt(0), text.paraFormatIdAt(0));
        } else if (kind == 2) { // more than is taken in at once
            text.append(u"\r\n\f\r\nmot"_s.repeated(12000), text.charFormatIdAt(0), text.paraFormatIdAt(0));
        }
        show(text);
        if (upTo(2) == 0)
            box_.setSelStart(place());
    }
    void marks() {
        CharChange mark;
        mark.mask = CharChange::Colour | CharChange::Bold;
        mark.values.colour = upTo(0xFFFFFF);
        mark.values.bold = upTo(2) == 0;
        box_.setRedraw(false);
        for (int i = 0; i < 20; ++i)
            box_.control().richTextForEdit().changeCharacters(place(), 9, mark);
        box_.control().notifyChanged();
        box_.setRedraw(true);
        if (upTo(2) == 0)
            box_.reveal(place());
    }
    void format() {
        box_.setSelStart(place());
        box_.setSelLength(upTo(2000));
        upTo(2) == 0 ? box_.control().setSelFontSize(6 + upTo(largest_ - 5)) : box_.control().setSelIndent(upTo(1500));
    }
    void links() {
        std::vector<LinkRange> ranges;
        for (int i = upTo(60); i > 0; --i) {
            const qsizetype start = place();
            ranges.push_back({start, start + 1 + upTo(30)});
        }
        box_.setLinkRanges(ranges);
    }
    void hits() {
        std::vector<HitRange> ranges;
        for (int i = upTo(200); i > 0; --i) {
            const qsizetype start = place();
            ranges.push_back({start, start + 1 + upTo(12)});
        }
        if (!ranges.empty() && upTo(2) == 0) { // one of them is the current one
            box_.setSelStart(ranges.front().start);
            box_.setSelLength(ranges.front().end - ranges.front().start);
        }
        box_.setHits(upTo(2) == 0 ? HitKind::Words : HitKind::Text, ranges);
    }
    void find() {
        const QString what = upTo(2) == 0 ? u"garantie"_s : u"Article L. %1-"_s.arg(1 + upTo(200));
        box_.findText(what, place());
    }
    void wheel(Qt::KeyboardModifiers modifiers) {
        const QPointF at(100, 100);
        QWheelEvent event(at, box_.mapToGlobal(at), QPoint(), QPoint(0, 120 * (upTo(2) == 0 ? 1 : -1) * (1 + upTo(3))),
                          Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box_.viewport(), &event);
    }
    void key() {
        static const Qt::Key keys[]{Qt::Key_Down, Qt::Key_Up,   Qt::Key_PageDown, Qt::Key_PageUp,
                                    Qt::Key_Left, Qt::Key_Home, Qt::Key_End,      Qt::Key_Right,
                                    Qt::Key_Tab,  Qt::Key_Plus, Qt::Key_Down,     Qt::Key_Minus};
        const Qt::Key which = keys[upTo(static_cast<int>(std::size(keys)))];
        const bool zoom = which == Qt::Key_Plus || which == Qt::Key_Minus;
        Qt::KeyboardModifiers modifiers = zoom || upTo(4) == 0 ? Qt::ControlModifier : Qt::NoModifier;
        if (!zoom && which != Qt::Key_Tab && upTo(3) == 0)
            modifiers |= Qt::ShiftModifier;
        QTest::keyClick(&box_, which, which == Qt::Key_Tab ? Qt::NoModifier : modifiers);
    }
    void mouse() {
        const QPoint at(upTo(box_.viewport()->width()), upTo(box_.viewport()->height()));
        if (upTo(3) == 0)
            QTest::mouseClick(box_.viewport(), Qt::LeftButton, upTo(3) == 0 ? Qt::ShiftModifier : Qt::NoModifier, at);
        else
            QTest::mouseMove(box_.viewport(), at);
    }

    struct Road {
        const char* name;
        std::function<void()> go;
    };
    void walk(int steps) {
        box_.setLinkRanges({});
        show(sample::longText(100000));
        const char* last = "";
        for (int step = 0; step < steps; ++step) {
            const Road& road = next();
            road.go();
            if (box_.zoom() > mostZoom_)
                box_.setZoom(mostZoom_);
            if (upTo(2) == 0) {
                QApplication::processEvents(); // a slice of settling as well
            }
            ASSERT_EQ(difference(), "") << "step " << step << ", " << road.name << " after " << last;
            last = road.name;
        }
    }
    static int steps() { return qEnvironmentVariableIntValue("VELM_LONG") != 0 ? 10'000 : test::rounds(400); }

    int largest_ = 18;   ///< letters, in points
    int mostZoom_ = 250; ///< per cent: together less than what is filled as a shape
    const Road& next() { return roads_[static_cast<std::size_t>(upTo(static_cast<int>(roads_.size())))]; }

    QRandomGenerator random_{1};
    const std::vector<Road> roads_{
        {"reveal", [this] { box_.reveal(place()); }},
        {"caret", [this] { box_.setSelStart(place()); }},
        {"find", [this] { find(); }},
        {"document", [this] { document(); }},
        {"marks", [this] { marks(); }},
        {"format", [this] { format(); }},
        {"links", [this] { links(); }},
        {"hits", [this] { hits(); }},
        {"wheel", [this] { wheel(Qt::NoModifier); }},
        {"wheel again", [this] { wheel(Qt::NoModifier); }},
        {"wheel to zoom", [this] { wheel(Qt::ControlModifier); }},
        {"key", [this] { key(); }},
        {"key again", [this] { key(); }},
        {"mouse", [this] { mouse(); }},
        {"bar", [this] { box_.verticalScrollBar()->setValue(upTo(box_.verticalScrollBar()->maximum() + 1)); }},
        {"line", [this] { box_.verticalScrollBar()->triggerAction(QAbstractSlider::SliderSingleStepAdd); }},
        {"size", [this] { splitter_.resize(300 + upTo(900), 300 + upTo(600)); }},
        {"splitter",
         [this] {
             splitter_.setSizes({50 + upTo(600), 50 + upTo(300)});
         }},
        {"zoom", [this] { box_.setZoom(50 + upTo(mostZoom_ - 49)); }},
        {"paper", [this] { box_.control().setBackColor(upTo(2) == 0 ? 0xFFFFFF : 0xC0FFFF); }},
        {"settle", [] { QApplication::processEvents(); }},
        {"settle again", [] { QApplication::processEvents(); }},
        {"hide and show",
         [this] {
             box_.hide();
             box_.reveal(place());
             box_.show();
         }},
    };
};

} // namespace

TEST_F(ScreenTest, APlaceFarDownStaysWholeWhileTheTextAboveSettles) {
    show(sample::longText(600000));
    box_.setSelStart(300000);
    EXPECT_EQ(difference(), "");
    while (!box_.isSettled()) {
        QApplication::processEvents();
        ASSERT_EQ(difference(), "");
    }
}

TEST_F(ScreenTest, WhatComesInLaterIsPaintedWhereItIsLookedAt) {
    RichText text;
    text.append(u"mot\r\n"_s.repeated(40000), text.intern(CharFormat{}), text.intern(ParaFormat{}));
    show(text);
    QScrollBar& bar = *box_.verticalScrollBar();
    bar.setValue(bar.maximum() / 10 * 9);
    const QImage empty = paintedAnew();
    while (!box_.isSettled()) {
        ASSERT_EQ(difference(), "");
        QApplication::processEvents();
    }
    EXPECT_EQ(difference(), "");
    EXPECT_NE(paintedAnew(), empty);
}

TEST_F(ScreenTest, ScrollingByALineMovesThePixelsThatStay) {
    show(sample::longText(20000));
    EVENTUALLY_WITHIN(60000, box_.isSettled());
    paintPending();
    int painted = 0;
    class Rows : public QObject {
    public:
        explicit Rows(int& rows) : rows_(rows) {}
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Paint)
                rows_ += static_cast<QPaintEvent*>(event)->rect().height();
            return QObject::eventFilter(watched, event);
        }

    private:
        int& rows_;
    } rows(painted);
    box_.viewport()->installEventFilter(&rows);
    box_.verticalScrollBar()->setValue(box_.verticalScrollBar()->value() + 30);
    paintPending();
    EXPECT_EQ(painted, 30);
    EXPECT_EQ(difference(), "");
}

TEST_F(Roads, AfterAnyOfThemTheScreenShowsWhatPaintingAnewWould) {
    walk(steps());
}

TEST_F(Roads, TheSameHoldsForVeryLargeLettersButForTheShadesOfTheirEdges) {
    // The toolkit fills letters of 64 pixels and more as shapes, whose edges depend on where the painting is cut.
    shades_ = 64;
    largest_ = 60;
    mostZoom_ = 500;
    walk(steps() / 4);
}

} // namespace velm
