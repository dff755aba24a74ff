#include "platform/widgets/text/richhtml.h"

#include "platform/base/twips.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

QString points(std::int32_t twips) {
    return QString::number(double(twips) / twipsPerPoint, 'g', 6) + u"pt"_s;
}

QString hexColour(std::int32_t colour) {
    const auto rgb = static_cast<unsigned>(((colour & 0xFF) << 16) | (colour & 0xFF00) | ((colour >> 16) & 0xFF));
    return u'#' + QString::number(rgb, 16).rightJustified(6, u'0');
}

QString characterStyle(const CharFormat& format) {
    QString style;
    if (!format.family.isEmpty()) {
        QString family = format.family;
        family.replace(u'\\', u"\\\\"_s).replace(u'\'', u"\\'"_s);
        style += u"font-family:'"_s + family.toHtmlEscaped() + u"';"_s;
    }
    style += u"font-size:"_s + QString::number(format.size / 2.0) + u"pt;"_s;
    if (format.bold)
        style += u"font-weight:bold;"_s;
    if (format.italic)
        style += u"font-style:italic;"_s;
    if (format.underline || format.strike) {
        style += u"text-decoration:"_s + (format.underline ? u" underline"_s : QString()) +
                 (format.strike ? u" line-through"_s : QString()) + u';';
    }
    if (format.offset != 0)
        style += u"vertical-align:"_s + points(format.offset) + u';';
    if (format.colour != autoColour)
        style += u"color:"_s + hexColour(format.colour) + u';';
    if (format.background != autoColour)
        style += u"background-color:"_s + hexColour(format.background) + u';';
    return style;
}

QString paragraphStyle(const ParaFormat& format) {
    static constexpr std::array names{"left", "right", "center", "justify"};
    QString style = u"margin:"_s + points(format.spaceBefore) + u' ' + points(format.rightIndent) + u' ' +
                    points(format.spaceAfter) + u' ' + points(format.startIndent + format.offset) + u';';
    style += u"text-indent:"_s + points(-format.offset) + u';';
    if (format.alignment != Alignment::Left)
        style += u"text-align:"_s + QString::fromLatin1(names.at(static_cast<std::size_t>(format.alignment))) + u';';
    return style;
}

QString pictureElement(const RichObject& object) {
    const bool png = object.kind == RichObject::Kind::Png;
    if (!png && object.kind != RichObject::Kind::Jpeg)
        return {};
    QString element = u"<img src=\"data:image/"_s + (png ? u"png"_s : u"jpeg"_s) + u";base64,"_s +
                      QString::fromLatin1(object.data.toBase64()) + u'"';
    if (object.width > 0 && object.height > 0) {
        element +=
            u" width=\"%1\" height=\"%2\""_s.arg(object.width / twipsPerPixel).arg(object.height / twipsPerPixel);
    }
    return element + u" alt=\"\">"_s;
}

class HtmlWriter {
public:
    explicit HtmlWriter(const RichText& rich) : rich_(rich) {}

    QString write(qsizetype position, qsizetype length) {
        out_ = u"<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"></head><body>\n"_s;
        const qsizetype end = std::min(position + length, rich_.length());
        openParagraph(position);
        rich_.forEachRun(position, end - position, [&](qsizetype start, qsizetype count, FormatId format) {
            writeRun(rich_.text(start, count), start, rich_.charFormat(format));
        });
        out_ += u"</p>\n</body></html>\n"_s;
        return out_;
    }

private:
    void openParagraph(qsizetype position) {
        const qsizetype end = rich_.paragraphEnd(position);
        const bool empty = end <= position;
        const ParaFormat& format = rich_.paraFormat(empty ? rich_.tailParagraph() : rich_.paraFormatIdAt(end - 1));
        out_ += u"<p style=\""_s + paragraphStyle(format) + u"\">"_s;
        if (format.bullet)
            out_ += u"\u2022 "_s;
    }

    void writeRun(const QString& text, qsizetype start, const CharFormat& format) {
        if (format.object >= 0) {
            for (const QChar unit : text) {
                if (unit == QChar::ObjectReplacementCharacter)
                    out_ += pictureElement(rich_.objects()[static_cast<std::size_t>(format.object)]);
            }
            return;
        }
        const QString open = u"<span style=\""_s + characterStyle(format) + u"\">"_s;
        qsizetype from = 0;
        while (from <= text.size()) {
            qsizetype to = text.indexOf(u'\r', from);
            to = to < 0 ? text.size() : to;
            writePiece(text.mid(from, to - from), open, format);
            if (to == text.size())
                break;
            const bool pair = to + 1 < text.size() && text.at(to + 1) == u'\n';
            from = to + (pair ? 2 : 1);
            out_ += u"</p>\n"_s;
            openParagraph(start + from);
        }
    }

    void writePiece(const QString& text, const QString& open, const CharFormat& format) {
        if (text.isEmpty() || format.hidden)
            return;
        QString escaped = text.toHtmlEscaped();
        escaped.replace(u'\v', u"<br>"_s).replace(u'\t', u"<span style=\"white-space:pre\">\t</span>"_s);
        escaped.remove(u'\f').remove(QChar::ObjectReplacementCharacter);
        escaped.replace(u"  "_s, u"\u00A0 "_s);
        out_ += open + escaped + u"</span>"_s;
    }

    const RichText& rich_;
    QString out_;
};

} // namespace

QString richHtml(const RichText& rich, qsizetype position, qsizetype length) {
    position = std::clamp<qsizetype>(position, 0, rich.length());
    length = std::clamp<qsizetype>(length, 0, rich.length() - position);
    return HtmlWriter(rich).write(position, length);
}

QString richPlain(const RichText& rich, qsizetype position, qsizetype length) {
    position = std::clamp<qsizetype>(position, 0, rich.length());
    length = std::clamp<qsizetype>(length, 0, rich.length() - position);
    QString plain;
    rich.forEachRun(position, length, [&](qsizetype start, qsizetype count, FormatId format) {
        if (!rich.charFormat(format).hidden)
            plain += rich.text(start, count);
    });
    plain.replace(u'\v', u"\r\n"_s).remove(u'\f').remove(QChar::ObjectReplacementCharacter);
#ifndef Q_OS_WIN
    plain.remove(u'\r');
#endif
    return plain;
}

} // namespace velm
