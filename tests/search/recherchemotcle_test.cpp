// The list of keywords, and their documents in the selection list.
#include "search/listemotcle.h"
#include "search/recherchemotcle.h"
#include "tests/search/controleliste_support.h"

using namespace velm;
using namespace velm::test;

namespace {

class RechercheMotcleTest : public AvecControle {
protected:
    void SetUp() override {
        AvecControle::SetUp();
        documents = {{u"CO000002"_s, u"Deux"_s, {u"Vente"_s, u"Prix"_s, u"Taxe"_s}},
                     {u"EU000001"_s, u"Un"_s, {u"Taxe"_s}},
                     {u"CO000001"_s, u"Trois"_s, {u"Garantie"_s, QString(), u"VENTE"_s}},
                     {u"DI000001"_s, u"Quatre"_s, {u"l’État"_s, u"100 %"_s, u"l'eau"_s}},
                     {u"DI000002"_s, u"Cinq"_s, {u"deux\nlignes"_s, u"vente"_s}},
                     {u"DI000003"_s, u"Six"_s, {u"dit \"neuf\""_s}}};
        motscles = {{u"Prix"_s, 1},         {u"état"_s, 3}, {u"Vente"_s, 3}, {u"Taxe"_s, 2},
                    {u"dit \"neuf\""_s, 1}, {u"eau"_s, 12}, {u"Étal"_s, 2}};
        ouvre();
        demarre();
    }

    QStringList clestrouvees(const QString& motcle) const {
        const auto tous = documentsdumotcle(corpus, motcle);
        if (!tous)
            return {u"refus"_s};
        Resultat resultat;
        prenddocuments(*tous, resultat);
        QStringList cles;
        for (int rang = 1; rang <= resultat.lignes.nombre(); ++rang)
            cles << resultat.lignes.cle(rang);
        EXPECT_EQ(resultat.compte, cles.size());
        return cles;
    }
    QStringList clesdelaliste() const {
        QStringList cles;
        for (int rang = 1; rang < controle->liste().rows(); ++rang)
            cles << controle->liste().cle(rang);
        return cles;
    }
    static QStringList mots(const ListeMotcle& liste) {
        QStringList tous;
        for (int row = 0; row < liste.rowCount(); ++row)
            tous << liste.text(row, ListeMotcle::Motcle) + u' ' + liste.text(row, ListeMotcle::Nombre);
        return tous;
    }
    QString bilandit() const { return panneau.bilans.empty() ? QString() : panneau.bilans.back().phrase; }
    void rouvresans(const QString& table) {
        corpus.fermebase();
        {
            auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
            ASSERT_TRUE(base.database->execute(u"DROP TABLE "_s + table));
        }
        ASSERT_EQ(corpus.connecte(dossier.filePath(u"velm2000.dat"_s)), OpenError::None);
        corpus.ouvretables();
    }
};

} // namespace

TEST_F(RechercheMotcleTest, AllKeywordsAreListedWithTheirCountsInKeyOrder) {
    EXPECT_EQ(mots(ListeMotcle(corpus)), (QStringList{u"dit \"neuf\" 1"_s, u"eau 12"_s, u"Étal 2"_s, u"état 3"_s,
                                                      u"Prix 1"_s, u"Taxe 2"_s, u"Vente 3"_s}));
    EXPECT_EQ(ListeMotcle(corpus).text(-1, 0), QString());
    EXPECT_EQ(ListeMotcle(corpus).text(7, 0), QString());
    EXPECT_EQ(ListeMotcle(corpus).text(0, 2), QString());
}

TEST_F(RechercheMotcleTest, CountsAreSortedAsNumbersAndEqualOnesKeepTheirOrder) {
    ListeMotcle liste(corpus);
    EXPECT_TRUE(liste.sort(ListeMotcle::Nombre, false));
    EXPECT_EQ(mots(liste), (QStringList{u"dit \"neuf\" 1"_s, u"Prix 1"_s, u"Étal 2"_s, u"Taxe 2"_s, u"état 3"_s,
                                        u"Vente 3"_s, u"eau 12"_s}));
    EXPECT_TRUE(liste.sort(ListeMotcle::Nombre, true));
    EXPECT_EQ(mots(liste), (QStringList{u"eau 12"_s, u"état 3"_s, u"Vente 3"_s, u"Étal 2"_s, u"Taxe 2"_s,
                                        u"dit \"neuf\" 1"_s, u"Prix 1"_s}));
    EXPECT_TRUE(liste.sort(ListeMotcle::Motcle, true));
    EXPECT_EQ(liste.motcle(0), u"Vente"_s);
    EXPECT_EQ(liste.row(liste.cle(3)), 3);
    EXPECT_EQ(liste.row({QString(), u"état"_s}), 3);
    EXPECT_EQ(liste.row({QString(), u"absent"_s}), -1);
    EXPECT_EQ(liste.row({QString(), u"vente"_s}), -1) << "in another case it is another text";
    EXPECT_FALSE(liste.sort(2, false));
}

