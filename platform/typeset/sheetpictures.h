#pragma once
// The pictures that stand in a text: their sizes, and what is painted of them. Each is read once, when it is needed.
#include "platform/typeset/showntext.h"

#include <QImage>
#include <QSize>

#include <unordered_map>

class QPainter;
class QTextFormat;

namespace velm {

class SheetPictures {
public:
    /// The text whose pictures are meant from now on; null for none. Stays the caller's.
    void setContent(const ShownText* shown);

    /// In twips; an invalid size for a format that is no picture's.
    QSize size(const QTextFormat& format);
    /// Nothing for a format that is no picture's; a frame in `rule` for a picture that cannot be shown.
    void paint(QPainter& painter, const QRectF& rect, const QTextFormat& format, const QColor& rule);

private:
    const RichObject* objectOf(const QTextFormat& format) const;

    const ShownText* shown_ = nullptr;
    std::unordered_map<int, QSize> sizes_;
    std::unordered_map<int, QImage> images_;
};

} // namespace velm
