#include "platform/paper/pdfpage.h"

#include "platform/base/twips.h"
#include "platform/paper/jobfonts.h"
#include "platform/paper/pdfwords.h"

#include <QGlyphRun>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <utility>

namespace velm {

namespace {

using pdf::number;

constexpr double emUnits = 1000; // in which the format measures glyphs

QByteArray numbers(std::initializer_list<double> values) {
    QByteArray all;
    for (const double value : values)
        all += number(value) + ' ';
    return all;
}

char32_t code(QStringView letter) {
    return letter.size() == 2 ? QChar::surrogateToUcs4(letter[0], letter[1]) : letter[0].unicode();
}

/// The next letter of a text, in one or two units.
qsizetype letterAt(QStringView text, qsizetype at) {
    return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate() ? 2 : 1;
}

} // namespace

PdfFont* PdfFonts::of(const QRawFont& raw) {
    const auto known = std::ranges::find_if(fonts_, [&](const auto& font) { return font->raw() == raw; });
    if (known != fonts_.end())
        return known->get();
    fonts_.push_back(std::make_unique<PdfFont>(raw, static_cast<int>(fonts_.size()) + 1));
    return fonts_.back().get();
}

/// Fonts are taken in one size, so that a family in two sizes is embedded once.
PdfFont* PdfFonts::main(const JobStyle& style) {
    JobStyle plain = style;
    plain.points = emUnits / twipsPerPoint;
    plain.underline = plain.strike = false;
    plain.colour = 0;
    const auto known = std::ranges::find(mains_, plain, &std::pair<JobStyle, PdfFont*>::first);
    if (known != mains_.end())
        return known->second;
    return mains_.emplace_back(plain, of(QRawFont::fromFont(jobFont(plain)))).second;
}

/// The font by which the toolkit shows letters that the main one lacks.
QRawFont PdfFonts::standingIn(const JobStyle& style, const QString& letters) const {
    JobStyle plain = style;
    plain.points = emUnits / twipsPerPoint;
    QTextLayout layout(letters, jobFont(plain));
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return runs.isEmpty() ? QRawFont::fromFont(jobFont(plain)) : runs.first().rawFont();
}

std::vector<PdfFonts::Piece> PdfFonts::pieces(const JobStyle& style, QStringView text) {
    PdfFont* const font = main(style);
    std::vector<Piece> pieces;
    qsizetype begin = 0;
    for (qsizetype at = 0; at < text.size();) {
        const qsizetype units = letterAt(text, at);
        const QStringView letter = text.sliced(at, units);
        PdfFont* const here = font->has(code(letter)) ? font : of(standingIn(style, letter.toString()));
        if (pieces.empty() || pieces.back().font != here) {
            pieces.push_back({here, {}});
            begin = at;
        }
        at += units;
        pieces.back().text = text.sliced(begin, at - begin);
    }
    return pieces;
}

double PdfPage::x(double twips) const {
    return (twips + job_.offsetX) / twipsPerPoint;
}

double PdfPage::y(double twips) const {
    return (job_.height - twips - job_.offsetY) / twipsPerPoint;
}

void PdfPage::colour(QRgb colour) {
    if (colour == colour_)
        return;
    colour_ = colour;
    constexpr double full = 255;
    words_ += numbers({qRed(colour) / full, qGreen(colour) / full, qBlue(colour) / full}) + "rg\n";
}

QByteArray PdfPage::content(const JobPage& page) {
    constexpr qsizetype usual = 32'768;
    words_ = {};
    words_.reserve(usual);
    used_.clear();
    pictures_.clear();
    font_ = nullptr;
    colour_ = 0xFF000000;
    for (const JobFill& one : page.fills)
        fill(one);
    for (const JobPicture& one : page.pictures)
        picture(one);
    words_ += "BT\n";
    for (const JobRun& one : page.runs)
        run(one);
    words_ += "ET\n";
    for (const JobRun& one : page.runs) {
        const JobStyle& style = job_.styles[one.style];
        if (style.underline || style.strike)
            lines(one, style, *fonts_.pieces(style, job_.text(one).first(1)).front().font);
    }
    return std::move(words_);
}

void PdfPage::fill(const JobFill& fill) {
    colour(fill.colour);
    const QRectF& r = fill.where;
    if (!fill.round) {
        words_ +=
            numbers({x(r.left()), y(r.bottom()), r.width() / twipsPerPoint, r.height() / twipsPerPoint}) + "re f\n";
        return;
    }
    // A disc of four curves.
    constexpr double bend = 0.5523;
    const double cx = x(r.center().x());
    const double cy = y(r.center().y());
    const double radius = r.width() / 2 / twipsPerPoint;
    const double k = bend * radius;
    words_ += numbers({cx + radius, cy}) + "m ";
    words_ += numbers({cx + radius, cy + k, cx + k, cy + radius, cx, cy + radius}) + "c ";
    words_ += numbers({cx - k, cy + radius, cx - radius, cy + k, cx - radius, cy}) + "c ";
    words_ += numbers({cx - radius, cy - k, cx - k, cy - radius, cx, cy - radius}) + "c ";
    words_ += numbers({cx + k, cy - radius, cx + radius, cy - k, cx + radius, cy}) + "c f\n";
}

void PdfPage::run(const JobRun& run) {
    const JobStyle& style = job_.styles[run.style];
    colour(style.colour);
    const QStringView text = job_.text(run);
    double at = run.x;
    std::vector<std::pair<PdfFont*, std::vector<PdfFont::Glyph>>> pieces;
    double natural = 0;
    int blanks = 0;
    for (const PdfFonts::Piece& piece : fonts_.pieces(style, text)) {
        pieces.emplace_back(piece.font, piece.font->shape(piece.text));
        for (const PdfFont::Glyph& glyph : pieces.back().second) {
            natural += glyph.advance;
            blanks += glyph.blank ? 1 : 0;
        }
    }
    const double em = style.points * twipsPerPoint;
    const double missing = run.width * emUnits / em - natural;
    // Type of the screen's size is a trace narrower than its outlines: words stand where the line was set for them.
    constexpr double trace = 0.01;
    const bool fitted = run.stretched || std::abs(missing) <= trace * natural;
    const double stretch = fitted && blanks > 0 ? missing / blanks : 0;
    for (const auto& [font, glyphs] : pieces) {
        used_.insert(font);
        if (font != font_ || style.points != points_) {
            words_ += '/' + font->name() + ' ' + number(style.points) + " Tf\n";
            font_ = font;
            points_ = style.points;
        }
        words_ += "1 0 0 1 " + numbers({x(at), y(run.baseline)}) + "Tm ";
        letters(glyphs, stretch);
        for (const PdfFont::Glyph& glyph : glyphs)
            at += (glyph.advance + (glyph.blank ? stretch : 0)) * em / emUnits;
    }
}

/// Between the letters stands how much less than its own width each takes.
void PdfPage::letters(const std::vector<PdfFont::Glyph>& glyphs, double stretch) {
    words_ += "[<";
    double off = 0; // by how much the pen stands wrong
    const auto move = [this](double less) {
        const auto rounded = static_cast<int>(std::lround(less));
        if (rounded != 0)
            words_ += '>' + QByteArray::number(rounded) + '<';
        return less - rounded;
    };
    for (const PdfFont::Glyph& glyph : glyphs) {
        off = move(off - glyph.x);
        for (int shift = 12; shift >= 0; shift -= 4)
            words_ += "0123456789abcdef"[glyph.code >> shift & 0xF];
        off += glyph.x + glyph.natural - glyph.advance - (glyph.blank ? stretch : 0);
    }
    words_ += ">]TJ\n";
}

void PdfPage::lines(const JobRun& run, const JobStyle& style, const PdfFont& font) {
    const double scale = style.points * twipsPerPoint / font.raw().pixelSize();
    const double thickness = std::max(font.raw().lineThickness() * scale, 5.0);
    const auto line = [&](double above) {
        fill({{run.x, run.baseline - above - thickness / 2, run.width, thickness}, style.colour, false});
    };
    if (style.underline)
        line(-font.raw().underlinePosition() * scale);
    if (style.strike)
        line(font.raw().xHeight() * scale / 2);
}

void PdfPage::picture(const JobPicture& picture) {
    const std::pair key(picture.source, picture.object);
    const auto known = std::ranges::find(pictures_, key);
    const auto place = known - pictures_.begin();
    if (known == pictures_.end())
        pictures_.push_back(key);
    const QRectF& r = picture.where;
    words_ += "q " +
              numbers({r.width() / twipsPerPoint, 0, 0, r.height() / twipsPerPoint, x(r.left()), y(r.bottom())}) +
              "cm /P" + QByteArray::number(place) + " Do Q\n";
}

} // namespace velm
