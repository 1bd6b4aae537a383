// SPDX-License-Identifier: MIT
#include "json_writer.h"

#include <array>
#include <optional>

#include "display.h"
#include "runs.h"

namespace program {
namespace {

constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

std::string_view shortEscape(char c) {
    switch (c) {
    case '"': return "\\\"";
    case '\\': return "\\\\";
    case '\b': return "\\b";
    case '\f': return "\\f";
    case '\n': return "\\n";
    case '\r': return "\\r";
    case '\t': return "\\t";
    default: return {};
    }
}

// What stands for one character that cannot stand for itself.
class Escaped {
public:
    explicit Escaped(const Decoded& decoded) {
        constexpr std::string_view HEX = "0123456789abcdef";
        const char32_t c = decoded.character;
        for (unsigned i = 0; i < 4; ++i) {
            unicode[2 + i] = HEX[(c >> (12 - 4 * i)) & 0xFU];
        }
        const std::string_view brief = c < 0x80 ? shortEscape(static_cast<char>(c)) : std::string_view();
        shown = !decoded.valid  ? REPLACEMENT
                : brief.empty() ? std::string_view(unicode.data(), unicode.size())
                                : brief;
    }
    Escaped(const Escaped&) = delete;
    Escaped& operator=(const Escaped&) = delete;
    std::string_view view() const { return shown; }

private:
    std::array<char, 6> unicode = {'\\', 'u'};
    std::string_view shown;
};

std::size_t takenBy(const Decoded& decoded, std::string_view bytes) {
    return decoded.valid ? decoded.size : brokenSize(bytes);
}

// The length of UTF-8 that was cut somewhere, without the character that the cut went through.
std::size_t wholeCharacters(std::string_view cut) {
    std::size_t size = cut.size();
    std::size_t inside = 0;
    while (size > 0 && inside < 3 && (static_cast<unsigned char>(cut[size - 1]) & 0xC0U) == 0x80) {
        --size;
        ++inside;
    }
    const bool ends = size == 0 || static_cast<unsigned char>(cut[size - 1]) < 0x80;
    return ends ? size : size - 1;
}

} // namespace

void JsonWriter::comma() {
    if (!isFirst) {
        out.put(',');
    }
    isFirst = false;
}

void JsonWriter::open(char bracket) {
    out.put(bracket);
    closing[depth++] = bracket == '{' ? '}' : ']';
    isFirst = true;
}

void JsonWriter::close() {
    out.put(closing[--depth]);
    isFirst = false;
}

void JsonWriter::closeTo(std::size_t brackets) {
    while (depth > brackets) {
        close();
    }
}

void JsonWriter::name(std::string_view name) {
    comma();
    out.put('"');
    out.put(name);
    out.put("\":");
}

void JsonWriter::element() {
    comma();
}

bool JsonWriter::string(std::string_view bytes, std::size_t most) {
    out.put('"');
    std::size_t left = most < 2 ? 0 : most - 2;
    while (!bytes.empty()) {
        const std::size_t run = runAsItIs(bytes);
        const std::size_t taken = run <= left ? run : wholeCharacters(bytes.substr(0, left));
        out.put(bytes.substr(0, taken));
        bytes.remove_prefix(taken);
        left -= taken;
        if (taken < run || bytes.empty() || !putEscaped(bytes, left)) {
            break;
        }
    }
    out.put('"');
    return bytes.empty();
}

bool JsonWriter::putEscaped(std::string_view& bytes, std::size_t& left) {
    std::string_view shown = shortEscape(bytes.front());
    std::size_t taken = 1;
    std::optional<Escaped> escaped;
    if (shown.empty()) {
        const Decoded decoded = decodeUtf8(bytes);
        taken = takenBy(decoded, bytes);
        shown = escaped.emplace(decoded).view();
    }
    const bool fits = shown.size() <= left;
    if (fits) {
        out.put(shown);
        bytes.remove_prefix(taken);
        left -= shown.size();
    }
    return fits;
}

void JsonWriter::copied(std::string_view json) {
    while (!json.empty()) {
        const Decoded decoded = decodeUtf8(json);
        const std::size_t taken = takenBy(decoded, json);
        const bool stands = decoded.valid && (decoded.character < 0x7F || !isEscaped(decoded.character));
        out.put(stands ? json.substr(0, taken) : Escaped(decoded).view());
        json.remove_prefix(taken);
    }
}

std::size_t JsonWriter::runAsItIs(std::string_view bytes) const {
    std::size_t run = 0;
    for (;;) {
        run += plainRun(bytes.substr(run));
        if (run == bytes.size()) {
            return run;
        }
        const auto next = static_cast<unsigned char>(bytes[run]);
        if (next < 0x7F) {
            return run;
        }
        const Decoded decoded = decodeUtf8(bytes.substr(run));
        if (!decoded.valid || isEscaped(decoded.character)) {
            return run;
        }
        run += decoded.size;
    }
}

bool JsonWriter::isEscaped(char32_t c) const {
    return c < 0x20 || c == '"' || c == '\\' || (careful && isUnseen(c));
}

} // namespace program
