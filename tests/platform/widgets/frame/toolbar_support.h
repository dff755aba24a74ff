#pragma once
// A bar with a button of each kind, in a frame with a field.
#include "platform/widgets/frame/toolbar.h"
#include "tests/support/eventually.h"
#include "tests/support/show_in_front.h"

#include <QApplication>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

class ToolbarTest : public testing::Test {
protected:
    ToolbarTest() : bar(new Toolbar(&frame)), field(new QLineEdit(&frame)) {
        frame.setCentralWidget(field);
        frame.resize(600, 400);
        bar->setImages([this](const QString& name) {
            asked.push_back(name);
            QPixmap picture(24, 24);
            picture.fill(name == u"rouge" ? Qt::red : Qt::blue);
            return QIcon(picture);
        });
        bar->addButton(u"Précédent"_s, Toolbar::Kind::DropDown, u"rouge"_s);
        bar->addButton(u"filet"_s, Toolbar::Kind::Separator);
        bar->addButton(u"Imprimer"_s, Toolbar::Kind::Plain, u"bleu"_s);
        bar->addButton(u"Rechercher"_s, Toolbar::Kind::Check);
        bar->addButton(u"arbre"_s, Toolbar::Kind::Group);
        bar->addButton(u"tableau"_s, Toolbar::Kind::Group);
        bar->addButton(u"recherchedico"_s, Toolbar::Kind::Group);
        bar->addButton(u"abc"_s, Toolbar::Kind::Check);
        bar->addButton(u"barrehoriz"_s, Toolbar::Kind::Group);
        bar->addButton(u"barreverti"_s, Toolbar::Kind::Group);
        bar->dock(frame, 1);
    }

    void showFrame() { test::showInFront(frame); }
    void click(const QString& key) {
        QToolButton* button = bar->widget(key);
        QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(8, button->height() / 2));
    }
    /// The entries of a drop-down as they are shown.
    QMenu* opened(const QString& key) {
        QMenu* menu = bar->menu(key);
        menu->popup({});
        return menu;
    }

    QMainWindow frame;
    Toolbar* bar;
    QLineEdit* field;
    std::vector<QString> asked;
};

} // namespace velm::test
