// The two readers of INI text: whatever the file holds, they end, stay inside it and keep their promises.
#include "platform/system/inicodec.h"
#include "platform/system/profile.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool held) {
    if (!held)
        std::abort();
}

/// Any units, also lone surrogates and control characters.
QString rawText(QByteArrayView bytes) {
    QString text;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
        text += QChar(static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                            static_cast<unsigned>(static_cast<unsigned char>(bytes[i + 1])) << 8U));
    return text;
}

void profile(QByteArrayView bytes) {
    const velm::Profile read = velm::Profile::fromBytes(bytes);
    const QString names[] = {QString(), QStringLiteral("A"), QStringLiteral("x"), QStringLiteral("VELMORANTE 2000")};
    for (const QString& section : names) {
        for (const QString& key : names) {
            require(read.string(section, key, QString(), 10).size() <= 9);
            const bool present = read.contains(section, key);
            require(present || read.integer(section, key, 7) == 7);
        }
    }
}

void settings(QByteArrayView bytes) {
    const qsizetype third = bytes.size() / 3;
    const QString section = rawText(bytes.first(std::min<qsizetype>(third, 40)));
    const QString key = rawText(bytes.sliced(third, std::min<qsizetype>(third, 40)));
    const QString value = rawText(bytes.sliced(2 * third));
    velm::IniDocument document = velm::IniDocument::parse(bytes);
    const velm::IniDocument again = velm::IniDocument::parse(document.bytes());
    require(again.bytes() == document.bytes());
    require(again.value(u"A", u"x") == document.value(u"A", u"x"));
    const auto other = document.value(u"A", u"x");
    document.set(section, key, value);
    require(document.value(section, key) == value);
    const velm::IniDocument reread = velm::IniDocument::parse(document.bytes());
    require(reread.value(section, key) == value);
    const bool same = section.compare(QStringLiteral("A"), Qt::CaseInsensitive) == 0 &&
                      key.compare(QStringLiteral("x"), Qt::CaseInsensitive) == 0;
    require(same || reread.value(u"A", u"x") == other);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    profile(bytes);
    settings(bytes);
    return 0;
}
