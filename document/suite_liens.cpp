#include "document/passe_liens.h"

#include <algorithm>

namespace velm::passes {
namespace {

constexpr std::size_t aucun = static_cast<std::size_t>(-1);

} // namespace

SuiteLiens::SuiteLiens(const Plat& texte, RichText& hote)
    : de_(texte), hote_(hote), noeuds_{{0, texte.longueur(), aucun}}, reste_(texte.longueur()) {
    vers_.reserve(texte.longueur());
    vers_.prendfin(texte);
}

// ---- reading

char16_t SuiteLiens::suivant(qsizetype distance) const {
    for (std::size_t n = tete_; n != aucun; n = suitnoeud(n)) {
        const Noeud& noeud = noeuds_[n];
        if (distance < noeud.fin - noeud.debut)
            return de_.texte()[noeud.debut + distance].unicode();
        distance -= noeud.fin - noeud.debut;
    }
    return u'\0';
}

QString SuiteLiens::texte(qsizetype distance, qsizetype longueur) const {
    QString resultat;
    for (std::size_t n = tete_; n != aucun && longueur > 0; n = suitnoeud(n)) {
        const qsizetype taille = noeuds_[n].fin - noeuds_[n].debut;
        if (distance < taille) {
            const qsizetype ici = std::min(longueur, taille - distance);
            resultat += de_.texte().sliced(noeuds_[n].debut + distance, ici);
            longueur -= ici;
            distance = 0;
        } else {
            distance -= taille;
        }
    }
    return resultat;
}

QString SuiteLiens::cible() const {
    QString resultat;
    std::size_t n = barre_.noeud;
    qsizetype debut = barre_.place + 1;
    for (; n != accolade_.noeud; n = suitnoeud(n), debut = noeuds_[n].debut)
        resultat += de_.texte().sliced(debut, noeuds_[n].fin - debut);
    resultat += de_.texte().sliced(debut, accolade_.place - debut);
    return resultat;
}

const SuiteLiens::Lieu& SuiteLiens::cherche(Lieu& lieu, char16_t unite, const Lieu& depuis) {
    using Etat = Lieu::Etat;
    const bool devant = lieu.etat == Etat::Inconnu || lieu.reste > depuis.reste;
    if (lieu.etat == Etat::Absent || (lieu.etat == Etat::Trouve && !devant))
        return lieu;
    if (devant)
        lieu = depuis;
    for (std::size_t n = lieu.noeud;; lieu.noeud = n, lieu.place = noeuds_[n].debut) {
        const qsizetype taille = noeuds_[n].fin - lieu.place;
        const qsizetype place = de_.texte().sliced(lieu.place, taille).indexOf(QChar(unite));
        lieu.place += std::max<qsizetype>(place, 0);
        lieu.reste -= place >= 0 ? place : taille;
        lieu.etat = place >= 0 ? Etat::Trouve : Etat::Absent;
        n = suitnoeud(n);
        if (place >= 0 || n == aucun)
            return lieu;
    }
}

// ---- going on

void SuiteLiens::passevides() {
    while (tete_ != aucun && noeuds_[tete_].debut == noeuds_[tete_].fin) {
        libres_.push_back(tete_);
        tete_ = suitnoeud(tete_);
    }
}

void SuiteLiens::oublieregions() {
    while (!regions_.empty() && regions_.back().reste >= reste_)
        regions_.pop_back();
}

bool SuiteLiens::avance(char16_t unite) {
    while (tete_ != aucun) {
        const Noeud& noeud = noeuds_[tete_];
        const qsizetype taille = noeud.fin - noeud.debut;
        const qsizetype place = de_.texte().sliced(noeud.debut, taille).indexOf(QChar(unite));
        ecrit(place < 0 ? taille : place);
        if (place >= 0)
            return true;
    }
    return false;
}

void SuiteLiens::ecrit(qsizetype nombre) {
    while (nombre > 0) {
        Noeud& noeud = noeuds_[tete_];
        qsizetype ici = std::min(nombre, noeud.fin - noeud.debut);
        if (regions_.empty()) {
            vers_.ajoute(de_, noeud.debut, noeud.debut + ici);
        } else {
            const Region& region = regions_.back();
            ici = std::min(ici, reste_ - region.reste);
            vers_.ajoute(
                de_, noeud.debut, noeud.debut + ici, [&region](FormatId) { return region.caractere; },
                [&region](std::size_t) { return region.paragraphe; });
        }
        noeud.debut += ici;
        nombre -= ici;
        reste_ -= ici;
        oublieregions();
        passevides();
    }
}

void SuiteLiens::laissedevant(qsizetype nombre) {
    reste_ -= nombre;
    while (nombre > 0) {
        Noeud& noeud = noeuds_[tete_];
        const qsizetype ici = std::min(nombre, noeud.fin - noeud.debut);
        noeud.debut += ici;
        nombre -= ici;
        passevides();
    }
}

void SuiteLiens::laisse(qsizetype nombre) {
    const FormatId premier = caracterepremier();
    laissedevant(nombre);
    // A change that reaches the text's end leaves its format there.
    if (reste_ == 0)
        vers_.fixederniercaractere(premier);
    oublieregions();
}

Plat SuiteLiens::finit() {
    ecrit(reste_);
    return std::move(vers_);
}

// ---- formats

FormatId SuiteLiens::caracterepremier() const {
    return regions_.empty() ? sansobjet(hote_, de_.caractere(noeuds_[tete_].debut)) : regions_.back().caractere;
}

FormatId SuiteLiens::paragraphederriere() {
    const Lieu& ligne = cherche(ligne_, u'\n', derriereaccolade());
    if (ligne.etat == Lieu::Etat::Absent)
        return de_.paragraphe(de_.lignes().size());
    // Nearer regions end earlier: of those that reach the line end the nearest one counts.
    const auto region = std::partition_point(regions_.begin(), regions_.end(),
                                             [&ligne](const Region& r) { return r.reste < ligne.reste; });
    return region == regions_.begin() ? de_.paragraphe(de_.ligne(ligne.place)) : std::prev(region)->paragraphe;
}

// ---- links

void SuiteLiens::montre(qsizetype q, qsizetype b) {
    const bool copier = q < b;
    const Region region{accolade_.reste - 1, caracterepremier(), paragraphederriere()};
    const bool alafin = accolade_.reste == 1;
    // A line end of which only the second half is shown is made whole again.
    const qsizetype devant = suivant(entete - 1) == u'\r' ? entete - 1 : entete;
    if (copier)
        copie(b - q - 1);
    else
        coupe(q + 1 - b);
    // The front goes last: the places of brace and bar are known by their distance from the end.
    laissedevant(devant);
    while (!regions_.empty() && regions_.back().reste >= region.reste)
        regions_.pop_back();
    if (reste_ > region.reste)
        regions_.push_back(region);
    if (alafin)
        vers_.fixederniercaractere(region.caractere);
}

std::size_t SuiteLiens::nouveau(const Noeud& noeud) {
    if (libres_.empty()) {
        noeuds_.push_back(noeud);
        return noeuds_.size() - 1;
    }
    const std::size_t n = libres_.back();
    libres_.pop_back();
    noeuds_[n] = noeud;
    return n;
}

/// Cuts a stretch in two and gives the second one, or what follows when nothing is left for it.
std::size_t SuiteLiens::partage(std::size_t noeud, qsizetype place) {
    if (place == noeuds_[noeud].fin)
        return suitnoeud(noeud);
    const std::size_t derriere = nouveau({place, noeuds_[noeud].fin, suitnoeud(noeud)});
    noeuds_[noeud].fin = place;
    noeuds_[noeud].suivant = derriere;
    for (Lieu* lieu : {&accolade_, &barre_, &ligne_}) {
        if (lieu->noeud == noeud && lieu->place >= place)
            lieu->noeud = derriere;
    }
    return derriere;
}

/// Takes the bar, the target and the brace out of the chain.
void SuiteLiens::coupe(qsizetype nombre) {
    const std::size_t noeudbarre = barre_.noeud;
    partage(noeudbarre, barre_.place);
    const std::size_t reste = partage(accolade_.noeud, accolade_.place + 1);
    noeuds_[noeudbarre].suivant = reste;
    // Neither is left before the cut.
    accolade_ = reste == aucun ? Lieu{Lieu::Etat::Absent}
                               : Lieu{Lieu::Etat::Avant, reste, noeuds_[reste].debut, accolade_.reste - 1};
    barre_ = accolade_;
    reste_ -= nombre;
    passevides();
}

/// Puts a copy of what stands between brace and bar behind the brace.
void SuiteLiens::copie(qsizetype nombre) {
    std::size_t copie = accolade_.noeud;
    std::size_t original = partage(copie, accolade_.place + 1);
    while (nombre > 0 && noeuds_[original].debut == noeuds_[original].fin)
        original = suitnoeud(original);
    bool ligne = false;
    std::size_t avant = original;
    for (std::size_t n = original; nombre > 0; n = suitnoeud(n)) {
        const Noeud modele = noeuds_[n];
        const qsizetype ici = std::min(nombre, modele.fin - modele.debut);
        if (ici == 0) {
            // Empty stretches would be passed again and again.
            noeuds_[avant].suivant = modele.suivant;
            continue;
        }
        avant = n;
        nombre -= ici;
        reste_ += ici;
        accolade_.reste += ici;
        ligne = ligne || de_.texte().sliced(modele.debut, ici).contains(u'\n');
        const std::size_t suite = nouveau({modele.debut, modele.debut + ici, original});
        noeuds_[copie].suivant = suite;
        copie = suite;
    }
    if (ligne)
        ligne_.etat = Lieu::Etat::Inconnu;
}

} // namespace velm::passes
