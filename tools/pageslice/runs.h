// SPDX-License-Identifier: MIT
// Runs of characters that need no look of their own, many at a time.
#ifndef PAGESLICE_TOOLS_RUNS_H
#define PAGESLICE_TOOLS_RUNS_H

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace program {

// So many bytes as are looked at together, and marks on some of them.
class Block {
public:
#ifdef __SSE2__
    static constexpr std::size_t SIZE = 32;
    using Marks = std::uint32_t; // a bit for each byte

    explicit Block(const char* p) : low(load(p)), high(load(p + 16)) {}
    void store(char* p) const {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p), low);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(p + 16), high);
    }
    Marks equal(char c) const {
        const __m128i each = _mm_set1_epi8(c);
        return joined(_mm_cmpeq_epi8(low, each), _mm_cmpeq_epi8(high, each));
    }
    // Control characters below the space.
    Marks controls() const {
        const __m128i last = _mm_set1_epi8(0x1F); // what is left of the others by it is more than nothing
        const __m128i nothing = _mm_setzero_si128();
        return joined(_mm_cmpeq_epi8(_mm_subs_epu8(low, last), nothing),
                      _mm_cmpeq_epi8(_mm_subs_epu8(high, last), nothing));
    }
    Marks beyondAscii() const {
        return joined(low, high);
    }
    static std::size_t first(Marks marks) {
        return static_cast<std::size_t>(std::countr_zero(marks));
    }

private:
    static __m128i load(const char* p) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    }
    static Marks joined(__m128i a, __m128i b) {
        return static_cast<Marks>(_mm_movemask_epi8(a)) | static_cast<Marks>(_mm_movemask_epi8(b)) << 16U;
    }

    __m128i low;
    __m128i high;
#else
    static constexpr std::size_t SIZE = 8;
    using Marks = std::uint64_t; // the high bit of each byte; after the first one they may be wrong

    explicit Block(const char* p) {
        std::memcpy(&eight, p, SIZE);
        if constexpr (std::endian::native == std::endian::big) {
            eight = __builtin_bswap64(eight);
        }
    }
    void store(char* p) const {
        const std::uint64_t bytes =
            std::endian::native == std::endian::big ? __builtin_bswap64(eight) : eight;
        std::memcpy(p, &bytes, SIZE);
    }
    Marks equal(char c) const {
        const std::uint64_t other = eight ^ each(static_cast<unsigned char>(c));
        return (other - each(1)) & ~other & each(0x80);
    }
    // Control characters below the space.
    Marks controls() const {
        return (eight - each(0x20)) & ~eight & each(0x80);
    }
    Marks beyondAscii() const {
        return eight & each(0x80);
    }
    static std::size_t first(Marks marks) {
        return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
    }

private:
    static constexpr std::uint64_t each(unsigned char byte) {
        return byte * 0x0101010101010101U;
    }

    std::uint64_t eight = 0;
#endif
};

// How many bytes come before the first that `marksOf` marks.
template <class MarksOf>
std::size_t lengthUntil(std::string_view bytes, MarksOf marksOf) {
    std::size_t at = 0;
    for (; bytes.size() - at >= Block::SIZE; at += Block::SIZE) {
        const Block::Marks marks = marksOf(Block(bytes.data() + at));
        if (marks != 0) {
            return at + Block::first(marks);
        }
    }
    std::array<char, Block::SIZE> rest;
    rest.fill(' '); // which nobody looks for
    bytes.substr(at).copy(rest.data(), rest.size());
    const Block::Marks marks = marksOf(Block(rest.data()));
    return marks != 0 ? at + Block::first(marks) : bytes.size();
}

// Quotes, backslashes and control characters.
inline Block::Marks quotedMarks(const Block& block) {
    return block.controls() | block.equal('"') | block.equal('\\');
}

// Of ASCII that a JSON string holds as it is; DEL is not counted among it.
inline std::size_t plainRun(std::string_view bytes) {
    return lengthUntil(bytes, [](const Block& block) {
        return quotedMarks(block) | block.beyondAscii() | block.equal(0x7F);
    });
}

inline std::size_t quotedRun(std::string_view bytes) {
    return lengthUntil(bytes, quotedMarks);
}

inline std::size_t asciiRun(std::string_view bytes) {
    return lengthUntil(bytes, [](const Block& block) { return block.beyondAscii(); });
}

} // namespace program

#endif
