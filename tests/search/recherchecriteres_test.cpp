// The criteria search on a small base, with the folded texts and without.
#include "tests/search/criteres_support.h"
#include "tests/support/without_rights.h"

#include <QFile>

using namespace velm;
using namespace velm::test;

namespace {

class RechercheCriteresTest : public BaseCriteres, public testing::WithParamInterface<bool> {
protected:
    void ouvre() { ouvrepieces(GetParam()); }

    void petite() {
        pieces = {{u"CO000001"_s,
                   u"Garantie légale"_s,
                   u"Le vendeur répond du défaut. {T=CO000002}renvoi{-T}"_s,
                   {u"vente"_s, u"Défaut"_s, u"recours"_s},
                   u"Journal officiel"_s,
                   u"2004-02-28"_s,
                   u"Loi"_s},
                  {u"CO000002"_s,
                   u"Crédit"_s,
                   u"Les intérêts\nCourent.\tToujours"_s,
                   {u"prêt"_s},
                   u"Bulletin"_s,
                   u"1998-12-31"_s,
                   u"7"_s},
                  {u"CO000003"_s, QString(), QString()},
                  {u"EU000001"_s,
                   u"Directive"_s,
                   u"La GARANTIE du consommateur"_s,
                   {u"recours"_s},
                   u"JOCE"_s,
                   u"1999-02-01"_s,
                   u"40"_s},
                  {u"AD000001"_s, u"Autre"_s, u"garanties diverses, défaut"_s, {}, QString(), QString(), u"Arrêt"_s}};
        ouvre();
    }
    void texte(const QString& premier, const QString& second = {}, int conjonction = Criteres::Et) {
        criteres.texterech = {premier, second};
        criteres.conjonction = conjonction;
    }
    void lieux(bool titre, bool contenu, bool source) { criteres.emplacement = {titre, contenu, source}; }
    /// `nombre` documents of CO; "pair" stands in every second body.
    void beaucoup(int nombre) {
        for (int i = 1; i <= nombre; ++i)
            pieces.push_back(
                {u"CO"_s + sixchiffres(i), u"Titre %1"_s.arg(i), i % 2 == 0 ? u"Un mot pair."_s : u"Rien."_s});
        ouvre();
    }
};

QStringList liste(std::initializer_list<QString> cles) {
    return {cles};
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Textes, RechercheCriteresTest, testing::Values(true, false),
                         [](const auto& cas) { return std::string(cas.param ? "Plies" : "Corps"); });

TEST_P(RechercheCriteresTest, NoCriterionListsEveryDocumentOfThePressedTypes) {
    petite();
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"CO000002"_s, u"CO000003"_s, u"EU000001"_s, u"AD000001"_s}));
    EXPECT_EQ(trouve("AH"), ::liste({u"CO000001"_s, u"CO000002"_s, u"CO000003"_s, u"AD000001"_s}));
    EXPECT_EQ(trouve("H"), ::liste({u"AD000001"_s}));
}

TEST_P(RechercheCriteresTest, NoTypePressedWalksNothing) {
    petite();
    liste.mot1 = u"avant"_s;
    texte(u"garantie"_s);
    const ResultatCriteres resultat = cherche({});
    EXPECT_EQ(resultat.vus, 0);
    EXPECT_EQ(resultat.fin, (PublicationFin{false, true, false}));
    EXPECT_TRUE(progres.empty());
    EXPECT_EQ(panneau, QStringList(QString()));
    EXPECT_TRUE(liste.visible);
    EXPECT_EQ(liste.mot1, u"avant");
    EXPECT_EQ(cherche("C").vus, 0);
}

TEST_P(RechercheCriteresTest, TheKeywordMustEqualOneOfTheThree) {
    petite();
    criteres.motcle = u"recours"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s}));
    criteres.motcle = u"Défaut"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    for (const QString& autre : {u"défaut"_s, u"Défau"_s, u"cours"_s}) {
        criteres.motcle = autre;
        EXPECT_TRUE(trouve().isEmpty()) << qPrintable(autre);
    }
}

TEST_P(RechercheCriteresTest, TheKindMustMatch) {
    petite();
    ASSERT_EQ(types.combotype, ::liste({u"Loi"_s, u"Arrêt"_s}));
    criteres.type = 1;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s}));
    criteres.type = 2;
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s, u"AD000001"_s}));
}

