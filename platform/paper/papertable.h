#pragma once
// A list on paper: rows below headers, which stand on every sheet.
#include "platform/paper/printdevice.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace velm {

struct JobPages;

struct PaperTable {
    QString title; ///< by which the printer's queue shows it
    QStringList headers;
    /// Shares of the paper's width; a column of width 0 is left out.
    QList<int> widths;
    /// CR between rows, tabs between cells.
    QString rows;
};

/// The sheets of a list, numbered at their feet. A cell takes the lines that it needs, a row no more than a sheet; at
/// least one sheet comes out.
JobPages tablePages(const PrintDevice::Sheet& sheet, const PaperTable& table);

} // namespace velm
