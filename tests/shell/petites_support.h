#pragma once
// Small windows on texts of their own.
#include "core/langue.h"
#include "shell/frmabout.h"
#include "shell/frmabout_logo.h"
#include "shell/frmtip.h"
#include "shell/logique/astuces.h"
#include "shell/splash.h"
#include "shell/sponsor.h"
#include "tests/support/dialogues_script.h"
#include "tests/support/eventually.h"

#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <deque>

namespace velm {

using namespace Qt::Literals::StringLiterals;

class PetitesFenetres : public testing::Test {
protected:
    PetitesFenetres() : langue_([](const QString& numero) { ADD_FAILURE() << numero.toStdString(); }) {
        langue_.choisitfichier(QStringLiteral(VELM_SOURCE_DIR), QStringLiteral(VELM_SOURCE_DIR), u"FR"_s);
        texte_ = [this](Texte lequel) { return langue_.lireressource(lequel); };
    }

    QString ecrit(const QString& nom, const QByteArray& octets) {
        QFile fichier(dossier_.filePath(nom));
        EXPECT_TRUE(fichier.open(QIODevice::WriteOnly));
        EXPECT_EQ(fichier.write(octets), octets.size());
        return fichier.fileName();
    }

    template <typename Controle>
    static Controle& dans(const QWidget& fenetre, const QString& nom) {
        auto* controle = fenetre.findChild<Controle*>(nom);
        if (!controle)
            throw std::runtime_error(nom.toStdString());
        return *controle;
    }

    static void clique(const QWidget& fenetre, const QString& nom) {
        QTest::mouseClick(&dans<QWidget>(fenetre, nom), Qt::LeftButton);
    }

    QTemporaryDir dossier_;
    Langue langue_;
    Libelles texte_;
};

} // namespace velm