TEST_F(RechercheMotcleTest, OnceTheBaseIsClosedUnreadRowsAreEmpty) {
    const ListeMotcle liste(corpus);
    EXPECT_EQ(liste.motcle(1), u"eau"_s);
    corpus.fermebase();
    EXPECT_EQ(liste.motcle(1), u"eau"_s);
    EXPECT_EQ(liste.motcle(2), QString());
}

TEST_F(RechercheMotcleTest, AKeywordIsFoundInEachOfItsThreePlacesAndInAnyCase) {
    EXPECT_EQ(clestrouvees(u"Vente"_s), (QStringList{u"CO000001"_s, u"CO000002"_s, u"DI000002"_s}));
    EXPECT_EQ(clestrouvees(u"taxe"_s), (QStringList{u"CO000002"_s, u"EU000001"_s}));
    EXPECT_EQ(clestrouvees(u"Ven"_s), QStringList()) << "it is the whole keyword";
    EXPECT_EQ(clestrouvees(u"l’état"_s), QStringList{u"DI000001"_s}) << "letters with accents have a case, too";
    EXPECT_EQ(clestrouvees(u"l’Etat"_s), QStringList());
}

TEST_F(RechercheMotcleTest, VeryManyAccentsDoNotMakeTheQuestionEndless) {
    const QString accents = u"éèêàùçîôû"_s.repeated(20);
    EXPECT_EQ(clestrouvees(accents), QStringList());
    EXPECT_EQ(clestrouvees(u"L’ÉTAT"_s), QStringList{u"DI000001"_s});
}

TEST_F(RechercheMotcleTest, SignsInAKeywordAreLookedForAsTheyStand) {
    EXPECT_EQ(clestrouvees(u"100 %"_s), QStringList{u"DI000001"_s});
    EXPECT_EQ(clestrouvees(u"1%"_s), QStringList());
    EXPECT_EQ(clestrouvees(u"l'eau"_s), QStringList{u"DI000001"_s});
    EXPECT_EQ(clestrouvees(u"deux\nlignes"_s), QStringList{u"DI000002"_s});
    EXPECT_EQ(clestrouvees(u"?1"_s), QStringList());
}

TEST_F(RechercheMotcleTest, ADoubleQuoteInAKeywordBreaksTheQuestionAndLeavesTheListAsItWas) {
    for (const QString& motcle : {u"dit \"neuf\""_s, u"\""_s, u"a\"b"_s, u"\"; DROP TABLE données"_s})
        EXPECT_EQ(clestrouvees(motcle), QStringList{u"refus"_s}) << qPrintable(motcle);
    remplissage().remplitdemotcle(u"Vente"_s);
    controle->trie(0);
    const QStringList avant = clesdelaliste();
    const qsizetype etats = panneau.etats.size();
    panneau.journal.clear();
    remplissage().remplitdemotcle(u"dit \"neuf\""_s);
    ASSERT_EQ(dialogues.messages.size(), 1U);
    EXPECT_EQ(dialogues.messages[0].texte, u"t9551"_s);
    EXPECT_EQ(clesdelaliste(), avant);
    EXPECT_EQ(controle->liste().marque(0), ListeSelection::Marque::Ascendante);
    EXPECT_TRUE(grille.montree);
    EXPECT_FALSE(grille.figee);
    EXPECT_EQ(panneau.etats.size(), etats);
    EXPECT_EQ(bilandit(), u"t9732"_s) << "of the rows that are still there";
    EXPECT_TRUE(panneau.journal.isEmpty());
    EXPECT_EQ(sablier.pointeur(), Sablier::defaut);
}

TEST_F(RechercheMotcleTest, WhereNothingWasSearchedYetARefusalShowsNoList) {
    remplissage().remplitdemotcle(u"\""_s);
    EXPECT_EQ(dialogues.messages.size(), 1U);
    EXPECT_FALSE(grille.montree);
    EXPECT_EQ(bilandit(), QString());
}

