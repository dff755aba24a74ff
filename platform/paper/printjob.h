#pragma once
// A job in the making: what is printed becomes pages, and nothing leaves before the end. Thrown away, it was nothing.
#include "platform/paper/printdevice.h"
#include "platform/paper/rangeformatter.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>

namespace velm {

class PrintJob final : public PrintDevice {
public:
    /// Takes the pages of a job that has ended; may throw PrintFailure, after which the job is open still.
    using Out = std::function<void(const JobPages& pages)>;

    PrintJob(const Sheet& sheet, Out out);
    /// Asks for the paper when a job begins.
    PrintJob(std::function<Sheet()> paper, Out out);
    ~PrintJob() override;
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;
    PrintJob(PrintJob&&) = delete;
    PrintJob& operator=(PrintJob&&) = delete;

    /// What was printed up to now; no page where no job is open.
    const JobPages& pages() const { return job_; }
    bool isOpen() const { return !job_.pages.empty(); }
    /// Hears of each sheet that is done, while the next one is not begun; false ends what prints with a PrintFailure.
    void setProgress(std::function<bool(const JobPages& pages)> progress) { progress_ = std::move(progress); }
    /// Goes on behind these sheets, as a job that is open.
    void resume(JobPages pages);
    /// How much stands on the sheets now; going back to it takes away what was printed since, as far as the last sheet
    /// is the same.
    struct Mark {
        std::size_t pages = 0;
        std::size_t fills = 0;
        std::size_t runs = 0;
    };
    Mark mark() const;
    void goBack(const Mark& mark);
    /// The title of the texts that are printed from now on.
    void setTitle(const QString& title) { title_ = title; }
    /// Where their letters lead to.
    void setLinks(std::vector<LinkSpan> links) { formatter_.setLinks(std::move(links)); }

    Sheet sheet() const override { return isOpen() ? sheet_ : paper_(); }
    void blank() override;
    void newPage() override;
    void endDocument() override;
    void discard() override;
    void setFont(const PrintFont& font) override;
    int textWidth(const QString& text) const override;
    int textHeight(const QString& text) const override;
    void setX(int x) override { x_ = x; }
    void setY(int y) override { y_ = y; }
    void print(const QString& text) override;
    void rule(int from, int to, int y) override;
    Formatted format(const RichText& text, qsizetype from, qsizetype to, const QRect& rectangle) override;
    void release() override { formatter_.release(); }

private:
    void begin();
    void openPage();
    std::pair<std::uint32_t, std::int32_t> addLine(const QString& text);
    void close();

    std::function<Sheet()> paper_;
    Sheet sheet_; ///< of the open job
    Out out_;
    std::function<bool(const JobPages&)> progress_;
    JobPages job_;
    RangeFormatter formatter_;
    PrintFont font_;
    QString title_;
    std::int64_t lines_ = -1; ///< the source of what print() prints
    int x_ = 0;
    int y_ = 0;
};

} // namespace velm
