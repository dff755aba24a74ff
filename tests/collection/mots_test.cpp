#include "collection/mots.h"
#include "collection/vocabulaire.h"
#include "platform/text/letters.h"
#include "platform/text/number.h"

#include <gtest/gtest.h>
#include <map>
#include <set>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

/// Documents without bodies: only their keys matter here.
class Cles : public Provenance {
public:
    explicit Cles(std::vector<CleDocument> cles) : cles_(std::move(cles)) {}
    qsizetype nombre() const override { return static_cast<qsizetype>(cles_.size()); }
    CleDocument cle(qsizetype i) const override { return cles_[static_cast<std::size_t>(i)]; }
    qsizetype cherche(CleDocument) const override { return -1; }
    Entete entete(qsizetype) const override { return {}; }
    Corps corps(qsizetype) const override { return {}; }
    Probleme lieu(qsizetype) const override { return {}; }
    const std::vector<Noeud>& noeuds() const override { return noeuds_; }
    const std::vector<TypeDeDocument>& types() const override { return types_; }
    const Sections& sections() const override { return sections_; }

private:
    std::vector<CleDocument> cles_;
    std::vector<Noeud> noeuds_;
    std::vector<TypeDeDocument> types_;
    Sections sections_;
};

QStringList motsde(const QString& texte) {
    std::vector<std::unique_ptr<Repertoire>> repertoires;
    repertoires.push_back(std::make_unique<Repertoire>());
    repertoires[0]->note(0, texte);
    const Dictionnaire dictionnaire(repertoires);
    QStringList mots;
    for (qsizetype i = 0; i < dictionnaire.nombre(); ++i)
        mots << dictionnaire.mot(i);
    return mots;
}

TEST(Mots, TheSeparatorsAreExactlyThese) {
    const QString separateurs =
        u"\r\n ,.[]/»«“`@&¶§\"\t()'{}:!;?-+=<>_°%…|"_s + QChar(char16_t(255)) + QChar(char16_t(160));
    for (char16_t unite = 1; unite < 0xFFFF; ++unite)
        EXPECT_EQ(estseparateur(unite), separateurs.contains(QChar(unite))) << int(unite);
    EXPECT_FALSE(estseparateur(u'*'));
    EXPECT_FALSE(estseparateur(u'’'));
    EXPECT_FALSE(estseparateur(u'–'));
}

TEST(Mots, WordsAreCutUpperCasedAndSortedWithTheirAccents) {
    EXPECT_EQ(motsde(u"Le créancier, l'Œuvre (cœur) ; éàê…le LE"_s),
              (QStringList{u"CRÉANCIER"_s, u"CŒUR"_s, u"ÉÀÊ"_s, u"LE"_s, u"ŒUVRE"_s}));
}

TEST(Mots, WhatTheSearchRefusesIsLeftOut) {
    EXPECT_EQ(motsde(u"a à 12 1999 2e 3ème L122 art1 R*314 L122-3 9"_s), QStringList{});
    // A leading zero is no number that the search would see.
    EXPECT_EQ(motsde(u"0abc 00 0x ab1c"_s), (QStringList{u"0ABC"_s, u"0X"_s, u"AB1C"_s}));
    EXPECT_TRUE(motrefuse(u"1d2x"));
    EXPECT_TRUE(motrefuse(QString(256, u'a')));
    EXPECT_FALSE(motrefuse(QString(255, u'a')));
}

TEST(Mots, AWordWithATypographicApostropheIsIndexedWholeAndByItsParts) {
    EXPECT_EQ(motsde(u"l’article aujourd’hui"_s),
              (QStringList{u"ARTICLE"_s, u"AUJOURD"_s, u"AUJOURD’HUI"_s, u"HUI"_s, u"L’ARTICLE"_s}));
    EXPECT_EQ(motsde(u"rock’n’roll l’1"_s), (QStringList{u"ROCK"_s, u"ROCK’N’ROLL"_s, u"ROLL"_s}));
    // The narrow blank is no separator either, and would hide the word before a colon.
    EXPECT_EQ(motsde(u"mot\u202F: fin"_s), (QStringList{u"FIN"_s, u"MOT"_s, u"MOT\u202F"_s}));
}

