// SPDX-License-Identifier: MIT
#include "request.h"

#include <array>
#include <charconv>
#include <cstddef>

#include "display.h"
#include "failure.h"
#include "runs.h"

namespace program {
namespace {

// Longer ones name no page, and would be repeated before each of many links.
constexpr std::size_t LONGEST_SCALAR = 8192;

constexpr char32_t UNKNOWN = 0xFFFD;

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isHigh(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool isLow(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

class Reader {
public:
    Reader(const Bytes& read, Request& request)
        : line(read), p(read.data()), pEnd(read.data() + read.size()), found(request) {}

    void read() {
        skipSpace();
        if (p == pEnd) {
            throw Failure{"Empty"};
        }
        if (*p != '{') {
            throw Failure{"Not a JSON object"};
        }
        ++p;
        for (bool first = true; !closes(first); first = false) {
            member();
        }
        skipSpace();
        if (p != pEnd) {
            fail();
        }
        if (found.html.data() == nullptr) {
            throw Failure{"Its \"html\" is missing"};
        }
    }

private:
    [[noreturn]] void fail() const {
        std::array<char, 24> digits;
        const auto at = p - line.data() + 1;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), at);
        const std::string_view number(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()));
        throw Failure{"Not JSON from byte ", number, " on"};
    }

    std::size_t left() const { return static_cast<std::size_t>(pEnd - p); }
    std::string_view rest() const { return {p, left()}; }

    void skipSpace() {
        while (p != pEnd && isSpace(*p)) {
            ++p;
        }
    }

    char peek() {
        skipSpace();
        if (p == pEnd) {
            fail();
        }
        return *p;
    }

    void expect(char c) {
        if (peek() != c) {
            fail();
        }
        ++p;
    }

    // Whether the object ends here; if not, its next member begins.
    bool closes(bool first) {
        if (peek() == '}') {
            ++p;
            return true;
        }
        if (!first) {
            expect(',');
        }
        return false;
    }

    void member() {
        expect('"');
        const std::string_view name = string();
        expect(':');
        const char start = peek();
        if (name == "html") {
            found.html = stringOf(start, "Its \"html\" is not a string");
        } else if (name == "url") {
            url(start);
        } else if (name == "id") {
            id(start);
        } else {
            skipValue(start);
        }
    }

    std::string_view stringOf(char start, const char* pComplaint) {
        if (start != '"') {
            throw Failure{pComplaint};
        }
        ++p;
        return string();
    }

    void url(char start) {
        if (start == 'n') {
            word("null");
            found.url = {};
            return;
        }
        found.url = stringOf(start, "Its \"url\" is not a string");
        if (found.url.size() > LONGEST_SCALAR) {
            throw Failure{"Its \"url\" is longer than 8 KiB"};
        }
    }

    void id(char start) {
        const char* const pStart = p;
        switch (start) {
        case '{':
        case '[': throw Failure{"Its \"id\" is neither text nor number"};
        case '"': skipQuoted(); break;
        case 't': word("true"); break;
        case 'f': word("false"); break;
        case 'n': word("null"); break;
        default: number();
        }
        found.id = {pStart, static_cast<std::size_t>(p - pStart)};
        if (found.id.size() > LONGEST_SCALAR) {
            throw Failure{"Its \"id\" is longer than 8 KiB"};
        }
    }

    void word(std::string_view wanted) {
        if (rest().substr(0, wanted.size()) != wanted) {
            fail();
        }
        p += wanted.size();
    }

    void digits() {
        if (p == pEnd || !isDigit(*p)) {
            fail();
        }
        while (p != pEnd && isDigit(*p)) {
            ++p;
        }
    }

    bool skip(std::string_view oneOf) {
        const bool stands = p != pEnd && oneOf.find(*p) != std::string_view::npos;
        p += stands ? 1 : 0;
        return stands;
    }

    void number() {
        skip("-");
        if (!skip("0")) {
            digits();
        }
        if (skip(".")) {
            digits();
        }
        if (skip("eE")) {
            skip("+-");
            digits();
        }
    }

    // Passes over a string that is handed through: it has to be right, for the answer shall be JSON.
    void skipQuoted() {
        for (++p;;) {
            p += quotedRun(rest());
            if (p == pEnd || static_cast<unsigned char>(*p) < 0x20) {
                fail();
            }
            if (*p == '"') {
                ++p;
                return;
            }
            escaped();
        }
    }

    // Any value, however deep: only the number of its open brackets is kept.
    void skipValue(char start) {
        std::size_t depth = 0;
        if (start == ',' || start == '}' || start == ']' || start == ':') {
            fail();
        }
        do {
            const char c = peek();
            if (c == '"') {
                skipString();
                continue;
            }
            const bool ends = c == ']' || c == '}' || c == ',';
            if (ends && depth == 0) {
                return;
            }
            depth += c == '[' || c == '{' ? 1U : 0U;
            depth -= c == ']' || c == '}' ? 1U : 0U;
            ++p;
        } while (depth > 0 || !endsValue());
    }

