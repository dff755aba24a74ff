// The search by number: its forms, its stars, and the walk across the collections.
#include "search/listenumero.h"
#include "tests/search/recherchenumero_support.h"

using namespace velm;
using namespace velm::test;

TEST_F(RechercheNumeroTest, AnArticleNumberFindsItsDocumentInAnyCase) {
    ouvre();
    EXPECT_EQ(trouves(u"1382"_s), QStringList{u"CL000003"_s});
    EXPECT_EQ(trouves(u"annexe"_s), QStringList{u"LT000004"_s});
    EXPECT_EQ(trouves(u"l. 121-10"_s), QStringList{u"CO000002"_s});
    EXPECT_EQ(trouves(u"138"_s), QStringList()) << "the beginning of one is none";
    EXPECT_EQ(trouves(u"r*314-2"_s), QStringList{u"LT000005"_s}) << "a star that is part of it";
}

TEST_F(RechercheNumeroTest, TheWalkGoesAcrossTheCollectionsInTheirOrder) {
    ouvre();
    EXPECT_EQ(trouves(u"L. 121-1"_s), (QStringList{u"CO000001"_s, u"EU000001"_s}));
}

TEST_F(RechercheNumeroTest, ATextNumberFindsItsDocuments) {
    ouvre();
    EXPECT_EQ(trouves(u"93-949"_s, Numero::Texte), (QStringList{u"CO000001"_s, u"CO000002"_s}));
    EXPECT_EQ(trouves(u"93-949"_s), QStringList()) << "it is the number of no article";
    EXPECT_EQ(trouves(u"L. 121-1"_s, Numero::Texte), QStringList());
}

TEST_F(RechercheNumeroTest, AFinalStarFindsAllThatBeginSo) {
    ouvre();
    EXPECT_EQ(trouves(u"l. 121*"_s), (QStringList{u"CO000001"_s, u"EU000001"_s, u"CO000002"_s}));
    EXPECT_EQ(trouves(u"93-*"_s, Numero::Texte), (QStringList{u"EU000001"_s, u"CO000001"_s, u"CO000002"_s}));
    EXPECT_EQ(trouves(u"R*314*"_s), QStringList{u"LT000005"_s});
    EXPECT_EQ(trouves(u"Z*"_s), QStringList());
}

TEST_F(RechercheNumeroTest, RowsOfOtherTypesArePassedOverWithoutEndingTheWalk) {
    ouvre();
    EXPECT_EQ(trouves(u"L. 121-1"_s, Numero::Article, u"EU"), QStringList{u"EU000001"_s});
    EXPECT_EQ(trouves(u"L. 121*"_s, Numero::Article, u"COLT"), (QStringList{u"CO000001"_s, u"CO000002"_s}));
    EXPECT_EQ(trouves(u"L. 121*"_s, Numero::Article, u""), QStringList());
}

TEST_F(RechercheNumeroTest, ARowWithoutADocumentIsPassedOver) {
    numeros.push_back({u"CO000098"_s, u"L. 999"_s, u"2099-1"_s});
    ouvre();
    EXPECT_EQ(trouves(u"L. 999"_s), QStringList());
    EXPECT_EQ(trouves(u"2099-1"_s, Numero::Texte), QStringList());
    EXPECT_EQ(trouves(u"L. 121-1"_s).size(), 2) << "CO000099 bears it too";
}

TEST_F(RechercheNumeroTest, LettersAndDigitsAreTriedWithAPointAndThenWithAPointAndABlank) {
    EXPECT_EQ(formesdunumero(u"L121-1"_s, Numero::Article), (QStringList{u"L121-1"_s, u"L.121-1"_s, u"L. 121-1"_s}));
    EXPECT_EQ(formesdunumero(u"L.121-1*"_s, Numero::Article), (QStringList{u"L.121-1*"_s, u"L. 121-1*"_s}));
    ouvre();
    EXPECT_EQ(trouves(u"L121-1"_s), (QStringList{u"CO000001"_s, u"EU000001"_s}));
    EXPECT_EQ(trouves(u"l.121-10"_s), QStringList{u"CO000002"_s});
    EXPECT_EQ(trouves(u"L121*"_s).size(), 3);
}

TEST_F(RechercheNumeroTest, TheFirstFormThatFindsSomethingEndsTheSearch) {
    documents.push_back({u"DI000001"_s, u"Tel quel"_s});
    numeros.push_back({u"DI000001"_s, u"L121-1"_s});
    ouvre();
    EXPECT_EQ(trouves(u"L121-1"_s), QStringList{u"DI000001"_s});
    EXPECT_EQ(trouves(u"L.121-1"_s), (QStringList{u"CO000001"_s, u"EU000001"_s}));
    EXPECT_EQ(trouves(u"L121-1"_s, Numero::Article, u"COEU"), (QStringList{u"CO000001"_s, u"EU000001"_s}))
        << "where nothing is shown, nothing was found";
}

