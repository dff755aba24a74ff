#pragma once
// Paints a page of a job: for a printer and for the eye.
#include "platform/paper/jobpages.h"

#include <QFont>
#include <QImage>

#include <map>
#include <utility>

class QPainter;

namespace velm {

class PagePainter {
public:
    /// The job outlives it.
    explicit PagePainter(const JobPages& job) : job_(job) {}

    /// With twips as units, from the corner of what can be printed.
    void paint(QPainter& painter, std::size_t page);

private:
    void paintRun(QPainter& painter, const JobRun& run);
    void paintPicture(QPainter& painter, const JobPicture& picture);
    const QFont& fontOf(std::uint16_t style);

    const JobPages& job_;
    std::map<std::uint16_t, QFont> fonts_;
    std::map<std::pair<std::uint32_t, int>, QImage> pictures_;
};

} // namespace velm