TEST_P(RechercheCriteresTest, DayMonthAndYearAreTestedOneByOne) {
    petite();
    criteres.textemois = u"2"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s}));
    criteres.texteannee = u"1999"_s;
    EXPECT_EQ(trouve(), ::liste({u"EU000001"_s}));
    criteres.textejour = u"28"_s;
    EXPECT_TRUE(trouve().isEmpty());
    criteres.texteannee.clear();
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
}

TEST_P(RechercheCriteresTest, ADayOf31InMonth2FindsNothing) {
    petite();
    criteres.textejour = u"31"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s}));
    criteres.textemois = u"2"_s;
    EXPECT_TRUE(trouve().isEmpty());
}

TEST_P(RechercheCriteresTest, ANullDateFailsOnlyWhenADateIsAsked) {
    petite();
    texte(u"défaut"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"AD000001"_s}));
    criteres.texteannee = u"2004"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    criteres.texteannee = u"0"_s;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"AD000001"_s}));
}

TEST_P(RechercheCriteresTest, ATextIsFoundInBodyTitleOrSourceAsTicked) {
    petite();
    texte(u"garantie"_s);
    lieux(true, false, false);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    lieux(false, true, false);
    EXPECT_EQ(trouve(), ::liste({u"EU000001"_s, u"AD000001"_s}));
    lieux(true, true, false);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s, u"AD000001"_s}));
    texte(u"jo"_s);
    lieux(false, false, true);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s}));
}

TEST_P(RechercheCriteresTest, MatchCaseAppliesEverywhere) {
    petite();
    criteres.respectminmaj[0] = true;
    texte(u"garantie"_s);
    EXPECT_EQ(trouve(), ::liste({u"AD000001"_s}));
    texte(u"GARANTIE"_s);
    EXPECT_EQ(trouve(), ::liste({u"EU000001"_s}));
    texte(u"légale"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    texte(u"joce"_s);
    EXPECT_TRUE(trouve().isEmpty());
    texte(u"JOCE"_s);
    EXPECT_EQ(trouve(), ::liste({u"EU000001"_s}));
}

TEST_P(RechercheCriteresTest, WholeWordAppliesToTheBodyOnly) {
    petite();
    criteres.motentier[0] = true;
    texte(u"garantie"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s}));
    texte(u"aranti"_s);
    lieux(true, false, false);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    lieux(false, true, false);
    EXPECT_TRUE(trouve().isEmpty());
    texte(u"ournal"_s);
    lieux(false, false, true);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
}

TEST_P(RechercheCriteresTest, NoPlaceTickedFiltersNothingButSetsTheWords) {
    petite();
    texte(u"zyx"_s, u"w^tv"_s);
    lieux(false, false, false);
    EXPECT_EQ(trouve().size(), 5);
    EXPECT_EQ(liste.mot1, u"zyx");
    EXPECT_EQ(liste.mot2, u"w\tv");
}

TEST_P(RechercheCriteresTest, NegationKeepsTheDocumentsWithoutTheFirstText) {
    petite();
    criteres.prefixe = 1;
    texte(u"garantie"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s, u"CO000003"_s}));
    texte(u"garantie"_s, u"toujours"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s}));
    texte(u"garantie"_s, u"toujours"_s, Criteres::Sauf);
    EXPECT_EQ(trouve(), ::liste({u"CO000003"_s}));
    texte(QString());
    EXPECT_EQ(trouve().size(), 5);
}

TEST_P(RechercheCriteresTest, TheTextsCombine) {
    petite();
    texte(u"défaut"_s, u"garantie"_s, Criteres::Et);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"AD000001"_s}));
    // The first text is enough; the second alone is not.
    texte(u"intérêts"_s, u"garantie"_s, Criteres::Ou);
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s}));
    texte(u"défaut"_s, u"diverses"_s, Criteres::Sauf);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    texte(u"défaut"_s, u"diverses"_s, Criteres::OuSauf);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"AD000001"_s}));
}

TEST_P(RechercheCriteresTest, TheSecondTextAloneMovesToTheFirstBoxItsOptionsStay) {
    petite();
    texte(QString(), u"garantie"_s, Criteres::Sauf);
    criteres.respectminmaj = {false, true};
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s, u"EU000001"_s, u"AD000001"_s}));
    EXPECT_EQ(criteres.texterech[0], u"garantie");
    EXPECT_TRUE(criteres.texterech[1].isEmpty());
    EXPECT_EQ(liste.mot1, u"garantie");
    EXPECT_TRUE(liste.mot2.isEmpty());
}

