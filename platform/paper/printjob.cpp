#include "platform/paper/printjob.h"

#include "platform/paper/jobfonts.h"
#include "platform/typeset/viewformats.h"

#include <QFontMetricsF>

#include <cmath>
#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double ruleThickness = 10; // twips

JobStyle styleOf(const PrintFont& font) {
    return {installedFamily(font.family), font.points, font.bold, font.italic, false, false, 0xFF000000};
}

} // namespace

PrintJob::PrintJob(const Sheet& sheet, Out out) : PrintJob([sheet] { return sheet; }, std::move(out)) {}

PrintJob::PrintJob(std::function<Sheet()> paper, Out out) : paper_(std::move(paper)), out_(std::move(out)) {}

PrintJob::~PrintJob() = default;

void PrintJob::resume(JobPages pages) {
    close();
    sheet_ = paper_();
    job_ = std::move(pages);
}

PrintJob::Mark PrintJob::mark() const {
    if (!isOpen())
        return {};
    return {job_.pages.size(), job_.pages.back().fills.size(), job_.pages.back().runs.size()};
}

void PrintJob::goBack(const Mark& mark) {
    if (!isOpen() || job_.pages.size() != mark.pages)
        return;
    job_.pages.back().fills.resize(mark.fills);
    job_.pages.back().runs.resize(mark.runs);
}

void PrintJob::begin() {
    job_ = {};
    sheet_ = paper_();
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
    lines_ = -1;
    x_ = 0;
    y_ = 0;
}

void PrintJob::blank() {
    if (!isOpen())
        openPage();
    print(u" "_s);
}

void PrintJob::newPage() {
    if (progress_ && isOpen() && !progress_(job_))
        throw PrintFailure("stopped");
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
        const auto [source, start] = addLine(text);
        job_.pages.back().runs.push_back({static_cast<float>(x_), static_cast<float>(y_ + metrics.ascent()),
                                          static_cast<float>(metrics.horizontalAdvance(text)), start,
                                          static_cast<std::uint16_t>(text.size()), job_.style(style), source, false});
    }
    x_ = 0;
    y_ += static_cast<int>(std::lround(metrics.height()));
}

/// All lines of a job are one source: there is one of these for each header of each sheet.
std::pair<std::uint32_t, std::int32_t> PrintJob::addLine(const QString& text) {
    if (lines_ < 0) {
        lines_ = static_cast<std::int64_t>(job_.sources.size());
        job_.sources.push_back({{}, {}, {}, -1, 0});
    }
    QString& all = job_.sources[static_cast<std::size_t>(lines_)].text;
    const auto start = static_cast<std::int32_t>(all.size());
    all += text;
    return {static_cast<std::uint32_t>(lines_), start};
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
