#pragma once
// The searching commands as their users run them.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace velm::test {

using namespace Qt::Literals::StringLiterals;

struct Sortie {
    int code = -1;
    QString texte;
    QByteArray erreurs;
    QJsonObject json() const { return QJsonDocument::fromJson(texte.toUtf8()).object(); }
};

class OutilRechercheTest : public testing::Test {
protected:
    Sortie lance(const QStringList& arguments) const {
        QProcess processus;
        QProcessEnvironment environnement = QProcessEnvironment::systemEnvironment();
        environnement.insert(u"XDG_CONFIG_HOME"_s, dossier.path());
        processus.setProcessEnvironment(environnement);
        processus.start(QStringLiteral(VELM_BINARY_DIR "/bin/velmoutil"), arguments);
        EXPECT_TRUE(processus.waitForFinished(60000));
        return {processus.exitStatus() == QProcess::NormalExit ? processus.exitCode() : -1,
                QString::fromUtf8(processus.readAllStandardOutput()), processus.readAllStandardError()};
    }

    static QStringList cles(const Sortie& sortie) {
        QStringList toutes;
        for (const QJsonValue& document : sortie.json().value(u"documents"_s).toArray())
            toutes << document.toObject().value(u"cle"_s).toString();
        return toutes;
    }

    QTemporaryDir dossier;
};

} // namespace velm::test
