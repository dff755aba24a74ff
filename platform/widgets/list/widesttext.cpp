#include "platform/widgets/list/widesttext.h"

#include "platform/controls/listitems.h"

#include <QFontMetrics>

#include <algorithm>
#include <array>
#include <vector>

namespace velm {

namespace {

/// The widths of letters, each asked for once.
class Letters {
public:
    explicit Letters(const QFontMetrics& metrics) : metrics_(metrics), other_(metrics.horizontalAdvance(u'm')) {
        widths_.fill(-1);
    }
    int sum(const QString& text) {
        int width = 0;
        for (const QChar letter : text)
            width += of(letter);
        return width;
    }

private:
    int of(QChar letter) {
        if (letter.unicode() >= widths_.size())
            return other_;
        int& width = widths_.at(letter.unicode());
        if (width < 0)
            width = metrics_.horizontalAdvance(letter);
        return width;
    }

    const QFontMetrics& metrics_;
    int other_;
    std::array<int, 256> widths_{};
};

} // namespace

int widestText(const ListItems& items, const QFontMetrics& metrics, int enough) {
    constexpr std::size_t measured = 16;
    Letters letters(metrics);
    std::vector<std::pair<int, int>> sums;
    sums.reserve(static_cast<std::size_t>(items.count()));
    for (int item = 1; item <= items.count(); ++item)
        sums.emplace_back(letters.sum(items.text(item)), item);
    const std::size_t first = std::min(measured, sums.size());
    std::partial_sort(sums.begin(), sums.begin() + static_cast<std::ptrdiff_t>(first), sums.end(), std::greater<>());
    int width = 0;
    for (std::size_t i = 0; i < first && width < enough; ++i)
        width = std::max(width, metrics.horizontalAdvance(items.text(sums.at(i).second)));
    return width;
}

} // namespace velm
