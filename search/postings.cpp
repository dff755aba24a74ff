#include "search/postings.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace velm {

namespace {

constexpr std::size_t premieretaille = 4096;

std::uint32_t entreeen(const char* octets) {
    std::uint32_t valeur = 0;
    std::memcpy(&valeur, octets, sizeof valeur);
    return valeur;
}

std::size_t melange(std::uint32_t entree) {
    return static_cast<std::size_t>((entree * 0x9E3779B97F4A7C15ULL) >> 24);
}

/// Postings of one list by their value, each with a mark.
class Table {
public:
    explicit Table(QByteArrayView liste) {
        std::size_t taille = 16;
        while (taille < static_cast<std::size_t>(liste.size()))
            taille *= 2;
        masque_ = taille - 1;
        cles_.resize(taille);
        etats_.resize(taille);
        for (qsizetype ici = 0; ici + octetsparentree <= liste.size(); ici += octetsparentree) {
            const std::size_t place = cherche(entreeen(liste.data() + ici));
            cles_[place] = entreeen(liste.data() + ici);
            etats_[place] |= presente;
        }
    }

    void marque(std::uint32_t entree) {
        const std::size_t place = cherche(entree);
        if (etats_[place] != 0)
            etats_[place] = presente | marquee;
    }
    bool estmarquee(std::uint32_t entree) const { return (etats_[cherche(entree)] & marquee) != 0; }

private:
    static constexpr unsigned char presente = 1;
    static constexpr unsigned char marquee = 2;

    std::size_t cherche(std::uint32_t entree) const {
        std::size_t place = melange(entree) & masque_;
        while (etats_[place] != 0 && cles_[place] != entree)
            place = (place + 1) & masque_;
        return place;
    }

    std::size_t masque_ = 0;
    std::vector<std::uint32_t> cles_;
    std::vector<unsigned char> etats_;
};

bool reguliere(QByteArrayView liste) {
    return liste.size() % octetsparentree == 0;
}

// Lists that are no whole number of postings end in a piece, which is looked for as it is. They do not occur in a sound
// base, so the plain search, quadratic as it is, will do for them.

QByteArray intersectionirreguliere(const QByteArray& courte, const QByteArray& longue) {
    QByteArray resultat;
    for (qsizetype ici = 0; ici < courte.size(); ici += octetsparentree) {
        const QByteArray piece = courte.mid(ici, octetsparentree);
        qsizetype place = longue.indexOf(piece);
        while (place >= 0 && place % octetsparentree != 0)
            place = longue.indexOf(piece, place + 1);
        if (place >= 0)
            resultat += piece;
    }
    return resultat;
}

QByteArray unionirreguliere(const QByteArray& courte, const QByteArray& longue) {
    QByteArray resultat = longue;
    for (qsizetype ici = 0; ici < courte.size(); ici += octetsparentree) {
        const QByteArray piece = courte.mid(ici, octetsparentree);
        qsizetype place = resultat.indexOf(piece);
        while (place >= 0 && place % octetsparentree == octetsparentree - 1)
            place = resultat.indexOf(piece, place + 1);
        if (place < 0)
            resultat += piece;
    }
    return resultat;
}

} // namespace

QByteArray filtretypes(QByteArrayView liste, QByteArrayView lettres) {
    std::array<bool, 256> voulue{};
    for (const char lettre : lettres)
        voulue[static_cast<unsigned char>(lettre)] = true;
    QByteArray resultat;
    resultat.reserve(liste.size());
    for (qsizetype ici = 0; ici < liste.size(); ici += octetsparentree) {
        if (voulue[static_cast<unsigned char>(liste[ici])])
            resultat.append(liste.data() + ici, std::min<qsizetype>(octetsparentree, liste.size() - ici));
    }
    return resultat;
}

QByteArray intersectionlistes(const QByteArray& a, const QByteArray& b) {
    const QByteArray& courte = b.size() < a.size() ? b : a;
    const QByteArray& longue = b.size() < a.size() ? a : b;
    if (courte.isEmpty())
        return {};
    if (!reguliere(courte) || !reguliere(longue))
        return intersectionirreguliere(courte, longue);
    Table table(courte);
    for (qsizetype ici = 0; ici < longue.size(); ici += octetsparentree)
        table.marque(entreeen(longue.constData() + ici));
    QByteArray resultat(courte.size(), Qt::Uninitialized);
    char* fin = resultat.data();
    for (qsizetype ici = 0; ici < courte.size(); ici += octetsparentree) {
        const char* piece = courte.constData() + ici;
        if (!table.estmarquee(entreeen(piece)))
            continue;
        std::memcpy(fin, piece, octetsparentree);
        fin += octetsparentree;
    }
    resultat.truncate(fin - resultat.constData());
    return resultat;
}

QByteArray unionlistes(const QByteArray& a, const QByteArray& b) {
    const QByteArray& courte = b.size() < a.size() ? b : a;
    const QByteArray& longue = b.size() < a.size() ? a : b;
    if (!reguliere(courte) || !reguliere(longue))
        return unionirreguliere(courte, longue);
    if (courte.isEmpty())
        return longue;
    Table table(courte);
    QByteArray resultat = longue;
    resultat.reserve(longue.size() + courte.size());
    // Every stretch of four bytes that begins on a posting or one or two bytes behind its start counts as held.
    std::array<bool, 256> premiers{};
    for (qsizetype ici = 0; ici < courte.size(); ici += octetsparentree)
        premiers[static_cast<unsigned char>(courte[ici])] = true;
    const auto marque = [&](qsizetype debut) {
        if (debut >= 0 && debut % octetsparentree != octetsparentree - 1 &&
            debut + octetsparentree <= resultat.size() &&
            premiers[static_cast<unsigned char>(std::as_const(resultat)[debut])])
            table.marque(entreeen(resultat.constData() + debut));
    };
    for (qsizetype debut = 0; debut + octetsparentree <= resultat.size(); ++debut)
        marque(debut);
    for (qsizetype ici = 0; ici < courte.size(); ici += octetsparentree) {
        const char* piece = courte.constData() + ici;
        if (table.estmarquee(entreeen(piece)))
            continue;
        const qsizetype avant = resultat.size();
        resultat.append(piece, octetsparentree);
        for (qsizetype debut = avant - octetsparentree + 1; debut <= avant; ++debut)
            marque(debut);
    }
    return resultat;
}