TEST_F(RechercheMotcleTest, TheDocumentsOfAKeywordReplaceTheListAndShowInThePanel) {
    remplissage().remplitdecles({u"DI000001"_s});
    controle->trie(0);
    panneau.journal.clear();
    remplissage().remplitdemotcle(u"Vente"_s);
    EXPECT_EQ(clesdelaliste(), (QStringList{u"CO000001"_s, u"CO000002"_s, u"DI000002"_s}));
    EXPECT_EQ(controle->liste().champ(1, ListeSelection::Titre), u"Trois");
    EXPECT_EQ(controle->liste().champ(1, ListeSelection::Motcle3), u"VENTE");
    EXPECT_EQ(controle->liste().marque(0), ListeSelection::Marque::Aucune);
    EXPECT_TRUE(grille.montree);
    EXPECT_EQ(panneau.journal, (QStringList{u"montre"_s, u"dispositions"_s}));
    EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_TRUE(panneau.permis(Ordre::ImprimerCriteres));
    EXPECT_EQ(bilandit(), u"t9725, Vente");
}

TEST_F(RechercheMotcleTest, TheCountTakesSingularAndPlural) {
    remplissage().remplitdemotcle(u"Taxe"_s);
    EXPECT_EQ(panneau.etats.last(), u" 2 documents");
    EXPECT_TRUE(panneau.etats.contains(QString())) << "the panel is cleared first";
    remplissage().remplitdemotcle(u"Prix"_s);
    EXPECT_EQ(panneau.etats.last(), u" 1 document");
    remplissage().remplitdemotcle(u"eau"_s);
    EXPECT_EQ(panneau.etats.last(), u" 0 document");
    EXPECT_EQ(bilandit(), u"t9550");
    EXPECT_TRUE(panneau.bilans.back().rien);
    EXPECT_FALSE(panneau.permis(Ordre::SuivantRecherche));
}

TEST_F(RechercheMotcleTest, TheWordsToMarkAreEmptied) {
    remplissage().remplit(
        [this](const std::stop_token&) {
            Resultat& resultat = remplissage().nouveau();
            resultat.mot1 = u"prix"_s;
            resultat.mot2 = u"taxe"_s;
        },
        [] {});
    remplissage().remplitdemotcle(u"Vente"_s);
    EXPECT_EQ(controle->liste().resultat().mot1, QString());
    EXPECT_EQ(controle->liste().resultat().mot2, QString());
}

TEST_F(RechercheMotcleTest, AFullListEndsTheFillingWithTheRowsItHas) {
    controle->liste().resultat().lignes.limite(2);
    remplissage().remplitdemotcle(u"Vente"_s);
    EXPECT_EQ(clesdelaliste(), (QStringList{u"CO000002"_s, u"DI000002"_s})) << "those that were found first, in order";
    EXPECT_EQ(panneau.etats.last(), u" 2 documents");
}

TEST_F(RechercheMotcleTest, ABaseWithoutTheTableIsNoticedWhereTheKeywordsAreWanted) {
    ASSERT_NO_FATAL_FAILURE(rouvresans(u"motclés"_s));
    EXPECT_EQ(clestrouvees(u"Prix"_s), QStringList{u"CO000002"_s}) << "the documents bear them all the same";
    const GardeArret garde;
    EXPECT_THROW(ListeMotcle{corpus}, Arret);
}

TEST_F(RechercheMotcleTest, KeywordsWithoutTheirKeysAreListedAllTheSame) {
    ASSERT_NO_FATAL_FAILURE(rouvresans(u"motclés"_s));
    corpus.fermebase();
    {
        auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(u"CREATE TABLE motclés(motcle TEXT, nbarticle INTEGER)"_s));
        ASSERT_TRUE(base.database->execute(u"INSERT INTO motclés VALUES('Vente', 2), ('étal', 1), ('Prix', 5)"_s));
    }
    ASSERT_EQ(corpus.connecte(dossier.filePath(u"velm2000.dat"_s)), OpenError::None);
    corpus.ouvretables();
    EXPECT_EQ(mots(ListeMotcle(corpus)), (QStringList{u"étal 1"_s, u"Prix 5"_s, u"Vente 2"_s}));
}

TEST_F(RechercheMotcleTest, ABaseWithoutKeywordsHasAnEmptyList) {
    corpus.fermebase();
    {
        auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(u"DELETE FROM motclés"_s));
    }
    ASSERT_EQ(corpus.connecte(dossier.filePath(u"velm2000.dat"_s)), OpenError::None);
    corpus.ouvretables();
    EXPECT_EQ(ListeMotcle(corpus).rowCount(), 0);
    EXPECT_EQ(comptemotscles(0, textes), u"t9561");
}
