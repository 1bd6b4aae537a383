// SPDX-License-Identifier: MIT
// The definition: 64-bit arithmetic only. A 32-bit build without vector instructions gets this one.
#include "scan/portable.h"

#include <cstring>

#include "platform/bits.h"
#include "scan/byte_classes.h"

namespace pageslice::scan_portable {
namespace {

constexpr std::size_t WORD = 8;
constexpr std::uint64_t EVERY_BYTE = 0x0101010101010101;
constexpr std::uint64_t LOW_BITS = 0x7F7F7F7F7F7F7F7F;

// One bit per byte of a word: its top bit. A multiplication moves each of them to a place of its own in the
// highest byte.
std::uint64_t nGatherTopBits(std::uint64_t n) noexcept {
    constexpr std::uint64_t GATHER = 0x0102040810204080;
    return (((n & ~LOW_BITS) >> 7) * GATHER) >> 56;
}

// One bit per byte of a word that is 0.
std::uint64_t nZeroBytes(std::uint64_t n) noexcept {
    return nGatherTopBits(~(((n & LOW_BITS) + LOW_BITS) | n));
}

// One bit per byte of a word that is no less than '!' and no more than DEL.
std::uint64_t nPrintableBytes(std::uint64_t n) noexcept {
    return nGatherTopBits(((n & LOW_BITS) + EVERY_BYTE * (0x80 - '!')) & ~n);
}

class Block {
public:
    explicit Block(const char* p) noexcept : m_p(p) {
        for (std::size_t i = 0; i < WORD; ++i) {
            m_words[i] = nLoad(p + i * WORD);
        }
    }

    std::uint64_t Equal(char c) const noexcept {
        const std::uint64_t nPattern = EVERY_BYTE * static_cast<unsigned char>(c);
        std::uint64_t nMask = 0;
        for (std::size_t i = 0; i < WORD; ++i) {
            nMask |= nZeroBytes(m_words[i] ^ nPattern) << (i * WORD);
        }
        return nMask;
    }

    std::uint64_t Printable() const noexcept {
        std::uint64_t nMask = 0;
        for (std::size_t i = 0; i < WORD; ++i) {
            nMask |= nPrintableBytes(m_words[i]) << (i * WORD);
        }
        return nMask;
    }

    std::uint64_t Blank() const noexcept { return Equal('\n') | Equal('\r') | Equal(' ') | Equal('<'); }

    char* Compress(std::uint64_t nKeep, char* pOut) const noexcept {
        return pCompressByRuns(m_p, nKeep, Blank(), pOut);
    }

    std::uint64_t Spaces() const noexcept {
        return Equal('\t') | Equal('\n') | Equal('\f') | Equal('\r') | Equal(' ');
    }

    char* CompressSpaces(std::uint64_t nKeep, char* pOut) const noexcept {
        return pCompressByRuns(m_p, nKeep, Spaces(), pOut);
    }

    void StoreSpaces(char* pOut) const noexcept { CompressSpaces(~std::uint64_t{0}, pOut); }

    static void ZeroFill(char* p) noexcept { std::memset(p, 0, SCAN_BLOCK); }

private:
    // The first byte stands in the lowest bits, whatever the processor's byte order.
    static std::uint64_t nLoad(const char* p) noexcept {
        std::uint64_t n = 0;
        for (std::size_t i = WORD; i-- > 0;) {
            n = n << 8 | static_cast<unsigned char>(p[i]);
        }
        return n;
    }

    const char* m_p;
    std::uint64_t m_words[WORD];
};

struct Chunk {
    static constexpr std::size_t SIZE = 1;
    explicit Chunk(const char* p) noexcept : m_c(*p) {}
    template <ByteClass CLASS>
    std::uint32_t Mask() const noexcept {
        return bIsOfClass(m_c, CLASS) ? 1 : 0;
    }
    char m_c;
};

#include "scan/image_opens.inc"
#include "scan/quote_count.inc"

#include "scan/kernels.inc"

} // namespace

char* pCompressByRuns(const char* p, std::uint64_t nKeep, std::uint64_t nBlank, char* pOut) noexcept {
    while (nKeep != 0) {
        const unsigned nStart = nLowestBit(nKeep);
        const std::uint64_t nGap = ~(nKeep >> nStart);
        const unsigned nLength = nGap == 0 ? SCAN_BLOCK : nLowestBit(nGap);
        std::memcpy(pOut, p + nStart, nLength);
        for (std::uint64_t n = (nBlank & nKeep) >> nStart; n != 0; n &= n - 1) {
            const unsigned nAt = nLowestBit(n);
            if (nAt >= nLength) {
                break;
            }
            pOut[nAt] = ' ';
        }
        pOut += nLength;
        nKeep = nStart + nLength == SCAN_BLOCK ? 0 : nKeep & ~std::uint64_t{0} << (nStart + nLength);
    }
    return pOut;
}

const ScanPrimitives PRIMITIVES = MakePrimitives("portable");

} // namespace pageslice::scan_portable
