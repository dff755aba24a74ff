#include "search/rechercherapide.h"

#include "platform/base/failure.h"
#include "search/remplacecodes.h"
#include "search/texteenmajuscules.h"
#include "search/typescherches.h"

#include <QHash>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

/// Columns of the walk.
enum Colonne { Reference, Numart, Titre, Motcle1, Motcle2, Motcle3, Noeud };

/// One search. It holds what was asked, as another one may be asked for while it lets events through.
class VisiteRapide {
public:
    VisiteRapide(Corpus& corpus, Marche& marche, const DemandeRapide& demande, Resultat& resultat)
        : corpus_(corpus), marche_(marche), demande_(demande), resultat_(resultat) {}

    void cherche() {
        qint64 total = 0;
        for (const char lettre : demande_.lettres)
            total += corpus_.compterarticles(codedelalettre(lettre));
        if (total == 0)
            return;
        const QString texte = remplacecodes(demande_.texte);
        resultat_.mot1 = texte;
        resultat_.mot2 = QString();
        cherche_ = TexteEnMajuscules(texte);
        marche_.commence(total);
        // Tables that the base lacks are found missing here, as everywhere.
        corpus_.donnees().setIndex(u"primarykey"_s);
        corpus_.arborescences().setIndex(u"primarykey"_s);
        for (const char lettre : demande_.lettres) {
            if (!parcourt(codedelalettre(lettre)))
                return;
        }
        if (resultat_.limitee) {
            resultat_.total = resultat_.hits + audela_;
            resultat_.limitee = audela_ > 0;
        }
    }

private:
    /// False when the search ends with this collection. The walk has a place of its own in the table: what goes on
    /// meanwhile cannot move it.
    bool parcourt(const QString& code) {
        QString erreur;
        const auto lignes = corpus_.base().openQuery(
            u"SELECT référence, numart, titre, motclé1, motclé2, motclé3, numeroarborescence FROM données "
            "WHERE référence=?1 ORDER BY référence, numart"_s,
            {code}, &erreur);
        if (!lignes)
            runtimeError(erreur);
        for (; !lignes->eof(); lignes->moveNext()) {
            if (!marche_.continuer(resultat_) || !regarde(*lignes))
                return false;
            ++resultat_.vus;
        }
        return true;
    }

    /// False when no more rows are wanted or taken.
    bool regarde(const Snapshot& ligne) {
        if (!estdans(ligne))
            return true;
        if (resultat_.limitee) {
            ++audela_;
            return true;
        }
        const QString reference = ligne.text(Reference);
        const QString numart = ligne.text(Numart);
        const QString cle = reference + numart;
        if (!resultat_.lignes.ajoute({reference, numart, ligne.text(Titre), ligne.text(Motcle1), ligne.text(Motcle2),
                                      ligne.text(Motcle3), cle}))
            return false;
        resultat_.compte = ++resultat_.hits;
        resultat_.limitee = resultat_.hits == demande_.limite;
        return !resultat_.limitee || demande_.compte;
    }

    bool estdans(const Snapshot& ligne) {
        for (const int colonne : {Titre, Motcle1, Motcle2, Motcle3}) {
            const auto utf8 = ligne.utf8(colonne);
            if (utf8 ? cherche_.estdans(*utf8) : cherche_.estdans(QStringView(ligne.text(colonne))))
                return true;
        }
        const qint64 noeud = ligne.number(Noeud);
        return noeud != 0 && estdansnoeud(noeud);
    }

    /// Many documents hang on one node: it is read once.
    bool estdansnoeud(qint64 noeud) {
        const auto connu = noeuds_.constFind(noeud);
        if (connu != noeuds_.constEnd())
            return *connu;
        Recordset& arbre = corpus_.arborescences();
        arbre.setIndex(u"primarykey"_s);
        arbre.seek(Seek::Equal, noeud);
        const bool la = !arbre.noMatch() && cherche_.estdans(QStringView(arbre.text(u"typededonnées"_s)));
        noeuds_.insert(noeud, la);
        return la;
    }

    Corpus& corpus_;
    Marche& marche_;
    const DemandeRapide demande_;
    Resultat& resultat_;
    TexteEnMajuscules cherche_{QStringView()};
    QHash<qint64, bool> noeuds_;
    qint64 audela_ = 0; ///< documents beyond the limit
};

} // namespace

void RechercheRapide::cherche(const DemandeRapide& demande, Resultat& resultat) {
    resultat.commence();
    VisiteRapide(corpus_, marche_, demande, resultat).cherche();
}

} // namespace velm
