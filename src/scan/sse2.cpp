// SPDX-License-Identifier: MIT
// 16 bytes at a time: every 64-bit x86 processor has this level, and nearly every 32-bit one.
#include "platform/bits.h"
#include "scan/byte_classes.h"
#include "scan/portable.h"
#include "scan/vector_levels.h"

#if defined(PAGESLICE_HAS_SSE2)

#include <cstring>

#include <emmintrin.h>

PAGESLICE_TARGET_BEGIN("sse2")

namespace pageslice::scan_sse2 {
namespace {

class Block {
public:
    explicit Block(const char* p) noexcept : m_p(p) {
        for (int i = 0; i < REGISTERS; ++i) {
            m_registers[i] = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p) + i);
        }
    }

    std::uint64_t Equal(char c) const noexcept {
        const __m128i pattern = _mm_set1_epi8(c);
        std::uint64_t nMask = 0;
        for (int i = 0; i < REGISTERS; ++i) {
            const int nBits = _mm_movemask_epi8(_mm_cmpeq_epi8(m_registers[i], pattern));
            nMask |= static_cast<std::uint64_t>(nBits) << (16 * i);
        }
        return nMask;
    }

    std::uint64_t Printable() const noexcept {
        std::uint64_t nMask = 0;
        for (int i = 0; i < REGISTERS; ++i) {
            const int nBits = _mm_movemask_epi8(_mm_cmpgt_epi8(m_registers[i], _mm_set1_epi8(' ')));
            nMask |= static_cast<std::uint64_t>(nBits) << (16 * i);
        }
        return nMask;
    }

    std::uint64_t Blank() const noexcept { return Equal('\n') | Equal('\r') | Equal(' ') | Equal('<'); }

    char* Compress(std::uint64_t nKeep, char* pOut) const noexcept {
        return scan_portable::pCompressByRuns(m_p, nKeep, Blank(), pOut);
    }

    std::uint64_t Spaces() const noexcept {
        return Equal('\t') | Equal('\n') | Equal('\f') | Equal('\r') | Equal(' ');
    }

    char* CompressSpaces(std::uint64_t nKeep, char* pOut) const noexcept {
        return scan_portable::pCompressByRuns(m_p, nKeep, Spaces(), pOut);
    }

    void StoreSpaces(char* pOut) const noexcept { CompressSpaces(~std::uint64_t{0}, pOut); }

    static void ZeroFill(char* p) noexcept {
        for (int i = 0; i < REGISTERS; ++i) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(p) + i, _mm_setzero_si128());
        }
    }

private:
    static constexpr int REGISTERS = 4;

    const char* m_p;
    __m128i m_registers[REGISTERS];
};

// Which comparisons were true an odd number of times, byte by byte: masks are made at the end only.
class QuoteCount {
public:
    QuoteCount() noexcept : m_flips(_mm_setzero_si128()) {}
    void Add(const char* p) noexcept {
        for (std::size_t i = 0; i < SCAN_BLOCK; i += sizeof m_flips) {
            const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + i));
            m_flips = _mm_xor_si128(m_flips, _mm_cmpeq_epi8(bytes, _mm_set1_epi8('"')));
        }
    }
    bool bOdd() const noexcept {
        return nCountBits(static_cast<std::uint64_t>(_mm_movemask_epi8(m_flips))) % 2 != 0;
    }

private:
    __m128i m_flips;
};

class Chunk {
public:
    static constexpr std::size_t SIZE = 16;

    explicit Chunk(const char* p) noexcept : m_bytes(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p))) {}

    template <ByteClass CLASS>
    std::uint32_t Mask() const noexcept {
        __m128i ends = Equal('>');
        if (CLASS == ENDS_QUOTED) {
            ends = _mm_or_si128(ends, Equal('"'));
        } else {
            ends = _mm_or_si128(ends, _mm_or_si128(Equal('<'), Equal(' ')));
            ends = _mm_or_si128(ends, _mm_or_si128(Equal('\t'), _mm_or_si128(Equal('\n'), Equal('\r'))));
        }
        if (CLASS == ENDS_NAME) {
            ends = _mm_or_si128(ends, Equal('='));
        }
        return static_cast<std::uint32_t>(_mm_movemask_epi8(ends));
    }

private:
    __m128i Equal(char c) const noexcept { return _mm_cmpeq_epi8(m_bytes, _mm_set1_epi8(c)); }

    __m128i m_bytes;
};

#include "scan/image_opens.inc"

#include "scan/kernels.inc"

} // namespace

const ScanPrimitives PRIMITIVES = MakePrimitives("sse2");

} // namespace pageslice::scan_sse2

PAGESLICE_TARGET_END

#endif