TEST_F(RechercheNumeroTest, ANumberThatBeginsWithADigitIsTriedOnce) {
    EXPECT_EQ(formesdunumero(u"1382"_s, Numero::Article), QStringList{u"1382"_s});
    EXPECT_EQ(formesdunumero(u"9a1"_s, Numero::Article), QStringList{u"9a1"_s});
}

TEST_F(RechercheNumeroTest, LettersOnlyAreTriedOnce) {
    EXPECT_EQ(formesdunumero(u"Annexe"_s, Numero::Article), QStringList{u"Annexe"_s});
    EXPECT_EQ(formesdunumero(u"ann*"_s, Numero::Article), QStringList{u"ann*"_s});
}

TEST_F(RechercheNumeroTest, ATextThatHasItsBlankIsTriedOnce) {
    EXPECT_EQ(formesdunumero(u"L. 121-1"_s, Numero::Article), QStringList{u"L. 121-1"_s});
    EXPECT_EQ(formesdunumero(u"Article 5"_s, Numero::Article), QStringList{u"Article 5"_s});
}

TEST_F(RechercheNumeroTest, TheNumberOfATextHasOneForm) {
    EXPECT_EQ(formesdunumero(u"n93-949"_s, Numero::Texte), QStringList{u"n93-949"_s});
    EXPECT_EQ(formesdunumero(QString(), Numero::Texte), QStringList());
}

TEST_F(RechercheNumeroTest, NeitherNothingNorAStarAloneIsLookedFor) {
    EXPECT_FALSE(numerocherchable(QString()));
    EXPECT_FALSE(numerocherchable(u"*"_s));
    EXPECT_TRUE(numerocherchable(u"**"_s));
    EXPECT_TRUE(numerocherchable(u" "_s));
}

TEST_F(RechercheNumeroTest, BlanksThatCameWithAPastedNumberDoNotHideIt) {
    ouvre();
    EXPECT_EQ(trouves(u"L.\u00a0121-1"_s), (QStringList{u"CO000001"_s, u"EU000001"_s}));
    EXPECT_EQ(trouves(u"\tL121-10 "_s), QStringList{u"CO000002"_s});
    EXPECT_EQ(trouves(u" 93-13\u00a0"_s, Numero::Texte), QStringList{u"EU000001"_s});
    EXPECT_EQ(formesdunumero(u"   "_s, Numero::Article), QStringList{u"   "_s}) << "blanks alone are not everything";
    EXPECT_EQ(formesdunumero(u" * "_s, Numero::Article), QStringList{u" * "_s});
    EXPECT_EQ(trouves(u"   "_s), QStringList());
}

TEST_F(RechercheNumeroTest, ANumberStoredWithOtherBlanksIsFoundAsItStands) {
    documents.push_back({u"DI000001"_s, u"Insécable"_s});
    numeros.push_back({u"DI000001"_s, u"A.\u00a07"_s});
    ouvre();
    EXPECT_EQ(trouves(u"a.\u00a07"_s), QStringList{u"DI000001"_s});
}

TEST_F(RechercheNumeroTest, AccentsNeitherHideNorJoinNumbers) {
    documents.push_back({u"DI000001"_s, u"Un"_s});
    documents.push_back({u"DI000002"_s, u"Deux"_s});
    documents.push_back({u"DI000003"_s, u"Trois"_s});
    numeros.push_back({u"DI000001"_s, u"annexe a-1"_s});
    numeros.push_back({u"DI000002"_s, u"Annexe à l’article"_s});
    numeros.push_back({u"DI000003"_s, u"ANNEXE À"_s});
    ouvre();
    EXPECT_EQ(trouves(u"Annexe a*"_s), QStringList{u"DI000001"_s}) << "the other one stands before it";
    EXPECT_EQ(trouves(u"annexe à*"_s), (QStringList{u"DI000003"_s, u"DI000002"_s}));
    EXPECT_EQ(trouves(u"annexe à"_s), QStringList{u"DI000003"_s});
    EXPECT_EQ(trouves(u"Annexe*"_s).size(), 4);
}

