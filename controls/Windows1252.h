#pragma once

#include <QChar>
#include <array>

namespace marvello {

/// The letter of a byte in Windows-1252, in which rich texts and metafiles are written. The few bytes that
/// mean nothing give the replacement character.
inline QChar fromWindows1252(unsigned char byte) {
    // 0x80 to 0x9F; all others are those of Latin-1.
    static constexpr std::array<char16_t, 32> others{
        0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};
    return byte >= 0x80 && byte < 0xA0 ? QChar(others[byte - 0x80U]) : QChar(byte);
}

}  // namespace marvello
