#include "platform/system/ui/qtdialogues.h"
#include "platform/system/ui/qtoutside.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Does something to the dialog that the next call shows, once it is there.
template <typename Dialog>
void whenShown(std::function<void(Dialog&)> act) {
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act = std::move(act)] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible())
            return;
        timer->stop();
        timer->deleteLater();
        act(*dialog);
    });
    timer->start(1);
}

void pressButton(QMessageBox::StandardButton which) {
    whenShown<QMessageBox>([which](QMessageBox& box) { box.button(which)->click(); });
}

TEST(BoitesQt, EachButtonIsItsAnswer) {
    const std::pair<Bouton, QMessageBox::StandardButton> rows[] = {{Bouton::Ok, QMessageBox::Ok},
                                                                   {Bouton::Annuler, QMessageBox::Cancel},
                                                                   {Bouton::Oui, QMessageBox::Yes},
                                                                   {Bouton::Non, QMessageBox::No}};
    QtDialogues boxes;
    for (const auto& [bouton, standard] : rows) {
        pressButton(standard);
        EXPECT_EQ(boxes.message(u"texte"_s, u"titre"_s, Icone::Question,
                                Bouton::Ok | Bouton::Annuler | Bouton::Oui | Bouton::Non),
                  bouton);
    }
}

TEST(BoitesQt, ACheckBoxStandsInTheBoxesThatWantOneAndTellsItsState) {
    QtDialogues boxes;
    for (const bool ticks : {true, false}) {
        bool ticked = !ticks;
        whenShown<QMessageBox>([ticks](QMessageBox& box) {
            ASSERT_NE(box.checkBox(), nullptr);
            EXPECT_EQ(box.checkBox()->text(), u"de même");
            box.checkBox()->setChecked(ticks);
            box.button(QMessageBox::Ok)->click();
        });
        Message message{u"texte"_s, u"titre"_s};
        message.option = u"de même"_s;
        message.optioncochee = &ticked;
        boxes.message(message);
        EXPECT_EQ(ticked, ticks);
    }
    bool without = false;
    whenShown<QMessageBox>([&without](QMessageBox& box) {
        without = box.checkBox() == nullptr;
        box.button(QMessageBox::Ok)->click();
    });
    boxes.message(u"texte"_s, u"titre"_s);
    EXPECT_TRUE(without);
}

TEST(BoitesQt, ABoxOfTheStartStandsBeforeTheSplash) {
    QWidget splash(nullptr, Qt::SplashScreen | Qt::WindowStaysOnTopHint);
    splash.setAttribute(Qt::WA_ShowWithoutActivating);
    splash.show();
    if (QApplication::activeWindow() != nullptr)
        QApplication::setActiveWindow(nullptr);
    const QWidget* owner = nullptr;
    bool above = false;
    whenShown<QMessageBox>([&](QMessageBox& box) {
        owner = box.parentWidget();
        above = box.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
        box.button(QMessageBox::Ok)->click();
    });
    QtDialogues().message(u"texte"_s, u"titre"_s, Icone::Stop);
    EXPECT_EQ(owner, &splash);
    EXPECT_TRUE(above);
}

TEST(BoitesQt, ShowTheTextAsItIs) {
    QtDialogues boxes;
    QString text;
    QString title;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    Qt::TextFormat format = Qt::AutoText;
    whenShown<QMessageBox>([&](QMessageBox& box) {
        text = box.text();
        title = box.windowTitle();
        icon = box.icon();
        format = box.textFormat();
        box.button(QMessageBox::Ok)->click();
    });
    boxes.message(u"<b>x</b>"_s, u"titre"_s, Icone::Stop);
    EXPECT_EQ(text, u"<b>x</b>"_s);
    EXPECT_EQ(title, u"titre"_s);
    EXPECT_EQ(icon, QMessageBox::Critical);
    EXPECT_EQ(format, Qt::PlainText);
}

TEST(BoitesQt, ReturnPressesTheDefaultButton) {
    QtDialogues boxes;
    for (const Bouton bouton : {Bouton::Oui, Bouton::Non}) {
        whenShown<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
        EXPECT_EQ(boxes.message(u"?"_s, {}, Icone::Question, Bouton::Oui | Bouton::Non, bouton), bouton);
    }
}

