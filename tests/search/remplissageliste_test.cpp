// How searches fill the selection list, one after the other.
#include "search/recherchecriteres.h"
#include "search/rechercherapide.h"
#include "tests/search/controleliste_support.h"

using namespace velm;
using namespace velm::test;

namespace {

using Marque = ListeSelection::Marque;

/// Twelve documents, "Titre 1" to "Titre 12".
class RemplissageListeTest : public AvecControle {
protected:
    void SetUp() override {
        AvecControle::SetUp();
        ajoutedocuments(12);
        ouvre();
        demarre();
    }

    void remplit(const Poste::Travail& travail) {
        remplissage().remplit(travail, [] { ADD_FAILURE() << "the memory suffices"; });
    }
    Marche marche(const std::stop_token& voulu) {
        return remplissage().marche(voulu, [this](qint64 vus, qint64 total) { progres.push_back({vus, total}); });
    }
    void cherchevite(const QString& texte = {}, const QByteArray& lettres = touteslettres()) {
        remplit([&](const std::stop_token& voulu) {
            Marche tours = marche(voulu);
            RechercheRapide(corpus, tours).cherche({texte, lettres}, remplissage().nouveau());
            remplissage().acheve();
        });
    }
    void cherche(const QString& texte = {}, const QByteArray& lettres = touteslettres()) {
        criteres.texterech[0] = texte;
        remplit([&](const std::stop_token& voulu) {
            Marche tours = marche(voulu);
            RechercheCriteres(corpus, tours).cherche(criteres, types, lettres, remplissage().nouveau());
            remplissage().acheve();
        });
    }
    void affine(const QString& texte) {
        criteres.texterech[0] = texte;
        remplit([&](const std::stop_token& voulu) {
            Marche tours = marche(voulu);
            RechercheCriteres(corpus, tours).affine(criteres, types, remplissage().present());
            remplissage().acheve();
        });
    }
    ListeSelection& liste() const { return controle->liste(); }

    /// The walks through collections.
    const std::array<std::function<void(const QByteArray&)>, 2> toutes{
        [this](const QByteArray& lettres) { cherchevite({}, lettres); },
        [this](const QByteArray& lettres) { cherche({}, lettres); }};

    Criteres criteres = [] {
        Criteres titresseuls;
        titresseuls.emplacement = {true, false, false};
        return titresseuls;
    }();
    TypesDocument types;
};

} // namespace

TEST_F(RemplissageListeTest, TheListIsHiddenWhileASearchFillsItAndShowsAtItsEnd) {
    int tours = 0;
    evenement = [&] {
        ++tours;
        EXPECT_FALSE(remplissage().visible());
        EXPECT_FALSE(grille.montree);
        EXPECT_TRUE(grille.figee);
        EXPECT_TRUE(remplissage().encours());
    };
    int avant = 0;
    for (int laquelle = 0; laquelle < 3; ++laquelle) {
        if (laquelle < 2)
            toutes.at(static_cast<std::size_t>(laquelle))(touteslettres());
        else
            affine(u"titre 1"_s);
        EXPECT_EQ(tours - std::exchange(avant, tours), 12);
        EXPECT_TRUE(remplissage().visible());
        EXPECT_TRUE(grille.montree);
        EXPECT_FALSE(remplissage().encours());
        EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
    }
    EXPECT_EQ(liste().lignes(), 4);
}

TEST_F(RemplissageListeTest, NarrowedRowsStandAsTheyStoodWithoutAMark) {
    cherche();
    controle->trie(0);
    controle->trie(0);
    ASSERT_EQ(liste().marque(0), Marque::Descendante);
    grille.marques[0] = Marque::Descendante;
    affine(u"titre 1"_s);
    EXPECT_EQ(liste().marque(0), Marque::Aucune);
    EXPECT_EQ(grille.marques[0], Marque::Aucune);
    QStringList titres;
    for (int rang = 1; rang <= liste().lignes(); ++rang)
        titres << liste().champ(rang, ListeSelection::Titre);
    EXPECT_EQ(titres, (QStringList{u"Titre 12"_s, u"Titre 11"_s, u"Titre 10"_s, u"Titre 1"_s}));
}

