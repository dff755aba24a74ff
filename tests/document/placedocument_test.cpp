#include "document/placedocument.h"
#include "tests/document/base_support.h"

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class PlaceDocumentTest : public test::BaseDocument {
protected:
    PlaceDocumentTest() {
        documents = {{.cle = u"CO000003"_s, .titre = u"Élan"_s, .noeud = 12},
                     {.cle = u"CO000001"_s, .titre = u"zèbre"_s, .noeud = 1},
                     {.cle = u"CO000002"_s, .titre = u"Annexe"_s, .noeud = 0},
                     {.cle = u"CO000005"_s, .titre = u"annexe"_s, .noeud = 99},
                     {.cle = u"EU000001"_s, .titre = u"Autre"_s, .noeud = 7}};
        noeuds = {{1, 0, u"CO"_s, 1, u"Partie législative"_s},
                  {12, 1, u"CO"_s, 1, u"Livre  II"_s},
                  {7, 8, u"EU"_s, 1, u"Serpent"_s},
                  {8, 7, u"EU"_s, 1, u"Queue"_s}};
    }
    PlaceDocument place(QStringView cle) { return placedocument(corpus, decoupecle(cle)); }
};

} // namespace

TEST_F(PlaceDocumentTest, TheWayLeadsFromTheHighestBranchDown) {
    ouvre();
    EXPECT_EQ(place(u"CO000003").chemin, (QStringList{u"Partie législative"_s, u"Livre II"_s}));
    EXPECT_EQ(place(u"CO000001").chemin, QStringList{u"Partie législative"_s});
    EXPECT_TRUE(place(u"CO000002").chemin.isEmpty()) << "it hangs nowhere";
    EXPECT_TRUE(place(u"CO000005").chemin.isEmpty()) << "from a branch that is not there";
}

TEST_F(PlaceDocumentTest, ACircleOfBranchesEndsTheWay) {
    ouvre();
    EXPECT_EQ(place(u"EU000001").chemin, (QStringList{u"Queue"_s, u"Serpent"_s}));
}

TEST_F(PlaceDocumentTest, TheRankIsThatOfTheWalkThroughNeighbours) {
    ouvre();
    Recordset& table = corpus.donnees();
    table.setIndex(u"icattitre"_s);
    table.seek(Seek::GreaterOrEqual, u"CO"_s);
    QStringList cles;
    for (; !table.eof() && table.text(u"référence"_s) == u"CO"; table.moveNext())
        cles << u"CO"_s + table.text(u"numart"_s);
    ASSERT_EQ(cles.size(), 4);
    for (qsizetype rang = 0; rang < cles.size(); ++rang) {
        EXPECT_EQ(place(cles.at(rang)).rang, rang + 1) << cles.at(rang).toStdString();
        EXPECT_EQ(place(cles.at(rang)).nombre, 4);
    }
    EXPECT_EQ(place(u"EU000001").rang, 1);
}

TEST_F(PlaceDocumentTest, WhatIsNoDocumentHasNoPlace) {
    ouvre();
    EXPECT_EQ(place(u"CO000099"), PlaceDocument());
    EXPECT_EQ(place(u""), PlaceDocument());
}

TEST_F(PlaceDocumentTest, ABaseWithoutTreeOrTitleKeysTellsWhatItCan) {
    ouvre();
    ASSERT_TRUE(corpus.base().execute(u"DROP INDEX données_icattitre"_s));
    ASSERT_TRUE(corpus.base().execute(u"ALTER TABLE données DROP COLUMN clé_titre"_s));
    EXPECT_EQ(place(u"CO000003").rang, 0);
    EXPECT_EQ(place(u"CO000003").chemin.size(), 2);
    EXPECT_EQ(place(u"CO000003").nombre, 4);
}
