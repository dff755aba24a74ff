#pragma once
// The lines of a laid out block as bands without gap: neighbouring lines share the room between them.
#include <QTextLayout>

#include <algorithm>

namespace velm {

class LineBands {
public:
    /// `height` is the block's. The layout outlives the bands.
    LineBands(const QTextLayout& lines, int height) : lines_(lines), height_(height) {}

    int count() const { return lines_.lineCount(); }
    /// Pixels below the block's top; of the line behind the last, its bottom.
    int top(int line) const {
        if (line <= 0)
            return 0;
        if (line >= count())
            return height_;
        const QRectF above = lines_.lineAt(line - 1).rect();
        return qRound((above.bottom() + lines_.lineAt(line).y()) / 2);
    }
    /// The line that covers a height; the first or last beyond the ends.
    int at(int y) const {
        int low = 0;
        int high = std::max(0, count() - 1);
        while (low < high) {
            const int middle = low + (high - low + 1) / 2;
            if (top(middle) <= y)
                low = middle;
            else
                high = middle - 1;
        }
        return low;
    }

private:
    const QTextLayout& lines_;
    int height_ = 0;
};

} // namespace velm
