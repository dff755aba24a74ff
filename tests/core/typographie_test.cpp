// The signs in the delivered texts: each language has its own, and none is left to the code.
#include "platform/text/ansi.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The texts and the tips of a language, each as the line that it stands in.
QStringList lignesdelangue(const QString& langue) {
    QStringList toutes;
    for (const QString& nom : {u"RES2000."_s, u"TIPS."_s}) {
        QFile fichier(QStringLiteral(VELM_SOURCE_DIR "/langues/") + nom + langue);
        EXPECT_TRUE(fichier.open(QIODevice::ReadOnly)) << fichier.fileName().toStdString();
        toutes += ansi::decodeFile(fichier.readAll()).split(u"\r\n"_s, Qt::SkipEmptyParts);
    }
    EXPECT_GT(toutes.size(), 500);
    return toutes;
}

QStringList fautives(const QString& langue, const QString& faute) {
    const QRegularExpression motif(faute);
    return lignesdelangue(langue).filter(motif);
}

} // namespace

TEST(Typographie, FrenchHasANoBreakSpaceBeforeItsHighSignsAndInsideItsQuotes) {
    EXPECT_EQ(fautives(u"FR"_s, u"(?:^|[^\u00A0])[:;?!»]|«(?!\u00A0)"_s), QStringList());
}

TEST(Typographie, EnglishHasNoBlankBeforeItsSignsAndItsOwnQuotes) {
    EXPECT_EQ(fautives(u"EN"_s, u"[ \u00A0\u202F][:;?!,.]|[«»]"_s), QStringList());
}

TEST(Typographie, BothHaveOneSignForThreeDotsAndCurvedApostrophes) {
    for (const auto& langue : {u"FR"_s, u"EN"_s})
        EXPECT_EQ(fautives(langue, u"\\.\\.\\.|['\"]|  "_s), QStringList()) << langue.toStdString();
}

TEST(Typographie, WhatIsPutInAndTheLettersOfKeysAreThoseOfBothLanguages) {
    static const QRegularExpression place(u"%\\d"_s);
    const QStringList francais = lignesdelangue(u"FR"_s);
    const QStringList anglais = lignesdelangue(u"EN"_s);
    ASSERT_EQ(francais.size(), anglais.size());
    const auto places = [](const QString& ligne) {
        QStringList toutes;
        for (const auto& trouvee : place.globalMatch(ligne))
            toutes << trouvee.captured();
        toutes.sort();
        return toutes;
    };
    for (qsizetype rang = 0; rang < francais.size(); ++rang) {
        EXPECT_EQ(places(francais.at(rang)), places(anglais.at(rang))) << anglais.at(rang).toStdString();
        EXPECT_EQ(francais.at(rang).contains(u'&'), anglais.at(rang).contains(u'&')) << anglais.at(rang).toStdString();
        EXPECT_EQ(francais.at(rang).endsWith(u'…'), anglais.at(rang).endsWith(u'…')) << anglais.at(rang).toStdString();
    }
}

} // namespace velm
