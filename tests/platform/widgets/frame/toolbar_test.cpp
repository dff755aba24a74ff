#include "platform/widgets/look/framestyle.h"
#include "platform/widgets/look/plaintext.h"
#include "tests/platform/widgets/frame/toolbar_support.h"
#include "tests/support/styleofprogram.h"

#include <QAction>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QTimer>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

using ToolbarTest = test::ToolbarTest;

QStringList texts(const QMenu& menu) {
    QStringList all;
    for (const QAction* action : menu.actions())
        all.push_back(action->text());
    return all;
}

} // namespace

// ---- keys, pictures, tool tips

TEST_F(ToolbarTest, ButtonsAreFoundByKeyAndCountFromOne) {
    EXPECT_EQ(bar->buttonCount(), 10);
    EXPECT_EQ(bar->keyAt(1), u"Précédent");
    EXPECT_EQ(bar->keyAt(10), u"barreverti");
    EXPECT_TRUE(bar->hasButton(u"Imprimer"_s));
    EXPECT_FALSE(bar->hasButton(u"imprimer"_s));
    EXPECT_EQ(bar->widget(u"Imprimer"_s)->objectName(), u"Imprimer");
    EXPECT_EQ(bar->widget(u"filet"_s), nullptr);
}

#ifdef QT_NO_DEBUG
TEST_F(ToolbarTest, UnknownAndRepeatedKeysArePassedOver) {
    bar->addButton(u"Imprimer"_s, Toolbar::Kind::Check);
    bar->addButton(QString(), Toolbar::Kind::Plain);
    EXPECT_EQ(bar->buttonCount(), 10);
    bar->setValue(u"absent"_s, true);
    bar->setToolTip(u"absent"_s, u"x"_s);
    bar->setMenus(u"absent"_s, nullptr);
    EXPECT_FALSE(bar->value(u"absent"_s));
    EXPECT_FALSE(bar->isButtonVisible(u"absent"_s));
    EXPECT_EQ(bar->widget(u"absent"_s), nullptr);
    EXPECT_EQ(bar->keyAt(0), QString());
    EXPECT_EQ(bar->keyAt(11), QString());
}
#endif

TEST_F(ToolbarTest, PicturesComeByName) {
    EXPECT_EQ(asked, (std::vector<QString>{u"rouge"_s, u"bleu"_s}));
    const auto colour = [this](const QString& key) {
        return bar->widget(key)->icon().pixmap(20).toImage().pixelColor(10, 10);
    };
    EXPECT_EQ(colour(u"Précédent"_s), QColor(Qt::red));
    EXPECT_EQ(colour(u"Imprimer"_s), QColor(Qt::blue));
    bar->setImages([](const QString&) { return QIcon(); });
    EXPECT_TRUE(bar->widget(u"Imprimer"_s)->icon().isNull());
}

TEST_F(ToolbarTest, TheToolTipCarriesTheShortcut) {
    bar->setToolTip(u"Imprimer"_s, u"Imprimer & éjecter"_s);
    EXPECT_EQ(bar->widget(u"Imprimer"_s)->toolTip(), u"Imprimer & éjecter");
    bar->setShortcut(u"Imprimer"_s, QKeySequence(Qt::CTRL | Qt::Key_P));
    EXPECT_EQ(bar->toolTip(u"Imprimer"_s), u"Imprimer & éjecter");
    EXPECT_EQ(bar->widget(u"Imprimer"_s)->toolTip(), u"Imprimer & éjecter (Ctrl+P)");
    EXPECT_EQ(bar->widget(u"Imprimer"_s)->accessibleName(), u"Imprimer & éjecter");
    bar->setToolTip(u"Imprimer"_s, u"Imprimer la page"_s);
    EXPECT_EQ(bar->widget(u"Imprimer"_s)->toolTip(), u"Imprimer la page (Ctrl+P)");
}

