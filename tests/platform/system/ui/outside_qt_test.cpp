// The clipboard and the browser of the system.
#include "platform/system/ui/qtoutside.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

TEST(PressePapiersQt, OffersTextAndBothRichForms) {
    QtPressePapiers clipboard;
    clipboard.pose({u"été"_s, u"<b>été</b>"_s, "{\\rtf1 \\'e9t\\'e9}"});
    EXPECT_EQ(clipboard.texte(), u"été"_s);
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(data->html(), u"<b>été</b>"_s);
    EXPECT_EQ(data->data(u"text/rtf"_s), "{\\rtf1 \\'e9t\\'e9}");
    clipboard.pose({u"plain"_s, {}, {}});
    EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasHtml());
    clipboard.pose({{}, {}, "{\\rtf1 x}"});
    EXPECT_FALSE(QGuiApplication::clipboard()->mimeData()->hasText()) << "what takes plain text gets nothing";
    EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->data(u"text/rtf"_s), "{\\rtf1 x}");
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
