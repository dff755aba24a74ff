// Every order, every seek and every move against a plain sorted list, on bases of all kinds.
#include "core/schemas.h"
#include "platform/engine/database_p.h"
#include "platform/text/letters.h"
#include "tests/platform/engine/base.h"

#include <algorithm>
#include <random>

namespace velm::testing {
namespace {

struct Line {
    qint64 id = 0;
    std::vector<QVariant> values; ///< by field of the table
};

QByteArray asciiFolded(const QString& text) {
    QByteArray bytes = text.toUtf8();
    for (char& c : bytes)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    return bytes;
}

/// -1, 0, 1. Null first, then the empty text, then numbers or texts.
int compared(const QVariant& a, const QVariant& b, bool folded) {
    if (a.isNull() || b.isNull())
        return static_cast<int>(!a.isNull()) - static_cast<int>(!b.isNull());
    const bool aText = a.typeId() == QMetaType::QString;
    const bool bText = b.typeId() == QMetaType::QString;
    if (!aText && !bText)
        return a.toLongLong() < b.toLongLong() ? -1 : static_cast<int>(a.toLongLong() > b.toLongLong());
    if (aText != bText)
        return (aText ? a : b).toString().isEmpty() == aText ? -1 : 1;
    const QByteArray left = folded ? sortKey(a.toString()) : asciiFolded(a.toString());
    const QByteArray right = folded ? sortKey(b.toString()) : asciiFolded(b.toString());
    return left < right ? -1 : static_cast<int>(right < left);
}

/// Which base the walk runs on.
enum class Kind { Shared, Unchanging, Building, WithoutKeys, WithoutIndexes };

class OrderTest : public EngineTest, public ::testing::WithParamInterface<Kind> {
protected:
    std::mt19937 random{20000};

    int draw(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }

    QVariant drawn(const FieldDef& field) {
        static const QStringList texts{u""_s,    u"a"_s,   u"A"_s,   u"à"_s,   u"ab"_s, u"âb"_s,
                                       u"œuf"_s, u"b c"_s, u"Été"_s, u"ete"_s, u"zz"_s, u"CO"_s};
        if (draw(6) == 0)
            return {};
        switch (field.type) {
        case FieldType::Long:
            return static_cast<qlonglong>(draw(7) - 3);
        case FieldType::Date:
            return u"200%1-01-02"_s.arg(draw(4));
        default:
            return texts[draw(static_cast<int>(texts.size()))];
        }
    }

    /// Fills every table with rows in a random state; unique indexes get their rows by luck.
    std::unique_ptr<Database> prepare() {
        auto made = Database::create(path(), corpusSchema());
        EXPECT_TRUE(made.database);
        for (const TableDef& table : corpusSchema().tables)
            fillTable(*made.database, table);
        if (GetParam() == Kind::Building)
            return std::move(made.database);
        made.database.reset();
        if (GetParam() == Kind::WithoutKeys || GetParam() == Kind::WithoutIndexes)
            strip(GetParam() == Kind::WithoutKeys);
        return open(corpusSchema(), GetParam() == Kind::Shared ? OpenMode::Shared : OpenMode::ExclusiveReadOnly);
    }

    void fillTable(Database& base, const TableDef& table) {
        if (table.optional) {
            ASSERT_TRUE(base.makeTable(table.name));
        }
        std::vector<QString> fields;
        for (const FieldDef& field : table.fields)
            fields.push_back(field.name);
        TableWriter writer(base, table.name, fields);
        qint64 id = 0;
        for (int i = 0; i < 60; ++i) {
            std::vector<QVariant> values;
            for (const FieldDef& field : table.fields)
                values.push_back(drawn(field));
            if (writer.add(values))
                lines[table.name].push_back({++id, values});
        }
        EXPECT_TRUE(writer.finish());
        EXPECT_GT(id, 5);
    }

    /// The same base as another tool would have made it.
    void strip(bool keysToo) {
        QString statements;
        for (const TableDef& table : corpusSchema().tables) {
            for (const IndexDef& index : table.indexes)
                statements += u"DROP INDEX \"%1_%2\";"_s.arg(table.name, index.name);
            for (const QString& field : foldedFields(table))
                statements +=
                    keysToo ? u"ALTER TABLE \"%1\" DROP COLUMN \"%2\";"_s.arg(table.name, keyColumn(field)) : QString();
        }
        foreign(statements);
    }

    int comparedBy(const TableDef& table, const IndexDef& index, const Line& line, const std::vector<QVariant>& keys) {
        for (size_t i = 0; i < keys.size(); ++i) {
            const auto field = static_cast<size_t>(table.field(index.fields[i].field) - table.fields.data());
            if (const int result = compared(line.values[field], keys[i], index.fields[i].folded); result != 0)
                return result;
        }
        return 0;
    }

    std::vector<QVariant> keysOf(const TableDef& table, const IndexDef& index, const Line& line) {
        std::vector<QVariant> keys;
        for (const IndexField& field : index.fields)
            keys.push_back(line.values[static_cast<size_t>(table.field(field.field) - table.fields.data())]);
        return keys;
    }

