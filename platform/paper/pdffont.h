#pragma once
// A font of a PDF: its glyphs as they are wanted, and in the end the part of it that was used, embedded.
#include <QHash>
#include <QRawFont>
#include <QString>

#include <map>
#include <memory>
#include <string>
#include <vector>

struct hb_font_t;
struct hb_blob_t;
struct hb_face_t;
struct hb_buffer_t;

namespace velm {

class PdfObjects;

class PdfFont {
public:
    /// A glyph of shaped letters: how far the pen goes, in thousandths of the type's height.
    struct Glyph {
        std::uint32_t code = 0; ///< by which the file has it
        int advance = 0;
        int natural = 0; ///< its width in the font, without what its neighbours change
        int x = 0;       ///< where it stands off the pen
        bool blank = false;
    };

    PdfFont(const QRawFont& font, int number);
    ~PdfFont();
    PdfFont(const PdfFont&) = delete;
    PdfFont& operator=(const PdfFont&) = delete;
    PdfFont(PdfFont&&) = delete;
    PdfFont& operator=(PdfFont&&) = delete;

    /// What a page's resources call it.
    QByteArray name() const { return "F" + QByteArray::number(number_); }
    const QRawFont& raw() const { return font_; }
    bool has(char32_t letter);
    /// The glyphs of letters that this font has, from left to right; they are in use from now on.
    std::vector<Glyph> shape(QStringView text);
    /// The font's dictionary, with what is in use. Throws what the objects throw.
    std::string embed(PdfObjects& objects) const;

private:
    std::uint32_t note(std::uint32_t glyph, QStringView letters);
    std::string glyphsOfCodes() const;
    QByteArray subset() const;
    QByteArray toUnicode() const;
    QByteArray postScriptName() const;
    std::string descriptor(PdfObjects& objects, const QByteArray& file, bool outlines) const;

    static hb_blob_t* table(hb_face_t* face, std::uint32_t tag, void* font);

    QRawFont font_;
    std::map<std::uint32_t, QByteArray> tables_; ///< those that were asked for
    int number_;
    hb_face_t* face_ = nullptr;
    hb_font_t* hb_ = nullptr;
    hb_buffer_t* letters_ = nullptr; ///< that are shaped
    int unitsPerEm_ = 1000;
    std::uint32_t glyphs_ = 0;
    bool outlines_ = false; ///< of the kind whose codes are its glyphs
    struct Use {
        QString letters; ///< that the glyph stands for
        int width = -1;  ///< in thousandths; less than none: not in use
        std::uint32_t glyph = 0;
    };
    /// By code, which is the glyph's number, but for a glyph that stands for several texts, as one does for an accented
    /// letter and for a letter with its accent: of these all but the first have codes behind all glyphs.
    std::vector<Use> used_;
    std::map<std::pair<std::uint32_t, QString>, std::uint32_t> further_;
    std::vector<signed char> has_; ///< by letter: 1, 0, or -1 where it was not asked for yet
};

} // namespace velm
