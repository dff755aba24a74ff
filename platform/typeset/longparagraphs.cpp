#include "platform/typeset/longparagraphs.h"

#include <algorithm>
#include <utility>

namespace velm {

namespace {

/// Whether a character belongs to the one before it.
bool joins(QStringView text, int at) {
    constexpr char16_t joiner = 0x200D;
    return text[at].isLowSurrogate() || text[at].isMark() || text[at] == joiner || text[at - 1] == joiner;
}

class Parting {
public:
    Parting(int longest, QString& text) : longest_(longest), text_(text), units_(text.data()) {}

    void part(ShownParagraph rest, int end) {
        int start = rest.documentStart;
        while (end - start > longest_) {
            parts.push_back(rest);
            parts.back().documentStart = start + added();
            parts.back().last = false;
            const int next = cut(start, end);
            rest.start += next - start;
            rest.first = false;
            start = next;
        }
        rest.documentStart = start + added();
        parts.push_back(rest);
    }
    QString text() const {
        QString parted;
        parted.reserve(text_.size() + added());
        qsizetype from = 0;
        for (const int end : ends_) {
            parted += QStringView(text_).sliced(from, end - from);
            parted += QChar(QChar::ParagraphSeparator);
            from = end;
        }
        return parted += QStringView(text_).sliced(from);
    }
    /// An end that was put in belongs to the run of the character before it.
    void move(std::vector<ShownRun>& runs) const {
        auto end = ends_.begin();
        int before = 0;
        for (ShownRun& run : runs) {
            const int runEnd = run.start + run.count;
            run.start += before;
            for (; end != ends_.end() && *end <= runEnd; ++end)
                ++before;
            run.count = runEnd + before - run.start;
        }
    }

    std::vector<ShownParagraph> parts;

private:
    int added() const { return static_cast<int>(ends_.size()); }

    /// Ends the block that begins at `start`; where the next one begins. The paragraph's last character stays behind.
    int cut(int start, int end) {
        const int half = start + longest_ / 2;
        const int latest = std::min(start + longest_, end - 2);
        const QStringView place = QStringView(text_).sliced(half, latest + 1 - half);
        for (const QChar unit : {QChar(QChar::LineSeparator), QChar(u' ')}) {
            if (const qsizetype at = place.lastIndexOf(unit); at >= 0) {
                units_[half + at] = QChar::ParagraphSeparator;
                return half + static_cast<int>(at) + 1;
            }
        }
        int at = latest;
        while (at > half && joins(text_, at))
            --at;
        ends_.push_back(at > half ? at : latest);
        return ends_.back();
    }

    int longest_;
    QString& text_;
    QChar* units_;
    std::vector<int> ends_; ///< places of the text before which an end is put
};

} // namespace

void partParagraphs(int longest, std::vector<ShownParagraph>& paragraphs, std::vector<ShownRun>& runs, QString& text) {
    const auto count = paragraphs.size();
    const auto endOf = [&](std::size_t i) {
        return i + 1 < count ? paragraphs[i + 1].documentStart - 1 : static_cast<int>(text.size());
    };
    std::size_t first = 0;
    while (first < count && endOf(first) - paragraphs[first].documentStart <= longest)
        ++first;
    if (first == count)
        return;
    Parting parting(longest, text);
    for (std::size_t i = 0; i < count; ++i)
        parting.part(paragraphs[i], endOf(i));
    parting.move(runs);
    text = parting.text();
    paragraphs = std::move(parting.parts);
}

} // namespace velm
