#include "platform/widgets/look/plaintext.h"

#include <QLabel>
#include <QTextDocument>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qsizetype longestTip = 2000;
constexpr qsizetype oneLine = 80; ///< characters that need no second line

} // namespace

QString plainTip(const QString& text) {
    const QString shown = text.size() > longestTip ? text.left(longestTip - 1) + u'\u2026' : text;
    // Who cannot see hears the tip: it is dressed only where it has to be.
    if (shown.size() <= oneLine && !shown.contains(u'\n') && !Qt::mightBeRichText(shown))
        return shown;
    return u"<p>"_s + shown.toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</p>"_s;
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