TEST_F(RemplissageListeTest, TheSelectionStaysWithinTheRowsThatAreLeft) {
    cherche();
    grille.choisit(11, 12);
    controle->ouvre();
    affine(u"titre 1"_s);
    EXPECT_EQ(grille.choisies, (std::pair{4, 4}));
    affine(u"absent"_s);
    EXPECT_EQ(grille.choisies, (std::pair{0, 0}));
    EXPECT_FALSE(panneau.permis(Ordre::SuivantRecherche));
    EXPECT_TRUE(panneau.permis(Ordre::OuvrirCriteres));
    EXPECT_TRUE(remplissage().visible());
    EXPECT_TRUE(grille.montree);
    EXPECT_EQ(panneau.etats.last(), u" 0 document");
}

TEST_F(RemplissageListeTest, AStoppedSearchShowsWhatItHasFound) {
    for (const auto& recherche : toutes) {
        evenement = [this] {
            if (liste().lignes() == 3)
                remplissage().arrete();
        };
        recherche(touteslettres());
        EXPECT_EQ(liste().resultat().issue, Resultat::Issue::Arretee);
        EXPECT_EQ(liste().lignes(), 3);
        EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
        EXPECT_TRUE(remplissage().visible());
        EXPECT_EQ(panneau.etats.last(), u" 3 documents");
    }
}

TEST_F(RemplissageListeTest, ASearchWithoutACollectionShowsAnEmptyList) {
    for (const auto& recherche : toutes) {
        cherchevite();
        panneau.etats.clear();
        progres.clear();
        recherche({});
        EXPECT_EQ(liste().lignes(), 0);
        EXPECT_FALSE(panneau.permis(Ordre::SuivantRecherche));
        EXPECT_TRUE(panneau.permis(Ordre::OuvrirCriteres));
        EXPECT_TRUE(remplissage().visible());
        EXPECT_TRUE(progres.empty());
        EXPECT_EQ(panneau.etats, QStringList(QString())) << "nothing is told of nothing";
    }
}

TEST_F(RemplissageListeTest, ASearchTellsHowFarItIsAndWhatItHasFoundByThen) {
    cherche(u"titre 2"_s);
    ASSERT_EQ(progres.size(), 13U);
    EXPECT_EQ(progres.front(), (std::pair<qint64, qint64>(0, 12)));
    EXPECT_EQ(progres.back(), (std::pair<qint64, qint64>(11, 12)));
    ASSERT_GT(panneau.etats.size(), 2);
    EXPECT_EQ(panneau.etats.first(), QString()) << "nothing is told before there is something";
    EXPECT_EQ(panneau.etats.at(1), u" 1 document");
    EXPECT_EQ(panneau.etats.last(), u" 1 document");
}

TEST_F(RemplissageListeTest, ASearchThatBeginsMeanwhileEndsTheOneThatRuns) {
    bool lancee = false;
    evenement = [&] {
        if (liste().lignes() == 3 && !std::exchange(lancee, true))
            remplissage().remplitdecles({u"CO000012"_s});
    };
    cherche();
    EXPECT_EQ(liste().lignes(), 1);
    EXPECT_EQ(liste().cle(1), u"CO000012");
    EXPECT_EQ(grille.plusprofond, 1);
    EXPECT_EQ(panneau.publications, (std::vector<bool>{true, true}));
    EXPECT_TRUE(remplissage().visible());
    EXPECT_TRUE(grille.montree);
}

TEST_F(RemplissageListeTest, WhatTheMemoryDidNotSufficeForIsGivenUpOnceBeforeTheUserIsTold) {
    int abandons = 0;
    cherche();
    remplissage().remplit(
        [this](const std::stop_token&) {
            remplissage().nouveau().lignes.ajoute({u"CO", u"000001", u"t", u"", u"", u"", u"CO000001"});
            throw std::bad_alloc();
        },
        [&] {
            ++abandons;
            EXPECT_TRUE(dialogues.messages.empty());
            EXPECT_TRUE(remplissage().visible());
        });
    EXPECT_EQ(abandons, 1);
    EXPECT_EQ(dialogues.texts(), QStringList{u"t9567"_s});
    EXPECT_EQ(liste().lignes(), 1);
    EXPECT_TRUE(grille.montree);
    EXPECT_FALSE(grille.figee);
    EXPECT_TRUE(panneau.permis(Ordre::SuivantRecherche));
}
