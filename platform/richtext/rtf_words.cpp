#include "platform/richtext/rtf_words.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace velm::rtf {
namespace {

constexpr auto names = std::to_array<std::string_view>({"", // unknown
#define VELM_X(name) #name,
                                                        VELM_RTF_TEXT_WORDS(VELM_X) VELM_RTF_FORMAT_WORDS(VELM_X)
#undef VELM_X
});
static_assert(names.size() <= 256);

constexpr Letters lettersOf(std::string_view name) {
    Letters letters;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const std::uint64_t unit = static_cast<unsigned char>(name[i]);
        (i < 8 ? letters.low : letters.high) |= unit << (i % 8 * 8);
    }
    return letters;
}

constexpr bool fill(WordTable& table, std::uint64_t factor) {
    for (std::uint8_t& slot : table.places)
        slot = 0;
    for (std::size_t i = 1; i < names.size(); ++i) {
        std::uint8_t& slot = table.places[slotOf(table.words[i], factor)];
        if (slot != 0)
            return false;
        slot = static_cast<std::uint8_t>(i);
    }
    table.factor = factor;
    return true;
}

/// The factor was found by trial; adding a word may ask for another one, which the static_assert tells.
constexpr std::uint64_t perfectFactor = 0x9B810E766EC9D287ULL;

constexpr WordTable makeTable() {
    WordTable table{};
    for (std::size_t i = 0; i < names.size(); ++i)
        table.words[i] = lettersOf(names[i]);
    if (!fill(table, perfectFactor))
        table.factor = 0;
    return table;
}

constexpr WordTable made = makeTable();
static_assert(made.factor != 0, "two control words share a slot: choose another factor");

} // namespace

const WordTable wordTable = made;

} // namespace velm::rtf
