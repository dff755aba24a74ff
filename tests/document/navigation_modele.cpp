#include "navigation_modele.h"

#include "core/cle.h"

#include <algorithm>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

bool ListeModele::add(const QString& key, const QString& text) {
    if (!cles_.insert(key).second)
        return false;
    entrees.prepend({key, text});
    return true;
}

void ListeModele::remove1() {
    cles_.erase(entrees.first().key);
    entrees.removeFirst();
}

QString pasdesuffixe(const QString& suffixe) {
    if (suffixe.isEmpty())
        return QString(QChar(0));
    if (suffixe.size() == 1 && suffixe[0].unicode() < 255)
        return QString(QChar(suffixe[0].unicode() + 1));
    if (suffixe.size() == 1)
        return QString(QChar(0)) + QChar(0);
    if (suffixe.size() == 2 && suffixe[1].unicode() < 255)
        return suffixe.left(1) + QChar(suffixe[1].unicode() + 1);
    if (suffixe.size() == 2 && suffixe[0].unicode() < 255)
        return QString(QChar(suffixe[0].unicode() + 1)) + u'0';
    return suffixe;
}

void ModeleNavigation::ajoute(ListeModele& liste, const QString& cle, QString suffixe, const QString& texte) {
    if (cle.isEmpty())
        return;
    while (!liste.add(cle + suffixe, texte)) {
        const QString avant = suffixe;
        suffixe = pasdesuffixe(suffixe);
        if (suffixe == avant)
            return;
    }
}

void ModeleNavigation::navigue(const QString& commande, bool replier) {
    dernierslot_ = 0;
    const QString debut = commande.left(2);
    if (debut == u"TA"_s) {
        const QString trois = commande.mid(2, 2);
        if (trois == u"-1"_s) {
            pasecran(true);
        } else if (trois == u"+1"_s) {
            pasecran(false);
        } else {
            const QString numero = commande.mid(4);
            dernierslot_ = indicedetype(trois);
            if (numero == u"-1"_s)
                pasfenetre(dernierslot_, true);
            else if (numero == u"+1"_s)
                pasfenetre(dernierslot_, false);
            else
                ouvre(trois, numero, replier);
        }
    } else if (debut == u"LI"_s) {
        const QString qui = commande.mid(2, 2);
        const QString lettre = commande.mid(4, 1);
        const int n = static_cast<int>(std::clamp(commande.mid(5).toLongLong(), 1LL, 1000000LL));
        if (lettre == u"P"_s || lettre == u"S"_s) {
            if (qui == u"TA"_s) {
                sautecran(lettre == u"P"_s, n);
            } else {
                dernierslot_ = indicedetype(qui);
                sautfenetre(dernierslot_, lettre == u"P"_s, n);
            }
        }
    }
    rafraichit(dernierslot_);
}

void ModeleNavigation::ouvre(const QString& code, const QString& numero, bool replier) {
    const int slot = indicedetype(code);
    const QString cle = code + numero;
    if (slot == 11 || cle.isEmpty())
        return;
    const auto s = static_cast<std::size_t>(slot);
    if (replier)
        replierliste[s] = true;
    if (!maffichagef[s] || !maffichagetfu)
        fenetredecle(slot);
    FenetreModele* fenetre = fenetres[s];
    if (cle != fenetre->reference) {
        ++fenetre->affichages;
        if (titres_.contains(cle))
            fenetre->titreaffiche = titres_[cle];
    }
    memoriser(code, numero, fenetre->titreaffiche);
}

void ModeleNavigation::memoriser(const QString& code, const QString& numero, const QString& titre) {
    const QString cle = code + numero;
    FenetreModele& fenetre = *fenetres[static_cast<std::size_t>(indicedetype(code))];
    if (cle != derniers[0]) {
        QList<QString> cles(9);
        QList<QString> textes(9);
        int vers = 1;
        for (int i = 0; i <= 7; ++i) {
            if (derniers[i] != cle) {
                cles[vers] = derniers[i];
                textes[vers] = libelles[i];
                ++vers;
            }
        }
        cles[0] = cle;
        textes[0] = code + u"-"_s + titre;
        derniers = cles;
        libelles = textes;
    }
    if (ecran.precedent.count() == 0 || ecran.precedent.cle(1) != cle) {
        if (!ecran.reference.isEmpty() && ecran.reference != cle) {
            ajoute(ecran.precedent, ecran.reference, {}, ecran.titre);
            ecran.boutonprecedent = true;
        }
        if ((fenetre.precedent.count() == 0 || fenetre.precedent.cle(1) != cle) && !fenetre.reference.isEmpty() &&
            fenetre.reference != cle) {
            ajoute(fenetre.precedent, fenetre.reference, {}, fenetre.titre);
            fenetre.boutonprecedent = true;
        }
    }
    ecran.reference = cle;
    ecran.titre = titre;
    fenetre.reference = cle;
    fenetre.titre = titre;
}

void ModeleNavigation::pasfenetre(int slot, bool arriere) {
    FenetreModele* f = slot == 11 ? nullptr : fenetres[static_cast<std::size_t>(slot)];
    if (!f)
        return;
    ListeModele& source = arriere ? f->precedent : f->suivant;
    ListeModele& cible = arriere ? f->suivant : f->precedent;
    if (source.count() == 0)
        return;
    const QString cle = source.cle(1);
    ajoute(cible, f->reference, {}, f->titre);
    source.remove1();
    f->reference.clear();
    f->titre.clear();
    ouvre(cle.left(2), cle.mid(2), false);
}

