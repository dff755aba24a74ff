#pragma once
// The content of a PDF's page: letters, fills and pictures of a job's page, in the format's words.
#include "platform/paper/jobpages.h"
#include "platform/paper/pdffont.h"

#include <QByteArray>
#include <QRgb>

#include <map>
#include <memory>
#include <set>

namespace velm {

/// The fonts of a whole file, by style and by what of a text only another font has.
class PdfFonts {
public:
    struct Piece {
        PdfFont* font = nullptr;
        QStringView text;
    };
    /// The letters of a style parted by the font that has them; the text outlives the pieces.
    std::vector<Piece> pieces(const JobStyle& style, QStringView text);
    const std::vector<std::unique_ptr<PdfFont>>& all() const { return fonts_; }

private:
    PdfFont* of(const QRawFont& raw);
    PdfFont* main(const JobStyle& style);
    QRawFont standingIn(const JobStyle& style, const QString& letters) const;

    std::vector<std::unique_ptr<PdfFont>> fonts_;
    std::vector<std::pair<JobStyle, PdfFont*>> mains_;
};

class PdfPage {
public:
    PdfPage(const JobPages& job, PdfFonts& fonts) : job_(job), fonts_(fonts) {}

    /// The words of a page; what it uses of fonts and pictures is told by the next two.
    QByteArray content(const JobPage& page);
    const std::set<PdfFont*>& fonts() const { return used_; }
    /// By the names that the content has for them: "P" and its place here.
    const std::vector<std::pair<std::uint32_t, int>>& pictures() const { return pictures_; }

private:
    void fill(const JobFill& fill);
    void run(const JobRun& run);
    void letters(const std::vector<PdfFont::Glyph>& glyphs, double stretch);
    void lines(const JobRun& run, const JobStyle& style, const PdfFont& font);
    void picture(const JobPicture& picture);
    void colour(QRgb colour);
    double x(double twips) const;
    double y(double twips) const;

    const JobPages& job_;
    PdfFonts& fonts_;
    QByteArray words_;
    std::set<PdfFont*> used_;
    std::vector<std::pair<std::uint32_t, int>> pictures_;
    PdfFont* font_ = nullptr; ///< that is set
    double points_ = 0;
    QRgb colour_ = 0;
};

} // namespace velm