    bool endsValue() {
        const char c = peek();
        return c == ',' || c == '}';
    }

    void skipString() {
        for (++p;;) {
            p += quotedRun(rest());
            if (p == pEnd) {
                fail();
            }
            const char c = *p++;
            if (c == '"') {
                return;
            }
            if (c == '\\' && p != pEnd) {
                ++p;
            }
        }
    }

    // Decodes the string that p stands in, in place.
    std::string_view string() {
        char* const pStart = p;
        char* pOut = p;
        for (;;) {
            pOut = moveRun(pOut);
            if (p == pEnd || static_cast<unsigned char>(*p) < 0x20) {
                fail();
            }
            if (*p == '"') {
                ++p;
                return {pStart, static_cast<std::size_t>(pOut - pStart)};
            }
            pOut = put(pOut, escaped());
        }
    }

    // Moves what stands for itself from p to pOut, which is not behind it, in the pass that finds its end.
    char* moveRun(char* pOut) {
        while (left() >= Block::SIZE) {
            const Block block(p);
            const Block::Marks marks = quotedMarks(block);
            const std::size_t run = marks == 0 ? Block::SIZE : Block::first(marks);
            if (marks == 0 || static_cast<std::size_t>(p - pOut) >= Block::SIZE) {
                block.store(pOut); // what is too much of it is written over
            } else {
                std::memmove(pOut, p, run);
            }
            p += run;
            pOut += run;
            if (marks != 0) {
                return pOut;
            }
        }
        const std::size_t run = quotedRun(rest());
        std::memmove(pOut, p, run);
        p += run;
        return pOut + run;
    }

    static char* put(char* pOut, char32_t c) {
        if (c < 0x80) {
            *pOut = static_cast<char>(c);
            return pOut + 1;
        }
        std::string utf8; // short enough to need no memory of its own
        appendUtf8(utf8, c);
        return pOut + utf8.copy(pOut, utf8.size());
    }

    // The character that an escape at p stands for; half of a pair alone stands for none.
    char32_t escaped() {
        ++p;
        if (p == pEnd) {
            fail();
        }
        switch (*p++) {
        case 'b': return '\b';
        case 'f': return '\f';
        case 'n': return '\n';
        case 'r': return '\r';
        case 't': return '\t';
        case '"': return '"';
        case '\\': return '\\';
        case '/': return '/';
        case 'u': return unicode();
        default: --p; fail();
        }
    }

    char32_t unicode() {
        const char32_t unit = fourDigits();
        if (isHigh(unit) && rest().substr(0, 2) == "\\u") {
            char* const pSecond = p;
            p += 2;
            const char32_t second = fourDigits();
            if (isLow(second)) {
                return 0x10000 + ((unit - 0xD800) << 10U) + (second - 0xDC00);
            }
            p = pSecond; // stands for itself
        }
        const bool isBroken = isHigh(unit) || isLow(unit);
        found.isRepaired = found.isRepaired || isBroken;
        return isBroken ? UNKNOWN : unit;
    }

    char32_t fourDigits() {
        unsigned unit = 0;
        const std::string_view hex = rest().substr(0, 4);
        const auto end = std::from_chars(hex.data(), hex.data() + hex.size(), unit, 16);
        if (hex.size() < 4 || end.ptr != hex.data() + 4) {
            fail();
        }
        p += 4;
        return unit;
    }

    const Bytes& line;
    char* p;
    char* pEnd;
    Request& found;
};

// How many bytes are UTF-8 from the first on.
std::size_t soundRun(std::string_view bytes) {
    std::size_t run = 0;
    for (;;) {
        run += asciiRun(bytes.substr(run));
        if (run == bytes.size()) {
            return run;
        }
        const Decoded decoded = decodeUtf8(bytes.substr(run));
        if (!decoded.valid) {
            return run;
        }
        run += decoded.size;
    }
}

void repair(std::string_view bytes, Bytes& repaired) {
    for (std::size_t run = soundRun(bytes); run < bytes.size(); run = soundRun(bytes)) {
        repaired.append(bytes.substr(0, run));
        repaired.append("\xEF\xBF\xBD");
        bytes.remove_prefix(run + brokenSize(bytes.substr(run)));
    }
    repaired.append(bytes);
}

} // namespace

void readRequest(Bytes& line, Bytes& repaired, Request& request) {
    request = {};
    repaired.clear();
    Reader(line, request).read();
    const auto isSound = [](std::string_view bytes) { return soundRun(bytes) == bytes.size(); };
    if (!isSound(request.url) || !isSound(request.html)) {
        request.isRepaired = true;
        repair(request.url, repaired);
        const std::size_t urlSize = repaired.size();
        repair(request.html, repaired);
        request.url = repaired.view().substr(0, urlSize);
        request.html = repaired.view().substr(urlSize);
    }
}

} // namespace program