TEST(Mots, CharactersOutsideTheCodePageAreWordsLikeOthers) {
    EXPECT_EQ(motsde(u"łódź ελληνικά 日本 Ÿser"_s).size(), 4);
}

TEST(Mots, PostingsStandInTheOrderOfTheElevenThenByNumber) {
    // In the base's own order AD comes first; in the lists CO does.
    const Cles cles(
        {cledocument(7, 3), cledocument(3, 1), cledocument(0, 2), cledocument(0, 70000), cledocument(10, 1)});
    std::vector<std::unique_ptr<Repertoire>> repertoires;
    for (int k = 0; k < 2; ++k)
        repertoires.push_back(std::make_unique<Repertoire>());
    // Two threads have shared the documents between them.
    for (quint32 document = 0; document < 5; ++document)
        repertoires[document % 2]->note(document, u"mot mot Mot"_s);
    const Dictionnaire dictionnaire(repertoires);
    ASSERT_EQ(dictionnaire.nombre(), 1);
    const QByteArray attendue("A\0\0\2A\1\x11\x70"
                              "D\0\0\1H\0\0\3K\0\0\1",
                              20);
    EXPECT_EQ(dictionnaire.liste(0, cles), attendue);
}

TEST(Mots, ManyRandomTextsGiveTheListsOfThePlainWay) {
    const QString lettres = u"aAéÉbz09 '’-*.œß\u00A0\u202F"_s;
    std::vector<CleDocument> cles;
    for (int i = 0; i < 400; ++i)
        cles.push_back(cledocument(i / 100, i % 100 + 1));
    std::vector<std::unique_ptr<Repertoire>> repertoires;
    for (int k = 0; k < 3; ++k)
        repertoires.push_back(std::make_unique<Repertoire>());
    std::map<QString, std::set<CleDocument>> attendu;
    Alea alea(42);
    const auto note = [&](const QString& mot, CleDocument cle) {
        if (mot.size() >= 2 && !(mot.back() >= u'0' && mot.back() <= u'9') && val(mot) == 0)
            attendu[upperCase(mot)].insert(cle);
    };
    for (std::size_t i = 0; i < cles.size(); ++i) {
        QString texte;
        for (quint64 n = alea.sous(200); n > 0; --n)
            texte += lettres[static_cast<qsizetype>(alea.sous(static_cast<quint64>(lettres.size())))];
        repertoires[alea.sous(3)]->note(static_cast<quint32>(i), texte);
        QString mot;
        for (const QChar c : texte + u' ') {
            if (!estseparateur(c.unicode())) {
                mot += c;
                continue;
            }
            note(mot, cles[i]);
            QString parts = mot;
            if (parts.contains(u'’') || parts.contains(u'\u202F')) {
                for (const QString& partie : parts.replace(u'\u202F', u'’').split(u'’'))
                    note(partie, cles[i]);
            }
            mot.clear();
        }
    }
    const Cles provenance(cles);
    const Dictionnaire dictionnaire(repertoires);
    ASSERT_EQ(dictionnaire.nombre(), static_cast<qsizetype>(attendu.size()));
    for (qsizetype i = 0; i < dictionnaire.nombre(); ++i) {
        QByteArray liste;
        for (const CleDocument cle : attendu[dictionnaire.mot(i)]) {
            liste += static_cast<char>('A' + collectiondelacle(cle));
            liste += QByteArray("\0\0", 2) + static_cast<char>(numerodelacle(cle));
        }
        EXPECT_EQ(dictionnaire.liste(i, provenance), liste) << dictionnaire.mot(i).toStdString();
    }
}

} // namespace
} // namespace velm
