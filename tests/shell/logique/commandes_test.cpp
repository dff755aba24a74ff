// The table of the commands.
#include "core/cle.h"
#include "core/langue.h"
#include "shell/logique/commandes.h"
#include "shell/logique/placesdesbarres.h"

#include <QSet>

#include <algorithm>
#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Every command with each of its ranks.
template <class Chose>
void pourchacune(const Chose& chose) {
    for (const LigneCommande& ligne : commandes()) {
        SCOPED_TRACE("command " + std::to_string(static_cast<int>(ligne.ordre)));
        for (int rang = 0; rang < ligne.nombre; ++rang)
            chose(ligne, rang);
    }
}

/// What stands on the four bars, and at the side of their buttons.
std::vector<Ordre> boutons() {
    std::vector<Ordre> tous;
    const auto ajoute = [&tous](std::span<const PlaceDeBarre> places) {
        for (const PlaceDeBarre& place : places) {
            if (!place.ordre)
                continue;
            tous.push_back(*place.ordre);
            for (const Ordre acote : entreesdubouton(*place.ordre))
                tous.push_back(acote);
        }
    };
    for (const Barre barre : toutesbarres)
        ajoute(placesde(barre));
    ajoute(placesdelaliste());
    return tous;
}

} // namespace

TEST(CommandesTest, EveryCommandHasNamesOfItsOwn) {
    QSet<QString> vus;
    const auto unique = [&vus](const QString& nom) {
        EXPECT_FALSE(vus.contains(nom)) << nom.toStdString();
        vus.insert(nom);
    };
    pourchacune([&](const LigneCommande& ligne, int rang) {
        const OrdreRang elle{ligne.ordre, rang};
        const QString cle = boutonde(ligne.ordre, rang);
        const QString entree = entreede(ligne.ordre, rang);
        EXPECT_FALSE(cle.isEmpty() && entree.isEmpty());
        if (!cle.isEmpty()) {
            unique(u"button "_s + cle);
            EXPECT_EQ(ordredubouton(cle), elle) << cle.toStdString();
        }
        if (!entree.isEmpty())
            unique(u"entry "_s + entree);
    });
}

TEST(CommandesTest, NamesAreWhatTheyHaveAlwaysBeen) {
    EXPECT_EQ(entreede(Ordre::Quitter, 0), u"mfichier3");
    EXPECT_EQ(entreede(Ordre::EjecterPage, 0), u"mfichier2(2)");
    EXPECT_EQ(entreede(Ordre::Copier, 0), u"medition0(0)");
    EXPECT_EQ(entreede(Ordre::Fenetre, 0), u"mlistefenetre(1)") << "entries count from 1";
    EXPECT_EQ(entreede(Ordre::Collection, 0), u"maffichagef(0)");
    EXPECT_EQ(entreede(Ordre::PlaceOutils, 2), u"mbarre3(2)");
    EXPECT_EQ(entreede(Ordre::Outil, 19), u"moutils1(19)");
    EXPECT_EQ(entreede(Ordre::Rechercher, 0), QString()) << "it has but a button";
    EXPECT_EQ(ordredubouton(u"JP"), (OrdreRang{Ordre::Collection, 2}));
    EXPECT_EQ(ordredubouton(u"Index"), (OrdreRang{Ordre::Collection, nombredecollections}));
    EXPECT_EQ(ordredubouton(u"motclé"), (OrdreRang{Ordre::MotCle}));
}

TEST(CommandesTest, AnUnknownNameIsNoCommand) {
    for (const QStringView cle : {u"", u"copier", u"Copié", u"Precedent", u"XX", u"outil0", u"outil21", u"mfichier3"})
        EXPECT_EQ(ordredubouton(cle), std::nullopt) << cle.toString().toStdString();
}

TEST(CommandesTest, NoShortcutStandsTwice) {
    QSet<QString> vues;
    int nombre = 0;
    for (const LigneCommande& ligne : commandes()) {
        if (ligne.touche.isEmpty())
            continue;
        EXPECT_EQ(ligne.nombre, 1) << "a key is one command's";
        vues.insert(ligne.touche.toString());
        ++nombre;
    }
    EXPECT_EQ(vues.size(), nombre);
    EXPECT_GT(nombre, 8);
}

TEST(CommandesTest, EveryButtonHasItsPlaceAndOnlyOne) {
    const std::vector<Ordre> places = boutons();
    for (const LigneCommande& ligne : commandes()) {
        const auto fois = std::ranges::count(places, ligne.ordre);
        EXPECT_EQ(fois, ligne.bouton.cle.isEmpty() ? 0 : 1) << ligne.bouton.cle.toString().toStdString();
    }
}

TEST(CommandesTest, TheirWordsAreInBothLanguages) {
    for (const char* extension : {"FR", "EN"}) {
        Langue langue([](const QString& numero) { ADD_FAILURE() << "no text " << numero.toStdString(); });
        langue.choisitfichier(QStringLiteral(VELM_SOURCE_DIR), QStringLiteral(VELM_SOURCE_DIR),
                              QString::fromLatin1(extension));
        pourchacune([&](const LigneCommande& ligne, int rang) {
            // The titles of documents and tools come at run time.
            if (ligne.ordre == Ordre::DernierDocument || ligne.ordre == Ordre::Outil)
                return;
            const auto libelle = libellede(ligne.ordre, rang);
            EXPECT_TRUE(libelle && !langue.lireressource(*libelle).isEmpty());
            const auto bulle = bullede(ligne.ordre, rang);
            EXPECT_TRUE(!bulle || !langue.lireressource(*bulle).isEmpty());
        });
    }
}

TEST(CommandesTest, ThoseOfASlotAreNumberedByIt) {
    EXPECT_EQ(libellede(Ordre::Collection, 3), Texte{13});
    EXPECT_EQ(bullede(Ordre::Collection, 3), Texte{13});
    EXPECT_EQ(imagede(Ordre::Collection, 3), u"collection3");
    EXPECT_EQ(libellede(Ordre::Fenetre, 3), Texte{13});
    EXPECT_FALSE(bullede(Ordre::Fenetre, 3)) << "it has no button";
    EXPECT_EQ(imagede(Ordre::Copier, 0), u"Copier");
    EXPECT_NE(libellede(Ordre::PlaceEcran, 0), libellede(Ordre::PlaceEcran, 4));
    EXPECT_EQ(libellede(Ordre::Rechercher, 0), bullede(Ordre::Rechercher, 0)) << "a button's tip is its caption";
}

TEST(CommandesTest, TheListsAreOpenedByCommandsThatStayDown) {
    for (const Ordre ordre : {Ordre::Index, Ordre::Chrono}) {
        EXPECT_EQ(lignede(ordre).besoin, Besoin::Rien);
        EXPECT_EQ(lignede(ordre).forme, Forme::Bascule);
    }
    EXPECT_EQ(besoindunom(u"chrono"), Besoin::Rien);
    EXPECT_EQ(besoindunom(u"maffichagef(11)"), Besoin::Rien) << "the index among the collections";
}

TEST(CommandesTest, WhatACommandNeedsIsKnownByItsNames) {
    EXPECT_EQ(besoindunom(u"imprimereject"), Besoin::Etat);
    EXPECT_EQ(besoindunom(u"maide0(1)"), Besoin::Attente) << "by its entry as well";
    EXPECT_EQ(besoindunom(u"Copier"), Besoin::Fenetre);
    EXPECT_EQ(besoindunom(u"CO"), Besoin::Rien);
    EXPECT_FALSE(besoindunom(u"dossiers"));
    EXPECT_FALSE(besoindunom(u""));
}

} // namespace velm
