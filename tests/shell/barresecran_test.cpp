// The bars of the frame, with their commands and no program.
#include "platform/widgets/frame/toolbar.h"
#include "shell/actions.h"
#include "shell/barresecran.h"
#include "tests/support/eventually.h"

#include <QMainWindow>
#include <QMenu>
#include <QToolButton>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class BarresEcranTest : public testing::Test {
protected:
    static QString texte(Texte lequel) { return u"&t%1"_s.arg(static_cast<int>(lequel)); }
    Toolbar& barre(const QString& nom) const { return *cadre.findChild<Toolbar*>(nom); }

    QMainWindow cadre;
    Actions actions{texte, [](const QString&) { return QIcon(); }};
    BarresEcran barres{cadre, actions, texte};
};

} // namespace

TEST_F(BarresEcranTest, EachBarHasItsTitleWithoutAnAccelerator) {
    EXPECT_EQ(barre(u"barrecommande"_s).windowTitle(), texte(Texte::MenuBarreDeCommandes).mid(1));
    EXPECT_EQ(barre(u"barreécran"_s).windowTitle(), texte(Texte::BarreDesFenetres).mid(1));
    EXPECT_EQ(barre(u"barreoutils"_s).windowTitle(), texte(Texte::MenuBarreDOutils).mid(1));
}

TEST_F(BarresEcranTest, ToolsThatAreChangedTwiceHaveOneButtonEachThatGivesItsCommandOnce) {
    Toolbar& outils = barre(u"barreoutils"_s);
    EXPECT_EQ(outils.buttonCount(), 0);
    for (const QString& nom : {u"Tableur"_s, u"Dessin"_s})
        actions.changeoutils({{nom}});
    ASSERT_EQ(outils.buttonCount(), 1);
    int donnees = 0;
    QObject::connect(&actions, &Actions::commande, &actions, [&donnees] { ++donnees; });
    outils.widget(outils.keyAt(1))->click();
    EXPECT_EQ(donnees, 1);
}

TEST_F(BarresEcranTest, ARightPressOffersThePlacesOfItsBar) {
    cadre.show();
    auto* menu = cadre.findChild<QMenu*>(u"ContextMenuBarreTable"_s);
    ASSERT_NE(menu, nullptr);
    emit barre(u"barreécran"_s).rightClicked({10, 10});
    EVENTUALLY(menu->isVisible());
    EXPECT_EQ(menu->actions(), actions.serie(ordredeplace(Barre::Ecran)));
    menu->close();
}
