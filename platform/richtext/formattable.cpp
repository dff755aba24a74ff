#include "platform/richtext/formattable.h"

namespace velm {

size_t qHash(const CharFormat& format, size_t seed) {
    const unsigned flags = (format.bold ? 1U : 0U) | (format.italic ? 2U : 0U) | (format.underline ? 4U : 0U) |
                           (format.strike ? 8U : 0U) | (format.hidden ? 16U : 0U);
    return qHashMulti(seed, format.family, format.size, flags, format.offset, format.colour, format.background,
                      format.object);
}

size_t qHash(const ParaFormat& format, size_t seed) {
    const unsigned flags =
        static_cast<unsigned>(format.alignment) | (format.bullet ? 4U : 0U) | (format.lineMultiple ? 8U : 0U);
    const size_t scalars = qHashMulti(seed, flags, format.startIndent, format.offset, format.rightIndent,
                                      format.spaceBefore, format.spaceAfter, format.lineSpacing);
    return qHashRange(format.tabs.cbegin(), format.tabs.cend(), scalars);
}

} // namespace velm
