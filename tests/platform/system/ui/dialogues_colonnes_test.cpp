// The list of files in the dialogs that choose one.
#include "platform/system/ui/qtdialogues.h"
#include "tests/support/when_shown.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QFileDialog>
#include <QHeaderView>
#include <QListView>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QTreeView>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

TEST(FichiersQt, OnALowScreenTheButtonsOfADialogAreOnIt) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(40);
    QApplication::setFont(large);
    QtDialogues dialogs;
    QRect place;
    QRect screen;
    const auto hands = test::whenShown<QFileDialog>([&](QFileDialog& dialog) {
        place = dialog.geometry();
        screen = dialog.screen()->availableGeometry();
        dialog.reject();
    });
    EXPECT_FALSE(dialogs.openFile({u"Trouver"_s, QDir::tempPath(), {}, {}, {}}));
    QApplication::setFont(usual);
    ASSERT_TRUE(place.isValid());
    EXPECT_LT(place.height(), screen.height());
}

TEST(FichiersQt, ThePlacesBesideTheListAreAsWideAsTheirNames) {
    for (const int kept : {20, 400}) {
        QSettings settings(QSettings::UserScope, u"QtProject"_s);
        settings.setValue(u"FileDialog/sidebarWidth"_s, kept);
        settings.sync();
        QtDialogues dialogs;
        int width = 0;
        int names = 0;
        int whole = 0;
        const auto hands = test::whenShown<QFileDialog>([&](QFileDialog& dialog) {
            const auto* const places = dialog.findChild<QListView*>(u"sidebar"_s);
            width = places->width();
            names = places->sizeHintForColumn(0);
            whole = dialog.width();
            dialog.reject();
        });
        EXPECT_FALSE(dialogs.openFile({u"Trouver"_s, QDir::tempPath(), {}, {}, {}}));
        EXPECT_GT(width, names) << kept;
        EXPECT_LE(width, whole / 3 + 1) << kept;
    }
}

TEST(FichiersQt, NamesHaveTheRoomThatTheOtherColumnsLeave) {
    // How wide the side bar was in a dialog before, with whatever type.
    QSettings(QSettings::UserScope, u"QtProject"_s).remove(u"FileDialog"_s);
    const QTemporaryDir folder;
    QFile file(folder.filePath(QString(60, u'n') + u".cv2"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QtDialogues dialogs;
    QTimer timer;
    QDeadlineTimer patience(5000);
    bool fits = false;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        const auto* list = dialog ? dialog->findChild<QTreeView*>(u"treeView"_s) : nullptr;
        if (list == nullptr || !list->isVisible())
            return;
        const QHeaderView* header = list->header();
        fits = list->model()->rowCount(list->rootIndex()) > 0 && header->length() == list->viewport()->width();
        for (int column = 1; fits && column < header->count(); ++column) {
            const QString told = list->model()->index(0, column, list->rootIndex()).data().toString();
            fits = header->sectionSize(column) > list->fontMetrics().horizontalAdvance(told);
        }
        if (!fits && !patience.hasExpired())
            return;
        timer.stop();
        dialog->reject();
    });
    timer.start(1);
    EXPECT_FALSE(dialogs.openFile({u"Trouver"_s, folder.path(), {}, {}, {}}));
    EXPECT_TRUE(fits) << "nothing is cut but names, and nothing scrolls sideways";
}
