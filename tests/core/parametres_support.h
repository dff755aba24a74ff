#pragma once
// Settings in a folder of their own.
#include "core/parametres.h"
#include "platform/text/ansi.h"
#include "tests/support/arret.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <optional>

namespace velm {

class ParametresTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dossier_.isValid()); }

    QString programme() const { return dossier_.path(); }

    void maitre(const QString& texte) {
        QFile fichier(dossier_.filePath(QStringLiteral("master.ini")));
        ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
        fichier.write(ansi::encode(texte));
        fichier.close();
        reglages_.choisitmaitre(fichier.fileName());
    }

    void stocke(const char* section, const char* cle, const char* valeur) {
        ASSERT_TRUE(
            reglages_.savesetting(QString::fromUtf8(section), QString::fromUtf8(cle), QString::fromUtf8(valeur)));
    }

    Parametres premiers() { return litparametres(reglages_, langue_, programme()); }
    Preferences seconds() { return litpreferences(reglages_, programme()); }

    QTemporaryDir dossier_;
    ReglagesStore magasin_{dossier_.filePath(QStringLiteral("reglages.ini"))};
    Reglages reglages_{magasin_};
    Langue langue_{[](const QString&) {}};
};

} // namespace velm
