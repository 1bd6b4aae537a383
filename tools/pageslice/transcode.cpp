// SPDX-License-Identifier: MIT
#include "transcode.h"

#include <cstddef>

#include "display.h"

namespace program {
namespace {

constexpr char32_t UNKNOWN = 0xFFFD;

// Where systems differ from the Encoding Standard.
struct Correction {
    std::string_view encoding;
    unsigned char byte;
    char32_t character;
};
constexpr Correction CORRECTIONS[] = {
    {"KOI8-U", 0xAE, 0x45E},     {"KOI8-U", 0xBE, 0x40E},          {"macintosh", 0xC6, 0x2206},
    {"macintosh", 0xF0, 0xF8FF}, {"x-mac-cyrillic", 0xFF, 0x20AC}, {"windows-1255", 0xCA, 0x5BA},
};

bool startsWith(std::string_view s, std::string_view start) {
    return s.substr(0, start.size()) == start;
}

bool hasOneByteEach(std::string_view encoding) {
    return encoding == "IBM866" || encoding == "macintosh" || startsWith(encoding, "ISO-8859-") ||
           startsWith(encoding, "KOI8-") || startsWith(encoding, "windows-") || startsWith(encoding, "x-");
}

void appendRepaired(std::string& out, std::string_view bytes) {
    while (!bytes.empty()) {
        const Decoded decoded = decodeUtf8(bytes);
        appendUtf8(out, decoded.valid ? decoded.character : UNKNOWN);
        bytes.remove_prefix(decoded.valid ? decoded.size : brokenSize(bytes));
    }
}

void appendUtf16(std::string& out, std::string_view bytes, bool bigEndian) {
    const auto unitAt = [=](std::size_t i) -> char32_t {
        const char32_t first = static_cast<unsigned char>(bytes[i]);
        const char32_t second = static_cast<unsigned char>(bytes[i + 1]);
        return bigEndian ? first << 8U | second : second << 8U | first;
    };
    std::size_t i = 0;
    for (; i + 1 < bytes.size(); i += 2) {
        char32_t c = unitAt(i);
        const bool isHigh = c >= 0xD800 && c < 0xDC00;
        if (isHigh && i + 3 == bytes.size()) {
            break; // half a character and half of its other half are one error
        }
        const char32_t low = isHigh && i + 3 < bytes.size() ? unitAt(i + 2) : 0;
        if (low >= 0xDC00 && low < 0xE000) {
            c = 0x10000 + ((c - 0xD800) << 10U) + (low - 0xDC00);
            i += 2;
        }
        appendUtf8(out, c >= 0xD800 && c < 0xE000 ? UNKNOWN : c);
    }
    if (i < bytes.size()) {
        appendUtf8(out, UNKNOWN);
    }
}

} // namespace

Transcoder::Transcoder(std::string_view encoding) : form(formOf(encoding)), system(encoding) {
    if (form == Form::oneByte) {
        fillTable(encoding);
    } else if (form == Form::system && !system.known()) {
        form = Form::oneByte;
        table.fill(UNKNOWN);
    }
    markupIsAscii =
        form != Form::utf16be && form != Form::utf16le && form != Form::none && encoding != "ISO-2022-JP";
}

Transcoder::Form Transcoder::formOf(std::string_view encoding) {
    if (encoding == "UTF-8") {
        return Form::utf8;
    }
    if (encoding == "UTF-16BE") {
        return Form::utf16be;
    }
    if (encoding == "UTF-16LE") {
        return Form::utf16le;
    }
    if (encoding == "replacement") {
        return Form::none;
    }
    return hasOneByteEach(encoding) ? Form::oneByte : Form::system;
}

void Transcoder::fillTable(std::string_view encoding) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        const auto byte = static_cast<unsigned char>(0x80 + i);
        table[i] = encoding == "x-user-defined" ? 0xF700 + byte : characterOf(byte);
        // Control characters, which systems leave out.
        if (table[i] == UNKNOWN && byte < 0xA0 && startsWith(encoding, "windows-")) {
            table[i] = byte;
        }
    }
    for (const Correction& correction : CORRECTIONS) {
        if (correction.encoding == encoding) {
            table[correction.byte - 0x80U] = correction.character;
        }
    }
}

char32_t Transcoder::characterOf(unsigned char byte) const {
    std::string character;
    if (system.known()) {
        const char c = static_cast<char>(byte);
        system.append(character, {&c, 1});
    }
    const char32_t c = character.empty() ? UNKNOWN : decodeUtf8(character).character;
    const bool isPrivate = c >= 0xE000 && c < 0xF900; // how some systems mark what they do not know
    return isPrivate ? UNKNOWN : c;
}

std::string Transcoder::utf8(std::string_view bytes) const {
    std::string out;
    out.reserve(bytes.size());
    switch (form) {
    case Form::utf8: appendRepaired(out, bytes); break;
    case Form::utf16be: appendUtf16(out, bytes, true); break;
    case Form::utf16le: appendUtf16(out, bytes, false); break;
    case Form::none: out = bytes.empty() ? "" : "\xEF\xBF\xBD"; break;
    case Form::system: system.append(out, bytes); break;
    case Form::oneByte:
        for (const char c : bytes) {
            const auto byte = static_cast<unsigned char>(c);
            appendUtf8(out, byte < 0x80 ? byte : table[byte - 0x80U]);
        }
    }
    return out;
}

std::string Transcoder::utf8Page(std::string_view page) const {
    std::string out = utf8(page);
    if (startsWith(out, "\xEF\xBB\xBF") &&
        (form == Form::utf8 || form == Form::utf16be || form == Form::utf16le)) {
        out.erase(0, 3);
    }
    return out;
}

} // namespace program
