// SPDX-License-Identifier: MIT
#include "url/ip_address.h"

#include <algorithm>

#include "text/digits.h"

namespace pageslice::url_parts {
namespace {

using std::size_t;
using std::string_view;

char* write_number(unsigned number, unsigned base, char* out) noexcept {
    char digits[5] = {}; // "65535"
    size_t n = 0;
    do {
        digits[n++] = "0123456789abcdef"[number % base];
        number /= base;
    } while (number != 0);
    return std::reverse_copy(digits, digits + n, out);
}

// ---- IPv4

constexpr std::uint64_t TOO_LARGE = std::uint64_t{1} << 32;

// One of the numbers between the dots; TOO_LARGE stands for all that is no address's. False for what is no
// number. "0x" is 0.
bool parse_ipv4_number(string_view in, std::uint64_t& number) noexcept {
    if (in.empty()) {
        return false;
    }
    unsigned base = 10;
    if (in.size() >= 2 && in[0] == '0') {
        base = nFoldAscii(in[1]) == 'x' ? 16 : 8;
        in.remove_prefix(base == 16 ? 2 : 1);
    }
    number = 0;
    for (const char c : in) {
        const unsigned digit = digit_value(c);
        if (digit >= base) {
            return false;
        }
        number = std::min(number * base + digit, TOO_LARGE);
    }
    return true;
}

string_view without_last_dot(string_view domain) noexcept {
    return !domain.empty() && domain.back() == '.' ? domain.substr(0, domain.size() - 1) : domain;
}

} // namespace

bool ends_in_number(string_view domain) noexcept {
    domain = without_last_dot(domain);
    const size_t dot = domain.rfind('.');
    const string_view last = dot == string_view::npos ? domain : domain.substr(dot + 1);
    std::uint64_t number = 0;
    return (!last.empty() && std::all_of(last.begin(), last.end(), is_digit)) ||
           parse_ipv4_number(last, number);
}

bool parse_ipv4(string_view in, std::uint32_t& address) noexcept {
    in = without_last_dot(in);
    std::uint64_t value = 0;
    for (unsigned shift = 24;; shift -= 8) {
        const size_t dot = in.find('.');
        std::uint64_t number = 0;
        if (!parse_ipv4_number(in.substr(0, dot), number)) {
            return false;
        }
        if (dot == string_view::npos) {
            value |= number;
            address = static_cast<std::uint32_t>(value & 0xFFFFFFFF);
            return number >> (shift + 8) == 0;
        }
        if (number > 255 || shift == 0) {
            return false;
        }
        value |= number << shift;
        in.remove_prefix(dot + 1);
    }
}

char* write_ipv4(std::uint32_t address, char* out) noexcept {
    for (unsigned shift = 24;; shift -= 8) {
        out = write_number(address >> shift & 0xFF, 10, out);
        if (shift == 0) {
            return out;
        }
        *out++ = '.';
    }
}

// ---- IPv6

namespace {

constexpr size_t NO_PIECE = 8;

class ipv6_parser {
public:
    ipv6_parser(string_view in, ipv6_address& address) noexcept : m_in(in), m_address(address) {}

    bool parse() noexcept {
        m_address = {};
        if (at(':')) {
            if (m_in.substr(0, 2) != "::") {
                return false;
            }
            m_in.remove_prefix(1); // what read_piece() takes for the "::" is the second ':'
        }
        while (!m_in.empty()) {
            if (m_count == NO_PIECE || !read_piece()) {
                return false;
            }
        }
        return spread();
    }

private:
    bool at(char c) const noexcept { return !m_in.empty() && m_in.front() == c; }

    // A number and the ':' after it, the ':' that makes "::", or an IPv4 address.
    bool read_piece() noexcept {
        if (at(':')) {
            return read_gap();
        }
        size_t digits = 0;
        unsigned value = 0;
        for (; digits < 4 && digits < m_in.size() && digit_value(m_in[digits]) != NO_DIGIT; ++digits) {
            value = value * 16 + digit_value(m_in[digits]);
        }
        if (digits < m_in.size() && m_in[digits] == '.') {
            return digits > 0 && read_ipv4();
        }
        m_in.remove_prefix(digits);
        m_address[m_count++] = static_cast<std::uint16_t>(value);
        if (m_in.empty()) {
            return true;
        }
        const bool more = at(':') && m_in.size() > 1;
        m_in.remove_prefix(1);
        return more;
    }

    bool read_gap() noexcept {
        if (m_gap != NO_PIECE) {
            return false;
        }
        m_in.remove_prefix(1);
        m_gap = ++m_count; // the gap is one piece at least
        return true;
    }

    // Four decimal numbers without leading zeros, which fill the last two pieces.
    bool read_ipv4() noexcept {
        if (m_count + 2 > NO_PIECE) {
            return false;
        }
        for (unsigned i = 0; i < 4; ++i) {
            unsigned number = 0;
            if ((i > 0 && !skip_dot()) || !read_byte(number)) {
                return false;
            }
            std::uint16_t& piece = m_address[m_count + i / 2];
            piece = static_cast<std::uint16_t>(piece * 256U + number);
        }
        m_count += 2;
        return m_in.empty();
    }

    bool skip_dot() noexcept {
        const bool dot = at('.');
        m_in.remove_prefix(dot ? 1 : 0);
        return dot;
    }

    bool read_byte(unsigned& number) noexcept {
        size_t digits = 0;
        for (; digits < m_in.size() && is_digit(m_in[digits]) && number <= 255; ++digits) {
            number = number * 10 + digit_value(m_in[digits]);
        }
        const bool valid = digits > 0 && number <= 255 && (m_in[0] != '0' || digits == 1);
        m_in.remove_prefix(digits);
        return valid;
    }

    // Moves what stands after the gap to the end.
    bool spread() noexcept {
        if (m_gap == NO_PIECE) {
            return m_count == NO_PIECE;
        }
        const auto gap = m_address.begin() + static_cast<std::ptrdiff_t>(m_gap);
        const auto end = m_address.begin() + static_cast<std::ptrdiff_t>(m_count);
        std::rotate(gap, end, m_address.end());
        return true;
    }

    string_view m_in;
    ipv6_address& m_address;
    size_t m_count = 0;
    size_t m_gap = NO_PIECE; // the first piece after the "::"; without one, or with none after it, NO_PIECE
};

// The first of the longest runs of zeros, of two at least; its size is 0 when there is none.
struct zero_run {
    size_t first = 0;
    size_t size = 0;

    explicit zero_run(const ipv6_address& address) noexcept {
        for (size_t i = 0, zeros = 0; i < address.size(); ++i) {
            zeros = address[i] == 0 ? zeros + 1 : 0;
            if (zeros > std::max<size_t>(size, 1)) {
                size = zeros;
                first = i + 1 - zeros;
            }
        }
    }
};

} // namespace

bool parse_ipv6(string_view in, ipv6_address& address) noexcept {
    return ipv6_parser(in, address).parse();
}

char* write_ipv6(const ipv6_address& address, char* out) noexcept {
    const zero_run zeros(address);
    for (size_t i = 0; i < address.size(); ++i) {
        if (zeros.size > 0 && i == zeros.first) {
            *out++ = ':';
            *out++ = ':';
            i += zeros.size - 1;
            continue;
        }
        const bool after_number = i > 0 && (zeros.size == 0 || i != zeros.first + zeros.size);
        if (after_number) {
            *out++ = ':';
        }
        out = write_number(address[i], 16, out);
    }
    return out;
}

} // namespace pageslice::url_parts
