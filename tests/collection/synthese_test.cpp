#include "tests/collection/dossier.h"

#include <QSet>

namespace velm::test {
namespace {

class Synthese : public DossierSource {
protected:
    qint64 combien(const QString& mot) const {
        const auto base = ouvre();
        const auto dico = base->openTable(u"dico"_s);
        dico->setIndex(u"primarykey"_s);
        dico->seek(Seek::Equal, mot);
        return dico->noMatch() ? 0 : dico->bytes(u"liste"_s).size() / 4;
    }
};

TEST_F(Synthese, EqualOptionsGiveEqualBytes) {
    ASSERT_TRUE(synthese(optionssynthese(300), base()).faite());
    const QByteArray premiers = octets();
    ASSERT_TRUE(synthese(optionssynthese(300), base()).faite());
    EXPECT_EQ(octets(), premiers);
}

TEST_F(Synthese, ASmallestCollectionIsWhole) {
    for (const qint64 nombre : {1, 2, 11, 57}) {
        const ResultatCompilation resultat = synthese(optionssynthese(nombre), base());
        ASSERT_TRUE(resultat.faite()) << nombre;
        EXPECT_EQ(resultat.comptes.documents, nombre);
        EXPECT_EQ(resultat.problemes.size(), 0U);
    }
}

TEST_F(Synthese, NumbersOutOfReachAreRefused) {
    for (const qint64 nombre : {qint64(0), qint64(-1), qint64(100'000'000)})
        EXPECT_EQ(synthese(optionssynthese(nombre), base()).etat, ResultatCompilation::Etat::SourceIncorrecte);
    EXPECT_EQ(restes(), QStringList{});
}

TEST_F(Synthese, WordsLinksAndTreeAreThoseOfACollection) {
    constexpr qint64 nombre = 4000;
    const ResultatCompilation resultat = synthese(optionssynthese(nombre), base());
    ASSERT_TRUE(resultat.faite());
    // 57 and 20 of a hundred documents hold the two counted words.
    EXPECT_NEAR(static_cast<double>(combien(u"CONSOMMATEUR"_s)), 0.571 * nombre, 0.03 * nombre);
    EXPECT_NEAR(static_cast<double>(combien(u"GARANTIE"_s)), 0.196 * nombre, 0.03 * nombre);
    EXPECT_GT(combien(u"DE"_s), nombre * 9 / 10);
    EXPECT_GT(resultat.comptes.liens, nombre);
    const auto base = ouvre();
    const auto dico = base->openTable(u"dico"_s);
    dico->setIndex(u"primarykey"_s);
    int bro = 0;
    for (dico->seek(Seek::GreaterOrEqual, u"BRO"_s); !dico->eof() && dico->text(u"mot"_s).startsWith(u"BRO"_s);
         dico->moveNext())
        ++bro;
    EXPECT_GT(bro, 400);
    EXPECT_LE(bro, 480);
    // Every document hangs from a leaf of its own collection, and no branch is deeper than six.
    QHash<qint64, std::pair<qint64, QString>> noeuds;
    const auto arbre = base->openTable(u"arborescences"_s);
    for (arbre->moveFirst(); !arbre->eof(); arbre->moveNext())
        noeuds.insert(arbre->number(u"numerodutype"_s), {arbre->number(u"dépendance"_s), arbre->text(u"référence"_s)});
    const auto donnees = base->openTable(u"données"_s);
    QSet<QString> codes;
    for (donnees->moveFirst(); !donnees->eof(); donnees->moveNext()) {
        qint64 noeud = donnees->number(u"numeroarborescence"_s);
        ASSERT_TRUE(noeuds.contains(noeud));
        EXPECT_EQ(noeuds[noeud].second, donnees->text(u"référence"_s));
        codes.insert(donnees->text(u"référence"_s));
        int profondeur = 0;
        for (; noeud != 0 && profondeur < 10; ++profondeur)
            noeud = noeuds[noeud].first;
        EXPECT_GE(profondeur, 4);
        EXPECT_LE(profondeur, 6);
    }
    EXPECT_EQ(codes.size(), 11);
    EXPECT_TRUE(base->check());
}

} // namespace
} // namespace velm::test
