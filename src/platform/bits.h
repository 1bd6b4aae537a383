// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_PLATFORM_BITS_H
#define PAGESLICE_PLATFORM_BITS_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace pageslice {

// Index of the lowest bit of n that is set; n is not 0.
inline unsigned nLowestBit(std::uint64_t n) noexcept {
#if defined(__GNUC__) || defined(__clang__)
    return static_cast<unsigned>(__builtin_ctzll(n));
#else
    unsigned nIndex = 0;
    for (; (n & 1) == 0; n >>= 1) {
        ++nIndex;
    }
    return nIndex;
#endif
}

inline unsigned nCountBits(std::uint64_t n) noexcept {
    n -= n >> 1 & 0x5555555555555555;
    n = (n & 0x3333333333333333) + (n >> 2 & 0x3333333333333333);
    n = (n + (n >> 4)) & 0x0F0F0F0F0F0F0F0F;
    return static_cast<unsigned>((n * 0x0101010101010101) >> 56);
}

// Index of the lowest bit that is set; any number when n is 0.
inline unsigned nLowestBitOrAny(std::uint64_t n) noexcept {
    return nLowestBit(n | std::uint64_t{1} << 63);
}

// Bit i of the result is the parity of bits 0 to i of n.
inline std::uint64_t nParity(std::uint64_t n) noexcept {
    for (unsigned nShift = 1; nShift < 64; nShift *= 2) {
        n ^= n << nShift;
    }
    return n;
}

// The sum of all three; nCarry is 0 or 1, before and after.
inline std::uint64_t nAddWithCarry(std::uint64_t a, std::uint64_t b, std::uint64_t& nCarry) noexcept {
    const std::uint64_t nPartial = a + b;
    const std::uint64_t nSum = nPartial + nCarry;
    nCarry = (nPartial < a ? 1 : 0) | (nSum < nPartial ? 1 : 0);
    return nSum;
}

// At least 57 bits of a row of them, from one on, lowest first; the others are 0. A word more than those that
// hold them is read.
inline std::uint64_t nBitsFrom(const std::uint64_t* pWords, std::size_t nFirst) noexcept {
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
    const std::uint64_t* const p = pWords + nFirst / 64;
    return p[0] >> nFirst % 64 | p[1] << 1 << (63 - nFirst % 64);
#else
    std::uint64_t n = 0;
    std::memcpy(&n, reinterpret_cast<const char*>(pWords) + nFirst / 8, sizeof n);
    return n >> nFirst % 8;
#endif
}

// Prefetches the cache line of an address that is soon read; it may be any.
inline void PrefetchLine(const void* p) noexcept {
#if defined(__GNUC__) || defined(__clang__)
    __builtin_prefetch(p);
#else
    static_cast<void>(p);
#endif
}

// The same for what stands at an address and is rarely longer than SIZE bytes.
template <std::uintptr_t SIZE>
void Prefetch(const char* p) noexcept {
    constexpr std::uintptr_t LINE = 64;
    for (std::uintptr_t n = 0; n <= SIZE; n += LINE) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the address may lie after the array
        PrefetchLine(reinterpret_cast<const char*>(reinterpret_cast<std::uintptr_t>(p) + n));
    }
}

} // namespace pageslice

#endif
