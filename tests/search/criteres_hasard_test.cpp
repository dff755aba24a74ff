// Random criteria over a whole collection, the sample that comes with the program and the real one: the search, with
// the folded texts and without, finds what a plain model finds that holds all documents in memory and knows of no short
// cut.
#include "collection/collection.h"
#include "platform/richtext/rtf.h"
#include "platform/text/ansi.h"
#include "platform/text/letters.h"
#include "search/recherchecriteres.h"
#include "search/remplacecodes.h"
#include "tests/search/recherche_support.h"
#include "tests/support/rounds.h"

#include <QDate>
#include <QFile>

#include <random>

using namespace velm;
using namespace velm::test;

namespace {

struct DocumentModele {
    QString cle, titre, source, type, date, corps, corpsmaj;
    std::array<QString, 3> motcle;
};

bool lettre(const QString& texte, qsizetype place) {
    return place >= 0 && place < texte.size() && texte.at(place).isLetterOrNumber();
}

bool dans(const QString& texte, const QString& cherche, bool entier) {
    for (qsizetype place = texte.indexOf(cherche); place >= 0; place = texte.indexOf(cherche, place + 1)) {
        if (!entier || (!lettre(texte, place - 1) && !lettre(texte, place + cherche.size())))
            return true;
    }
    return false;
}

/// The wording of the test, criterion by criterion.
class Modele {
public:
    Modele(const Criteres& criteres, const TypesDocument& types) : c_(criteres), types_(types) {
        for (std::size_t i = 0; i < 2; ++i) {
            textes_[i] = remplacecodes(criteres.texterech[i]);
            majuscules_[i] = upperCase(textes_[i]);
        }
    }

    bool passe(const DocumentModele& d) const {
        if (!c_.motcle.isEmpty() && d.motcle[0] != c_.motcle && d.motcle[1] != c_.motcle && d.motcle[2] != c_.motcle)
            return false;
        if (c_.type != 0 && d.type != types_.combotype.at(c_.type - 1))
            return false;
        if (!bonnedate(d.date))
            return false;
        if (!c_.emplacement[0] && !c_.emplacement[1] && !c_.emplacement[2])
            return true;
        if (textes_[0].isEmpty())
            return true;
        const bool premier = trouve(d, 0) != (c_.prefixe == 1);
        if (!premier)
            return false;
        if (textes_[1].isEmpty())
            return true;
        const bool second = trouve(d, 1);
        switch (c_.conjonction) {
        case Criteres::Et:
            return premier && second;
        case Criteres::Ou:
            return premier || second;
        case Criteres::Sauf:
            return premier && !second;
        default:
            return premier || !second;
        }
    }

private:
    bool bonnedate(const QString& texte) const {
        const int jour = c_.textejour.toInt();
        const int mois = c_.textemois.toInt();
        const int annee = c_.texteannee.toInt();
        if (texte.isEmpty())
            return jour == 0 && mois == 0 && annee == 0;
        const QStringList parties = texte.split(u'-');
        return (jour == 0 || parties.at(2).toInt() == jour) && (mois == 0 || parties.at(1).toInt() == mois) &&
               (annee == 0 || parties.at(0).toInt() == annee);
    }

    bool trouve(const DocumentModele& d, std::size_t i) const {
        const bool casse = c_.respectminmaj[i];
        if (c_.emplacement[1] &&
            dans(casse ? d.corps : d.corpsmaj, casse ? textes_[i] : majuscules_[i], c_.motentier[i]))
            return true;
        const auto champ = [&](const QString& texte) {
            return casse ? texte.contains(textes_[i]) : upperCase(texte).contains(majuscules_[i]);
        };
        return (c_.emplacement[0] && champ(d.titre)) || (c_.emplacement[2] && champ(d.source));
    }

