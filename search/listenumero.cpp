#include "search/listenumero.h"

#include "platform/text/frenchorder.h"

#include <array>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype rangeesretenues = 1024;

} // namespace

ModeleColonnes ListeNumero::modele() {
    return {.colonnes = {{NumeroArticle, 1000, Texte::ColonneNumeroArticle, 2},
                         {NumeroTexte, 1000, Texte::ColonneNumeroTexte, 2},
                         {TitreTexte, 2500, Texte::ColonneTitreTexte, 4},
                         {Titre, 3000, Texte::Titre, 6},
                         {Reference, 700, Texte::ColonneReference},
                         {Numart, 700, {}, 2},
                         {CleReference, 0},
                         {CleNumart, 0}}};
}

ListeNumero::ListeNumero(const Corpus& corpus, const DemandeNumero& demande)
    : corpus_(corpus), demande_(demande), tableliens_(corpus.base().openTable(u"generelien"_s)),
      tabledocuments_(corpus.base().openTable(u"données"_s)) {}

class ListeNumero::Remplissage final : public Ouvrage {
public:
    explicit Remplissage(ListeNumero& liste) : liste_(liste), recherche_(liste.corpus_, liste.demande_) {}

    bool avance() override {
        if (!recherche_.avance())
            return false;
        liste_.liens_ = recherche_.liens();
        liste_.documents_ = recherche_.documents();
        liste_.lues_.clear();
        return true;
    }
    double part() const override { return recherche_.part(); }

private:
    ListeNumero& liste_;
    RechercheNumero recherche_;
};

std::unique_ptr<Ouvrage> ListeNumero::remplissage() {
    return std::make_unique<Remplissage>(*this);
}

/// At the exit the base is closed before its windows: what of them is still painted is no failure.
QString ListeNumero::lit(int row, int champ) const {
    static const std::array<QString, nombredechamps> champs{u"numarticle"_s, u"numtitre"_s,  u"titre"_s,
                                                            u"titre"_s,      u"référence"_s, u"numart"_s,
                                                            u"référence"_s,  u"numart"_s};
    const auto rang = static_cast<std::size_t>(row);
    const bool dulien = champ < Titre;
    Recordset& table = dulien ? *tableliens_ : *tabledocuments_;
    if (!table.usable() || !table.setBookmark({dulien ? liens_[rang] : documents_[rang]}))
        return {};
    return table.text(champs.at(static_cast<std::size_t>(champ)));
}

QString ListeNumero::text(int row, int column) const {
    if (row < 0 || row >= rowCount() || column < 0 || column >= nombredechamps)
        return {};
    const auto retenue = lues_.constFind(row);
    if (retenue != lues_.constEnd())
        return retenue->at(column);
    if (lues_.size() >= rangeesretenues)
        lues_.clear();
    QStringList lues;
    for (int champ = 0; champ < nombredechamps; ++champ)
        lues << lit(row, champ);
    return lues_.insert(row, lues)->at(column);
}

Cle ListeNumero::cle(int row) const {
    const QString numero = text(row, CleNumart);
    return numero.isEmpty() ? Cle() : Cle{text(row, CleReference), numero};
}

QString ListeNumero::ancre(int row) const {
    return demande_.champ == DemandeNumero::Champ::Article ? text(row, NumeroArticle) : QString();
}

bool ListeNumero::sort(int column, bool descending) {
    if (column < 0 || column >= nombredechamps)
        return false;
    Identites liens;
    Identites documents;
    for (const int row : frenchOrder(
             rowCount(), [&](int ici) { return lit(ici, column); }, descending)) {
        liens.ajoute(liens_[static_cast<std::size_t>(row)]);
        documents.ajoute(documents_[static_cast<std::size_t>(row)]);
    }
    liens_ = std::move(liens);
    documents_ = std::move(documents);
    lues_.clear();
    return true;
}

} // namespace velm
