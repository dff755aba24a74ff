// The documents of a keyword, against the query that has the engine put them into order.
#include "search/recherchemotcle.h"
#include "tests/search/controleliste_support.h"

#include <random>

using namespace velm;
using namespace velm::test;

namespace {

class MotcleHasardTest : public AvecControle {
protected:
    using Melange = void (*)(std::vector<DocumentCherche>&, std::mt19937&);

    void invente(Melange melange) {
        const auto parmi = [this](const QStringList& choix) {
            return choix.at(static_cast<qsizetype>(hasard_() % static_cast<unsigned>(choix.size())));
        };
        const QStringList codes{u"CO"_s, u"co"_s, u"Eu"_s, u"EU"_s, u"Z_"_s, u"z["_s, u"É1"_s, u"é1"_s, u"ZZ"_s};
        const QStringList debuts{u""_s, u"A"_s, u"a_"_s, u"A["_s, u"b"_s, u"É"_s, u"é"_s, u"~"_s, u"0"_s};
        const QStringList mots{u"Vente"_s, u"vente"_s, u"Prix"_s, QString(), u"VENTES"_s};
        for (int numero = 0; numero < 1500; ++numero)
            documents.push_back({parmi(codes) + parmi(debuts) + QString::number(numero),
                                 u"Titre %1"_s.arg(numero),
                                 {parmi(mots), parmi(mots), parmi(mots)}});
        melange(documents, hasard_);
        ouvre();
        demarre();
    }
    void compare() {
        const auto litterale = corpus.base().openQuery(
            u"SELECT référence, numart, titre FROM données WHERE motclé1='Vente' OR motclé2='Vente' OR "
            u"motclé3='Vente' ORDER BY référence, numart"_s);
        ASSERT_NE(litterale, nullptr);
        QStringList voulues;
        for (; !litterale->eof(); litterale->moveNext())
            voulues << litterale->text(0) + litterale->text(1) + u' ' + litterale->text(2);
        ASSERT_GT(voulues.size(), 500);
        const auto trouves = documentsdumotcle(corpus, u"Vente"_s);
        ASSERT_NE(trouves, nullptr);
        Resultat resultat;
        prenddocuments(*trouves, resultat);
        QStringList eues;
        for (int rang = 1; rang <= resultat.lignes.nombre(); ++rang)
            eues << resultat.lignes.cle(rang) + u' ' + resultat.lignes.champ(rang, Lignes::Titre);
        EXPECT_EQ(eues, voulues);
    }

private:
    std::mt19937 hasard_{5};
};

} // namespace

TEST_F(MotcleHasardTest, DocumentsOfAKeywordStandAsTheEngineOrdersTheirKeys) {
    invente([](std::vector<DocumentCherche>& tous, std::mt19937& hasard) { std::ranges::shuffle(tous, hasard); });
    compare();
}

TEST_F(MotcleHasardTest, SoTheyDoWhereTheBaseHasThemInAnotherOrder) {
    invente([](std::vector<DocumentCherche>& tous, std::mt19937&) {
        std::ranges::sort(tous, std::greater(), [](const DocumentCherche& un) { return un.cle; });
    });
    compare();
}
