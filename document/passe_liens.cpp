#include "document/passes.h"

namespace velm::passes {
namespace {

class Liens {
public:
    Liens(RichText& texte, ListesLiens* listes, const BornesPasses& bornes)
        : texte_(texte), listes_(listes), compteur_(bornes) {
        if (listes_ != nullptr)
            listes_->vide();
    }

    void passe() {
        qsizetype p = texte_.indexOf(u'{');
        while (p >= 0) {
            const Pas pas = jeton(p);
            if (pas == Pas::Arret)
                return;
            p = texte_.indexOf(u'{', pas == Pas::Saute ? p + 1 : p);
        }
    }

private:
    enum class Pas { Saute, Change, Arret };

    Pas jeton(qsizetype p) {
        const char16_t c = texte_.at(p + 1);
        const qsizetype q = texte_.indexOf(u'}', p + 1);
        if (c != u'L' && c != u'U' && c != u'E') {
            if (q < 0)
                return Pas::Saute;
            texte_.remove(p, q + 1 - p);
            return Pas::Change;
        }
        if (q < 0 && c != u'U')
            return Pas::Saute;
        const qsizetype b = texte_.indexOf(u'|', p + 1);
        if (c == u'L' && (b < 0 || q <= b))
            return Pas::Saute;
        // A web or mail token without its bar, a web token without its end: nothing changes, nor ever will.
        if (q < 0 || b < 0)
            return Pas::Arret;
        return lien(c, p, q, b);
    }

    Pas lien(char16_t c, qsizetype p, qsizetype q, qsizetype b) {
        const qsizetype debut = p + 3;
        const qsizetype retire = q + 1 - p;
        const qsizetype longueur = b - debut;
        if (longueur >= 0 && !compteur_.permet(texte_.length(), retire, longueur))
            return Pas::Arret;
        note(c, p, q, b);
        // Without even the character that is skipped there is no shown text: that statement fails each time.
        if (longueur < 0)
            return Pas::Arret;
        const QString montre = texte_.text(debut, longueur);
        const bool pareil = longueur == retire && montre == texte_.text(p, retire);
        texte_.replace(p, retire, montre);
        return pareil ? Pas::Arret : Pas::Change;
    }

    /// Positions are recorded by their arithmetic from the token. A length below 0 makes a statement fail, which is
    /// passed over.
    void note(char16_t c, qsizetype p, qsizetype q, qsizetype b) {
        if (listes_ == nullptr)
            return;
        auto& debuts = c == u'L'   ? listes_->Listestarthyperlien
                       : c == u'U' ? listes_->ListeStartUrl
                                   : listes_->ListeStartEmail;
        auto& cibles = c == u'L' ? listes_->Listehyperlien : c == u'U' ? listes_->ListeUrl : listes_->ListeEmail;
        auto& fins = c == u'L' ? listes_->Listeendhyperlien : c == u'U' ? listes_->ListeEndUrl : listes_->ListeEndEmail;
        debuts.ajoute(p);
        if (q > b)
            cibles.append(texte_.text(b + 1, q - b - 1));
        fins.ajoute(b - 3);
        if (c == u'L' && b >= p + 3)
            listes_->ListeValeurHyperLien.append(texte_.text(p + 3, b - p - 3));
    }

    RichText& texte_;
    ListesLiens* listes_;
    Compteur compteur_;
};

} // namespace

void liens(RichText& texte, ListesLiens* listes, const BornesPasses& bornes) {
    Liens(texte, listes, bornes).passe();
}

} // namespace velm::passes
