#include "platform/richtext/unitsearch.h"

#include <QVarLengthArray>

#include <algorithm>

namespace velm {
namespace {

/// What a false start costs, counted in units that a plain scan passes; and how much of that each unit of the way may
/// bring before the search changes its method.
constexpr qsizetype falseStartCost = 8;
constexpr qsizetype costPerUnit = 4;
constexpr qsizetype startCredit = 1024;

/// Knuth, Morris and Pratt: never goes back in the text.
qsizetype indexOfPeriodic(QStringView text, QStringView needle, qsizetype from) {
    const qsizetype size = needle.size();
    // border[i]: length of the longest proper prefix of the needle that ends its first i + 1 units.
    QVarLengthArray<qsizetype, 256> border(size);
    border[0] = 0;
    for (qsizetype i = 1, k = 0; i < size; ++i) {
        while (k > 0 && needle[i] != needle[k])
            k = border[k - 1];
        if (needle[i] == needle[k])
            ++k;
        border[i] = k;
    }
    for (qsizetype i = from, k = 0; i < text.size(); ++i) {
        while (k > 0 && text[i] != needle[k])
            k = border[k - 1];
        if (text[i] == needle[k])
            ++k;
        if (k == size)
            return i + 1 - size;
    }
    return -1;
}

} // namespace

qsizetype indexOfUnits(QStringView text, QStringView needle, qsizetype from) {
    const qsizetype size = needle.size();
    if (text.size() - from < size)
        return -1;
    const QStringView starts = text.first(text.size() - size + 1);
    const QChar head = needle.front();
    qsizetype cost = -startCredit;
    for (qsizetype i = from; (i = starts.indexOf(head, i)) >= 0; ++i) {
        const QChar* here = text.data() + i;
        const auto differs = std::mismatch(needle.begin() + 1, needle.end(), here + 1).first;
        if (differs == needle.end())
            return i;
        cost += falseStartCost + (differs - needle.begin());
        if (cost > costPerUnit * (i - from))
            return indexOfPeriodic(text, needle, i + 1);
    }
    return -1;
}

qsizetype indexOfUnits(QStringView first, QStringView second, QStringView needle, qsizetype from) {
    const qsizetype size = needle.size();
    if (from < first.size()) {
        const qsizetype hit = indexOfUnits(first, needle, from);
        if (hit >= 0)
            return hit;
        // What can lie across both pieces: fewer units than the needle has on each side.
        const qsizetype left = std::min(size - 1, first.size() - from);
        const qsizetype right = std::min(size - 1, second.size());
        QVarLengthArray<QChar, 256> window(left + right);
        std::copy_n(first.end() - left, left, window.begin());
        std::copy_n(second.begin(), right, window.begin() + left);
        const qsizetype across = indexOfUnits(QStringView(window.data(), window.size()), needle, 0);
        if (across >= 0)
            return first.size() - left + across;
        from = first.size();
    }
    const qsizetype hit = indexOfUnits(second, needle, from - first.size());
    return hit < 0 ? -1 : first.size() + hit;
}

} // namespace velm