    std::vector<Line> sorted(const TableDef& table, const IndexDef& index) {
        std::vector<Line> order = lines[table.name];
        std::sort(order.begin(), order.end(), [&](const Line& a, const Line& b) {
            const int result = comparedBy(table, index, a, keysOf(table, index, b));
            return result != 0 ? result < 0 : a.id < b.id;
        });
        return order;
    }

    static std::vector<qint64> ids(const std::vector<Line>& order) {
        std::vector<qint64> result;
        result.reserve(order.size());
        for (const Line& line : order)
            result.push_back(line.id);
        return result;
    }

    static void seek(Recordset& recordset, Seek how, const std::vector<QVariant>& keys) {
        if (keys.size() == 1)
            recordset.seek(how, keys[0]);
        else if (keys.size() == 2)
            recordset.seek(how, keys[0], keys[1]);
        else
            recordset.seek(how, keys[0], keys[1], keys[2]);
    }

    void checkSeeks(Recordset& recordset, const TableDef& table, const IndexDef& index) {
        const std::vector<Line> order = sorted(table, index);
        for (int round = 0; round < 120; ++round) {
            const auto how = static_cast<Seek>(draw(3));
            std::vector<QVariant> keys =
                keysOf(table, index, order[static_cast<size_t>(draw(static_cast<int>(order.size())))]);
            keys.resize(static_cast<size_t>(draw(static_cast<int>(keys.size()))) + 1);
            for (size_t i = 0; i < keys.size(); ++i) {
                if (draw(3) == 0)
                    keys[i] = draw(4) == 0 ? QVariant(QString()) : drawn(*table.field(index.fields[i].field));
            }
            auto expected = std::find_if(order.begin(), order.end(), [&](const Line& line) {
                const int result = comparedBy(table, index, line, keys);
                return how == Seek::Equal ? result == 0 : how == Seek::Greater ? result > 0 : result >= 0;
            });
            seek(recordset, how, keys);
            ASSERT_EQ(recordset.noMatch(), expected == order.end());
            ASSERT_EQ(recordset.eof(), expected == order.end());
            for (int step = 0; step < 12 && expected != order.end(); ++step) {
                ASSERT_EQ(recordset.bookmark().row, expected->id);
                const bool back = draw(3) == 0;
                if (back && expected == order.begin())
                    break;
                back ? recordset.movePrevious() : recordset.moveNext();
                back ? --expected : ++expected;
            }
            ASSERT_EQ(recordset.eof(), expected == order.end());
        }
    }

    std::map<QString, std::vector<Line>> lines;
};

TEST_P(OrderTest, WalksBothWaysInTheOrderOfEveryIndex) {
    const auto base = prepare();
    ASSERT_TRUE(base);
    for (const TableDef& table : corpusSchema().tables) {
        const auto recordset = base->openTable(table.name);
        for (const IndexDef& index : table.indexes) {
            SCOPED_TRACE((table.name + u'.' + index.name).toStdString());
            recordset->setIndex(index.name);
            std::vector<qint64> walked;
            for (; !recordset->eof(); recordset->moveNext())
                walked.push_back(recordset->bookmark().row);
            EXPECT_EQ(walked, ids(sorted(table, index)));
            std::vector<qint64> back;
            for (recordset->moveLast(); !recordset->bof(); recordset->movePrevious())
                back.push_back(recordset->bookmark().row);
            std::reverse(back.begin(), back.end());
            EXPECT_EQ(back, walked);
        }
    }
}

TEST_P(OrderTest, SeeksWithLeadingKeysAndMovesOn) {
    const auto base = prepare();
    ASSERT_TRUE(base);
    for (const TableDef& table : corpusSchema().tables) {
        const auto recordset = base->openTable(table.name);
        for (const IndexDef& index : table.indexes) {
            SCOPED_TRACE((table.name + u'.' + index.name).toStdString());
            recordset->setIndex(index.name);
            checkSeeks(*recordset, table, index);
        }
    }
}

TEST_P(OrderTest, NothingIsSortedAtRunTimeOnABaseOfOurOwn) {
    const auto base = prepare();
    ASSERT_TRUE(base);
    std::vector<std::unique_ptr<Recordset>> recordsets;
    for (const TableDef& table : corpusSchema().tables) {
        recordsets.push_back(base->openTable(table.name));
        for (const IndexDef& index : table.indexes) {
            recordsets.back()->setIndex(index.name);
            checkSeeks(*recordsets.back(), table, index);
        }
    }
    int sorts = 0;
    for (sqlite3_stmt* statement = nullptr; (statement = sqlite3_next_stmt(base->d()->handle, statement)) != nullptr;)
        sorts += sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_SORT, 0);
    if (GetParam() == Kind::WithoutKeys || GetParam() == Kind::WithoutIndexes)
        EXPECT_GT(sorts, 0);
    else
        EXPECT_EQ(sorts, 0);
}

INSTANTIATE_TEST_SUITE_P(Bases, OrderTest,
                         ::testing::Values(Kind::Shared, Kind::Unchanging, Kind::Building, Kind::WithoutKeys,
                                           Kind::WithoutIndexes));

} // namespace
} // namespace velm::testing
