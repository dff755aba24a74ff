#pragma once
// A small base with dates, for the lists of all documents.
#include "core/schemas.h"
#include "search/listechrono.h"
#include "search/listeindex.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

struct DocumentDate {
    QString cle;
    QString titre;
    QVariant date = {};
    QStringList motscles = {};
};

class BaseDates : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dossier.isValid()); }
    void ouvre(const std::vector<DocumentDate>& documents, const QString& nom = u"velm2000.dat"_s) {
        const QString chemin = dossier.filePath(nom);
        ecrit(documents, chemin);
        ASSERT_EQ(corpus.connecte(chemin), OpenError::None);
        corpus.ouvretables();
    }
    static void ecrit(const std::vector<DocumentDate>& documents, const QString& chemin) {
        const auto base = Database::create(chemin, corpusSchema());
        ASSERT_NE(base.database, nullptr);
        TableWriter table(
            *base.database, u"données"_s,
            {u"référence"_s, u"numart"_s, u"titre"_s, u"Date"_s, u"motclé1"_s, u"motclé2"_s, u"motclé3"_s});
        for (const DocumentDate& d : documents) {
            std::vector<QVariant> ligne{d.cle.left(2), d.cle.mid(2), d.titre, d.date};
            for (qsizetype i = 0; i < 3; ++i)
                ligne.push_back(i < d.motscles.size() ? QVariant(d.motscles.at(i)) : QVariant());
            ASSERT_TRUE(table.add(ligne));
        }
    }

    /// A list that is filled.
    template <class Liste>
    static std::unique_ptr<Liste> pleine(std::unique_ptr<Liste> liste) {
        acheve(*liste->remplissage());
        return liste;
    }
    std::unique_ptr<ListeIndex> index(const TypesChoisis& types = {}) {
        RequeteIndex requete;
        requete.reselect(types);
        return pleine(std::make_unique<ListeIndex>(corpus, requete.source()));
    }
    std::unique_ptr<ListeChrono> chrono(const TypesChoisis& types = {}, const IntervalleDates& intervalle = {}) {
        return pleine(std::make_unique<ListeChrono>(corpus, types, intervalle,
                                                    [](int mois) { return u"m%1"_s.arg(mois, 2, 10, QChar(u'0')); }));
    }

    static QStringList cles(const SourceDocuments& source) {
        QStringList toutes;
        for (int row = 0; row < source.rowCount(); ++row)
            toutes << source.cle(row).texte();
        return toutes;
    }
    static QStringList colonne(const SourceDocuments& source, int column) {
        QStringList textes;
        for (int row = 0; row < source.rowCount(); ++row)
            textes << source.text(row, column);
        return textes;
    }

    QTemporaryDir dossier;
    Corpus corpus;
};

} // namespace velm::test
