#pragma once
// Reader of delivered INI files: the publisher's defaults and the language files.
#include <QByteArrayView>
#include <QHash>
#include <QString>
#include <QStringView>

namespace velm {

/// One INI file, loaded once (Windows-1252, or UTF-8 with its mark). Sections and keys compare without case; of equal
/// sections, and of equal keys in a section, only the first counts. Blanks around names and values are trimmed, a
/// no-break space is not. One pair of matching quotes (" or ') around a value is taken off. Lines that begin with ";"
/// are comments; a line without "=" is no entry.
class Profile {
public:
    /// A buffer length as the texts of the language files know it: at most 999 characters come back.
    static constexpr qsizetype usualBuffer = 1000;

    Profile() = default;

    /// A file that is missing, unreadable or no plain file loads as one that has no entry.
    explicit Profile(const QString& path);

    static Profile fromBytes(QByteArrayView bytes);

    /// True when there was a file to read.
    bool loaded() const { return loaded_; }

    bool contains(QStringView section, QStringView key) const;

    /// The value, cut after bufferSize - 1 characters; `fallback` (cut likewise) when there is no such entry. An empty
    /// value is an empty text, not the fallback.
    QString string(QStringView section, QStringView key, const QString& fallback = QString(),
                   qsizetype bufferSize = usualBuffer) const;

    /// The whole number that the value begins with: a sign and decimal digits, or 0x and hexadecimal ones; the low 32
    /// bits count. A value that begins with none is 0 ("True" is 0). `fallback` only when there is no such entry.
    int integer(QStringView section, QStringView key, int fallback = 0) const;

private:
    /// A section or key as it stands in the text, compared without case.
    struct Name {
        QStringView text;

        bool operator==(const Name& other) const noexcept;
        size_t hash(size_t seed) const noexcept;
        friend size_t qHash(const Name& name, size_t seed) noexcept { return name.hash(seed); }
    };
    using Entries = QHash<Name, QStringView>;

    void parse();
    Entries* addSection(QStringView name);
    const QStringView* find(QStringView section, QStringView key) const;

    /// The views of names and entries point into this text: its characters do not move when the object does.
    QString text_;
    QHash<Name, Entries> sections_;
    bool loaded_ = false;
};

} // namespace velm
