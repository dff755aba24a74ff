#pragma once
// Character and paragraph formats of a rich text. Lengths are twips, sizes half points, colours 0x00BBGGRR.
#include <QByteArray>
#include <QString>

#include <cstdint>
#include <vector>

namespace velm {

using FormatId = std::uint32_t;

inline constexpr std::int32_t autoColour = -1;

struct CharFormat {
    QString family;         ///< empty: the view's default font
    std::int32_t size = 24; ///< half points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    bool hidden = false;              ///< stays in the text
    std::int32_t offset = 0;          ///< twips above (positive) or below the base line
    std::int32_t colour = autoColour; ///< of the text
    std::int32_t background = autoColour;
    std::int32_t object = -1; ///< index into RichText::objects(); only on the character U+FFFC

    friend bool operator==(const CharFormat&, const CharFormat&) = default;
};

enum class Alignment : std::uint8_t { Left = 0, Right = 1, Centre = 2, Justify = 3 };

struct ParaFormat {
    Alignment alignment = Alignment::Left;
    std::int32_t startIndent = 0; ///< left edge of the first line
    std::int32_t offset = 0;      ///< further lines, relative to the first
    std::int32_t rightIndent = 0;
    bool bullet = false;
    std::int32_t spaceBefore = 0;
    std::int32_t spaceAfter = 0;
    std::int32_t lineSpacing = 0;   ///< 0: single; positive: at least; negative: exactly; see lineMultiple
    bool lineMultiple = false;      ///< lineSpacing counts 240ths of a single line
    std::vector<std::int32_t> tabs; ///< left-aligned stops, ascending, from the left margin; 32 at most

    friend bool operator==(const ParaFormat&, const ParaFormat&) = default;
};

/// A picture in the text, as it was stored.
struct RichObject {
    enum class Kind { Png, Jpeg, Dib, Wmf, Emf, Unknown };
    Kind kind = Kind::Unknown;
    QByteArray data;
    std::int32_t width = 0; ///< shown size
    std::int32_t height = 0;

    friend bool operator==(const RichObject&, const RichObject&) = default;
};

/// A change of some character properties: those whose flag stands in `mask`.
struct CharChange {
    enum Flag : unsigned {
        Family = 1,
        Size = 2,
        Bold = 4,
        Italic = 8,
        Underline = 16,
        Strike = 32,
        Hidden = 64,
        Offset = 128,
        Colour = 256,
        Background = 512,
        All = 1023
    };
    unsigned mask = 0;
    CharFormat values;
};

struct ParaChange {
    enum Flag : unsigned {
        Align = 1,
        Start = 2,
        OffsetLines = 4,
        Right = 8,
        Bullet = 16,
        Tabs = 32,
        Before = 64,
        After = 128,
        Spacing = 256
    };
    unsigned mask = 0;
    ParaFormat values;
};

} // namespace velm
