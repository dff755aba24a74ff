// Tables on tab stops in a window that is narrower than they are: they keep their columns, and the view scrolls
// sideways.
#include "viewfixture.h"

#include <QScreen>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

class Tables : public Box {
protected:
    Tables() {
        ParaFormat stops;
        stops.tabs = {2000, 5000};
        RichText rich;
        const FormatId type = rich.intern(CharFormat{});
        const FormatId plain = rich.intern(ParaFormat{});
        rich.append(prose + u"\r\n"_s, type, plain);
        for (int row = 0; row < 3; ++row)
            rich.append(u"intitulé\tobservations\tmontant\r\n"_s, type, rich.intern(stops));
        rich.append(prose.repeated(20), type, plain);
        show(rich);
        settle();
    }
    int sideways() { return box.horizontalScrollBar()->value(); }
    int farthest() { return box.horizontalScrollBar()->maximum(); }
    /// Whether a character can be seen, after scrolling.
    bool seen(qsizetype position) { return box.viewport()->rect().contains(pointOf(position)); }

    const QString prose = u"Les juges du fond apprécient souverainement la portée de la clause. "_s;
};

} // namespace

TEST_F(Tables, KeepTheirColumnsInANarrowWindow) {
    const int row = static_cast<int>(find(u"intitulé"));
    for (const int width : {900, 500, 300, 200}) {
        box.resize(width, 600);
        settle();
        const int line = place(row).y();
        EXPECT_EQ(place(find(u"observations")), QPoint(2000 / 15, line)) << width;
        EXPECT_EQ(place(find(u"montant")), QPoint(5000 / 15, line)) << width;
        EXPECT_EQ(farthest() > 0, width < 500) << width;
    }
}

TEST_F(Tables, TextAroundThemKeepsToTheWindow) {
    box.resize(300, 600);
    settle();
    const int edge = box.viewport()->width();
    const int end = static_cast<int>(prose.size());
    for (int i = 0; i < end; ++i)
        ASSERT_LE(place(i).x() + layout().page().textLeft, edge) << i;
}

TEST_F(Tables, WhatIsFarToTheRightIsScrolledToAndBack) {
    box.resize(300, 600);
    settle();
    const qsizetype amount = find(u"montant");
    EXPECT_FALSE(seen(amount));
    box.reveal(amount);
    EXPECT_TRUE(seen(amount + 3));
    box.reveal(0);
    EXPECT_EQ(sideways(), 0);
    box.reveal(amount);
    ASSERT_GT(sideways(), 0);
    box.control().setText(u"Un autre texte.");
    EXPECT_EQ(sideways(), 0) << "another text begins where it begins";
}

TEST_F(Tables, ScrolledSidewaysTheWholeIsPaintedAnew) {
    box.resize(300, 400);
    settle();
    const auto onScreen = [this] {
        for (int i = 0; i < 4; ++i) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
        }
        return box.screen()->grabWindow(box.winId()).toImage().convertToFormat(QImage::Format_RGB888);
    };
    QApplication::processEvents();
    const QImage before = onScreen();
    box.horizontalScrollBar()->setValue(farthest());
    const QImage seen = onScreen();
    EXPECT_NE(seen, before);
    EXPECT_EQ(seen, box.grab().toImage().convertToFormat(QImage::Format_RGB888));
}

TEST_F(Tables, AWideWindowHasNothingToScrollSideways) {
    box.resize(1200, 600);
    settle();
    EXPECT_EQ(farthest(), 0);
    EXPECT_FALSE(box.horizontalScrollBar()->isVisible());
}

} // namespace velm