TEST_P(RechercheCriteresTest, APrivateTokenIsSearchedAsText) {
    petite();
    lieux(false, true, false);
    texte(u"{T=CO000002}renvoi"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
    texte(u"t=co"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
}

TEST_P(RechercheCriteresTest, CodesAreReplacedEverywhere) {
    petite();
    texte(u"intérêts^pcourent.^ttou"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000002"_s}));
    EXPECT_EQ(liste.mot1, u"intérêts\r\ncourent.\ttou");
}

TEST_P(RechercheCriteresTest, AccentsCountCaseDoesNotAndForeignLettersAreFound) {
    pieces = {{u"CO000001"_s, u"a"_s, u"Łódź žlutý \u0416\u0436 x"_s},
              {u"CO000002"_s, u"b"_s, u"?ód? ÉTÉ œuvre ŒUVRE"_s}};
    ouvre();
    lieux(false, true, false);
    for (const QString& mot : {u"łódź"_s, u"ŽLUTÝ"_s, u"\u0436\u0416"_s}) {
        texte(mot);
        EXPECT_EQ(trouve(), ::liste({u"CO000001"_s})) << qPrintable(mot);
    }
    for (const QString& mot : {u"?ód?"_s, u"été"_s, u"œuvre œuvre"_s}) {
        texte(mot);
        EXPECT_EQ(trouve(), ::liste({u"CO000002"_s})) << qPrintable(mot);
    }
    texte(u"ete"_s);
    EXPECT_TRUE(trouve().isEmpty());
    // Letters that the code page lacks look alike when folded; the body tells them apart.
    texte(u"žódź"_s);
    EXPECT_TRUE(trouve().isEmpty());
}

TEST_P(RechercheCriteresTest, ALaterHitCountsWhenTheFirstIsNone) {
    pieces = {{u"CO000001"_s, u"a"_s, u"porteur, Port, port"_s}, {u"CO000002"_s, u"b"_s, u"porteur reporter"_s}};
    ouvre();
    lieux(false, true, false);
    texte(u"port"_s);
    criteres.motentier[0] = criteres.respectminmaj[0] = true;
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
}

TEST_P(RechercheCriteresTest, HitsComeInTypeOrderThenNumberOrder) {
    pieces = {{u"DI000001"_s, u"x"_s},
              {u"EU000002"_s, u"x"_s},
              {u"CO000009"_s, u"x"_s},
              {u"EU000001"_s, u"x"_s},
              {u"CO000010"_s, u"x"_s}};
    ouvre();
    texte(u"x"_s);
    EXPECT_EQ(trouve(), ::liste({u"CO000009"_s, u"CO000010"_s, u"EU000001"_s, u"EU000002"_s, u"DI000001"_s}));
}

TEST_P(RechercheCriteresTest, ARowHoldsTheFieldsOfItsDocument) {
    petite();
    texte(u"garantie"_s);
    cherche();
    ASSERT_EQ(liste.rows(), 4);
    EXPECT_EQ(liste.champ(1, ListeSelection::Titre), u"Garantie légale");
    EXPECT_EQ(liste.champ(1, ListeSelection::Motcle2), u"Défaut");
    EXPECT_EQ(liste.champ(1, ListeSelection::Reference), u"CO");
    EXPECT_EQ(liste.champ(1, ListeSelection::Numart), u"000001");
    EXPECT_EQ(liste.champ(3, ListeSelection::Motcle1), QString());
    EXPECT_EQ(panneau.last(), u" 3 documents");
    texte(u"vendeur"_s);
    cherche();
    EXPECT_EQ(panneau.last(), u" 1 document");
}

TEST_P(RechercheCriteresTest, NarrowingKeepsTheRowsThatPass) {
    petite();
    cherche();
    liste.trie(0);
    const QStringList avant = cles();
    texte(u"garantie"_s);
    const ResultatCriteres resultat = affine();
    EXPECT_EQ(resultat.vus, 5);
    EXPECT_EQ(resultat.hits, 3);
    QStringList attendus = avant;
    attendus.removeAll(u"CO000002"_s);
    attendus.removeAll(u"CO000003"_s);
    EXPECT_EQ(cles(), attendus);
    EXPECT_EQ(panneau.last(), u" 3 documents");
    EXPECT_EQ(progres.back(), (std::pair<qint64, qint64>(4, 5)));
    EXPECT_EQ(liste.marque(0), ListeSelection::Marque::Aucune);
    texte(u"consommateur"_s);
    affine();
    EXPECT_EQ(cles(), ::liste({u"EU000001"_s}));
    EXPECT_EQ(panneau.last(), u" 1 document");
}

TEST_P(RechercheCriteresTest, NarrowingTheLastRowEmptiesTheList) {
    petite();
    texte(u"vendeur"_s);
    cherche();
    ASSERT_EQ(liste.rows(), 2);
    texte(u"absent"_s);
    EXPECT_EQ(affine().fin, (PublicationFin{false, true, false}));
    EXPECT_EQ(liste.rows(), 1);
    EXPECT_EQ(panneau.last(), u" 0 document");
    EXPECT_TRUE(liste.visible);
}

TEST_P(RechercheCriteresTest, NarrowingARowWhoseDocumentIsGoneUsesTheCurrentRecord) {
    petite();
    for (const QString& cle : {u"CO000077"_s, u"EU000001"_s, u"CO000099"_s, u"CO000002"_s, u"ZZ"_s})
        liste.ajouteauflex({cle.left(2), cle.mid(2), {}, {}, {}, {}, cle});
    corpus.donnees().setIndex(u"primarykey"_s);
    corpus.donnees().seek(Seek::Equal, u"AD"_s, u"000001"_s);
    texte(u"garantie"_s);
    affine();
    // Tested on AD 1, on itself, on EU 1, on itself and on CO 2.
    EXPECT_EQ(cles(), ::liste({u"CO000077"_s, u"EU000001"_s, u"CO000099"_s}));
}

TEST_P(RechercheCriteresTest, NarrowingARowWhoseDocumentIsGoneWithoutACurrentRecordTestsAnEmptyOne) {
    petite();
    for (const QString& cle : {u"CO000077"_s, u"EU000001"_s})
        liste.ajouteauflex({cle.left(2), cle.mid(2), {}, {}, {}, {}, cle});
    corpus.donnees().moveLast();
    corpus.donnees().moveNext();
    texte(u"garantie"_s);
    affine();
    EXPECT_EQ(cles(), ::liste({u"EU000001"_s}));
}

TEST_P(RechercheCriteresTest, AStopKeepsTheRowsFound) {
    beaucoup(40);
    texte(u"pair"_s);
    evenement = [&] { etat.rechercheactive = liste.rows() < 8; };
    const ResultatCriteres resultat = cherche();
    EXPECT_TRUE(resultat.arretee);
    EXPECT_EQ(liste.rows(), 8);
    EXPECT_EQ(liste.cle(7), u"CO000014");
    EXPECT_TRUE(resultat.fin.resultatpresent);
    EXPECT_TRUE(etat.resultatpresent);
    EXPECT_FALSE(etat.rechercheactive);
    EXPECT_TRUE(liste.visible);
}

TEST_P(RechercheCriteresTest, AStopWhileNarrowingKeepsWhatWasNotTested) {
    beaucoup(40);
    cherche();
    texte(u"pair"_s);
    int tours = 0;
    evenement = [&] { etat.rechercheactive = ++tours < 11; };
    const ResultatCriteres resultat = affine();
    EXPECT_TRUE(resultat.arretee);
    EXPECT_EQ(resultat.vus, 10);
    EXPECT_EQ(liste.lignes(), 35);
    EXPECT_EQ(liste.cle(5), u"CO000010");
    EXPECT_EQ(liste.cle(6), u"CO000011");
    EXPECT_EQ(panneau.last(), u" 35 documents");
}

TEST_P(RechercheCriteresTest, TheListIsHiddenWhileItIsFilled) {
    beaucoup(10);
    evenement = [&] { EXPECT_FALSE(liste.visible); };
    cherche();
    EXPECT_TRUE(liste.visible);
    affine();
    EXPECT_TRUE(liste.visible);
}

TEST_P(RechercheCriteresTest, ThePositionOfTheWalkSurvivesAnEventInBetween) {
    beaucoup(60);
    texte(u"pair"_s);
    evenement = [&] {
        corpus.donnees().setIndex(u"idate"_s);
        corpus.donnees().moveLast();
        corpus.base().releaseLocks();
    };
    EXPECT_EQ(cherche().hits, 30);
    cherche();
    EXPECT_EQ(affine().hits, 30);
}

TEST_P(RechercheCriteresTest, ASearchThatBeginsMeanwhileEndsThisOne) {
    beaucoup(60);
    int tours = 0;
    Criteres autres;
    autres.texterech[0] = u"Titre 7"_s;
    evenement = [&] {
        if (++tours == 5)
            recherche().cherche(autres, types, touteslettres(), etat);
    };
    const ResultatCriteres resultat = cherche();
    EXPECT_TRUE(resultat.arretee);
    EXPECT_EQ(cles(), ::liste({u"CO000007"_s}));
    EXPECT_TRUE(liste.visible);
}

TEST_P(RechercheCriteresTest, TheBaseMayBeClosedByAnEventThatStopsTheSearch) {
    beaucoup(60);
    texte(u"pair"_s);
    evenement = [&] {
        if (liste.rows() > 4) {
            etat.rechercheactive = false;
            corpus.fermebase();
        }
    };
    EXPECT_TRUE(cherche().arretee);
    EXPECT_EQ(liste.rows(), 5);
}

TEST_P(RechercheCriteresTest, TheProgressBarNeverPassesItsMaximum) {
    beaucoup(40);
    texte(u"pair"_s);
    // The stored counts may lag behind the table.
    change(u"UPDATE paramètres SET nbarticles='000025'"_s);
    EXPECT_EQ(cherche().vus, 40);
    ASSERT_GT(progres.size(), 30U);
    EXPECT_EQ(progres.front(), (std::pair<qint64, qint64>(0, 25)));
    qint64 avant = 0;
    for (const auto& [vus, total] : progres) {
        EXPECT_LE(vus, total);
        EXPECT_GE(vus, avant);
        avant = vus;
        EXPECT_EQ(total, 25);
    }
}

TEST_P(RechercheCriteresTest, AFullGridEndsTheWalk) {
    beaucoup(40);
    liste.limitelignes(7);
    const ResultatCriteres resultat = cherche();
    EXPECT_EQ(resultat.hits, 7);
    EXPECT_EQ(liste.rows(), 8);
    EXPECT_FALSE(resultat.arretee);
    EXPECT_EQ(panneau.last(), u" 7 documents");
}

TEST_P(RechercheCriteresTest, BothCoresAndOneFindTheSame) {
    for (int i = 1; i <= 3000; ++i)
        pieces.push_back({u"CO"_s + sixchiffres(i), u"t"_s, QString::number(i * 7919 % 100'003).repeated(5)});
    ouvre();
    for (const QString& chiffres : {u"17"_s, u"99"_s, u"4242"_s}) {
        texte(chiffres);
        lieux(false, true, false);
        evenement = {};
        cherche();
        QStringList attendus;
        for (const Piece& p : pieces) {
            if (p.corps.contains(chiffres))
                attendus << p.cle;
        }
        EXPECT_EQ(cles(), attendus);
        ASSERT_FALSE(attendus.isEmpty());
    }
}

TEST_P(RechercheCriteresTest, AReadOnlyBaseIsSearchedToo) {
    beaucoup(200);
    const QString chemin = corpus.chemin();
    corpus.fermebase();
    constexpr QFile::Permissions lire = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    constexpr QFile::Permissions entrer = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    ASSERT_TRUE(QFile::setPermissions(chemin, lire));
    ASSERT_TRUE(QFile::setPermissions(dossier.path(), lire | entrer));
    {
        const WithoutRights sansdroits;
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        EXPECT_FALSE(corpus.updatable());
        corpus.ouvretables();
        texte(u"pair"_s);
        EXPECT_EQ(trouve().size(), 100);
        corpus.fermebase();
    }
    ASSERT_TRUE(QFile::setPermissions(dossier.path(), lire | entrer | QFile::WriteOwner));
}

TEST_P(RechercheCriteresTest, ABaseWithoutTheTableOfDocumentsIsARunTimeError) {
    petite();
    change(u"DROP TABLE données"_s);
    corpus.fermebase();
    ASSERT_EQ(corpus.connecte(dossier.filePath(u"pieces1.dat"_s)), OpenError::None);
    corpus.ouvretables();
    const GardeArret garde;
    EXPECT_THROW(cherche(), Arret);
}

TEST_P(RechercheCriteresTest, ATextAsLongAsABoxTakesIsSearched) {
    QString longue = u"été "_s.repeated(8191) + u"fin"_s;
    pieces = {{u"CO000001"_s, u"a"_s, longue}, {u"CO000002"_s, u"b"_s, longue.chopped(1)}};
    ouvre();
    texte(longue.toUpper());
    EXPECT_EQ(trouve(), ::liste({u"CO000001"_s}));
}
