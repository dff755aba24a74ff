#pragma once
// Breaks a block into lines: indents, tab stops, alignment, spacing.
#include "platform/typeset/paperpage.h"
#include "platform/typeset/showntext.h"

#include <QRectF>
#include <QTextLayout>

namespace velm {

class LongWords;

/// What laying out has taken so far.
struct LayoutWork {
    std::int64_t blocks = 0;
    std::int64_t lines = 0;
    /// Characters that were looked at to break lines, those behind a line's end to the next place to break included.
    std::int64_t characters = 0;
};

struct BulletMark {
    QPointF centre;
    double radius = 0;
};

class LineSetter {
public:
    /// `em` is the height in pixels of the document's main type. The text outlives the setter.
    LineSetter(const ShownText& shown, const PaperPage& page, int dpi, double em)
        : shown_(shown), page_(page), dpi_(dpi), em_(em) {}

    /// Lays out block `number`, whose text the layout holds; its height in pixels.
    int set(QTextLayout& lines, int number, LayoutWork& work) const;
    /// The width that block `number` has.
    int measure(int number) const;
    double pixels(std::int32_t twips) const { return twips * dpi_ / 1440.0; }
    int spaceBefore(int number) const;
    int spaceAfter(int number) const;
    /// The bullet of block `number`, whose letters are `em` pixels high, beside its first line. From the block's
    /// corner.
    BulletMark bullet(int number, const QTextLine& first, double em) const;
    /// The rule at the foot of block `number`, of `height` pixels, that parts a table's head. From the block's corner.
    QRectF headRule(int number, int height) const;

private:
    bool isRow(int number) const; ///< of a list or a table
    QTextOption optionFor(const ParaFormat& format) const;
    QList<QTextOption::Tab> tabsFor(int number, double left) const;
    double lineLeft(int number, bool first) const;
    int lineHeight(const ParaFormat& format, double natural, bool pictures) const;
    QStringView textOf(int number) const;
    int breakLines(QTextLayout& lines, int number, LayoutWork& work) const;
    void fill(QTextLayout& lines, QTextLine& line, double width, LongWords& words, LayoutWork& work) const;

    const ShownText& shown_;
    PaperPage page_;
    int dpi_ = 96;
    double em_ = 0;
};

} // namespace velm
