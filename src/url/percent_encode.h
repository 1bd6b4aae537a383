// SPDX-License-Identifier: MIT
// Percent-encoding by the URL Standard, and the classes of bytes that its rules tell apart.
#ifndef PAGESLICE_URL_PERCENT_ENCODE_H
#define PAGESLICE_URL_PERCENT_ENCODE_H

#include <cstdint>
#include <string_view>

namespace pageslice::url_parts {

// Sets of bytes, one bit each. Those that are named after a part are what is encoded there.
using byte_set = std::uint16_t;
inline constexpr byte_set CONTROL = 0x01;          // C0 controls, and all above '~'
inline constexpr byte_set FRAGMENT = 0x02;         // each of the following holds CONTROL
inline constexpr byte_set QUERY = 0x04;            //
inline constexpr byte_set SPECIAL_QUERY = 0x08;    // the query of a special scheme
inline constexpr byte_set PATH = 0x10;             //
inline constexpr byte_set USERINFO = 0x20;         //
inline constexpr byte_set FORBIDDEN_HOST = 0x40;   // not to stand in any host
inline constexpr byte_set FORBIDDEN_DOMAIN = 0x80; // nor in the host of a special scheme
inline constexpr byte_set LINE_BREAK = 0x100;      // tab, LF, CR: dropped wherever they stand
inline constexpr byte_set SLASH = 0x200;
inline constexpr byte_set BACKSLASH = 0x400;
inline constexpr byte_set PERCENT = 0x800;
inline constexpr byte_set HIGH = 0x1000; // 0x80 and above
inline constexpr byte_set ENCODED = CONTROL | FRAGMENT | QUERY | SPECIAL_QUERY | PATH | USERINFO;

struct byte_sets {
    byte_set of[256] = {};
    std::uint8_t growth[256] = {};

    constexpr byte_sets() noexcept {
        constexpr byte_set EVERYWHERE = ENCODED | FORBIDDEN_DOMAIN;
        for (unsigned c = 0; c < 256; ++c) {
            of[c] = c >= 0x80 ? byte_set{ENCODED | HIGH} : c < 0x20 || c == 0x7F ? EVERYWHERE : byte_set{0};
        }
        add("\t\n\r", LINE_BREAK);
        add(" \"<>", FRAGMENT | QUERY | SPECIAL_QUERY | PATH | USERINFO);
        add("`", FRAGMENT | PATH | USERINFO);
        add("#", QUERY | SPECIAL_QUERY | PATH | USERINFO);
        add("'", SPECIAL_QUERY);
        add("?^{}", PATH | USERINFO);
        add("/:;=@[\\]|", USERINFO);
        add("\t\n\r #/:<>?@[\\]^|", FORBIDDEN_HOST | FORBIDDEN_DOMAIN);
        of[0] |= FORBIDDEN_HOST;
        add("%", FORBIDDEN_DOMAIN | PERCENT);
        add("/", SLASH);
        add("\\", BACKSLASH);
        for (unsigned c = 0; c < 256; ++c) {
            growth[c] = (of[c] & HIGH) != 0 ? 8 : (of[c] & ENCODED) != 0 ? 2 : 0;
        }
    }

private:
    constexpr void add(std::string_view bytes, unsigned set) noexcept {
        for (const char c : bytes) {
            byte_set& sets = of[static_cast<unsigned char>(c)];
            sets = static_cast<byte_set>(sets | set);
        }
    }
};
inline constexpr byte_sets BYTE_SETS;

inline byte_set sets_of(char c) noexcept {
    return BYTE_SETS.of[static_cast<unsigned char>(c)];
}

// How many bytes more than one this byte can come to. Above ASCII it may be an invalid sequence by itself,
// for which U+FFFD is encoded.
inline unsigned growth_of(char c) noexcept {
    return BYTE_SETS.growth[static_cast<unsigned char>(c)];
}

inline byte_set all_sets_of(std::string_view in) noexcept {
    unsigned all = 0;
    for (const char c : in) {
        all |= sets_of(c);
    }
    return static_cast<byte_set>(all);
}

// Writes the character at the start of `in`, which is not empty, encoded. Shortens `in` by it, gives the
// position after what was written.
char* encode_character(std::string_view& in, char* out) noexcept;

// Writes `in` with the bytes of `set` encoded. Gives the position after it.
char* percent_encode(std::string_view in, byte_set set, char* out) noexcept;

// Writes `in` with "%41" and the like decoded, which never is longer. Gives the position after it.
char* percent_decode(std::string_view in, char* out) noexcept;

} // namespace pageslice::url_parts

#endif
