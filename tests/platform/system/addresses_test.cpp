#include "platform/system/addresses.h"

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

/// What is handed on, as text; empty for what is refused.
QString web(const QString& address) {
    const std::optional<QUrl> url = webUrl(address);
    return url ? url->toString() : QString();
}
QString mail(const QString& address) {
    const std::optional<QUrl> url = mailUrl(address);
    return url ? QString::fromUtf8(url->toEncoded()) : QString();
}

} // namespace

TEST(Addresses, OfTheWebAreLetThrough) {
    const std::pair<QString, QString> rows[] = {
        {u"http://www.example.org"_s, u"http://www.example.org"_s},
        {u" http://www.example.org/a b?c=d#e "_s, u"http://www.example.org/a b?c=d#e"_s},
        {u"https://example.org"_s, u"https://example.org"_s},
        {u"HTTPS://Example.org/Page.HTML"_s, u"https://example.org/Page.HTML"_s},
        {u"http://localhost:8080/x"_s, u"http://localhost:8080/x"_s},
        {u"http://10.0.0.1:80"_s, u"http://10.0.0.1:80"_s},
        {u"http://example.org/é"_s, u"http://example.org/é"_s},
        {u"http://example.org/http://autre.org"_s, u"http://example.org/http://autre.org"_s},
        // A scheme written twice.
        {u"http://https://example.org"_s, u"https://example.org"_s},
        {u"http://http://example.org"_s, u"http://example.org"_s},
        {u"http://HTTP://https://example.org/x"_s, u"https://example.org/x"_s},
    };
    for (const auto& [address, handed] : rows)
        EXPECT_EQ(web(address), handed) << address.toStdString();
}

TEST(Addresses, OfAnythingElseAreRefused) {
    const QString refused[] = {
        QString(),
        u" "_s,
        u"http://"_s,
        u"https:///etc/passwd"_s,
        u"http:example.org"_s,
        u"www.example.org"_s,
        u"example.org"_s,
        u"/etc/passwd"_s,
        u"page.html"_s,
        u"C:\\page.html"_s,
        u"\\\\host\\share\\page.html"_s,
        u"file:///etc/passwd"_s,
        u"file:///tmp/page.html"_s,
        u"ftp://example.org/"_s,
        u"ssh:-oProxyCommand=touch%20/tmp/x"_s,
        u"smb://host/share"_s,
        u"javascript:alert(1)"_s,
        u"data:text/html,<script>alert(1)</script>"_s,
        u"mailto:a@b?attach=/etc/passwd"_s,
        u"vnc://host"_s,
        u"tel:+331"_s,
        u"about:blank"_s,
        // What these become when they are taken for an address without a scheme.
        u"http://file:///etc/passwd"_s,
        u"http:///etc/passwd"_s,
        u"http://ftp://example.org/"_s,
        u"http://ssh:-oProxyCommand=touch%20/tmp/x"_s,
        u"http://smb://host/share"_s,
        u"http://javascript:alert(1)"_s,
        u"http://data:text/html,x"_s,
        u"http://mailto:a@b?attach=/etc/passwd"_s,
        u"http://tel:"_s,
        u"http://http://file:///etc/passwd"_s,
        u"http://https:///etc/passwd"_s,
        u"http://example.org:port/"_s,
        u"http://example.org/\nX: y"_s,
        u"http://example.org/"_s + QChar(u'\0') + u"x"_s,
        u"http://example.org/"_s + QString(20'000, u'a'),
    };
    for (const QString& address : refused)
        EXPECT_EQ(web(address), QString()) << address.left(80).toStdString();
}

TEST(Addresses, OfMailAreRebuiltFromTheAddressAlone) {
    const std::pair<QString, QString> rows[] = {
        {u"a@example.org"_s, u"mailto:a@example.org"_s},
        {u" mailto:a@example.org "_s, u"mailto:a@example.org"_s},
        {u"MAILTO:Jean.Dupont+x@sous-domaine.example.org"_s, u"mailto:Jean.Dupont+x@sous-domaine.example.org"_s},
        {u"a@b?attach=/etc/passwd"_s, u"mailto:a@b"_s},
        {u"mailto:a@b?subject=x&cc=c@d"_s, u"mailto:a@b"_s},
        {u"prénom@société.fr"_s, u"mailto:pr%C3%A9nom@soci%C3%A9t%C3%A9.fr"_s},
    };
    for (const auto& [address, handed] : rows)
        EXPECT_EQ(mail(address), handed) << address.toStdString();
    const QString refused[] = {
        QString(),
        u"mailto:"_s,
        u"mailto:?attach=/etc/passwd"_s,
        u"a"_s,
        u"@b"_s,
        u"a@"_s,
        u"a@b@c"_s,
        u"-oX@b"_s,
        u"mailto:mailto:a@b"_s,
        u"a@b&attach=/etc/passwd"_s,
        u"a@b,attach='/etc/passwd'"_s,
        u"a@b,c@d"_s,
        u"a@b%0d%0aBcc:c@d"_s,
        u"a@b\nBcc: c@d"_s,
        u"\"a b\"@c"_s,
        u"a@b'"_s,
        u"a@/etc/passwd"_s,
        u"http://example.org"_s,
        QString(300, u'a') + u"@b"_s,
    };
    for (const QString& address : refused)
        EXPECT_EQ(mail(address), QString()) << address.left(80).toStdString();
}

TEST(Addresses, AreShownWithoutTricks) {
    EXPECT_EQ(shownAddress(u"http://été.org/a b"_s), u"http://été.org/a b"_s);
    EXPECT_EQ(shownAddress(u"a\nb\u202Ec\u200Bd"_s), u"aU+000AbU+202EcU+200Bd"_s);
    EXPECT_EQ(shownAddress(u"x"_s + QChar(0xD800) + u"y"_s), u"x\uFFFDy"_s);
    EXPECT_EQ(shownAddress(u"\U0001F600"_s), u"\U0001F600"_s);
    EXPECT_EQ(shownAddress(u"\U000E0041"_s), u"U+E0041"_s);
}

TEST(Addresses, LongOnesAreShownInLinesAndWithoutTheirMiddle) {
    const QString lined = shownAddress(QString(200, u'a'));
    EXPECT_EQ(lined, QString(80, u'a') + u'\n' + QString(80, u'a') + u'\n' + QString(40, u'a'));
    const QString shown = shownAddress(u"http://debut/"_s + QString(1'000'000, u'a') + u"fin"_s);
    EXPECT_LT(shown.size(), 250);
    EXPECT_TRUE(shown.startsWith(u"http://debut/aaa"_s));
    EXPECT_TRUE(shown.endsWith(u"aaafin"_s));
    EXPECT_EQ(shown.count(u'\u2026'), 1);
    for (const QString& line : shown.split(u'\n'))
        EXPECT_LE(line.size(), 80);
    // Signs that do not show take more room when they are told, and no more lines than others would.
    for (const QString& line : shownAddress(QString(300, u'\u202E')).split(u'\n'))
        EXPECT_LE(line.size(), 80);
}
