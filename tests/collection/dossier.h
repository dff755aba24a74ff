#pragma once
// A source folder of its own for a test, compiled into a base beside it.
#include "collection/collection.h"
#include "core/schemas.h"
#include "platform/engine/recordset.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

class DossierSource : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dossier_.isValid() && QDir(dossier_.path()).mkpath(u"source/rtf"_s)); }

    QString source() const { return dossier_.filePath(u"source"_s); }
    QString base() const { return dossier_.filePath(u"velm2000.dat"_s); }

    void ecrit(const QString& nom, const QByteArray& contenu) const {
        QFile fichier(source() + u'/' + nom);
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(contenu);
    }
    void documents(const QByteArray& lignes) const { ecrit(u"documents.jsonl"_s, lignes); }

    /// A document with one paragraph.
    static QByteArray document(const QByteArray& code, int numero, const QByteArray& texte,
                               const QByteArray& autres = {}) {
        return "{\"collection\":\"" + code + "\",\"numero\":" + QByteArray::number(numero) + ",\"titre\":\"Titre " +
               QByteArray::number(numero) + "\"" + autres + ",\"corps\":[{\"style\":\"alinea\",\"texte\":\"" + texte +
               "\"}]}\n";
    }

    ResultatCompilation compile() const { return velm::compile(source(), base()); }

    std::unique_ptr<Database> ouvre() const {
        return Database::open(base(), OpenMode::ExclusiveReadOnly, corpusSchema()).database;
    }

    QByteArray octets() const {
        QFile fichier(base());
        return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
    }

    /// What lies beside the source: the base, and nothing else.
    QStringList restes() const { return QDir(dossier_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

    static QString texte(const Probleme& p) {
        return (p.avertissement ? u"W"_s : u"E"_s) + QString::number(static_cast<int>(p.texte)) + u' ' + p.fichier +
               u':' + QString::number(p.ligne) + u' ' + p.arguments.join(u'/');
    }
    static QStringList textes(const ResultatCompilation& resultat) {
        QStringList liste;
        for (const Probleme& p : resultat.problemes)
            liste << texte(p);
        return liste;
    }

    QTemporaryDir dossier_;
};

} // namespace velm::test