TEST_F(ToolbarTest, AShortcutClicksWhereverTheFocusIsAndOfAHiddenBarToo) {
    bar->setShortcut(u"Imprimer"_s, QKeySequence(Qt::CTRL | Qt::Key_P));
    showFrame();
    field->setFocus();
    const QSignalSpy clicked(bar, &Toolbar::buttonClicked);
    QTest::keyClick(field, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(clicked.count(), 1);
    bar->dock(frame, 0);
    QTest::keyClick(field, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(clicked.count(), 2);
    bar->setButtonEnabled(u"Imprimer"_s, false);
    QTest::keyClick(field, Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(clicked.count(), 2);
}

// ---- clicks and values

TEST_F(ToolbarTest, AClickTellsTheKey) {
    showFrame();
    const QSignalSpy clicked(bar, &Toolbar::buttonClicked);
    click(u"Imprimer"_s);
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(clicked.at(0).at(0).toString(), u"Imprimer");
    click(u"Précédent"_s);
    EXPECT_EQ(clicked.count(), 2);
    EXPECT_FALSE(bar->value(u"Imprimer"_s));
}

TEST_F(ToolbarTest, ACheckButtonStaysDownUntilItIsPressedAgain) {
    showFrame();
    click(u"Rechercher"_s);
    EXPECT_TRUE(bar->value(u"Rechercher"_s));
    click(u"Rechercher"_s);
    EXPECT_FALSE(bar->value(u"Rechercher"_s));
}

TEST_F(ToolbarTest, AtMostOneOfAGroupIsDown) {
    showFrame();
    bar->setValue(u"barrehoriz"_s, true);
    click(u"arbre"_s);
    click(u"tableau"_s);
    EXPECT_FALSE(bar->value(u"arbre"_s));
    EXPECT_TRUE(bar->value(u"tableau"_s));
    EXPECT_TRUE(bar->value(u"barrehoriz"_s));
    click(u"tableau"_s);
    EXPECT_TRUE(bar->value(u"tableau"_s));
    bar->setValue(u"barreverti"_s, true);
    EXPECT_FALSE(bar->value(u"barrehoriz"_s));
    bar->setValue(u"barreverti"_s, false);
    EXPECT_FALSE(bar->value(u"barreverti"_s));
    EXPECT_FALSE(bar->value(u"barrehoriz"_s));
}

TEST_F(ToolbarTest, SettingAValueTellsNoClick) {
    const QSignalSpy clicked(bar, &Toolbar::buttonClicked);
    bar->setValue(u"Rechercher"_s, true);
    bar->setValue(u"arbre"_s, true);
    bar->setValue(u"tableau"_s, true);
    bar->setValue(u"Imprimer"_s, true);
    EXPECT_EQ(clicked.count(), 0);
    EXPECT_TRUE(bar->value(u"Rechercher"_s));
    EXPECT_FALSE(bar->value(u"Imprimer"_s));
}

TEST_F(ToolbarTest, ButtonsAndSeparatorsHideByKey) {
    showFrame();
    bar->setButtonVisible(u"filet"_s, false);
    bar->setButtonVisible(u"Imprimer"_s, false);
    EXPECT_FALSE(bar->isButtonVisible(u"filet"_s));
    EVENTUALLY(!bar->widget(u"Imprimer"_s)->isVisible());
    EXPECT_TRUE(bar->isButtonEnabled(u"Imprimer"_s));
    bar->setButtonEnabled(u"Imprimer"_s, false);
    bar->setButtonVisible(u"Imprimer"_s, true);
    EVENTUALLY(bar->widget(u"Imprimer"_s)->isVisible());
    EXPECT_FALSE(bar->widget(u"Imprimer"_s)->isEnabled());
    EXPECT_FALSE(bar->isButtonEnabled(u"Imprimer"_s));
}

// ---- drop-downs

TEST_F(ToolbarTest, TheMenuIsMadeFromItsEntriesEachTimeItOpens) {
    ButtonMenus menus;
    bar->setMenus(u"Précédent"_s, &menus);
    menus.add(1, u"c1"_s, u"Premier"_s);
    menus.add(1, u"c2"_s, u"Dol & fraude"_s);
    showFrame();
    EXPECT_EQ(texts(*opened(u"Précédent"_s)), (QStringList{u"Dol && fraude"_s, u"Premier"_s}));
    bar->menu(u"Précédent"_s)->hide();
    menus.remove(1);
    QMenu* menu = opened(u"Précédent"_s);
    EXPECT_EQ(texts(*menu), QStringList{u"Premier"_s});
    menu->hide();
}

TEST_F(ToolbarTest, ChoosingAnEntryTellsItsIndexAndKeyAndClicksNoButton) {
    ButtonMenus menus;
    menus.add(1, u"c1"_s, u"Un"_s);
    menus.add(2, u"c2"_s, u"Deux"_s);
    bar->setMenus(u"Précédent"_s, &menus);
    showFrame();
    const QSignalSpy clicked(bar, &Toolbar::buttonClicked);
    const QSignalSpy chosen(bar, &Toolbar::menuClicked);
    QMenu* menu = opened(u"Précédent"_s);
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().at(1)).center());
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.at(0), (QVariantList{u"Précédent"_s, 2, u"c2"_s}));
    EXPECT_EQ(clicked.count(), 0);
}

