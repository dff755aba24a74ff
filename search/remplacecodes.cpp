#include "search/remplacecodes.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

QString remplacecodes(QString texte) {
    texte.replace(u"^p"_s, u"\r\n"_s);
    texte.replace(u"^t"_s, u"\t"_s);
    return texte;
}

} // namespace velm
