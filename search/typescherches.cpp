#include "search/typescherches.h"

#include "search/postings.h"

namespace velm {

namespace {

constexpr char premierelettre = 'A';

char lettre(int collection) {
    return static_cast<char>(premierelettre + collection);
}

} // namespace

QByteArray lettresdesboutons(const std::array<bool, nombredecollections>& enfonces) {
    QByteArray lettres;
    for (int i = 0; i < nombredecollections; ++i) {
        if (enfonces[static_cast<std::size_t>(i)])
            lettres += lettre(i);
    }
    return lettres;
}

QByteArray touteslettres() {
    std::array<bool, nombredecollections> enfonces{};
    enfonces.fill(true);
    return lettresdesboutons(enfonces);
}

std::optional<QByteArray> lettresdescodes(QStringView codes) {
    std::array<bool, nombredecollections> enfonces{};
    for (qsizetype ici = 0; ici < codes.size(); ici += 2) {
        const QByteArray trouvee = lettredutype(codes.mid(ici, 2));
        if (trouvee.isEmpty())
            return std::nullopt;
        enfonces[static_cast<std::size_t>(trouvee.front() - premierelettre)] = true;
    }
    return lettresdesboutons(enfonces);
}

QByteArray lettredutype(QStringView code) {
    for (int i = 0; i < nombredecollections; ++i) {
        if (codestypes.mid(qsizetype{2} * i, 2) == code)
            return QByteArray(1, lettre(i));
    }
    return {};
}

QString codedelalettre(char lettre) {
    const int collection = lettre - premierelettre;
    return collection < 0 || collection >= nombredecollections ? QString() : typedindice(collection);
}

Cle decodeentree(QByteArrayView entree) {
    if (entree.size() < octetsparentree)
        return {};
    constexpr qint64 base = 256;
    const auto octet = [&](qsizetype i) { return static_cast<qint64>(static_cast<unsigned char>(entree[i])); };
    return {codedelalettre(entree[0]), sixchiffres((octet(1) * base + octet(2)) * base + octet(3))};
}

} // namespace velm
