#pragma once
// The real frame on a small base with numbers of articles and keywords.
#include "shell/fenetremotcle.h"
#include "shell/fenetrenumero.h"
#include "tests/shell/fenetres_support.h"

namespace velm::test {

class NumerosTest : public FenetresTest {
protected:
    void SetUp() override {
        FenetresTest::SetUp();
        const auto base = ouvrebase();
        ASSERT_NE(base, nullptr);
        {
            TableWriter numeros(*base, u"generelien"_s,
                                {u"référence"_s, u"numart"_s, u"numarticle"_s, u"numtitre"_s, u"titre"_s});
            for (const auto& [cle, article, loi] : {std::tuple(u"CO000001"_s, u"L. 121-1"_s, u"93-949"_s),
                                                    std::tuple(u"CO000002"_s, u"L. 121-2"_s, u"93-949"_s),
                                                    std::tuple(u"CO000003"_s, u"R. 7"_s, u"97-298"_s),
                                                    std::tuple(u"JP000007"_s, u"L. 121-1"_s, u"2001-1"_s),
                                                    std::tuple(u"CO000099"_s, u"L. 121-1"_s, u"93-949"_s)})
                ASSERT_TRUE(numeros.add({cle.left(2), cle.mid(2), article, loi, u"Loi n° "_s + loi}));
            TableWriter motscles(*base, u"motclés"_s, {u"motcle"_s, u"nbarticle"_s});
            for (const auto& [motcle, nombre] : {std::pair(u"Prix"_s, 3), std::pair(u"Taxe"_s, 1),
                                                 std::pair(u"Achat"_s, 12), std::pair(u"dit \"neuf\""_s, 1)})
                ASSERT_TRUE(motscles.add({motcle, nombre}));
        }
        ASSERT_TRUE(base->execute(u"UPDATE données SET motclé1='Prix' WHERE numart<>'000003'"_s));
        ASSERT_TRUE(base->execute(u"UPDATE données SET motclé3='Taxe' WHERE numart='000003'"_s));
        ASSERT_TRUE(base->execute(u"UPDATE données SET motclé3='dit \"neuf\"' WHERE numart='000004'"_s));
    }

    std::unique_ptr<Database> ouvrebase() const {
        return Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema()).database;
    }
    void commande(const char* entree) const {
        ASSERT_NE(menu(entree), nullptr);
        menu(entree)->trigger();
    }
    template <typename Fenetre>
    Fenetre* ouverte() const {
        return ecran().template findChild<Fenetre*>();
    }
    /// Starts with the search by number in front.
    void avecnumeros() {
        ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
        commande("moutils0(2)");
        ASSERT_NE(numeros(), nullptr);
    }
    /// The same with the keywords.
    void avecmotscles() {
        ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
        commande("moutils0(4)");
        ASSERT_NE(motscles(), nullptr);
    }
    FenetreNumero* numeros() const { return ouverte<FenetreNumero>(); }
    FenetreMotcle* motscles() const { return ouverte<FenetreMotcle>(); }

    static void tape(QLineEdit& boite, const QString& texte) {
        boite.setFocus();
        boite.selectAll();
        QTest::keyClick(&boite, Qt::Key_Delete);
        QTest::keyClicks(&boite, texte);
    }
    static void cherche(QLineEdit& boite, const QString& texte) {
        tape(boite, texte);
        QTest::keyClick(&boite, Qt::Key_Return);
    }
    /// The texts of the rows in the column of a field.
    static QStringList champs(const FlexGrid& grille, int champ) {
        int place = 0;
        while (place < grille.cols() && grille.colData(place) != champ)
            ++place;
        QStringList tous;
        for (int ligne = 1; ligne < grille.rows(); ++ligne)
            tous << grille.text(ligne, place);
        return tous;
    }
    QStringList titres() const { return champs(numeros()->flex(), ListeNumero::Titre); }
    QStringList affiches() const { return champs(motscles()->flex(), 0); }
    static QPoint milieude(const FlexGrid& grille, int ligne) {
        return grille.view()->visualRect(grille.view()->model()->index(ligne - 1, 0)).center();
    }
    static void clique(const FlexGrid& grille, int ligne) {
        QTest::mouseClick(grille.view()->viewport(), Qt::LeftButton, {}, milieude(grille, ligne));
    }
    static void doublecliquesur(const FlexGrid& grille, int ligne) {
        clique(grille, ligne);
        QTest::mouseDClick(grille.view()->viewport(), Qt::LeftButton, {}, milieude(grille, ligne));
        QTest::mouseRelease(grille.view()->viewport(), Qt::LeftButton, {}, milieude(grille, ligne));
    }
    static QPoint entetede(const FlexGrid& grille, int place) {
        const QHeaderView* entete = grille.view()->horizontalHeader();
        const int colonne = entete->logicalIndex(place);
        return {entete->sectionViewportPosition(colonne) + entete->sectionSize(colonne) / 2, entete->height() / 2};
    }
    static void cliqueentete(const FlexGrid& grille, int place) {
        QTest::mouseClick(grille.view()->horizontalHeader()->viewport(), Qt::LeftButton, {}, entetede(grille, place));
    }
    static void doublecliqueentetede(const FlexGrid& grille, int place) {
        QWidget* surface = grille.view()->horizontalHeader()->viewport();
        cliqueentete(grille, place);
        QTest::mouseDClick(surface, Qt::LeftButton, {}, entetede(grille, place));
        QTest::mouseRelease(surface, Qt::LeftButton, {}, entetede(grille, place));
    }
    QStringList clesdelaliste() const {
        QStringList cles;
        for (int rang = 1; rang <= programme->selection().liste().lignes(); ++rang)
            cles << programme->selection().liste().cle(rang);
        return cles;
    }
    static QString compteen(const FenetreListe& fenetre) { return fenetre.etat().panelText(u"nombre"_s); }
};

} // namespace velm::test