TEST(BoitesQt, WithoutADefaultReturnAgreesInEveryOrderOfButtons) {
    QtDialogues boxes([](int) { ADD_FAILURE() << "help was asked for"; });
    const auto pressReturn = [](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Return);
        if (box.isVisible())
            box.reject();
    };
    for (int order = 0; order <= 3; ++order) {
        qApp->setStyleSheet(u"* { button-layout: %1 }"_s.arg(order));
        whenShown<QMessageBox>(pressReturn);
        EXPECT_EQ(boxes.message(u"?"_s, {}, Icone::Question, Bouton::Oui | Bouton::Non | Bouton::Aide), Bouton::Oui);
        whenShown<QMessageBox>(pressReturn);
        EXPECT_EQ(boxes.message(u"?"_s, {}, Icone::Question, Bouton::Ok | Bouton::Annuler), Bouton::Ok);
    }
    qApp->setStyleSheet(QString());
}

TEST(BoitesQt, EscapeIsNeverAYes) {
    QtDialogues boxes;
    for (const Boutons boutons : {Bouton::Oui | Bouton::Non, Bouton::Oui | Bouton::Non | Bouton::Annuler,
                                  Bouton::Ok | Bouton::Annuler, Boutons(Bouton::Ok)}) {
        whenShown<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
        EXPECT_EQ(boxes.message(u"?"_s, {}, Icone::Question, boutons), boutonAbandon(boutons));
    }
}

TEST(BoitesQt, TheHelpButtonShowsThePageAndLeavesTheBox) {
    QList<int> pages;
    QtDialogues boxes([&](int contexte) { pages.append(contexte); });
    whenShown<QMessageBox>([](QMessageBox& box) {
        box.button(QMessageBox::Help)->click();
        box.button(QMessageBox::Help)->click();
        ASSERT_TRUE(box.isVisible());
        box.button(QMessageBox::No)->click();
    });
    EXPECT_EQ(boxes.message(u"?"_s, {}, Icone::Question, Bouton::Oui | Bouton::Non | Bouton::Aide, Bouton::Oui, 13),
              Bouton::Non);
    EXPECT_EQ(pages, (QList<int>{13, 13}));
}

TEST(BoitesQt, WithoutHelpThereIsNoHelpButton) {
    QtDialogues boxes;
    bool present = true;
    whenShown<QMessageBox>([&](QMessageBox& box) {
        present = box.button(QMessageBox::Help) != nullptr;
        box.button(QMessageBox::Ok)->click();
    });
    boxes.message(u"?"_s, {}, Icone::Aucune, Bouton::Ok | Bouton::Aide);
    EXPECT_FALSE(present);
}

TEST(BoitesQt, WithoutAHelpFileThereIsNoHelpButtonEither) {
    bool there = false;
    QtDialogues boxes([](int) {}, [&there] { return there; });
    for (const bool now : {true, false}) {
        there = now;
        bool button = !now;
        whenShown<QMessageBox>([&](QMessageBox& box) {
            button = box.button(QMessageBox::Help) != nullptr;
            box.button(QMessageBox::Ok)->click();
        });
        boxes.message(u"?"_s, {}, Icone::Aucune, Bouton::Ok | Bouton::Aide);
        EXPECT_EQ(button, now);
    }
}

TEST(BoitesQt, AMessageMayCallItsButtonsByWhatTheyDo) {
    QtDialogues boxes;
    boxes.setCaptions([](Bouton) { return u"usual"_s; });
    QStringList captions;
    const auto look = [&captions](QMessageBox& box) {
        captions.clear();
        for (const auto which : {QMessageBox::Yes, QMessageBox::Ok, QMessageBox::No, QMessageBox::Cancel}) {
            if (const auto* button = box.button(which))
                captions << button->text();
        }
        box.reject();
    };
    const auto captionsOf = [&](Boutons boutons) {
        Message message{u"?"_s, u"titre"_s, Icone::Question, boutons};
        message.accord = u"open"_s;
        message.refus = u"leave"_s;
        whenShown<QMessageBox>(look);
        boxes.message(message);
        return captions;
    };
    EXPECT_EQ(captionsOf(Bouton::Oui | Bouton::Non), (QStringList{u"open"_s, u"leave"_s}));
    EXPECT_EQ(captionsOf(Bouton::Ok | Bouton::Annuler), (QStringList{u"open"_s, u"leave"_s}));
    EXPECT_EQ(captionsOf(Bouton::Oui | Bouton::Non | Bouton::Annuler),
              (QStringList{u"open"_s, u"leave"_s, u"usual"_s}));
    whenShown<QMessageBox>(look);
    boxes.message(u"?"_s, {}, Icone::Question, Bouton::Oui | Bouton::Non);
    EXPECT_EQ(captions, (QStringList{u"usual"_s, u"usual"_s}));
}

