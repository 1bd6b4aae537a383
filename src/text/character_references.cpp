// SPDX-License-Identifier: MIT
#include "text/character_references.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "text/character_names.h"
#include "text/digits.h"

namespace pageslice {
namespace {

using std::size_t;
using std::string_view;

constexpr char32_t REPLACEMENT = 0xFFFD;

// ---- Names

// Where each name begins; the last entry is the end of them all.
struct name_starts {
    std::uint16_t at[character_names::COUNT + 1] = {};

    constexpr name_starts() noexcept {
        size_t name = 0;
        for (size_t i = 0; i < sizeof character_names::NAMES - 1; ++i) {
            if (character_names::NAMES[i] == ' ' || character_names::NAMES[i] == '!') {
                at[++name] = static_cast<std::uint16_t>(i + 1);
            }
        }
    }
    constexpr size_t size_of(size_t slot) const noexcept { return at[slot + 1] - size_t{1} - at[slot]; }
};
constexpr name_starts STARTS;

constexpr char32_t value_of(size_t slot, size_t which) noexcept {
    const std::uint16_t value = character_names::VALUES[slot];
    if (value >= character_names::FIRST_SPECIAL) {
        return character_names::SPECIAL[value - character_names::FIRST_SPECIAL][which];
    }
    return which == 0 ? value : 0;
}

// Hashing as tools/character-names does it. Products are of 64 bits, so that nothing wraps.
constexpr std::uint32_t HASH_START = 0x811C9DC5;

constexpr std::uint32_t low_bits(std::uint64_t n) noexcept {
    return static_cast<std::uint32_t>(n & 0xFFFFFFFF);
}

inline std::uint32_t hash_with(std::uint32_t hash, char c) noexcept {
    return low_bits((hash ^ static_cast<unsigned char>(c)) * std::uint64_t{0x01000193});
}

size_t slot_of(std::uint32_t hash) noexcept {
    const std::uint64_t seed = character_names::SEEDS[hash % std::size(character_names::SEEDS)];
    const std::uint32_t mixed = low_bits((hash ^ low_bits(seed * 0x9E3779B1)) * std::uint64_t{0x85EBCA6B});
    return static_cast<size_t>((mixed ^ mixed >> 15) * std::uint64_t{character_names::COUNT} >> 32);
}

constexpr size_t NO_SLOT = character_names::COUNT;

// The slot of a name of that hash.
size_t find_name(string_view name, std::uint32_t hash) noexcept {
    const size_t slot = slot_of(hash);
    const bool same = STARTS.size_of(slot) == name.size() &&
                      std::memcmp(character_names::NAMES + STARTS.at[slot], name.data(), name.size()) == 0;
    return same ? slot : NO_SLOT;
}

// The same for a name that counts without ';'.
size_t find_open_name(string_view name) noexcept {
    std::uint32_t hash = HASH_START;
    for (const char c : name) {
        hash = hash_with(hash, c);
    }
    const size_t slot = find_name(name, hash);
    const bool open = slot != NO_SLOT && character_names::NAMES[STARTS.at[slot] + name.size()] == '!';
    return open ? slot : NO_SLOT;
}

character_reference reference_of(size_t slot, size_t size) noexcept {
    return {size, value_of(slot, 0), value_of(slot, 1)};
}

// A name without its ';': the longest that `word`, all letters and digits up to `next`, begins with.
character_reference read_open_name(string_view word, char next, bool in_attribute) noexcept {
    const size_t longest = std::min(word.size(), character_names::LONGEST_OPEN);
    if (in_attribute && (longest < word.size() || next == '=')) {
        return {};
    }
    const size_t shortest = in_attribute ? word.size() : 2;
    for (size_t n = longest; n >= shortest; --n) {
        if (const size_t slot = find_open_name(word.substr(0, n)); slot != NO_SLOT) {
            return reference_of(slot, 1 + n);
        }
    }
    return {};
}

character_reference read_name(string_view in, bool in_attribute) noexcept {
    const size_t most = std::min(in.size(), 1 + character_names::LONGEST);
    std::uint32_t hash = HASH_START;
    size_t i = 1;
    for (; i < most && is_alphanumeric(in[i]); ++i) {
        hash = hash_with(hash, in[i]);
    }
    if (i == 1) {
        return {};
    }
    const string_view word = in.substr(1, i - 1);
    const char next = i < in.size() ? in[i] : '\0';
    if (next == ';') {
        if (const size_t slot = find_name(word, hash); slot != NO_SLOT) {
            return reference_of(slot, i + 1);
        }
    }
    return read_open_name(word, next, in_attribute);
}

// What a name writes as UTF-8, and what a reference of that size may grow to.
constexpr size_t utf8_size(char32_t c) noexcept {
    return c < 0x80 ? 1 : c < 0x800 ? 2 : c < 0x10000 ? 3 : 4;
}

constexpr size_t grown(size_t size) noexcept {
    return size + size / 5;
}

constexpr bool names_fit_the_bound() noexcept {
    for (size_t slot = 0; slot < character_names::COUNT; ++slot) {
        const bool open = character_names::NAMES[STARTS.at[slot + 1] - 1] == '!';
        const char32_t second = value_of(slot, 1);
        const size_t written = utf8_size(value_of(slot, 0)) + (second != 0 ? utf8_size(second) : 0);
        if (written > grown(STARTS.size_of(slot) + (open ? 1 : 2))) {
            return false;
        }
    }
    return true;
}
static_assert(STARTS.at[character_names::COUNT] == sizeof character_names::NAMES - 1);
static_assert(names_fit_the_bound(), "decoded_bound() promises this");

// ---- Numbers

constexpr char32_t LAST_CHARACTER = 0x10FFFF;

// Numbers from 0x80 to 0x9F mean what windows-1252 has there.
constexpr char16_t WINDOWS_1252[] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                     0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

char32_t character_of(char32_t number) noexcept {
    if (number >= 0x80 && number < 0x80 + std::size(WINDOWS_1252)) {
        return WINDOWS_1252[number - 0x80];
    }
    const bool surrogate = number >= 0xD800 && number <= 0xDFFF;
    return number == 0 || surrogate || number > LAST_CHARACTER ? REPLACEMENT : number;
}

// No number grows: the shortest of three bytes of UTF-8 is "&#0".
character_reference read_number(string_view in) noexcept {
    const bool hexadecimal = in.size() > 2 && nFoldAscii(in[2]) == 'x';
    const unsigned base = hexadecimal ? 16 : 10;
    const size_t first = hexadecimal ? 3 : 2;
    size_t i = first;
    char32_t number = 0;
    for (; i < in.size() && digit_value(in[i]) < base; ++i) {
        number = std::min<char32_t>(number * base + digit_value(in[i]), LAST_CHARACTER + 1);
    }
    if (i == first) {
        return {};
    }
    return {i < in.size() && in[i] == ';' ? i + 1 : i, character_of(number), 0};
}

// ---- Values

// Finds the next byte of one kind, and goes on from where it was found.
class byte_finder {
public:
    byte_finder(char byte, string_view in) noexcept
        : m_byte(byte), m_end(in.data() + in.size()), m_next(find(in.data())) {}

