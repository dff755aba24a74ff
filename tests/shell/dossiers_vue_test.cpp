// What is seen of the window of the dossiers.
#include "dossiers/ui/listedossier.h"
#include "platform/widgets/look/look.h"
#include "tests/shell/dossiers_support.h"

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
