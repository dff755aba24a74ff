// What is seen of the window of the dossiers.
#include "dossiers/ui/listedossier.h"
#include "platform/widgets/frame/toolbar.h"
#include "platform/widgets/look/look.h"
#include "tests/shell/dossiers_support.h"

#include <QHelpEvent>
#include <QToolTip>

#include <array>

namespace velm::test {
namespace {

TEST_F(DossiersTest, AnEmptyDossierNamesTheCommandAsItsMenuShowsIt) {
    commence();
    ouvre();
    const QString& dit = static_cast<ListeDossier&>(liste()).vide();
    EXPECT_TRUE(dit.contains(actions().de(Ordre::Ranger).text().remove(u'&').section(u'\t', 0, 0)))
        << dit.toStdString();
    EXPECT_FALSE(dit.contains(u'&') || dit.contains(u'%')) << dit.toStdString();
    ferme();
}

TEST_F(DossiersTest, AWaitingItemIsSaidOnAGroundOfItsOwn) {
    commence();
    range();
    auto& ligne = *fenetre()->findChild<QLabel*>(u"attente"_s);
    const QImage seen = ligne.grab().toImage();
    EXPECT_EQ(seen.pixelColor(1, 1), look::chosenGround(fenetre()->palette()));
    EXPECT_NE(seen.pixelColor(1, 1), fenetre()->palette().color(QPalette::Window));
    ferme();
}

TEST_F(DossiersTest, TheCountOfADossierIsSeenBehindALongName) {
    commence();
    ouvre();
    nouveau(QString(90, u'm'));
    ferme();
    range();
    clique(QString(90, u'm'));
    const int long_ = noeud(QString(90, u'm'));
    ASSERT_TRUE(arbre().nodes().text(long_).endsWith(u" [1]"_s));
    const QImage un = arbre().grab().toImage();
    arbre().nodes().setText(long_, QString(90, u'm') + u" [2]"_s);
    EXPECT_NE(arbre().grab().toImage(), un);
    ferme();
}

TEST_F(DossiersTest, TheListsViewFollowsItsThreeButtons) {
    commence();
    ouvre();
    auto& barre = *fenetre()->findChild<Toolbar*>(u"tlbHierarchie"_s);
    const QStringList boutons{u"Liste"_s, u"LargesIcones"_s, u"SmallIcones"_s};
    const auto expectDown = [&](const QString& bas, ListArrangement vue) {
        for (const QString& un : boutons)
            EXPECT_EQ(barre.value(un), un == bas) << un.toStdString();
        EXPECT_EQ(liste().arrangement(), vue);
    };
    expectDown(boutons[0], ListArrangement::List);
    presse(barre, "LargesIcones");
    expectDown(boutons[1], ListArrangement::LargeIcons);
    presse(barre, "SmallIcones");
    expectDown(boutons[2], ListArrangement::SmallIcons);
    presse(barre, "SmallIcones");
    expectDown(boutons[2], ListArrangement::SmallIcons);
    presse(barre, "Liste");
    expectDown(boutons[0], ListArrangement::List);
    ferme();
}

TEST_F(DossiersTest, TheListsToolTipShowsTheTitleInQuotes) {
    commence();
    range();
    const auto astuce = [this] { return static_cast<ListeDossier&>(liste()).infobulle(1).section(u'\n', 0, 0); };
    EXPECT_EQ(astuce(), u"\"Article premier\" "_s + mots(4202));
    liste().items().setText(1, QString());
    EXPECT_EQ(astuce(), mots(4202));
    touche(Qt::Key_Escape);
    clique(mots(4201));
    ASSERT_EQ(liste().items().count(), 0);
    QHelpEvent aide(QEvent::ToolTip, QPoint(20, 20), liste().viewport()->mapToGlobal(QPoint(20, 20)));
    QApplication::sendEvent(liste().viewport(), &aide);
    EXPECT_EQ(QToolTip::text(), QString());
    ferme();
}

TEST_F(DossiersTest, AnAbsentStoreHidesTheButtons) {
    const auto vus = [this] {
        auto& barre = *ecran().findChild<Toolbar*>(u"barrechild"_s);
        return std::array{barre.isButtonVisible(u"document"_s), barre.isButtonVisible(u"dossiers"_s)};
    };
    commence();
    EXPECT_EQ(vus(), (std::array{true, true}));
    programme.reset();
    ASSERT_TRUE(QFile::remove(dossier.filePath(u"dossiers.dat"_s)));
    commence();
    EXPECT_EQ(vus(), (std::array{false, false}));
    EXPECT_FALSE(QFile::exists(dossier.filePath(u"dossiers.dat"_s))) << "it is not created either";
}

TEST_F(DossiersTest, AllCommandsAreSeenInTheLowestWindow) {
    commence();
    ouvre();
    fenetre()->resize(fenetre()->minimumSize());
    EXPECT_LE(fenetre()->height(), 768 / 2 - 20) << "at twice the size, a small screen has no more";
    QRect avant;
    for (const QString& nom : {u"ajouter"_s, u"renommer"_s, u"supprimer"_s, u"haut"_s, u"toutdevelopper"_s,
                               u"toutreduire"_s, u"imprimer"_s, u"Command1"_s, u"retrouver"_s, u"cmdok"_s}) {
        const QPushButton& un = bouton(nom);
        const QRect place(un.mapTo(fenetre(), QPoint()), un.size());
        EXPECT_TRUE(fenetre()->rect().contains(place)) << nom.toStdString();
        EXPECT_GT(place.top(), avant.bottom()) << nom.toStdString();
        EXPECT_GE(place.height(), un.sizeHint().height()) << nom.toStdString();
        avant = place;
    }
    ferme();
}

} // namespace
} // namespace velm::test
