#pragma once
// A small base of the tests, filled table by table and opened as the program does.
#include "core/corpus.h"
#include "core/schemas.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <initializer_list>
#include <vector>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

struct DocumentEssai {
    QString cle;
    QString titre;
    qint64 noeud = 0;
};

struct NoeudEssai {
    qint64 numero;
    qint64 parent;
    QString code;
    qint64 ordre;
    QString libelle;
    int nbarticles = 0;
};

struct LienEssai {
    QString depart;
    QString arrivee;
};

class BaseDocument : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dossier_.isValid()); }

    /// Makes the base of the rows below and opens it.
    void ouvre() {
        const QString chemin = dossier_.filePath(u"velm2000.dat"_s);
        {
            const auto base = Database::create(chemin, corpusSchema());
            ASSERT_NE(base.database, nullptr);
            TableWriter table(*base.database, u"données"_s,
                              {u"référence"_s, u"numart"_s, u"titre"_s, u"motclé1"_s, u"motclé2"_s, u"motclé3"_s,
                               u"numeroarborescence"_s});
            for (const DocumentEssai& d : documents)
                ASSERT_TRUE(table.add({d.cle.left(2), d.cle.mid(2), d.titre, d.cle + u" un"_s, d.cle + u" deux"_s,
                                       d.cle + u" trois"_s, d.noeud}));
            TableWriter arbre(
                *base.database, u"arborescences"_s,
                {u"numerodutype"_s, u"dépendance"_s, u"référence"_s, u"ordre"_s, u"typededonnées"_s, u"nbarticles"_s});
            for (const NoeudEssai& n : noeuds)
                ASSERT_TRUE(arbre.add({n.numero, n.parent, n.code, n.ordre, n.libelle, n.nbarticles}));
            TableWriter lignes(*base.database, u"liens"_s,
                               {u"référencedépart"_s, u"numartdépart"_s, u"référencearrivée"_s, u"numartarrivée"_s});
            for (const LienEssai& l : liens)
                ASSERT_TRUE(lignes.add({l.depart.left(2), l.depart.mid(2), l.arrivee.left(2), l.arrivee.mid(2)}));
            TableWriter genres(*base.database, u"typedocument"_s, {u"typedocument"_s, u"numerodutype"_s, u"ordre"_s});
            for (const auto& [libelle, numero, ordre] : types)
                ASSERT_TRUE(genres.add({libelle, numero, ordre}));
        }
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
    }

    struct TypeEssai {
        QString libelle;
        int numero;
        int ordre;
    };
    std::vector<DocumentEssai> documents;
    std::vector<NoeudEssai> noeuds;
    std::vector<LienEssai> liens;
    std::vector<TypeEssai> types;
    Corpus corpus;

private:
    QTemporaryDir dossier_;
};

} // namespace velm::test
