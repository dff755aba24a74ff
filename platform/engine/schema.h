#pragma once
// What the engine knows of the two bases: their tables, fields and indexes by name. The tables are plain SQLite tables
// of the same names; a text field that takes part in an ordered index has a stored BLOB key beside it (see sortKey()),
// so that any SQLite tool can read a base without a collation of ours.
#include <QString>

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

    const IndexDef* index(const QString& name) const;
    const FieldDef* field(const QString& name) const;
};

struct Schema {
    std::vector<TableDef> tables;
    const TableDef* table(const QString& name) const;
};

/// Tables of velm2000.dat.
const Schema& corpusSchema();
/// Tables of dossiers.dat.
const Schema& dossiersSchema();

} // namespace velm
