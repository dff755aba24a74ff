// The lowest level of reading RTF, at every distance from the end of the input.
#include "platform/richtext/rtf_scan.h"

#include <QByteArray>

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>

using namespace velm::rtf;

namespace {

/// Reads the word at the beginning of the bytes; they lie on the heap, so that a look beyond them is noticed.
Token tokenOf(const std::string& bytes, std::ptrdiff_t* length = nullptr) {
    const std::vector<char> copy(bytes.begin(), bytes.end());
    Token token;
    const char* behind = readWord(copy.data(), copy.data() + copy.size(), token);
    if (length != nullptr)
        *length = behind - copy.data();
    return token;
}

} // namespace

TEST(RtfScan, EveryWordIsFoundNearAndFarFromTheEnd) {
    struct Known {
        const char* name;
        Word word;
    };
    constexpr std::array words = {
#define VELM_X(name) Known{#name, Word::name},
        VELM_RTF_TEXT_WORDS(VELM_X) VELM_RTF_FORMAT_WORDS(VELM_X)
#undef VELM_X
    };
    for (const Known& known : words) {
        const std::string name = known.name;
        EXPECT_EQ(tokenOf(name).word, known.word) << name;
        EXPECT_EQ(tokenOf(name + " and more text behind it").word, known.word) << name;
        EXPECT_EQ(tokenOf(name + "\\par\\par\\par\\par").word, known.word) << name;
        EXPECT_EQ(tokenOf(name + "zq").word, Word::unknown) << name;
        EXPECT_EQ(tokenOf(name + "zq, far from the end").word, Word::unknown) << name;
    }
}

TEST(RtfScan, LongWordsAreUnknown) {
    for (std::size_t length = 1; length < 60; ++length) {
        std::ptrdiff_t read = 0;
        EXPECT_EQ(tokenOf(std::string(length, 'q'), &read).word, Word::unknown);
        EXPECT_EQ(static_cast<std::size_t>(read), length);
        EXPECT_EQ(tokenOf(std::string(length, 'q') + "12 x", &read).number, 12);
        EXPECT_EQ(static_cast<std::size_t>(read), length + 3);
    }
}

TEST(RtfScan, NumbersAndTheBlankBehindThem) {
    EXPECT_FALSE(tokenOf("b ").hasNumber);
    EXPECT_TRUE(tokenOf("b ").isOn());
    EXPECT_FALSE(tokenOf("b0").isOn());
    EXPECT_EQ(tokenOf("fi-360x").number, -360);
    EXPECT_EQ(tokenOf("fi2147483647").number, 2147483647);
    EXPECT_EQ(tokenOf("fi2147483648").number, 2147483647);
    EXPECT_EQ(tokenOf("fi-99999999999999999999999999").number, -2147483647);
    std::ptrdiff_t read = 0;
    tokenOf("fi- x", &read);
    EXPECT_EQ(read, 2);
    tokenOf("fi12  x", &read);
    EXPECT_EQ(read, 5);
}

TEST(RtfScan, PlainRunsStopAtTheFirstSpecialByte) {
    std::mt19937 random(5);
    for (int round = 0; round < 3000; ++round) {
        std::vector<char> bytes(random() % 70);
        for (char& c : bytes)
            c = random() % 25 == 0 ? static_cast<char>(random() % 256) : static_cast<char>(' ' + random() % 60);
        std::vector<char16_t> units(bytes.size() + 32, u'#');
        char16_t* out = units.data();
        const char* const end = bytes.data() + bytes.size();
        const char* const stop = copyPlain(bytes.data(), end, out);
        const auto count = stop - bytes.data();
        ASSERT_EQ(out - units.data(), count);
        for (std::ptrdiff_t i = 0; i < count; ++i) {
            ASSERT_EQ(sortAt(bytes.data() + i), Sort::Plain);
            ASSERT_EQ(units[static_cast<std::size_t>(i)],
                      static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]));
        }
        // It may stop early at a plain character that looks like a brace, never late.
        ASSERT_TRUE(stop == end || sortAt(stop) != Sort::Plain || *stop > 'z' || *stop < 14);
    }
}

TEST(RtfScan, AGroupIsPassedToItsClosingBrace) {
    const auto rest = [](const std::string& bytes) {
        const std::vector<char> copy(bytes.begin(), bytes.end());
        const char* const end = copy.data() + copy.size();
        return std::string(passGroup(copy.data(), end), end);
    };
    EXPECT_EQ(rest("abc}x"), "}x");
    EXPECT_EQ(rest("a{b}\\}\\{\\\\c}x"), "}x");
    EXPECT_EQ(rest("a\\bin3 }}}b}x"), "}x");
    EXPECT_EQ(rest("a\\bin}x"), "}x");
    EXPECT_EQ(rest("a\\binary3 }x"), "}x");
    EXPECT_EQ(rest("some longer text of a group {with another {inside}} and more}x"), "}x");
    EXPECT_EQ(rest("never closed {at all"), "");
    EXPECT_EQ(rest("\\"), "");
    EXPECT_EQ(rest("\\bin99999999 abc"), "");
}
