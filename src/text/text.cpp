// SPDX-License-Identifier: MIT
#include "pageslice/text.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "text/byte_count.h"
#include "text/string_utils.h"
#include "text/word_table.h"

inline namespace pageslice_v1 {

using namespace pageslice;

namespace {

// What closes a word when it is looked up, so that NULs after it do not pass for the zeros after a shorter
// one.
constexpr char ALIGN_MARK = '=';

constexpr auto MakeAlignWords() noexcept {
    Keywords<6> words;
    words.Add("top", ALIGN_MARK, ALIGN_TOP);
    words.Add("middle", ALIGN_MARK, ALIGN_MIDDLE);
    words.Add("bottom", ALIGN_MARK, ALIGN_BOTTOM);
    words.Add("left", ALIGN_MARK, ALIGN_LEFT);
    words.Add("right", ALIGN_MARK, ALIGN_RIGHT);
    words.Add("center", ALIGN_MARK, ALIGN_CENTER);
    return words;
}
constexpr WordTable<4> ALIGN_TABLE(MakeAlignWords());

std::uintptr_t nAddress(const char* p) noexcept {
    return reinterpret_cast<std::uintptr_t>(p);
}

} // namespace

text::text() noexcept : m_bNullTerminated(0), m_pStart(nullptr), m_pEnd(nullptr) {}

text::text(const char* s) noexcept : text() {
    if (s != nullptr) {
        Set(s, s + std::strlen(s) - 1, 1);
    }
}

text::text(const char* pStart, const char* pEnd, int bNullTerminated) noexcept
    : m_bNullTerminated(bNullTerminated), m_pStart(pStart), m_pEnd(pEnd) {}

text::text(const text& t) noexcept = default;

text& text::operator=(const text& t) noexcept = default;

void text::Set(const char* pStart, const char* pEnd, int bNullTerminated) noexcept {
    m_bNullTerminated = bNullTerminated;
    m_pStart = pStart;
    m_pEnd = pEnd;
}

void text::Set(const text& t) noexcept {
    Set(t.m_pStart, t.m_pEnd, t.m_bNullTerminated);
}

void text::Clear() noexcept {
    Set(nullptr, nullptr, 0);
}

int text::IsEmpty() const noexcept {
    return m_pStart == nullptr ? 1 : 0;
}

int text::GetLength() const noexcept {
    // Addresses rather than pointers: the ends of a wrong slice need not belong to one array.
    const auto nLength = static_cast<std::intptr_t>(nAddress(m_pEnd) - nAddress(m_pStart) + 1);
    return static_cast<int>(std::clamp<std::intptr_t>(nLength, INT_MIN, INT_MAX));
}

int text::bIsNullTerminated() const noexcept {
    return m_bNullTerminated;
}

int text::Surrounds(const text& t) const noexcept {
    return nAddress(m_pStart) <= nAddress(t.m_pStart) && nAddress(m_pEnd) >= nAddress(t.m_pEnd) ? 1 : 0;
}

int text::IsAlphabetic(char c) const noexcept {
    return bIsAsciiLetter(c) ? 1 : 0;
}

int text::IsAlphabetic() const noexcept {
    const std::size_t n = nByteCount(*this);
    return std::all_of(m_pStart, m_pStart + n, bIsAsciiLetter) ? 1 : 0;
}

int text::nNumWords() const noexcept {
    const std::size_t n = nByteCount(*this);
    int nWords = 0;
    bool bInWord = false;
    for (std::size_t i = 0; i < n; ++i) {
        const bool bLetter = bIsAsciiLetter(m_pStart[i]);
        nWords += bLetter && !bInWord && nWords < INT_MAX ? 1 : 0;
        bInWord = bLetter;
    }
    return nWords;
}

int text::strncmp(const text& t) const noexcept {
    const std::size_t a = nByteCount(*this);
    const std::size_t b = nByteCount(t);
    const std::size_t n = std::min(a, b);
    const int r = n == 0 ? 0 : std::strncmp(m_pStart, t.m_pStart, n);
    if (a == b || r != 0) {
        return r;
    }
    return a < b ? 1 : -1;
}

int text::operator==(const text& t) const noexcept {
    return strncmp(t) == 0 ? 1 : 0;
}

int text::operator==(const char* s) const noexcept {
    return *this == text(s);
}

int text::operator==(char c) const noexcept {
    return m_pStart != nullptr && m_pStart == m_pEnd && *m_pStart == c ? 1 : 0;
}

int text::operator<(const text& t) const noexcept {
    return strncmp(t) < 0 ? 1 : 0;
}

char* text::pMakeCopy() const {
    if (IsEmpty() != 0) {
        return nullptr;
    }
    const std::size_t n = nByteCount(*this);
    char* const pCopy = new char[n + 1];
    std::strncpy(pCopy, m_pStart, n); // a NUL inside the slice ends the copy, zeros fill the rest
    pCopy[n] = '\0';
    return pCopy;
}

align text::ConvertToAlign() const noexcept {
    const std::size_t n = nByteCount(*this);
    if (n >= WORD_SIZE) {
        return ALIGN_UNKNOWN;
    }
    const std::uint64_t nWord = nLoadWord(m_pStart, n) | std::uint64_t{ALIGN_MARK} << (8 * n);
    return static_cast<align>(ALIGN_TABLE.nFind(nWord, ALIGN_UNKNOWN));
}

int text::ConvertToInt() const noexcept {
    return m_pStart == nullptr ? 0 : nParseDecimal(m_pStart, SIZE_MAX);
}

void text::PrintDebug() const {
    std::printf("m_pStart = %d", static_cast<int>(nAddress(m_pStart)));
    std::printf(" m_pEnd = %d\n", static_cast<int>(nAddress(m_pEnd)));
}

} // namespace pageslice_v1
