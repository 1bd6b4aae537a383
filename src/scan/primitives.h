// The wide scans behind a small set of named primitives. There is one implementation for each level of the
// processor; all of them share the algorithms of kernels.inc and differ only in how a block of 64 bytes is
// compared and squeezed. The portable one uses no vector instructions and is the definition.
#ifndef PAGESLICE_SCAN_PRIMITIVES_H
#define PAGESLICE_SCAN_PRIMITIVES_H

#include <cstddef>
#include <cstdint>

constexpr std::size_t SCAN_BLOCK = 64;                  // bytes that one mask describes, lowest bit first
constexpr std::size_t SCAN_SWEEP_BLOCKS = 64;           // blocks in the longest sweep
constexpr std::size_t SQUEEZE_OVERRUN = 2 * SCAN_BLOCK; // bytes that squeezing a block may read and overwrite

// At most one '<' for every two bytes is visited: each visit but the first follows a '>'. Room for a few
// more, because they are written in groups.
constexpr std::size_t MOST_VISITS = SCAN_SWEEP_BLOCKS * SCAN_BLOCK / 2 + 8;

// What one sweep over whole blocks found out about the tags in them.
struct TagSweep {
    std::size_t nBlocks; // blocks described
    std::size_t nVisits; // entries of nOpens
    bool bQuotedAtEnd;   // the bytes behind the last block begin inside quotes
    // Per block, the '>' outside quotes; behind the last block none.
    std::uint64_t nCloses[SCAN_SWEEP_BLOCKS + 1];
    std::uint16_t nOpens[MOST_VISITS]; // offsets of the '<' visited, ascending
};

// Where a search for tags of one kind stands.
struct VisitState {
    bool bQuoted = false; // the next byte lies inside quotes
    bool bWaiting = true; // a step has started and not visited its '<' yet
};

// Where a conversion to plain text stands between two blocks.
struct SqueezeState {
    bool bInTag = false;
    bool bQuoted = false;   // inside quotes, inside a tag
    bool bSeparated = true; // the last thing written was a separator, or nothing was
};

struct ScanPrimitives {
    const char* pName;

    // Sweeps up to nBlocks blocks from the start of a step on: where the steps of the walk open and close.
    // bQuoted: the start lies inside quotes. Stops early at a block with a '>' in the text before a tag,
    // where a step visits no tag of its own.
    void (*MarkTags)(const char* p, std::size_t nBlocks, bool bQuoted, TagSweep& sweep);

    // Searches [p, pEnd), which is not empty, for the first '<' that the walk visits, of those alone that may
    // open an image tag: a space, 'i' or 'I' follows. Gives it, with the state behind it; or null. How often
    // a '<' is visited does not matter here.
    const char* (*FindImage)(const char* p, const char* pEnd, VisitState& state);

    // Squeezes nBlocks whole blocks of a page to plain text. Gives the position behind what was written;
    // of each block, SQUEEZE_OVERRUN bytes may be read, and as many from where its text starts overwritten.
    char* (*SqueezeMarkup)(const char* p, std::size_t nBlocks, char* pOut, SqueezeState& state);

    // Sets [p, pEnd) to zero.
    void (*Clear)(char* p, char* pEnd);

    // The first '>' outside quotes in [p, pEnd), or null. bQuoted: p lies inside quotes.
    const char* (*FindTagEnd)(const char* p, const char* pEnd, bool bQuoted);

    // The first byte in [p, pEnd) that ends an attribute name, an unquoted value or a quoted one; pEnd when
    // there is none.
    const char* (*FindNameEnd)(const char* p, const char* pEnd);
    const char* (*FindValueEnd)(const char* p, const char* pEnd);
    const char* (*FindQuotedEnd)(const char* p, const char* pEnd);
};

// The best implementation for this processor, chosen on first use. The environment variable PAGESLICE_SCAN
// (portable, sse2, avx2, avx512) asks for another one; a level that the processor lacks is not taken.
const ScanPrimitives& Scan() noexcept;

// The implementation of that name, or null when the build or the processor has none: for tests and
// benchmarks that go through all of them.
const ScanPrimitives* pFindScan(const char* pName) noexcept;

// Makes one implementation the current one, for tests and benchmarks.
void UseScan(const ScanPrimitives& primitives) noexcept;

#endif
