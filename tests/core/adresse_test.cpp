#include "core/adresse.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

TEST(Adresse, IsMadeReadyToBeOpened) {
    const std::pair<QString, QString> rangees[] = {
        {u"http://example.org"_s, u"http://example.org"_s},
        {u"HTTP://example.org/page.htm"_s, u"HTTP://example.org/page.htm"_s},
        {u"www.example.org"_s, u"http://www.example.org"_s},
        {u"WWW.example.org/page.html"_s, u"http://WWW.example.org/page.html"_s},
        {u"example.org"_s, u"http://example.org"_s},
        {u"https://example.org"_s, u"http://https://example.org"_s},
        {u"ssh:hote"_s, u"http://ssh:hote"_s},
        {QString(), u"http://"_s},
        {u"page.htm"_s, u"page.htm"_s},
        {u"C:\\aide\\PAGE.HTML"_s, u"C:\\aide\\PAGE.HTML"_s},
        {u"https://example.org/page.html"_s, u"https://example.org/page.html"_s},
        {u"page.htmlx"_s, u"http://page.htmlx"_s},
    };
    for (const auto& [ecrite, ouverte] : rangees)
        EXPECT_EQ(adresseaouvrir(ecrite), ouverte) << ecrite.toStdString();
}
