// SPDX-License-Identifier: MIT
// 32 bytes at a time, with the bit instructions that come with this level.
#include "platform/bits.h"
#include "scan/byte_classes.h"
#include "scan/intrinsics.h"
#include "scan/vector_levels.h"

#if defined(PAGESLICE_HAS_AVX)

#include <array>
#include <cstring>

PAGESLICE_TARGET_BEGIN("avx2,bmi,bmi2,popcnt,pclmul")

namespace pageslice::scan_avx2 {
namespace {

#include "scan/bits_bmi.inc"

// For each choice among eight bytes that stand at nFirst in a register, the indices of the chosen ones, first
// index in the lowest bits.
constexpr std::array<std::uint64_t, 256> MakeKeptFirst(unsigned nFirst) noexcept {
    std::array<std::uint64_t, 256> orders{};
    for (unsigned nKeep = 0; nKeep < orders.size(); ++nKeep) {
        unsigned nKept = 0;
        for (unsigned i = 0; i < 8; ++i) {
            if ((nKeep >> i & 1) != 0) {
                orders[nKeep] |= std::uint64_t{nFirst + i} << (8 * nKept++);
            }
        }
    }
    return orders;
}

constexpr std::array<std::uint64_t, 256> KEPT_OF_LOW_HALF = MakeKeptFirst(0);
constexpr std::array<std::uint64_t, 256> KEPT_OF_HIGH_HALF = MakeKeptFirst(8);

std::uint64_t nMask(__m256i low, __m256i high) noexcept {
    const auto nLow = static_cast<std::uint32_t>(_mm256_movemask_epi8(low));
    const auto nHigh = static_cast<std::uint32_t>(_mm256_movemask_epi8(high));
    return static_cast<std::uint64_t>(nHigh) << 32 | nLow;
}

class Block {
public:
    explicit Block(const char* p) noexcept
        : m_low(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))),
          m_high(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p) + 1)) {}

    std::uint64_t Equal(char c) const noexcept {
        const __m256i pattern = _mm256_set1_epi8(c);
        return nMask(_mm256_cmpeq_epi8(m_low, pattern), _mm256_cmpeq_epi8(m_high, pattern));
    }

    std::uint64_t Printable() const noexcept {
        const __m256i space = _mm256_set1_epi8(' ');
        return nMask(_mm256_cmpgt_epi8(m_low, space), _mm256_cmpgt_epi8(m_high, space));
    }

    // Each of the four looks itself up by its lower half; no other byte finds itself there.
    std::uint64_t Blank() const noexcept { return nMask(Blanks(m_low), Blanks(m_high)); }

    // No branch hangs on the page: how text and tags follow each other within a block is hard to foretell.
    char* Compress(std::uint64_t nKeep, char* pOut) const noexcept {
        return pCompress64(Spaced(m_low, Blanks(m_low)), Spaced(m_high, Blanks(m_high)), nKeep, pOut);
    }

    std::uint64_t Spaces() const noexcept { return nMask(SpacesIn(m_low), SpacesIn(m_high)); }

    char* CompressSpaces(std::uint64_t nKeep, char* pOut) const noexcept {
        return pCompress64(Spaced(m_low, SpacesIn(m_low)), Spaced(m_high, SpacesIn(m_high)), nKeep, pOut);
    }

    void StoreSpaces(char* pOut) const noexcept {
        auto* const pHalves = reinterpret_cast<__m256i*>(pOut);
        _mm256_storeu_si256(pHalves, Spaced(m_low, SpacesIn(m_low)));
        _mm256_storeu_si256(pHalves + 1, Spaced(m_high, SpacesIn(m_high)));
    }

    static void ZeroFill(char* p) noexcept {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm256_setzero_si256());
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p) + 1, _mm256_setzero_si256());
    }

