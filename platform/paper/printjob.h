#pragma once
// A job in the making: what is printed becomes pages, and nothing leaves before the end. Thrown away, it was nothing.
#include "platform/paper/printdevice.h"
#include "platform/paper/rangeformatter.h"

#include <functional>
#include <memory>

namespace velm {

class PrintJob final : public PrintDevice {
public:
    /// Takes the pages of a job that has ended; may throw PrintFailure, after which the job is open still.
    using Out = std::function<void(const JobPages& pages)>;

    PrintJob(const Sheet& sheet, Out out);
    ~PrintJob() override;
    PrintJob(const PrintJob&) = delete;
    PrintJob& operator=(const PrintJob&) = delete;
    PrintJob(PrintJob&&) = delete;
    PrintJob& operator=(PrintJob&&) = delete;

    /// What was printed up to now; no page where no job is open.
    const JobPages& pages() const { return job_; }
    bool isOpen() const { return !job_.pages.empty(); }
    /// Another paper, for the jobs to come; not while one is open.
    void setSheet(const Sheet& sheet);
    /// The title of the texts that are printed from now on.
    void setTitle(const QString& title) { title_ = title; }

    Sheet sheet() const override { return sheet_; }
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
    void close();

    Sheet sheet_;
    Out out_;
    JobPages job_;
    RangeFormatter formatter_;
    PrintFont font_;
    QString title_;
    int x_ = 0;
    int y_ = 0;
};

} // namespace velm
