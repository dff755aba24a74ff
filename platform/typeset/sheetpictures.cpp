#include "platform/typeset/sheetpictures.h"

#include "platform/typeset/richpicture.h"
#include "platform/typeset/viewformats.h"

#include <QPainter>
#include <QTextFormat>

namespace velm {

void SheetPictures::setContent(const ShownText* shown) {
    shown_ = shown;
    sizes_.clear();
    images_.clear();
}

const RichObject* SheetPictures::objectOf(const QTextFormat& format) const {
    const int number = format.intProperty(ViewFormats::Object);
    const bool known = shown_ != nullptr && format.hasProperty(ViewFormats::Object) && number >= 0 &&
                       number < static_cast<int>(shown_->objects().size());
    return known ? &shown_->objects()[static_cast<std::size_t>(number)] : nullptr;
}

QSize SheetPictures::size(const QTextFormat& format) {
    const RichObject* object = objectOf(format);
    if (object == nullptr)
        return {};
    const int number = format.intProperty(ViewFormats::Object);
    const auto known = sizes_.find(number);
    return known != sizes_.end() ? known->second : sizes_.emplace(number, pictureSize(*object)).first->second;
}

void SheetPictures::paint(QPainter& painter, const QRectF& rect, const QTextFormat& format, const QColor& rule) {
    const RichObject* object = objectOf(format);
    if (object == nullptr)
        return;
    const int number = format.intProperty(ViewFormats::Object);
    const auto known = images_.find(number);
    const QImage& image =
        known != images_.end() ? known->second : images_.emplace(number, pictureOf(*object)).first->second;
    painter.save();
    if (image.isNull()) {
        painter.setPen(QPen(rule, 1));
        painter.drawRect(rect.adjusted(0.5, 0.5, -0.5, -0.5));
    } else {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(rect, image);
    }
    painter.restore();
}

} // namespace velm
