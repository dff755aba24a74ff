#pragma once
// A folder for the program, and a child process that runs it there.
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

/// What a run has said and how it ended; code -1 for a process that was killed or has crashed.
struct Essai {
    int code = -1;
    QByteArray sortie;
    QByteArray erreurs;

    QList<QJsonObject> boites() const;
    QStringList textes() const;
};

class BancDeLancement : public testing::Test {
protected:
    void SetUp() override;

    QString reglages() const { return dossier.filePath(u"reglages.ini"_s); }
    void regle(const QString& section, const QString& cle, const QString& valeur) const;
    QString reglage(const QString& section, const QString& cle) const;
    /// Nothing but a start without a tip.
    void videreglages() const;
    void ecrit(const QString& nom, const QByteArray& octets) const;
    QString texte(int numero) const;

    /// The sample's base as it was.
    void remetbase() const;
    void ordonne(const QString& sql) const;
    /// Damages the pages of all bodies.
    void abimebase() const;
    /// Words of the dictionary that a search accepts.
    QStringList motsdelabase(int nombre) const;

    /// Runs the program to its end. `sansquestion`: it does not ask whether to quit.
    Essai lance(const QString& ligne, const QString& reponses, const QString& faits, bool sansquestion = false) const;
    /// Runs it until all deeds are begun (or until the settings hold a key), and does something to the process.
    Essai lancepuis(const QString& faits, const std::function<void(qint64 pid)>& alors,
                    const QString& cleattendue = {}) const;

    QTemporaryDir dossier;
};

} // namespace velm::test
