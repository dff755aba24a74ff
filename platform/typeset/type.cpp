#include "platform/typeset/type.h"

#include <QFontDatabase>

namespace velm::type {

using namespace Qt::Literals::StringLiterals;

QStringList serifFamilies() {
    return {u"Liberation Serif"_s, u"Georgia"_s, u"DejaVu Serif"_s};
}

QStringList sansFamilies() {
    return {u"Liberation Sans"_s, u"Arial"_s, u"DejaVu Sans"_s};
}

QStringList fixedFamilies() {
    return {u"Liberation Mono"_s, u"Courier New"_s, u"DejaVu Sans Mono"_s};
}

QFont documentFont() {
    QFont font;
    for (const QString& family : serifFamilies()) {
        if (QFontDatabase::hasFamily(family)) {
            font.setFamilies({family});
            break;
        }
    }
    font.setStyleHint(QFont::Serif);
    font.setPointSizeF(documentPoints);
    return font;
}

} // namespace velm::type
