// SPDX-License-Identifier: MIT
// Keyword look-up by arithmetic: a word of up to eight characters is one number, and a table answers with
// one multiplication and one comparison.
#ifndef PAGESLICE_TEXT_WORD_TABLE_H
#define PAGESLICE_TEXT_WORD_TABLE_H

#include <cstddef>
#include <cstdint>

#include "platform/bits.h"

namespace pageslice {

constexpr std::size_t WORD_SIZE = 8;
constexpr std::uint64_t WORD_EACH_BYTE = 0x0101010101010101;
constexpr std::uint64_t WORD_LETTER_BITS = WORD_EACH_BYTE * 0x40; // set in every ASCII letter

// The first n bytes at p, at most eight of them; the first in the lowest bits, zeros after the last.
inline std::uint64_t nLoadWord(const char* p, std::size_t n) noexcept {
    const auto nByte = [p](std::size_t i) {
        return std::uint64_t{static_cast<unsigned char>(p[i])} << (8 * i);
    };
    if (n >= WORD_SIZE) {
        // Written so that compilers make one load of it.
        return nByte(0) | nByte(1) | nByte(2) | nByte(3) | nByte(4) | nByte(5) | nByte(6) | nByte(7);
    }
    std::uint64_t nWord = 0;
    for (std::size_t i = 0; i < n; ++i) {
        nWord |= nByte(i);
    }
    return nWord;
}

// The first n bytes of a word, n below eight.
constexpr std::uint64_t nFirstBytes(std::uint64_t nWord, std::size_t n) noexcept {
    return nWord & ((std::uint64_t{1} << (8 * n)) - 1);
}

// The bytes of a word up to and including the first that has not the letters' bit, neither itself nor in
// nLetters.
constexpr std::uint64_t nUpToNoLetter(std::uint64_t nWord, std::uint64_t nLetters = 0) noexcept {
    const std::uint64_t nEnds = ~(nWord | nLetters) & WORD_LETTER_BITS;
    const std::uint64_t nUpToEnd = nEnds ^ (nEnds - 1); // but for that byte's highest bit
    return nWord & (nUpToEnd << 1 | 1);
}

// How many bytes stand before the first that has not the letters' bit; at most seven, which may be too few.
inline std::size_t nCountLetters(std::uint64_t nWord) noexcept {
    return nLowestBitOrAny(~nWord & WORD_LETTER_BITS) / 8;
}

constexpr std::size_t nWordLength(const char* pWord) noexcept {
    std::size_t n = 0;
    while (pWord[n] != '\0') {
        ++n;
    }
    return n;
}

// Keywords of small letters and their codes. They may begin and end in a character without the letters' bit.
template <std::size_t MOST>
class Keywords {
public:
    constexpr void Add(const char* pWord, char cEnd, int nCode) noexcept { Add('\0', pWord, cEnd, nCode); }
    // With a character before the word; NUL for none.
    constexpr void Add(char cBefore, const char* pWord, char cEnd, int nCode) noexcept {
        Keyword keyword{0, nCode};
        std::size_t n = 0;
        if (cBefore != '\0') {
            keyword.Put(cBefore, n++);
        }
        for (; *pWord != '\0'; ++pWord) {
            keyword.Put(*pWord, n++);
        }
        keyword.Put(cEnd, n);
        m_keywords[m_nCount++] = keyword;
    }

    struct Keyword {
        constexpr void Put(char c, std::size_t i) noexcept {
            nWord |= std::uint64_t{static_cast<unsigned char>(c)} << (8 * i);
        }

        std::uint64_t nWord = 0;
        int nCode = 0;
    };
    constexpr const Keyword* begin() const noexcept { return m_keywords; }
    constexpr const Keyword* end() const noexcept { return m_keywords + m_nCount; }

private:
    Keyword m_keywords[MOST] = {};
    std::size_t m_nCount = 0;
};

// Finds the code of a keyword, whatever the word's case.
template <unsigned SLOT_BITS>
class WordTable {
public:
    template <std::size_t MOST>
    constexpr explicit WordTable(const Keywords<MOST>& keywords) noexcept {
        // Multipliers are tried until no two keywords share a slot.
        for (m_nMultiplier = 0x9E3779B97F4A7C15; !bFill(keywords); m_nMultiplier += 0x2545F4914F6CDD1E) {
        }
    }

    // The code of a word padded with zeros; nUnknown when it is no keyword. Zeros at the word's own end look
    // like padding: a caller whose words may have them closes words and keywords by a mark.
    constexpr int nFind(std::uint64_t nWord, int nUnknown) const noexcept {
        int nCode = 0;
        return bFind(nWord, nCode) ? nCode : nUnknown;
    }

    // Whether a word is a keyword, and its code; any code when it is none.
    constexpr bool bFind(std::uint64_t nWord, int& nCode) const noexcept {
        // The bit that makes a capital small. Of what it changes, only capitals become letters.
        const std::uint64_t nFolded = nWord | (nWord & WORD_LETTER_BITS) >> 1;
        const Slot& slot = m_slots[nSlotOf(nFolded)];
        nCode = slot.nCode;
        return slot.nWord == nFolded;
    }

private:
    struct Slot {
        std::uint64_t nWord = 0;
        int nCode = 0;
    };
    static constexpr std::uint64_t NO_WORD = '@'; // made small, it is another

    constexpr std::size_t nSlotOf(std::uint64_t nWord) const noexcept {
        return static_cast<std::size_t>((nWord * m_nMultiplier) >> (64 - SLOT_BITS));
    }

    template <std::size_t MOST>
    constexpr bool bFill(const Keywords<MOST>& keywords) noexcept {
        for (Slot& slot : m_slots) {
            slot = {NO_WORD, 0};
        }
        for (const auto& keyword : keywords) {
            Slot& slot = m_slots[nSlotOf(keyword.nWord)];
            if (slot.nWord != NO_WORD) {
                return false;
            }
            slot = {keyword.nWord, keyword.nCode};
        }
        return true;
    }

    std::uint64_t m_nMultiplier = 0;
    Slot m_slots[std::size_t{1} << SLOT_BITS] = {};
};

} // namespace pageslice

#endif
