#include "search/bilanrecherche.h"

#include "core/langue.h"
#include "core/nombres.h"
#include "core/parametres.h"
#include "search/recherchedico.h"

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

/// One search, to be told of.
class Recit {
public:
    Recit(const Recherchee& recherchee, const Resultat& resultat, const Libelles& texte)
        : recherchee_(recherchee), resultat_(resultat), texte_(texte) {
        mots_ = decoupemots(recherchee.texte, separateursmots());
        mots_.removeAll(QString());
    }

    QString rien() const {
        if (resultat_.issue != Resultat::Issue::Terminee)
            return texte_(Texte::BilanAbandon);
        if (recherchee_.sanscollection)
            return texte_(Texte::BilanAucuneCollection);
        switch (recherchee_.sorte) {
        case Recherchee::Sorte::Criteres:
            return texte_(Texte::BilanAucunCritere);
        case Recherchee::Sorte::Mots:
            return sansmot();
        case Recherchee::Sorte::MotCle:
            return remplace(texte_(Texte::AucunDocumentDuMotCle), {recherchee_.texte});
        case Recherchee::Sorte::Texte:
            break;
        }
        return remplace(texte_(Texte::BureauRienTrouve), {recherchee_.texte});
    }

    QString trouve() const {
        const QString compte = recherchee_.ici ? combien() : pour(combien());
        if (resultat_.issue == Resultat::Issue::Arretee)
            return remplace(texte_(Texte::BilanArret), {compte});
        if (recherchee_.ici && mots_.size() == 1 && resultat_.partout && !resultat_.limitee)
            return remplace(texte_(Texte::BilanMotIci),
                            {mots_.value(0), documents(lignes()), ecrit(*resultat_.partout)});
        return recherchee_.ici ? pour(remplace(texte_(Texte::BilanIci), {compte})) : compte;
    }

private:
    qint64 lignes() const { return resultat_.lignes.nombre(); }
    QString ecrit(qint64 nombre) const { return nombreecrit(nombre, texte_); }
    QString documents(qint64 nombre) const { return bilandelignes(nombre, texte_).phrase; }

    QString combien() const {
        if (resultat_.limitee && resultat_.total)
            return remplace(texte_(Texte::BilanPremiersSur), {ecrit(lignes()), ecrit(*resultat_.total)});
        if (resultat_.limitee)
            return remplace(texte_(Texte::BilanPremiers), {ecrit(lignes())});
        return lignes() > 1 ? remplace(texte_(Texte::BilanDocuments), {ecrit(lignes())})
                            : texte_(Texte::BilanUnDocument);
    }

    /// What was found, with what was looked for.
    QString pour(const QString& compte) const {
        const QString voulu = recherchee_.sorte == Recherchee::Sorte::Mots ? mots_.join(u' ') : recherchee_.texte;
        return voulu.trimmed().isEmpty() ? compte : remplace(texte_(Texte::TrouvePour), {compte, voulu});
    }

    QString sansmot() const {
        const bool ici = recherchee_.ici;
        if (mots_.isEmpty())
            return texte_(Texte::TapezDesMots);
        const Texte phrase = mots_.size() == 1   ? (ici ? Texte::BilanAucunMotIci : Texte::BilanAucunMot)
                             : !recherchee_.tous ? Texte::BilanAucunDesMots
                             : ici               ? Texte::BilanAucunTousLesMotsIci
                                                 : Texte::BilanAucunTousLesMots;
        return remplace(texte_(phrase), {mots_.join(u' ')});
    }

    const Recherchee& recherchee_;
    const Resultat& resultat_;
    const Libelles& texte_;
    QStringList mots_;
};

} // namespace

BilanRecherche bilande(const Recherchee& recherchee, const Resultat& resultat, const Libelles& texte) {
    if (resultat.issue == Resultat::Issue::TexteCourt)
        return {};
    const Recit recit(recherchee, resultat, texte);
    if (resultat.lignes.nombre() == 0)
        return {recit.rien(), resultat.issue == Resultat::Issue::Terminee, false};
    return {recit.trouve(), false, resultat.limitee};
}

BilanRecherche bilandelignes(qint64 nombre, const Libelles& texte) {
    return {
        remplace(texte(nombre > 1 ? Texte::CompteDocuments : Texte::CompteUnDocument), {nombreecrit(nombre, texte)}),
        false, false};
}

} // namespace velm