private:
    static __m256i Blanks(__m256i bytes) noexcept {
        const __m256i table =
            _mm256_setr_epi8(' ', -1, -1, -1, -1, -1, -1, -1, -1, -1, '\n', -1, '<', '\r', -1, -1, //
                             ' ', -1, -1, -1, -1, -1, -1, -1, -1, -1, '\n', -1, '<', '\r', -1, -1);
        return _mm256_cmpeq_epi8(bytes, _mm256_shuffle_epi8(table, bytes));
    }

    // As Blanks.
    static __m256i SpacesIn(__m256i bytes) noexcept {
        const __m256i table =
            _mm256_setr_epi8(' ', -1, -1, -1, -1, -1, -1, -1, -1, '\t', '\n', -1, '\f', '\r', -1, -1, //
                             ' ', -1, -1, -1, -1, -1, -1, -1, -1, '\t', '\n', -1, '\f', '\r', -1, -1);
        return _mm256_cmpeq_epi8(bytes, _mm256_shuffle_epi8(table, bytes));
    }

    static __m256i Spaced(__m256i bytes, __m256i where) noexcept {
        return _mm256_blendv_epi8(bytes, _mm256_set1_epi8(' '), where);
    }

    static char* pCompress64(__m256i low, __m256i high, std::uint64_t nKeep, char* pOut) noexcept {
        pOut = pCompress32(low, static_cast<std::uint32_t>(nKeep), pOut);
        return pCompress32(high, static_cast<std::uint32_t>(nKeep >> 32), pOut);
    }

    static char* pCompress32(__m256i bytes, std::uint32_t nKeep, char* pOut) noexcept {
        pOut = pCompress16(_mm256_castsi256_si128(bytes), nKeep & 0xFF, nKeep >> 8 & 0xFF, pOut);
        return pCompress16(_mm256_extracti128_si256(bytes, 1), nKeep >> 16 & 0xFF, nKeep >> 24, pOut);
    }

    // Compresses each half through a table.
    static char* pCompress16(__m128i bytes, std::uint64_t nLow, std::uint64_t nHigh, char* pOut) noexcept {
        const __m128i order = _mm_set_epi64x(static_cast<long long>(KEPT_OF_HIGH_HALF[nHigh]),
                                             static_cast<long long>(KEPT_OF_LOW_HALF[nLow]));
        const __m128i compressed = _mm_shuffle_epi8(bytes, order);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(pOut), compressed);
        pOut += _mm_popcnt_u64(nLow);
        _mm_storeh_pi(reinterpret_cast<__m64*>(pOut), _mm_castsi128_ps(compressed));
        return pOut + _mm_popcnt_u64(nHigh);
    }

    __m256i m_low;
    __m256i m_high;
};

// Without the bit that tells small letters from capitals, a space is 0. As above, both that may follow
// look themselves up by their lower half; what stands in for the others has that bit.
__m256i ImageOpensOfHalf(const char* p) noexcept {
    const __m256i table = _mm256_setr_epi8(0, -1, -1, -1, -1, -1, -1, -1, -1, 'I', -1, -1, -1, -1, -1, -1, //
                                           0, -1, -1, -1, -1, -1, -1, -1, -1, 'I', -1, -1, -1, -1, -1, -1);
    const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    const __m256i next = _mm256_and_si256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + 1)),
                                          _mm256_set1_epi8(static_cast<char>(0xDF)));
    return _mm256_and_si256(_mm256_cmpeq_epi8(bytes, _mm256_set1_epi8('<')),
                            _mm256_cmpeq_epi8(next, _mm256_shuffle_epi8(table, next)));
}

std::uint64_t nImageOpens(const char* p) noexcept {
    return nMask(ImageOpensOfHalf(p), ImageOpensOfHalf(p + sizeof(__m256i)));
}

bool bHasImageOpens(const char* p) noexcept {
    const __m256i low = ImageOpensOfHalf(p);
    const __m256i high = ImageOpensOfHalf(p + sizeof(__m256i));
    return _mm256_movemask_epi8(_mm256_or_si256(low, high)) != 0;
}

// Which comparisons were true an odd number of times, byte by byte: a mask is made at the end only.
class QuoteCount {
public:
    QuoteCount() noexcept : m_flips(_mm256_setzero_si256()) {}
    void Add(const char* p) noexcept {
        const auto* const pHalves = reinterpret_cast<const __m256i*>(p);
        m_flips = _mm256_xor_si256(m_flips, Quotes(pHalves));
        m_flips = _mm256_xor_si256(m_flips, Quotes(pHalves + 1));
    }
    bool bOdd() const noexcept {
        return _mm_popcnt_u32(static_cast<unsigned>(_mm256_movemask_epi8(m_flips))) % 2 != 0;
    }

private:
    static __m256i Quotes(const __m256i* p) noexcept {
        return _mm256_cmpeq_epi8(_mm256_loadu_si256(p), _mm256_set1_epi8('"'));
    }

    __m256i m_flips;
};

#include "scan/chunk_avx2.inc"

#include "scan/kernels.inc"

} // namespace

const ScanPrimitives PRIMITIVES = MakePrimitives("avx2");

} // namespace pageslice::scan_avx2

PAGESLICE_TARGET_END

#endif
