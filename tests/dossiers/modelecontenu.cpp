#include "modelecontenu.h"

namespace velm::test {

namespace {

const QString motextrait = u" [extrait]"_s;

/// Where the blank behind the place stands, from the tenth character on; -1 without one.
qsizetype blancdelaplace(const QString& cle) {
    return cle.indexOf(u" "_s, 9);
}

} // namespace

qint64 ModeleContenu::place(const QString& cle) {
    const qsizetype blanc = blancdelaplace(cle);
    return valeur(blanc < 0 ? cle.mid(9) : cle.mid(9, blanc - 9));
}

QString ModeleContenu::queue(const QString& cle) {
    const qsizetype blanc = blancdelaplace(cle);
    return blanc < 0 ? QString() : cle.mid(blanc);
}

bool ModeleContenu::prise(const QString& cle) const {
    return std::any_of(entrees.begin(), entrees.end(), [&](const auto& e) { return e.cle == cle; });
}

bool ModeleContenu::fixe(std::size_t index, const QString& cle) {
    if (entrees[index].cle != cle && prise(cle))
        return false;
    entrees[index].cle = cle;
    return true;
}

RangeeElement* ModeleContenu::cherche(const QString& document, qint64 place) {
    for (RangeeElement& r : tables_.donnees) {
        if (r.cle == document && r.place == place)
            return &r;
    }
    return nullptr;
}

void ModeleContenu::liste(qint64 dossier) {
    entrees.clear();
    std::vector<RangeeElement> siennes;
    for (const RangeeElement& r : tables_.donnees) {
        if (r.dossier == dossier)
            siennes.push_back(r);
    }
    std::sort(siennes.begin(), siennes.end(), [](const auto& a, const auto& b) { return a.place < b.place; });
    for (const RangeeElement& r : siennes) {
        const bool extrait = r.debut != 0 || r.longueur != 0;
        ajouteentree(r.cle + decimal(r.place) + (extrait ? decimal(r.debut) + decimal(r.longueur) + u"P"_s : QString()),
                     r.titre + (extrait ? motextrait : QString()));
    }
}

void ModeleContenu::ajouteentree(const QString& cle, const QString& texte) {
    if (!prise(cle))
        entrees.push_back({cle, texte, cle.left(2)});
}

void ModeleContenu::attente(const ElementEnAttente& element) {
    const bool extrait = element.itemdebut != 0 || element.itemlongueur != 0;
    const QString fin = extrait ? decimal(element.itemdebut) + decimal(element.itemlongueur) + u"P"_s : QString();
    for (qint64 k = 1;; ++k) {
        const QString cle = element.itemreference + decimal(k) + fin;
        if (prise(cle))
            continue;
        ajouteentree(cle, element.itemtitre + (extrait ? motextrait : QString()));
        return;
    }
}

bool ModeleContenu::renomme(std::size_t index, const QString& texte) {
    RangeeElement* rangee = cherche(entrees[index].cle.left(8), place(entrees[index].cle));
    if (rangee)
        rangee->titre = texte;
    entrees[index].texte = texte + (entrees[index].cle.endsWith(u"P"_s) ? motextrait : QString());
    return rangee != nullptr;
}

bool ModeleContenu::supprime(std::size_t index, qint64 dossier) {
    const RangeeElement* rangee = cherche(entrees[index].cle.left(8), place(entrees[index].cle));
    if (!rangee)
        return false;
    tables_.donnees.erase(tables_.donnees.begin() + (rangee - tables_.donnees.data()));
    if (RangeeDossier* sien = tables_.dossier(dossier))
        --sien->compte;
    entrees.erase(entrees.begin() + static_cast<std::ptrdiff_t>(index));
    return true;
}

bool ModeleContenu::ecritplace(RangeeElement& rangee, qint64 place) {
    if (rangee.place != place && tables_.prise(rangee.dossier, place))
        return false;
    rangee.place = place;
    return true;
}

/// False where a write is refused.
bool ModeleContenu::inverse(std::size_t i, std::size_t j, bool& trouve) {
    // What stands in the place and in the key of the first one meanwhile.
    constexpr qint64 provisoire = 999999;
    const QString cleprovisoire = u"XXXXXXXXX"_s;
    const QString a = entrees[i].cle;
    const QString b = entrees[j].cle;
    RangeeElement* rangee = cherche(a.left(8), place(a));
    trouve = rangee != nullptr;
    if (!rangee)
        return true;
    entrees[i].cle = cleprovisoire;
    if (!ecritplace(*rangee, provisoire))
        return false;
    if (RangeeElement* autre = cherche(b.left(8), place(b))) {
        if (!ecritplace(*autre, place(a)))
            return false;
        fixe(j, b.left(8) + decimal(place(a)) + queue(b));
    }
    rangee = cherche(a.left(8), provisoire);
    if (!rangee || !ecritplace(*rangee, place(b)))
        return false;
    return fixe(i, a.left(8) + decimal(place(b)) + queue(a)) || fixe(i, a);
}

bool ModeleContenu::echange(std::size_t i, std::size_t j, bool& echec) {
    const TablesModele tables = tables_;
    const std::vector<EntreeModele> avant = entrees;
    bool trouve = false;
    echec = !inverse(i, j, trouve);
    if (echec) {
        tables_ = tables;
        entrees = avant;
    } else if (trouve) {
        const EntreeModele entree = entrees[i];
        entrees.erase(entrees.begin() + static_cast<std::ptrdiff_t>(i));
        entrees.insert(entrees.begin() + static_cast<std::ptrdiff_t>(j),
                       {entree.cle, entree.texte, entree.cle.left(2)});
    }
    return trouve;
}

bool ModeleContenu::deplace(std::size_t index, qint64 dossier) {
    const QString cle = entrees[index].cle;
    entrees.erase(entrees.begin() + static_cast<std::ptrdiff_t>(index));
    RangeeElement* rangee = cherche(cle.left(8), valeur(cle.mid(8)));
    if (!rangee)
        return false;
    const auto refuse = [&](qint64 k) {
        return std::any_of(tables_.donnees.begin(), tables_.donnees.end(),
                           [&](const auto& r) { return &r != rangee && r.dossier == dossier && r.place == k; });
    };
    qint64 k = 1;
    while (refuse(k))
        ++k;
    rangee->dossier = dossier;
    rangee->place = k;
    return true;
}

void ModeleContenu::range(const ElementEnAttente& element, qint64 dossier) {
    qint64 k = 1;
    while (tables_.prise(dossier, k))
        ++k;
    tables_.donnees.push_back(
        {dossier, k, element.itemreference, element.itemtitre, element.itemdebut, element.itemlongueur});
}

void ModeleContenu::importe(const std::vector<std::pair<QString, QString>>& paires, qint64 dossier) {
    qint64 noordre = 0;
    for (const auto& [cle, texte] : paires) {
        RangeeElement r{dossier, ++noordre, cle.left(8), texte, 0, 0};
        if (cle.endsWith(u"P"_s)) {
            const QStringList mots = cle.chopped(1).split(u' ');
            r.debut = mots[mots.size() - 2].toLongLong();
            r.longueur = mots.last().toLongLong();
        }
        tables_.donnees.push_back(r);
    }
}

QString ModeleContenu::dessin() const {
    QStringList lignes;
    for (const EntreeModele& e : entrees)
        lignes << e.cle + u'|' + e.texte + u'|' + e.image;
    return lignes.join(u'\n');
}

} // namespace velm::test
