#include "core/adresse.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

QString adresseaouvrir(const QString& adresse) {
    const auto commence = [&adresse](QStringView debut) { return adresse.startsWith(debut, Qt::CaseInsensitive); };
    const auto finit = [&adresse](QStringView fin) { return adresse.endsWith(fin, Qt::CaseInsensitive); };
    const bool pagelocale = !commence(u"www.") && (finit(u".html") || finit(u".htm"));
    return commence(u"http://") || pagelocale ? adresse : u"http://"_s + adresse;
}

} // namespace velm
