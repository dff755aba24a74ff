#include "platform/richtext/rtf.h"
#include "platform/richtext/rtf_output.h"

#include <vector>

namespace velm {
namespace rtf {
namespace {

struct Run {
    qsizetype start;
    qsizetype count;
    FormatId format;
};

/// Writes a part of a text. A whole text ends in a paragraph end of its own, which a whole load drops; a part does not.
class Writer {
public:
    Writer(const RichText& text, qsizetype position, qsizetype length, bool whole)
        : text_(text), start_(position), whole_(whole), units_(text.text(position, length)) {
        text.forEachRun(position, length, [this](qsizetype start, qsizetype count, FormatId format) {
            runs_.push_back({start - start_, count, format});
        });
    }

    QByteArray write() {
        output_.reserve(units_.size() + units_.size() / 4 + 1024);
        collect();
        output_.header();
        qsizetype at = 0;
        while (at < units_.size())
            at = paragraph(at);
        if (whole_ && endsParagraph())
            lastParagraph();
        return output_.finish();
    }

private:
    bool endsParagraph() const { return units_.isEmpty() || units_.back() == u'\n'; }
    void collect();
    qsizetype paragraph(qsizetype at);
    void characters(qsizetype from, qsizetype to);
    void lastParagraph();
    void object(const CharFormat& format);

    const RichText& text_;
    qsizetype start_;
    bool whole_;
    QString units_;
    std::vector<Run> runs_;
    std::size_t run_ = 0; ///< that of the place that is being written
    Output output_;
};

/// Fonts and colours in the order of their first use.
void Writer::collect() {
    for (const Run& run : runs_)
        output_.use(text_.charFormat(run.format));
    if (whole_)
        output_.use(text_.charFormat(text_.tailCharacter()));
    for (qsizetype at = 0; at < units_.size() && !output_.hasBullets();) {
        const qsizetype end = units_.indexOf(u'\n', at) + 1;
        if (end == 0)
            break; // of a part, the last paragraph is written without its format
        output_.use(text_.paraFormatAt(start_ + at));
        at = end;
    }
    if (whole_)
        output_.use(text_.paraFormat(text_.tailParagraph()));
}

qsizetype Writer::paragraph(qsizetype at) {
    const qsizetype found = units_.indexOf(u'\n', at);
    const bool isEnded = found >= 0;
    const qsizetype end = isEnded ? found + 1 : units_.size();
    // A part of a paragraph has no format of its own: what it is put into keeps its.
    const bool hasFormat = isEnded || whole_;
    output_.paragraph(hasFormat ? text_.paraFormatAt(start_ + at) : ParaFormat());
    characters(at, isEnded ? end - 2 : end);
    if (isEnded) {
        characters(end - 2, end - 2);
        output_.endParagraph();
    } else if (whole_) {
        output_.endParagraph();
    }
    return end;
}

/// The characters of a range, and then the format of the one behind it.
void Writer::characters(qsizetype from, qsizetype to) {
    for (qsizetype at = from;;) {
        while (run_ < runs_.size() && runs_[run_].start + runs_[run_].count <= at)
            ++run_;
        if (run_ == runs_.size())
            return;
        const CharFormat& format = text_.charFormat(runs_[run_].format);
        output_.character(format);
        if (at >= to)
            return;
        const qsizetype stop = std::min(to, runs_[run_].start + runs_[run_].count);
        const QStringView part = QStringView(units_).sliced(at, stop - at);
        const auto index = static_cast<std::size_t>(format.object);
        if (format.object >= 0 && index < text_.objects().size()) {
            for (const QChar unit : part) {
                if (unit == QChar::ObjectReplacementCharacter)
                    output_.picture(text_.objects()[index]);
                else
                    output_.text(QStringView(&unit, 1));
            }
        } else {
            output_.text(part);
        }
        at = stop;
    }
}

void Writer::lastParagraph() {
    output_.paragraph(text_.paraFormat(text_.tailParagraph()));
    output_.character(text_.charFormat(text_.tailCharacter()));
    output_.endParagraph();
}

} // namespace
} // namespace rtf

QByteArray writeRtf(const RichText& text) {
    return rtf::Writer(text, 0, text.length(), true).write();
}

QByteArray writeRtf(const RichText& text, qsizetype position, qsizetype length) {
    const auto [start, count] = text.changeRange(position, length);
    return rtf::Writer(text, start, count, false).write();
}

} // namespace velm
