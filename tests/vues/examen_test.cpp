// The judges themselves: a good window has no fault, and each fault is found.
#include "tests/support/eventually.h"
#include "tests/vues/examen.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace velm::vues {

using namespace Qt::Literals::StringLiterals;

namespace {

class Examen : public testing::Test {
protected:
    void SetUp() override { window.setObjectName(u"fenêtre"_s); }
    /// A widget at a place of its own in the window.
    template <typename T, typename... Arguments>
    T& add(const QRect& place, Arguments... arguments) {
        T* const widget = new T(arguments..., &window);
        widget->setGeometry(place);
        return *widget;
    }
    void show() {
        window.resize(400, 300);
        window.show();
    }

    QWidget window;
};

} // namespace

TEST_F(Examen, AWindowOfALayoutHasNoFault) {
    auto* const column = new QVBoxLayout(&window);
    auto* const field = new QLineEdit;
    auto* const label = new QLabel(u"&Mots"_s);
    label->setBuddy(field);
    auto* const choice = new QComboBox;
    choice->addItems({u"un"_s, u"un choix & plus"_s});
    choice->setToolTip(u"choix"_s);
    for (QWidget* const widget : std::initializer_list<QWidget*>{label, field, new QCheckBox(u"&Entier"_s), choice,
                                                                 new QPushButton(u"&Chercher"_s)})
        column->addWidget(widget);
    show();
    EXPECT_EQ(clipped(window), QStringList());
    EXPECT_EQ(overlapping(window), QStringList());
    EXPECT_EQ(equalTips(window), QStringList());
    EXPECT_EQ(equalMnemonics(window), QStringList());
    EXPECT_EQ(unnamed(window), QStringList());
    EXPECT_EQ(seen(window).size(), 6);
}

TEST_F(Examen, WordsWithoutRoomAreFound) {
    add<QLabel>(QRect(0, 0, 20, 20), u"une étiquette"_s);
    add<QLabel>(QRect(0, 30, 60, 20), u"une étiquette en plusieurs lignes"_s).setWordWrap(true);
    add<QPushButton>(QRect(0, 60, 30, 30), u"Rechercher"_s);
    add<QCheckBox>(QRect(0, 100, 40, 30), u"Rechercher"_s);
    add<QLineEdit>(QRect(0, 140, 40, 30)).setPlaceholderText(u"Mots à rechercher"_s);
    auto& choice = add<QComboBox>(QRect(0, 180, 40, 30));
    choice.addItem(u"un choix plus long que son champ"_s);
    show();
    EXPECT_EQ(clipped(window).size(), 6) << clipped(window).join(u'\n').toStdString();
}

TEST_F(Examen, ALabelCutWithItsWholeInTheTipIsNoFault) {
    add<QLabel>(QRect(0, 0, 20, 20), u"une étiquette"_s).setToolTip(u"une étiquette"_s);
    show();
    EXPECT_EQ(clipped(window), QStringList());
}

TEST_F(Examen, TabsAndHeadersWithoutRoomAreFound) {
    auto& tabs = add<QTabBar>(QRect(0, 0, 60, 30));
    tabs.addTab(u"Recherche rapide"_s);
    tabs.addTab(u"Critères"_s);
    auto& table = add<QTableWidget>(QRect(0, 40, 300, 200), 1, 2);
    table.setHorizontalHeaderLabels({u"Titre du document"_s, u"Réf."_s});
    table.setColumnWidth(0, 30);
    show();
    const QString found = clipped(window).join(u'\n');
    EXPECT_TRUE(found.contains(u"\"Critères\"")) << found.toStdString();
    EXPECT_TRUE(found.contains(u"\"Titre du document\"")) << found.toStdString();
    EXPECT_FALSE(found.contains(u"\"Réf.\"")) << found.toStdString();
}

TEST_F(Examen, AControlThatSticksOutIsFound) {
    add<QPushButton>(QRect(350, 0, 100, 30), u"Fermer"_s);
    show();
    EXPECT_EQ(clipped(window).size(), 1);
}

TEST_F(Examen, ControlsOnOneAnotherAreFound) {
    add<QPushButton>(QRect(0, 0, 100, 30), u"Un"_s);
    add<QPushButton>(QRect(90, 0, 100, 30), u"Deux"_s);
    add<QPushButton>(QRect(200, 0, 100, 30), u"Trois"_s);
    show();
    EXPECT_EQ(overlapping(window).size(), 1);
}

TEST_F(Examen, EqualTipsAreFound) {
    add<QToolButton>(QRect(0, 0, 30, 30)).setToolTip(u"Précédent"_s);
    add<QToolButton>(QRect(40, 0, 30, 30)).setToolTip(u"Précédent"_s);
    auto& hidden = add<QToolButton>(QRect(80, 0, 30, 30));
    hidden.setToolTip(u"Précédent"_s);
    hidden.hide();
    show();
    EXPECT_EQ(equalTips(window).size(), 1);
}

TEST_F(Examen, EqualLettersAreFound) {
    add<QPushButton>(QRect(0, 0, 100, 30), u"&Fermer"_s);
    auto& label = add<QLabel>(QRect(0, 40, 100, 30), u"&Fin"_s);
    show();
    EXPECT_EQ(equalMnemonics(window), QStringList()); // of a label that leads nowhere
    auto& field = add<QLineEdit>(QRect(0, 80, 100, 30));
    field.show();
    label.setBuddy(&field);
    EXPECT_EQ(equalMnemonics(window).size(), 1);
    QMenu menu;
    menu.addAction(u"&Fichier"_s);
    menu.addAction(u"&Fenêtre"_s);
    menu.addAction(u"&Aide"_s);
    EXPECT_EQ(equalMnemonics(menu).size(), 1);
    QMenuBar& bar = add<QMenuBar>(QRect(0, 120, 300, 30));
    bar.addAction(u"&Fichier"_s);
    bar.show();
    EXPECT_EQ(equalMnemonics(window).size(), 2);
}

TEST_F(Examen, ControlsThatSayNothingAreFound) {
    add<QToolButton>(QRect(0, 0, 30, 30));
    add<QLineEdit>(QRect(0, 40, 100, 30));
    add<QComboBox>(QRect(0, 80, 100, 30));
    add<QTableWidget>(QRect(0, 120, 100, 100), 1, 1);
    show();
    EXPECT_EQ(unnamed(window).size(), 4) << unnamed(window).join(u'\n').toStdString();
}

TEST_F(Examen, OfSeveralChildWindowsTheActiveOneCounts) {
    QMdiArea area;
    area.resize(400, 300);
    for (int i = 0; i < 2; ++i)
        area.addSubWindow(new QPushButton(u"Bouton"_s))->show();
    area.show();
    QApplication::setActiveWindow(&area);
    EVENTUALLY(area.activeSubWindow() != nullptr);
    qsizetype buttons = 0;
    for (const QWidget* const widget : seen(area))
        buttons += qobject_cast<const QPushButton*>(widget) ? 1 : 0;
    EXPECT_EQ(buttons, 1);
}

} // namespace velm::vues
