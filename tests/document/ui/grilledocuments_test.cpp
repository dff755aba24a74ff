// The columns of a grid of documents, on the screen and on paper.
#include "platform/widgets/look/look.h"
#include "tests/document/ui/grilledocuments_support.h"
#include "tests/support/eventually.h"

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

TEST_F(GrilleDocumentsTest, TheGridHasTheColumnsOfTheList) {
    avec(3);
    EXPECT_EQ(champs(), (std::vector{0, 1, 6}));
    EXPECT_EQ(flex->colWidth(0), 3000);
    EXPECT_EQ(flex->colWidth(2), 0);
    EXPECT_EQ(flex->header(0), u"t300");
    EXPECT_EQ(flex->header(2), QString());
    EXPECT_EQ(flex->text(1, 0), u"Titre 00003");
    EXPECT_EQ(flex->text(1, 2), u"CO000003");
    EXPECT_TRUE(flex->redraw());
}

TEST_F(GrilleDocumentsTest, ColumnsStandAsTheyWereLeftAndTheSourceDoesNotNotice) {
    colonnes.deplace(0, 1);
    colonnes.changelargeur(0, 1234);
    avec(3);
    EXPECT_EQ(champs(), (std::vector{1, 0, 6}));
    EXPECT_EQ(flex->colWidth(0), 1234);
    EXPECT_EQ(flex->header(0), u"t301");
    EXPECT_EQ(flex->text(1, 0), u"mot 3");
    EXPECT_EQ(flex->text(1, 1), u"Titre 00003");
    colonnes.deplace(0, 1);
    grille->montrecolonnes();
    EXPECT_EQ(champs(), (std::vector{0, 1, 6}));
    EXPECT_EQ(flex->colWidth(1), 1234);
}

