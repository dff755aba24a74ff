#include "base_support.h"
#include "document/proprietes.h"

namespace velm::test {
namespace {

class ProprietesTest : public BaseDocument {
protected:
    void SetUp() override {
        BaseDocument::SetUp();
        types = {{u"Décret"_s, 3, 2}, {u"Loi organique"_s, 1, 1}, {u"Loi"_s, 2, 4}, {u"Arrêté"_s, 9, 3}};
        for (int i = 1; i <= 5; ++i) {
            noeuds.push_back({i, i - 1, u"EU"_s, 1, u"Niveau %1"_s.arg(i), 1});
            documents.push_back({u"EU00000%1"_s.arg(i), u"Document %1"_s.arg(i), i});
        }
        ouvre();
    }
    Proprietes proprietesde(const QString& cle, const DocumentAffiche& document) {
        return afficheproprietes(decoupecle(cle), u"Titre"_s, document, littypesdocument(corpus));
    }

    Parametres parametres;
    SablierMuet sablier;
    TreeNodes arbre;
    Arborescence arborescence{corpus, parametres, sablier, [](int) { return QString(); }};
};

TEST_F(ProprietesTest, EveryFieldOfTheDocumentIsShown) {
    const DocumentAffiche document{u"autre"_s, u"m1"_s,   u"m2"_s,   u"m3"_s,     u"JO"_s,
                                   u"2001"_s,  u"2002"_s, u"2003"_s, u"Décret"_s, u"17"_s};
    const Proprietes attendues{u"EU000004"_s,
                               u"000004"_s,
                               u"Titre"_s,
                               {u"m1"_s, u"m2"_s, u"m3"_s},
                               u"JO"_s,
                               u"2001"_s,
                               u"2002"_s,
                               u"2003"_s,
                               1,
                               1,
                               u"17"_s};
    EXPECT_EQ(proprietesde(u"EU000004"_s, document), attendues);
}

TEST_F(ProprietesTest, KindsStandInTheirOrder) {
    const TypesDocument lus = littypesdocument(corpus);
    EXPECT_EQ(lus.combotype, (QStringList{u"Loi organique"_s, u"Décret"_s, u"Arrêté"_s, u"Loi"_s}));
    EXPECT_EQ(lus.numerotype, (QStringList{u"1"_s, u"3"_s, u"9"_s, u"2"_s}));
}

TEST_F(ProprietesTest, ADocumentWithoutAKindLeavesTheComboEmpty) {
    EXPECT_EQ(proprietesde(u"EU000001"_s, {}).combotype, -1);
    DocumentAffiche document;
    document.typedocument = u"Circulaire"_s;
    EXPECT_EQ(proprietesde(u"EU000001"_s, document).combotype, -1);
}

TEST_F(ProprietesTest, AKindIsFoundByTheBeginningOfItsLabel) {
    DocumentAffiche document;
    document.typedocument = u"Loi"_s;
    EXPECT_EQ(proprietesde(u"EU000001"_s, document).combotype, 0) << "the first that begins so";
    document.typedocument = u"dÉC"_s;
    EXPECT_EQ(proprietesde(u"EU000001"_s, document).combotype, 1);
    EXPECT_EQ(chercheliste({u"Arrêté"_s}, u"rrêté"_s), -1);
    EXPECT_EQ(chercheliste({}, u"x"_s), -1);
}

TEST_F(ProprietesTest, TheCollectionIsSelected) {
    EXPECT_EQ(proprietesde(u"DI000001"_s, {}).choixtype, 10);
    EXPECT_EQ(proprietesde(u"CO000001"_s, {}).choixtype, 0);
    EXPECT_EQ(proprietesde(u""_s, {}).numart, QString());
}

TEST_F(ProprietesTest, TheTreeIsOpenDownToTheDocument) {
    Proprietes p;
    p.reference = u"EU000005"_s;
    p.numeroarborescence = u"5"_s;
    montrearborescence(arborescence, arbre, p);
    EXPECT_EQ(arbre.key(1), u"EU 0"_s);
    EXPECT_EQ(arbre.selected(), arbre.indexOf(u"@EU000005"_s));
    for (int parent = arbre.parent(arbre.selected()); parent != 0; parent = arbre.parent(parent))
        EXPECT_TRUE(arbre.expanded(parent));
}

TEST_F(ProprietesTest, ADocumentWithoutANodeLeavesTheTreeAtItsRoot) {
    for (const QString& sans : {u"0"_s, u""_s, u"abc"_s, u"999"_s}) {
        Proprietes p;
        p.reference = u"EU000099"_s;
        p.numeroarborescence = sans;
        montrearborescence(arborescence, arbre, p);
        EXPECT_EQ(arbre.selected(), 0) << sans.toStdString();
        EXPECT_FALSE(arbre.expanded(1));
    }
}

TEST_F(ProprietesTest, ThePlaceIsTheWayDownToTheDocument) {
    const Libelles texte = [](Texte) { return u"%1 > %2"_s; };
    Arborescence nommee(corpus, parametres, sablier, [](int) { return u"Droit"_s; });
    Proprietes p;
    p.reference = u"EU000003"_s;
    p.numeroarborescence = u"3"_s;
    montrearborescence(nommee, arbre, p);
    EXPECT_EQ(placedanslesommaire(arbre, texte), u"Droit > Niveau 1 > Niveau 2 > Niveau 3");
    arbre.select(arbre.indexOf(u"EU 2"_s));
    EXPECT_EQ(placedanslesommaire(arbre, texte), u"Droit > Niveau 1 > Niveau 2") << "of a branch, it is the last step";
    for (const int nullepart : {1, 0}) {
        arbre.select(nullepart);
        EXPECT_EQ(placedanslesommaire(arbre, texte), QString());
    }
}

class TailleProprietesTest : public testing::Test {
protected:
    void met(const QString& nom, const QString& valeur) { magasin.save(u"POSITIONFORME", nom, valeur); }

    QTemporaryDir dossier;
    ReglagesStore magasin{dossier.filePath(u"reglages.ini"_s)};
    Reglages reglages{magasin};
};

TEST_F(TailleProprietesTest, AStoredSizeIsReadAgain) {
    EXPECT_EQ(littailleproprietes(reglages), TailleProprietes());
    ecrittailleproprietes(reglages, {9300, 9600});
    EXPECT_EQ(littailleproprietes(reglages), (TailleProprietes{9300, 9600}));
    EXPECT_EQ(magasin.get(u"POSITIONFORME", u"PROPRIETESWIDTH"), u"9300");
    EXPECT_EQ(magasin.get(u"POSITIONFORME", u"PROPRIETESHEIGHT"), u"9600");
}

TEST_F(TailleProprietesTest, NonsenseIsNoSizeAndNoneIsBeyondAllScreens) {
    met(u"PROPRIETESWIDTH"_s, u"pas un nombre"_s);
    met(u"PROPRIETESHEIGHT"_s, u"-40"_s);
    EXPECT_EQ(littailleproprietes(reglages), TailleProprietes());
    met(u"PROPRIETESWIDTH"_s, u"1e300"_s);
    met(u"PROPRIETESHEIGHT"_s, u"7000 et plus"_s);
    EXPECT_EQ(littailleproprietes(reglages), (TailleProprietes{100'000, 7000}));
}

} // namespace
} // namespace velm::test
