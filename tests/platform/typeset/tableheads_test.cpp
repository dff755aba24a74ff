#include "platform/typeset/showntext.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Row {
    QString text;
    int after = 60;
    std::vector<std::int32_t> stops = {1000, 2000};
    int hang = 0; ///< of the further lines of a row's last cell
};

/// The numbers of the paragraphs that end a head.
QList<int> heads(const std::vector<Row>& rows) {
    RichText rich;
    for (const Row& row : rows) {
        ParaFormat format;
        format.spaceAfter = row.after;
        format.tabs = row.stops;
        format.offset = row.hang;
        rich.append(row.text + u"\r\n"_s, rich.intern(CharFormat{}), rich.intern(format));
    }
    const ShownText shown(rich);
    QList<int> found;
    for (int i = 0; i < shown.count(); ++i) {
        if (shown.paragraph(i).headEnd)
            found << i;
    }
    return found;
}

} // namespace

TEST(TableHeads, TheFirstOfThreeRowsIsOne) {
    EXPECT_EQ(heads({{u"Bien\tDélai"_s}, {u"neuf\t2"_s}, {u"usagé\t1"_s}}), QList<int>{0});
    EXPECT_EQ(heads({{u"Bien\tDélai"_s}, {u"neuf\t2"_s}}), QList<int>{});
    EXPECT_EQ(heads({{u"texte"_s, 60, {}}, {u"Bien\tDélai"_s}, {u"neuf\t2"_s}, {u"usagé\t1"_s}}), QList<int>{1});
}

TEST(TableHeads, TitlesOverSomeOfTheRowsPartNoTable) {
    const Row title{u"A. Biens"_s, 60, {}};
    EXPECT_EQ(heads({{u"Bien\tDélai"_s}, title, {u"neuf\tdeux"_s}, title, title, {u"usagé\tun"_s}}), QList<int>{0});
    EXPECT_EQ(
        heads(
            {{u"Bien\tDélai"_s}, {u"a\tb"_s}, {u"c\td"_s}, title, title, title, {u"e\tf"_s}, {u"g\th"_s}, {u"i\tj"_s}}),
        (QList<int>{0, 6}))
        << "three lines are text of their own";
}

TEST(TableHeads, TitlesPartNoTableWhoseCellsHang) {
    const Row title{u"Titre Ier"_s, 60, {}};
    const auto row = [](const QString& text) { return Row{text, 60, {1000}, 1000}; };
    EXPECT_EQ(heads({row(u"Articles\tRédaction"_s), title, row(u"R. 1\tdu décret"_s), row(u"R. 2\tdu décret"_s), title,
                     row(u"R. 3\tdu décret"_s), row(u"R. 4\tdu décret"_s), row(u"R. 5\tdu décret"_s)}),
              QList<int>{0});
}

TEST(TableHeads, EachTableHasItsOwn) {
    const Row other{u"x\ty"_s, 60, {1500}};
    EXPECT_EQ(heads({{u"Bien\tDélai"_s}, {u"neuf\t2"_s}, {u"usagé\t1"_s}, other, other, other}), (QList<int>{0, 3}));
}

TEST(TableHeads, ARowOfFiguresIsNone) {
    EXPECT_EQ(heads({{u"2004\t2005"_s}, {u"1\t2"_s}, {u"3\t4"_s}}), QList<int>{});
    EXPECT_EQ(heads({{u"neuf\t7,70"_s}, {u"usagé\t2"_s}, {u"loué\t4"_s}}), QList<int>{});
    EXPECT_EQ(heads({{u"\tN\tN + 1"_s}, {u"a\t2\t3"_s}, {u"b\t4\t5"_s}}), QList<int>{0});
}

TEST(TableHeads, AHeadOfSeveralParagraphsEndsWhereItKeepsItsDistance) {
    EXPECT_EQ(heads({{u"Nature\tDélai de"_s, 0}, {u"du bien\tgarantie"_s}, {u"neuf\t2"_s}, {u"usagé\t1"_s}}),
              QList<int>{1});
    EXPECT_EQ(heads({{u"Bien\tDélai"_s, 0},
                     {u"neuf\t2"_s, 0},
                     {u"usagé\t1"_s, 0},
                     {u"loué\t1"_s, 0},
                     {u"prêté\t1"_s, 0},
                     {u"volé\t1"_s, 0}}),
              QList<int>{0})
        << "no distance anywhere";
}

TEST(TableHeads, WhatHasNoStopsOrNoTabsIsNoTable) {
    EXPECT_EQ(heads({{u"1°\tun"_s, 60, {}}, {u"2°\tdeux"_s, 60, {}}, {u"3°\ttrois"_s, 60, {}}}), QList<int>{});
    EXPECT_EQ(heads({{u"un"_s}, {u"deux"_s}, {u"trois"_s}}), QList<int>{});
    EXPECT_EQ(heads({{u"mot\t"_s + QString(500, u'x')}, {u"a\tb"_s}, {u"c\td"_s}}), QList<int>{}) << "running text";
}

} // namespace velm
