#include "platform/richtext/formatchange.h"

#include <algorithm>

namespace velm {

std::vector<std::int32_t> orderedTabs(std::vector<std::int32_t> tabs) {
    std::erase_if(tabs, [](std::int32_t tab) { return tab <= 0; });
    std::sort(tabs.begin(), tabs.end());
    tabs.erase(std::unique(tabs.begin(), tabs.end()), tabs.end());
    if (std::ssize(tabs) > mostTabs)
        tabs.resize(mostTabs);
    return tabs;
}

void apply(const CharChange& change, CharFormat& format) {
    const CharFormat& values = change.values;
    const auto set = [&change](CharChange::Flag flag, auto& to, const auto& value) {
        if ((change.mask & flag) != 0)
            to = value;
    };
    set(CharChange::Family, format.family, values.family);
    set(CharChange::Size, format.size, values.size);
    set(CharChange::Bold, format.bold, values.bold);
    set(CharChange::Italic, format.italic, values.italic);
    set(CharChange::Underline, format.underline, values.underline);
    set(CharChange::Strike, format.strike, values.strike);
    set(CharChange::Hidden, format.hidden, values.hidden);
    set(CharChange::Offset, format.offset, values.offset);
    set(CharChange::Colour, format.colour, values.colour);
    set(CharChange::Background, format.background, values.background);
}

void apply(const ParaChange& change, ParaFormat& format) {
    const ParaFormat& values = change.values;
    const auto set = [&change](ParaChange::Flag flag, auto& to, const auto& value) {
        if ((change.mask & flag) != 0)
            to = value;
    };
    set(ParaChange::Align, format.alignment, values.alignment);
    set(ParaChange::Start, format.startIndent, values.startIndent);
    set(ParaChange::OffsetLines, format.offset, values.offset);
    set(ParaChange::Right, format.rightIndent, values.rightIndent);
    set(ParaChange::Bullet, format.bullet, values.bullet);
    set(ParaChange::Tabs, format.tabs, values.tabs);
    set(ParaChange::Before, format.spaceBefore, values.spaceBefore);
    set(ParaChange::After, format.spaceAfter, values.spaceAfter);
    set(ParaChange::Spacing, format.lineSpacing, values.lineSpacing);
    set(ParaChange::Spacing, format.lineMultiple, values.lineMultiple);
}

} // namespace velm
