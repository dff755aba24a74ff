#pragma once
// The sheets of a print job as lists of what stands on them: one job serves a printer, a file, a preview and tests
// alike. Lengths are twips from the corner of what can be printed.
#include "platform/richtext/format.h"

#include <QPointF>
#include <QRectF>
#include <QString>

#include <cstdint>
#include <vector>

namespace velm {

/// How letters look, whatever their place.
struct JobStyle {
    QString family; ///< an installed one
    double points = 10;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    std::uint32_t colour = 0xFF000000;

    friend bool operator==(const JobStyle&, const JobStyle&) = default;
};

/// Letters of one style beside one another on a line.
struct JobRun {
    float x = 0;
    float baseline = 0;
    float width = 0; ///< that the letters take; blanks are stretched to it
    std::int32_t start = 0;
    std::uint16_t length = 0; ///< in the text of its source
    std::uint16_t style = 0;
    std::uint32_t source = 0;
    bool stretched = false; ///< blanks are wider than the font has them
};

struct JobFill {
    QRectF where;
    std::uint32_t colour = 0xFF000000;
    bool round = false; ///< a disc
};

struct JobPicture {
    QRectF where;
    std::uint32_t source = 0;
    int object = 0;
};

/// Letters of a text that lead to an address outside: first position, and the one behind the last.
struct LinkSpan {
    qsizetype start = 0;
    qsizetype end = 0;
    QString address;
};

/// Of the frame that stands for a picture that cannot be shown.
inline constexpr std::uint32_t missingPictureColour = 0xFF9AA3AE;

/// A place that leads to an address outside.
struct JobLink {
    QRectF where;
    QString address;
};

struct JobPage {
    std::vector<JobFill> fills;
    std::vector<JobRun> runs;
    std::vector<JobPicture> pictures;
    std::vector<JobLink> links;
};

/// A text that stands on pages, and where it begins.
struct JobSource {
    QString text;
    std::vector<RichObject> objects;
    QString title;
    int page = 0;
    float top = 0;
};

struct JobPages {
    double width = 0; ///< of the sheet
    double height = 0;
    double offsetX = 0; ///< from the sheet's corner to that of what can be printed
    double offsetY = 0;
    std::vector<JobPage> pages;
    std::vector<JobStyle> styles;
    std::vector<JobSource> sources;

    /// The number of a style, which is added where it is new.
    std::uint16_t style(const JobStyle& style);
    /// Adds the sheets of another job on the same paper behind these; what is empty takes all of it over.
    void append(JobPages more);
    QStringView text(const JobRun& run) const {
        return QStringView(sources[run.source].text).sliced(run.start, run.length);
    }
};

} // namespace velm
