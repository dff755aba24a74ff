#include "platform/engine/schema.h"

#include "platform/engine/statement.h"

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

template <typename Definition>
const Definition* named(const std::vector<Definition>& definitions, const QString& name) {
    for (const Definition& definition : definitions) {
        if (definition.name == name)
            return &definition;
    }
    return nullptr;
}

/// Text compares without regard to the case of unaccented letters, in the queries too; this much every tool can do.
QString columnType(FieldType type) {
    switch (type) {
    case FieldType::Text:
        return u"TEXT COLLATE NOCASE"_s;
    case FieldType::Long:
        return u"INTEGER"_s;
    case FieldType::Date:
    case FieldType::Memo:
        return u"TEXT"_s;
    case FieldType::Bytes:
        break;
    }
    return u"BLOB"_s;
}

} // namespace

const IndexDef* TableDef::index(const QString& wanted) const {
    return named(indexes, wanted);
}

const FieldDef* TableDef::field(const QString& wanted) const {
    return named(fields, wanted);
}

const TableDef* Schema::table(const QString& wanted) const {
    return named(tables, wanted);
}

QString keyColumn(const QString& field) {
    return u"clé_"_s + field;
}

QString sideTable(const TableDef& table) {
    return table.name + u'_' + table.lazyField;
}

QStringList foldedFields(const TableDef& table) {
    QStringList fields;
    for (const IndexDef& index : table.indexes) {
        for (const IndexField& field : index.fields) {
            if (field.folded && !fields.contains(field.field))
                fields << field.field;
        }
    }
    return fields;
}

std::vector<QString> tableStatements(const TableDef& table) {
    // An id of its own, so that no compaction of the file renumbers the rows under the side table.
    QStringList columns{u"id INTEGER PRIMARY KEY"_s};
    for (const FieldDef& field : table.fields) {
        if (field.name != table.lazyField)
            columns << sql::quoted(field.name) + u' ' + columnType(field.type);
    }
    for (const QString& field : foldedFields(table))
        columns << sql::quoted(keyColumn(field)) + u" BLOB"_s;
    std::vector<QString> statements{u"CREATE TABLE "_s + sql::quoted(table.name) + u'(' + columns.join(u", "_s) + u')'};
    if (!table.lazyField.isEmpty())
        statements.push_back(u"CREATE TABLE "_s + sql::quoted(sideTable(table)) + u"(id INTEGER PRIMARY KEY, "_s +
                             sql::quoted(table.lazyField) + u" TEXT)"_s);
    return statements;
}

QString indexStatement(const TableDef& table, const IndexDef& index) {
    QStringList columns;
    for (const IndexField& field : index.fields)
        columns << sql::quoted(field.folded ? keyColumn(field.field) : field.field);
    return (index.unique ? u"CREATE UNIQUE INDEX "_s : u"CREATE INDEX "_s) +
           sql::quoted(table.name + u'_' + index.name) + u" ON "_s + sql::quoted(table.name) + u'(' +
           columns.join(u", "_s) + u')';
}

} // namespace velm
