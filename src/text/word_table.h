// Keyword look-up by arithmetic: a word of up to eight characters is one number, and a table answers with
// one multiplication and one comparison.
#ifndef PAGESLICE_TEXT_WORD_TABLE_H
#define PAGESLICE_TEXT_WORD_TABLE_H

#include <cstddef>
#include <cstdint>

constexpr std::size_t WORD_SIZE = 8;
constexpr std::uint64_t WORD_EACH_BYTE = 0x0101010101010101;

// The first n bytes at p, at most eight of them; the first in the lowest bits, zeros behind the last.
inline std::uint64_t nLoadWord(const char* p, std::size_t n) noexcept {
    const auto nByte = [p](std::size_t i) { return std::uint64_t{static_cast<unsigned char>(p[i])} << (8 * i); };
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

// Codes of N keywords made of small letters, found whatever the case of a word.
template <std::size_t N>
class WordTable {
public:
    struct Entry {
        const char* pWord;
        int nCode;
    };

    constexpr explicit WordTable(const Entry (&entries)[N]) noexcept {
        // Multipliers are tried until no two keywords share a slot.
        for (m_nMultiplier = 0x9E3779B97F4A7C15; !bFill(entries); m_nMultiplier += 0x2545F4914F6CDD1E) {
        }
    }

    // The code of a word of up to eight bytes, padded with zeros; nUnknown when it is no keyword. Setting
    // one bit folds capitals onto small letters, and onto a small letter it folds nothing else.
    constexpr int nFind(std::uint64_t nWord, int nUnknown) const noexcept {
        constexpr std::uint64_t FOLD = WORD_EACH_BYTE * 0x20;
        const Slot& slot = m_slots[nSlotOf(nWord | FOLD)];
        return slot.nWord == (nWord | FOLD) ? slot.nCode : nUnknown;
    }

private:
    struct Slot {
        std::uint64_t nWord = 0; // folded, so never that of a word to look up
        int nCode = 0;
    };
    static constexpr unsigned SLOT_BITS = 6;

    constexpr std::size_t nSlotOf(std::uint64_t nWord) const noexcept {
        return static_cast<std::size_t>((nWord * m_nMultiplier) >> (64 - SLOT_BITS));
    }

    constexpr bool bFill(const Entry (&entries)[N]) noexcept {
        for (Slot& slot : m_slots) {
            slot = Slot();
        }
        for (const Entry& entry : entries) {
            std::uint64_t nWord = WORD_EACH_BYTE * 0x20;
            for (std::size_t i = 0; entry.pWord[i] != '\0'; ++i) {
                nWord |= std::uint64_t{static_cast<unsigned char>(entry.pWord[i])} << (8 * i);
            }
            Slot& slot = m_slots[nSlotOf(nWord)];
            if (slot.nWord != 0) {
                return false;
            }
            slot.nWord = nWord;
            slot.nCode = entry.nCode;
        }
        return true;
    }

    std::uint64_t m_nMultiplier = 0;
    Slot m_slots[std::size_t{1} << SLOT_BITS] = {};
};

#endif