    // The first at or after p, which does not go back; the end of what is searched when there is none.
    const char* from(const char* p) noexcept {
        if (m_next < p) {
            m_next = *p == m_byte ? p : find(p); // nothing but these is not worth a call for each
        }
        return m_next;
    }

private:
    const char* find(const char* p) const noexcept {
        const void* const found = std::memchr(p, m_byte, static_cast<size_t>(m_end - p));
        return found != nullptr ? static_cast<const char*>(found) : m_end;
    }

    char m_byte;
    const char* m_end;
    const char* m_next;
};

char* copy_bytes(string_view bytes, char* out) noexcept {
    std::memcpy(out, bytes.data(), bytes.size());
    return out + bytes.size();
}

bool keeps_nul(value_kind kind) noexcept {
    return kind == value_kind::text || kind == value_kind::cdata;
}

bool has_references(value_kind kind) noexcept {
    return kind != value_kind::raw && kind != value_kind::cdata;
}

// Decodes what begins with '&', CR or NUL. Gives how many bytes that took.
size_t decode_special(string_view in, value_kind kind, char*& out) noexcept {
    if (in[0] == '\r') {
        *out++ = '\n';
        return in.substr(0, 2) == "\r\n" ? 2 : 1;
    }
    if (in[0] == '\0') {
        out = write_utf8(keeps_nul(kind) ? 0 : REPLACEMENT, out);
        return 1;
    }
    const character_reference reference = read_reference(in, kind == value_kind::attribute);
    if (reference.size == 0) {
        *out++ = '&';
        return 1;
    }
    out = write_utf8(reference.first, out);
    out = reference.second == 0 ? out : write_utf8(reference.second, out);
    return reference.size;
}

} // namespace

character_reference read_reference(string_view in, bool in_attribute) noexcept {
    return in.size() > 1 && in[1] == '#' ? read_number(in) : read_name(in, in_attribute);
}

char* write_utf8(char32_t character, char* out) noexcept {
    if (character < 0x80) {
        *out++ = static_cast<char>(character);
        return out;
    }
    const size_t size = utf8_size(character);
    constexpr unsigned MARKS[] = {0, 0, 0xC0, 0xE0, 0xF0};
    for (size_t i = size - 1; i > 0; --i) {
        out[i] = static_cast<char>(0x80 | (character & 0x3F));
        character >>= 6;
    }
    out[0] = static_cast<char>(MARKS[size] | character);
    return out + size;
}

size_t decoded_bound(string_view in, value_kind kind) noexcept {
    const size_t plain = grown(in.size());
    if (keeps_nul(kind)) {
        return plain;
    }
    const auto nuls = static_cast<size_t>(std::count(in.begin(), in.end(), '\0'));
    return nuls > (SIZE_MAX - plain) / 2 ? SIZE_MAX : plain + 2 * nuls;
}

char* decode_references(string_view in, value_kind kind, char* out) noexcept {
    if (in.empty()) {
        return out;
    }
    byte_finder references(has_references(kind) ? '&' : '\r', in), line_ends('\r', in), nuls('\0', in);
    const char* const end = in.data() + in.size();
    const char* p = in.data();
    while (p < end) {
        const char* const special = std::min({references.from(p), line_ends.from(p), nuls.from(p)});
        out = copy_bytes({p, static_cast<size_t>(special - p)}, out);
        p = special;
        if (p < end) {
            p += decode_special({p, static_cast<size_t>(end - p)}, kind, out);
        }
    }
    return out;
}

} // namespace pageslice
