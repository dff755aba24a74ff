#include "platform/widgets/look/plaintext.h"

#include <QFontMetrics>
#include <QLabel>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype longestTip = 2000;
constexpr int widestLine = 480;  ///< pixels of a tip
constexpr int longestEntry = 80; ///< characters of average width

/// How much of a text fits into one line: up to the last blank of it, or as much as fits of a long word.
qsizetype lineOf(QStringView text, const QFontMetrics& metrics) {
    qsizetype fits = 0;
    qsizetype behind = text.size(); // neither does so much
    if (metrics.horizontalAdvance(text.toString()) <= widestLine)
        return text.size();
    while (behind - fits > 1) {
        const qsizetype middle = (fits + behind) / 2;
        (metrics.horizontalAdvance(text.first(middle).toString()) <= widestLine ? fits : behind) = middle;
    }
    const qsizetype blank = text.first(fits + 1).lastIndexOf(u' ');
    return blank > 0 ? blank : std::max<qsizetype>(fits, 1);
}

/// The text in lines of which none is wider than a tip shall be.
QString inLines(const QString& text) {
    const QFontMetrics metrics(QToolTip::font());
    QStringList lines;
    for (const QString& paragraph : text.split(u'\n')) {
        QStringView rest = paragraph;
        do {
            const qsizetype line = lineOf(rest, metrics);
            lines << rest.first(line).toString();
            rest = rest.sliced(line).trimmed();
        } while (!rest.isEmpty());
    }
    return lines.join(u'\n');
}

} // namespace

QString plainTip(const QString& text) {
    const QString shown = inLines(text.size() > longestTip ? text.left(longestTip - 1) + u'\u2026' : text);
    // Who cannot see hears the tip: it is dressed only where it has to be.
    if (!Qt::mightBeRichText(shown))
        return shown;
    return u"<p style=\"white-space:pre\">"_s + shown.toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</p>"_s;
}

QString entryText(const QString& line, const QFontMetrics& metrics) {
    return metrics.elidedText(line, Qt::ElideMiddle, metrics.averageCharWidth() * longestEntry);
}

QString entryTip(const QString& line, const QString& shown) {
    return shown != line || Qt::mightBeRichText(line) ? plainTip(line) : QString();
}

QString withoutMnemonic(QString text) {
    return text.replace(u'&', u"&&"_s);
}

QLabel* plainLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    return label;
}

} // namespace velm
