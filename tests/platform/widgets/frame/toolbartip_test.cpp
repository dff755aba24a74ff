// Where the tips of a bar stand.
#include "tests/platform/widgets/frame/toolbar_support.h"

#include <QHelpEvent>
#include <QToolTip>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ToolbarTipTest : public test::ToolbarTest {
protected:
    ~ToolbarTipTest() override { QToolTip::hideText(); }

    /// What stands beside a button of the bar, docked there.
    QRect tipAt(int edge) {
        bar->setToolTip(u"Imprimer"_s, u"Imprimer le document"_s);
        bar->dock(frame, edge);
        showFrame();
        QToolButton* button = bar->widget(u"Imprimer"_s);
        place = QRect(button->mapToGlobal(QPoint()), button->size());
        QHelpEvent wanted(QEvent::ToolTip, button->rect().center(), place.center());
        QApplication::sendEvent(button, &wanted);
        EXPECT_EQ(QToolTip::text(), u"Imprimer le document");
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->inherits("QTipLabel") && window->isVisible())
                return window->geometry();
        }
        return {};
    }

    QRect place; ///< of the button, on the screen
};

} // namespace

TEST_F(ToolbarTipTest, BesideAnUprightBarItCoversNoOtherButton) {
    const QRect right = tipAt(3);
    EXPECT_GT(right.left(), place.right());
    EXPECT_LE(right.left() - place.right(), 16);
    EXPECT_LE(std::abs(right.center().y() - place.center().y()), 1);
    QToolTip::hideText();
    const QRect left = tipAt(4);
    EXPECT_LT(left.right(), place.left());
    EXPECT_LE(place.left() - left.right(), 16);
}

TEST_F(ToolbarTipTest, UnderALyingBarItStandsBelowThePointer) {
    const QRect below = tipAt(1);
    EXPECT_GT(below.top(), place.center().y());
}
