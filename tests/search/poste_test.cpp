#include "search/poste.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <stdexcept>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class PosteTest : public testing::Test {
protected:
    /// A search that takes turns until it is stopped, or until `evenement` has nothing more to do.
    Poste::Travail recherche(const QString& nom) {
        return [this, nom](const std::stop_token& arret) {
            journal << nom;
            ++profondeur;
            EXPECT_EQ(profondeur, 1) << "one stands on another";
            EXPECT_TRUE(poste.occupe());
            EXPECT_FALSE(arret.stop_requested()) << "it begins stopped";
            for (int tour = 0; tour < 5; ++tour) {
                if (!poste.cession().cede(arret)) {
                    journal << nom + u" arrêtée"_s;
                    break;
                }
            }
            --profondeur;
        };
    }
    /// Does something at the first turn of the next search.
    void pendant(std::function<void()> chose) { evenement = std::move(chose); }

    Poste poste{[this] {
                    if (auto chose = std::exchange(evenement, {}))
                        chose();
                },
                std::chrono::milliseconds(0)};
    std::function<void()> evenement;
    QStringList journal;
    int profondeur = 0;
};

} // namespace

TEST_F(PosteTest, WorkIsDoneAtOnceAndToItsEnd) {
    EXPECT_FALSE(poste.occupe());
    poste.fait(recherche(u"une"_s));
    poste.fait(recherche(u"autre"_s));
    EXPECT_EQ(journal, (QStringList{u"une"_s, u"autre"_s}));
    EXPECT_FALSE(poste.occupe());
}

TEST_F(PosteTest, WhatIsWantedMeanwhileStopsASearchAndBeginsWhenItHasLeft) {
    pendant([this] {
        poste.fait(recherche(u"autre"_s));
        EXPECT_EQ(journal, QStringList{u"une"_s}) << "it comes back at once";
        EXPECT_TRUE(poste.occupe());
    });
    poste.fait(recherche(u"une"_s));
    EXPECT_EQ(journal, (QStringList{u"une"_s, u"une arrêtée"_s, u"autre"_s}));
    EXPECT_FALSE(poste.occupe());
}

TEST_F(PosteTest, OfSeveralThatWaitTheNewestAloneIsDone) {
    pendant([this] {
        poste.fait(recherche(u"vieille"_s));
        poste.fait(recherche(u"neuve"_s));
    });
    poste.fait(recherche(u"une"_s));
    EXPECT_EQ(journal, (QStringList{u"une"_s, u"une arrêtée"_s, u"neuve"_s}));
}

TEST_F(PosteTest, WhatBeginsBehindAnotherCanBeStoppedAsWell) {
    pendant([this] {
        poste.fait(recherche(u"autre"_s));
        pendant([this] { poste.arrete(); });
    });
    poste.fait(recherche(u"une"_s));
    EXPECT_EQ(journal, (QStringList{u"une"_s, u"une arrêtée"_s, u"autre"_s, u"autre arrêtée"_s}));
}

TEST_F(PosteTest, AStopEndsWhatIsDoneAndNothingWaitsAnyMore) {
    pendant([this] {
        poste.fait(recherche(u"autre"_s));
        poste.arrete();
    });
    poste.fait(recherche(u"une"_s));
    EXPECT_EQ(journal, (QStringList{u"une"_s, u"une arrêtée"_s}));
    EXPECT_FALSE(poste.occupe());
}

TEST_F(PosteTest, AStopWhileNothingIsDoneStopsNothingThatComes) {
    poste.arrete();
    poste.fait(recherche(u"une"_s));
    EXPECT_EQ(journal, QStringList{u"une"_s});
}

TEST_F(PosteTest, WorkThatEndsInAnErrorLeavesThePlace) {
    EXPECT_THROW(poste.fait([](const std::stop_token&) { throw std::runtime_error("une"); }), std::runtime_error);
    EXPECT_FALSE(poste.occupe());
    poste.fait(recherche(u"autre"_s));
    EXPECT_EQ(journal, QStringList{u"autre"_s});
}