TEST_F(ToolbarTest, LongEntriesAreElidedAndToldWhole) {
    ButtonMenus menus;
    const QString title = u"Code de la consommation, article <L. 111-1> sur l’information précontractuelle"_s +
                          QString(u" et ce qui la suit"_s).repeated(3);
    menus.add(1, QString(), title);
    menus.add(2, QString(), u"ligne\tune\nligne deux"_s);
    bar->setMenus(u"Précédent"_s, &menus);
    QMenu* menu = opened(u"Précédent"_s);
    const QString shown = menu->actions().at(0)->text();
    EXPECT_LT(shown.size(), title.size());
    EXPECT_TRUE(shown.startsWith(title.left(20))) << shown.toStdString();
    EXPECT_TRUE(shown.endsWith(title.right(20))) << shown.toStdString();
    EXPECT_TRUE(shown.contains(u'\u2026')) << shown.toStdString();
    EXPECT_EQ(menu->actions().at(0)->toolTip(), plainTip(title));
    EXPECT_EQ(menu->actions().at(1)->text(), u"ligne une ligne deux");
    menu->hide();
}

TEST_F(ToolbarTest, EntriesBearThePicturesThatTheirKeysName) {
    ButtonMenus menus;
    menus.add(1, u"Copier"_s, u"Un"_s);
    menus.add(2, u"c2"_s, u"Deux"_s);
    bar->setMenus(u"Précédent"_s, &menus);
    QMenu* menu = opened(u"Précédent"_s);
    EXPECT_TRUE(menu->actions().at(0)->icon().isNull());
    menu->hide();
    bar->setMenuImages([](const QString& key) { return key == u"Copier" ? key : QString(); });
    menu = opened(u"Précédent"_s);
    EXPECT_FALSE(menu->actions().at(0)->icon().isNull());
    EXPECT_TRUE(menu->actions().at(1)->icon().isNull());
    menu->hide();
}

TEST_F(ToolbarTest, NeighboursAboutTheSameAreOfferedOnceAndTheFirstIsChosen) {
    ButtonMenus menus;
    for (const QString& key : {u"a1"_s, u"a2"_s, u"b1"_s, u"a3"_s, u"x"_s, u"x2"_s})
        menus.add(0, key, u"Titre"_s);
    bar->setMenus(u"Précédent"_s, &menus);
    bar->setMenuSubjects([](const QString& key) { return key.startsWith(u'x') ? QString() : key.left(1); });
    const QSignalSpy chosen(bar, &Toolbar::menuClicked);
    QMenu* menu = opened(u"Précédent"_s);
    QStringList keys;
    for (const QAction* action : menu->actions())
        keys << action->objectName();
    EXPECT_EQ(keys, (QStringList{u"a1"_s, u"b1"_s, u"a3"_s, u"x"_s, u"x2"_s})) << "nothing is no subject";
    menu->actions().at(1)->trigger();
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.first().at(1).toInt(), 3) << "its place among all";
    menu->hide();
}

TEST_F(ToolbarTest, AFaintButtonCanBePressedAndHasItsPictureBack) {
    const auto picture = [this] { return bar->widget(u"Imprimer"_s)->icon().pixmap(QSize(24, 24), 1.0).toImage(); };
    const QImage usual = picture();
    bar->setButtonFaint(u"Imprimer"_s, true);
    EXPECT_NE(picture(), usual);
    EXPECT_TRUE(bar->isButtonEnabled(u"Imprimer"_s));
    bar->setButtonFaint(u"Imprimer"_s, false);
    EXPECT_EQ(picture(), usual);
}

