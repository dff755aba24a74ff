// Finding lines and characters on the sheet.
#include "platform/widgets/text/linebands.h"
#include "platform/widgets/text/paperlayout.h"
#include "platform/widgets/text/viewformats.h"

#include <QTextDocument>

#include <cmath>

namespace velm {

/// Of a block that the document does not hold yet: one line, as high as the block is estimated.
PaperLayout::Line PaperLayout::estimatedLine(int number) const {
    return {shown_->documentStart(number), paragraphTop(number), heights_.height(number)};
}

PaperLayout::Line PaperLayout::lineIn(int number, int line) {
    const QTextBlock block = layOut(number);
    const LineBands bands(*block.layout(), heights_.height(number));
    Line found;
    found.start = block.position() + (line < bands.count() ? block.layout()->lineAt(line).textStart() : 0);
    found.height = bands.top(line + 1) - bands.top(line);
    found.top = paragraphTop(number) + bands.top(line);
    return found;
}

PaperLayout::Line PaperLayout::lineAt(std::int64_t y) {
    const int number = heights_.at(y - page_.margin);
    if (number < 0) {
        return {};
    }
    if (number >= available_) {
        return estimatedLine(number);
    }
    const QTextBlock block = layOut(number);
    const LineBands bands(*block.layout(), heights_.height(number));
    return lineIn(number, bands.at(static_cast<int>(y - paragraphTop(number))));
}

PaperLayout::Line PaperLayout::lineOf(int position) {
    if (shown_ == nullptr) {
        return {};
    }
    const int number = shown_->blockAt(position);
    if (number >= available_) {
        return estimatedLine(number);
    }
    const QTextBlock block = layOut(number);
    const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
    return lineIn(number, line.isValid() ? line.lineNumber() : 0);
}

int PaperLayout::characterAt(const QPointF& point) {
    const Line line = lineAt(static_cast<std::int64_t>(std::floor(point.y())));
    if (!isAvailable(line.start) || point.y() < double(line.top) || point.y() >= double(line.top + line.height)) {
        return -1;
    }
    const QTextBlock block = document()->findBlock(line.start);
    const QTextLine text = block.layout()->lineForTextPosition(line.start - block.position());
    if (!text.isValid()) {
        return -1;
    }
    const double x = point.x() - page_.textLeft;
    const QRectF natural = text.naturalTextRect();
    if (x < natural.left() || x >= natural.right()) {
        return -1;
    }
    return block.position() + text.xToCursor(x, QTextLine::CursorOnCharacter);
}

int PaperLayout::hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const {
    auto* self = const_cast<PaperLayout*>(this); // lays out on demand
    if (accuracy == Qt::ExactHit) {
        return self->characterAt(point);
    }
    const Line line = self->lineAt(static_cast<std::int64_t>(std::floor(point.y()))); // the nearest
    if (!isAvailable(line.start)) {
        return document()->lastBlock().position(); // as far as the document goes
    }
    const QTextBlock block = document()->findBlock(line.start);
    const QTextLine text = block.layout()->lineForTextPosition(line.start - block.position());
    if (!text.isValid()) {
        return block.position();
    }
    return block.position() + text.xToCursor(point.x() - page_.textLeft);
}

void PaperLayout::resizeInlineObject(QTextInlineObject item, int position, const QTextFormat& format) {
    Q_UNUSED(position)
    const RichObject* object = objectOf(format);
    if (object == nullptr) {
        return;
    }
    const QSize twips = pictureTwips(format.intProperty(ViewFormats::Object), *object);
    const double width = pixels(twips.width());
    const double fit = std::min(1.0, page_.measure / width);
    item.setWidth(width * fit);
    item.setAscent(pixels(twips.height()) * fit);
    item.setDescent(0);
}

} // namespace velm
