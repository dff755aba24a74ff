#include "platform/paper/papertable.h"

#include "platform/paper/jobfonts.h"
#include "platform/paper/jobpages.h"
#include "platform/typeset/viewformats.h"

#include <QFontMetricsF>
#include <QStringTokenizer>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace velm {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr double tablePoints = 9;
constexpr double ruleHeight = 10; // twips
constexpr double plainMargin = 567;

/// Letters of a source.
struct Cell {
    std::uint32_t source = 0;
    qsizetype start = 0;
    QStringView text;
};

/// The sheets, from top to bottom and one after the other. All rows are one source, and so are headers and numbers.
class Sheets {
public:
    Sheets(const PrintDevice::Sheet& sheet, const PaperTable& table) : table_(table) {
        job_.width = sheet.width;
        job_.height = sheet.height;
        job_.offsetX = sheet.offsetX;
        job_.offsetY = sheet.offsetY;
        const QString family = installedFamily(u"Arial"_s);
        plain_ = job_.style({family, tablePoints, false, false, false, false, 0xFF000000});
        bold_ = job_.style({family, tablePoints, true, false, false, false, 0xFF000000});
        job_.sources.push_back({table.rows, {}, {}, 0, 0});
        job_.sources.push_back({{}, {}, {}, 0, 0});
        const QFontMetricsF metrics(jobFont(job_.styles[plain_]));
        line_ = metrics.lineSpacing();
        blank_ = metrics.horizontalAdvance(u'n');
        // A printer that can reach the paper's edge does not make lists that do.
        left_ = std::max(0.0, plainMargin - sheet.offsetX);
        top_ = std::max(0.0, plainMargin - sheet.offsetY);
        width_ =
            std::max(1.0, std::min<double>(sheet.width - plainMargin - sheet.offsetX, sheet.printableWidth) - left_);
        foot_ = std::min<double>(sheet.height - plainMargin - sheet.offsetY, sheet.printableHeight);
        // The last line of a sheet holds its number, with a blank one above it.
        bottom_ = std::max(foot_ - 2 * line_, top_ + 3 * line_);
        const double all = std::max(1, std::accumulate(table.widths.begin(), table.widths.end(), 0));
        for (const int width : table.widths)
            widths_.push_back(width_ * width / all);
    }

    JobPages make() {
        begin();
        qsizetype start = 0;
        for (const QStringView row : qTokenize(QStringView(table_.rows), u'\r')) {
            std::vector<Cell> cells;
            qsizetype at = start;
            for (const QStringView text : qTokenize(row, u'\t')) {
                cells.push_back({0, at, text});
                at += text.size() + 1;
            }
            start += row.size() + 1;
            put(cells);
        }
        number();
        return std::move(job_);
    }

private:
    struct Line {
        std::size_t column = 0;
        Cell cell;
        double y = 0;
        double width = 0;
    };

    void begin() {
        job_.pages.emplace_back();
        y_ = top_;
        std::vector<Cell> cells;
        for (const QString& header : table_.headers)
            cells.push_back(own(header));
        std::vector<Line> lines;
        y_ += set(cells, bold_, bottom_ - top_ - 2 * line_, lines);
        write(lines, bold_, top_);
        job_.pages.back().fills.push_back({{left_, y_, width_, ruleHeight}, 0xFF000000, false});
        y_ += line_ / 4;
        start_ = y_;
    }
    void put(const std::vector<Cell>& cells) {
        std::vector<Line> lines;
        const double height = set(cells, plain_, bottom_ - start_, lines);
        if (y_ + height > bottom_ && y_ > start_) {
            number();
            ++page_;
            begin();
        }
        write(lines, plain_, y_);
        y_ += height;
    }
    /// The lines of the cells, from 0; the height of the row, which is no more than `most`.
    double set(const std::vector<Cell>& cells, std::uint16_t style, double most, std::vector<Line>& lines) const {
        const QFont font = jobFont(job_.styles[style]);
        const QFontMetricsF metrics(font);
        double height = metrics.height();
        for (std::size_t column = 0; column < std::min(cells.size(), widths_.size()); ++column) {
            const double room = widths_[column] - blank_;
            if (room <= 0)
                continue;
            const double wanted = metrics.horizontalAdvance(cells[column].text.toString());
            if (wanted <= room) {
                lines.push_back({column, cells[column], 0, wanted});
                continue;
            }
            height = std::max(height, wrap(column, cells[column], font, {room, most}, lines));
        }
        return std::min(height + line_ / 5, most);
    }
    /// Words where they can be parted, letters where they cannot, as far as the room reaches.
    double wrap(std::size_t column, const Cell& cell, const QFont& font, QSizeF room, std::vector<Line>& lines) const {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        QTextLayout layout(cell.text.toString(), font);
        layout.setTextOption(option);
        layout.beginLayout();
        double y = 0;
        for (QTextLine line = layout.createLine(); line.isValid() && y + line_ <= room.height();
             line = layout.createLine()) {
            line.setLineWidth(room.width());
            const QStringView text = cell.text.sliced(line.textStart(), line.textLength());
            lines.push_back({column, {cell.source, cell.start + line.textStart(), text}, y, line.naturalTextWidth()});
            y += line_;
        }
        layout.endLayout();
        return y;
    }
    void write(const std::vector<Line>& lines, std::uint16_t style, double top) {
        const double ascent = QFontMetricsF(jobFont(job_.styles[style])).ascent();
        for (const Line& line : lines) {
            const double x =
                left_ + std::accumulate(widths_.begin(), widths_.begin() + std::ptrdiff_t(line.column), 0.0);
            run(line.cell, {x, top + line.y + ascent}, line.width, style);
        }
    }
    void run(const Cell& cell, QPointF where, double width, std::uint16_t style) {
        constexpr qsizetype longest = 0xFFFF;
        if (cell.text.trimmed().isEmpty())
            return;
        job_.pages.back().runs.push_back({float(where.x()), float(where.y()), float(width), std::int32_t(cell.start),
                                          std::uint16_t(std::min(cell.text.size(), longest)), style, cell.source,
                                          false});
    }
    void number() {
        const QString text = QString::number(page_);
        const QFontMetricsF metrics(jobFont(job_.styles[plain_]));
        const double width = metrics.horizontalAdvance(text);
        run(own(text), {left_ + (width_ - width) / 2, foot_ - line_ + metrics.ascent()}, width, plain_);
    }
    /// A text that is not the table's.
    Cell own(const QString& text) {
        QString& all = job_.sources[1].text;
        const qsizetype start = all.size();
        all += text;
        return {1, start, text};
    }

    const PaperTable& table_;
    JobPages job_;
    std::uint16_t plain_ = 0;
    std::uint16_t bold_ = 0;
    std::vector<double> widths_;
    double line_ = 0;
    double blank_ = 0;
    double left_ = 0;
    double top_ = 0;
    double width_ = 0;
    double foot_ = 0;
    double bottom_ = 0; ///< of the rows
    double start_ = 0;  ///< below the headers
    double y_ = 0;
    int page_ = 1;
};

} // namespace

JobPages tablePages(const PrintDevice::Sheet& sheet, const PaperTable& table) {
    return Sheets(sheet, table).make();
}

} // namespace velm
