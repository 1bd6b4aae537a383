// SPDX-License-Identifier: MIT
// Reading UTF-8 that may be broken, as the Encoding Standard does.
#ifndef PAGESLICE_TEXT_UTF8_H
#define PAGESLICE_TEXT_UTF8_H

#include <cstddef>
#include <string_view>

namespace pageslice {

// The beginning of a text: one character, or bytes that together count as one U+FFFD.
struct utf8_prefix {
    std::size_t size;
    bool valid;
};

// `in` is not empty.
inline utf8_prefix read_utf8(std::string_view in) noexcept {
    const auto byte = [in](std::size_t i) { return static_cast<unsigned char>(in[i]); };
    const unsigned lead = byte(0);
    if (lead < 0x80) {
        return {1, true};
    }
    const std::size_t size = lead < 0xC2 || lead > 0xF4 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    // After four leads the second byte's range is narrower: nothing overlong, no surrogates, no more than
    // U+10FFFF.
    unsigned least = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned most = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (std::size_t i = 1; i < size; ++i) {
        if (i == in.size() || byte(i) < least || byte(i) > most) {
            return {i, false};
        }
        least = 0x80;
        most = 0xBF;
    }
    return {size, size > 1};
}

inline bool is_utf8(std::string_view in) noexcept {
    while (!in.empty()) {
        const utf8_prefix character = read_utf8(in);
        if (!character.valid) {
            return false;
        }
        in.remove_prefix(character.size);
    }
    return true;
}

} // namespace pageslice

#endif
