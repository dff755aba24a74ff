// Where a view stands while heights become known: what the screen shows is laid out before it is painted, the bar knows
// the text's height, and what is read stays where it is.
#include "viewfixture.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class PlaceTest : public Box {
protected:
    /// Paragraphs that come out higher or lower than anybody would think beforehand.
    void paragraphs(const QString& letters) {
        RichText text;
        for (int i = 0; i < 400; ++i) {
            text.append(letters.repeated(40 + i % 7) + u"\r\n"_s, text.intern(CharFormat{}), text.intern(ParaFormat{}));
        }
        show(text);
    }
    QScrollBar& bar() { return *box.verticalScrollBar(); }
    /// Painting finds nothing new, and the bar reaches to the end.
    void expectReady(const std::string& when) {
        const QSizeF size = layout().documentSize();
        EXPECT_EQ(bar().maximum(), static_cast<int>(size.height()) - box.viewport()->height()) << when;
        const int top = bar().value();
        box.viewport()->grab();
        EXPECT_EQ(layout().documentSize(), size) << when;
        EXPECT_EQ(bar().value(), top) << when;
    }
};

const QString narrow = u"ill il "_s;
const QString broad = u"MWM WM "_s;

} // namespace

TEST_F(PlaceTest, WhatTheScreenShowsIsLaidOutBeforeItIsPainted) {
    for (const QString& letters : {narrow, broad}) {
        paragraphs(letters);
        expectReady("at the beginning");
        box.setZoom(150);
        expectReady("larger at the beginning");
        bar().setValue(bar().maximum() / 2);
        expectReady("in the middle");
        box.setZoom(70);
        expectReady("smaller in the middle");
        box.resize(box.width() - 300, box.height());
        expectReady("at another width");
        box.reveal(box.control().length() / 4 * 3);
        expectReady("at a place");
        key(Qt::Key_End, Qt::ControlModifier);
        expectReady("at the end");
        box.setZoom(100);
        expectReady("larger at the end");
        box.setZoom(60);
        expectReady("smaller at the end");
        box.resize(900, 600);
    }
}

} // namespace velm
