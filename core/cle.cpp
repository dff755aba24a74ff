#include "core/cle.h"

#include "platform/text/number.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

int indicedetype(QStringView code) {
    const qsizetype position = codesfenetres.indexOf(code) + 1;
    if (position <= 0)
        return 0;
    return static_cast<int>(roundHalfEven(static_cast<double>(position - 1) / 2));
}

QString typedindice(int indice) {
    if (indice < 0 || indice >= nombredefenetres)
        return {};
    return codesfenetres.sliced(2 * static_cast<qsizetype>(indice), 2).toString();
}

QString sixchiffres(qint64 nombre) {
    return (u"000000"_s + QString::number(nombre)).right(6);
}

Cle decoupecle(QStringView cle) {
    return {cle.left(2).toString(), cle.sliced(std::min<qsizetype>(2, cle.size())).toString()};
}

std::optional<Cle> clesaisie(QStringView texte) {
    const auto numero = texte.size() > 2 ? wholeNumber(texte.sliced(2)) : std::nullopt;
    if (!numero)
        return std::nullopt;
    return Cle{texte.first(2).toString().toUpper(), sixchiffres(*numero)};
}

bool estcle(QStringView cle) {
    return cle.size() == 8 && codesmarques.contains(cle.left(2));
}

} // namespace velm
