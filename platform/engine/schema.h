#pragma once
// What the engine knows of a base: its tables, fields and indexes by name. The tables are plain SQLite tables of the
// same names; a text field that takes part in an ordered index has a stored BLOB key beside it (see sortKey()),
// so that any SQLite tool can read a base without a collation of ours.
#include <QString>
#include <QStringList>

#include <vector>

namespace velm {

enum class FieldType { Text, Long, Date, Memo, Bytes };

struct FieldDef {
    QString name;
    FieldType type = FieldType::Text;
};

/// One column of an index. A folded column is ordered and sought through its stored key column `clé_<field>`.
struct IndexField {
    QString field;
    bool folded = false;
};

/// Its name in the file is `<table>_<index>`. Rows that are equal in every field follow one another by row id.
struct IndexDef {
    QString name;
    std::vector<IndexField> fields;
    bool unique = false;
};

struct TableDef {
    QString name;
    std::vector<FieldDef> fields;
    std::vector<IndexDef> indexes;
    /// The field kept out of the row, in the side table `<table>_<field>` under the same row id; empty for none.
    QString lazyField;
    /// A base is whole without it: it is made only on demand (Database::makeTable).
    bool optional = false;

    const IndexDef* index(const QString& name) const;
    const FieldDef* field(const QString& name) const;
};

struct Schema {
    std::vector<TableDef> tables;
    /// True for a base that the program only reads: one read transaction is then held while it is in use, and walks
    /// stream. False for a store: no lock outlives an operation.
    bool onlyRead = false;

    const TableDef* table(const QString& name) const;
};

/// Name of the stored key of a folded field: `clé_<field>`.
QString keyColumn(const QString& field);
/// The fields of a table that have a stored key.
QStringList foldedFields(const TableDef& table);
/// Name of the side table of a lazy field: `<table>_<field>`.
QString sideTable(const TableDef& table);

/// The statements that make a table: the table itself with its key columns, and its side table.
std::vector<QString> tableStatements(const TableDef& table);
/// The statement that makes one index of a table.
QString indexStatement(const TableDef& table, const IndexDef& index);

} // namespace velm
