#include "collection/collection.h"

namespace velm {

OptionsSynthese optionssynthese(qint64 documents) {
    return {documents, 0};
}

ResultatCompilation synthese(const OptionsSynthese&, const QString&, const Progres&) {
    return {};
}

} // namespace velm
