#include "document/commandenavigation.h"

#include "platform/text/number.h"

#include <algorithm>
#include <optional>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Of "-1" and "+1".
std::optional<Sens> sensdupas(QStringView texte) {
    if (texte == u"-1")
        return Sens::Arriere;
    return texte == u"+1" ? std::optional(Sens::Avant) : std::nullopt;
}

std::optional<Sens> sensdusaut(QStringView lettre) {
    if (lettre == u"P")
        return Sens::Arriere;
    return lettre == u"S" ? std::optional(Sens::Avant) : std::nullopt;
}

int numerodentree(const QString& texte) {
    constexpr double borne = 1e9;
    return static_cast<int>(roundHalfEven(std::clamp(val(texte), 1., borne)));
}

/// `reste`: what stands behind the first two letters.
CommandeNavigation litdocument(QStringView reste) {
    Cle cle = decoupecle(reste);
    if (const auto sens = sensdupas(cle.code))
        return CommandePas{*sens};
    if (const auto sens = sensdupas(cle.numero))
        return CommandePasFenetre{cle.indice(), *sens};
    return CommandeOuvre{std::move(cle)};
}

CommandeNavigation litsaut(const QString& texte) {
    const auto sens = sensdusaut(texte.mid(4, 1));
    if (!sens)
        return {};
    const QString code = texte.mid(2, 2);
    const int n = numerodentree(texte.mid(5));
    if (code == u"TA")
        return CommandePas{*sens, n};
    return CommandePasFenetre{indicedetype(code), *sens, n};
}

} // namespace

CommandeNavigation litcommande(const QString& texte) {
    if (texte.startsWith(u"TA"))
        return litdocument(QStringView(texte).sliced(2));
    if (texte.startsWith(u"LI"))
        return litsaut(texte);
    return {};
}

} // namespace velm
