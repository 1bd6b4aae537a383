// SPDX-License-Identifier: MIT
// Digits and letters of ASCII, whatever the locale.
#ifndef PAGESLICE_TEXT_DIGITS_H
#define PAGESLICE_TEXT_DIGITS_H

#include "text/string_utils.h"

namespace pageslice {

constexpr bool is_digit(char c) noexcept {
    return c >= '0' && c <= '9';
}

inline bool is_alphanumeric(char c) noexcept {
    return is_digit(c) || bIsAsciiLetter(c);
}

// What the character is worth as a digit, up to 15 for 'f' and 'F'; NO_DIGIT, which is above them, for any
// other character.
constexpr unsigned NO_DIGIT = 16;

inline unsigned digit_value(char c) noexcept {
    if (is_digit(c)) {
        return static_cast<unsigned>(c - '0');
    }
    const char small = nFoldAscii(c);
    return small >= 'a' && small <= 'f' ? static_cast<unsigned>(small - 'a') + 10 : NO_DIGIT;
}

} // namespace pageslice

#endif
