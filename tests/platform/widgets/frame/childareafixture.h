#pragma once
// A frame with an area of child windows.
#include "platform/base/twips.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/childareaplaces.h"
#include "tests/support/eventually.h"
#include "tests/support/show_in_front.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>
#include <QVBoxLayout>

#include <array>
#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

/// A child that may refuse to close, and remembers the sizes in which it was painted.
class Child : public QTextEdit {
public:
    bool refuses = false;
    int asked = 0;
    std::vector<QSize> painted;

protected:
    void closeEvent(QCloseEvent* event) override {
        ++asked;
        event->setAccepted(!refuses);
    }
    void paintEvent(QPaintEvent* event) override {
        painted.push_back(size());
        QTextEdit::paintEvent(event);
    }
};

/// A child with three fields; the second one is its own choice where nobody has chosen.
class Form : public QWidget {
public:
    Form() {
        auto* column = new QVBoxLayout(this);
        for (QLineEdit*& field : fields) {
            field = new QLineEdit(this);
            column->addWidget(field);
        }
    }
    std::array<QLineEdit*, 3> fields{};

protected:
    void focusInEvent(QFocusEvent*) override { fields[1]->setFocus(); }
};

class ChildAreaTest : public testing::Test {
protected:
    ChildAreaTest() {
        frame.menuBar()->addMenu(u"Fichier"_s);
        area = new ChildArea(&frame);
        frame.setCentralWidget(area);
        frame.resize(900, 700);
    }

    void showFrame() { test::showInFront(frame); }

    Child* add(const QString& title = u"Fenêtre"_s) {
        auto* child = new Child;
        child->setWindowTitle(title);
        area->add(child);
        return child;
    }
    std::vector<Child*> addShown(int count) {
        std::vector<Child*> all;
        for (int index = 1; index <= count; ++index) {
            all.push_back(add(u"Fenêtre %1"_s.arg(index)));
            area->place(all.back(), ChildArea::Normal, 0, 0, 0, 0);
            area->activate(all.back());
        }
        return all;
    }
    QRect placeOf(QWidget* child) const { return area->around(child)->geometry(); }
    QRect inside() const { return area->viewport()->rect(); }
    void key(int code, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(code), modifiers);
    }

    QMainWindow frame;
    ChildArea* area = nullptr;
};

} // namespace velm
