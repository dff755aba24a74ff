#pragma once
// The search by number: of an article as people cite it, or of a text that articles belong to.
#include "core/corpus.h"
#include "search/identites.h"
#include "search/sourceentours.h"
#include "search/typeschoisis.h"

#include <QStringList>

namespace velm {

struct DemandeNumero {
    enum class Champ { Article, Texte };

    QString texte; ///< as typed; with a star at its end, all numbers that begin so
    Champ champ = Champ::Article;
    TypesChoisis types = {}; ///< rows of other collections are passed over
};

/// How a number is looked for, one form after the other until one is found. First as typed; that of an article, unless
/// it begins with a digit, with a point before its first digit, and with a point and a blank (L121-1, L.121-1,
/// L. 121-1), as far as these are not there. What was pasted with other blanks, or with blanks around it, is then
/// looked for in the same forms as if it had been typed. Empty for what finds nothing by itself: no text at all.
QStringList formesdunumero(const QString& texte, DemandeNumero::Champ champ);

/// Whether Return looks for it: neither nothing nor a star alone.
bool numerocherchable(const QString& texte);

/// One search. What it finds stands in the order of the numbers, those of one number by collection and document. A row
/// without its document is passed over. A base without the tables is a run-time error at the first step.
class RechercheNumero final : public Ouvrage {
public:
    RechercheNumero(const Corpus& corpus, const DemandeNumero& demande);

    bool avance() override;
    double part() const override;

    /// Row ids of what bears the numbers, and of the documents.
    const Identites& liens() const { return liens_; }
    const Identites& documents() const { return documents_; }

private:
    bool ouvre();
    void lit();

    const Corpus& corpus_;
    DemandeNumero demande_;
    QStringList formes_; ///< those that were not tried yet
    QByteArray cherche_; ///< as a key holds it
    bool debut_ = false; ///< all that begin so
    std::unique_ptr<Snapshot> lignes_;
    qint64 vues_ = 0;
    qint64 total_ = 0;
    Identites liens_;
    Identites documents_;
};

} // namespace velm
