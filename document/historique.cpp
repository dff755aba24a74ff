#include "document/historique.h"

#include <iterator>
#include <optional>

namespace velm {
namespace {

// The order of tails: the empty one, one character from code 0 to 255, two characters whose second starts at code 0
// with the first pair, and at the digit zero after each carry.
constexpr int dernier = 255;
constexpr int codes = dernier + 1;
constexpr int debutretenue = '0';
constexpr int codesretenue = codes - debutretenue;

std::optional<int> rangde(QStringView suffixe) {
    if (suffixe.isEmpty())
        return 0;
    const int premier = suffixe.at(0).unicode();
    if (premier > dernier || suffixe.size() > 2)
        return std::nullopt;
    if (suffixe.size() == 1)
        return 1 + premier;
    const int second = suffixe.at(1).unicode();
    if (second > dernier || (premier > 0 && second < debutretenue))
        return std::nullopt;
    const int avant = 1 + codes;
    return premier == 0 ? avant + second : avant + codes + (premier - 1) * codesretenue + second - debutretenue;
}

/// Of a place in the order; nothing behind its end.
std::optional<QString> suffixede(int rang) {
    if (rang == 0)
        return QString();
    int reste = rang - 1;
    if (reste < codes)
        return QString(QChar(reste));
    reste -= codes;
    if (reste < codes)
        return QString(QChar(0)) + QChar(reste);
    reste -= codes;
    const int premier = 1 + reste / codesretenue;
    if (premier > dernier)
        return std::nullopt;
    return QString(QChar(premier)) + QChar(debutretenue + reste % codesretenue);
}

} // namespace

bool suffixesuivant(QString& suffixe) {
    const auto code = [&](qsizetype place) { return static_cast<int>(suffixe.at(place).unicode()); };
    switch (suffixe.size()) {
    case 0:
        suffixe = QChar(0);
        return true;
    case 1:
        suffixe = code(0) < dernier ? QString(QChar(code(0) + 1)) : QString(2, QChar(0));
        return true;
    case 2:
        if (code(1) < dernier) {
            suffixe[1] = QChar(code(1) + 1);
            return true;
        }
        if (code(0) >= dernier)
            return false;
        suffixe[0] = QChar(code(0) + 1);
        suffixe[1] = QChar(debutretenue);
        return true;
    default:
        return false;
    }
}

bool ListeHistorique::contient(QStringView cle) const {
    for (int rang = 1; rang <= nombre(); ++rang) {
        if (QStringView(menus_.at(rang).key).left(longueurcle) == cle)
            return true;
    }
    return false;
}

void ListeHistorique::ajoute(const QString& cle, QString suffixe, const QString& titre) {
    if (cle.isEmpty())
        return;
    // Stepping one by one past every copy of a document would make long histories slow: the free tail is looked up.
    const auto rang = rangde(suffixe);
    if (rang && cle.size() == longueurcle) {
        const Plages& plages = suffixes_[cle];
        const auto apres = plages.upper_bound(*rang);
        const bool pris = apres != plages.begin() && *rang < std::prev(apres)->second;
        const auto libre = suffixede(pris ? std::prev(apres)->second : *rang);
        if (!libre)
            return;
        suffixe = *libre;
    }
    while (menus_.add(1, cle + suffixe, titre) == ButtonMenus::Added::NotUnique) {
        if (!suffixesuivant(suffixe))
            return;
    }
    retient(cle + suffixe);
}

void ListeHistorique::retire() {
    if (vide())
        return;
    libere(menus_.at(1).key);
    menus_.remove(1);
}

void ListeHistorique::retient(const QString& entree) {
    const auto rang = rangde(QStringView(entree).sliced(std::min<qsizetype>(longueurcle, entree.size())));
    if (!rang || entree.size() < longueurcle)
        return;
    Plages& plages = suffixes_[entree.left(longueurcle)];
    const auto apres = plages.upper_bound(*rang);
    int fin = *rang + 1;
    if (apres != plages.end() && apres->first == fin)
        fin = plages.extract(apres).mapped();
    const auto suivante = plages.upper_bound(*rang);
    if (suivante != plages.begin() && std::prev(suivante)->second == *rang)
        std::prev(suivante)->second = fin;
    else
        plages.emplace(*rang, fin);
}

void ListeHistorique::libere(const QString& entree) {
    const auto rang = rangde(QStringView(entree).sliced(std::min<qsizetype>(longueurcle, entree.size())));
    if (!rang || entree.size() < longueurcle)
        return;
    const auto trouve = suffixes_.find(entree.left(longueurcle));
    Plages& plages = *trouve;
    const auto plage = std::prev(plages.upper_bound(*rang));
    const int fin = std::exchange(plage->second, *rang);
    if (plage->first == *rang)
        plages.erase(plage);
    if (*rang + 1 < fin)
        plages.emplace(*rang + 1, fin);
    if (plages.empty())
        suffixes_.erase(trouve);
}

} // namespace velm
