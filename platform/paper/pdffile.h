#pragma once
// A job as a PDF: real text with its Unicode, fonts embedded as far as they are used, an outline with an entry for each
// text that has a title, links to the web.
#include "platform/paper/jobpages.h"

#include <QByteArray>
#include <QDateTime>

#include <functional>

namespace velm {

struct PdfProperties {
    QString title;
    QString language; ///< "fr"
    QDateTime created;
};

/// The bytes of the file; empty when `progress`, which hears of each page, says false. Throws PrintFailure when it
/// cannot be made.
QByteArray pdfOf(const JobPages& job, const PdfProperties& properties,
                 const std::function<bool(std::size_t page)>& progress = {});

} // namespace velm
