// What is said of a search.
#include "search/bilanrecherche.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

using Issue = Resultat::Issue;
using Sorte = Recherchee::Sorte;

/// A text is its number with what is put in.
QString texte(Texte lequel) {
    return u"%1[%2;%3;%4]"_s.arg(static_cast<int>(lequel)).arg(u"%1"_s, u"%2"_s, u"%3"_s);
}

Resultat de(int lignes) {
    Resultat resultat;
    for (int numero = 0; numero < lignes; ++numero)
        resultat.lignes.ajoute({u"CO"_s, u"1"_s, {}, {}, {}, {}, u"CO1"_s});
    return resultat;
}

QString phrase(const Recherchee& recherchee, const Resultat& resultat) {
    QString dite = bilande(recherchee, resultat, texte).phrase;
    for (const QString& reste : {u";%2"_s, u";%3"_s, u"[%1"_s})
        dite.remove(reste);
    return dite.remove(u']');
}

} // namespace

TEST(BilanRecherche, WhatWasFoundIsCounted) {
    EXPECT_EQ(phrase({Sorte::Texte, u"bail"_s}, de(1)), u"9791[9724;bail");
    EXPECT_EQ(phrase({Sorte::Texte, u"un bail"_s}, de(12)), u"9791[9725[12;un bail") << "and for what";
    EXPECT_EQ(phrase({Sorte::Texte, u" "_s}, de(12)), u"9725[12") << "for nothing: all documents";
    EXPECT_EQ(phrase({Sorte::Mots, u" bail,vente "_s}, de(12)), u"9791[9725[12;bail vente");
    EXPECT_EQ(phrase({Sorte::Criteres}, de(12)), u"9725[12");
    EXPECT_EQ(phrase({Sorte::Mots, u"bail vente"_s, true, true}, de(12)), u"9791[9733[9725[12;bail vente") << "here";
    const BilanRecherche bilan = bilande({Sorte::Texte, u"bail"_s}, de(12), texte);
    EXPECT_FALSE(bilan.rien);
    EXPECT_FALSE(bilan.coupe);
}

TEST(BilanRecherche, WhatWasCutSaysOfHowMany) {
    Resultat resultat = de(50);
    resultat.limitee = true;
    EXPECT_EQ(phrase({Sorte::Texte, u"bail"_s}, resultat), u"9791[9727[50;bail") << "the walk has seen no more";
    resultat.total = 545;
    EXPECT_EQ(phrase({Sorte::Mots, u"bail"_s}, resultat), u"9791[9726[50;545;bail");
    resultat.partout = 600;
    EXPECT_EQ(phrase({Sorte::Mots, u"bail"_s, true, true}, resultat), u"9791[9733[9726[50;545;bail");
    EXPECT_TRUE(bilande({Sorte::Mots, u"bail"_s}, resultat, texte).coupe);
}

TEST(BilanRecherche, OfOneWordInACollectionBothNumbersAreSaid) {
    Resultat resultat = de(2);
    resultat.partout = 545;
    EXPECT_EQ(phrase({Sorte::Mots, u" bail "_s, true, true}, resultat), u"9730[bail;9732[2;545");
    EXPECT_EQ(phrase({Sorte::Mots, u"bail"_s}, resultat), u"9791[9725[2;bail") << "in all collections there is one";
    EXPECT_EQ(phrase({Sorte::Mots, u"vide bail"_s, true, true}, resultat), u"9791[9733[9725[2;vide bail")
        << "of which word?";
}

TEST(BilanRecherche, WhatWasNotFoundIsNamed) {
    EXPECT_EQ(phrase({Sorte::Texte, u"un bail"_s}, de(0)), u"9626[un bail");
    EXPECT_EQ(phrase({Sorte::Criteres}, de(0)), u"9722");
    EXPECT_EQ(phrase({Sorte::Mots, u"zut"_s}, de(0)), u"9720[zut");
    EXPECT_EQ(phrase({Sorte::Mots, u"zut,"_s, true, true}, de(0)), u"9721[zut");
    EXPECT_EQ(phrase({Sorte::Mots, u"zut, bah"_s}, de(0)), u"9742[zut bah");
    EXPECT_EQ(phrase({Sorte::Mots, u"zut bah"_s, true, true}, de(0)), u"9743[zut bah");
    EXPECT_EQ(phrase({Sorte::Mots, u"zut bah"_s, false}, de(0)), u"9744[zut bah");
    EXPECT_EQ(phrase({Sorte::Mots, u" , "_s, true, true}, de(0)), u"9741") << "no word was typed";
    EXPECT_EQ(phrase({Sorte::Texte, u"bail"_s, true, false, true}, de(0)), u"9723") << "no collection was chosen";
    EXPECT_TRUE(bilande({Sorte::Texte, u"bail"_s}, de(0), texte).rien);
}

TEST(BilanRecherche, ASearchThatWasStoppedOrGivenUpSaysSo) {
    Resultat resultat = de(3);
    resultat.issue = Issue::Arretee;
    EXPECT_EQ(phrase({Sorte::Texte, u"bail"_s}, resultat), u"9728[9791[9725[3;bail");
    resultat = de(0);
    for (const Issue issue : {Issue::Arretee, Issue::Abandonnee}) {
        resultat.issue = issue;
        EXPECT_EQ(phrase({Sorte::Mots, u"bail"_s}, resultat), u"9745");
        EXPECT_FALSE(bilande({Sorte::Mots, u"bail"_s}, resultat, texte).rien) << "nobody knows";
    }
    resultat.issue = Issue::TexteCourt;
    EXPECT_EQ(phrase({Sorte::Mots, u"ab"_s}, resultat), QString());
}

TEST(BilanRecherche, RowsFromElsewhereAreCounted) {
    EXPECT_TRUE(bilandelignes(0, texte).phrase.startsWith(u"9731[0"));
    EXPECT_TRUE(bilandelignes(1, texte).phrase.startsWith(u"9731[1"));
    EXPECT_TRUE(bilandelignes(2, texte).phrase.startsWith(u"9732[2"));
}
