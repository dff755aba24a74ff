#pragma once
// The windows of the index and of the dates in the frame of the program.
#include "platform/base/twips.h"
#include "platform/widgets/grid/flexgrid.h"
#include "search/ui/bandeannees.h"
#include "shell/fenetrechrono.h"
#include "shell/fenetreindex.h"
#include "shell/fenetreslistes.h"
#include "tests/document/ui/liste_support.h"
#include "tests/shell/selection_support.h"

#include <QMdiSubWindow>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

class ListesTest : public SelectionTest {
protected:
    void SetUp() override {
        SelectionTest::SetUp();
        const auto base = Database::open(dossier.filePath(u"velm2000.dat"_s), OpenMode::Shared, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        for (const auto& [cle, date] :
             {std::pair{u"000001", u"2001-03-05"}, {u"000002", u"1999-12-31"}, {u"000003", u"2001-03-09"}})
            ASSERT_TRUE(base.database->execute(u"UPDATE données SET Date='%1', motclé1='vente' WHERE référence='CO' "
                                               "AND numart='%2'"_s.arg(date)
                                                   .arg(cle)));
    }
    void ouvreliste(Ordre ordre) {
        if (!programme) {
            ASSERT_EQ(demarre(QString()), Demarrage::EnMarche);
            ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
        }
        actions().de(ordre).trigger();
        EVENTUALLY(fenetreliste(ordre) && !fenetreliste(ordre)->encours());
    }
    FenetreTypes* fenetreliste(Ordre ordre) const {
        return static_cast<FenetreTypes*>(programme->listes().fenetre(ordre));
    }
    FenetreTypes& index() const { return *fenetreliste(Ordre::Index); }
    FenetreTypes& chrono() const { return *fenetreliste(Ordre::Chrono); }
    BandeAnnees& bande() const { return static_cast<FenetreChrono&>(chrono()).bande(); }
    void type(const FenetreTypes& fenetre, const QString& bouton) const {
        QTest::mouseClick(fenetre.barre().widget(bouton), Qt::LeftButton);
        EVENTUALLY(!fenetre.encours());
    }
    static QStringList colonnede(const FlexGrid& grille, int place) {
        QStringList textes;
        for (int ligne = 1; ligne < grille.rows(); ++ligne)
            textes << grille.text(ligne, place);
        return textes;
    }
    QString comptede(const FenetreTypes& fenetre) const { return fenetre.etat().panelText(u"nombre"_s); }
    QString surbarre(const char* cle) const {
        const QString bouton = QString::fromUtf8(cle);
        const Toolbar& barre = bouton == u"Index" ? barreecran() : barrecommande();
        return barre.value(bouton) ? u"enfoncé"_s : u"relevé"_s;
    }
};

} // namespace velm::test
