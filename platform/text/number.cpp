#include "platform/text/number.h"

#include <QVarLengthArray>

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace velm {
namespace {

constexpr bool isPassedOver(char16_t unit) {
    return unit == u' ' || unit == u'\t' || unit == u'\n';
}

constexpr bool isDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

constexpr bool isExponentLetter(char16_t unit) {
    return unit == u'E' || unit == u'e' || unit == u'D' || unit == u'd';
}

/// Collects the characters of the number that a text begins with, in the form std::from_chars reads.
class NumberScan {
public:
    explicit NumberScan(QStringView text) : text_(text) {}

    double value() {
        if (peek() == u'-' || peek() == u'+')
            negative_ = take() == u'-';
        const bool whole = takeDigits();
        bool digits = whole;
        if (peek() == u'.') {
            take();
            buffer_.append('.');
            digits = takeDigits() || whole;
        }
        if (!digits)
            return 0;
        takeExponent();
        return converted();
    }

private:
    char16_t peek() {
        while (at_ < text_.size() && isPassedOver(text_[at_].unicode()))
            ++at_;
        return at_ < text_.size() ? text_[at_].unicode() : u'\0';
    }

    char16_t take() { return text_[at_++].unicode(); }

    bool takeDigits() {
        bool any = false;
        for (; isDigit(peek()); any = true)
            buffer_.append(static_cast<char>(take()));
        return any;
    }

    /// An exponent letter without digits behind it ends the number and is no part of it.
    void takeExponent() {
        if (!isExponentLetter(peek()))
            return;
        take();
        const qsizetype before = buffer_.size();
        buffer_.append('e');
        if (peek() == u'-' || peek() == u'+') {
            smallExponent_ = take() == u'-';
            if (smallExponent_)
                buffer_.append('-');
        }
        if (!takeDigits())
            buffer_.resize(before);
    }

    double converted() const {
        double number = 0;
        const auto read = std::from_chars(buffer_.constData(), buffer_.constData() + buffer_.size(), number);
        if (read.ec == std::errc::result_out_of_range)
            number = isTiny() ? 0 : std::numeric_limits<double>::max();
        return negative_ ? -number : number;
    }

    /// Out of range: is the number too small rather than too large? Its order is the place of the first digit that is
    /// not 0, moved by the exponent.
    bool isTiny() const {
        const QByteArrayView all(buffer_.constData(), buffer_.size());
        const qsizetype letter = all.indexOf('e');
        const QByteArrayView mantissa = letter < 0 ? all : all.first(letter);
        const qsizetype point = mantissa.indexOf('.') < 0 ? mantissa.size() : mantissa.indexOf('.');
        qsizetype first = 0;
        while (first < mantissa.size() && (mantissa[first] == '0' || mantissa[first] == '.'))
            ++first;
        qint64 exponent = 0;
        if (letter >= 0) {
            const auto read = std::from_chars(all.data() + letter + 1, all.data() + all.size(), exponent);
            if (read.ec == std::errc::result_out_of_range)
                return smallExponent_;
        }
        return exponent < first - point;
    }

    QStringView text_;
    qsizetype at_ = 0;
    QVarLengthArray<char, 64> buffer_;
    bool negative_ = false;
    bool smallExponent_ = false;
};

} // namespace

double val(QStringView text) {
    return NumberScan(text).value();
}

QString numberText(qint64 number) {
    QString text = QString::number(number);
    if (number >= 0)
        text.prepend(u' ');
    return text;
}

qint64 roundHalfEven(double value) {
    if (std::isnan(value))
        return 0;
    // 2^63 itself is the first value that a 64-bit integer cannot hold.
    constexpr double limit = 9223372036854775808.0;
    if (value >= limit)
        return std::numeric_limits<qint64>::max();
    if (value <= -limit)
        return std::numeric_limits<qint64>::min();
    const double below = std::floor(value);
    const double rest = value - below;
    const auto whole = static_cast<qint64>(below);
    const bool up = rest > 0.5 || (rest == 0.5 && whole % 2 != 0);
    return up ? whole + 1 : whole;
}

std::optional<qint64> wholeNumber(QStringView text) {
    const auto isBlank = [](QChar c) { return c == u' ' || c == u'\t'; };
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    const bool negative = text.startsWith(u'-');
    if (negative || text.startsWith(u'+'))
        text = text.sliced(1);
    if (text.isEmpty())
        return std::nullopt;
    // Counted downwards: the smallest number has no positive counterpart.
    constexpr qint64 least = std::numeric_limits<qint64>::min();
    qint64 number = 0;
    for (const QChar c : text) {
        if (!isDigit(c.unicode()))
            return std::nullopt;
        const int digit = c.unicode() - u'0';
        if (number < (least + digit) / 10)
            return std::nullopt;
        number = number * 10 - digit;
    }
    if (negative)
        return number;
    if (number == least)
        return std::nullopt;
    return -number;
}

} // namespace velm
