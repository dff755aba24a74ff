// The commands by themselves, without a frame.
#include "shell/actions.h"
#include "shell/logique/commandes.h"

#include <QAction>
#include <QActionGroup>
#include <QPixmap>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ActionsSeules : public testing::Test {
protected:
    QStringList images;
    Actions actions{[](Texte lequel) { return QString::number(static_cast<int>(lequel)); },
                    [this](const QString& nom) {
                        images << nom;
                        return QIcon();
                    }};
};

} // namespace

TEST_F(ActionsSeules, OnlyOneOfAChoiceIsTaken) {
    for (const LigneCommande& ligne : commandes()) {
        const QActionGroup* groupe = actions.de(ligne.ordre).actionGroup();
        EXPECT_EQ(groupe != nullptr, ligne.forme == Forme::Choix) << ligne.entree.nom.toString().toStdString();
        for (const QAction* action : actions.serie(ligne.ordre))
            EXPECT_EQ(action->actionGroup(), groupe) << ligne.entree.nom.toString().toStdString();
    }
}

TEST_F(ActionsSeules, APictureIsAskedForWhereThereIsOne) {
    EXPECT_FALSE(images.isEmpty());
    EXPECT_FALSE(images.contains(QString()));
}

TEST_F(ActionsSeules, WhatHasNoNameYetIsNotSeen) {
    for (const Ordre ordre : {Ordre::DernierDocument, Ordre::Fenetre, Ordre::Outil}) {
        for (const QAction* action : actions.serie(ordre))
            EXPECT_FALSE(action->isVisible()) << action->objectName().toStdString();
    }
    EXPECT_TRUE(actions.de(Ordre::Quitter).isVisible());
}

TEST_F(ActionsSeules, WhatCannotBeMarkedIsNotMarkedByBeingGiven) {
    int donnees = 0;
    QObject::connect(&actions, &Actions::commande, &actions, [&donnees] { ++donnees; });
    actions.de(Ordre::Quitter).trigger();
    EXPECT_EQ(donnees, 1);
    EXPECT_FALSE(actions.estcochee(Ordre::Quitter));
}

TEST_F(ActionsSeules, AToolBearsItsPictureUntilAnotherTakesItsPlace) {
    const QIcon image{QPixmap(16, 16)};
    actions.changeoutils({{u"Tableur"_s, image}});
    EXPECT_EQ(actions.de(Ordre::Outil).icon().cacheKey(), image.cacheKey());
    actions.changeoutils({{u"Dessin"_s}});
    EXPECT_TRUE(actions.de(Ordre::Outil).icon().isNull());
}
