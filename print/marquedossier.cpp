#include "print/marquedossier.h"

#include "platform/text/letters.h"

namespace velm {

QString marquedossier(const QString& mot) {
    return u'{' + mot + u'}';
}

/// Looks again from the start each time, as a name may complete a mark with what stands around it: texts of headers are
/// short.
QString placenomdossier(QString texte, const QString& marque, const QString& nom) {
    const bool revient = upperCase(nom).contains(marque);
    qsizetype place = upperCase(texte).indexOf(marque);
    while (place >= 0) {
        texte.replace(place, marque.size(), nom);
        place = upperCase(texte).indexOf(marque, revient ? place + nom.size() : 0);
    }
    return texte;
}

} // namespace velm