TEST_F(RechercheNumeroTest, VeryLongNumbersAndOddSignsAreLookedForLikeAnyOther) {
    const QString longue = u"L. "_s + QString(252, u'1');
    documents.push_back({u"DI000001"_s, u"Long"_s});
    numeros.push_back({u"DI000001"_s, longue});
    ouvre();
    EXPECT_EQ(longue.size(), 255);
    EXPECT_EQ(trouves(longue), QStringList{u"DI000001"_s});
    EXPECT_EQ(trouves(u"L"_s + QString(252, u'1')), QStringList{u"DI000001"_s});
    EXPECT_EQ(trouves(QString(255, u'*')), QStringList());
    for (const QString& texte : {u"'"_s, u"\""_s, u"%"_s, u"_"_s, u"L. 121-1' OR 'a'='a"_s, u"a\nb"_s, u"?1"_s})
        EXPECT_EQ(trouves(texte), QStringList()) << qPrintable(texte);
}

TEST_F(RechercheNumeroTest, TheSearchGoesStepByStepAndEndsWhereTheBaseIsClosed) {
    for (int i = 0; i < 3'000; ++i)
        numeros.push_back({u"CL000003"_s, u"M. %1"_s.arg(i)});
    ouvre();
    RechercheNumero recherche(corpus, {u"M*"_s});
    EXPECT_EQ(recherche.part(), 0);
    int pas = 1;
    double avant = 0;
    for (; !recherche.avance(); ++pas) {
        EXPECT_GE(recherche.part(), avant);
        EXPECT_LE(recherche.part(), 1);
        avant = recherche.part();
    }
    EXPECT_GT(pas, 3);
    EXPECT_GT(avant, 0.5);
    EXPECT_EQ(recherche.documents().nombre(), 3'000U);
    RechercheNumero coupee(corpus, {u"M*"_s});
    EXPECT_FALSE(coupee.avance());
    EXPECT_FALSE(coupee.avance());
    corpus.fermebase();
    EXPECT_TRUE(coupee.avance());
}

TEST_F(RechercheNumeroTest, ABaseWithoutTheTableIsNoticedAtTheFirstSearch) {
    ouvre();
    corpus.fermebase();
    {
        auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(u"DROP TABLE generelien"_s));
    }
    ASSERT_EQ(corpus.connecte(dossier.filePath(u"velm2000.dat"_s)), OpenError::None);
    corpus.ouvretables();
    const GardeArret garde;
    EXPECT_THROW(trouves(u"1382"_s), Arret);
}

TEST_F(RechercheNumeroTest, NumbersWithoutTheirKeysAreFoundAllTheSame) {
    ouvre();
    const QStringList avant = trouves(u"L. 121*"_s);
    corpus.fermebase();
    {
        auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_TRUE(base.database->execute(u"DROP TABLE generelien"_s));
        ASSERT_TRUE(base.database->execute(u"CREATE TABLE generelien(id INTEGER PRIMARY KEY, référence TEXT, "
                                           "numart TEXT, numarticle TEXT, numtitre TEXT, titre TEXT)"_s));
        for (const NumeroCite& n : numeros)
            ASSERT_TRUE(base.database->execute(u"INSERT INTO generelien(référence, numart, numarticle) VALUES('%1', "
                                               "'%2', '%3')"_s.arg(n.cle.left(2), n.cle.mid(2), n.numarticle)));
    }
    ASSERT_EQ(corpus.connecte(dossier.filePath(u"velm2000.dat"_s)), OpenError::None);
    corpus.ouvretables();
    EXPECT_EQ(trouves(u"L. 121*"_s), avant);
    EXPECT_EQ(trouves(u"L121-1"_s), (QStringList{u"CO000001"_s, u"EU000001"_s}));
}

TEST_F(RechercheNumeroTest, TheListReadsItsRowsAsTheyAreWantedAndSortsThem) {
    ouvre();
    ListeNumero liste(corpus, {u"L. 121*"_s});
    EXPECT_EQ(liste.rowCount(), 0) << "until it is filled";
    acheve(*liste.remplissage());
    ASSERT_EQ(liste.rowCount(), 3);
    EXPECT_EQ(liste.text(1, ListeNumero::NumeroArticle), u"l. 121-1");
    EXPECT_EQ(liste.text(1, ListeNumero::Titre), u"Article L. 121-1 bis");
    EXPECT_EQ(liste.cle(1), decoupecle(u"EU000001"));
    EXPECT_EQ(liste.text(3, 0), QString());
    EXPECT_EQ(liste.text(0, ListeNumero::nombredechamps), QString());
    EXPECT_TRUE(liste.sort(ListeNumero::NumeroTexte, true));
    EXPECT_EQ(liste.cle(0), decoupecle(u"CO000001")) << "equal ones keep their order";
    EXPECT_EQ(liste.cle(2), decoupecle(u"EU000001"));
    EXPECT_FALSE(liste.sort(-1, false));
    corpus.fermebase();
    EXPECT_EQ(liste.cle(0), decoupecle(u"CO000001")) << "it was read before";
    EXPECT_TRUE(liste.cle(1).vide());
}