void ModeleNavigation::pasecran(bool arriere) {
    ListeModele& source = arriere ? ecran.precedent : ecran.suivant;
    ListeModele& cible = arriere ? ecran.suivant : ecran.precedent;
    if (source.count() == 0)
        return;
    const QString cle = source.cle(1);
    ajoute(cible, ecran.reference, {}, ecran.titre);
    source.remove1();
    ecran.reference.clear();
    ecran.titre.clear();
    dernierslot_ = indicedetype(cle.left(2));
    if (!maffichagef[static_cast<std::size_t>(dernierslot_)])
        fenetredecle(dernierslot_);
    FenetreModele* f = fenetres[static_cast<std::size_t>(dernierslot_)];
    ListeModele& sienne = arriere ? f->precedent : f->suivant;
    ajoute(arriere ? f->suivant : f->precedent, f->reference, {}, f->titre);
    if (sienne.count() != 0)
        sienne.remove1();
    f->reference.clear();
    f->titre.clear();
    ouvre(cle.left(2), cle.mid(2), false);
}

void ModeleNavigation::sautfenetre(int slot, bool arriere, int n) {
    FenetreModele* f = slot == 11 ? nullptr : fenetres[static_cast<std::size_t>(slot)];
    if (!f)
        return;
    ListeModele& source = arriere ? f->precedent : f->suivant;
    ListeModele& cible = arriere ? f->suivant : f->precedent;
    if (source.count() == 0)
        return;
    ajoute(cible, f->reference, {}, f->titre);
    if (n != 1) {
        for (int i = 1; i <= n - 1; ++i) {
            if (source.count() == 1)
                break;
            ajoute(cible, source.cle(1), {}, source.item(1).text);
            source.remove1();
        }
    }
    const QString cle = source.cle(1);
    source.remove1();
    f->reference.clear();
    f->titre.clear();
    ouvre(cle.left(2), cle.mid(2), false);
}

void ModeleNavigation::sautecran(bool arriere, int n) {
    ListeModele& source = arriere ? ecran.precedent : ecran.suivant;
    ListeModele& cible = arriere ? ecran.suivant : ecran.precedent;
    if (source.count() == 0)
        return;
    ajoute(cible, ecran.reference, {}, ecran.titre);
    if (n != 1) {
        for (int i = 1; i <= n - 1; ++i) {
            if (source.count() == 1)
                break;
            ajoute(cible, source.cle(1), source.item(1).key.mid(8), source.item(1).text);
            source.remove1();
        }
    }
    const QString cle = source.cle(1);
    source.remove1();
    ecran.reference.clear();
    ecran.titre.clear();
    dernierslot_ = indicedetype(cle.left(2));
    if (!maffichagef[static_cast<std::size_t>(dernierslot_)])
        fenetredecle(dernierslot_);
    FenetreModele* f = fenetres[static_cast<std::size_t>(dernierslot_)];
    ListeModele& sienne = arriere ? f->precedent : f->suivant;
    ListeModele& autre = arriere ? f->suivant : f->precedent;
    ajoute(autre, f->reference, {}, f->titre);
    if (sienne.count() != 0) {
        bool trouve = false;
        for (int i = 1; i <= sienne.count(); ++i) {
            if (sienne.cle(i) == cle) {
                trouve = true;
                break;
            }
        }
        if (trouve) {
            while (sienne.cle(1) != cle) {
                ajoute(autre, sienne.cle(1), sienne.item(1).key.mid(8), sienne.item(1).text);
                sienne.remove1();
            }
        }
    }
    if (sienne.count() != 0)
        sienne.remove1();
    f->reference.clear();
    f->titre.clear();
    ouvre(cle.left(2), cle.mid(2), false);
}

/// Shows the hidden window of a slot where one serves the collection, else makes one.
void ModeleNavigation::fenetredecle(int slot) {
    const auto s = static_cast<std::size_t>(slot);
    if (maffichagetfu && fenetreouverte[s] && fenetres[s])
        montre(slot);
    else
        ouvrefenetre(slot);
}

void ModeleNavigation::ouvrefenetre(int slot) {
    const auto s = static_cast<std::size_t>(slot);
    toutes.push_back(std::make_unique<FenetreModele>());
    toutes.back()->slot = slot;
    fenetres[s] = toutes.back().get();
    fenetreouverte[s] = true;
    maffichagef[s] = true;
}

void ModeleNavigation::montre(int slot) {
    const auto s = static_cast<std::size_t>(slot);
    fenetres[s]->visible = true;
    maffichagef[s] = true;
}

void ModeleNavigation::bascule(int slot, bool visible) {
    const auto s = static_cast<std::size_t>(slot);
    if (fenetreouverte[s] && fenetres[s]) {
        fenetres[s]->visible = visible;
        maffichagef[s] = visible;
    } else if (visible) {
        ouvrefenetre(slot);
    }
}

void ModeleNavigation::ferme(FenetreModele* fenetre) {
    const auto s = static_cast<std::size_t>(fenetre->slot);
    fenetreouverte[s] = false;
    maffichagef[s] = false;
    if (fenetres[s] == fenetre)
        fenetres[s] = nullptr;
    for (auto& celle : toutes) {
        if (celle.get() == fenetre)
            celle.reset();
    }
}

void ModeleNavigation::rafraichit(int slot) {
    ecran.boutonprecedent = ecran.precedent.count() > 0;
    ecran.boutonsuivant = ecran.suivant.count() > 0;
    FenetreModele* f = slot == 11 ? nullptr : fenetres[static_cast<std::size_t>(slot)];
    if (f) {
        f->boutonprecedent = f->precedent.count() > 0;
        f->boutonsuivant = f->suivant.count() > 0;
    }
}

} // namespace velm::test
