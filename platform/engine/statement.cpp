#include "platform/engine/statement.h"

#include "platform/text/ansi.h"
#include "platform/text/number.h"

#include <QDate>
#include <QDateTime>

#include <algorithm>
#include <cstring>

namespace velm::sql {
namespace {

using namespace Qt::Literals::StringLiterals;
using Kind = Value::Kind;

Value textValue(const QString& text) {
    return {Kind::Text, 0, 0, text.toUtf8()};
}

bool ascii(QByteArrayView bytes) {
    constexpr qsizetype step = sizeof(quint64);
    const char* p = bytes.begin();
    quint64 all = 0;
    for (; bytes.end() - p >= step; p += step) {
        quint64 word = 0;
        std::memcpy(&word, p, step);
        all |= word;
    }
    return (all & 0x8080808080808080U) == 0 &&
           std::all_of(p, bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

QString quoted(const QString& name) {
    QString doubled = name;
    return u'"' + doubled.replace(u'"', u"\"\""_s) + u'"';
}

Value Value::of(const QVariant& value) {
    if (!value.isValid() || value.isNull())
        return {};
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return of(value.toLongLong());
    case QMetaType::Float:
    case QMetaType::Double:
        return {Kind::Real, 0, value.toDouble(), {}};
    case QMetaType::QByteArray:
        return blob(value.toByteArray());
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return value.toDate().isValid() ? textValue(value.toDate().toString(Qt::ISODate)) : Value();
    default:
        return textValue(value.toString());
    }
}

QVariant toVariant(const Cell& cell) {
    switch (cell.kind) {
    case Kind::Null:
        return {};
    case Kind::Integer:
        return cell.integer;
    case Kind::Real:
        return cell.real;
    case Kind::Blob:
        return cell.bytes.toByteArray();
    case Kind::Text:
        break;
    }
    return toText(cell);
}

QString toText(const Cell& cell) {
    switch (cell.kind) {
    case Kind::Null:
        break;
    case Kind::Integer:
        return QString::number(cell.integer);
    case Kind::Real:
        return QString::number(cell.real, 'g', 15);
    case Kind::Text:
        return QString::fromUtf8(cell.bytes);
    case Kind::Blob:
        return ansi::decode(cell.bytes);
    }
    return {};
}

qint64 toNumber(const Cell& cell) {
    switch (cell.kind) {
    case Kind::Null:
        break;
    case Kind::Integer:
        return cell.integer;
    case Kind::Real:
        return roundHalfEven(cell.real);
    case Kind::Text:
    case Kind::Blob:
        return wholeNumber(toText(cell)).value_or(0);
    }
    return 0;
}

QByteArray toBytes(const Cell& cell) {
    if (cell.kind == Kind::Blob || (cell.kind == Kind::Text && ascii(cell.bytes)))
        return cell.bytes.toByteArray();
    return ansi::encode(toText(cell));
}

QByteArrayView viewBytes(const Cell& cell, QByteArray& buffer) {
    if (cell.kind == Kind::Blob || (cell.kind == Kind::Text && ascii(cell.bytes)))
        return cell.bytes;
    buffer = ansi::encode(toText(cell));
    return buffer;
}

Value toValue(const Cell& cell) {
    return {cell.kind, cell.integer, cell.real, cell.bytes.toByteArray()};
}

bool Statement::prepare(sqlite3* handle, const QString& text, bool kept) {
    sqlite3_finalize(raw_);
    raw_ = nullptr;
    const QByteArray utf8 = text.toUtf8();
    const char* tail = nullptr;
    const int result = sqlite3_prepare_v3(handle, utf8.constData(), static_cast<int>(utf8.size()),
                                          kept ? SQLITE_PREPARE_PERSISTENT : 0U, &raw_, &tail);
    if (result == SQLITE_OK && raw_ != nullptr && QByteArrayView(tail).trimmed().isEmpty())
        return true;
    sqlite3_finalize(raw_);
    raw_ = nullptr;
    return false;
}

void Statement::bind(int parameter, const Value& value) const {
    const auto size = static_cast<sqlite3_uint64>(value.bytes.size());
    switch (value.kind) {
    case Kind::Null:
        sqlite3_bind_null(raw_, parameter);
        break;
    case Kind::Integer:
        sqlite3_bind_int64(raw_, parameter, value.integer);
        break;
    case Kind::Real:
        sqlite3_bind_double(raw_, parameter, value.real);
        break;
    case Kind::Text:
        sqlite3_bind_text64(raw_, parameter, value.bytes.constData(), size, SQLITE_STATIC, SQLITE_UTF8);
        break;
    case Kind::Blob:
        sqlite3_bind_blob64(raw_, parameter, value.bytes.constData(), size, SQLITE_STATIC);
        break;
    }
}

int Statement::run() const {
    int result = step();
    while (result == SQLITE_ROW)
        result = step();
    const int again = sqlite3_reset(raw_);
    return result == SQLITE_DONE ? again : result;
}

Cell Statement::cell(int column) const {
    // Looked up once: a long walk asks for little else. The base belongs to one thread, so that the value may be read.
    sqlite3_value* value = sqlite3_column_value(raw_, column);
    Cell cell;
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        cell.kind = Kind::Integer;
        cell.integer = sqlite3_value_int64(value);
        break;
    case SQLITE_FLOAT:
        cell.kind = Kind::Real;
        cell.real = sqlite3_value_double(value);
        break;
    case SQLITE_TEXT: {
        cell.kind = Kind::Text;
        const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
        if (text == nullptr) // a text always has an address, unless it could not be made
            throw std::bad_alloc();
        cell.bytes = QByteArrayView(text, sqlite3_value_bytes(value));
        break;
    }
    case SQLITE_BLOB: {
        cell.kind = Kind::Blob;
        const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
        cell.bytes = QByteArrayView(bytes, bytes ? sqlite3_value_bytes(value) : 0);
        break;
    }
    default:
        break;
    }
    return cell;
}

void Row::take(const Statement& statement, int columns) {
    // An entry comes behind its bytes: where they find no room the row has less, but nothing wrong.
    entries_.clear();
    block_.clear();
    for (int i = 0; i < columns; ++i) {
        const Cell cell = statement.cell(i);
        const auto offset = static_cast<qsizetype>(block_.size());
        block_.insert(block_.end(), cell.bytes.begin(), cell.bytes.end());
        entries_.push_back({cell.kind, cell.integer, cell.real, offset, cell.bytes.size()});
    }
}

Cell Row::at(int column) const {
    if (column < 0 || column >= columns())
        return {};
    const Entry& entry = entries_[static_cast<size_t>(column)];
    return {entry.kind, entry.integer, entry.real, QByteArrayView(block_.data() + entry.offset, entry.size)};
}

} // namespace velm::sql
