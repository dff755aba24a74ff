#pragma once
// A tree of which it is told what the user's hands want of it.
#include "treefixture.h"

#include <QLineEdit>

namespace velm {

using namespace Qt::Literals::StringLiterals;

class TreeHandsTest : public TreeTest {
protected:
    TreeHandsTest() {
        plant();
        nodes.setExpanded(1, true);
        nodes.setExpanded(2, true);
        QObject::connect(&tree, &TreeView::labelEdited, &tree, [this](int node, const QString& text, bool cancelled) {
            told.append(u"edited %1 %2%3"_s.arg(node).arg(text, cancelled ? u" cancelled"_s : u""_s));
        });
        QObject::connect(&tree, &TreeView::labelEditWanted, &tree,
                         [this](int node) { told.append(u"wanted %1"_s.arg(node)); });
        QObject::connect(&tree, &TreeView::dragBegins, &tree,
                         [this](int node) { told.append(u"drag %1"_s.arg(node)); });
    }
    QPoint wordsOf(int node) const { return {rectOf(node).left() + 8, pointOf(node).y()}; }
    QLineEdit* editor() const { return tree.viewport()->findChild<QLineEdit*>(); }
    void moveWithButton(const QPoint& to) {
        QMouseEvent event(QEvent::MouseMove, to, tree.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(tree.viewport(), &event);
    }
};

} // namespace velm
