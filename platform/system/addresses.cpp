#include "platform/system/addresses.h"

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Longer ones reach no program: the system limits what one argument may hold, and programs far below that.
constexpr qsizetype longestAddress = 8192;
constexpr qsizetype longestMail = 254;
constexpr qsizetype longestShown = 240;
constexpr qsizetype longestLine = 80;

bool isSchemeCharacter(QChar c) {
    const char16_t u = c.unicode();
    return (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') || u == '+' || u == '-' ||
           u == '.';
}

/// Behind the "http://" or "https://" that a text begins with; 0 when it does not.
qsizetype webScheme(QStringView text) {
    for (const QStringView scheme : {QStringView(u"http://"), QStringView(u"https://")}) {
        if (text.startsWith(scheme, Qt::CaseInsensitive))
            return scheme.size();
    }
    return 0;
}

/// What follows the scheme begins with another one: letters and a colon that no port follows.
bool beginsWithScheme(QStringView rest) {
    const auto end = std::find_if_not(rest.begin(), rest.end(), isSchemeCharacter);
    if (end == rest.begin() || end == rest.end() || *end != u':')
        return false;
    const auto behind = end + 1;
    return behind == rest.end() || behind->unicode() < u'0' || behind->unicode() > u'9';
}

bool isControl(QChar c) {
    return c.category() == QChar::Other_Control || c.isNull();
}

/// Of a mail address: what needs no quoting anywhere, in no program that may be asked.
bool isPlainMail(QStringView address) {
    const qsizetype at = address.indexOf(u'@');
    if (at < 1 || at + 1 == address.size() || address.startsWith(u'-'))
        return false;
    const auto plain = [](QStringView part, QStringView signs) {
        return std::all_of(part.begin(), part.end(),
                           [signs](QChar c) { return c.isLetterOrNumber() || signs.contains(c); });
    };
    return plain(address.first(at), u".+-_~") && plain(address.sliced(at + 1), u".-");
}

bool isHidden(char32_t point) {
    switch (QChar::category(point)) {
    case QChar::Other_Control:
    case QChar::Other_Format: // marks that turn the direction, and those without a width
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

/// A long text without its middle, as code points.
QList<uint> shortened(const QString& text) {
    QList<uint> points = text.toUcs4();
    if (points.size() <= longestShown)
        return points;
    constexpr qsizetype end = longestShown / 4;
    const QList<uint> last = points.last(end);
    points.resize(longestShown - end - 1);
    points.append(u'\u2026');
    return points + last;
}

} // namespace

std::optional<QUrl> webUrl(const QString& address) {
    const QString text = address.trimmed();
    const QStringView view = text;
    qsizetype scheme = 0;
    qsizetype behind = webScheme(view);
    if (behind == 0 || text.size() > longestAddress || std::any_of(text.begin(), text.end(), isControl))
        return std::nullopt;
    while (const qsizetype more = webScheme(view.sliced(behind))) {
        scheme = behind;
        behind += more;
    }
    if (beginsWithScheme(view.sliced(behind)))
        return std::nullopt;
    const QUrl url(text.sliced(scheme), QUrl::TolerantMode);
    return url.isValid() && !url.host().isEmpty() ? std::optional(url) : std::nullopt;
}

std::optional<QUrl> mailUrl(const QString& address) {
    QString bare = address.trimmed();
    const QString scheme = u"mailto:"_s;
    if (bare.startsWith(scheme, Qt::CaseInsensitive))
        bare.remove(0, scheme.size());
    if (const qsizetype headers = bare.indexOf(u'?'); headers >= 0)
        bare.truncate(headers);
    if (bare.size() > longestMail || !isPlainMail(bare))
        return std::nullopt;
    QUrl url;
    url.setScheme(u"mailto"_s);
    url.setPath(bare);
    return url;
}

QString shownAddress(const QString& address) {
    QString shown;
    qsizetype line = 0;
    for (const uint point : shortened(address)) {
        const QString sign = isHidden(point) ? u"U+%1"_s.arg(point, 4, 16, QChar(u'0')).toUpper()
                                             : QString::fromUcs4(reinterpret_cast<const char32_t*>(&point), 1);
        if (line + sign.size() > longestLine) {
            shown += u'\n';
            line = 0;
        }
        shown += sign;
        line += sign.size();
    }
    return shown;
}

} // namespace velm
