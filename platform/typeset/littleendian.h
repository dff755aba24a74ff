#pragma once
// Numbers as pictures hold them.
#include <QByteArray>
#include <QtEndian>

#include <cstdint>

namespace velm {

/// The number that begins at a byte; 0 where the bytes end before it does.
inline std::uint32_t number32(const QByteArray& bytes, qsizetype at) {
    return bytes.size() >= at + 4 ? qFromLittleEndian<std::uint32_t>(bytes.constData() + at) : 0;
}

inline std::uint32_t number16(const QByteArray& bytes, qsizetype at) {
    return bytes.size() >= at + 2 ? qFromLittleEndian<std::uint16_t>(bytes.constData() + at) : 0;
}

} // namespace velm
