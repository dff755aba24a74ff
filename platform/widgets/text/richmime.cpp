#include "platform/widgets/text/richmime.h"

#include "platform/richtext/rtf.h"
#include "platform/widgets/text/richhtml.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

const QStringList& rtfTypes() {
    static const QStringList types{u"text/rtf"_s, u"application/rtf"_s, u"Rich Text Format"_s};
    return types;
}

} // namespace

QStringList RichMime::formats() const {
    return rtfTypes() + QStringList{u"text/html"_s, u"text/plain"_s};
}

QVariant RichMime::retrieveData(const QString& type, QMetaType wanted) const {
    if (rtfTypes().contains(type))
        return writeRtf(part_);
    if (type == u"text/html"_s)
        return richHtml(part_, 0, part_.length());
    if (type == u"text/plain"_s)
        return richPlain(part_, 0, part_.length());
    return QMimeData::retrieveData(type, wanted);
}

} // namespace velm
