#include "platform/widgets/grid/tablemime.h"

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

std::unique_ptr<QMimeData> tableMime(const std::vector<QStringList>& rows) {
    QString text;
    QString html = u"<meta charset=\"utf-8\"><table>"_s;
    for (const QStringList& row : rows) {
        QStringList cells;
        html += u"<tr>"_s;
        for (const QString& cell : row) {
            cells << oneLine(cell);
            html += u"<td>"_s + cells.constLast().toHtmlEscaped() + u"</td>"_s;
        }
        html += u"</tr>"_s;
        text += cells.join(u'\t') + u"\r\n"_s;
    }
    text.chop(2);
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    data->setHtml(html + u"</table>"_s);
    return data;
}

QString tableText(const std::vector<QStringList>& rows) {
    QStringList lines;
    for (const QStringList& cells : rows)
        lines << cells.join(u'\t');
    return lines.join(u'\r');
}

} // namespace velm
