// The dialogs that ask for files and folders.
#include "platform/system/ui/qtdialogues.h"
#include "tests/support/when_shown.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QLineEdit>
#include <QListView>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace velm;
using namespace velm::test;
using namespace Qt::Literals::StringLiterals;

TEST(FichiersQt, ADialogThatIsNotToldWhereBeginsInTheDocumentsAndThenWhereTheLastEnded) {
    const QTemporaryDir folder;
    QtDialogues dialogs;
    QString start;
    QString name;
    const auto look = [&](const QString& chosen) {
        return whenShown<QFileDialog>([&, chosen](QFileDialog& dialog) {
            start = dialog.directory().absolutePath();
            name = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text();
            if (chosen.isEmpty())
                return dialog.reject();
            dialog.selectFile(chosen);
            static_cast<QDialog&>(dialog).accept();
        });
    };
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    auto hands = look(folder.filePath(u"a.cv2"_s));
    ChoixFichier choix;
    choix.nom = u"garantie.cv2"_s;
    EXPECT_TRUE(dialogs.saveFile(choix));
    EXPECT_EQ(start, QDir(documents).exists() ? documents : QDir::homePath());
    EXPECT_EQ(name, u"garantie.cv2");
    hands = look({});
    EXPECT_FALSE(dialogs.openFile({}));
    EXPECT_EQ(start, folder.path());
}

TEST(FichiersQt, WhatIsListedIsNamedInTheWordsGiven) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"sous"_s));
    for (const auto& name : {u"a.cv2"_s, u"b"_s}) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    QtDialogues dialogs;
    dialogs.setKinds([] { return SortesFichier{u"Dossier"_s, u"Lecteur"_s, u"Fichier %1"_s, u"Fichier"_s}; });
    QStringList kinds;
    const auto hands = whenShown<QFileDialog>([&](QFileDialog& dialog) {
        for (const auto& path : {folder.filePath(u"sous"_s), folder.filePath(u"a.cv2"_s), folder.filePath(u"b"_s)})
            kinds << dialog.iconProvider()->type(QFileInfo(path));
        kinds << dialog.iconProvider()->type(QFileInfo(u"/"_s));
        dialog.reject();
    });
    EXPECT_FALSE(dialogs.openFile({}));
    EXPECT_EQ(kinds, (QStringList{u"Dossier"_s, u"Fichier CV2"_s, u"Fichier"_s, u"Lecteur"_s}));
}

TEST(FichiersQt, TheFileDialogStartsWhereItIsTold) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"velm2000.dat"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    QtDialogues dialogs;
    QStringList filters;
    QString shown;
    QString start;
    const auto hands = whenShown<QFileDialog>([&](QFileDialog& dialog) {
        filters = dialog.nameFilters();
        shown = dialog.findChild<QComboBox*>(u"fileTypeCombo"_s)->currentText();
        start = dialog.directory().absolutePath();
        dialog.selectFile(file.fileName());
        static_cast<QDialog&>(dialog).accept();
    });
    const auto chosen = dialogs.openFile({u"Trouver"_s, folder.path(), u"Base (*.DAT)|*.DAT|Tous (*.*)|*.*"_s, {}, {}});
    EXPECT_EQ(chosen, file.fileName());
    EXPECT_EQ(start, folder.path());
    EXPECT_EQ(shown, u"Base (*.DAT)") << "the pattern stands there once";
    EXPECT_EQ(filters, (QStringList{u"Base (*.DAT) (*.DAT *.dat)"_s, u"Tous (*.*) (*)"_s}));
}

TEST(FichiersQt, TheFilterThatIsInForceInTheEndIsTold) {
    const QTemporaryDir folder;
    QtDialogues dialogs;
    const auto told = [&](int rank, bool accepts) {
        int filter = 7;
        ChoixFichier choix;
        choix.dossier = folder.path();
        choix.nom = u"a"_s;
        choix.filtre = u"Rich Text Files (*.rtf)|*.rtf|Text (*.txt)|*.txt"_s;
        choix.filtrechoisi = &filter;
        const auto hands = whenShown<QFileDialog>([&](QFileDialog& dialog) {
            if (rank > 0)
                dialog.selectNameFilter(dialog.nameFilters().value(rank - 1));
            static_cast<QDialog&>(dialog).done(accepts ? QDialog::Accepted : QDialog::Rejected);
        });
        EXPECT_EQ(dialogs.saveFile(choix).has_value(), accepts);
        return filter;
    };
    EXPECT_EQ(told(0, true), 1) << "the first, unless another is chosen";
    EXPECT_EQ(told(1, true), 1);
    EXPECT_EQ(told(2, true), 2);
    EXPECT_EQ(told(2, false), 7) << "nothing where the user gives up";
}

TEST(FichiersQt, GivingUpChoosesNothing) {
    QtDialogues dialogs;
    const auto reject = [] { return whenShown<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); }); };
    auto hands = reject();
    EXPECT_FALSE(dialogs.openFile({}));
    hands = reject();
    EXPECT_FALSE(dialogs.saveFile({}));
    hands = reject();
    EXPECT_FALSE(dialogs.chooseFolder(u"t"_s, u"/"_s));
}

TEST(FichiersQt, NothingChosenAboveAllDrivesChoosesNothing) {
    QtDialogues dialogs;
    const auto hands = whenShown<QFileDialog>([](QFileDialog& dialog) {
        dialog.findChild<QListView*>(u"listView"_s)->setRootIndex({});
        static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    });
    EXPECT_EQ(dialogs.saveFile({}), std::nullopt);
}

TEST(FichiersQt, TheQuestionAboutAnExistingFileIsLeftToWhoWantsIt) {
    QtDialogues dialogs;
    for (const bool asks : {true, false}) {
        ChoixFichier choix;
        choix.demanderemplacement = asks;
        bool confirms = !asks;
        const auto hands = whenShown<QFileDialog>([&](QFileDialog& dialog) {
            confirms = !dialog.testOption(QFileDialog::DontConfirmOverwrite);
            dialog.reject();
        });
        EXPECT_FALSE(dialogs.saveFile(choix));
        EXPECT_EQ(confirms, asks);
    }
}
