#include "platform/paper/jobpages.h"

#include <algorithm>

namespace velm {

std::uint16_t JobPages::style(const JobStyle& style) {
    const auto known = std::ranges::find(styles, style);
    const auto number = static_cast<std::uint16_t>(known - styles.begin());
    if (known == styles.end())
        styles.push_back(style);
    return number;
}

void JobPages::append(JobPages more) {
    if (pages.empty()) {
        *this = std::move(more);
        return;
    }
    std::vector<std::uint16_t> numbers;
    for (const JobStyle& one : more.styles)
        numbers.push_back(style(one));
    const auto before = static_cast<std::uint32_t>(sources.size());
    const auto sheets = static_cast<int>(pages.size());
    for (JobSource& source : more.sources) {
        if (source.page >= 0)
            source.page += sheets;
        sources.push_back(std::move(source));
    }
    for (JobPage& page : more.pages) {
        for (JobRun& run : page.runs) {
            run.style = numbers[run.style];
            run.source += before;
        }
        for (JobPicture& picture : page.pictures)
            picture.source += before;
        pages.push_back(std::move(page));
    }
}

} // namespace velm
