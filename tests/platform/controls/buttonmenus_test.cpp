#include "platform/controls/buttonmenus.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList texts(const ButtonMenus& menus) {
    QStringList list;
    for (int index = 1; index <= menus.count(); ++index)
        list.append(menus.at(index).text);
    return list;
}

ButtonMenus three() {
    ButtonMenus menus;
    menus.add(0, u"a"_s, u"A"_s);
    menus.add(0, u"b"_s, u"B"_s);
    menus.add(0, u"c"_s, u"C"_s);
    return menus;
}

} // namespace

TEST(ButtonMenus, AnEntryInsertedAtOneStandsOnTop) {
    ButtonMenus menus;
    for (const QString& text : {u"un"_s, u"deux"_s, u"trois"_s})
        EXPECT_EQ(menus.add(1, text, text), ButtonMenus::Added::Yes);
    EXPECT_EQ(texts(menus), (QStringList{u"trois"_s, u"deux"_s, u"un"_s}));
    EXPECT_EQ(menus.at(1).key, u"trois"_s);
}

TEST(ButtonMenus, AnEntryCanStandBetweenOthers) {
    ButtonMenus menus = three();
    menus.add(2, u"x"_s, u"X"_s);
    EXPECT_EQ(texts(menus), (QStringList{u"A"_s, u"X"_s, u"B"_s, u"C"_s}));
}

TEST(ButtonMenus, AnIndexOutsideAppends) {
    ButtonMenus menus = three();
    for (const int index : {0, -5, 6, 1000})
        menus.add(index, {}, QString::number(index));
    EXPECT_EQ(texts(menus).mid(3), (QStringList{u"0"_s, u"-5"_s, u"6"_s, u"1000"_s}));
}

TEST(ButtonMenus, AKeyStandsOnce) {
    ButtonMenus menus = three();
    EXPECT_EQ(menus.add(1, u"b"_s, u"autre"_s), ButtonMenus::Added::NotUnique);
    EXPECT_EQ(texts(menus), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    EXPECT_EQ(menus.add(1, {}, u"sans"_s), ButtonMenus::Added::Yes);
    EXPECT_EQ(menus.add(1, {}, u"sans"_s), ButtonMenus::Added::Yes);
    EXPECT_FALSE(menus.contains({}));
}

TEST(ButtonMenus, AnEntryIsRemovedByItsIndexAndFreesItsKey) {
    ButtonMenus menus = three();
    menus.remove(2);
    EXPECT_EQ(texts(menus), (QStringList{u"A"_s, u"C"_s}));
    EXPECT_FALSE(menus.contains(u"b"_s));
    EXPECT_EQ(menus.add(0, u"b"_s, u"B"_s), ButtonMenus::Added::Yes);
}

TEST(ButtonMenus, NothingIsRemovedOutside) {
    ButtonMenus menus = three();
    for (const int index : {0, -1, 4, 99})
        menus.remove(index);
    EXPECT_EQ(menus.count(), 3);
    EXPECT_THROW(menus.at(0), std::out_of_range);
    EXPECT_THROW(menus.at(4), std::out_of_range);
}

} // namespace velm
