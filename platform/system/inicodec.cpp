#include "platform/system/inicodec.h"

#include "platform/text/ansi.h"
#include "platform/text/letters.h"

#include <QStringDecoder>

#include <algorithm>
#include <string_view>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::string_view lineBlanks = " \t\r\v\f";

bool isLineBlank(char c) {
    return lineBlanks.find(c) != std::string_view::npos;
}

QByteArrayView trimmed(QByteArrayView bytes) {
    while (!bytes.isEmpty() && isLineBlank(bytes.front()))
        bytes = bytes.sliced(1);
    while (!bytes.isEmpty() && isLineBlank(bytes.back()))
        bytes.chop(1);
    return bytes;
}

QString decoded(QByteArrayView bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8(bytes);
    return utf8.hasError() ? ansi::decode(bytes) : text;
}

/// Units that a line of UTF-8 cannot carry, or that would not come back from it.
bool mustEscape(QStringView text, qsizetype at) {
    const QChar c = text[at];
    if (c.isHighSurrogate())
        return at + 1 == text.size() || !text[at + 1].isLowSurrogate();
    if (c.isLowSurrogate())
        return at == 0 || !text[at - 1].isHighSurrogate();
    return c < u' ' || c == QChar(0x7F) || c == QChar(QChar::ByteOrderMark);
}

bool standsAsItIs(QStringView text) {
    if (text.isEmpty())
        return true;
    if (text.front() == u' ' || text.back() == u' ' || text.front() == u'"')
        return false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (mustEscape(text, i))
            return false;
    }
    return true;
}

QByteArray quoted(QStringView text) {
    QString result(u'"');
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'"' || c == u'\\') {
            result += u'\\';
            result += c;
        } else if (c == u'\n') {
            result += u"\\n"_s;
        } else if (c == u'\r') {
            result += u"\\r"_s;
        } else if (c == u'\t') {
            result += u"\\t"_s;
        } else if (mustEscape(text, i)) {
            result += u"\\u%1"_s.arg(c.unicode(), 4, 16, QLatin1Char('0'));
        } else {
            result += c;
        }
    }
    return (result + u'"').toUtf8();
}

QByteArray encodedValue(QStringView value) {
    return standsAsItIs(value) ? value.toUtf8() : quoted(value);
}

QByteArray encodedKey(QStringView key) {
    const bool plain = !key.isEmpty() && standsAsItIs(key) && !key.contains(u'=') && key.front() != u'[' &&
                       key.front() != u';' && key.front() != u'#';
    return plain ? key.toUtf8() : quoted(key);
}

QByteArray entryLine(QStringView key, QStringView value) {
    return encodedKey(key) + '=' + encodedValue(value);
}

/// Length of the quoted text that begins here, its two quotes included; 0 when it has no end.
qsizetype quotedLength(QStringView text) {
    for (qsizetype i = 1; i < text.size(); ++i) {
        if (text[i] == u'\\')
            ++i;
        else if (text[i] == u'"')
            return i + 1;
    }
    return 0;
}

std::optional<QChar> escapedUnit(QStringView digits) {
    bool ok = false;
    const ushort unit = digits.size() == 4 ? digits.toUShort(&ok, 16) : ushort(0);
    return ok ? std::optional(QChar(unit)) : std::nullopt;
}

/// The text between the two quotes; nothing when it holds an escape that is none.
std::optional<QString> unescaped(QStringView inside) {
    QString result;
    result.reserve(inside.size());
    for (qsizetype i = 0; i < inside.size(); ++i) {
        if (inside[i] != u'\\') {
            result += inside[i];
            continue;
        }
        // quotedLength() has seen to it that something follows.
        switch (inside[++i].unicode()) {
        case u'n':
            result += u'\n';
            break;
        case u'r':
            result += u'\r';
            break;
        case u't':
            result += u'\t';
            break;
        case u'"':
        case u'\\':
            result += inside[i];
            break;
        case u'u': {
            const auto unit = escapedUnit(inside.sliced(i + 1).left(4));
            if (!unit)
                return std::nullopt;
            result += *unit;
            i += 4;
            break;
        }
        default:
            return std::nullopt;
        }
    }
    return result;
}

/// A text in quotes without them; any other text, also one whose quotes are damaged, as it is.
QString unquoted(const QString& text) {
    if (text.size() < 2 || text.front() != u'"' || quotedLength(text) != text.size())
        return text;
    return unescaped(QStringView(text).sliced(1, text.size() - 2)).value_or(text);
}

