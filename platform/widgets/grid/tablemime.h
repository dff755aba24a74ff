#pragma once
// What copied rows offer: text with tabs between cells, and a table in HTML.
#include <QMimeData>
#include <QStringList>

#include <memory>
#include <vector>

namespace velm {

/// One line of text and one row of the table for each row. Tabs and line ends inside a cell become blanks: a cell stays
/// one. Rows beyond `richRows` leave the text alone: what pastes a table lays all of it out at once.
class TableMime {
public:
    static constexpr int richRows = 50'000;

    void add(const QStringList& cells);
    int rows() const { return rows_; }
    /// With all rows so far; then there are none.
    std::unique_ptr<QMimeData> take();

private:
    QString text_;
    QString html_;
    int rows_ = 0;
};

std::unique_ptr<QMimeData> tableMime(const std::vector<QStringList>& rows);
/// The cells as they are, with tabs between them and CR between the rows.
QString tableText(const std::vector<QStringList>& rows);

} // namespace velm
