// The tool bar of a document window, without the window.
#include "document/ui/barretextes.h"

#include <QMenu>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

/// A bar that writes down what it says.
class BarreTextesTest : public testing::Test {
protected:
    BarreTextesTest() {
        const auto note = [this](const QString& texte) { dits << texte; };
        QObject::connect(&barre, &BarreTextes::pas, &barre, [note](Sens sens, int n) {
            note((sens == Sens::Avant ? u"suivant %1"_s : u"précédent %1"_s).arg(n));
        });
        QObject::connect(&barre, &BarreTextes::voisin, &barre,
                         [note](bool haut) { note(haut ? u"haut"_s : u"bas"_s); });
        QObject::connect(&barre, &BarreTextes::bloc, &barre,
                         [note](Bloc bloc) { note(u"bloc %1"_s.arg(static_cast<int>(bloc))); });
        QObject::connect(&barre, &BarreTextes::arrangement, &barre, [note](Arrangement arrangement) {
            note(arrangement == Arrangement::ACote ? u"à côté"_s : u"dessus"_s);
        });
        QObject::connect(&barre, &BarreTextes::proprietes, &barre, [note] { note(u"propriétés"_s); });
        QObject::connect(&barre, &BarreTextes::abc, &barre, [note](bool oui) { note(u"abc %1"_s.arg(oui)); });
        QObject::connect(&barre, &BarreTextes::mot, &barre, [note](bool suivant) { note(u"mot %1"_s.arg(suivant)); });
        QObject::connect(&barre, &BarreTextes::marques, &barre, [note](bool oui) { note(u"marques %1"_s.arg(oui)); });
        QObject::connect(&barre, &BarreTextes::dossiers, &barre, [note] { note(u"dossiers"_s); });
        QObject::connect(&barre, &BarreTextes::ranger, &barre, [note] { note(u"ranger"_s); });
    }

    QStringList dits;
    BarreTextes barre{[](Texte lequel) { return QString::number(static_cast<int>(lequel)); }, nullptr};
};

} // namespace

TEST_F(BarreTextesTest, EveryButtonSaysWhatItIsFor) {
    for (int rang = 1; rang <= barre.buttonCount(); ++rang) {
        const QString cle = barre.keyAt(rang);
        if (!barre.widget(cle))
            continue;
        barre.setButtonEnabled(cle, true);
        barre.setButtonVisible(cle, true);
        barre.widget(cle)->click();
    }
    EXPECT_EQ(dits, (QStringList{u"précédent 0"_s, u"suivant 0"_s, u"haut"_s, u"bas"_s, u"bloc 1"_s, u"bloc 2"_s,
                                 u"bloc 0"_s, u"à côté"_s, u"dessus"_s, u"propriétés"_s, u"abc 1"_s, u"mot 0"_s,
                                 u"mot 1"_s, u"marques 1"_s, u"dossiers"_s, u"ranger"_s}));
}

TEST_F(BarreTextesTest, TheChecksSayTheirStateAndReleasedTheOther) {
    for (const auto& cle : {u"abc"_s, u"abc"_s, u"marqueauto"_s, u"marqueauto"_s}) {
        barre.setButtonVisible(cle, true);
        barre.widget(cle)->click();
    }
    EXPECT_EQ(dits, (QStringList{u"abc 1"_s, u"abc 0"_s, u"marques 1"_s, u"marques 0"_s}));
}

TEST_F(BarreTextesTest, WhatTheProgramShowsIsNoPress) {
    barre.montrebloc(Bloc::Liste);
    barre.montrearrangement(Arrangement::ACote);
    barre.montreabc(true);
    barre.montremarques(true);
    EXPECT_TRUE(barre.value(u"tableau"_s) && barre.value(u"barrehoriz"_s));
    EXPECT_TRUE(barre.value(u"abc"_s) && barre.value(u"marqueauto"_s));
    barre.montrebloc(Bloc::Recherche);
    barre.montrearrangement(Arrangement::Dessus);
    EXPECT_TRUE(barre.value(u"recherchedico"_s) && barre.value(u"barreverti"_s));
    EXPECT_FALSE(barre.value(u"tableau"_s) || barre.value(u"barrehoriz"_s));
    EXPECT_TRUE(dits.isEmpty());
}

TEST_F(BarreTextesTest, AnEntryOfAHistoryIsAJumpToIt) {
    Historique historique;
    historique.precedent.ajoute(u"CO000001"_s, {}, u"un"_s);
    historique.suivant.ajoute(u"CO000002"_s, {}, u"deux"_s);
    historique.suivant.ajoute(u"CO000003"_s, {}, u"trois"_s);
    barre.montrehistorique(historique);
    barre.activehistorique(true, true);
    for (const auto& [cle, rang] : {std::pair{u"Précédent"_s, 0}, {u"Suivant"_s, 1}}) {
        QMenu* menu = barre.menu(cle);
        menu->popup({0, 0});
        menu->actions().at(rang)->trigger();
        menu->close();
    }
    EXPECT_EQ(dits, (QStringList{u"précédent 1"_s, u"suivant 2"_s}));
}

TEST_F(BarreTextesTest, TheButtonsForWordsComeTogetherAndTheWalkMayGoAlone) {
    const QStringList mots{u"motprécédent"_s, u"motsuivant"_s, u"marqueauto"_s};
    const auto visibles = [&] {
        QString etats;
        for (const QString& cle : mots)
            etats += barre.isButtonVisible(cle) ? u'1' : u'0';
        return etats;
    };
    EXPECT_EQ(visibles(), u"000");
    barre.montremots(true);
    EXPECT_EQ(visibles(), u"111");
    barre.cachepasdemots();
    EXPECT_EQ(visibles(), u"001");
}
