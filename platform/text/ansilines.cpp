#include "platform/text/ansilines.h"

#include <algorithm>

namespace velm::ansi {

using namespace Qt::Literals::StringLiterals;

void LineWriter::line(QStringView text) {
    QString clean = text.toString();
    clean.replace(u"\r\n"_s, u" "_s).replace(u'\r', u' ').replace(u'\n', u' ');
    bytes_ += encoder_(clean) + "\r\n";
}

QString LineReader::line() {
    const auto* const begin = bytes_.begin() + std::min(place_, bytes_.size());
    const auto* const end = std::find_if(begin, bytes_.end(), [](char c) { return c == '\r' || c == '\n'; });
    place_ = end - bytes_.begin();
    if (!atEnd())
        place_ += bytes_.sliced(place_).startsWith("\r\n") ? 2 : 1;
    return decode({begin, end});
}

} // namespace velm::ansi
