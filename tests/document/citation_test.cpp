// The line that says where a copied passage comes from.
#include "document/citation.h"

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString usuel = u"{article}, {titre}, {collection}, {source}, {date} (réf. {clé})"_s;

ElementsCitation entiers() {
    return {u"art. 3"_s, u"Loi sur la vente"_s, u"Lois"_s, u"Journal du 4 mai"_s, u"10 janvier 1994"_s, u"LO000012"_s};
}

QString mots(Texte lequel) {
    return lequel == Texte::CitationArticle ? u"art. %1"_s : u"art. %1 à %2"_s;
}

class ArticlesCites : public testing::Test {
protected:
    const QString loi = u"Loi sur la vente\r\nDu 4 mai\r\nArticle premier\r\nLe vendeur.\r\nArt. 2. - L'acheteur.\r\n"
                        u"Suite de l'article 2.\r\nArticle L. 241-1 – La garantie.\r\nFin."_s;
    QString cite(QStringView debut, QStringView fin) const {
        const qsizetype ici = loi.indexOf(debut);
        return articlescites(loi, ici, loi.indexOf(fin, ici) + fin.size() - ici, mots);
    }
};

} // namespace

TEST(Citation, AllElementsStandAsTheTemplateSays) {
    EXPECT_EQ(citation(usuel, entiers()),
              u"art. 3, Loi sur la vente, Lois, Journal du 4 mai, 10 janvier 1994 (réf. LO000012)");
}

TEST(Citation, AnEmptyElementGoesWithItsPunctuation) {
    ElementsCitation e = entiers();
    e.article.clear();
    EXPECT_EQ(citation(usuel, e), u"Loi sur la vente, Lois, Journal du 4 mai, 10 janvier 1994 (réf. LO000012)");
    e.source.clear();
    e.date.clear();
    EXPECT_EQ(citation(usuel, e), u"Loi sur la vente, Lois (réf. LO000012)");
    e.cle.clear();
    EXPECT_EQ(citation(usuel, e), u"Loi sur la vente, Lois");
    EXPECT_EQ(citation(usuel, {}), QString());
}

TEST(Citation, WhatStandsBeforeTheFirstAndBehindTheLastStays) {
    ElementsCitation e;
    e.titre = u"T"_s;
    EXPECT_EQ(citation(u"Source : {article}, {titre}, {date}."_s, e), u"Source : T.");
    EXPECT_EQ(citation(u"« {titre} », {date}"_s, e), u"« T »");
    EXPECT_EQ(citation(u"[{date}] {titre} [{clé} – {source}]"_s, e), u"T");
}

TEST(Citation, WhatIsNoElementStaysAsItIs) {
    EXPECT_EQ(citation(u"{auteur} {titre} {"_s, entiers()), u"{auteur} Loi sur la vente {");
    EXPECT_EQ(citation(u"(c) {titre} (sic"_s, entiers()), u"(c) Loi sur la vente (sic");
    EXPECT_EQ(citation(u"sans rien"_s, entiers()), u"sans rien");
    EXPECT_EQ(citation(QString(), entiers()), QString());
}

TEST(Citation, ItIsOneLine) {
    ElementsCitation e;
    e.titre = u"Un titre\r\nsur deux  lignes {date}"_s;
    EXPECT_EQ(citation(u"{titre},\n{date}"_s, e), u"Un titre sur deux lignes {date}");
}

TEST_F(ArticlesCites, APassageFromTheMiddleNamesItsArticle) {
    EXPECT_EQ(cite(u"Le vendeur", u"vendeur"), u"art. premier");
    EXPECT_EQ(cite(u"Suite", u"2."), u"art. 2");
    EXPECT_EQ(cite(u"Fin", u"Fin"), u"art. L. 241-1");
    EXPECT_EQ(cite(u"Art. 2", u"acheteur"), u"art. 2") << "its heading belongs to it";
}

TEST_F(ArticlesCites, APassageOverSeveralNamesTheFirstAndTheLast) {
    EXPECT_EQ(cite(u"Le vendeur", u"Suite"), u"art. premier à 2");
    EXPECT_EQ(cite(u"Du 4 mai", u"Fin"), u"art. premier à L. 241-1");
}

TEST_F(ArticlesCites, WhatIsFromNoArticleNamesNone) {
    EXPECT_EQ(cite(u"Loi", u"vente"), QString()) << "before the first one";
    EXPECT_EQ(articlescites(loi, 0, loi.size(), mots), QString()) << "all of it";
    EXPECT_EQ(articlescites(loi, 10, 0, mots), QString());
    EXPECT_EQ(articlescites(u"Article 3\r\nSeul de son texte, l'article 4 n'y est pas.", 12, 4, mots), QString())
        << "a document that is one article says so in its title";
    EXPECT_EQ(articlescites(u"Articles divers\r\nArtisans\r\nArt nouveau", 20, 3, mots), QString());
    EXPECT_EQ(articlescites({}, 0, 5, mots), QString());
}

TEST(Citation, ALongTextIsWalkedOnce) {
    QString texte;
    for (int i = 1; i <= 100'000; ++i)
        texte += u"Article %1\r\nTexte.\r\n"_s.arg(i);
    EXPECT_EQ(articlescites(texte, texte.size() - 5, 3, mots), u"art. 100000");
}

} // namespace velm
