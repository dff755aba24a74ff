#include "document/passe_liens.h"

#include "document/passes.h"

namespace velm::passes {
namespace {

class Liens {
public:
    Liens(const Plat& texte, RichText& hote, ListesLiens* listes, const BornesPasses& bornes)
        : suite_(texte, hote), listes_(listes), compteur_(bornes) {}

    Plat passe() {
        while (suite_.avance(u'{')) {
            const Pas pas = jeton();
            if (pas == Pas::Arret)
                break;
            if (pas == Pas::Saute)
                suite_.ecrit(1);
        }
        return suite_.finit();
    }

private:
    enum class Pas { Saute, Change, Arret };

    Pas jeton() {
        const char16_t c = suite_.suivant(1);
        const auto q = suite_.accolade();
        if (c != u'L' && c != u'U' && c != u'E') {
            if (!q)
                return Pas::Saute;
            suite_.laisse(*q + 1);
            return Pas::Change;
        }
        if (!q && c != u'U')
            return Pas::Saute;
        const auto b = suite_.barre();
        if (c == u'L' && (!b || *q <= *b))
            return Pas::Saute;
        // A web or mail token without its bar, a web token without its end: nothing changes, nor ever will.
        if (!q || !b)
            return Pas::Arret;
        return lien(c, *q, *b);
    }

    /// `q` and `b` are the distances of the brace and the bar from the token's start.
    Pas lien(char16_t c, qsizetype q, qsizetype b) {
        const qsizetype longueur = b - entete;
        if (longueur >= 0 && q < b && sansfin(q, b))
            return Pas::Arret;
        if (longueur >= 0 && c == u'L' && listes_ != nullptr && !compteur_.retient(longueur))
            return Pas::Arret;
        if (listes_ != nullptr)
            note(c, q, b);
        // Without even the character that nobody reads there is no shown text: that statement fails each time.
        if (longueur < 0)
            return Pas::Arret;
        // The same three characters again: a token that puts itself back.
        const bool pareil =
            q + 1 == entete && longueur == entete && suite_.texte(0, entete) == suite_.texte(q + 1, entete);
        suite_.montre(q, b);
        return pareil ? Pas::Arret : Pas::Change;
    }

    /// A bar behind the brace copies what stands between: that may grow without end, or go round in a circle.
    bool sansfin(qsizetype q, qsizetype b) {
        const qsizetype derriere = suite_.longueur() - suite_.position() - b;
        return !compteur_.permet(suite_.longueur(), q + 1, b - entete) ||
               cercle_.ferme(suite_.position(), b, derriere, [&] { return suite_.texte(0, b); });
    }

    /// Positions are recorded by their arithmetic from the token. A length below 0 makes a statement fail, which is
    /// passed over: that list then has one row less than its companions.
    void note(char16_t c, qsizetype q, qsizetype b) {
        const qsizetype p = suite_.position();
        if (c == u'L') {
            noterang(listes_->Listestarthyperlien, listes_->Listehyperlien, listes_->Listeendhyperlien, p, q, b);
            if (b >= entete)
                listes_->ListeValeurHyperLien.append(suite_.texte(entete, b - entete));
        } else if (c == u'U') {
            noterang(listes_->ListeStartUrl, listes_->ListeUrl, listes_->ListeEndUrl, p, q, b);
        } else {
            noterang(listes_->ListeStartEmail, listes_->ListeEmail, listes_->ListeEndEmail, p, q, b);
        }
    }

    void noterang(ListePositions& debuts, QStringList& cibles, ListePositions& fins, qsizetype p, qsizetype q,
                  qsizetype b) {
        debuts.ajoute(p);
        if (q > b)
            cibles.append(suite_.cible());
        fins.ajoute(p + b - entete);
    }

    SuiteLiens suite_;
    ListesLiens* listes_;
    Compteur compteur_;
    Cercle cercle_;
};

} // namespace

std::optional<Plat> liens(const Plat& texte, RichText& hote, ListesLiens* listes, const BornesPasses& bornes) {
    if (listes != nullptr)
        listes->vide();
    if (!texte.texte().contains(u'{'))
        return std::nullopt;
    return Liens(texte, hote, listes, bornes).passe();
}

} // namespace velm::passes
