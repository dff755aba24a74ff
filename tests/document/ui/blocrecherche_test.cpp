// The block of a document window that looks words up, by itself.
#include "document/ui/blocrecherche.h"
#include "document/ui/etiquette.h"
#include "platform/widgets/look/noteline.h"
#include "tests/support/eventually.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

#include <algorithm>
#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

TEST(BlocRechercheTest, TheBoxAndItsButtonAreWholeInEverySize) {
    BlocRecherche bloc([](Texte) { return u"Mots de la collection"_s; }, nullptr);
    auto* mots = bloc.findChild<QLineEdit*>(u"Textedico"_s);
    auto* bouton = bloc.findChild<QPushButton*>(u"cmdokdico"_s);
    bloc.show();
    const int ligne = std::max(mots->sizeHint().height(), bouton->sizeHint().height());
    for (int largeur = 200; largeur <= 1200; largeur += 50) {
        for (int hauteur = ligne; hauteur <= 12 * ligne; hauteur += 7) {
            bloc.resize(largeur, hauteur);
            ASSERT_TRUE(bloc.rect().contains(mots->geometry())) << largeur << 'x' << hauteur;
            ASSERT_TRUE(bloc.rect().contains(bouton->geometry())) << largeur << 'x' << hauteur;
            ASSERT_FALSE(mots->geometry().intersects(bouton->geometry())) << largeur << 'x' << hauteur;
            ASSERT_GE(mots->width(), 60) << largeur << 'x' << hauteur;
        }
    }
}

TEST(BlocRechercheTest, WithoutRoomForItsLabelTheBoxSaysWhatItIsFor) {
    BlocRecherche bloc([](Texte) { return u"Mots de la collection"_s; }, nullptr);
    auto* mots = bloc.findChild<QLineEdit*>(u"Textedico"_s);
    bloc.show();
    bloc.resize(260, 40);
    EXPECT_EQ(mots->placeholderText(), u"Mots de la collection");
    bloc.resize(260, 400);
    EXPECT_EQ(mots->placeholderText(), QString());
    bloc.resize(100, 400);
    EXPECT_EQ(mots->placeholderText(), QString()) << "it would be cut";
    bloc.resize(900, 40);
    EXPECT_EQ(mots->placeholderText(), QString());
}

TEST(BlocRechercheTest, ALineStandsInTheMiddleOfALowBlockAndOnTopOfAHighOne) {
    BlocRecherche bloc([](Texte) { return u"Mots de la collection"_s; }, nullptr);
    const auto* bouton = bloc.findChild<QPushButton*>(u"cmdokdico"_s);
    bloc.show();
    const int ligne = bouton->height();
    for (const int largeur : {260, 900}) {
        bloc.resize(largeur, ligne + 20);
        EXPECT_NEAR(bouton->geometry().center().y(), bloc.rect().center().y(), 1) << largeur;
        bloc.resize(largeur, 2 * ligne + 200);
        EXPECT_LT(bouton->geometry().top(), bloc.height() / 3) << largeur;
    }
}

TEST(BlocRechercheTest, TheLabelIsSeenWhereItIsWhole) {
    BlocRecherche bloc([](Texte) { return u"Mots de la collection"_s; }, nullptr);
    const auto* etiquette = bloc.findChild<Etiquette*>();
    bloc.show();
    const int besoin = etiquette->sizeHint().width();
    for (const auto& [taille, vue] : {std::pair{QSize(900, 40), true},
                                      {QSize(900, 400), true},
                                      {QSize(260, 400), true},
                                      {QSize(260, 40), false},
                                      {QSize(besoin - 1, 400), false}}) {
        bloc.resize(taille);
        EXPECT_EQ(etiquette->isVisible(), vue) << taille.width() << 'x' << taille.height();
        EXPECT_TRUE(!vue || etiquette->width() >= besoin) << taille.width() << 'x' << taille.height();
    }
}

