#include "platform/richtext/rtf_output.h"

#include "platform/base/twips.h"
#include "platform/richtext/rtf_picture.h"
#include "platform/text/ansi.h"

#include <algorithm>
#include <array>

namespace velm::rtf {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr char hexDigits[] = "0123456789abcdef";
constexpr qsizetype pictureBytesPerLine = 64;

/// Fonts whose characters are signs: they are written with the character set of symbols.
bool isSymbolFamily(const QString& family) {
    static constexpr std::array<QLatin1StringView, 6> names = {
        QLatin1StringView("Symbol"),       QLatin1StringView("Wingdings"),     QLatin1StringView("Webdings"),
        QLatin1StringView("ZapfDingbats"), QLatin1StringView("Zapf Dingbats"), QLatin1StringView("Marlett")};
    return std::any_of(names.begin(), names.end(),
                       [&family](QLatin1StringView name) { return family.startsWith(name, Qt::CaseInsensitive); });
}

bool extendsWord(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == ' ' || c == '-';
}

const char* pictureWord(RichObject::Kind kind) {
    switch (kind) {
    case RichObject::Kind::Png:
        return "pngblip";
    case RichObject::Kind::Jpeg:
        return "jpegblip";
    case RichObject::Kind::Dib:
        return "dibitmap";
    case RichObject::Kind::Wmf:
        return "wmetafile";
    case RichObject::Kind::Emf:
        return "emfblip";
    case RichObject::Kind::Unknown:
        break;
    }
    return "wbitmap";
}

} // namespace

// ---- pieces

void Output::put(char c) {
    if (afterWord_ && extendsWord(c))
        bytes_.append(' ');
    afterWord_ = false;
    bytes_.append(c);
}

void Output::word(const char* name) {
    bytes_.append('\\');
    bytes_.append(name);
    afterWord_ = true;
}

void Output::word(const char* name, int number) {
    word(name);
    bytes_.append(QByteArray::number(number));
}

void Output::flag(const char* name, bool on) {
    if (on)
        word(name);
    else
        word(name, 0);
}

void Output::hex(unsigned char byte) {
    afterWord_ = false;
    const char digits[] = {'\\', '\'', hexDigits[byte >> 4], hexDigits[byte & 15]};
    bytes_.append(digits, 4);
}

void Output::unicode(char16_t unit) {
    word("u", static_cast<std::int16_t>(unit));
    put('?');
}

void Output::unit(char16_t unit) {
    switch (unit) {
    case u'\\':
    case u'{':
    case u'}':
        bytes_.append('\\');
        afterWord_ = false;
        bytes_.append(static_cast<char>(unit));
        return;
    case u'\t':
        word("tab");
        return;
    default:
        break;
    }
    if (unit >= 0x20 && unit < 0x7F) {
        put(static_cast<char>(unit));
        return;
    }
    if (isSymbol_) {
        if (unit < 0x100)
            hex(static_cast<unsigned char>(unit));
        else
            unicode(unit);
        return;
    }
    if (unit == 0xA0 || unit == 0xAD || unit == 0x2011) {
        afterWord_ = false;
        bytes_.append('\\');
        bytes_.append(unit == 0xA0 ? '~' : unit == 0xAD ? '-' : '_');
    } else if (const auto byte = ansi::fromUnicode(unit)) {
        hex(*byte);
    } else {
        unicode(unit);
    }
}

// ---- header

void Output::use(const CharFormat& format) {
    if (!families_.contains(format.family)) {
        families_.insert(format.family, static_cast<int>(familyList_.size()));
        familyList_.append(format.family);
    }
    for (const std::int32_t colour : {format.colour, format.background}) {
        if (colour < 0 || colours_.contains(colour))
            continue;
        colourList_.push_back(colour);
        colours_.insert(colour, static_cast<int>(colourList_.size()));
    }
}

/// Signs of RTF, and the semicolon that would end the name, as bytes; all else beyond ASCII by its number.
void Output::fontName(const QString& family) {
    for (const QChar c : family) {
        const char16_t unit = c.unicode();
        if (unit == u';' || unit == u'\\' || unit == u'{' || unit == u'}' || unit < u' ')
            hex(static_cast<unsigned char>(unit));
        else if (unit < 0x7F)
            put(static_cast<char>(unit));
        else
            unicode(unit);
    }
}

void Output::header() {
    if (familyList_.isEmpty())
        use(CharFormat());
    character_.family = familyList_.front();
    if (hasBullets_) {
        bulletFont_ = static_cast<int>(familyList_.size());
        familyList_.append(u"Symbol"_s);
    }
    bytes_.append("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl");
    for (qsizetype i = 0; i < familyList_.size(); ++i) {
        bytes_.append('{');
        word("f", static_cast<int>(i));
        word("fnil");
        word("fcharset", isSymbolFamily(familyList_[i]) ? 2 : 0);
        bytes_.append(' ');
        afterWord_ = false;
        fontName(familyList_[i]);
        bytes_.append(";}");
    }
    bytes_.append("}\r\n");
    isSymbol_ = isSymbolFamily(character_.family);
    if (!colourList_.empty()) {
        bytes_.append("{\\colortbl ;");
        for (const std::int32_t colour : colourList_) {
            word("red", colour & 0xFF);
            word("green", (colour >> 8) & 0xFF);
            word("blue", (colour >> 16) & 0xFF);
            put(';');
        }
        bytes_.append("}\r\n");
    }
    bytes_.append("\\uc1");
    afterWord_ = true;
}

