// The search by number held against the walk word for word: random numbers, and those of the real collection.
#include "collection/collection.h"
#include "platform/text/letters.h"
#include "tests/search/recherchenumero_support.h"
#include "tests/support/rounds.h"

#include <QFile>

#include <random>

using namespace velm;
using namespace velm::test;

namespace {

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

class RechercheNumeroHasardTest : public RechercheNumeroTest {
protected:
    void compare(const DemandeNumero& demande) {
        MarcheLitterale litterale(corpus);
        ASSERT_EQ(cherche(corpus, demande), litterale.cherche(demande))
            << qPrintable(demande.texte) << ' ' << qPrintable(demande.types.codes());
    }
};

} // namespace

TEST_F(RechercheNumeroHasardTest, RandomNumbersAreFoundAsTheWalkWordForWordFindsThem) {
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
    for (int i = 0; i < velm::test::rounds(4'000); ++i) {
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
    EXPECT_GT(nonvides, velm::test::rounds(1'000)) << "numbers that find nothing prove little";
}

TEST_F(RechercheNumeroHasardTest, TheNumbersOfTheRealCollectionAreFoundAsTheWalkWordForWordFindsThem) {
    if (velm::test::oneInHowMany > 1)
        GTEST_SKIP() << "under the sanitizers made-up numbers suffice";
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
