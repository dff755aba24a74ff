#pragma once
// Where pieces of a block stand on its lines. They are asked for in the order of the text, so that all of them together
// cost one walk through the lines.
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace velm {

class TextPieces {
public:
    /// From line `first` on, which begins no later than the first piece. The layout outlives this.
    TextPieces(const QTextLayout& lines, int first) : lines_(lines), line_(first) {}

    /// Some of the text runs leftward: a piece of it may lie in several places of its line.
    void setMixedDirections(bool mixed) { mixed_ = mixed; }

    /// Calls `span(line, left, right)` for each stretch of [from, to), in positions of the block and whole pixels.
    template <typename Span>
    void each(int from, int to, const Span& span) {
        while (from < to) {
            const QTextLine line = lines_.lineAt(line_);
            if (!line.isValid())
                return;
            const int end = std::min(to, line.textStart() + line.textLength());
            if (from < end) {
                eachSpan(line, from, end, span);
                from = end;
            }
            if (from < to)
                ++line_;
        }
    }

private:
    template <typename Span>
    void eachSpan(const QTextLine& line, int from, int to, const Span& span) const {
        if (!mixed_) {
            tell(line.cursorToX(from), line.cursorToX(to), span);
            return;
        }
        for (int i = from; i < to; ++i)
            tell(line.cursorToX(i, QTextLine::Leading), line.cursorToX(i, QTextLine::Trailing), span);
    }
    template <typename Span>
    void tell(double one, double other, const Span& span) const {
        span(line_, static_cast<int>(std::floor(std::min(one, other))), qRound(std::max(one, other)));
    }

    const QTextLayout& lines_;
    int line_ = 0;
    bool mixed_ = false;
};

/// Whether any of it runs from right to left.
bool runsLeftward(QStringView text);

} // namespace velm
