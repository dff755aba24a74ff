#pragma once
// A small base with numbers of articles and texts, across several collections.
#include "search/recherchenumero.h"
#include "tests/search/recherche_support.h"

namespace velm::test {

using Numero = DemandeNumero::Champ;

/// A row of the numbers and one of the documents.
using Paires = std::vector<std::pair<qint64, qint64>>;

inline Paires cherche(const Corpus& corpus, const DemandeNumero& demande) {
    RechercheNumero recherche(corpus, demande);
    acheve(recherche);
    Paires paires;
    EXPECT_EQ(recherche.liens().nombre(), recherche.documents().nombre());
    for (std::size_t i = 0; i < recherche.liens().nombre(); ++i)
        paires.emplace_back(recherche.liens()[i], recherche.documents()[i]);
    return paires;
}

class RechercheNumeroTest : public BaseRecherche {
protected:
    void SetUp() override {
        BaseRecherche::SetUp();
        documents = {{u"CO000001"_s, u"Article L. 121-1"_s},
                     {u"CO000002"_s, u"Article L. 121-10"_s},
                     {u"EU000001"_s, u"Article L. 121-1 bis"_s},
                     {u"CL000003"_s, u"Article 1382"_s},
                     {u"LT000004"_s, u"Annexe"_s},
                     {u"LT000005"_s, u"Article R*314-2"_s}};
        numeros = {{u"CO000001"_s, u"L. 121-1"_s, u"93-949"_s}, {u"CO000002"_s, u"L. 121-10"_s, u"93-949"_s},
                   {u"EU000001"_s, u"l. 121-1"_s, u"93-13"_s},  {u"CL000003"_s, u"1382"_s},
                   {u"LT000004"_s, u"Annexe"_s, u"97-298"_s},   {u"LT000005"_s, u"R*314-2"_s, u"97-298"_s},
                   {u"CO000099"_s, u"L. 121-1"_s, u"93-949"_s}};
    }

    /// Numbers and keys of what is found.
    QStringList trouves(const QString& texte, Numero champ = Numero::Article, QStringView types = codestypes) {
        QStringList tous;
        for (const auto& [lien, document] : cherche(corpus, {texte, champ, TypesChoisis::decodes(types)})) {
            Recordset& liens = corpus.generelien();
            EXPECT_TRUE(liens.setBookmark({lien}));
            EXPECT_TRUE(corpus.donnees().setBookmark({document}));
            const QString cle = liens.text(u"référence"_s) + liens.text(u"numart"_s);
            EXPECT_EQ(corpus.donnees().text(u"référence"_s) + corpus.donnees().text(u"numart"_s), cle);
            tous << cle;
        }
        return tous;
    }
};

} // namespace velm::test
