// SPDX-License-Identifier: MIT
// The wide scans, as a small set of named primitives. There is one implementation for each level of the
// processor; all of them share the algorithms of kernels.inc and differ only in how a block of 64 bytes is
// compared and compressed. The portable one uses no vector instructions and is the definition.
#ifndef PAGESLICE_SCAN_PRIMITIVES_H
#define PAGESLICE_SCAN_PRIMITIVES_H

#include <cstddef>
#include <cstdint>

namespace pageslice {

constexpr std::size_t SCAN_BLOCK = 64; // bytes that one mask describes, lowest bit first

// Blocks in the longest sweep. On real pages the pass made 2.17 GB/s with 8 of them, 2.32 with 32, 2.37 with
// 64 and 2.42 with 256, for which it would take 35 KB of stack instead of 9.
constexpr std::size_t SCAN_SWEEP_BLOCKS = 64;

// At most one '<' for every two bytes is visited: each visit but the first follows a '>'. Room for a few
// more, because they are written in groups.
constexpr std::size_t MOST_VISITS = SCAN_SWEEP_BLOCKS * SCAN_BLOCK / 2 + 8;

// What one sweep over whole blocks found out about the tags in them.
struct TagSweep {
    std::size_t nBlocks; // blocks described
    std::size_t nVisits; // entries of nOpens
    bool bQuotedAtEnd;   // the bytes after the last block begin inside quotes
    // Per block, the '>' outside quotes; after the last block none.
    std::uint64_t nCloses[SCAN_SWEEP_BLOCKS + 1];
    std::uint16_t nOpens[MOST_VISITS]; // offsets of the '<' visited, ascending
};

// Where a search for tags of one kind stands.
struct VisitState {
    bool bQuoted = false; // the next byte lies inside quotes
    bool bWaiting = true; // a step has started and not visited its '<' yet
};

// Where a conversion to plain text stands between two blocks.
struct CompressState {
    bool bInTag = false;
    bool bQuoted = false;   // inside quotes, inside a tag
    bool bSeparated = true; // the last thing written was a separator, or nothing was
};

// Where collapsing white space stands between two pieces of text.
struct CollapseState {
    bool bSeparated;        // white space that comes next is dropped
    bool bStopsAtReference; // the text may hold character references
};

// What one sweep over a page's bytes tells of those that tags are made of, one bit for each byte, lowest
// first. "Quoted" means: after an odd number of '"' since the sweep's start, and up to the next one.
struct MarkupSweep {
    static constexpr std::size_t WORDS =
        SCAN_SWEEP_BLOCKS + 2; // two without any bit come after the last block

    std::size_t nBlocks; // blocks described
    std::size_t nOpens;  // entries of nOpenAt
    bool bQuotedAtEnd;
    bool bEqualsAtEnd;               // the last byte is '='
    bool bNameAtEnd;                 // the last byte may be one of a name
    std::uint64_t nCloses[WORDS];    // '>'
    std::uint64_t nEnds[WORDS];      // all but the bytes of names, '!' to DEL without '>', '/' and '"'
    std::uint64_t nAnyQuotes[WORDS]; // '"' and '\''
    std::uint64_t nQuoted[WORDS];
    // Where well-written attributes have nothing: outside quotes an apostrophe, an '=' that follows no name,
    // and what follows an '=' without being '"'; of the '"' that open, those that follow no '='.
    std::uint64_t nOddOutside[WORDS];
    std::uint64_t nOddQuotes[WORDS];
    // The offsets of all '<', ascending, and after them one that is larger than any.
    std::uint16_t nOpenAt[SCAN_SWEEP_BLOCKS * SCAN_BLOCK + 8];
};

struct ScanPrimitives {
    const char* pName;

    // Sweeps up to nBlocks blocks from the start of a step on: where the steps of the walk open and close.
    // bQuoted: the start lies inside quotes. Stops early at a block with a '>' in the text before a tag,
    // where a step visits no tag of its own.
    void (*MarkTags)(const char* p, std::size_t nBlocks, bool bQuoted, TagSweep& sweep);

    // Adds nBlocks blocks from p on to those that the sweep has; a new one has none, and false everywhere.
    void (*MarkMarkup)(const char* p, std::size_t nBlocks, MarkupSweep& sweep);

    // Searches [p, pEnd), which is not empty, for the first '<' that the walk visits, of those alone that may
    // open an image tag: a space, 'i' or 'I' follows. Gives it, with the state after it; or null. How often
    // a '<' is visited does not matter here.
    const char* (*FindImage)(const char* p, const char* pEnd, VisitState& state);

    // Compresses nBlocks whole blocks of a page to plain text. Gives the position after what was written;
    // from where the text of a block starts, as many bytes as a block has may be overwritten.
    char* (*CompressMarkup)(const char* p, std::size_t nBlocks, char* pOut, CompressState& state);

    // Writes text with every run of white space (TAB, LF, FF, CR, space) as one space, none where
    // state.bSeparated, and without NULs; up to an '&' where state.bStopsAtReference. Moves p to where it
    // stopped, and gives the position after what was written, which is no more than was read. Of [p, pEnd)
    // the text is read, of the bytes up to pReadable any may be; nothing is written from pOutEnd on.
    char* (*CollapseSpaces)(const char*& p, const char* pEnd, const char* pReadable, char* pOut,
                            const char* pOutEnd, CollapseState& state);

    // Sets [p, pEnd) to zero.
    void (*ZeroFill)(char* p, char* pEnd);

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

} // namespace pageslice

#endif