void UnionDeListes::ajoute(const QByteArray& liste) {
    if (!reguliere(liste) || !reguliere(resultat_) || liste.size() >= resultat_.size()) {
        // On equal length the result is the one that is walked. Each time this happens to a longer list the result has
        // grown beyond its double or the list paid for it.
        resultat_ = unionlistes(resultat_, liste);
        valide_ = false;
        return;
    }
    if (connait(liste) || !valide_)
        recommence();
    for (qsizetype ici = 0; ici < liste.size(); ici += octetsparentree) {
        const char* piece = liste.constData() + ici;
        if (contient(entreeen(piece)))
            continue;
        const qsizetype avant = resultat_.size();
        resultat_.append(piece, octetsparentree);
        retient(std::max<qsizetype>(avant - octetsparentree + 1, 0));
    }
}

bool UnionDeListes::connait(const QByteArray& liste) {
    bool neuf = false;
    for (qsizetype ici = 0; ici < liste.size(); ici += octetsparentree) {
        bool& connu = premiers_[static_cast<unsigned char>(liste[ici])];
        neuf = neuf || !connu;
        connu = true;
    }
    return neuf;
}

void UnionDeListes::recommence() {
    std::size_t taille = premieretaille;
    while (taille < static_cast<std::size_t>(resultat_.size()))
        taille *= 2;
    cases_.assign(taille, 0);
    remplies_ = 0;
    zero_ = false;
    valide_ = true;
    retient(0);
}

void UnionDeListes::retient(qsizetype depuis) {
    for (qsizetype debut = depuis; debut + octetsparentree <= resultat_.size(); ++debut) {
        const qsizetype decalage = debut % octetsparentree;
        if (decalage == 0 ||
            (decalage != octetsparentree - 1 && premiers_[static_cast<unsigned char>(std::as_const(resultat_)[debut])]))
            insere(entreeen(resultat_.constData() + debut));
    }
}

bool UnionDeListes::contient(std::uint32_t entree) const {
    if (entree == 0)
        return zero_;
    const std::size_t masque = cases_.size() - 1;
    for (std::size_t place = melange(entree) & masque; cases_[place] != 0; place = (place + 1) & masque) {
        if (cases_[place] == entree)
            return true;
    }
    return false;
}

void UnionDeListes::insere(std::uint32_t entree) {
    if (entree == 0) {
        zero_ = true;
        return;
    }
    if (2 * (remplies_ + 1) > cases_.size())
        agrandit();
    const std::size_t masque = cases_.size() - 1;
    std::size_t place = melange(entree) & masque;
    while (cases_[place] != 0 && cases_[place] != entree)
        place = (place + 1) & masque;
    if (cases_[place] == 0)
        ++remplies_;
    cases_[place] = entree;
}

void UnionDeListes::agrandit() {
    const std::vector<std::uint32_t> avant = std::exchange(cases_, std::vector<std::uint32_t>(4 * cases_.size()));
    const std::size_t masque = cases_.size() - 1;
    for (const std::uint32_t entree : avant) {
        if (entree == 0)
            continue;
        std::size_t place = melange(entree) & masque;
        while (cases_[place] != 0)
            place = (place + 1) & masque;
        cases_[place] = entree;
    }
}

namespace {

void echange(std::vector<QByteArray>& listes, std::vector<QString>& compagnons, std::size_t a, std::size_t b) {
    std::swap(listes[a], listes[b]);
    std::swap(compagnons[a], compagnons[b]);
}

} // namespace

void trierlistes(std::vector<QByteArray>& listes, std::vector<QString>& compagnons, int bas, int haut,
                 const std::function<double()>& hasard) {
    const auto longueur = [&](int rang) { return listes[static_cast<std::size_t>(rang)].size(); };
    const auto permute = [&](int a, int b) {
        echange(listes, compagnons, static_cast<std::size_t>(a), static_cast<std::size_t>(b));
    };
    while (bas < haut) {
        if (haut - bas == 1) {
            if (longueur(bas) > longueur(haut))
                permute(bas, haut);
            return;
        }
        const int pivot = std::clamp(static_cast<int>(hasard() * (haut - bas + 1)) + bas, bas, haut);
        permute(pivot, haut);
        const qsizetype mesure = longueur(haut);
        int i = bas;
        int j = haut;
        while (i < j) {
            while (i < j && longueur(i) <= mesure)
                ++i;
            while (j > i && longueur(j) >= mesure)
                --j;
            if (i < j)
                permute(i, j);
        }
        permute(i, haut);
        // The shorter part first; of two equal ones the upper. The other part goes on in this very loop.
        if (i - bas < haut - i) {
            trierlistes(listes, compagnons, bas, i - 1, hasard);
            bas = i + 1;
        } else {
            trierlistes(listes, compagnons, i + 1, haut, hasard);
            haut = i - 1;
        }
    }
}

} // namespace velm
