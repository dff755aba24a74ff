#include "platform/engine/cursor.h"

#include "platform/base/failure.h"
#include "platform/text/letters.h"

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

Cursor::Cursor(Database::Private& db, const StoredTable& table, size_t order)
    : db_(db), table_(table), orders_(table.definition.indexes.size() + 1), order_(order) {}

void Cursor::setOrder(size_t order) {
    dropPlan();
    order_ = order;
    byRow_ = sql::Statement();
    loseRow(Place::Pending);
}

const RowOrder& Cursor::current() {
    std::optional<RowOrder>& order = orders_[order_];
    if (!order)
        order.emplace(db_.handle, table_, order_ == 0 ? nullptr : &table_.definition.indexes[order_ - 1]);
    return *order;
}

void Cursor::loseRow(Place place) {
    row_.clear();
    place_ = place;
}

void Cursor::failWithEngine() {
    const int result = sqlite3_errcode(db_.handle);
    db_.noteError();
    const QString message = db_.error + u": "_s + table_.name();
    dropPlan();
    loseRow(Place::After);
    sql::raiseIfMemory(result);
    runtimeError(message);
}

const sql::Statement& Cursor::statementFor(const Stretch& wanted) {
    const size_t number = ((order_ * 2 + (backward_ ? 1 : 0)) * 16 + static_cast<size_t>(wanted.equal)) * 4 +
                          static_cast<size_t>(wanted.bound);
    sql::Statement& statement = statements_[number];
    // An index of our name that another tool has made otherwise: the engine finds its own way.
    if (!statement.valid() && !statement.prepare(db_.handle, current().stretchText(wanted, backward_, true)) &&
        !statement.prepare(db_.handle, current().stretchText(wanted, backward_, false)))
        failWithEngine();
    return statement;
}

void Cursor::dropPlan() {
    if (live_ != nullptr)
        live_->reset();
    live_ = nullptr;
    plan_.clear();
    stretch_ = 0;
    behind_ = -1;
}

void Cursor::enter(const Stretch& entered) {
    const sql::Statement& statement = statementFor(entered);
    for (int i = 0; i < entered.equal; ++i)
        statement.bind(i + 1, keys_[static_cast<size_t>(i)]);
    if (entered.lastIsNull)
        statement.bind(entered.equal, {});
    if (entered.bound != Bound::None)
        statement.bind(entered.equal + 1, entered.limit);
    live_ = &statement;
}

/// Takes the next row of the plan as the current one. False at its end.
bool Cursor::next() {
    for (;; ++stretch_) {
        if (stretch_ == plan_.size() && behind_ >= 0)
            addStretchesBehind(std::exchange(behind_, -1));
        if (stretch_ >= plan_.size())
            return false;
        if (live_ == nullptr)
            enter(plan_[stretch_]);
        const int result = live_->step();
        if (result == SQLITE_ROW) {
            row_.take(*live_, current().width());
            ++reading_;
            place_ = Place::OnRow;
            if (!db_.streams())
                dropPlan();
            return true;
        }
        if (result != SQLITE_DONE)
            failWithEngine();
        live_->reset();
        live_ = nullptr;
    }
}

/// Adds the stretches that follow when the columns from `level` on are through, in the plan's direction.
void Cursor::addStretchesBehind(int level) {
    const RowOrder& by = current();
    for (int i = level; i >= 0; --i) {
        const auto column = static_cast<size_t>(i);
        const Value& key = keys_[column];
        if (!backward_ && key.isNull()) {
            plan_.push_back({i, Bound::AtLeast, lowest(by.isNumeric(column))});
        } else if (!backward_) {
            plan_.push_back({i, Bound::Above, key});
        } else if (!key.isNull()) {
            plan_.push_back({i, Bound::Below, key});
            // No comparison finds Nulls, which lie below everything.
            if (by.cell(column) != 0)
                plan_.push_back({i + 1, Bound::None, {}, true});
        }
    }
}

