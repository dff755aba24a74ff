#include "platform/typeset/viewformats.h"

#include "platform/base/twips.h"
#include "platform/typeset/type.h"

#include <QFontDatabase>
#include <QFontMetricsF>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Words in a family's name that tell its kind.
bool namesOne(const QString& family, const QStringList& words) {
    return std::any_of(words.begin(), words.end(),
                       [&](const QString& word) { return family.contains(word, Qt::CaseInsensitive); });
}

QStringList substitutes(const QString& family) {
    static const QStringList fixed{u"courier"_s, u"mono"_s,       u"consolas"_s, u"console"_s,
                                   u"fixed"_s,   u"typewriter"_s, u"terminal"_s};
    static const QStringList sans{u"sans"_s,    u"arial"_s,  u"helvetica"_s, u"verdana"_s, u"tahoma"_s,    u"calibri"_s,
                                  u"univers"_s, u"futura"_s, u"gill"_s,      u"segoe"_s,   u"trebuchet"_s, u"system"_s,
                                  u"optima"_s,  u"swiss"_s,  u"frutiger"_s,  u"gothic"_s,  u"impact"_s};
    if (namesOne(family, fixed))
        return type::fixedFamilies();
    if (namesOne(family, sans))
        return type::sansFamilies();
    return type::serifFamilies();
}

QString chooseFamily(const QString& family) {
    if (!family.isEmpty() && QFontDatabase::hasFamily(family))
        return family;
    for (const QString& other : substitutes(family)) {
        if (QFontDatabase::hasFamily(other))
            return other;
    }
    return family;
}

/// The document moves a base line by hundredths of the type's height.
double raisedBy(std::int32_t twips, const QFont& font) {
    const QFontMetricsF metrics(font);
    const double points = metrics.height() * 72.0 / metrics.fontDpi();
    return points > 0 ? std::clamp(twips, -32767, 32767) * 100.0 / (points * twipsPerPoint) : 0;
}

} // namespace

QString installedFamily(const QString& family) {
    static QHash<QString, QString> known;
    const auto found = known.constFind(family);
    if (found != known.constEnd())
        return *found;
    return *known.insert(family, chooseFamily(family));
}

QColor viewColour(std::int32_t colour) {
    return {colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF};
}

QTextCharFormat viewFormat(const CharFormat& format) {
    QTextCharFormat view;
    view.setFontFamilies({installedFamily(format.family)});
    view.setFontPointSize(std::clamp(format.size, 2, 800) / 2.0);
    view.setFontHintingPreference(QFont::PreferVerticalHinting);
    if (format.bold)
        view.setFontWeight(QFont::Bold);
    if (format.italic)
        view.setFontItalic(true);
    if (format.underline)
        view.setFontUnderline(true);
    if (format.strike)
        view.setFontStrikeOut(true);
    if (format.offset != 0)
        view.setBaselineOffset(raisedBy(format.offset, view.font()));
    if (format.colour != autoColour)
        view.setForeground(viewColour(format.colour));
    if (format.background != autoColour)
        view.setBackground(viewColour(format.background));
    if (format.object >= 0) {
        view.setObjectType(ViewFormats::pictureType);
        view.setProperty(ViewFormats::Object, format.object);
    }
    return view;
}

void ViewFormats::add(const RichText& rich, FormatId id) {
    if (id >= formats_.size())
        formats_.resize(id + 1);
    if (!formats_[id])
        formats_[id] = viewFormat(rich.charFormat(id));
}

} // namespace velm
