// The folded texts beside the bodies: whatever has become of them, a search finds the same.
#include "collection/collection.h"
#include "tests/search/criteres_support.h"

#include <QFile>

#include <sqlite3.h>

using namespace velm;
using namespace velm::test;

namespace {

class TextesPliesTest : public BaseCriteres {
protected:
    void SetUp() override {
        BaseCriteres::SetUp();
        for (int i = 1; i <= 60; ++i)
            pieces.push_back({u"CO"_s + sixchiffres(i), u"t"_s,
                              u"Début %1. "_s.arg(i) + u"Texte qui se répète. "_s.repeated(40) +
                                  (i % 3 == 0 ? u"Un mot Rare."_s : u"Rien."_s)});
        ouvrepieces(true);
        criteres.texterech[0] = u"mot rare"_s;
        criteres.emplacement = {false, true, false};
        for (const Piece& p : pieces) {
            if (p.corps.contains(u"Rare"))
                attendus << p.cle;
        }
    }
    void rouvre() {
        const QString chemin = corpus.chemin();
        corpus.fermebase();
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
    }
    /// Overwrites the first page of a table.
    void abime(const QString& table) {
        constexpr qint64 page = 4096;
        const auto racine =
            corpus.base().openQuery(u"SELECT rootpage FROM sqlite_master WHERE name=\""_s + table + u'"');
        ASSERT_NE(racine, nullptr);
        const qint64 place = (racine->number(0) - 1) * page;
        const QString chemin = corpus.chemin();
        corpus.fermebase();
        QFile fichier(chemin);
        ASSERT_TRUE(fichier.open(QIODevice::ReadWrite) && fichier.seek(place));
        ASSERT_EQ(fichier.write(QByteArray(page, '\xFF')), page);
        fichier.close();
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
    }

    QStringList attendus;
};

/// Runs statements the way any other program does.
bool executeailleurs(const QString& chemin, const char* requetes) {
    sqlite3* base = nullptr;
    const bool faites = sqlite3_open(chemin.toUtf8().constData(), &base) == SQLITE_OK &&
                        sqlite3_exec(base, requetes, nullptr, nullptr, nullptr) == SQLITE_OK;
    sqlite3_close(base);
    return faites;
}

} // namespace

TEST_F(TextesPliesTest, TheyRuleOutWhatTheyDoNotHold) {
    EXPECT_EQ(trouve(), attendus);
    // That they are in use at all shows where they lie.
    change(u"UPDATE textes SET texte=x'00' WHERE rowid=3"_s);
    cherche();
    EXPECT_EQ(cles(), attendus.mid(1));
}

TEST_F(TextesPliesTest, WhatTheyLetThroughIsProvedOnTheBody) {
    change(u"UPDATE textes SET texte=CAST('XX UN MOT RARE' AS BLOB)"_s);
    EXPECT_EQ(trouve(), attendus);
}

TEST_F(TextesPliesTest, TextsOfAnotherVersionAreLeftAlone) {
    for (const QString& version : {u"version+1"_s, u"0"_s, u"NULL"_s, u"'neuf'"_s, u"-1"_s}) {
        change(u"UPDATE textes SET texte=x'00', version="_s + version);
        EXPECT_EQ(trouve(), attendus) << qPrintable(version);
    }
}

TEST_F(TextesPliesTest, MissingTextsAreReadFromTheBodies) {
    change(u"DELETE FROM textes WHERE rowid%2=0"_s);
    EXPECT_EQ(trouve(), attendus);
    change(u"UPDATE textes SET texte=NULL"_s);
    EXPECT_EQ(trouve(), attendus);
    change(u"DELETE FROM textes"_s);
    EXPECT_EQ(trouve(), attendus);
    change(u"DROP TABLE textes"_s);
    rouvre();
    EXPECT_EQ(trouve(), attendus);
}

TEST_F(TextesPliesTest, ATableOfAnotherMakeIsLeftAlone) {
    for (const QString& colonnes : {u"version, autre"_s, u"texte, autre"_s, u"autre"_s}) {
        change(u"DROP TABLE IF EXISTS textes; CREATE TABLE textes("_s + colonnes + u')');
        change(u"INSERT INTO textes SELECT "_s + QString::number(foldedTextVersion()) +
               (colonnes.contains(u',') ? u",x'00'"_s : QString()) + u" FROM données"_s);
        rouvre();
        EXPECT_EQ(trouve(), attendus) << qPrintable(colonnes);
    }
    change(u"DROP TABLE textes; CREATE VIEW textes AS SELECT 1 version, x'00' texte"_s);
    rouvre();
    EXPECT_EQ(trouve(), attendus);
}

TEST_F(TextesPliesTest, DamagedPagesOfTheTableAreNoObstacle) {
    abime(u"textes"_s);
    cherche();
    EXPECT_EQ(cles(), attendus);
}

TEST_F(TextesPliesTest, ADamagedBodyIsARunTimeError) {
    abime(u"données_contenu"_s);
    const GardeArret garde;
    EXPECT_THROW(cherche(), Arret);
}

TEST_F(TextesPliesTest, ACompiledBaseDropsTheTextOfABodyThatSomebodyChanges) {
    const QString chemin = dossier.filePath(u"compilee.dat"_s);
    ASSERT_TRUE(synthese({.documents = 3, .mots = 50}, chemin).faite());
    ASSERT_TRUE(executeailleurs(chemin, "UPDATE données_contenu SET contenu='{\\rtf1 un mot rare}' WHERE id=1;"
                                        "INSERT OR REPLACE INTO données_contenu VALUES(2,'{\\rtf1 mot rare}');"
                                        "DELETE FROM données_contenu WHERE id=3;"
                                        "INSERT INTO données_contenu VALUES(3,'{\\rtf1 le mot rare}');"));
    corpus.fermebase();
    ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
    corpus.ouvretables();
    EXPECT_EQ(trouve().size(), 3);
}
