#include "platform/base/failure.h"
#include "platform/engine/snapshot_p.h"

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Where the quoted piece that begins at `from` ends, behind its closing mark; -1 when it is not closed.
qsizetype behindQuoted(const QString& text, qsizetype from) {
    const QChar mark = text[from];
    for (qsizetype i = from + 1; i < text.size(); ++i) {
        if (text[i] != mark)
            continue;
        if (i + 1 == text.size() || text[i + 1] != mark)
            return i + 1;
        ++i;
    }
    return -1;
}

} // namespace

QString translateQuotes(const QString& sql) {
    QString result;
    result.reserve(sql.size() + 8);
    for (qsizetype i = 0; i < sql.size();) {
        if (sql[i] != u'"' && sql[i] != u'\'') {
            result += sql[i++];
            continue;
        }
        const qsizetype end = behindQuoted(sql, i);
        if (end < 0)
            return result + sql.mid(i);
        if (sql[i] == u'\'') {
            result += QStringView(sql).mid(i, end - i);
        } else {
            QString literal = sql.mid(i + 1, end - i - 2);
            literal.replace(u"\"\""_s, u"\""_s).replace(u'\'', u"''"_s);
            result += u'\'' + literal + u'\'';
        }
        i = end;
    }
    return result;
}

std::unique_ptr<Snapshot> Snapshot::open(Database::Private& base, const QString& text, const QVariantList& values,
                                         QString* error) {
    const auto refused = [error](const QString& reason) {
        if (error != nullptr)
            *error = reason;
        return nullptr;
    };
    if (base.handle == nullptr)
        return refused(u"the base is closed"_s);
    base.beginReading();
    sql::Statement statement;
    if (!statement.prepare(base.handle, translateQuotes(text), false)) {
        base.noteError();
        sql::raiseIfMemory(sqlite3_errcode(base.handle));
        const bool rest = sqlite3_errcode(base.handle) == SQLITE_OK;
        return refused(rest ? u"not one single query"_s : base.error);
    }
    if (sqlite3_stmt_readonly(statement.raw()) == 0 || sqlite3_column_count(statement.raw()) == 0)
        return refused(u"the query does not read"_s);
    if (sqlite3_bind_parameter_count(statement.raw()) != values.size())
        return refused(u"the query wants another number of values"_s);
    std::unique_ptr<Snapshot> snapshot(new Snapshot);
    Snapshot::Private& p = *snapshot->d_;
    p.db = &base;
    for (int i = 0; i < sqlite3_column_count(statement.raw()); ++i)
        p.names << QString::fromUtf8(sqlite3_column_name(statement.raw(), i));
    p.statement = std::move(statement);
    p.bind(values);
    p.standing = true;
    p.ended = false;
    base.snapshots.push_back(&p);
    p.advance();
    if (!base.streams())
        p.drain();
    return snapshot;
}

void Snapshot::Private::bind(const QVariantList& values) {
    bound.reserve(static_cast<size_t>(values.size()));
    for (const QVariant& value : values) {
        bound.push_back(sql::Value::of(value));
        statement.bind(static_cast<int>(bound.size()), bound.back());
    }
}

/// Takes the next row from the file. False at the end.
bool Snapshot::Private::step(sql::Row& into) {
    const int result = statement.step();
    if (result != SQLITE_ROW)
        return closed(result);
    into.take(statement, static_cast<int>(names.size()));
    return true;
}

/// There are no more rows, or they cannot be read.
bool Snapshot::Private::closed(int result) {
    standing = false;
    if (result != SQLITE_DONE) {
        ended = true;
        const QString message = QString::fromUtf8(sqlite3_errmsg(db->handle));
        statement = sql::Statement();
        sql::raiseIfMemory(result);
        runtimeError(message);
    }
    statement = sql::Statement();
    return false;
}

void Snapshot::Private::advance() {
    if (next < held.size()) {
        std::swap(row, held[next++]);
        return;
    }
    held.clear();
    next = 0;
    if (standing && step(row))
        return;
    row.clear();
    ended = true;
}

/// Takes the rest of the rows into memory and closes the statement.
void Snapshot::Private::drain() {
    while (standing) {
        sql::Row taken;
        if (step(taken))
            held.push_back(std::move(taken));
    }
}

void Snapshot::Private::detach() {
    if (db == nullptr)
        return;
    statement = sql::Statement();
    standing = false;
    std::erase(db->snapshots, this);
    db = nullptr;
}

Snapshot::Snapshot() : d_(std::make_unique<Private>()) {}

Snapshot::~Snapshot() {
    d_->detach();
}

bool Snapshot::eof() const {
    return d_->ended;
}

void Snapshot::moveNext() {
    if (d_->db == nullptr)
        runtimeError(u"the base is closed"_s);
    d_->advance();
}

QVariant Snapshot::value(const QString& field) const {
    return sql::toVariant(d_->row.at(d_->column(field)));
}

QVariant Snapshot::value(int column) const {
    return sql::toVariant(d_->row.at(column));
}

QString Snapshot::text(const QString& field) const {
    return sql::toText(d_->row.at(d_->column(field)));
}

qint64 Snapshot::number(const QString& field) const {
    return sql::toNumber(d_->row.at(d_->column(field)));
}

QString Snapshot::text(int column) const {
    return sql::toText(d_->row.at(column));
}

qint64 Snapshot::number(int column) const {
    return sql::toNumber(d_->row.at(column));
}

std::optional<QByteArrayView> Snapshot::utf8(int column) const {
    const sql::Cell cell = d_->row.at(column);
    if (cell.kind != sql::Value::Kind::Text && cell.kind != sql::Value::Kind::Null)
        return std::nullopt;
    return cell.bytes;
}

QByteArrayView Snapshot::raw(int column) const {
    return d_->row.at(column).bytes;
}

void Snapshot::takeNumbers(std::vector<qint64>& into, qsizetype most) {
    for (; most > 0 && !eof(); --most) {
        into.push_back(number(0));
        // What lies ready is not copied but for its number; the last row wanted is one to stand on.
        int result = SQLITE_ROW;
        while (most > 1 && d_->standing && d_->next >= d_->held.size() && result == SQLITE_ROW) {
            result = d_->statement.step();
            if (result != SQLITE_ROW) {
                d_->closed(result);
                break;
            }
            into.push_back(sql::toNumber(d_->statement.cell(0)));
            --most;
        }
        moveNext();
    }
}

bool Snapshot::usable() const {
    return d_->db != nullptr;
}

int Snapshot::columns() const {
    return static_cast<int>(d_->names.size());
}

int Snapshot::Private::column(const QString& field) const {
    const auto at = names.indexOf(field);
    if (at < 0)
        runtimeError(Failure::MissingField, {field});
    return static_cast<int>(at);
}

} // namespace velm
