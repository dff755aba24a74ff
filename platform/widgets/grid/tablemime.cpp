#include "platform/widgets/grid/tablemime.h"

#include <utility>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

QString oneLine(QString cell) {
    for (QChar& character : cell) {
        if (character == u'\t' || character == u'\r' || character == u'\n')
            character = u' ';
    }
    return cell;
}

} // namespace

void TableMime::add(const QStringList& row) {
    QStringList cells;
    for (const QString& cell : row)
        cells << oneLine(cell);
    text_ += (rows_ > 0 ? u"\r\n"_s : QString()) + cells.join(u'\t');
    if (++rows_ > richRows) {
        html_ = QString();
        return;
    }
    html_ += u"<tr>"_s;
    for (const QString& cell : cells)
        html_ += u"<td>"_s + cell.toHtmlEscaped() + u"</td>"_s;
    html_ += u"</tr>"_s;
}

std::unique_ptr<QMimeData> TableMime::take() {
    auto data = std::make_unique<QMimeData>();
    data->setText(std::exchange(text_, {}));
    if (std::exchange(rows_, 0) <= richRows)
        data->setHtml(u"<meta charset=\"utf-8\"><table>"_s + std::exchange(html_, {}) + u"</table>"_s);
    return data;
}

std::unique_ptr<QMimeData> tableMime(const std::vector<QStringList>& rows) {
    TableMime table;
    for (const QStringList& row : rows)
        table.add(row);
    return table.take();
}

QString tableText(const std::vector<QStringList>& rows) {
    QStringList lines;
    for (const QStringList& cells : rows)
        lines << cells.join(u'\t');
    return lines.join(u'\r');
}

} // namespace velm
