// SPDX-License-Identifier: MIT
#include "text/char_tables.h"

#include <array>
#include <cstddef>

inline namespace pageslice_v1 {

// The compiler works the tables out from a picture of each set, so that a set can be checked at a glance
// against a printed chart and nothing is left to do when the library is loaded.

namespace {

// A run of upper-case letters and the equally long run of their lower-case partners. Only an upper-case
// letter that faces a lower-case one is paired, so a run may pass over signs and gaps within an alphabet.
struct Pairs {
    unsigned char upper, lower, length;
};

// What a set has above ASCII. One mark stands for one character:
//   A  upper-case letter        *  letter of a script without case        c  control character
//   a  lower-case letter        .  any other character                    -  unassigned
struct CharSet {
    char c1;            // the mark of everything from 0x80 to 0x9F
    char marks[96 + 1]; // 0xA0 to 0xFF
    Pairs pairs[5];
};

// The micro sign and the ordinal indicators are signs here, and so are vowel marks and letter-like accents.
// clang-format off
constexpr CharSet SETS[] = {
    //0123456789ABCDEF   0123456789ABCDEF
    // ISO 8859-1: its no-break space is a control character, unlike that of any other set.
    {'c',
     "c..............." "................"   // A0, B0
     "AAAAAAAAAAAAAAAA" "AAAAAAA.AAAAAAAa"   // C0, D0
     "aaaaaaaaaaaaaaaa" "aaaaaaa.aaaaaaaa",  // E0, F0
     {{0xC0, 0xE0, 31}}},
    // ISO 8859-2
    {'c',
     ".A.A.AA..AAAA.AA" ".a.a.aa..aaaa.aa"
     "AAAAAAAAAAAAAAAA" "AAAAAAA.AAAAAAAa"
     "aaaaaaaaaaaaaaaa" "aaaaaaa.aaaaaaa.",
     {{0xA1, 0xB1, 15}, {0xC0, 0xE0, 31}}},
    // ISO 8859-3: ASCII keeps its plain pair, so dotted capital I (A9) and dotless small i (B9) are partners.
    {'c',
     ".A...-A..AAAA.-A" ".a....a..aaaa.-a"
     "AAA-AAAAAAAAAAAA" "-AAAAAA.AAAAAAAa"
     "aaa-aaaaaaaaaaaa" "-aaaaaa.aaaaaaa.",
     {{0xA1, 0xB1, 15}, {0xC0, 0xE0, 31}}},
    // ISO 8859-4: kra (A2) has no capital; eng (BD, BF) stands apart from the other pairs.
    {'c',
     ".AaA.AA..AAAA.A." ".a.a.aa..aaaaAaa"
     "AAAAAAAAAAAAAAAA" "AAAAAAA.AAAAAAAa"
     "aaaaaaaaaaaaaaaa" "aaaaaaa.aaaaaaa.",
     {{0xA1, 0xB1, 14}, {0xBD, 0xBF, 1}, {0xC0, 0xE0, 31}}},
    // ISO 8859-5
    {'c',
     ".AAAAAAAAAAAA.AA" "AAAAAAAAAAAAAAAA"
     "AAAAAAAAAAAAAAAA" "aaaaaaaaaaaaaaaa"
     "aaaaaaaaaaaaaaaa" ".aaaaaaaaaaaa.aa",
     {{0xA1, 0xF1, 15}, {0xB0, 0xD0, 32}}},
    // ISO 8859-6, without the currency sign (A4)
    {'c',
     ".-----------..--" "-----------.---."
     "-***************" "***********-----"
     ".**********....." "...-------------",
     {}},
    // ISO 8859-7, without euro (A4), drachma (A5) and ypogegrammeni (AA). The final sigma (F2) has no capital
    // of its own, the two letters with dialytika and tonos (C0, E0) have none in the set.
    {'c',
     "....--....-...-." "......A.AAA.A.AA"
     "aAAAAAAAAAAAAAAA" "AA-AAAAAAAAAaaaa"
     "aaaaaaaaaaaaaaaa" "aaaaaaaaaaaaaaa-",
     {{0xB6, 0xDC, 1}, {0xB8, 0xDD, 3}, {0xBC, 0xFC, 1}, {0xBE, 0xFD, 2}, {0xC1, 0xE1, 27}}},
    // ISO 8859-8, without the direction marks (FD, FE)
    {'c',
     ".-.............." "...............-"
     "----------------" "---------------."
     "****************" "***********-----",
     {}},
    // ISO 8859-9: dotted capital I (DD) and dotless small i (FD) are partners, as in ISO 8859-3.
    {'c',
     "................" "................"
     "AAAAAAAAAAAAAAAA" "AAAAAAA.AAAAAAAa"
     "aaaaaaaaaaaaaaaa" "aaaaaaa.aaaaaaaa",
     {{0xC0, 0xE0, 31}}},
    // ISO 8859-10: kra stands at FF.
    {'c',
     ".AAAAAA.AAAAA.AA" ".aaaaaa.aaaaa.aa"
     "AAAAAAAAAAAAAAAA" "AAAAAAAAAAAAAAAa"
     "aaaaaaaaaaaaaaaa" "aaaaaaaaaaaaaaaa",
     {{0xA1, 0xB1, 15}, {0xC0, 0xE0, 31}}},
    // KOI8-R: graphic characters instead of controls, and the small letters come first.
    {'.',
     "...a............" "...A............"
     "aaaaaaaaaaaaaaaa" "aaaaaaaaaaaaaaaa"
     "AAAAAAAAAAAAAAAA" "AAAAAAAAAAAAAAAA",
     {{0xB3, 0xA3, 1}, {0xE0, 0xC0, 32}}},
};
// clang-format on

constexpr std::size_t SET_COUNT = sizeof SETS / sizeof SETS[0];

// ASCII is the same in every set. A later range overrides an earlier one.
struct Range {
    unsigned char first, last, kind;
};
constexpr Range ASCII[] = {
    {0x00, 0x1F, CT_CONTROL},        {'\t', '\r', CT_CONTROL | CT_SPACE},
    {' ', ' ', CT_SPACE | CT_BLANK}, {'!', '~', CT_PUNCT},
    {'0', '9', CT_DIGIT | CT_HEX},   {'A', 'Z', CT_UPPER},
    {'A', 'F', CT_UPPER | CT_HEX},   {'a', 'z', CT_LOWER},
    {'a', 'f', CT_LOWER | CT_HEX},   {0x7F, 0x7F, CT_CONTROL},
};
constexpr Pairs ASCII_PAIRS = {'A', 'a', 26};

constexpr int BELOW_ZERO = 128; // entries for the negative values of a signed char
constexpr int ENTRIES = BELOW_ZERO + 256;

struct Tables {
    unsigned char kind[ENTRIES], lower[ENTRIES], upper[ENTRIES];
};

// A mark that the legend does not know, or one too few, ends up at the throw and so stops the build.
constexpr unsigned char nKindOf(char mark) {
    switch (mark) {
    case 'A': return CT_UPPER;
    case 'a': return CT_LOWER;
    case '*': return CT_LOWER | CT_UPPER;
    case '.': return CT_PUNCT;
    case 'c': return CT_CONTROL;
    case '-': return 0;
    }
    throw "no such mark";
}

constexpr void Pair(Tables& tables, const Pairs& pairs) {
    for (int i = 0; i < pairs.length; ++i) {
        const int upper = BELOW_ZERO + pairs.upper + i;
        const int lower = BELOW_ZERO + pairs.lower + i;
        if ((tables.kind[upper] & CT_UPPER) && (tables.kind[lower] & CT_LOWER)) {
            tables.lower[upper] = static_cast<unsigned char>(pairs.lower + i);
            tables.upper[lower] = static_cast<unsigned char>(pairs.upper + i);
        }
    }
}

constexpr Tables Build(const CharSet& set) {
    Tables tables{};
    for (const Range& range : ASCII) {
        for (int c = range.first; c <= range.last; ++c) {
            tables.kind[BELOW_ZERO + c] = range.kind;
        }
    }
    for (int c = 0x80; c <= 0xFF; ++c) {
        tables.kind[BELOW_ZERO + c] = nKindOf(c < 0xA0 ? set.c1 : set.marks[c - 0xA0]);
    }

    for (int c = 0; c <= 0xFF; ++c) {
        tables.lower[BELOW_ZERO + c] = tables.upper[BELOW_ZERO + c] = static_cast<unsigned char>(c);
    }
    Pair(tables, ASCII_PAIRS);
    for (const Pairs& pairs : set.pairs) {
        Pair(tables, pairs);
    }

    // A signed char finds what its unsigned twin finds, but -1 is also the end of a file: it has no class.
    for (int i = 0; i < BELOW_ZERO; ++i) {
        tables.kind[i] = tables.kind[i + 256];
        tables.lower[i] = tables.lower[i + 256];
        tables.upper[i] = tables.upper[i + 256];
    }
    tables.kind[BELOW_ZERO - 1] = 0;
    return tables;
}

constexpr std::array<Tables, SET_COUNT> BuildAll() {
    std::array<Tables, SET_COUNT> all{};
    for (std::size_t i = 0; i < SET_COUNT; ++i) {
        all[i] = Build(SETS[i]);
    }
    return all;
}

constexpr auto TABLES = BuildAll();

} // namespace

const unsigned char* const g_charClass[11] = {
    TABLES[0].kind, TABLES[1].kind, TABLES[2].kind, TABLES[3].kind, TABLES[4].kind,  TABLES[5].kind,
    TABLES[6].kind, TABLES[7].kind, TABLES[8].kind, TABLES[9].kind, TABLES[10].kind,
};

const unsigned char* const g_charToLower[12] = {
    TABLES[0].lower, TABLES[1].lower, TABLES[2].lower, TABLES[3].lower, TABLES[4].lower,  TABLES[5].lower,
    TABLES[6].lower, TABLES[7].lower, TABLES[8].lower, TABLES[9].lower, TABLES[10].lower, nullptr,
};

const unsigned char* const g_charToUpper[12] = {
    TABLES[0].upper, TABLES[1].upper, TABLES[2].upper, TABLES[3].upper, TABLES[4].upper,  TABLES[5].upper,
    TABLES[6].upper, TABLES[7].upper, TABLES[8].upper, TABLES[9].upper, TABLES[10].upper, nullptr,
};

} // namespace pageslice_v1
