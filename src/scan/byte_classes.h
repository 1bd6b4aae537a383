// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_SCAN_BYTE_CLASSES_H
#define PAGESLICE_SCAN_BYTE_CLASSES_H

#include <array>

namespace pageslice {

// What stands before a piece of a tag, and what ends it.
enum ByteClass : unsigned char {
    ENDS_NAME = 1,    // white space, '=', '>', '<'
    ENDS_VALUE = 2,   // of an unquoted value: white space, '>', '<'
    ENDS_QUOTED = 4,  // of a quoted value: '"', '>'
    BEFORE_NAME = 8,  // white space
    BEFORE_VALUE = 16 // white space, '='
};

constexpr std::array<unsigned char, 256> MakeByteClasses() noexcept {
    std::array<unsigned char, 256> classes{};
    for (const char c : {'\t', '\n', '\r', ' '}) {
        classes[static_cast<unsigned char>(c)] = ENDS_NAME | ENDS_VALUE | BEFORE_NAME | BEFORE_VALUE;
    }
    classes['<'] = classes['>'] = ENDS_NAME | ENDS_VALUE;
    classes['='] = ENDS_NAME | BEFORE_VALUE;
    classes['"'] = ENDS_QUOTED;
    classes['>'] |= ENDS_QUOTED;
    return classes;
}

inline constexpr std::array<unsigned char, 256> BYTE_CLASSES = MakeByteClasses();

inline bool bIsOfClass(char c, ByteClass byteClass) noexcept {
    return (BYTE_CLASSES[static_cast<unsigned char>(c)] & byteClass) != 0;
}

} // namespace pageslice

#endif
