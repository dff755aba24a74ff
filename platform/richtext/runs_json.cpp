#include "platform/richtext/runs_json.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace velm {
namespace {

QString colourName(std::int32_t colour) {
    return QString::asprintf("#%02x%02x%02x", colour & 0xFF, (colour >> 8) & 0xFF, (colour >> 16) & 0xFF);
}

QJsonObject runObject(const QString& text, const CharFormat& format) {
    QJsonObject run{
        {u"text"_s, text},
        {u"b"_s, int{format.bold}},
        {u"i"_s, int{format.italic}},
        {u"u"_s, int{format.underline}},
        {u"strike"_s, int{format.strike}},
        {u"hidden"_s, int{format.hidden}},
        {u"size"_s, format.size / 2.0},
        {u"font"_s, format.family},
    };
    if (format.colour >= 0)
        run.insert(u"color"_s, colourName(format.colour));
    if (format.background >= 0)
        run.insert(u"background"_s, colourName(format.background));
    return run;
}

/// A picture has no text of its own.
QJsonObject pictureObject(const RichText& text, std::int32_t index) {
    static constexpr std::array kinds{"png", "jpeg", "dib", "wmf", "emf", "unknown"};
    QJsonObject run{{u"text"_s, QString()}};
    if (static_cast<std::size_t>(index) < text.objects().size()) {
        const RichObject& object = text.objects()[static_cast<std::size_t>(index)];
        run.insert(u"picture"_s, QString::fromLatin1(kinds[static_cast<std::size_t>(object.kind)]));
        run.insert(u"width"_s, object.width);
        run.insert(u"height"_s, object.height);
    }
    return run;
}

} // namespace

QByteArray formatsJson(const RichText& text) {
    QJsonArray runs;
    text.forEachRun(0, text.length(), [&](qsizetype start, qsizetype count, FormatId id) {
        const CharFormat& format = text.charFormat(id);
        runs.append(format.object < 0 ? runObject(text.text(start, count), format)
                                      : pictureObject(text, format.object));
    });
    return QJsonDocument(runs).toJson(QJsonDocument::Compact);
}

} // namespace velm