TEST_F(ToolbarTest, ButtonsAreSquaresOf36PixelsAroundPicturesOf24) {
    const test::StyleOfProgram style;
    auto* shown = new Toolbar(&frame);
    shown->addButton(u"un"_s, Toolbar::Kind::Plain, u"Copier"_s);
    shown->addButton(u"trait"_s, Toolbar::Kind::Separator);
    shown->addButton(u"deux"_s, Toolbar::Kind::DropDown, u"Suivant"_s);
    for (const int edge : {1, 3}) {
        shown->dock(frame, edge);
        showFrame();
        EXPECT_EQ(shown->iconSize(), QSize(24, 24));
        EVENTUALLY(shown->widget(u"un"_s)->size() == QSize(36, 36));
        EXPECT_EQ(shown->widget(u"deux"_s)->height(), 36) << edge;
        EXPECT_GT(shown->widget(u"deux"_s)->width(), 36) << edge;
    }
}

TEST_F(ToolbarTest, AllEntriesAreOfferedInOneColumnThatScrolls) {
    ButtonMenus menus;
    constexpr int count = 600;
    for (int index = 1; index <= count; ++index)
        menus.add(0, u"c%1"_s.arg(index), u"Titre %1"_s.arg(index));
    bar->setMenus(u"Précédent"_s, &menus);
    const QSignalSpy chosen(bar, &Toolbar::menuClicked);
    FrameStyle style(QStyleFactory::create(u"fusion"_s));
    bar->menu(u"Précédent"_s)->setStyle(&style);
    showFrame();
    QMenu* menu = opened(u"Précédent"_s);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
    ASSERT_EQ(menu->actions().size(), count);
    EXPECT_LE(menu->height(), menu->screen()->availableGeometry().height());
    EXPECT_LT(menu->width(), 400) << "one column";
    QAction* last = menu->actions().last();
    EXPECT_GT(menu->actionGeometry(last).top(), menu->height()) << "not seen yet";
    QTest::keyClick(menu, Qt::Key_End);
    EXPECT_TRUE(menu->rect().contains(menu->actionGeometry(last).center()))
        << menu->actionGeometry(last).top() << " of " << menu->height();
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(last).center());
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.first().at(1).toInt(), count);
    EXPECT_EQ(chosen.first().at(2).toString(), u"c600"_s);
    menu->setStyle(nullptr);
}

TEST_F(ToolbarTest, TheArrowOfADropDownWithoutEntriesOpensNothing) {
    ButtonMenus menus;
    bar->setMenus(u"Précédent"_s, &menus);
    showFrame();
    QToolButton* button = bar->widget(u"Précédent"_s);
    const QSignalSpy clicked(bar, &Toolbar::buttonClicked);
    // A menu that opened would hold the press until it is closed.
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() - 4, button->height() / 2));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(clicked.count(), 0);
    bar->setMenus(u"Précédent"_s, nullptr);
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() - 4, button->height() / 2));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(ToolbarTest, TheArrowOpensTheMenuAndAKeyToo) {
    ButtonMenus menus;
    menus.add(1, u"c1"_s, u"Un"_s);
    bar->setMenus(u"Précédent"_s, &menus);
    showFrame();
    QToolButton* button = bar->widget(u"Précédent"_s);
    QMenu* menu = bar->menu(u"Précédent"_s);
    const QSignalSpy shown(menu, &QMenu::aboutToShow);
    const QSignalSpy chosen(bar, &Toolbar::menuClicked);
    const auto choose = [&] {
        QTimer::singleShot(0, menu, [menu] { menu->actions().front()->trigger(); });
        QTimer::singleShot(0, menu, [menu] { menu->close(); });
    };
    choose();
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() - 4, button->height() / 2));
    EXPECT_EQ(shown.count(), 1);
    button->setFocus();
    choose();
    QTest::keyClick(button, Qt::Key_Down);
    EXPECT_EQ(shown.count(), 2);
    EXPECT_EQ(chosen.count(), 2);
}

} // namespace velm