    const Criteres& c_;
    const TypesDocument& types_;
    std::array<QString, 2> textes_;
    std::array<QString, 2> majuscules_;
};

class CriteresHasardTest : public BaseRecherche {
protected:
    void lit() {
        const auto lignes = corpus.base().openQuery(
            u"SELECT référence, numart, titre, motclé1, motclé2, motclé3, Source, typededocument, Date, contenu "
            "FROM données JOIN données_contenu ON données_contenu.id=données.id"_s);
        ASSERT_NE(lignes, nullptr);
        for (; !lignes->eof(); lignes->moveNext()) {
            DocumentModele d;
            d.cle = lignes->text(0) + lignes->text(1);
            d.titre = lignes->text(2);
            d.motcle = {lignes->text(3), lignes->text(4), lignes->text(5)};
            d.source = lignes->text(6);
            d.type = lignes->text(7);
            d.date = lignes->text(8);
            d.corps = rtfToText(ansi::encode(lignes->text(9)), RtfLoad::Whole);
            d.corpsmaj = upperCase(d.corps);
            collections[indicedetype(d.cle.left(2))].push_back(std::move(d));
        }
        for (auto& [indice, pieces] : collections)
            std::sort(pieces.begin(), pieces.end(),
                      [](const DocumentModele& a, const DocumentModele& b) { return a.cle < b.cle; });
    }

    int nombre(int sous) { return std::uniform_int_distribution<int>(0, sous - 1)(moteur); }
    bool unefois(int sur) { return nombre(sur) == 0; }
    const DocumentModele& quelconque() {
        auto un = collections.begin();
        std::advance(un, nombre(static_cast<int>(collections.size())));
        return un->second[static_cast<std::size_t>(nombre(static_cast<int>(un->second.size())))];
    }

    /// A stretch of some document, as it stands or nearly so.
    QString texte() {
        const DocumentModele& d = quelconque();
        const QString& dou = unefois(6) ? d.titre : unefois(8) ? d.source : d.corps;
        if (dou.isEmpty())
            return u"consommateur"_s;
        constexpr int court = 5;
        constexpr int longue = 30;
        QString morceau = dou.mid(nombre(static_cast<int>(dou.size())), 1 + nombre(unefois(2) ? court : longue));
        if (unefois(3)) {
            // Whole words of it.
            const QStringList entiers = dou.simplified().split(u' ');
            morceau = entiers.mid(nombre(static_cast<int>(entiers.size())), 1 + nombre(3)).join(u' ');
        }
        if (unefois(3))
            morceau = unefois(2) ? morceau.toUpper() : morceau.toLower();
        if (unefois(20))
            morceau += u"zqx"_s;
        if (unefois(20))
            morceau.replace(u'e', u'Ł');
        return morceau.replace(u"\r\n"_s, u"^p"_s).replace(u'\t', u"^t"_s);
    }

    Criteres hasard(const TypesDocument& types) {
        Criteres c;
        const DocumentModele& d = quelconque();
        if (unefois(6))
            c.motcle = d.motcle[static_cast<std::size_t>(nombre(3))];
        if (unefois(6))
            c.type = nombre(static_cast<int>(types.combotype.size()) + 1);
        const QDate date = QDate::fromString(d.date, Qt::ISODate);
        if (date.isValid() && unefois(5)) {
            c.texteannee = QString::number(date.year());
            c.textemois = unefois(2) ? QString::number(date.month()) : QString();
            c.textejour = unefois(3) ? QString::number(date.day()) : QString();
        }
        if (!unefois(10))
            c.texterech[0] = texte();
        if (unefois(2))
            c.texterech[1] = texte();
        for (std::size_t i = 0; i < 2; ++i) {
            c.motentier[i] = unefois(3);
            c.respectminmaj[i] = unefois(3);
        }
        for (bool& place : c.emplacement)
            place = unefois(2);
        if (!unefois(4))
            c.emplacement[Criteres::Contenu] = true;
        c.prefixe = unefois(5) ? 1 : 0;
        c.conjonction = nombre(4);
        return c;
    }

    /// Mostly some of the collections, as most searches through all of them look alike.
    QByteArray lettreshasard() {
        const QByteArray toutes = touteslettres();
        if (unefois(8))
            return toutes;
        QByteArray lettres;
        for (const char une : toutes) {
            if (unefois(4))
                lettres += une;
        }
        return lettres;
    }

