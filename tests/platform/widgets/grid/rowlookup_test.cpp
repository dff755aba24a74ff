#include "platform/widgets/grid/rowlookup.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Two columns; the texts stand in the second one.
class RowLookUpTest : public ::testing::Test {
protected:
    RowLookUpTest() {
        model.setColumns({-1, -1});
        std::vector<QStringList> rows;
        for (const QString& text : {u"abus"_s, u"Étude"_s, u"etiquette"_s, u"loi"_s, u"abri"_s})
            rows.push_back({u"loi"_s, text});
        model.append(rows, {0, 1});
        // However slow the machine, keys typed one after the other belong together.
        QApplication::setKeyboardInputInterval(600'000);
    }
    ~RowLookUpTest() override { QApplication::setKeyboardInputInterval(before_); }
    /// From an own start each time: nothing was typed before.
    int typed(const QString& keys, int current = -1) { return RowLookUp(model).typed(keys, current, 1); }

    GridModel model;

private:
    const int before_ = QApplication::keyboardInputInterval();
};

/// Rows that look up by themselves, from one place on only.
struct Answering : GridSource {
    int rowCount() const override { return 9; }
    QString text(int, int) const override { return {}; }
    bool sort(int, bool) override { return false; }
    std::optional<int> find(int column, const QString& beginning, int from) const override {
        asked << u"%1 %2 %3"_s.arg(column).arg(beginning).arg(from);
        return from > 0 ? -1 : 6;
    }
    mutable QStringList asked;
};

} // namespace

TEST_F(RowLookUpTest, FindsTheBeginningWhateverItsCaseAndAccents) {
    EXPECT_EQ(typed(u"et"_s), 1);
    EXPECT_EQ(typed(u"ETI"_s), 2);
    EXPECT_EQ(typed(u"bus"_s), -1) << "inside of a text";
    EXPECT_EQ(typed(u"loi"_s), 3) << "not in the other column";
}

TEST_F(RowLookUpTest, OneLetterGoesOnFromTheRowBehindAndAround) {
    EXPECT_EQ(typed(u"a"_s, 0), 4);
    EXPECT_EQ(typed(u"a"_s, 4), 0);
    EXPECT_EQ(typed(u"aa"_s, 0), 4);
}

TEST_F(RowLookUpTest, ALongerBeginningStaysWhereItStillFits) {
    EXPECT_EQ(typed(u"ab"_s, 4), 4);
    RowLookUp lookUp(model);
    EXPECT_EQ(lookUp.typed(u"e"_s, -1, 1), 1);
    EXPECT_EQ(lookUp.typed(u"t"_s, 1, 1), 1);
    EXPECT_EQ(lookUp.typed(u"i"_s, 1, 1), 2);
}

TEST_F(RowLookUpTest, WithoutRowsOrColumnNothingIsFound) {
    EXPECT_EQ(RowLookUp(model).typed(u"a"_s, -1, -1), -1);
    model.resize(0);
    EXPECT_EQ(typed(u"a"_s), -1);
}

TEST_F(RowLookUpTest, ASourceAnswersItselfAndIsAskedAgainFromTheTop) {
    auto source = std::make_unique<Answering>();
    const Answering& answering = *source;
    model.setSource(std::move(source));
    EXPECT_EQ(typed(u"ab"_s, 3), 6);
    EXPECT_EQ(answering.asked, (QStringList{u"1 ab 3"_s, u"1 ab 0"_s}));
}

} // namespace velm
