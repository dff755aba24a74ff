#include "platform/engine/recordset_p.h"
#include "platform/text/letters.h"

#include <QDate>

#include <algorithm>
#include <limits>
#include <utility>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;
using sql::Value;

/// What no value that is not Null lies below, in a column of numbers and in one of texts.
Value lowest(bool numeric) {
    if (numeric)
        return {Value::Kind::Real, 0, -std::numeric_limits<double>::infinity(), {}};
    return {Value::Kind::Text, 0, 0, QByteArray("")};
}

} // namespace

Recordset::Private::Order Recordset::Private::makeOrder(const IndexDef* index) const {
    Order made;
    made.index = index;
    made.columns = u"rowid"_s + fieldColumns;
    made.source = sql::quoted(name);
    made.width =
        1 + static_cast<int>(std::count_if(fieldCells.begin(), fieldCells.end(), [](int at) { return at > 0; }));
    if (index != nullptr) {
        for (const IndexField& field : index->fields) {
            const FieldDef* definition = table->field(field.field);
            QString expression = sql::quoted(field.field);
            int cell = fieldCells[static_cast<size_t>(definition - table->fields.data())];
            if (field.folded) {
                expression =
                    hasKeyColumn(field.field) ? sql::quoted(keyColumn(field.field)) : u"cle_tri("_s + expression + u')';
                made.columns += u',' + expression;
                cell = made.width++;
            }
            made.expressions.push_back(expression);
            made.cells.push_back(cell);
            made.numeric.push_back(definition->type == FieldType::Long);
            made.folded.push_back(field.folded);
        }
        if (db->hasIndex(*table, *index))
            made.source += u" INDEXED BY "_s + sql::quoted(name + u'_' + index->name);
    }
    made.expressions.push_back(u"rowid"_s);
    made.cells.push_back(0);
    made.numeric.push_back(true);
    made.folded.push_back(false);
    return made;
}

QString Recordset::Private::stretchText(const Stretch& wanted) {
    const Order& by = current();
    QString text = u"SELECT "_s + by.columns + u" FROM "_s + by.source;
    QString link = u" WHERE "_s;
    for (int i = 0; i < wanted.equal; ++i) {
        text += link + by.expressions[static_cast<size_t>(i)] + u" IS ?"_s + QString::number(i + 1);
        link = u" AND "_s;
    }
    if (wanted.bound != Bound::None) {
        const QString sign = wanted.bound == Bound::Above ? u">"_s : wanted.bound == Bound::AtLeast ? u">="_s : u"<"_s;
        text +=
            link + by.expressions[static_cast<size_t>(wanted.equal)] + sign + u'?' + QString::number(wanted.equal + 1);
    }
    link = u" ORDER BY "_s;
    for (size_t i = static_cast<size_t>(wanted.equal); i < by.expressions.size(); ++i) {
        text += link + by.expressions[i] + (backward ? u" DESC"_s : QString());
        link = u","_s;
    }
    return text;
}

const sql::Statement& Recordset::Private::statementFor(const Stretch& wanted) {
    const size_t number = ((order * 2 + (backward ? 1 : 0)) * 16 + static_cast<size_t>(wanted.equal)) * 4 +
                          static_cast<size_t>(wanted.bound);
    sql::Statement& statement = statements[number];
    if (!statement.valid()) {
        QString text = stretchText(wanted);
        if (!statement.prepare(db->handle, text)) {
            // An index of our name that another tool has made otherwise: the engine finds its own way.
            text.replace(current().source, sql::quoted(name));
            if (!statement.prepare(db->handle, text))
                failWithEngine();
        }
    }
    return statement;
}

void Recordset::Private::dropPlan() {
    if (live != nullptr)
        live->reset();
    live = nullptr;
    plan.clear();
    stretch = 0;
    behind = -1;
}

/// Takes the next row of the plan as the current one. False at its end.
bool Recordset::Private::next() {
    for (;; ++stretch) {
        if (stretch == plan.size() && behind >= 0)
            addStretchesBehind(std::exchange(behind, -1));
        if (stretch >= plan.size())
            return false;
        if (live == nullptr) {
            const Stretch& entered = plan[stretch];
            const sql::Statement& statement = statementFor(entered);
            for (int i = 0; i < entered.equal; ++i)
                statement.bind(i + 1, keys[static_cast<size_t>(i)]);
            if (entered.lastIsNull)
                statement.bind(entered.equal, {});
            if (entered.bound != Bound::None)
                statement.bind(entered.equal + 1, entered.limit);
            live = &statement;
        }
        const int result = live->step();
        if (result == SQLITE_ROW) {
            row.take(*live, current().width);
            lazyLoaded = false;
            place = Place::OnRow;
            if (!db->streams())
                dropPlan();
            return true;
        }
        if (result != SQLITE_DONE)
            failWithEngine();
        live->reset();
        live = nullptr;
    }
}

