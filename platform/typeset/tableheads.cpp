#include "platform/typeset/tableheads.h"

#include <algorithm>

namespace velm {

namespace {

constexpr int leastRows = 2;     // below the head
constexpr int highestHead = 4;   // paragraphs
constexpr int longestHead = 400; // characters

constexpr int mostTitles = 2; // paragraphs that part a table

/// A line over some of a table's rows: set as they are, but for the stops, and for their cells' hanging lines.
bool isTitle(const ShownText& text, int number, int row) {
    ParaFormat here = text.format(number);
    const ParaFormat& rows = text.format(row);
    if (!here.tabs.empty() || text.paragraph(number).tabs)
        return false;
    here.tabs = rows.tabs;
    here.startIndent = rows.startIndent;
    here.offset = rows.offset;
    here.spaceAfter = rows.spaceAfter;
    return here == rows;
}

/// The paragraphs from one on that share its tab stops, and the titles between them.
int tableEnd(const ShownText& text, int first) {
    int end = first + 1;
    for (int number = end, titles = 0; number < text.count() && titles <= mostTitles; ++number) {
        if (text.format(number).tabs == text.format(first).tabs) {
            end = number + 1;
            titles = 0;
        } else if (isTitle(text, number, first)) {
            ++titles;
        } else {
            break;
        }
    }
    return end;
}

/// A row that takes several paragraphs keeps its distance behind the last of them.
int headOf(const ShownText& text, int first, int end) {
    const auto closes = [&text](int number) { return text.format(number).spaceAfter > 0; };
    for (int number = first; number < std::min(end, first + highestHead); ++number) {
        if (closes(number))
            return number;
    }
    return first;
}

/// Words in its cells: a figure would make it a row like the others.
bool isOfWords(const ShownText& text, int number) {
    const int start = text.documentStart(number);
    const QStringView row = QStringView(text.text()).sliced(start, text.documentEnd(number) - start);
    if (row.size() > longestHead)
        return false;
    const auto tells = [](QStringView cell) {
        return cell.trimmed().isEmpty() || std::any_of(cell.begin(), cell.end(), [](QChar c) { return c.isLetter(); });
    };
    const auto cells = row.split(u'\t');
    return std::all_of(cells.begin(), cells.end(), tells);
}

} // namespace

void markTableHeads(const ShownText& text, std::vector<ShownParagraph>& paragraphs) {
    for (int first = 0; first < text.count();) {
        if (!text.paragraph(first).tabs || text.format(first).tabs.empty()) {
            ++first;
            continue;
        }
        const int end = tableEnd(text, first);
        const int head = headOf(text, first, end);
        const auto rows = std::count_if(paragraphs.begin() + head + 1, paragraphs.begin() + end,
                                        [](const ShownParagraph& paragraph) { return paragraph.tabs; });
        if (rows >= leastRows && isOfWords(text, first))
            paragraphs[static_cast<std::size_t>(head)].headEnd = true;
        first = end;
    }
}

} // namespace velm
