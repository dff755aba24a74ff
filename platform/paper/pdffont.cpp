#include "platform/paper/pdffont.h"

#include "platform/paper/pdfobjects.h"

#include <QtEndian>

#include <array>
#include <cmath>
#include <hb-subset.h>
#include <hb.h>

namespace velm {

namespace {

constexpr int thousand = 1000;

QByteArray hex(std::uint32_t number, int digits) {
    return QByteArray::number(number, 16).rightJustified(digits, '0');
}

QByteArray utf16(const QString& letters) {
    QByteArray all;
    for (const QChar unit : letters)
        all += hex(unit.unicode(), 4);
    return all;
}

} // namespace

/// A table of the font, as the shaper asks for it. It lives as long as the font: who makes a part of that keeps no
/// reference to what it takes from a table.
hb_blob_t* PdfFont::table(hb_face_t*, std::uint32_t tag, void* font) {
    auto& self = *static_cast<PdfFont*>(font);
    auto known = self.tables_.find(tag);
    if (known == self.tables_.end()) {
        std::array<char, 5> name{};
        hb_tag_to_string(tag, name.data());
        known = self.tables_.emplace(tag, self.font_.fontTable(name.data())).first;
    }
    const QByteArray& bytes = known->second;
    return hb_blob_create(bytes.constData(), static_cast<unsigned>(bytes.size()), HB_MEMORY_MODE_READONLY, nullptr,
                          nullptr);
}

PdfFont::PdfFont(const QRawFont& font, int number) : font_(font), number_(number) {
    face_ = hb_face_create_for_tables(&PdfFont::table, this, nullptr);
    unitsPerEm_ = std::max(1, static_cast<int>(hb_face_get_upem(face_)));
    hb_ = hb_font_create(face_);
    hb_font_set_scale(hb_, unitsPerEm_, unitsPerEm_);
    glyphs_ = hb_face_get_glyph_count(face_);
    outlines_ = font_.fontTable("glyf").isEmpty();
    letters_ = hb_buffer_create();
    has_.resize(0x10000, -1);
}

PdfFont::~PdfFont() {
    hb_buffer_destroy(letters_);
    hb_font_destroy(hb_);
    hb_face_destroy(face_);
}

bool PdfFont::has(char32_t letter) {
    if (letter >= has_.size())
        return font_.supportsCharacter(letter);
    signed char& known = has_[letter];
    if (known < 0)
        known = font_.supportsCharacter(letter) ? 1 : 0;
    return known > 0;
}

std::vector<PdfFont::Glyph> PdfFont::shape(QStringView text) {
    hb_buffer_clear_contents(letters_);
    const auto* units = reinterpret_cast<const std::uint16_t*>(text.utf16());
    const int length = static_cast<int>(text.size());
    hb_buffer_add_utf16(letters_, units, length, 0, length);
    hb_buffer_guess_segment_properties(letters_);
    hb_shape(hb_, letters_, nullptr, 0);
    unsigned count = 0;
    const hb_glyph_info_t* infos = hb_buffer_get_glyph_infos(letters_, &count);
    const hb_glyph_position_t* places = hb_buffer_get_glyph_positions(letters_, &count);
    const bool leftward = HB_DIRECTION_IS_BACKWARD(hb_buffer_get_direction(letters_));
    const auto scaled = [this](int units_) {
        return static_cast<int>(std::lround(double(units_) * thousand / unitsPerEm_));
    };
    std::vector<Glyph> glyphs;
    glyphs.reserve(count);
    for (unsigned i = 0; i < count; ++i) {
        const std::uint32_t id = infos[i].codepoint;
        const unsigned from = infos[i].cluster;
        // Letters that became one glyph belong to it together; those of further glyphs of the same letters are none.
        const bool first = i == 0 || infos[i - 1].cluster != from;
        unsigned to = static_cast<unsigned>(length);
        if (leftward)
            to = i == 0 ? to : infos[i - 1].cluster;
        else
            for (unsigned next = i + 1; next < count; ++next)
                if (infos[next].cluster != from) {
                    to = infos[next].cluster;
                    break;
                }
        const QStringView letters = first && to > from ? text.sliced(from, to - from) : QStringView();
        const std::uint32_t code = note(id, letters);
        glyphs.push_back(
            {code, scaled(places[i].x_advance), used_[code].width, scaled(places[i].x_offset), letters == u" "});
    }
    return glyphs;
}

/// The code of a glyph where it stands for these letters.
std::uint32_t PdfFont::note(std::uint32_t glyph, QStringView letters) {
    if (glyph >= used_.size())
        used_.resize(glyph + 1);
    Use& use = used_[glyph];
    if (use.width < 0) {
        use.glyph = glyph;
        use.width = std::max(
            0, static_cast<int>(std::lround(double(hb_font_get_glyph_h_advance(hb_, glyph)) * thousand / unitsPerEm_)));
    }
    if (use.letters.isEmpty())
        use.letters = letters.toString();
    if (letters.isEmpty() || use.letters == letters || outlines_)
        return glyph;
    constexpr std::uint32_t codes = 0x10000;
    const auto next = glyphs_ + static_cast<std::uint32_t>(further_.size());
    const auto [known, isNew] = further_.try_emplace({glyph, letters.toString()}, next);
    const std::uint32_t code = known->second;
    if (code >= codes)
        return glyph;
    if (isNew) {
        const Use more{letters.toString(), use.width, glyph};
        used_.resize(std::max<std::size_t>(used_.size(), code + 1));
        used_[code] = more;
    }
    return code;
}

QByteArray PdfFont::subset() const {
    std::unique_ptr<hb_subset_input_t, decltype(&hb_subset_input_destroy)> input(hb_subset_input_create_or_fail(),
                                                                                 &hb_subset_input_destroy);
    if (!input)
        return {};
    for (std::size_t code = 0; code < used_.size(); ++code) {
        if (used_[code].width >= 0)
            hb_set_add(hb_subset_input_glyph_set(input.get()), used_[code].glyph);
    }
    for (const char* table : {"GSUB", "GPOS", "GDEF", "kern", "name", "post", "OS/2", "DSIG", "FFTM", "cmap"})
        hb_set_add(hb_subset_input_set(input.get(), HB_SUBSET_SETS_DROP_TABLE_TAG), hb_tag_from_string(table, 4));
    hb_subset_input_set_flags(input.get(), HB_SUBSET_FLAGS_RETAIN_GIDS | HB_SUBSET_FLAGS_NO_HINTING);
    std::unique_ptr<hb_face_t, decltype(&hb_face_destroy)> part(hb_subset_or_fail(face_, input.get()),
                                                                &hb_face_destroy);
    if (!part)
        return {};
    std::unique_ptr<hb_blob_t, decltype(&hb_blob_destroy)> blob(hb_face_reference_blob(part.get()), &hb_blob_destroy);
    unsigned length = 0;
    const char* bytes = hb_blob_get_data(blob.get(), &length);
    return {bytes, static_cast<qsizetype>(length)};
}

/// Which letters each glyph stands for: what is searched and copied.
QByteArray PdfFont::toUnicode() const {
    constexpr int most = 100; // lines of one block, by the format's own rule
    QByteArray lines;
    QByteArray block;
    int count = 0;
    const auto close = [&] {
        if (count > 0)
            lines += QByteArray::number(count) + " beginbfchar\n" + block + "endbfchar\n";
        block.clear();
        count = 0;
    };
    for (std::size_t code = 0; code < used_.size(); ++code) {
        if (used_[code].letters.isEmpty())
            continue;
        block += '<' + hex(static_cast<std::uint32_t>(code), 4) + "> <" + utf16(used_[code].letters) + ">\n";
        if (++count == most)
            close();
    }
    close();
    return "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
           "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
           "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
           "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n" +
           lines + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

/// With the six letters of a subset, which differ from font to font.
QByteArray PdfFont::postScriptName() const {
    QByteArray tag = "AAAAAA";
    for (int i = 5, rest = number_; i >= 0; --i, rest /= 26)
        tag[i] = static_cast<char>('A' + rest % 26);
    QByteArray name;
    for (const QChar unit : font_.familyName() + u'-' + font_.styleName()) {
        if (unit.unicode() < 0x80 && (unit.isLetterOrNumber() || unit == u'-'))
            name += unit.toLatin1();
    }
    return tag + '+' + name;
}

std::string PdfFont::descriptor(PdfObjects& objects, const QByteArray& file, bool outlines) const {
    const auto scaled = [this](double pixels) {
        return std::to_string(std::lround(pixels * thousand / font_.pixelSize()));
    };
    const std::string kind =
        outlines ? "<< /Subtype /OpenType >>" : "<< /Length1 " + std::to_string(file.size()) + " >>";
    const int stream = objects.addStream(kind, file.toStdString());
    const QByteArray head = font_.fontTable("head");
    std::string box;
    for (int at = 36; at < 44; at += 2) {
        const int edge = head.size() >= 44 ? qFromBigEndian<qint16>(head.constData() + at) : 0;
        box += std::to_string(std::lround(double(edge) * thousand / unitsPerEm_)) + ' ';
    }
    // Its glyphs stand for themselves (4); how thick its stems are no table says.
    return "<< /Type /FontDescriptor /Flags 4 /StemV 80 /FontName /" + postScriptName().toStdString() + " /FontBBox [" +
           box + "] /ItalicAngle " + (font_.style() == QFont::StyleNormal ? "0" : "-12") + " /Ascent " +
           scaled(font_.ascent()) + " /Descent " + scaled(-font_.descent()) + " /CapHeight " +
           scaled(font_.capHeight()) + (outlines ? " /FontFile3 " : " /FontFile2 ") + PdfObjects::reference(stream) +
           " >>";
}

std::string PdfFont::glyphsOfCodes() const {
    std::string all;
    for (const Use& use : used_) {
        const std::uint32_t glyph = use.width >= 0 ? use.glyph : 0;
        all += static_cast<char>(glyph >> 8U);
        all += static_cast<char>(glyph & 0xFFU);
    }
    return all;
}

std::string PdfFont::embed(PdfObjects& objects) const {
    const std::string name = postScriptName().toStdString();
    std::string widths;
    for (std::size_t code = 0; code < used_.size(); ++code) {
        if (used_[code].width >= 0)
            widths += std::to_string(code) + " [" + std::to_string(used_[code].width) + "] ";
    }
    const int described = objects.add(descriptor(objects, subset(), outlines_));
    const std::string glyphs = further_.empty() || outlines_
                                   ? std::string("/Identity")
                                   : PdfObjects::reference(objects.addStream("<< >>", glyphsOfCodes()));
    const int part =
        objects.add(std::string("<< /Type /Font /Subtype ") +
                    (outlines_ ? "/CIDFontType0" : "/CIDFontType2 /CIDToGIDMap " + glyphs) + " /BaseFont /" + name +
                    " /CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >>" + " /FontDescriptor " +
                    PdfObjects::reference(described) + " /W [" + widths + "] >>");
    const int letters = objects.addStream("<< >>", toUnicode().toStdString());
    return "<< /Type /Font /Subtype /Type0 /BaseFont /" + name + " /Encoding /Identity-H /DescendantFonts [" +
           PdfObjects::reference(part) + "] /ToUnicode " + PdfObjects::reference(letters) + " >>";
}

} // namespace velm