TEST_F(GrilleDocumentsTest, HeadersAndCellsStandOnTheLeft) {
    avec(3);
    const QHeaderView* entete = flex->view()->horizontalHeader();
    EXPECT_TRUE(entete->model()->headerData(0, Qt::Horizontal, Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
    EXPECT_TRUE(flex->view()->model()->index(0, 0).data(Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
    EXPECT_TRUE(entete->sectionsMovable());
}

TEST_F(GrilleDocumentsTest, ColumnsShareTheFreeWidthUntilTheyAreGivenAnother) {
    colonnes = Colonnes({.colonnes = {{0, 3000, Texte::Titre, 3}, {1, 2000, Texte::ColonneMotCle1, 2}, {6, 0, {}}}});
    avec(3);
    const auto ensemble = [this] { return flex->view()->columnWidth(0) + flex->view()->columnWidth(1); };
    EVENTUALLY(ensemble() == flex->view()->viewport()->width());
    grille->releve();
    EXPECT_EQ(colonnes.largeurs(), u"003000002000") << "what is free is not kept";
    flex->view()->horizontalHeader()->resizeSection(1, 100);
    grille->releve();
    EXPECT_EQ(colonnes.largeurs(), u"003000001500");
    // At the next start that one keeps its width.
    grille.reset();
    flex->setCols(0);
    construit();
    EVENTUALLY(ensemble() == flex->view()->viewport()->width());
    EXPECT_EQ(flex->view()->columnWidth(1), 100);
}

TEST_F(GrilleDocumentsTest, ANarrowListShowsTitlesOverKeywords) {
    colonnes = Colonnes({.colonnes = {{0, 3000, Texte::Titre, 3}, {1, 2000, Texte::ColonneMotCle1, 2}, {6, 0, {}}}});
    avec(3);
    const int ligne = flex->view()->rowHeight(0);
    fenetre.resize(380, 300);
    EVENTUALLY(flex->view()->isColumnHidden(1));
    EXPECT_GT(flex->view()->rowHeight(0), ligne);
}

TEST_F(GrilleDocumentsTest, TheCodeOfACollectionIsSeenAsItsPicture) {
    construit({.champimage = 1})
        .charge(std::make_unique<SourceEssai>(std::vector<QStringList>{
            {u"a"_s, u"JP"_s, u"JP000001"_s}, {u"b"_s, u"XX"_s, u"XX000001"_s}, {u"c"_s, u"JP"_s, u"JP000002"_s}}));
    const auto [surface, ou] = cellule(*flex, 1, 1);
    const auto cellules = [&, surface = surface](int ligne) {
        const QRect ici(cellule(*flex, ligne, 1).second - QPoint(8, 8), QSize(16, 16));
        return surface->grab(ici).toImage();
    };
    EXPECT_EQ(cellules(1), cellules(3));
    EXPECT_NE(cellules(1), cellules(2)) << "of no collection, the text";
    const QColor teinte = look::hue(2, look::themeOf(flex->palette()));
    const QImage image = cellules(1);
    bool vue = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            vue |= image.pixelColor(x, y).hue() == teinte.hue();
    }
    EXPECT_TRUE(vue) << "in the hue of its collection";
}

TEST_F(GrilleDocumentsTest, ThePictureOfACollectionMayStandBeforeTheTitle) {
    construit({.champimage = 1, .imagedevant = 0})
        .charge(std::make_unique<SourceEssai>(std::vector<QStringList>{
            {u"a"_s, u"JP"_s, u"JP000001"_s}, {u"a"_s, u"XX"_s, u"XX000001"_s}, {u"a"_s, u"XX"_s, u"XX000002"_s}}));
    const auto cellule = [this](int ligne, int colonne) {
        const QRect ici = flex->view()->visualRect(flex->view()->model()->index(ligne - 1, colonne));
        return flex->view()->viewport()->grab(ici).toImage();
    };
    EXPECT_NE(cellule(1, 0), cellule(2, 0));
    EXPECT_EQ(cellule(2, 0), cellule(3, 0)) << "of no collection, the title alone";
    EXPECT_NE(cellule(1, 1), cellule(2, 1)) << "the codes as ever";
}

TEST_F(GrilleDocumentsTest, WhatTheUserDoesToColumnsTheListKnows) {
    avec(3);
    flex->view()->horizontalHeader()->moveSection(0, 1);
    EXPECT_EQ(colonnes.ordre(), u"10");
    flex->setColWidth(1, 4321);
    flex->setColPosition(1, 0);
    grille->releve();
    EXPECT_EQ(colonnes.ordre(), u"01");
    EXPECT_EQ(colonnes.largeurs(), u"004321002000");
}

TEST_F(GrilleDocumentsTest, OneColumnMayTakeTheWidthThatIsLeftAndThenNoneIsDragged) {
    avec(3, {.deplacables = false, .champetire = 1});
    EVENTUALLY(flex->colWidth(1) > 2000);
    EXPECT_FALSE(flex->view()->horizontalHeader()->sectionsMovable());
    EXPECT_TRUE(flex->view()->model()->index(0, 0).data(Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
}

TEST_F(GrilleDocumentsTest, ThePaperBearsAllRowsUnderTheTitlesAsTheyStand) {
    colonnes.deplace(0, 1);
    avec(2);
    grille->trie(0);
    const PaperTable papier = grille->tableau(u"titre"_s);
    EXPECT_EQ(papier.title, u"titre");
    EXPECT_EQ(papier.headers, (QStringList{u"t301"_s, u"t300"_s, QString()}));
    EXPECT_EQ(papier.widths, (QList<int>{2000, 3000, 0}));
    EXPECT_EQ(papier.rows, u"mot 1\tTitre 00001\tCO000001\rmot 2\tTitre 00002\tCO000002");
}

TEST_F(GrilleDocumentsTest, OnlyTheCodeOfACollectionBecomesAPicture) {
    construit({.champimage = 1})
        .charge(std::make_unique<SourceEssai>(std::vector<QStringList>{{u"a"_s, u"CO"_s, u"CO000001"_s},
                                                                       {u"a"_s, u"XX"_s, u"CO000002"_s},
                                                                       {u"a"_s, u"DO"_s, u"CO000003"_s},
                                                                       {u"a"_s, u""_s, u"CO000004"_s}}));
    const auto image = [this](int ligne) {
        const QTableView& vue = *flex->view();
        return vue.viewport()->grab(vue.visualRect(vue.model()->index(ligne - 1, 1))).toImage();
    };
    EXPECT_NE(image(1), image(4)) << "a picture";
    EXPECT_NE(image(2), image(1)) << "no code: its letters";
    EXPECT_NE(image(2), image(4));
    EXPECT_NE(image(3), image(4)) << "dossiers are no collection";
}

TEST_F(GrilleDocumentsTest, ColumnsThatShareTakeWhatTheirTextsNeedWhenTheListIsFilled) {
    class Source final : public SourceDocuments {
    public:
        explicit Source(const QString& mot) : mot_(mot) {}
        int rowCount() const override { return 2; }
        QString text(int, int column) const override { return column == 1 ? mot_ : u"Un titre"_s; }
        Cle cle(int) const override { return {u"CO"_s, u"000001"_s}; }
        bool sort(int, bool) override { return false; }

    private:
        const QString& mot_;
    };
    ModeleColonnes modele = SourceEssai::modele();
    for (ModeleColonne& colonne : modele.colonnes)
        colonne.poids = colonne.champ == 6 ? 0 : 1;
    colonnes = Colonnes(modele, textenumerote);
    QString mot = u"mot"_s;
    construit().charge(std::make_unique<Source>(mot));
    const auto largeur = [this](int place) { return flex->view()->columnWidth(place); };
    EXPECT_LT(largeur(1), 120);
    EXPECT_EQ(largeur(0) + largeur(1), flex->view()->viewport()->width());
    grille->cache();
    mot = u"un mot clé de plusieurs mots"_s;
    grille->montre(true);
    EXPECT_GT(largeur(1), flex->fontMetrics().horizontalAdvance(mot));
}
