#pragma once
// Uses a base in every way the program does, as long as it lets itself be used. Shared by the test of damaged bases and
// the fuzz target; a run-time error must have been made an exception.
#include "platform/engine/recordset.h"

#include <array>
#include <memory>

namespace velm::testing {

enum class Outcome { NotOpened, Ended, Read };

/// No more rows than this are walked in one direction: damage may make a short base look long.
constexpr int mostRows = 3000;

inline void readRow(const Recordset& recordset, const TableDef& table) {
    for (const FieldDef& field : table.fields) {
        (void)recordset.value(field.name);
        (void)recordset.text(field.name);
        (void)recordset.number(field.name);
        (void)recordset.bytes(field.name);
    }
}

inline void walkIndex(Recordset& recordset, const TableDef& table) {
    int rows = 0;
    for (recordset.moveFirst(); !recordset.eof() && rows < mostRows; recordset.moveNext(), ++rows)
        readRow(recordset, table);
    const Bookmark last = recordset.bookmark();
    for (recordset.moveLast(); !recordset.bof() && rows > 0; recordset.movePrevious(), --rows)
        (void)recordset.bookmark();
    (void)recordset.setBookmark(last);
}

inline void seekIndex(Recordset& recordset, Seek how) {
    recordset.seek(how, QStringLiteral("CO"));
    recordset.moveNext();
    recordset.seek(how, 5);
    recordset.movePrevious();
    recordset.seek(how, QString());
    recordset.seek(how, QVariant());
}

inline void queryTable(Database& base, const TableDef& table) {
    const auto rows = base.openQuery(QStringLiteral("SELECT * FROM \"\"\"") + table.name);
    const auto all = base.openQuery(QStringLiteral("SELECT * FROM [") + table.name +
                                    QStringLiteral("] WHERE rowid>\"0\" ORDER BY 2"));
    for (int i = 0; all && !all->eof() && i < mostRows; ++i, all->moveNext())
        (void)all->value(1);
}

inline void changeTable(Database& base, Recordset& recordset, const TableDef& table) {
    (void)base.begin();
    recordset.addNew();
    for (const FieldDef& field : table.fields)
        recordset.setValue(field.name, 77);
    (void)recordset.update();
    recordset.moveFirst();
    if (!recordset.eof() && !recordset.bof()) {
        recordset.edit();
        recordset.setValue(table.fields.front().name, 78);
        (void)recordset.update();
    }
    if (!recordset.eof() && !recordset.bof())
        (void)recordset.remove();
    (void)base.commit();
}

/// One of the ways in which the program uses a table, by its number.
class TableUse {
public:
    TableUse(Database& base, const TableDef& table)
        : base_(base), table_(table), recordset_(base.openTable(table.name)) {}
    ~TableUse() { base_.rollback(); }
    TableUse(const TableUse&) = delete;
    TableUse& operator=(const TableUse&) = delete;

    size_t count() const { return plain + table_.indexes.size() * ofIndex + 1; }
    void operator()(size_t number) {
        if (number == 0)
            (void)recordset_->recordCount();
        else if (number == 1)
            readRow(*recordset_, table_);
        else if (number == 2)
            queryTable(base_, table_);
        else if (number + 1 == count())
            changeTable(base_, *recordset_, table_);
        else
            useIndex((number - plain) / ofIndex, (number - plain) % ofIndex);
    }

private:
    static constexpr size_t plain = 3;
    static constexpr size_t ofIndex = 4;

    void useIndex(size_t index, size_t number) {
        constexpr std::array seeks{Seek::Equal, Seek::GreaterOrEqual, Seek::Greater};
        recordset_->setIndex(table_.indexes[index].name);
        if (number < seeks.size())
            seekIndex(*recordset_, seeks[number]);
        else
            walkIndex(*recordset_, table_);
    }

    Database& base_;
    const TableDef& table_;
    std::unique_ptr<Recordset> recordset_;
};

/// All uses of all tables, one after the other. `ErrorType` is what a run-time error throws.
template <typename ErrorType>
Outcome exercise(const Database::Opened& opened, const Schema& schema) {
    if (!opened.database)
        return Outcome::NotOpened;
    (void)opened.database->execute(QStringLiteral("PRAGMA synchronous=OFF")); // nobody waits for this disk
    Outcome outcome = Outcome::Read;
    for (const TableDef& table : schema.tables) {
        TableUse use(*opened.database, table);
        for (size_t number = 0; number < use.count(); ++number) {
            try {
                use(number);
            } catch (const ErrorType&) {
                // It says nothing of the next use.
                outcome = Outcome::Ended;
            }
        }
    }
    return outcome;
}

} // namespace velm::testing