struct Entry {
    QString key;
    QString value;
};

std::optional<Entry> entryOf(QByteArrayView line) {
    const QString text = decoded(line);
    qsizetype equals = text.indexOf(u'=');
    if (text.startsWith(u'"')) {
        const qsizetype end = quotedLength(text);
        const qsizetype behind = text.indexOf(u'=', end);
        if (end > 0 && QStringView(text).sliced(end, std::max(behind, end) - end).trimmed().isEmpty())
            equals = behind;
    }
    if (equals < 0)
        return std::nullopt;
    const QByteArray key = text.first(equals).toUtf8();
    const QByteArray value = text.sliced(equals + 1).toUtf8();
    return Entry{unquoted(QString::fromUtf8(trimmed(key))), unquoted(QString::fromUtf8(trimmed(value)))};
}

} // namespace

IniDocument IniDocument::parse(QByteArrayView bytes) {
    IniDocument document;
    while (bytes.startsWith(QByteArrayView("\xEF\xBB\xBF")))
        bytes = bytes.sliced(3);
    QString sectionName;
    while (!bytes.isEmpty()) {
        const qsizetype end = bytes.indexOf('\n');
        document.addLine(end < 0 ? bytes : bytes.first(end), sectionName);
        bytes = end < 0 ? QByteArrayView() : bytes.sliced(end + 1);
    }
    return document;
}

void IniDocument::addLine(QByteArrayView raw, QString& sectionName) {
    const QByteArrayView line = trimmed(raw);
    if (addHeader(raw, line, sectionName))
        return;
    std::vector<Line>& lines = sections_.back().lines;
    const bool comment = line.isEmpty() || line.front() == ';' || line.front() == '#' || line.front() == '[';
    const auto entry = comment ? std::nullopt : entryOf(line);
    lines.push_back({raw.toByteArray(), entry ? entry->value : QString()});
    if (entry) {
        const Name name(sectionName, upperCase(entry->key));
        if (!entries_.contains(name))
            entries_.insert(name, {sections_.size() - 1, lines.size() - 1});
    }
}

bool IniDocument::addHeader(QByteArrayView raw, QByteArrayView trimmedLine, QString& sectionName) {
    if (trimmedLine.size() < 2 || trimmedLine.front() != '[' || trimmedLine.back() != ']')
        return false;
    sectionName = upperCase(unquoted(decoded(trimmed(trimmedLine.sliced(1).chopped(1)))));
    sections_.push_back({raw.toByteArray(), {}});
    if (!names_.contains(sectionName))
        names_.insert(sectionName, sections_.size() - 1);
    return true;
}

QByteArray IniDocument::bytes() const {
    QByteArray all;
    for (size_t i = 0; i < sections_.size(); ++i) {
        if (i > 0)
            all += sections_[i].header + '\n';
        for (const Line& line : sections_[i].lines)
            all += line.raw + '\n';
    }
    return all;
}

std::optional<QString> IniDocument::value(QStringView section, QStringView key) const {
    const auto found = entries_.constFind(Name(upperCase(section), upperCase(key)));
    if (found == entries_.cend())
        return std::nullopt;
    return sections_[found->section].lines[found->line].value;
}

size_t IniDocument::sectionNamed(QStringView name) {
    const QString folded = upperCase(name);
    const auto found = names_.constFind(folded);
    if (found != names_.cend())
        return *found;
    sections_.push_back({'[' + encodedValue(name) + ']', {}});
    names_.insert(folded, sections_.size() - 1);
    return sections_.size() - 1;
}

void IniDocument::set(QStringView section, QStringView key, const QString& value) {
    const Line line{entryLine(key, value), value};
    const Name name(upperCase(section), upperCase(key));
    const auto found = entries_.constFind(name);
    if (found != entries_.cend()) {
        sections_[found->section].lines[found->line] = line;
        return;
    }
    const size_t at = sectionNamed(section);
    std::vector<Line>& lines = sections_[at].lines;
    // The empty lines that part a section from the next one stay behind its last entry: they are the only lines that
    // move, and no entry points at them.
    auto end = lines.end();
    while (end != lines.begin() && trimmed(std::prev(end)->raw).isEmpty())
        --end;
    const auto place = lines.insert(end, line);
    entries_.insert(name, {at, static_cast<size_t>(place - lines.begin())});
}

} // namespace velm
