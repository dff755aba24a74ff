#include "platform/typeset/longwords.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace velm {

namespace {

// Most texts end here: what holds a blank every thousand characters need not be looked at more closely.
bool isSeparator(QChar unit) {
    return unit == u' ' || unit == u'\t' || unit == QChar::LineSeparator || unit == QChar::ObjectReplacementCharacter;
}

} // namespace

LongWords::LongWords(QStringView text) {
    int from = 0;
    const int length = static_cast<int>(text.size());
    while (length - from > longest) {
        const auto begin = text.cbegin() + from;
        const int to = from + static_cast<int>(std::find_if(begin, text.cend(), isSeparator) - begin);
        if (to - from > longest)
            addWords(text.sliced(from, to - from), from);
        from = to + 1;
    }
}

void LongWords::addWords(QStringView text, int offset) {
    QTextBoundaryFinder lines(QTextBoundaryFinder::Line, text);
    qsizetype from = 0;
    for (qsizetype to = lines.toNextBoundary(); to >= 0; to = lines.toNextBoundary()) {
        if (to - from > longest)
            words_.push_back({offset + static_cast<int>(from), offset + static_cast<int>(to)});
        from = to;
    }
}

bool LongWords::goesOn(int position) {
    while (current_ < words_.size() && words_[current_].to - position <= longest)
        ++current_;
    return current_ < words_.size() && words_[current_].from <= position;
}

int LongWords::restAt(int position) const {
    const auto word = std::upper_bound(words_.begin(), words_.end(), position,
                                       [](int at, const Word& other) { return at < other.to; });
    return word != words_.end() && word->from <= position ? word->to - position : 0;
}

} // namespace velm
