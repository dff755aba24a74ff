#pragma once
// Sets a range of a rich text on the pages of a job, page after page. The range is set once: going on where the last
// page ended begins nothing anew. Lengths are twips.
//
// Lines are not torn: a page takes whole ones, at least one. A row of a table goes to the next page whole, unless no
// page has room for it. A paragraph that is nothing but a page break ends its page. At the top of a page that goes on
// with a text, the distance before a paragraph is left out.
#include "platform/paper/jobpages.h"
#include "platform/paper/printdevice.h"

#include <QRect>

#include <memory>
#include <utility>
#include <vector>

namespace velm {

class SetDocument;

class RangeFormatter {
public:
    RangeFormatter();
    ~RangeFormatter();
    RangeFormatter(const RangeFormatter&) = delete;
    RangeFormatter& operator=(const RangeFormatter&) = delete;
    RangeFormatter(RangeFormatter&&) = delete;
    RangeFormatter& operator=(RangeFormatter&&) = delete;

    /// See PrintDevice::format(); what is printed is added to the last page of the job.
    PrintDevice::Formatted format(const RichText& rich, qsizetype from, qsizetype to, const QRect& rectangle,
                                  JobPages& job);
    /// Where the texts that are set from now on lead to.
    void setLinks(std::vector<LinkSpan> links) { links_ = std::move(links); }
    /// Forgets the range that is set.
    void release();

private:
    struct Setting;
    void begin(const RichText& rich, qsizetype from, qsizetype to, const QRect& rectangle, JobPages& job);

    std::unique_ptr<Setting> setting_;
    std::vector<LinkSpan> links_;
};

} // namespace velm
