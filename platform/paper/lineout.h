#pragma once
// Puts a line that is set on a page of a job: its letters, what stands behind and in them, pictures.
#include "platform/paper/jobpages.h"
#include "platform/typeset/setdocument.h"

namespace velm {

class LineOut {
public:
    /// The text and the job outlive it. `source`: the text's number in the job.
    LineOut(SetDocument& set, const RichText& rich, JobPages& job, std::uint32_t source);

    /// What of the text leads outside, in positions of the document.
    void setLinks(std::vector<LinkSpan> links);

    /// Line `line` of block `number`, whose corner lies at that place of the job's last page, in twips.
    void put(int number, const SetDocument::Block& block, int line, QPointF corner);

private:
    std::uint16_t styleOf(FormatId format);
    void putBeside(int number, const SetDocument::Block& block, int line, QPointF corner);
    void putLinks(const QTextLine& line, int blockStart, QPointF corner);
    void putPiece(const QTextLine& line, int blockStart, int from, int to, FormatId format, QPointF corner,
                  bool stretched);

    SetDocument& set_;
    JobPages& job_;
    std::uint32_t source_;
    std::vector<CharFormat> formats_;  ///< by number; those of the text's runs
    std::vector<std::int32_t> styles_; ///< of the job, by format; -1: not asked for yet
    std::size_t run_ = 0;
    std::vector<LinkSpan> links_; ///< in their order
    std::size_t link_ = 0;
};

} // namespace velm
