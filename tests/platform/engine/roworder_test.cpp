#include "platform/engine/database_p.h"
#include "platform/engine/roworder.h"
#include "tests/platform/engine/base.h"

namespace velm::testing {
namespace {

Schema schema() {
    const FieldDef text{u"titre"_s, FieldType::Text};
    const FieldDef number{u"rang"_s, FieldType::Long};
    const FieldDef lazy{u"contenu"_s, FieldType::Memo};
    const IndexDef byTitle{u"titres"_s, {{u"titre"_s, true}, {u"rang"_s, false}}, false};
    return {{{u"pages"_s, {text, number, lazy}, {byTitle}, u"contenu"_s}}, false};
}

class RowOrderTest : public EngineTest {
protected:
    void begin() {
        base = store(definition);
        ASSERT_TRUE(base);
        table = std::make_unique<StoredTable>(base->d()->handle, definition.tables[0]);
    }
    RowOrder order(const IndexDef* index) const { return {base->d()->handle, *table, index}; }
    const IndexDef* titles() const { return &definition.tables[0].indexes[0]; }

    const Schema definition = schema();
    std::unique_ptr<Database> base;
    std::unique_ptr<StoredTable> table;
};

} // namespace

TEST_F(RowOrderTest, OfTheRowIdsReadsTheFieldsBehindTheId) {
    begin();
    const RowOrder rows = order(nullptr);
    EXPECT_EQ(rows.depth(), 1U);
    EXPECT_EQ(rows.cell(0), 0);
    EXPECT_EQ(rows.width(), 3) << "the lazy field is not among them";
    EXPECT_EQ(rows.rowText(), u"SELECT rowid,\"titre\",\"rang\" FROM \"pages\" WHERE rowid=?1");
    EXPECT_EQ(rows.stretchText({0, Bound::Above, {}}, false, true),
              u"SELECT rowid,\"titre\",\"rang\" FROM \"pages\" WHERE rowid>?1 ORDER BY rowid");
}

TEST_F(RowOrderTest, OfAnIndexReadsItsKeysToo) {
    begin();
    const RowOrder rows = order(titles());
    ASSERT_EQ(rows.depth(), 3U);
    EXPECT_EQ(rows.cell(0), 3) << "the key behind the fields";
    EXPECT_EQ(rows.cell(1), 2);
    EXPECT_EQ(rows.width(), 4);
    EXPECT_TRUE(rows.isFolded(0));
    EXPECT_FALSE(rows.isNumeric(0));
    EXPECT_TRUE(rows.isNumeric(1));
    const QString head = u"SELECT rowid,\"titre\",\"rang\",\"clé_titre\" FROM \"pages\""_s;
    EXPECT_EQ(rows.stretchText({1, Bound::AtLeast, {}}, false, true),
              head +
                  u" INDEXED BY \"pages_titres\" WHERE \"clé_titre\" IS ?1 AND \"rang\">=?2 ORDER BY \"rang\",rowid"_s);
    EXPECT_EQ(rows.stretchText({0, Bound::Below, {}}, true, false),
              head + u" WHERE \"clé_titre\"<?1 ORDER BY \"clé_titre\" DESC,\"rang\" DESC,rowid DESC"_s);
}

TEST_F(RowOrderTest, AKeyThatTheBaseLacksIsComputedAndAMissingIndexNotForced) {
    foreign(u"CREATE TABLE pages(titre TEXT, rang INTEGER, contenu TEXT)"_s);
    begin();
    EXPECT_FALSE(table->side);
    EXPECT_EQ(order(titles()).stretchText({}, false, true),
              u"SELECT rowid,\"titre\",\"rang\",cle_tri(\"titre\") FROM \"pages\" ORDER BY "
              "cle_tri(\"titre\"),\"rang\",rowid");
}

TEST_F(RowOrderTest, FieldsAndTablesThatTheBaseLacksAreKnown) {
    foreign(u"CREATE TABLE pages(titre TEXT)"_s);
    begin();
    EXPECT_TRUE(table->isThere());
    EXPECT_EQ(table->missingField(*titles()), u"rang");
    EXPECT_EQ(table->cells, (std::vector<int>{1, -1, -1}));
    EXPECT_EQ(table->fieldNumber(u"rang"_s), 1) << "of the schema, whatever the base has";
    EXPECT_EQ(table->fieldNumber(u"autre"_s), -1);
    const TableDef none{u"absente"_s, {}, {}, {}};
    EXPECT_FALSE(StoredTable(base->d()->handle, none).isThere());
}

} // namespace velm::testing