/// Adds the stretches that follow when the columns from `level` on are through, in the plan's direction.
void Recordset::Private::addStretchesBehind(int level) {
    const Order& by = current();
    for (int i = level; i >= 0; --i) {
        const Value& key = keys[static_cast<size_t>(i)];
        if (!backward && key.isNull()) {
            plan.push_back({i, Bound::AtLeast, lowest(by.numeric[static_cast<size_t>(i)])});
        } else if (!backward) {
            plan.push_back({i, Bound::Above, key});
        } else if (!key.isNull()) {
            plan.push_back({i, Bound::Below, key});
            // No comparison finds Nulls, which lie below everything.
            if (by.cells[static_cast<size_t>(i)] != 0)
                plan.push_back({i + 1, Bound::None, {}, true});
        }
    }
}

/// Makes the plan that goes on from the current row.
void Recordset::Private::anchor(bool toBackward) {
    if (place == Place::OnRow) {
        const Order& by = current();
        keys.resize(by.cells.size());
        for (size_t i = 0; i < by.cells.size(); ++i)
            keys[i] = sql::toValue(row.at(by.cells[i]));
    }
    dropPlan();
    backward = toBackward;
    addStretchesBehind(static_cast<int>(keys.size()) - 1);
}

void Recordset::Private::go(bool toBackward) {
    const bool standing = live != nullptr && backward == toBackward && place == Place::OnRow;
    if (!standing)
        anchor(toBackward);
    if (!next()) {
        place = toBackward ? Place::Before : Place::After;
        row.clear();
    }
}

void Recordset::Private::toEnd(bool toBackward) {
    dropPlan();
    backward = toBackward;
    plan.push_back({});
    if (!next()) {
        place = Place::Empty;
        row.clear();
    }
}

void Recordset::Private::locate() {
    if (place == Place::Pending)
        toEnd(false);
}

void Recordset::Private::move(bool toBackward) {
    locate();
    switch (place) {
    case Place::OnRow:
    case Place::Gone:
        go(toBackward);
        break;
    case Place::Before:
        if (!toBackward)
            toEnd(false);
        break;
    case Place::After:
        if (toBackward)
            toEnd(true);
        break;
    case Place::Pending:
    case Place::Empty:
        break;
    }
}

Value Recordset::Private::keyValue(const Order& by, size_t column, const QVariant& value) const {
    Value key = Value::of(value);
    if (key.kind != Value::Kind::Text)
        return key;
    if (by.folded[column])
        return Value::blob(sortKey(QString::fromUtf8(key.bytes)));
    if (by.numeric[column] && key.bytes.isEmpty())
        return lowest(true);
    return key;
}

void Recordset::Private::find(Seek how, std::span<const QVariant* const> wanted) {
    const Order& by = current();
    if (by.index == nullptr || wanted.size() > by.index->fields.size())
        fail(u"operation invalid without a current index"_s);
    dropPlan();
    backward = false;
    keys.resize(wanted.size());
    for (size_t i = 0; i < wanted.size(); ++i)
        keys[i] = keyValue(by, i, *wanted[i]);
    const int last = static_cast<int>(wanted.size()) - 1;
    const Value& limit = keys.back();
    bool found = false;
    switch (how) {
    case Seek::Equal:
        plan.push_back({last + 1, Bound::None, {}});
        found = next();
        // What lies behind is no match, but the walk goes on there.
        if (found && db->streams())
            behind = last;
        break;
    case Seek::GreaterOrEqual:
        // From Null on is all of it.
        plan.push_back(limit.isNull() ? Stretch{last, Bound::None, {}} : Stretch{last, Bound::AtLeast, limit});
        addStretchesBehind(last - 1);
        found = next();
        break;
    case Seek::Greater:
        addStretchesBehind(last);
        found = next();
        break;
    }
    unmatched = !found;
    if (!found) {
        place = Place::After;
        row.clear();
    }
}

bool Recordset::Private::take(qint64 wanted) {
    dropPlan();
    if (!byRow.valid() && !byRow.prepare(db->handle, u"SELECT "_s + current().columns + u" FROM "_s +
                                                         sql::quoted(name) + u" WHERE rowid=?1"_s))
        failWithEngine();
    const Value key = Value::of(wanted);
    const sql::Reset reset(byRow);
    byRow.bind(1, key);
    const int result = byRow.step();
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        failWithEngine();
    if (result == SQLITE_ROW) {
        row.take(byRow, current().width);
        place = Place::OnRow;
    } else {
        row.clear();
        place = Place::After;
    }
    lazyLoaded = false;
    return result == SQLITE_ROW;
}

} // namespace velm
