// What copied rows offer.
#include "platform/widgets/grid/tablemime.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

TEST(TableMimeTest, ACellStaysOneInTextAndTable) {
    TableMime table;
    table.add({u"a\tb"_s, u"c\r\nd"_s});
    table.add({u"<e>"_s, QString()});
    EXPECT_EQ(table.rows(), 2);
    const auto data = table.take();
    EXPECT_EQ(data->text(), u"a b\tc  d\r\n<e>\t"_s);
    EXPECT_EQ(data->html(), u"<meta charset=\"utf-8\"><table><tr><td>a b</td><td>c  d</td></tr>"
                            "<tr><td>&lt;e&gt;</td><td></td></tr></table>"_s);
    EXPECT_EQ(table.rows(), 0);
    EXPECT_EQ(table.take()->text(), QString());
}

TEST(TableMimeTest, VeryManyRowsAreTextAlone) {
    TableMime table;
    for (int row = 0; row < TableMime::richRows; ++row)
        table.add({u"a"_s});
    EXPECT_TRUE(table.take()->hasHtml());
    for (int row = 0; row <= TableMime::richRows; ++row)
        table.add({u"a"_s});
    const auto data = table.take();
    EXPECT_FALSE(data->hasHtml());
    EXPECT_EQ(data->text().count(u'\n'), TableMime::richRows);
    table.add({u"a"_s});
    EXPECT_TRUE(table.take()->hasHtml()) << "a new table";
}