TEST(BlocRechercheTest, WhatCameOfASearchIsSaidBesideTheBoxInEverySize) {
    BlocRecherche bloc([](Texte) { return u"Mots de la collection"_s; }, nullptr);
    auto* note = bloc.findChild<NoteLine*>();
    auto* mots = bloc.findChild<QLineEdit*>(u"Textedico"_s);
    auto* bouton = bloc.findChild<QPushButton*>(u"cmdokdico"_s);
    bloc.show();
    EXPECT_FALSE(note->isVisible());
    bloc.dit({u"Aucun document ne contient « zzzqq » dans cette collection."_s, true, false});
    const int ligne = std::max(mots->sizeHint().height(), bouton->sizeHint().height());
    for (const QSize& taille : {QSize(1200, ligne + 8), QSize(900, ligne + 8), QSize(1200, 200), QSize(240, 400)}) {
        bloc.resize(taille);
        EXPECT_TRUE(note->isVisible());
        EXPECT_TRUE(bloc.rect().contains(note->geometry())) << taille.width() << 'x' << taille.height();
        EXPECT_FALSE(note->geometry().intersects(mots->geometry())) << taille.width() << 'x' << taille.height();
        EXPECT_FALSE(note->geometry().intersects(bouton->geometry())) << taille.width() << 'x' << taille.height();
        EXPECT_GE(note->height(), note->heightForWidth(note->width())) << taille.width() << 'x' << taille.height();
    }
    for (int largeur = 360; largeur <= 1200; largeur += 20) {
        bloc.resize(largeur, ligne + 8);
        const auto* dit = note->findChild<QLabel*>();
        EXPECT_TRUE(bloc.rect().contains(note->geometry())) << largeur;
        EXPECT_FALSE(note->geometry().intersects(bouton->geometry())) << largeur;
        EXPECT_GE(note->height(), dit->heightForWidth(dit->width())) << largeur;
        EXPECT_GE(note->width(), std::min(200, largeur - bouton->width() - 200)) << largeur;
        EXPECT_GE(mots->width(), 160) << largeur;
    }
    QTest::keyClicks(mots, u"b"_s);
    EXPECT_FALSE(note->isVisible()) << "other words";
}

TEST(BlocRechercheTest, TheResultIsAsHighAsItsLines) {
    BlocRecherche bloc([](Texte) { return u"Mots"_s; }, nullptr);
    bloc.resize(300, 400);
    bloc.show();
    QListWidget& resultat = *bloc.resultat();
    const auto libre = [&resultat] {
        const QRect derniere = resultat.visualItemRect(resultat.item(resultat.count() - 1));
        return resultat.viewport()->height() - derniere.bottom();
    };
    bloc.ajouteligne(u"garantie : 27 ( 11 )"_s);
    EXPECT_GT(libre(), 0);
    EXPECT_LT(libre(), resultat.sizeHintForRow(0));
    for (int ligne = 0; ligne < 4; ++ligne)
        bloc.ajouteligne(u"bail : 3 ( 1 )"_s);
    bloc.dit({u"6 documents"_s, false, false});
    EXPECT_GT(libre(), 0);
    EXPECT_LT(libre(), resultat.sizeHintForRow(0));
    EXPECT_EQ(resultat.verticalScrollBar()->maximum(), 0);
    for (int ligne = 0; ligne < 40; ++ligne)
        bloc.ajouteligne(u"bail : 3 ( 1 )"_s);
    bloc.dit({u"46 documents"_s, false, false});
    EXPECT_LT(resultat.geometry().bottom(), bloc.height());
    EVENTUALLY(resultat.verticalScrollBar()->maximum() > 0);
}

TEST(BlocRechercheTest, OfASearchThatWasCutAllIsALinkAway) {
    BlocRecherche bloc([](Texte) { return u"Mots"_s; }, nullptr);
    QSignalSpy recherche(&bloc, &BlocRecherche::recherche);
    auto* note = bloc.findChild<NoteLine*>();
    auto* mots = bloc.findChild<QLineEdit*>(u"Textedico"_s);
    bloc.resize(900, 200);
    bloc.show();
    mots->setText(u"bail"_s);
    QTest::keyClick(mots, Qt::Key_Return);
    EXPECT_FALSE(recherche.at(0).at(1).toBool());
    bloc.ajouteligne(u"bail : 545 ( 39 )"_s);
    bloc.dit({u"200 premiers documents sur 545"_s, false, true});
    EXPECT_EQ(bloc.resultat()->count(), 1);
    EXPECT_GE(bloc.resultat()->y(), note->geometry().bottom());
    mots->setText(u"autre"_s);
    QTest::mouseClick(note->link(), Qt::LeftButton);
    ASSERT_EQ(recherche.size(), 2);
    EXPECT_EQ(recherche.at(1).at(0).toString(), u"bail") << "as it was searched";
    EXPECT_TRUE(recherche.at(1).at(1).toBool());
    EXPECT_FALSE(note->isVisible()) << "until it is said anew";
    EXPECT_EQ(bloc.resultat()->count(), 0);
}

TEST(BlocRechercheTest, AnEmptyListOfLinesIsNotSeen) {
    BlocRecherche bloc([](Texte) { return u"Mots"_s; }, nullptr);
    bloc.resize(900, 300);
    bloc.show();
    EXPECT_FALSE(bloc.resultat()->isVisible());
    bloc.ajouteligne(u"bail : 545 ( 39 )"_s);
    EXPECT_TRUE(bloc.resultat()->isVisible());
}