// ---- paragraphs

void Output::bulletText() {
    bytes_.append("{\\pntext");
    word("f", bulletFont_);
    bytes_.append("\\'B7\\tab}");
    afterWord_ = false;
}

void Output::paragraph(const ParaFormat& format) {
    const bool changes = format != paragraph_;
    if (changes)
        word("pard");
    if (format.bullet)
        bulletText();
    if (changes)
        paragraphWords(format);
    paragraph_ = format;
}

void Output::paragraphWords(const ParaFormat& format) {
    if (format.bullet) {
        bytes_.append("{\\*\\pn\\pnlvlblt");
        word("pnf", bulletFont_);
        word("pnindent", std::max(format.offset, 0));
        bytes_.append("{\\pntxtb\\'B7}}");
        afterWord_ = false;
    }
    if (format.offset != 0)
        word("fi", -format.offset);
    if (format.startIndent + format.offset != 0)
        word("li", format.startIndent + format.offset);
    if (format.rightIndent != 0)
        word("ri", format.rightIndent);
    if (format.spaceBefore != 0)
        word("sb", format.spaceBefore);
    if (format.spaceAfter != 0)
        word("sa", format.spaceAfter);
    if (format.lineSpacing != 0 || format.lineMultiple)
        word("sl", format.lineSpacing);
    if (format.lineMultiple)
        word("slmult", 1);
    static constexpr const char* alignments[] = {"", "qr", "qc", "qj"};
    if (format.alignment != Alignment::Left)
        word(alignments[static_cast<std::size_t>(format.alignment)]);
    for (const std::int32_t stop : format.tabs)
        word("tx", stop);
}

void Output::endParagraph() {
    word("par");
    bytes_.append("\r\n");
    afterWord_ = false;
}

// ---- characters

void Output::offset(int twips) {
    if (twips % 10 != 0)
        word("twipoffset", twips); // finer than half points
    else if (twips < 0)
        word("dn", -twips / 10);
    else
        word("up", twips / 10);
}

void Output::character(const CharFormat& format) {
    if (format.family != character_.family) {
        word("f", fontOf(format.family));
        isSymbol_ = isSymbolFamily(format.family);
    }
    if (format.size != character_.size)
        word("fs", format.size);
    if (format.bold != character_.bold)
        flag("b", format.bold);
    if (format.italic != character_.italic)
        flag("i", format.italic);
    if (format.underline != character_.underline)
        word(format.underline ? "ul" : "ulnone");
    if (format.strike != character_.strike)
        flag("strike", format.strike);
    if (format.hidden != character_.hidden)
        flag("v", format.hidden);
    if (format.offset != character_.offset)
        offset(format.offset);
    if (format.colour != character_.colour)
        word("cf", colourOf(format.colour));
    if (format.background != character_.background)
        word("highlight", colourOf(format.background));
    character_ = format;
}

void Output::text(QStringView units) {
    const auto isPlain = [](QChar c) { return c >= u' ' && c < u'\x7F' && c != u'\\' && c != u'{' && c != u'}'; };
    for (qsizetype i = 0; i < units.size();) {
        const qsizetype from = i++;
        if (!isPlain(units[from])) {
            unit(units[from].unicode());
            continue;
        }
        put(units[from].toLatin1());
        while (i < units.size() && isPlain(units[i]))
            ++i;
        const qsizetype at = bytes_.size();
        bytes_.resize(at + i - from - 1);
        char* to = bytes_.data() + at;
        for (qsizetype k = from + 1; k < i; ++k)
            *to++ = units[k].toLatin1();
    }
}

void Output::picture(const RichObject& object) {
    const bool isMetafile = object.kind == RichObject::Kind::Wmf || object.kind == RichObject::Kind::Emf;
    const PictureSize natural = naturalSize(object.kind, object.data);
    const int width = object.width > 0 ? object.width : natural.width;
    const int height = object.height > 0 ? object.height : natural.height;
    const auto inside = [isMetafile](int twips, int own) {
        return isMetafile ? twips * himetricPerInch / twipsPerInch : (own > 0 ? own : twips) / twipsPerPixel;
    };
    bytes_.append("{\\pict");
    if (object.kind == RichObject::Kind::Wmf)
        word("wmetafile", 8);
    else if (object.kind == RichObject::Kind::Dib || object.kind == RichObject::Kind::Unknown)
        word(pictureWord(object.kind), 0);
    else
        word(pictureWord(object.kind));
    word("picw", inside(width, natural.width));
    word("pich", inside(height, natural.height));
    if (width > 0)
        word("picwgoal", width);
    if (height > 0)
        word("pichgoal", height);
    for (qsizetype at = 0; at < object.data.size(); at += pictureBytesPerLine) {
        bytes_.append("\r\n");
        bytes_.append(object.data.sliced(at, std::min(pictureBytesPerLine, object.data.size() - at)).toHex());
    }
    bytes_.append('}');
    afterWord_ = false;
}

QByteArray Output::finish() {
    bytes_.append("}\r\n");
    return std::move(bytes_);
}

} // namespace velm::rtf
