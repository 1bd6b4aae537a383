// SPDX-License-Identifier: MIT
// A block in one register, compared into masks and compressed by the processor itself.
#include "platform/bits.h"
#include "scan/byte_classes.h"
#include "scan/intrinsics.h"
#include "scan/vector_levels.h"

#if defined(PAGESLICE_HAS_AVX)

#include <cstring>

PAGESLICE_TARGET_BEGIN("avx512f,avx512bw,avx512vl,avx512vbmi2,avx2,bmi,bmi2,popcnt,pclmul")

namespace pageslice::scan_avx512 {
namespace {

#include "scan/bits_bmi.inc"

class Block {
public:
    explicit Block(const char* p) noexcept : m_bytes(_mm512_loadu_si512(p)) {}

    std::uint64_t Equal(char c) const noexcept {
        return _mm512_cmpeq_epi8_mask(m_bytes, _mm512_set1_epi8(c));
    }

    std::uint64_t Printable() const noexcept {
        return _mm512_cmpgt_epi8_mask(m_bytes, _mm512_set1_epi8(' '));
    }

    // Each of the four looks itself up by its lower half; no other byte finds itself there.
    std::uint64_t Blank() const noexcept {
        const __m512i table = _mm512_maskz_broadcast_i32x4(
            0xFFFF, _mm_setr_epi8(' ', -1, -1, -1, -1, -1, -1, -1, -1, -1, '\n', -1, '<', '\r', -1, -1));
        return _mm512_cmpeq_epi8_mask(m_bytes, _mm512_shuffle_epi8(table, m_bytes));
    }

    char* Compress(std::uint64_t nKeep, char* pOut) const noexcept {
        return pCompress(_mm512_mask_blend_epi8(Blank(), m_bytes, _mm512_set1_epi8(' ')), nKeep, pOut);
    }

    // As Blank.
    std::uint64_t Spaces() const noexcept {
        const __m512i table = _mm512_maskz_broadcast_i32x4(
            0xFFFF, _mm_setr_epi8(' ', -1, -1, -1, -1, -1, -1, -1, -1, '\t', '\n', -1, '\f', '\r', -1, -1));
        return _mm512_cmpeq_epi8_mask(m_bytes, _mm512_shuffle_epi8(table, m_bytes));
    }

    char* CompressSpaces(std::uint64_t nKeep, char* pOut) const noexcept {
        return pCompress(Spaced(), nKeep, pOut);
    }

    void StoreSpaces(char* pOut) const noexcept { _mm512_storeu_si512(pOut, Spaced()); }

    static void ZeroFill(char* p) noexcept { _mm512_storeu_si512(p, _mm512_setzero_si512()); }

private:
    __m512i Spaced() const noexcept {
        return _mm512_mask_blend_epi8(Spaces(), m_bytes, _mm512_set1_epi8(' '));
    }

    static char* pCompress(__m512i bytes, std::uint64_t nKeep, char* pOut) noexcept {
        _mm512_storeu_si512(pOut, _mm512_maskz_compress_epi8(nKeep, bytes));
        return pOut + _mm_popcnt_u64(nKeep);
    }

    __m512i m_bytes;
};

// Without the bit that tells small letters from capitals, a space is 0.
std::uint64_t nImageOpens(const char* p) noexcept {
    const __m512i next =
        _mm512_and_si512(_mm512_loadu_si512(p + 1), _mm512_set1_epi8(static_cast<char>(0xDF)));
    return Block(p).Equal('<') &
           (_mm512_cmpeq_epi8_mask(next, _mm512_set1_epi8('I')) | _mm512_testn_epi8_mask(next, next));
}

bool bHasImageOpens(const char* p) noexcept {
    return nImageOpens(p) != 0;
}

#include "scan/chunk_avx2.inc"
#include "scan/quote_count.inc"

#include "scan/kernels.inc"

} // namespace

const ScanPrimitives PRIMITIVES = MakePrimitives("avx512");

} // namespace pageslice::scan_avx512

PAGESLICE_TARGET_END

#endif
