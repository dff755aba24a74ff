#pragma once
// Files of lines in the Windows-1252 code page, each line known by its place.
#include "platform/text/ansi.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace velm::ansi {

class LineWriter {
public:
    using Encoder = QByteArray (*)(QStringView text);
    /// `encoder` says what becomes of what the code page lacks.
    explicit LineWriter(Encoder encoder) : encoder_(encoder) {}

    /// CR LF ends the line; a line end inside the text becomes a blank.
    void line(QStringView text);
    QByteArray take() { return std::move(bytes_); }

private:
    Encoder encoder_;
    QByteArray bytes_;
};

class LineReader {
public:
    /// The bytes are not copied.
    explicit LineReader(QByteArrayView bytes) : bytes_(bytes) {}

    bool atEnd() const { return place_ >= bytes_.size(); }
    /// CR LF ends a line, and so does either alone. Empty at the end.
    QString line();

private:
    QByteArrayView bytes_;
    qsizetype place_ = 0;
};

} // namespace velm::ansi