    QStringList attendus(const Criteres& criteres, const TypesDocument& types, const QByteArray& lettres) {
        const Modele modele(criteres, types);
        QStringList trouves;
        for (const char une : lettres) {
            const auto pieces = collections.find(indicedetype(codedelalettre(une)));
            if (pieces == collections.end())
                continue;
            for (const DocumentModele& d : pieces->second) {
                if (modele.passe(d))
                    trouves << d.cle;
            }
        }
        return trouves;
    }

    void ouvre(const QString& source) {
        const QString chemin = dossier.filePath(u"velm2000.dat"_s);
        ASSERT_TRUE(compile(source, chemin).faite());
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
        lit();
    }

    static bool longue() { return qEnvironmentVariableIntValue("VELM_LONG") != 0; }
    /// So many criteria, from the first on that a seed gives.
    void compare(int combien, unsigned graine);

    std::map<int, std::vector<DocumentModele>> collections;
    std::mt19937 moteur;
};

void CriteresHasardTest::compare(int combien, unsigned graine) {
    const TypesDocument types = littypesdocument(corpus);
    moteur.seed(graine);
    Marche marche;
    RechercheCriteres plies(corpus, marche);
    RechercheCriteres corps(corpus, marche);
    corps.sanstable(true);
    Resultat& resultat = liste.resultat();
    int nonvides = 0;
    for (int i = 0; i < combien; ++i) {
        Criteres c = hasard(types);
        avancetexte(c);
        const QByteArray lettres = lettreshasard();
        const QStringList juste = attendus(c, types, lettres);
        nonvides += juste.isEmpty() ? 0 : 1;
        const auto decrit = [&] {
            return QStringList{c.motcle,
                               QString::number(c.type),
                               c.textejour,
                               c.textemois,
                               c.texteannee,
                               c.texterech[0],
                               c.texterech[1],
                               QString::number(c.conjonction),
                               QString::number(c.prefixe),
                               QString::fromLatin1(lettres)}
                .join(u'|')
                .toStdString();
        };
        Criteres essai = c;
        liste.vide();
        plies.cherche(essai, types, lettres, resultat);
        ASSERT_EQ(cles(), juste) << i << ": " << decrit();
        essai = c;
        liste.vide();
        corps.cherche(essai, types, lettres, resultat);
        ASSERT_EQ(cles(), juste) << i << ", without folded texts: " << decrit();
        if (!unefois(4))
            continue;
        // Narrowing by other criteria keeps what both find.
        Criteres autres = hasard(types);
        avancetexte(autres);
        QStringList restants;
        const QStringList passent = attendus(autres, types, lettres);
        const QSet<QString> deux(passent.begin(), passent.end());
        for (const QString& cle : juste) {
            if (deux.contains(cle))
                restants << cle;
        }
        (unefois(2) ? plies : corps).affine(autres, types, resultat);
        ASSERT_EQ(cles(), restants) << i << ", narrowed: " << decrit();
    }
    // Criteria that find nothing prove little.
    EXPECT_GT(nonvides, combien / 3);
}

} // namespace

TEST_F(CriteresHasardTest, FoldedTextsBodiesAndAPlainModelFindTheSameInTheSample) {
    ASSERT_NO_FATAL_FAILURE(ouvre(QStringLiteral(VELM_SOURCE_DIR "/collection/exemple")));
    ASSERT_EQ(collections.size(), static_cast<std::size_t>(nombredecollections));
    compare(longue() ? 20'000 : test::rounds(1'000), longue() ? 2004 : 4);
}

TEST_F(CriteresHasardTest, FoldedTextsBodiesAndAPlainModelFindTheSameInTheRealCollection) {
    if (oneInHowMany > 1)
        GTEST_SKIP() << "under the sanitizers the sample suffices";
    const QString source = QStringLiteral(VELM_SOURCE_DIR "/../shared/corpus");
    if (!QFile::exists(source + u"/documents.jsonl"_s))
        GTEST_SKIP() << "the real collection is not at hand";
    ASSERT_NO_FATAL_FAILURE(ouvre(source));
    compare(longue() ? 10'000 : 150, longue() ? 2004 : 4);
}
