#pragma once
// Uses a base in every way the program does, as long as it lets itself be used. Shared by the test of damaged bases and
// the fuzz target; a run-time error must have been made an exception.
#include "platform/engine/recordset.h"

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
    for (const Seek how : {Seek::Equal, Seek::GreaterOrEqual, Seek::Greater}) {
        recordset.seek(how, QStringLiteral("CO"));
        recordset.moveNext();
        recordset.seek(how, 5);
        recordset.movePrevious();
        recordset.seek(how, QString());
        recordset.seek(how, QVariant());
    }
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

/// `errorType` is what a run-time error throws.
template <typename ErrorType>
Outcome exercise(const QString& path, OpenMode mode, const Schema& schema) {
    const Database::Opened opened = Database::open(path, mode, schema);
    if (!opened.database)
        return Outcome::NotOpened;
    (void)opened.database->execute(QStringLiteral("PRAGMA synchronous=OFF")); // nobody waits for this disk
    Outcome outcome = Outcome::Read;
    // A table that ends in a run-time error says nothing of the next one.
    const auto attempt = [&outcome](const auto& work) {
        try {
            work();
        } catch (const ErrorType&) {
            outcome = Outcome::Ended;
        }
    };
    for (const TableDef& table : schema.tables) {
        const auto recordset = opened.database->openTable(table.name);
        attempt([&] { (void)recordset->recordCount(); });
        attempt([&] { readRow(*recordset, table); });
        for (const IndexDef& index : table.indexes) {
            attempt([&] {
                recordset->setIndex(index.name);
                walkIndex(*recordset, table);
            });
        }
        attempt([&] {
            const auto rows = opened.database->openQuery(QStringLiteral("SELECT * FROM \"\"\"") + table.name);
            const auto all = opened.database->openQuery(QStringLiteral("SELECT * FROM [") + table.name +
                                                        QStringLiteral("] WHERE rowid>\"0\" ORDER BY 2"));
            for (int i = 0; all && !all->eof() && i < mostRows; ++i, all->moveNext())
                (void)all->value(1);
        });
        attempt([&] { changeTable(*opened.database, *recordset, table); });
        opened.database->rollback();
    }
    return outcome;
}

} // namespace velm::testing
