// SPDX-License-Identifier: MIT
#include "text/string_utils.h"

#include <climits>
#include <cstdio>
#include <cstring>
#include <memory>

#include "pageslice/text.h"

inline namespace pageslice_v1 {

namespace {

std::size_t nLengthOf(const char* s) noexcept {
    return s == nullptr ? 0 : std::strlen(s);
}

// The white space that precedes a number: what isspace knows in the C locale.
bool bIsNumberSpace(char c) noexcept {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

} // namespace

int nStrNICmp(const char* a, const char* b, unsigned n) noexcept {
    a = a == nullptr ? "" : a;
    b = b == nullptr ? "" : b;
    for (unsigned i = 0; i < n; ++i) {
        const auto x = static_cast<unsigned char>(nFoldAscii(a[i]));
        const auto y = static_cast<unsigned char>(nFoldAscii(b[i]));
        if (x != y || x == 0) {
            return x - y;
        }
    }
    return 0;
}

int nStrNCmp(const char* a, const char* b, unsigned n) noexcept {
    return std::strncmp(a == nullptr ? "" : a, b == nullptr ? "" : b, n);
}

int bIsSeparator(char c) noexcept {
    return c == '.' || c == '/' || bIsWhiteSpace(c) != 0 ? 1 : 0;
}

int nCountWords(const char* s) noexcept {
    return nLengthOf(s) == 0 ? 0 : text(s).nNumWords();
}

void SetLastChar(char* s, char c) noexcept {
    if (const std::size_t n = nLengthOf(s); n > 0) {
        s[n - 1] = c;
    }
}

void RemoveLastChar(char* s) noexcept {
    SetLastChar(s, '\0');
}

void TruncateAt(char* s, unsigned n) noexcept {
    if (n < nLengthOf(s)) {
        s[n] = '\0';
    }
}

char GetLastChar(const char* s) noexcept {
    const std::size_t n = nLengthOf(s);
    return n == 0 ? '\0' : s[n - 1];
}

void ReplaceChar(char* s, char from, char to) noexcept {
    const std::size_t n = nLengthOf(s);
    for (std::size_t i = 0; i < n; ++i) {
        if (s[i] == from) {
            s[i] = to;
        }
    }
}

char* pFormatNumber(int n, char* buf) {
    constexpr unsigned GROUP = 1000;
    constexpr std::size_t LONGEST = sizeof "-2,147,483,648";
    // The magnitude as unsigned, so that the most negative int has one too.
    const unsigned m = n < 0 ? 0U - static_cast<unsigned>(n) : static_cast<unsigned>(n);
    const unsigned g0 = m % GROUP;
    const unsigned g1 = m / GROUP % GROUP;
    const unsigned g2 = m / GROUP / GROUP % GROUP;
    const unsigned g3 = m / GROUP / GROUP / GROUP;
    char number[LONGEST];
    int nLength = 0;
    if (g3 != 0) {
        nLength = std::snprintf(number, LONGEST, "%u,%3u,%3u,%3u", g3, g2, g1, g0);
    } else if (g2 != 0) {
        nLength = std::snprintf(number, LONGEST, "%u,%3u,%3u", g2, g1, g0);
    } else if (g1 != 0) {
        nLength = std::snprintf(number, LONGEST, "%u,%3u", g1, g0);
    } else {
        nLength = std::snprintf(number, LONGEST, "%u", g0);
    }
    ReplaceChar(number, ' ', '0');

    const auto nSize = static_cast<std::size_t>(nLength) + 1;
    if (n >= 0) {
        char* const pResult = buf != nullptr ? buf : new char[nSize];
        std::memcpy(pResult, number, nSize);
        return pResult;
    }
    char* const pResult = new char[nSize + 1];
    pResult[0] = '-';
    std::memcpy(pResult + 1, number, nSize);
    delete[] buf;
    return pResult;
}

int bAppendWords(char* s, int nLimit, const char* word, int count) noexcept {
    if (count == 0 || s == nullptr) {
        return 1;
    }
    const char* const pWord = word == nullptr ? "" : word;
    const std::size_t nWord = std::strlen(pWord);
    std::size_t nLength = std::strlen(s);
    for (int i = 0; i < count; ++i) {
        if (nLimit < 0 || nLength + 1 + nWord > static_cast<std::size_t>(nLimit)) {
            return 0;
        }
        s[nLength] = ' ';
        std::memcpy(s + nLength + 1, pWord, nWord);
        nLength += 1 + nWord;
        s[nLength] = '\0';
    }
    s[nLength] = ' ';
    s[nLength + 1] = '\0';
    return 1;
}

int bSplitWords(char* dst, const char* src, const char* prefix) {
    if (dst == nullptr) {
        return 1;
    }
    std::unique_ptr<char[]> pCopy;
    const std::size_t nSource = nLengthOf(src);
    if (dst == src && src != nullptr) {
        pCopy.reset(new char[nSource + 1]);
        std::memcpy(pCopy.get(), src, nSource + 1);
        src = pCopy.get();
    }
    const std::size_t nPrefix = nLengthOf(prefix);
    bool bAfterSeparator = false;
    for (std::size_t i = 0; i < nSource; ++i) {
        const bool bSeparator = bIsSeparator(src[i]) != 0;
        if (bAfterSeparator && !bSeparator && nPrefix > 0) {
            std::memcpy(dst, prefix, nPrefix);
            dst += nPrefix;
        }
        *dst++ = bSeparator ? ' ' : src[i];
        bAfterSeparator = bSeparator;
    }
    *dst = '\0';
    return 1;
}

const char* pSkipScheme(const char* url) noexcept {
    static constexpr char MARK[] = "://";
    const char* const pMark = url == nullptr ? nullptr : std::strstr(url, MARK);
    return pMark == nullptr ? url : pMark + sizeof MARK - 1;
}

int nNumHostLevels(const char* url) noexcept {
    int nLevels = 1;
    for (const char* p = pSkipScheme(url); p != nullptr && *p != '\0' && *p != '/'; ++p) {
        nLevels += *p == '.' && nLevels < INT_MAX ? 1 : 0;
    }
    return nLevels;
}

int nParseDecimal(const char* p, std::size_t nMax) noexcept {
    std::size_t i = 0;
    while (i < nMax && bIsNumberSpace(p[i])) {
        ++i;
    }
    const bool bNegative = i < nMax && p[i] == '-';
    if (i < nMax && (p[i] == '-' || p[i] == '+')) {
        ++i;
    }
    // Counted down, because the most negative int has no positive partner.
    long long n = 0;
    for (; i < nMax && p[i] >= '0' && p[i] <= '9'; ++i) {
        n = n * 10 - (p[i] - '0');
        if (n < INT_MIN) {
            n = INT_MIN;
        }
    }
    if (bNegative) {
        return static_cast<int>(n);
    }
    return n == INT_MIN ? INT_MAX : static_cast<int>(-n);
}

} // namespace pageslice_v1
