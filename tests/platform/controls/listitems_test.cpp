#include "platform/controls/listitems.h"

#include <gtest/gtest.h>
#include <string>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Writes down what a list tells.
struct ListJournal final : ListObserver {
    void listReset() override { told.emplace_back("reset"); }
    void itemComes(int index) override { told.push_back("comes " + std::to_string(index)); }
    void itemCame() override { told.emplace_back("came"); }
    void itemGoes(int index) override { told.push_back("goes " + std::to_string(index)); }
    void itemGone() override { told.emplace_back("gone"); }
    void itemChanged(int index) override { told.push_back("changed " + std::to_string(index)); }
    void itemSelected(int index) override { told.push_back("selected " + std::to_string(index)); }
    std::vector<std::string> told;
};

class ListItemsTest : public testing::Test {
protected:
    bool add(int index, const QString& key) { return items.add(index, key, key.toLower(), u"CO"_s); }
    QString keys() const {
        QString all;
        for (int index = 1; index <= items.count(); ++index)
            all += items.key(index);
        return all;
    }
    ListItems items;
};

} // namespace

TEST_F(ListItemsTest, EntriesStandWhereTheyWereAdded) {
    EXPECT_TRUE(add(0, u"A"_s));
    EXPECT_TRUE(add(1, u"B"_s));
    EXPECT_TRUE(add(3, u"C"_s));
    EXPECT_TRUE(add(2, u"D"_s));
    EXPECT_EQ(keys(), u"BDAC");
    EXPECT_EQ(items.text(2), u"d");
    EXPECT_EQ(items.image(2), u"CO");
    EXPECT_EQ(items.indexOf(u"A"_s), 3);
    EXPECT_EQ(items.indexOf(u"Z"_s), 0);
    EXPECT_EQ(items.key(9), QString());
}

TEST_F(ListItemsTest, AKeyStandsOnce) {
    add(0, u"A"_s);
    EXPECT_FALSE(add(0, u"A"_s));
    add(0, u"B"_s);
    EXPECT_FALSE(items.setKey(2, u"A"_s));
    EXPECT_TRUE(items.setKey(1, u"C"_s));
    EXPECT_TRUE(items.setKey(1, u"C"_s));
    EXPECT_TRUE(add(0, u"A"_s));
    items.remove(1);
    EXPECT_TRUE(add(0, u"C"_s));
    EXPECT_EQ(keys(), u"BAC");
    EXPECT_FALSE(items.setKey(9, u"Z"_s));
}

TEST_F(ListItemsTest, TheSelectionFollowsItsEntry) {
    for (const auto& key : {u"A"_s, u"B"_s, u"C"_s})
        add(0, key);
    items.select(2);
    add(1, u"D"_s);
    EXPECT_EQ(items.selected(), 3);
    items.remove(1);
    EXPECT_EQ(items.selected(), 2);
    items.remove(3);
    EXPECT_EQ(items.selected(), 2);
    items.remove(2);
    EXPECT_EQ(items.selected(), 0);
    items.select(9);
    EXPECT_EQ(items.selected(), 0);
}

TEST_F(ListItemsTest, WhatHappensIsToldOnce) {
    ListJournal journal;
    items.setObserver(&journal);
    add(0, u"A"_s);
    items.setText(1, u"x"_s);
    items.setText(1, u"x"_s);
    items.select(1);
    items.remove(1);
    items.remove(1);
    items.clear();
    EXPECT_EQ(journal.told,
              (std::vector<std::string>{"comes 1", "came", "changed 1", "selected 1", "goes 1", "gone", "reset"}));
}

TEST_F(ListItemsTest, ABulkIsToldAsOneReset) {
    ListJournal journal;
    items.setObserver(&journal);
    items.setRedraw(false);
    for (int i = 0; i < 5; ++i)
        add(0, QString::number(i));
    items.select(2);
    EXPECT_TRUE(journal.told.empty());
    items.setRedraw(true);
    items.setRedraw(false);
    items.setRedraw(true);
    EXPECT_EQ(journal.told, (std::vector<std::string>{"reset"}));
}

} // namespace velm
