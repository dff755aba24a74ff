#include "platform/widgets/text/textpieces.h"

namespace velm {

bool runsLeftward(QStringView text) {
    return std::any_of(text.begin(), text.end(), [](QChar unit) {
        const QChar::Direction direction = unit.direction();
        return direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirRLE ||
               direction == QChar::DirRLO || direction == QChar::DirRLI || direction == QChar::DirAN;
    });
}

} // namespace velm
