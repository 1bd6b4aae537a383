// SPDX-License-Identifier: MIT
#include "url/percent_encode.h"

#include <cstddef>

#include "text/digits.h"
#include "text/utf8.h"

namespace pageslice::url_parts {
namespace {

char* encode_byte(char c, char* out) noexcept {
    constexpr char DIGITS[] = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    *out++ = '%';
    *out++ = DIGITS[byte >> 4];
    *out++ = DIGITS[byte & 15];
    return out;
}

} // namespace

char* encode_character(std::string_view& in, char* out) noexcept {
    const utf8_prefix character = read_utf8(in);
    const std::string_view bytes = character.valid ? in.substr(0, character.size) : "\xEF\xBF\xBD";
    for (const char c : bytes) {
        out = encode_byte(c, out);
    }
    in.remove_prefix(character.size);
    return out;
}

char* percent_encode(std::string_view in, byte_set set, char* out) noexcept {
    while (!in.empty()) {
        std::size_t n = 0;
        for (; n < in.size() && (sets_of(in[n]) & set) == 0; ++n) {
            out[n] = in[n];
        }
        out += n;
        in.remove_prefix(n);
        if (!in.empty()) {
            out = encode_character(in, out);
        }
    }
    return out;
}

char* percent_decode(std::string_view in, char* out) noexcept {
    for (std::size_t i = 0; i < in.size(); ++i) {
        const unsigned high = i + 2 < in.size() ? digit_value(in[i + 1]) : NO_DIGIT;
        const unsigned low = high != NO_DIGIT ? digit_value(in[i + 2]) : NO_DIGIT;
        if (in[i] != '%' || low == NO_DIGIT) {
            *out++ = in[i];
            continue;
        }
        *out++ = static_cast<char>(high * 16 + low);
        i += 2;
    }
    return out;
}

} // namespace pageslice::url_parts
