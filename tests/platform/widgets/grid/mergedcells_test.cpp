#include "platform/widgets/grid/mergedcells.h"

#include <QHeaderView>

#include <gtest/gtest.h>

namespace velm {
namespace {

class MergedCellsTest : public ::testing::Test {
protected:
    MergedCellsTest() {
        using namespace Qt::Literals::StringLiterals;
        model.setColumns({-1, -1, -1});
        model.append({{u"loi"_s, u"1978"_s, u"a"_s},
                      {u"loi"_s, u"1978"_s, u"b"_s},
                      {u"loi"_s, u"1993"_s, u"b"_s},
                      {u"loi"_s, u"1993"_s, u"b"_s}},
                     {0, 1, 2});
        header.setModel(&model);
        merged.setOn(true);
    }

    GridModel model;
    QHeaderView header{Qt::Horizontal};
    MergedCells merged{model, header};
};

} // namespace

TEST_F(MergedCellsTest, EqualNeighboursJoinWithinWhatEqualsLeftOfThem) {
    EXPECT_EQ(merged.joined(0), 0) << "nothing is above";
    EXPECT_EQ(merged.joined(1), 2);
    EXPECT_EQ(merged.joined(2), 1) << "equal texts right of a difference stay apart";
    EXPECT_EQ(merged.joined(3), 3);
    EXPECT_EQ(merged.joined(4), 0);
}

TEST_F(MergedCellsTest, ColumnsCountAsTheyStandAndHiddenOnesDoNotPart) {
    header.setSectionHidden(1, true);
    EXPECT_EQ(merged.joined(2), 3);
    header.moveSection(2, 0);
    EXPECT_EQ(merged.joined(1), 0);
}

TEST_F(MergedCellsTest, TheSortedColumnComesFirstWhereverItStands) {
    model.column(2).mark = FlexGrid::Mark::Descending;
    EXPECT_EQ(merged.rank(2), 0);
    EXPECT_EQ(merged.rank(0), 1);
    EXPECT_EQ(merged.rank(1), 2);
    EXPECT_EQ(merged.joined(1), 0) << "what it parts stays apart";
    EXPECT_EQ(merged.joined(2), 2) << "it, and the first one";
    merged.remember(1, 4);
    EXPECT_EQ(merged.rank(2), 0);
    EXPECT_EQ(merged.joined(2), 2);
    merged.forget();
    model.column(2).mark = FlexGrid::Mark::None;
    EXPECT_EQ(merged.rank(2), 2);
    EXPECT_EQ(merged.joined(1), 2);
}

TEST_F(MergedCellsTest, OffNothingJoins) {
    merged.setOn(false);
    merged.remember(0, 4);
    EXPECT_EQ(merged.joined(3), 0);
}

TEST_F(MergedCellsTest, WhatIsRememberedIsNotComparedAgain) {
    merged.remember(1, 3);
    model.setText(1, 0, QString());
    EXPECT_EQ(merged.joined(1), 2);
    EXPECT_EQ(merged.joined(2), 1);
    EXPECT_EQ(merged.joined(3), 3) << "beyond, as it is";
    merged.forget();
    EXPECT_EQ(merged.joined(1), 0);
    EXPECT_EQ(merged.joined(2), 0);
}

} // namespace velm