/// Makes the plan that goes on from the current row.
void Cursor::anchor(bool backward) {
    if (place_ == Place::OnRow) {
        const RowOrder& by = current();
        keys_.resize(by.depth());
        for (size_t i = 0; i < keys_.size(); ++i)
            keys_[i] = sql::toValue(row_.at(by.cell(i)));
    }
    dropPlan();
    backward_ = backward;
    addStretchesBehind(static_cast<int>(keys_.size()) - 1);
}

void Cursor::go(bool backward) {
    const bool standing = live_ != nullptr && backward_ == backward && place_ == Place::OnRow;
    if (!standing)
        anchor(backward);
    if (!next())
        loseRow(backward ? Place::Before : Place::After);
}

void Cursor::toEnd(bool last) {
    dropPlan();
    backward_ = last;
    plan_.push_back({});
    if (!next())
        loseRow(Place::Empty);
}

void Cursor::move(bool backward) {
    locate();
    switch (place_) {
    case Place::OnRow:
    case Place::Gone:
        go(backward);
        break;
    case Place::Before:
        if (!backward)
            toEnd(false);
        break;
    case Place::After:
        if (backward)
            toEnd(true);
        break;
    case Place::Pending:
    case Place::Empty:
        break;
    }
}

Value Cursor::keyValue(const RowOrder& by, size_t column, const QVariant& value) const {
    Value key = Value::of(value);
    if (key.kind != Value::Kind::Text)
        return key;
    if (by.isFolded(column))
        return Value::blob(sortKey(QString::fromUtf8(key.bytes)));
    if (by.isNumeric(column) && key.bytes.isEmpty())
        return lowest(true);
    return key;
}

bool Cursor::find(Seek how, std::span<const QVariant* const> wanted) {
    const RowOrder& by = current();
    dropPlan();
    if (by.index() == nullptr || wanted.size() > by.index()->fields.size())
        runtimeError(Failure::Engine, {u"operation invalid without a current index: "_s + table_.name()});
    backward_ = false;
    keys_.resize(wanted.size());
    for (size_t i = 0; i < wanted.size(); ++i)
        keys_[i] = keyValue(by, i, *wanted[i]);
    const int last = static_cast<int>(wanted.size()) - 1;
    const Value& limit = keys_.back();
    bool found = false;
    switch (how) {
    case Seek::Equal:
        plan_.push_back({last + 1, Bound::None, {}});
        found = next();
        // What lies behind is no match, but the walk goes on there.
        if (found && db_.streams())
            behind_ = last;
        break;
    case Seek::GreaterOrEqual:
        // From Null on is all of it.
        plan_.push_back(limit.isNull() ? Stretch{last, Bound::None, {}} : Stretch{last, Bound::AtLeast, limit});
        addStretchesBehind(last - 1);
        found = next();
        break;
    case Seek::Greater:
        addStretchesBehind(last);
        found = next();
        break;
    }
    if (!found)
        loseRow(Place::After);
    return found;
}

bool Cursor::take(qint64 wanted) {
    dropPlan();
    if (!byRow_.valid() && !byRow_.prepare(db_.handle, current().rowText()))
        failWithEngine();
    const Value key = Value::of(wanted);
    const sql::Reset reset(byRow_);
    byRow_.bind(1, key);
    const int result = byRow_.step();
    if (result != SQLITE_ROW && result != SQLITE_DONE)
        failWithEngine();
    if (result == SQLITE_ROW) {
        row_.take(byRow_, current().width());
        place_ = Place::OnRow;
    } else {
        loseRow(Place::After);
    }
    ++reading_;
    return result == SQLITE_ROW;
}

void Cursor::rowDeleted() {
    anchor(false);
    dropPlan();
    loseRow(Place::Gone);
}

void Cursor::rowAdded() {
    if (place_ == Place::Empty)
        place_ = Place::After;
}

} // namespace velm
