#pragma once
// The window of the dossiers over the frame of the real program.
#include "dossiers/ui/frmdossiers.h"
#include "platform/widgets/list/listview.h"
#include "platform/widgets/tree/treeview.h"
#include "shell/fenetredossiers.h"
#include "tests/shell/ecran_support.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <stdexcept>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

class DossiersTest : public EcranTest {
protected:
    void SetUp() override {
        EcranTest::SetUp();
        ecritdossiers();
    }
    void commence(const QString& ligne = u"CO1"_s) {
        ASSERT_EQ(demarre(ligne), Demarrage::EnMarche);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&ecran()));
    }
    void ouvre() {
        actions().de(Ordre::Dossiers).trigger();
        attendfenetre();
    }
    /// Hands over the document in front.
    void range() {
        EVENTUALLY(actions().de(Ordre::Ranger).isEnabled());
        actions().de(Ordre::Ranger).trigger();
        attendfenetre();
    }
    void attendfenetre() const {
        if (!fenetre())
            throw std::runtime_error("the window of the dossiers did not come");
        EVENTUALLY(fenetre()->isActiveWindow());
    }
    void ferme() const {
        presse(u"cmdok"_s);
        EVENTUALLY(fenetre() == nullptr);
    }

    frmdossiers* fenetre() const { return programme->dossiers().fenetre(); }
    TreeView& arbre() const { return *fenetre()->findChild<TreeView*>(u"TreeView1"_s); }
    ListView& liste() const { return *fenetre()->findChild<ListView*>(u"contenudossier"_s); }
    QPushButton& bouton(const QString& nom) const { return *fenetre()->findChild<QPushButton*>(nom); }
    void presse(const QString& nom) const { QTest::mouseClick(&bouton(nom), Qt::LeftButton); }
    using EcranTest::presse;
    static void touche(Qt::Key une, Qt::KeyboardModifiers avec = {}) {
        QTest::keyClick(QApplication::focusWidget(), une, avec);
    }
    static void ecrit(const QString& nom) {
        auto* const editeur = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        if (!editeur)
            throw std::runtime_error("no label is being edited");
        editeur->setText(nom);
        QTest::keyClick(editeur, Qt::Key_Return);
    }
    /// A new dossier under the one that is selected, by its button.
    void nouveau(const QString& nom) const {
        presse(u"ajouter"_s);
        ecrit(nom);
    }

    /// Two new dossiers under the root, and the document in front waits to be stored.
    void rangeenfacede(const QString& un, const QString& autre) {
        commence();
        ouvre();
        nouveau(un);
        clique(mots(4201));
        nouveau(autre);
        ferme();
        range();
    }

    int noeud(const QString& texte) const {
        const TreeNodes& noeuds = arbre().nodes();
        for (int un = 1; un <= noeuds.count(); ++un) {
            if (noeuds.contains(un) && (noeuds.text(un) == texte || noeuds.text(un).startsWith(texte + u" ["_s)))
                return un;
        }
        return 0;
    }
    QPoint milieu(const QString& noeudvoulu) const {
        return arbre().visualRect(arbre().indexOf(noeud(noeudvoulu))).center();
    }
    void clique(const QString& noeudvoulu) const {
        if (noeud(noeudvoulu) == 0)
            throw std::runtime_error("no dossier of that name");
        QTest::mouseMove(arbre().viewport(), milieu(noeudvoulu));
        QTest::mouseClick(arbre().viewport(), Qt::LeftButton, {}, milieu(noeudvoulu));
    }
    void cliqueelement(int index) const {
        QTest::mouseClick(liste().viewport(), Qt::LeftButton, {}, liste().itemPlace(index).center());
    }
    /// Presses, moves and lets go, in steps that a hand would take. What is pressed may move along.
    static void tire(QWidget& de, const QPoint& depart, QWidget& vers, const QPoint& arrivee) {
        const QPoint ici = de.mapToGlobal(depart);
        const QPoint la = vers.mapToGlobal(arrivee);
        QTest::mousePress(&de, Qt::LeftButton, {}, depart);
        for (int pas = 1; pas <= 4; ++pas)
            bouge(de, de.mapFromGlobal(ici + (la - ici) * pas / 4), Qt::LeftButton);
        QTest::mouseRelease(&de, Qt::LeftButton, {}, de.mapFromGlobal(la));
    }
    /// With the button that is down: the one of QTest tells of none.
    static void bouge(QWidget& de, const QPoint& ici, Qt::MouseButtons bas) {
        QMouseEvent evenement(QEvent::MouseMove, ici, de.mapToGlobal(ici), Qt::NoButton, bas, Qt::NoModifier);
        QApplication::sendEvent(&de, &evenement);
    }
    QStringList titres() const {
        QStringList tous;
        for (int un = 1; un <= liste().items().count(); ++un)
            tous << liste().items().text(un);
        return tous;
    }
    QString texte(const QString& debut) const { return arbre().nodes().text(noeud(debut)); }
    QString ligne() const {
        const auto* const attente = fenetre()->findChild<QLabel*>(u"attente"_s);
        return attente->isVisible() ? attente->text() : QString();
    }
    void voit(const QString& cle) { programme->ouvre(decoupecle(cle)); }
};

} // namespace velm::test
