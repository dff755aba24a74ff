#include "platform/engine/roworder.h"

#include "platform/engine/catalogue.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

RowOrder::RowOrder(sqlite3* handle, const StoredTable& table, const IndexDef* index)
    : index_(index), columns_(table.columns), table_(sql::quoted(table.name())), width_(table.width) {
    if (index != nullptr) {
        for (const IndexField& field : index->fields) {
            const FieldDef* definition = table.definition.field(field.field);
            QString expression = sql::quoted(field.field);
            int cell = table.cells[static_cast<size_t>(definition - table.definition.fields.data())];
            if (field.folded) {
                expression = table.hasKeyColumn(field.field) ? sql::quoted(keyColumn(field.field))
                                                             : u"cle_tri("_s + expression + u')';
                columns_ += u',' + expression;
                cell = width_++;
            }
            places_.push_back({expression, cell, definition->type == FieldType::Long, field.folded});
        }
        if (catalogue::hasIndex(handle, table.definition, *index))
            forced_ = u" INDEXED BY "_s + sql::quoted(table.name() + u'_' + index->name);
    }
    places_.push_back({u"rowid"_s, 0, true, false});
}

QString RowOrder::stretchText(const Stretch& stretch, bool backward, bool forced) const {
    QString text = u"SELECT "_s + columns_ + u" FROM "_s + table_ + (forced ? forced_ : QString());
    QString link = u" WHERE "_s;
    for (int i = 0; i < stretch.equal; ++i) {
        text += link + places_[static_cast<size_t>(i)].expression + u" IS ?"_s + QString::number(i + 1);
        link = u" AND "_s;
    }
    const auto equal = static_cast<size_t>(stretch.equal);
    if (stretch.bound != Bound::None) {
        const QString sign = stretch.bound == Bound::Above     ? u">"_s
                             : stretch.bound == Bound::AtLeast ? u">="_s
                                                               : u"<"_s;
        text += link + places_[equal].expression + sign + u'?' + QString::number(stretch.equal + 1);
    }
    link = u" ORDER BY "_s;
    for (size_t i = equal; i < places_.size(); ++i) {
        text += link + places_[i].expression + (backward ? u" DESC"_s : QString());
        link = u","_s;
    }
    return text;
}

QString RowOrder::rowText() const {
    return u"SELECT "_s + columns_ + u" FROM "_s + table_ + u" WHERE rowid=?1"_s;
}

} // namespace velm
