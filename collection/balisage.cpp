#include "collection/balisage.h"

#include "collection/document.h"

#include <algorithm>

namespace velm {
namespace {

class Decoupe {
public:
    Decoupe(QStringView texte, std::vector<Morceau>& morceaux, const SignaleBalisage& signale)
        : texte_(texte), morceaux_(morceaux), signale_(signale) {}

    void lit() {
        litjusque(texte_.size(), false);
        if (gras_ || italique_)
            signale_(texte_.last(std::min(longueurextrait, texte_.size())), false);
    }

private:
    void pousse(Morceau::Genre genre, QStringView texte) {
        if (genre == Morceau::Genre::Texte && texte.isEmpty())
            return;
        morceaux_.push_back({genre, gras_, italique_, texte});
    }

    void vide(qsizetype jusque) { pousse(Morceau::Genre::Texte, texte_.sliced(debut_, jusque - debut_)); }

    QStringView extrait(qsizetype de) const { return texte_.sliced(de, std::min(longueurextrait, texte_.size() - de)); }

    /// Reads text up to `fin`; `lien`: inside the shown text of a link.
    void litjusque(qsizetype fin, bool lien) {
        debut_ = i_;
        while (i_ < fin) {
            switch (texte_[i_].unicode()) {
            case u'\\':
                echappement(fin, lien);
                break;
            case u'*':
                etoiles();
                break;
            case u'_':
                vide(i_);
                italique_ = !italique_;
                debut_ = ++i_;
                break;
            case u'\n':
                vide(i_);
                pousse(Morceau::Genre::FinDeLigne, {});
                debut_ = ++i_;
                break;
            case u'{':
                accolade(lien);
                break;
            case u'}':
                vide(i_);
                signale_(extrait(i_), false);
                debut_ = ++i_;
                break;
            default:
                ++i_;
            }
        }
        vide(fin);
        debut_ = i_;
    }

    void echappement(qsizetype fin, bool lien) {
        vide(i_);
        debut_ = ++i_;
        if (i_ >= fin) {
            signale_(extrait(i_ - 1), false);
            return;
        }
        const char16_t c = texte_[i_].unicode();
        if (c == u'{' || c == u'}' || (c == u'|' && lien)) {
            signale_(extrait(i_), true);
            pousse(Morceau::Genre::Texte, c == u'{' ? u"(" : c == u'}' ? u")" : u"/");
            debut_ = i_ + 1;
        }
        ++i_;
    }

    void etoiles() {
        vide(i_);
        if (i_ + 1 < texte_.size() && texte_[i_ + 1] == u'*') {
            gras_ = !gras_;
            i_ += 2;
        } else {
            signale_(extrait(i_), false);
            ++i_;
        }
        debut_ = i_;
    }

    /// First unescaped character of two from `de`, or -1.
    qsizetype prochain(qsizetype de, char16_t a, char16_t b) const {
        for (qsizetype k = de; k < texte_.size(); ++k) {
            if (texte_[k] == u'\\')
                ++k;
            else if (texte_[k] == a || texte_[k] == b)
                return k;
        }
        return -1;
    }

    void accolade(bool lien) {
        vide(i_);
        const qsizetype ouverture = i_;
        const QStringView reste = texte_.sliced(ouverture);
        const qsizetype fin = texte_.indexOf(u'}', ouverture);
        if (fin < 0 || lien) {
            signale_(extrait(ouverture), false);
            debut_ = ++i_;
            return;
        }
        i_ = fin + 1;
        if (reste.startsWith(u"{FF}"))
            pousse(Morceau::Genre::SautDePage, {});
        else if (reste.startsWith(u"{I="))
            pousse(Morceau::Genre::Inclusion, texte_.sliced(ouverture + 3, fin - ouverture - 3));
        else if (reste.startsWith(u"{L="))
            ancre(Morceau::Genre::Lien, ouverture);
        else if (reste.startsWith(u"{U="))
            ancre(Morceau::Genre::Web, ouverture);
        else if (reste.startsWith(u"{E="))
            ancre(Morceau::Genre::Mail, ouverture);
        else
            signale_(extrait(ouverture), false);
        debut_ = i_;
    }

    void ancre(Morceau::Genre genre, qsizetype ouverture) {
        const qsizetype barre = prochain(ouverture + 3, u'|', u'}');
        const qsizetype fin = barre < 0 ? -1 : texte_.indexOf(u'}', barre);
        if (fin < 0 || texte_[barre] != u'|' || barre == ouverture + 3 || fin == barre + 1) {
            signale_(extrait(ouverture), false);
            return;
        }
        const std::size_t place = morceaux_.size();
        pousse(genre, texte_.sliced(barre + 1, fin - barre - 1));
        i_ = ouverture + 3;
        litjusque(barre, true);
        unifie(place);
        pousse(Morceau::Genre::FinDeLien, {});
        i_ = fin + 1;
    }

    /// The whole link takes the format of its first character.
    void unifie(std::size_t place) {
        if (place + 1 >= morceaux_.size()) {
            signale_(texte_.first(std::min(longueurextrait, texte_.size())), false);
            return;
        }
        const Morceau premier = morceaux_[place + 1];
        for (std::size_t k = place; k < morceaux_.size(); ++k) {
            morceaux_[k].gras = premier.gras;
            morceaux_[k].italique = premier.italique;
        }
    }

    QStringView texte_;
    std::vector<Morceau>& morceaux_;
    const SignaleBalisage& signale_;
    qsizetype i_ = 0;
    qsizetype debut_ = 0;
    bool gras_ = false;
    bool italique_ = false;
};

} // namespace

void decoupebalisage(QStringView texte, std::vector<Morceau>& morceaux, const SignaleBalisage& signale) {
    morceaux.clear();
    Decoupe(texte, morceaux, signale).lit();
}

void chercheinclusions(QStringView texte, const std::function<void(QStringView cle)>& trouve) {
    qsizetype p = texte.indexOf(u"{I=");
    while (p >= 0) {
        qsizetype avant = p;
        while (avant > 0 && texte[avant - 1] == u'\\')
            --avant;
        const qsizetype fin = texte.indexOf(u'}', p);
        if (fin < 0)
            return;
        // An odd number of backslashes makes the brace a literal one.
        if ((p - avant) % 2 == 0)
            trouve(texte.sliced(p + 3, fin - p - 3));
        p = texte.indexOf(u"{I=", fin);
    }
}

} // namespace velm
