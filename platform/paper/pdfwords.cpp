#include "platform/paper/pdfwords.h"

namespace velm::pdf {

QByteArray number(double value) {
    QByteArray text = QByteArray::number(value, 'f', 2);
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.'))
        text.chop(1);
    return text == "-0" ? "0" : text;
}

std::string rectangle(const std::array<double, 4>& edges) {
    QByteArray all = "[";
    for (const double edge : edges)
        all += number(edge) + ' ';
    return (all.trimmed() + ']').toStdString();
}

std::string unicode(const QString& text) {
    QByteArray units = "FEFF";
    for (const QChar unit : text)
        units += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
    return ('<' + units + '>').toStdString();
}

std::string bytes(const QByteArray& all) {
    return ('<' + all.toHex() + '>').toStdString();
}

} // namespace velm::pdf
