#include "platform/paper/pagepainter.h"

#include "platform/paper/jobfonts.h"
#include "platform/typeset/richpicture.h"

#include <QFontMetricsF>
#include <QPainter>

namespace velm {

void PagePainter::paint(QPainter& painter, std::size_t page) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    const JobPage& here = job_.pages.at(page);
    for (const JobFill& fill : here.fills) {
        painter.setBrush(QColor::fromRgb(fill.colour));
        if (fill.round)
            painter.drawEllipse(fill.where);
        else
            painter.drawRect(fill.where);
    }
    for (const JobPicture& picture : here.pictures)
        paintPicture(painter, picture);
    for (const JobRun& run : here.runs)
        paintRun(painter, run);
}

const QFont& PagePainter::fontOf(std::uint16_t style) {
    auto known = fonts_.find(style);
    if (known == fonts_.end())
        known = fonts_.emplace(style, jobFont(job_.styles[style])).first;
    return known->second;
}

void PagePainter::paintRun(QPainter& painter, const JobRun& run) {
    const QString text = job_.text(run).toString();
    QFont font = fontOf(run.style);
    const auto blanks = text.count(u' ');
    if (run.stretched && blanks > 0)
        font.setWordSpacing((run.width - QFontMetricsF(font).horizontalAdvance(text)) / static_cast<double>(blanks));
    painter.setFont(font);
    painter.setPen(QColor::fromRgb(job_.styles[run.style].colour));
    painter.drawText(QPointF(run.x, run.baseline), text);
}

void PagePainter::paintPicture(QPainter& painter, const JobPicture& picture) {
    const JobSource& source = job_.sources[picture.source];
    if (picture.object < 0 || static_cast<std::size_t>(picture.object) >= source.objects.size())
        return;
    const auto key = std::pair(picture.source, picture.object);
    auto known = pictures_.find(key);
    if (known == pictures_.end()) {
        const RichObject& object = source.objects[static_cast<std::size_t>(picture.object)];
        known = pictures_.emplace(key, pictureOf(object)).first;
    }
    if (!known->second.isNull()) {
        painter.drawImage(picture.where, known->second);
        return;
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QColor::fromRgb(missingPictureColour));
    painter.drawRect(picture.where);
}

} // namespace velm
