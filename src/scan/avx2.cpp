// 32 bytes at a time, with the bit instructions that come with this level.
#include "scan/byte_classes.h"
#include "scan/vector_levels.h"

#if defined(PAGESLICE_HAS_AVX)

#include <cstring>

#include <immintrin.h>

PAGESLICE_TARGET_BEGIN("avx2,bmi,bmi2,popcnt,pclmul")

namespace scan_avx2 {
namespace {

unsigned nLowestBit(std::uint64_t n) noexcept {
    return static_cast<unsigned>(_tzcnt_u64(n));
}

unsigned nLowestBitOrAny(std::uint64_t n) noexcept {
    return nLowestBit(n);
}

unsigned nCountBits(std::uint64_t n) noexcept {
    return static_cast<unsigned>(_mm_popcnt_u64(n));
}

// A carry-less product with all ones adds, at each bit, all bits up to it.
std::uint64_t nParity(std::uint64_t n) noexcept {
    const __m128i product =
        _mm_clmulepi64_si128(_mm_cvtsi64_si128(static_cast<long long>(n)), _mm_set1_epi8(-1), 0);
    return static_cast<std::uint64_t>(_mm_cvtsi128_si64(product));
}

class Block {
public:
    explicit Block(const char* p) noexcept
        : m_p(p), m_low(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p))),
          m_high(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p) + 1)) {}

    std::uint64_t Equal(char c) const noexcept {
        const __m256i pattern = _mm256_set1_epi8(c);
        return nMask(_mm256_cmpeq_epi8(m_low, pattern), _mm256_cmpeq_epi8(m_high, pattern));
    }

    // Without the bit that tells small letters from capitals, a space is 0.
    std::uint64_t MayBegin(char cInitial) const noexcept {
        const __m256i capital = _mm256_set1_epi8(static_cast<char>(cInitial - 0x20));
        const __m256i mask = _mm256_set1_epi8(static_cast<char>(0xDF));
        const __m256i low = _mm256_and_si256(m_low, mask);
        const __m256i high = _mm256_and_si256(m_high, mask);
        const __m256i zero = _mm256_setzero_si256();
        return nMask(_mm256_or_si256(_mm256_cmpeq_epi8(low, capital), _mm256_cmpeq_epi8(low, zero)),
                     _mm256_or_si256(_mm256_cmpeq_epi8(high, capital), _mm256_cmpeq_epi8(high, zero)));
    }

    // Each of the three looks itself up by its lower half; no other byte finds itself there.
    std::uint64_t Blank() const noexcept {
        const __m256i table =
            _mm256_setr_epi8(' ', -1, -1, -1, -1, -1, -1, -1, -1, -1, '\n', -1, -1, '\r', -1, -1, //
                             ' ', -1, -1, -1, -1, -1, -1, -1, -1, -1, '\n', -1, -1, '\r', -1, -1);
        return nMask(_mm256_cmpeq_epi8(m_low, _mm256_shuffle_epi8(table, m_low)),
                     _mm256_cmpeq_epi8(m_high, _mm256_shuffle_epi8(table, m_high)));
    }

    // Run by run, each copied by the full width: most blocks hold one or two.
    char* Squeeze(std::uint64_t nKeep, char* pOut) const noexcept {
        while (nKeep != 0) {
            const unsigned nStart = nLowestBit(nKeep);
            const std::uint64_t nBehind = nKeep + (std::uint64_t{1} << nStart);
            CopyBlanked(m_p + nStart, pOut);
            CopyBlanked(m_p + nStart + 32, pOut + 32);
            pOut += _tzcnt_u64(nBehind) - nStart;
            nKeep &= nBehind;
        }
        return pOut;
    }

    static void Clear(char* p) noexcept {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm256_setzero_si256());
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(p) + 1, _mm256_setzero_si256());
    }

private:
    static std::uint64_t nMask(__m256i low, __m256i high) noexcept {
        const auto nLow = static_cast<std::uint32_t>(_mm256_movemask_epi8(low));
        const auto nHigh = static_cast<std::uint32_t>(_mm256_movemask_epi8(high));
        return static_cast<std::uint64_t>(nHigh) << 32 | nLow;
    }

    static void CopyBlanked(const char* p, char* pOut) noexcept {
        const __m256i bytes = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
        const __m256i table =
            _mm256_setr_epi8(' ', -1, -1, -1, -1, -1, -1, -1, -1, -1, '\n', -1, '<', '\r', -1, -1, //
                             ' ', -1, -1, -1, -1, -1, -1, -1, -1, -1, '\n', -1, '<', '\r', -1, -1);
        const __m256i blanks = _mm256_cmpeq_epi8(bytes, _mm256_shuffle_epi8(table, bytes));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(pOut),
                            _mm256_blendv_epi8(bytes, _mm256_set1_epi8(' '), blanks));
    }

    const char* m_p;
    __m256i m_low;
    __m256i m_high;
};

#include "scan/piece_avx2.inc"

#include "scan/kernels.inc"

} // namespace

const ScanPrimitives PRIMITIVES = {"avx2",
                                   MarkTags,
                                   FindVisit,
                                   SqueezeMarkup,
                                   Clear,
                                   FindTagEnd,
                                   FindClass<ENDS_NAME>,
                                   FindClass<ENDS_VALUE>,
                                   FindClass<ENDS_QUOTED>};

} // namespace scan_avx2

PAGESLICE_TARGET_END

#endif
