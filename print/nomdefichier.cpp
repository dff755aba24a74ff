#include "print/nomdefichier.h"

#include <algorithm>

namespace velm {
namespace {

/// In bytes: what a name may have, without an extension and what a file has behind its name while it is written.
constexpr qsizetype longueur = 255 - 4 - 7;

bool refuse(QChar c) {
    return c < u' ' || QStringView(u"\\/:*?\"<>|").contains(c);
}

} // namespace

bool nompossible(const QString& nom) {
    return std::ranges::none_of(nom, refuse) && nom.toUtf8().size() <= longueur;
}

std::optional<QString> nomraccourci(QString nom) {
    if (nom.isEmpty())
        return nom;
    // From the first character that is refused on nothing can stay, and no unit takes less than a byte.
    const auto place = std::ranges::find_if(nom, refuse);
    nom.truncate(std::min<qsizetype>(place - nom.begin(), longueur));
    while (!nompossible(nom))
        nom.chop(1);
    return nom.isEmpty() ? std::nullopt : std::optional(nom);
}

} // namespace velm
