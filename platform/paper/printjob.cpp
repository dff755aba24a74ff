#include "platform/paper/printjob.h"

#include "platform/paper/jobfonts.h"
#include "platform/typeset/viewformats.h"

#include <QFontMetricsF>

#include <cmath>
#include <utility>

namespace velm {

namespace {

constexpr double ruleThickness = 10; // twips

JobStyle styleOf(const PrintFont& font) {
    return {installedFamily(font.family), font.points, font.bold, font.italic, false, false, 0xFF000000};
}

} // namespace

PrintJob::PrintJob(const Sheet& sheet, Out out) : sheet_(sheet), out_(std::move(out)) {}

PrintJob::~PrintJob() = default;

void PrintJob::setSheet(const Sheet& sheet) {
    if (!isOpen())
        sheet_ = sheet;
}

void PrintJob::begin() {
    job_ = {};
    job_.width = sheet_.width;
    job_.height = sheet_.height;
    job_.offsetX = sheet_.offsetX;
    job_.offsetY = sheet_.offsetY;
}

void PrintJob::openPage() {
    if (!isOpen())
        begin();
    job_.pages.emplace_back();
}

void PrintJob::close() {
    formatter_.release();
    job_ = {};
    x_ = 0;
    y_ = 0;
}

void PrintJob::blank() {
    if (!isOpen())
        openPage();
    print(QStringLiteral(" "));
}

void PrintJob::newPage() {
    openPage();
    x_ = 0;
    y_ = 0;
}

void PrintJob::endDocument() {
    if (!isOpen())
        openPage();
    out_(job_);
    close();
}

void PrintJob::discard() {
    close();
}

void PrintJob::setFont(const PrintFont& font) {
    font_ = font;
}

int PrintJob::textWidth(const QString& text) const {
    return static_cast<int>(std::lround(QFontMetricsF(jobFont(styleOf(font_))).horizontalAdvance(text)));
}

int PrintJob::textHeight(const QString& text) const {
    Q_UNUSED(text)
    return static_cast<int>(std::lround(QFontMetricsF(jobFont(styleOf(font_))).height()));
}

void PrintJob::print(const QString& text) {
    if (!isOpen())
        openPage();
    const JobStyle style = styleOf(font_);
    const QFontMetricsF metrics(jobFont(style));
    if (!text.trimmed().isEmpty()) {
        const auto source = static_cast<std::uint16_t>(job_.sources.size());
        job_.sources.push_back({text, {}, {}, -1, 0});
        job_.pages.back().runs.push_back({static_cast<float>(x_), static_cast<float>(y_ + metrics.ascent()),
                                          static_cast<float>(metrics.horizontalAdvance(text)), 0,
                                          static_cast<std::uint16_t>(text.size()), job_.style(style), source, false});
    }
    x_ = 0;
    y_ += static_cast<int>(std::lround(metrics.height()));
}

void PrintJob::rule(int from, int to, int y) {
    if (!isOpen())
        openPage();
    job_.pages.back().fills.push_back(
        {{double(from), y - ruleThickness / 2, double(to) - from, ruleThickness}, 0xFF000000});
}

PrintDevice::Formatted PrintJob::format(const RichText& text, qsizetype from, qsizetype to, const QRect& rectangle) {
    if (!isOpen())
        openPage();
    const std::size_t before = job_.sources.size();
    const Formatted done = formatter_.format(text, from, to, rectangle, job_);
    if (job_.sources.size() > before)
        job_.sources.back().title = title_;
    return done;
}

} // namespace velm
