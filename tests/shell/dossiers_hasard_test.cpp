// The window of the dossiers under hands that do anything.
#include "dossiers/ui/dialoguepertes.h"
#include "tests/shell/dossiers_support.h"

#include <QCheckBox>
#include <QPointer>
#include <QRandomGenerator>
#include <QTreeWidget>

namespace velm::test {
namespace {

class DossiersAuHasard : public DossiersTest {
protected:
    int jusqua(int n) { return static_cast<int>(hasard_.bounded(n)); }
    /// Some node that is loaded, in sight or not.
    int unnoeud() {
        const TreeNodes& noeuds = arbre().nodes();
        int celui = 1 + jusqua(noeuds.count());
        while (!noeuds.contains(celui))
            celui = 1 + celui % noeuds.count();
        return celui;
    }
    QPoint place(int noeud) const { return arbre().visualRect(arbre().indexOf(noeud)).center(); }
    int unelement() { return liste().items().count() == 0 ? 0 : 1 + jusqua(liste().items().count()); }

    void cliquedansarbre() { QTest::mouseClick(arbre().viewport(), Qt::LeftButton, {}, place(unnoeud())); }
    void cliquedansliste() {
        QTest::mouseClick(liste().viewport(), Qt::LeftButton, {}, liste().itemPlace(unelement()).center());
    }
    void tirenoeud() { tire(*arbre().viewport(), place(unnoeud()), *arbre().viewport(), place(unnoeud())); }
    void tireelement() {
        if (const int celui = unelement())
            tire(*liste().viewport(), liste().itemPlace(celui).center(), *arbre().viewport(), place(unnoeud()));
    }
    void unbouton() {
        static const QStringList noms{u"ajouter"_s, u"renommer"_s,       u"supprimer"_s,   u"haut"_s,
                                      u"bas"_s,     u"toutdevelopper"_s, u"toutreduire"_s, u"Command1"_s};
        presse(noms[jusqua(static_cast<int>(noms.size()))]);
    }
    void unetouche() {
        static const std::vector<Qt::Key> touches{Qt::Key_Up,     Qt::Key_Down, Qt::Key_Left, Qt::Key_Right,
                                                  Qt::Key_Return, Qt::Key_F2,   Qt::Key_Tab,  Qt::Key_Insert,
                                                  Qt::Key_Delete, Qt::Key_A,    Qt::Key_Home, Qt::Key_End};
        QWidget* la = QApplication::focusWidget();
        const bool ctrl = jusqua(4) == 0;
        QTest::keyClick(la ? la : fenetre(),
                        touches[static_cast<std::size_t>(jusqua(static_cast<int>(touches.size())))],
                        ctrl ? Qt::ControlModifier : Qt::NoModifier);
    }
    void unevue() {
        static const std::array vues{"Liste", "LargesIcones", "SmallIcones"};
        EcranTest::presse(*fenetre()->findChild<Toolbar*>(u"tlbHierarchie"_s),
                          vues.at(static_cast<std::size_t>(jusqua(3))));
    }
    void unetaille() { fenetre()->resize(300 + jusqua(500), 200 + jusqua(400)); }
    void autrefenetre() {
        fenetre()->close();
        EVENTUALLY(fenetre() == nullptr);
        if (jusqua(2) == 0)
            voit(jusqua(2) == 0 ? u"CO000001"_s : u"JP000007"_s);
        jusqua(2) == 0 ? range() : ouvre();
    }
    void reprend() {
        for (int fois = 1 + jusqua(4); fois > 0; --fois)
            QTest::keyClick(jusqua(2) == 0 ? static_cast<QWidget*>(&arbre()) : &liste(), Qt::Key_Z,
                            Qt::ControlModifier);
    }
    void retrouve() {
        presse(u"retrouver"_s);
        const QPointer<DialoguePertes> pertes = fenetre()->findChild<DialoguePertes*>();
        if (!pertes)
            return;
        if (jusqua(3) == 0)
            pertes->findChild<QTreeWidget*>()->selectAll();
        QTest::mouseClick(pertes->findChild<QPushButton*>(u"remettre"_s), Qt::LeftButton);
        if (pertes && pertes->isVisible())
            pertes->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Whatever is asked is answered with what goes on. Two things alone may be told.
    void repond() {
        const Message& dite = dialogues.messages.back();
        const bool question = dite.boutons.testFlag(Bouton::Oui);
        dialogues.answers = {question ? Bouton::Oui : Bouton::Ok};
        // Of the same document at the same place in two dossiers an exchange may meet the wrong one, which is refused.
        if (!question && dite.texte != mots(9816, {mots(9532)}))
            EXPECT_EQ(dite.texte, mots(2015));
    }
    void unpas() {
        switch (jusqua(18)) {
        case 0:
        case 1:
        case 2:
            return cliquedansarbre();
        case 3:
            return cliquedansliste();
        case 4:
            return tirenoeud();
        case 5:
            return tireelement();
        case 6:
        case 7:
        case 8:
            return unbouton();
        case 9:
            return unevue();
        case 10:
            return unetaille();
        case 11:
            return autrefenetre();
        case 12:
            return reprend();
        case 13:
            return retrouve();
        default:
            return unetouche();
        }
    }

    QRandomGenerator hasard_{7};
};

TEST_F(DossiersAuHasard, NothingThatIsDoneToThemEndsTheProgramOrLeavesTheStoreAtOdds) {
    commence();
    ouvre();
    dialogues.meanwhile = [this] { repond(); };
    for (int pas = 0; pas < 1500; ++pas) {
        ASSERT_NO_FATAL_FAILURE(unpas()) << "step " << pas;
        QCoreApplication::processEvents();
        // Return on an item opens its document, Escape closes the window.
        if (!fenetre())
            ASSERT_NO_FATAL_FAILURE(ouvre()) << "step " << pas;
        const TreeNodes& noeuds = arbre().nodes();
        ASSERT_TRUE(noeuds.selected() == 0 || noeuds.contains(noeuds.selected())) << "step " << pas;
        ASSERT_EQ(noeuds.text(1), mots(4201)) << "step " << pas;
        if (HasFailure())
            FAIL() << "step " << pas;
    }
    fenetre()->close();
    EVENTUALLY(fenetre() == nullptr);
    EXPECT_TRUE(programme->dossiers().magasin().sain());
    EXPECT_TRUE(programme->dossiers().magasin().dbdossiers().check());
}

} // namespace
} // namespace velm::test
