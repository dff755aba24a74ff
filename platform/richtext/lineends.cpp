#include "platform/richtext/lineends.h"

namespace velm {

LineEnds lineEnds(QStringView text) {
    LineEnds result;
    for (qsizetype i = 0; (i = text.indexOf(u'\n', i)) >= 0; ++i) {
        result.clean = result.clean && i > 0 && text[i - 1] == u'\r';
        result.behind = text.size() - i - 1;
    }
    for (qsizetype i = 0; result.clean && (i = text.indexOf(u'\r', i)) >= 0; ++i)
        result.clean = i + 1 < text.size() && text[i + 1] == u'\n';
    return result;
}

QString withCleanLineEnds(QStringView text) {
    QString result;
    result.reserve(text.size() + text.size() / 8 + 2);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        if (unit != u'\r' && unit != u'\n') {
            result.append(unit);
            continue;
        }
        result.append(u"\r\n");
        if (unit == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')
            ++i;
    }
    return result;
}

} // namespace velm
