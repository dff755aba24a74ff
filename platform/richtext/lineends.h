#pragma once
// The line ends of a text that comes from outside: in a rich text all are CR LF. Private to this folder.
#include <QString>
#include <QStringView>

namespace velm {

struct LineEnds {
    bool clean = true;     ///< all are CR LF; if not, the other member means nothing
    qsizetype behind = -1; ///< units behind the last one; -1: there is none
};

LineEnds lineEnds(QStringView text);

/// A lone CR, a lone LF and CR LF each become one CR LF.
QString withCleanLineEnds(QStringView text);

} // namespace velm
