#pragma once
// Several windows on the desk.
#include "platform/base/twips.h"
#include "platform/widgets/frame/childarea.h"
#include "platform/widgets/frame/splitterbar.h"
#include "platform/widgets/tree/treeview.h"
#include "search/ui/frmvelmorselect.h"
#include "shell/recherches.h"
#include "tests/shell/selection_support.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QScreen>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

class FenetresTest : public SelectionTest {
protected:
    /// Starts with a frame of a size of its own and the windows of two collections.
    void commence() {
        cadre(700, 600);
        ASSERT_EQ(demarre(u"CO1"_s), Demarrage::EnMarche);
        programme->ouvre(decoupecle(u"JP000007"));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    }
    void cadre(int largeur, int hauteur) const {
        for (const auto& [cle, valeur] : {std::pair{u"WINDOWSSTATE", 0},
                                          {u"WINDOWSLEFT", 0},
                                          {u"WINDOWSTOP", 0},
                                          {u"WINDOWSWIDTH", twipsFromPixels(largeur)},
                                          {u"WINDOWSHEIGHT", twipsFromPixels(hauteur)}})
            regle(u"POSITIONMDI", cle, QString::number(valeur));
    }
    void restaure(const QString& fenetres, const QString& contenus) const {
        regle(u"GENERALITES", u"RESTAUREFEN", u"1"_s);
        regle(u"POSITIONFORME", u"MDICHILD", fenetres);
        regle(u"POSITIONFORME", u"MDICHILDCONTENU", contenus);
    }
    void place(int indice, int etat, const QRect& pixels) const {
        const QString numero = QString::number(indice);
        for (const auto& [nom, valeur] : {std::pair{u"WINDOWSSTATE"_s, etat},
                                          {u"WINDOWSLEFT"_s, twipsFromPixels(pixels.x())},
                                          {u"WINDOWSTOP"_s, twipsFromPixels(pixels.y())},
                                          {u"WINDOWSWIDTH"_s, twipsFromPixels(pixels.width())},
                                          {u"WINDOWSHEIGHT"_s, twipsFromPixels(pixels.height())}})
            regle(u"POSITIONFORME", nom + numero, QString::number(valeur));
    }
    void quitte() {
        dialogues.answers.push_back(Bouton::Oui);
        ASSERT_TRUE(programme->quitteprogramme());
        programme.reset();
    }
    /// What is stored of a window: state, place.
    QList<int> ecrit(int indice) const {
        QList<int> valeurs;
        for (const char* nom : {"WINDOWSSTATE", "WINDOWSLEFT", "WINDOWSTOP", "WINDOWSWIDTH", "WINDOWSHEIGHT"})
            valeurs << reglage("POSITIONFORME", qPrintable(QString::fromLatin1(nom) + QString::number(indice))).toInt();
        return valeurs;
    }
    Textes& fenetre(int indice) const { return *programme->fenetre(indice); }
    QMdiSubWindow& autour(const QWidget& enfant) const { return *aire().around(&enfant); }
    QMdiSubWindow& autour(int indice) const { return autour(fenetre(indice)); }
    bool liste(int indice) const { return entree("mlistefenetre", indice + 1)->isVisible(); }
    void touche(Qt::Key touche, Qt::KeyboardModifiers avec) const {
        QWidget* celui = QApplication::focusWidget();
        ASSERT_NE(celui, nullptr);
        QTest::keyClick(celui, touche, avec);
    }
    QWidget* formulaire() const { return programme->recherches().formulaire(); }
};

} // namespace velm::test
