#pragma once
// The file form of the settings: INI text in UTF-8 that gives back every text exactly, and keeps what it does not know.
//
//   [SECTION]
//   KEY=value
//
// Names and values stand as they are. Those that would not survive that (blanks at an end, control characters, a quote,
// "[", ";" or "#" in front, "=" in a name) stand in double quotes with the escapes \" \\ \n \r \t and \uXXXX.
#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringView>

#include <optional>
#include <utility>
#include <vector>

namespace velm {

/// One INI text in memory. Names compare without case; of two equal entries the first one counts, wherever it stands.
/// Lines that are not changed are written back byte by byte, also those that are no entries.
class IniDocument {
public:
    /// Never fails: what is no section and no entry is kept as it is. Lines that are no valid UTF-8 are read as
    /// Windows-1252.
    static IniDocument parse(QByteArrayView bytes);

    /// The whole text; parse() of it gives the same sections, keys and values.
    QByteArray bytes() const;

    std::optional<QString> value(QStringView section, QStringView key) const;

    /// Replaces the value, or adds the entry at the end of its section, or the section at the end of the text.
    void set(QStringView section, QStringView key, const QString& value);

private:
    struct Line {
        QByteArray raw;
        QString value;
    };
    struct Section {
        QByteArray header;
        std::vector<Line> lines;
    };
    struct Place {
        size_t section;
        size_t line;
    };
    using Name = std::pair<QString, QString>;

    void addLine(QByteArrayView raw, QString& sectionName);
    bool addHeader(QByteArrayView raw, QByteArrayView trimmed, QString& sectionName);
    size_t sectionNamed(QStringView name);

    /// The first one is what stands before the first header: the section without a name.
    std::vector<Section> sections_ = std::vector<Section>(1);
    QHash<QString, size_t> names_ = {{QString(), 0}};
    QHash<Name, Place> entries_;
};

} // namespace velm