TEST(BoitesQt, AShortTextStandsInTheMiddleOfItsPictureAndTheButtonsAtTheRight) {
    QtDialogues boxes;
    for (const Icone icon : {Icone::Question, Icone::Aucune}) {
        QRect picture;
        QRect text;
        QRect button;
        QSize whole;
        whenShown<QMessageBox>([&](QMessageBox& box) {
            whole = box.size();
            if (const auto* label = box.findChild<QLabel*>(u"qt_msgboxex_icon_label"_s); label && label->isVisible())
                picture = label->geometry();
            text = box.findChild<QLabel*>(u"qt_msgbox_label"_s)->geometry();
            const QPushButton* last = qobject_cast<QPushButton*>(box.button(QMessageBox::No));
            button = QRect(last->mapTo(&box, QPoint()), last->size());
            box.reject();
        });
        boxes.message(u"Quitter ?"_s, u"t"_s, icon, Bouton::Oui | Bouton::Non);
        if (icon == Icone::Question) {
            EXPECT_LE(std::abs(picture.center().y() - text.center().y()), 1);
        } else {
            EXPECT_EQ(text.left(), 12) << "no room is kept for a picture";
        }
        EXPECT_EQ(whole.width() - 1 - button.right(), 12);
        EXPECT_EQ(whole.height() - 1 - button.bottom(), 12);
    }
}

TEST(FichiersQt, ADialogThatIsNotToldWhereBeginsInTheDocumentsAndThenWhereTheLastEnded) {
    const QTemporaryDir folder;
    QtDialogues dialogs;
    QString start;
    QString name;
    const auto look = [&](const QString& chosen) {
        whenShown<QFileDialog>([&, chosen](QFileDialog& dialog) {
            start = dialog.directory().absolutePath();
            name = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text();
            if (chosen.isEmpty())
                return dialog.reject();
            dialog.selectFile(chosen);
            static_cast<QDialog&>(dialog).accept();
        });
    };
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    look(folder.filePath(u"a.cv2"_s));
    ChoixFichier choix;
    choix.nom = u"garantie.cv2"_s;
    EXPECT_TRUE(dialogs.saveFile(choix));
    EXPECT_EQ(start, QDir(documents).exists() ? documents : QDir::homePath());
    EXPECT_EQ(name, u"garantie.cv2");
    look({});
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
    whenShown<QFileDialog>([&](QFileDialog& dialog) {
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
    whenShown<QFileDialog>([&](QFileDialog& dialog) {
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

TEST(FichiersQt, GivingUpChoosesNothing) {
    QtDialogues dialogs;
    const auto reject = [] { whenShown<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); }); };
    reject();
    EXPECT_FALSE(dialogs.openFile({}));
    reject();
    EXPECT_FALSE(dialogs.saveFile({}));
    reject();
    EXPECT_FALSE(dialogs.chooseFolder(u"t"_s, u"/"_s));
}

TEST(FichiersQt, NothingChosenAboveAllDrivesChoosesNothing) {
    QtDialogues dialogs;
    whenShown<QFileDialog>([](QFileDialog& dialog) {
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
        whenShown<QFileDialog>([&](QFileDialog& dialog) {
            confirms = !dialog.testOption(QFileDialog::DontConfirmOverwrite);
            dialog.reject();
        });
        EXPECT_FALSE(dialogs.saveFile(choix));
        EXPECT_EQ(confirms, asks);
    }
}

TEST(PressePapiersQt, OffersTextAndBothRichForms) {
    QtPressePapiers clipboard;
    clipboard.pose({u"été"_s, u"<b>été</b>"_s, "{\\rtf1 \\'e9t\\'e9}"});
    EXPECT_EQ(clipboard.texte(), u"été"_s);
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data->html(), u"<b>été</b>"_s);
    EXPECT_EQ(data->data(u"text/rtf"_s), "{\\rtf1 \\'e9t\\'e9}");
    clipboard.pose({u"plain"_s, {}, {}});
    EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasHtml());
}

TEST(NavigateurQt, AddressesThatAreNoneAreRefused) {
    using Handed = Navigateur::Handed;
    QtNavigateur browser;
    EXPECT_EQ(browser.openUrl(QString()), Handed::Refused);
    EXPECT_EQ(browser.openUrl(u"file:///etc/passwd"_s), Handed::Refused);
    EXPECT_EQ(browser.openUrl(u"/etc/passwd"_s), Handed::Refused);
    EXPECT_EQ(browser.mail(u" "_s), Handed::Refused);
    EXPECT_EQ(browser.mail(u"mailto:"_s), Handed::Refused);
    EXPECT_FALSE(browser.openFile(QString()));
}

} // namespace
