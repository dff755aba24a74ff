// The search by number: its forms, its stars, and the walk across the collections, held against the walk word for word.
#include "collection/collection.h"
#include "platform/text/letters.h"
#include "search/recherchenumero.h"
#include "tests/search/recherche_support.h"

#include <QFile>

#include <random>

using namespace velm;
using namespace velm::test;

namespace {

using Numero = DemandeNumero::Champ;

/// A row of the numbers and one of the documents.
using Paires = std::vector<std::pair<qint64, qint64>>;

Paires cherche(const Corpus& corpus, const DemandeNumero& demande) {
    RechercheNumero recherche(corpus, demande);
    acheve(recherche);
    Paires paires;
    EXPECT_EQ(recherche.liens().nombre(), recherche.documents().nombre());
    for (std::size_t i = 0; i < recherche.liens().nombre(); ++i)
        paires.emplace_back(recherche.liens()[i], recherche.documents()[i]);
    return paires;
}

/// The search word for word: one row after the other from where the number would stand, until one is another; then the
/// two forms that an article's number may have besides.
class MarcheLitterale {
public:
    explicit MarcheLitterale(const Corpus& corpus) : liens_(corpus.generelien()), donnees_(corpus.donnees()) {}

    Paires cherche(const DemandeNumero& demande) {
        codes_ = demande.types.liste();
        const bool article = demande.champ == Numero::Article;
        liens_.setIndex(article ? u"primarykey"_s : u"inumtitre"_s);
        donnees_.setIndex(u"primarykey"_s);
        champ_ = article ? u"numarticle"_s : u"numtitre"_s;
        QString texte = demande.texte;
        for (formes = 1;; ++formes) {
            marche(texte);
            if (!article || !trouves_.empty() || chiffre(texte.front()))
                return trouves_;
            qsizetype i = 0;
            while (i < texte.size() && !chiffre(texte.at(i)))
                ++i;
            if (i == texte.size() || texte.at(i - 1) == u' ')
                return trouves_;
            texte = texte.left(i) + (texte.at(i - 1) == u'.' ? u' ' : u'.') + texte.mid(i);
        }
    }

    int formes = 0; ///< in how many the last number was looked for

private:
    static bool chiffre(QChar c) { return c >= u'0' && c <= u'9'; }

    void marche(const QString& texte) {
        trouves_.clear();
        const bool etoile = texte.endsWith(u'*');
        const QString p = upperCase(etoile ? texte.chopped(1) : texte);
        liens_.seek(Seek::GreaterOrEqual, p);
        while (!liens_.eof()) {
            const QString champ = upperCase(liens_.text(champ_));
            if (etoile ? champ.left(p.size()) != p : champ != p)
                break;
            if (codes_.contains(liens_.text(u"référence"_s))) {
                donnees_.seek(Seek::Equal, liens_.text(u"référence"_s), liens_.text(u"numart"_s));
                if (!donnees_.noMatch())
                    trouves_.emplace_back(liens_.bookmark().row, donnees_.bookmark().row);
            }
            liens_.moveNext();
        }
    }

    Recordset& liens_;
    Recordset& donnees_;
    QString champ_;
    QStringList codes_;
    Paires trouves_;
};

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

    void compare(const DemandeNumero& demande) {
        MarcheLitterale litterale(corpus);
        ASSERT_EQ(cherche(corpus, demande), litterale.cherche(demande))
            << qPrintable(demande.texte) << ' ' << qPrintable(demande.types.codes());
    }
};

} // namespace

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

TEST_F(RechercheNumeroTest, RandomNumbersAreFoundAsTheWalkWordForWordFindsThem) {
    std::mt19937 moteur(121);
    const auto nombre = [&moteur](int sous) { return std::uniform_int_distribution<int>(0, sous - 1)(moteur); };
    const QStringList lettres{u"L"_s, u"l"_s, u"R"_s, u"R*"_s, u"D"_s, QString(), u"Ann"_s};
    const QStringList liaisons{QString(), u"."_s, u". "_s, u" "_s};
    const auto numero = [&] {
        QString un = lettres.at(nombre(7)) + liaisons.at(nombre(4)) + QString::number(nombre(12));
        return nombre(2) == 0 ? un : un + u'-' + QString::number(nombre(12));
    };
    const QStringList codes{u"CO"_s, u"EU"_s, u"CL"_s, u"DI"_s};
    documents.clear();
    numeros.clear();
    for (int i = 1; i <= 600; ++i) {
        const QString cle = codes.at(nombre(4)) + sixchiffres(i);
        if (nombre(10) != 0)
            documents.push_back({cle, u"Titre"_s});
        numeros.push_back({cle, nombre(20) == 0 ? QString() : numero(), nombre(4) == 0 ? QString() : numero()});
    }
    ouvre();
    int nonvides = 0;
    for (int i = 0; i < 4'000; ++i) {
        DemandeNumero demande{numero(), nombre(3) == 0 ? Numero::Texte : Numero::Article, {}};
        if (nombre(3) == 0)
            demande.texte.truncate(1 + nombre(3));
        if (nombre(3) == 0)
            demande.texte += u'*';
        if (demande.texte != demande.texte.trimmed())
            continue;
        for (int collection = 0; collection < nombredecollections; ++collection)
            demande.types.change(collection, nombre(3) != 0);
        ASSERT_NO_FATAL_FAILURE(compare(demande));
        nonvides += cherche(corpus, demande).empty() ? 0 : 1;
    }
    EXPECT_GT(nonvides, 1'000) << "numbers that find nothing prove little";
}

TEST_F(RechercheNumeroTest, TheNumbersOfTheRealCollectionAreFoundAsTheWalkWordForWordFindsThem) {
    const QString source = QStringLiteral(VELM_SOURCE_DIR "/../shared/corpus");
    if (!QFile::exists(source + u"/documents.jsonl"_s))
        GTEST_SKIP() << "the real collection is not at hand";
    const QString chemin = dossier.filePath(u"reelle.dat"_s);
    ASSERT_TRUE(compile(source, chemin, {}, false).faite());
    ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
    corpus.ouvretables();
    for (const Numero champ : {Numero::Article, Numero::Texte}) {
        const auto lignes = corpus.base().openQuery(
            champ == Numero::Article ? u"SELECT DISTINCT numarticle FROM generelien WHERE numarticle<>''"_s
                                     : u"SELECT DISTINCT numtitre FROM generelien WHERE numtitre<>''"_s);
        ASSERT_NE(lignes, nullptr);
        int combien = 0;
        for (; !lignes->eof(); lignes->moveNext(), ++combien) {
            const QString numero = lignes->text(0);
            QString sanspoint = numero;
            sanspoint.remove(u'.').remove(u' ');
            ASSERT_NO_FATAL_FAILURE(compare({lowerCase(numero), champ, TypesChoisis::decodes(u"CO")}));
            // What begins so is much, each time.
            constexpr int quelquefois = 40;
            if (combien % quelquefois == 0) {
                ASSERT_NO_FATAL_FAILURE(compare({sanspoint, champ}));
                ASSERT_NO_FATAL_FAILURE(compare({numero.left(4) + u'*', champ}));
            }
            ASSERT_FALSE(cherche(corpus, {numero, champ}).empty()) << qPrintable(numero);
        }
        EXPECT_GT(combien, 100);
    }
}
