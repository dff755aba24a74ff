#include "search/recherchenumero.h"

#include "platform/base/failure.h"
#include "platform/text/letters.h"

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QChar etoile = u'*';

bool estchiffre(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// The next form of an article's number; none where it has its point and its blank, or no digit.
std::optional<QString> formesuivante(const QString& forme) {
    qsizetype i = 0;
    while (i < forme.size() && !estchiffre(forme[i]))
        ++i;
    if (i == 0 || i == forme.size() || forme[i - 1].isSpace())
        return std::nullopt;
    QString suivante = forme;
    return suivante.insert(i, forme[i - 1] == u'.' ? u' ' : u'.');
}

/// Each form has one character more before the first digit, and the last of them is a blank: there are three at most.
void ajouteformes(QStringList& formes, const QString& texte, DemandeNumero::Champ champ) {
    formes << texte;
    if (champ != DemandeNumero::Champ::Article)
        return;
    for (auto suivante = formesuivante(texte); suivante; suivante = formesuivante(*suivante))
        formes << *suivante;
}

/// What a key holds of its text, in capitals and with its accents: behind the separator, or all where it has none.
QByteArrayView plein(QByteArrayView cle) {
    const qsizetype separateur = cle.indexOf('\0');
    return separateur < 0 || separateur + 1 == cle.size() ? cle.first(std::max<qsizetype>(separateur, 0))
                                                          : cle.sliced(separateur + 1);
}

/// The rows from one key to another. Their order puts the number before the collection, and so goes across the
/// collections. All that is asked stands in indexes.
std::unique_ptr<Snapshot> ouvrenumeros(const Corpus& corpus, const DemandeNumero& demande, const QByteArray& premiere,
                                       const QByteArray& derniere) {
    const QString champ = demande.champ == DemandeNumero::Champ::Article ? u"numarticle"_s : u"numtitre"_s;
    QString erreur;
    // A base that another tool has made may have the numbers without their keys.
    for (const QString& cle : {u"g.clé_"_s + champ, u"cle_tri(g."_s + champ + u')'}) {
        auto lignes = corpus.base().openQuery(
            u"SELECT g.rowid, d.rowid, "_s + cle + u" FROM generelien AS g CROSS JOIN données AS d WHERE "_s + cle +
                u">=?1 AND "_s + cle + u"<=?2 AND g.référence IN ('"_s + demande.types.liste().join(u"','"_s) +
                u"') AND d.référence=g.référence AND d.numart=g.numart ORDER BY "_s + cle +
                u", g.référence, g.numart, g.rowid"_s,
            {premiere, derniere}, &erreur);
        if (lignes)
            return lignes;
    }
    runtimeError(erreur);
}

} // namespace

QStringList formesdunumero(const QString& texte, DemandeNumero::Champ champ) {
    QStringList formes;
    if (texte.isEmpty())
        return formes;
    ajouteformes(formes, texte, champ);
    const QString simple = texte.simplified();
    if (simple != texte && numerocherchable(simple))
        ajouteformes(formes, simple, champ);
    return formes;
}

bool numerocherchable(const QString& texte) {
    return !texte.isEmpty() && texte != etoile;
}

RechercheNumero::RechercheNumero(const Corpus& corpus, const DemandeNumero& demande)
    : corpus_(corpus), demande_(demande), formes_(formesdunumero(demande.texte, demande.champ)) {}

/// The walk for the next form. False when all were tried.
bool RechercheNumero::ouvre() {
    if (formes_.isEmpty())
        return false;
    if (total_ == 0) {
        // Tables and indexes that the base lacks are found missing here, as everywhere.
        Recordset& liens = corpus_.generelien();
        liens.setIndex(demande_.champ == DemandeNumero::Champ::Article ? u"primarykey"_s : u"inumtitre"_s);
        corpus_.donnees().setIndex(u"primarykey"_s);
        total_ = std::max<qint64>(liens.recordCount(), 1);
    }
    const QString forme = formes_.takeFirst();
    debut_ = forme.endsWith(etoile);
    const QString texte = debut_ ? forme.chopped(1) : forme;
    const QByteArray cle = sortKey(texte);
    cherche_ = plein(cle).toByteArray();
    // Texts that differ in accents alone stand side by side in the order: those that begin so are among them.
    const QByteArray premiere = debut_ ? sortKeyPrefix(texte) : cle;
    // No byte of a key is so high.
    lignes_ = ouvrenumeros(corpus_, demande_, premiere, debut_ ? premiere + '\xFF' : premiere);
    vues_ = 0;
    return true;
}

bool RechercheNumero::avance() {
    if (!lignes_)
        return !ouvre();
    // What goes on between two steps may have closed the base.
    if (lignes_->usable())
        lit();
    if (lignes_->usable() && !lignes_->eof())
        return false;
    lignes_.reset();
    return documents_.nombre() > 0 || formes_.isEmpty();
}

void RechercheNumero::lit() {
    constexpr int lignesparpas = 512;
    for (int i = 0; i < lignesparpas && !lignes_->eof(); ++i, lignes_->moveNext(), ++vues_) {
        // Equal keys are equal numbers; of those that begin so, the accents may be others.
        if (debut_ && !plein(lignes_->raw(2)).startsWith(cherche_))
            continue;
        liens_.ajoute(lignes_->number(0));
        documents_.ajoute(lignes_->number(1));
    }
}

double RechercheNumero::part() const {
    return total_ == 0 ? 0 : std::min(1.0, static_cast<double>(vues_) / static_cast<double>(total_));
}

} // namespace velm
