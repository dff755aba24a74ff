#include "collection/tableau.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

struct Fait {
    QStringList rangees;
    DispositionTableau disposition;
    int fautes = 0;

    explicit Fait(const QStringList& textes) : rangees(textes) {
        std::vector<QStringView> vues(rangees.begin(), rangees.end());
        disposition = disposetableau(vues, [this](QStringView, bool) { ++fautes; });
    }
    /// Lines with "|" between cells; a row's last line ends in ".".
    QStringList lignes() const {
        QStringList resultat;
        for (const LigneDeTableau& ligne : disposition.lignes) {
            QStringList cellules;
            for (const auto& cellule : ligne.cellules) {
                QString texte;
                for (const Fragment& fragment : cellule)
                    texte += fragment.texte;
                cellules << texte;
            }
            resultat << cellules.join(u'|') + (ligne.derniere ? u"."_s : QString());
        }
        return resultat;
    }
};

TEST(Tableau, RowsThatFitStandOnTabStops) {
    const Fait fait({u"Jusqu'à 1 999\t15 %"_s, u"De 2 000 à 3 499\t12,5 %"_s});
    EXPECT_EQ(fait.lignes(), (QStringList{u"Jusqu'à 1 999|15 %."_s, u"De 2 000 à 3 499|12,5 %."_s}));
    EXPECT_EQ(fait.disposition.demipoints, 20);
    ASSERT_EQ(fait.disposition.taquets.size(), 1U);
    // Behind the widest text of the first column: some 1,500 twips at ten points.
    EXPECT_GT(fait.disposition.taquets[0], 1300);
    EXPECT_LT(fait.disposition.taquets[0], 2100);
}

TEST(Tableau, ALongLastColumnHangsUnderItsStop) {
    const QString longue = u"mot "_s.repeated(80).trimmed();
    const Fait fait({u"terme\t"_s + longue});
    EXPECT_EQ(fait.lignes(), QStringList{u"terme|"_s + longue + u'.'});
    ASSERT_EQ(fait.disposition.taquets.size(), 1U);
    EXPECT_EQ(fait.disposition.suspendu, fait.disposition.taquets[0]);
}

TEST(Tableau, LongCellsAreWrappedInTheirColumns) {
    const QString longue = u"mots assez longs "_s.repeated(20).trimmed();
    const Fait fait({longue + u'\t' + longue + u"\tfin"_s});
    EXPECT_GT(fait.lignes().size(), 3);
    EXPECT_TRUE(fait.lignes().front().endsWith(u"|fin"_s));
    for (const LigneDeTableau& ligne : fait.disposition.lignes) {
        for (const auto& cellule : ligne.cellules) {
            qsizetype longueur = 0;
            for (const Fragment& fragment : cellule)
                longueur += fragment.texte.size();
            EXPECT_LT(longueur, 60);
        }
    }
    // Put together again the cells hold every word.
    QString premiere;
    for (const LigneDeTableau& ligne : fait.disposition.lignes) {
        for (const Fragment& fragment : ligne.cellules[0])
            premiere += fragment.texte;
        premiere += u' ';
    }
    EXPECT_EQ(premiere.simplified(), longue);
}

TEST(Tableau, TheAuthorsBreaksInsideACellAreKept) {
    const Fait fait({u"un\ndeux\tA"_s, u"trois\tB\nC"_s});
    EXPECT_EQ(fait.lignes(), (QStringList{u"un|A"_s, u"deux."_s, u"trois|B"_s, u"|C."_s}));
}

TEST(Tableau, ManyColumnsTakeASmallerSize) {
    QStringList cellules;
    for (int c = 0; c < 20; ++c)
        cellules << u"1234"_s;
    const Fait fait({cellules.join(u'\t')});
    EXPECT_LT(fait.disposition.demipoints, 18);
    EXPECT_EQ(fait.disposition.taquets.size(), 19U);
    EXPECT_LT(fait.disposition.taquets.back(), 9000);
    EXPECT_EQ(fait.lignes().size(), 1);
}

TEST(Tableau, WhatFitsAtNoSizeIsSetOneAfterTheOther) {
    QStringList cellules;
    for (int c = 0; c < 22; ++c)
        cellules << u"anticonstitutionnellement"_s;
    const Fait fait({cellules.join(u'\t')});
    EXPECT_EQ(fait.lignes(), QStringList{cellules.join(u" — "_s) + u'.'});
    EXPECT_TRUE(fait.disposition.taquets.empty());
    EXPECT_GT(fait.disposition.suspendu, 0);
}

TEST(Tableau, ALoneCellTakesTheWholeWidth) {
    const QString remarque = u"remarque "_s.repeated(60).trimmed();
    const Fait fait({u"a\tb"_s, remarque + u"\t"_s, u"c\td"_s});
    EXPECT_EQ(fait.lignes(), (QStringList{u"a|b."_s, remarque + u'.', u"c|d."_s}));
    EXPECT_TRUE(fait.disposition.lignes[1].pleine);
    EXPECT_FALSE(fait.disposition.lignes[0].pleine);
    EXPECT_LT(fait.disposition.taquets[0], 600);
}

TEST(Tableau, EmptyCellsForSpansKeepTheirPlaceAndEmptyRowsGo) {
    const Fait fait({u"\tb\t\td"_s, u"\t\t\t"_s, u""_s});
    EXPECT_EQ(fait.lignes(), QStringList{u"|b||d."_s});
    EXPECT_EQ(Fait({u"\t"_s}).lignes(), QStringList{});
}

TEST(Tableau, LinksAndFormatsOfCellsComeAlong) {
    const Fait fait({u"**gras** {L=L. 1-1|CO000001}\tx"_s});
    ASSERT_EQ(fait.disposition.liens.size(), 1U);
    EXPECT_EQ(fait.disposition.liens[0].cible, u"CO000001");
    const auto& cellule = fait.disposition.lignes[0].cellules[0];
    EXPECT_TRUE(cellule.front().gras);
    EXPECT_EQ(cellule.front().lien, -1);
    EXPECT_EQ(cellule.back().lien, 0);
    EXPECT_EQ(fait.lignes(), QStringList{u"gras L. 1-1|x."_s});
}

TEST(Tableau, AnInclusionInACellIsReported) {
    EXPECT_EQ(Fait({u"a{I=CO000001}\tb"_s}).fautes, 1);
}

} // namespace
} // namespace velm
