// SPDX-License-Identifier: MIT
#include "display.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "runs.h"

namespace program {
namespace {

constexpr char32_t REPLACEMENT = 0xFFFD;
constexpr char32_t ELLIPSIS = 0x2026;
constexpr char32_t PICTURES = 0x2400; // of the control characters, in their order
constexpr char32_t PICTURE_OF_DELETE = 0x2421;

// What bytes 0x80 to 0x9F mean on Western European pages.
constexpr std::array<char16_t, 32> WESTERN = {0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                              0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
                                              0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                              0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

// Tags that stand inside words.
constexpr std::string_view INLINE_TAGS =
    " a abbr b bdi big cite code del em font i ins s small span strong sub sup tt u wbr ";

bool isSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

char32_t legibleForm(const Decoded& decoded) {
    const char32_t c = decoded.character;
    if (!decoded.valid) {
        return c >= 0xA0 ? c : WESTERN[c - 0x80];
    }
    if (c < 0x20) {
        return PICTURES + c;
    }
    if (c == 0x7F) {
        return PICTURE_OF_DELETE;
    }
    return c >= 0x80 && c < 0xA0 ? REPLACEMENT : c;
}

bool isInlineTag(std::string_view tag) {
    tag = tag.substr(1, 10); // longer than any word above
    if (!tag.empty() && tag.front() == '/') {
        tag.remove_prefix(1);
    }
    std::string word(1, ' ');
    for (const char c : tag.substr(0, tag.find_first_of("> \t\r\n/"))) {
        word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return INLINE_TAGS.find(word + ' ') != std::string_view::npos;
}

// The tag that opens `bytes`, from '<' to the '>' outside double quotes; empty where no '>' closes it.
std::string_view tagAtStart(std::string_view bytes) {
    bool quoted = false;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        quoted = quoted != (bytes[i] == '"');
        if (bytes[i] == '>' && !quoted) {
            return bytes.substr(0, i + 1);
        }
    }
    return {};
}

} // namespace

Decoded decodeUtf8(std::string_view bytes) {
    const auto byteAt = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = byteAt(0);
    const Decoded invalid = {lead, 1, false};
    if (lead < 0x80) {
        return {lead, 1, true};
    }
    const std::size_t size = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    if (size == 0 || size > bytes.size()) {
        return invalid;
    }
    char32_t c = lead & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if ((byteAt(i) & 0xC0U) != 0x80) {
            return invalid;
        }
        c = (c << 6U) | (byteAt(i) & 0x3FU);
    }
    const bool overlong = (size == 3 && c < 0x800) || (size == 4 && c < 0x10000);
    if (overlong || (c >= 0xD800 && c < 0xE000) || c > 0x10FFFF) {
        return invalid;
    }
    return {c, size, true};
}

std::size_t brokenSize(std::string_view bytes) {
    const auto byteAt = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byteAt(0);
    const std::size_t size = lead < 0xC2 || lead > 0xF4 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    unsigned low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    std::size_t i = 1;
    for (; i < size && i < bytes.size() && byteAt(i) >= low && byteAt(i) <= high; ++i) {
        low = 0x80;
        high = 0xBF;
    }
    return i;
}

bool isUnseen(char32_t c) {
    const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
    const bool isMark = c == 0x61C || (c >= 0x200E && c < 0x2010);
    return isControl || isMark || (c >= 0x202A && c < 0x202F) || (c >= 0x2066 && c < 0x206A);
}

bool hasNoWidth(char32_t c) {
    return c == 0xAD || (c >= 0x200B && c < 0x200E) || (c >= 0x2060 && c < 0x2065) || c == 0xFEFF;
}

void appendName(std::string& out, char32_t character) {
    constexpr std::string_view HEX = "0123456789ABCDEF";
    out += "⟨U+";
    for (unsigned shift = character < 0x10000 ? 16 : 24; shift > 0;) {
        shift -= 4;
        out += HEX[(character >> shift) & 0xFU];
    }
    out += "⟩";
}

std::string withMarks(std::string_view utf8) {
    std::string out;
    while (!utf8.empty()) {
        const std::size_t run = asciiRun(utf8);
        out += utf8.substr(0, run);
        utf8.remove_prefix(run);
        if (!utf8.empty()) {
            const Decoded decoded = decodeUtf8(utf8);
            if (isUnseen(decoded.character)) {
                appendName(out, decoded.character);
            } else {
                out += utf8.substr(0, decoded.size);
            }
            utf8.remove_prefix(decoded.size);
        }
    }
    return out;
}

void appendUtf8(std::string& out, char32_t character) {
    const auto put = [&out](char32_t bits) { out += static_cast<char>(static_cast<unsigned char>(bits)); };
    const auto putRest = [&](unsigned shift) { put(0x80U | ((character >> shift) & 0x3FU)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0U | (character >> 6U));
        putRest(0);
    } else if (character < 0x10000) {
        put(0xE0U | (character >> 12U));
        putRest(6);
        putRest(0);
    } else {
        put(0xF0U | (character >> 18U));
        putRest(12);
        putRest(6);
        putRest(0);
    }
}

std::size_t appendLegible(std::string& out, std::string_view bytes) {
    const Decoded decoded = decodeUtf8(bytes);
    appendUtf8(out, legibleForm(decoded));
    return decoded.size;
}

std::string legible(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    while (!bytes.empty()) {
        std::size_t taken = 1;
        if (bytes.front() == '\n' || bytes.front() == '\t') {
            out += bytes.front();
        } else {
            taken = appendLegible(out, bytes);
        }
        bytes.remove_prefix(taken);
    }
    return out;
}

std::string shownName(std::string_view name) {
    std::string out;
    while (!name.empty()) {
        name.remove_prefix(appendLegible(out, name));
    }
    return out;
}

std::string oneLine(std::string_view bytes, Markup markup, std::size_t limit) {
    std::string out;
    bool strip = markup == Markup::strip;
    bool spaceBefore = false;
    std::size_t count = 0;
    while (!bytes.empty()) {
        if (isSpace(bytes.front())) {
            spaceBefore = true;
            bytes.remove_prefix(1);
            continue;
        }
        if (strip && bytes.front() == '<') {
            const std::string_view tag = tagAtStart(bytes);
            strip = !tag.empty(); // what follows an unclosed tag shows as it is: one search is enough
            spaceBefore = spaceBefore || (strip && !isInlineTag(tag));
            bytes.remove_prefix(tag.size());
            continue;
        }
        if (count >= limit) {
            appendUtf8(out, ELLIPSIS);
            break;
        }
        if (spaceBefore && count != 0) {
            out += ' ';
            ++count;
        }
        spaceBefore = false;
        bytes.remove_prefix(appendLegible(out, bytes));
        ++count;
    }
    return out;
}

std::size_t countCharacters(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(
        utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; }));
}

} // namespace program
