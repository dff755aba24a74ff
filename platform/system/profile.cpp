#include "platform/system/profile.h"

#include "platform/system/files.h"
#include "platform/text/ansi.h"
#include "platform/text/letters.h"

#include <algorithm>
#include <cstdint>

namespace velm {
namespace {

/// The blanks that are trimmed. The no-break space is none of them: texts end in one to keep a blank at their end.
bool isBlank(QChar c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}

QStringView trimmed(QStringView text) {
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

QStringView withoutQuotes(QStringView value) {
    const bool quoted =
        value.size() >= 2 && value.front() == value.back() && (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.sliced(1, value.size() - 2) : value;
}

int digitOf(QChar c, int base) {
    const char16_t unit = c.unicode();
    int digit = base;
    if (unit >= u'0' && unit <= u'9')
        digit = unit - u'0';
    else if (unit >= u'a' && unit <= u'f')
        digit = unit - u'a' + 10;
    else if (unit >= u'A' && unit <= u'F')
        digit = unit - u'A' + 10;
    return digit < base ? digit : -1;
}

int leadingInteger(QStringView value) {
    value = trimmed(value);
    const bool negative = value.startsWith(u'-');
    if (negative || value.startsWith(u'+'))
        value = value.sliced(1);
    int base = 10;
    if (value.startsWith(u"0x", Qt::CaseInsensitive)) {
        base = 16;
        value = value.sliced(2);
    }
    std::uint32_t number = 0;
    for (const QChar c : value) {
        const int digit = digitOf(c, base);
        if (digit < 0)
            break;
        number = number * static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(digit);
    }
    return static_cast<std::int32_t>(negative ? 0U - number : number);
}

} // namespace

Profile::Profile(const QString& path) {
    const FileBytes file = readPlain(path);
    loaded_ = file.ok();
    text_ = ansi::decodeFile(file.bytes);
    parse();
}

Profile Profile::fromBytes(QByteArrayView bytes) {
    Profile profile;
    profile.loaded_ = true;
    profile.text_ = ansi::decodeFile(bytes);
    profile.parse();
    return profile;
}

void Profile::parse() {
    // Entries of a section whose name has been before, and those before the first section, are counted as nothing.
    Entries* section = nullptr;
    QStringView rest(text_);
    while (!rest.isEmpty()) {
        qsizetype end = 0;
        while (end < rest.size() && rest[end] != u'\n' && rest[end] != u'\r')
            ++end;
        const QStringView line = trimmed(rest.first(end));
        rest = rest.sliced(end < rest.size() ? end + 1 : end);
        if (line.isEmpty() || line.front() == u';')
            continue;
        const qsizetype bracket = line.front() == u'[' ? line.indexOf(u']') : -1;
        if (bracket > 0) {
            section = addSection(trimmed(line.sliced(1, bracket - 1)));
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (section == nullptr || equals < 0)
            continue;
        const Name key{trimmed(line.first(equals))};
        if (!section->contains(key))
            section->insert(key, withoutQuotes(trimmed(line.sliced(equals + 1))));
    }
}

Profile::Entries* Profile::addSection(QStringView name) {
    if (sections_.contains({name}))
        return nullptr;
    return &*sections_.insert({name}, Entries());
}

const QStringView* Profile::find(QStringView section, QStringView key) const {
    const auto entries = sections_.constFind({section});
    if (entries == sections_.cend())
        return nullptr;
    const auto entry = entries->constFind({key});
    return entry == entries->cend() ? nullptr : &*entry;
}

bool Profile::Name::operator==(const Name& other) const noexcept {
    return std::equal(text.begin(), text.end(), other.text.begin(), other.text.end(),
                      [](QChar x, QChar y) { return x == y || upperUnit(x.unicode()) == upperUnit(y.unicode()); });
}

size_t Profile::Name::hash(size_t seed) const noexcept {
    // Names are a few characters long; the seed keeps crafted ones from falling together.
    size_t mixed = seed;
    for (const QChar c : text) {
        mixed = (mixed ^ upperUnit(c.unicode())) * 0x9E3779B97F4A7C15U;
        mixed ^= mixed >> 32U;
    }
    return mixed;
}

bool Profile::contains(QStringView section, QStringView key) const {
    return find(section, key) != nullptr;
}

QString Profile::string(QStringView section, QStringView key, const QString& fallback, qsizetype bufferSize) const {
    const QStringView* const value = find(section, key);
    QStringView text = value == nullptr ? QStringView(fallback) : *value;
    text = text.left(std::max<qsizetype>(bufferSize - 1, 0));
    return text.toString();
}

int Profile::integer(QStringView section, QStringView key, int fallback) const {
    const QStringView* const value = find(section, key);
    return value == nullptr ? fallback : leadingInteger(*value);
}

} // namespace velm
