#include "text/char_tables.h"

#include <array>
#include <cstddef>

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
constexpr CharSet kSets[] = {
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

constexpr std::size_t kSetCount = sizeof kSets / sizeof kSets[0];

// ASCII is the same in every set. A later range overrides an earlier one.
struct Range {
    unsigned char first, last, kind;
};
constexpr Range kAscii[] = {
    {0x00, 0x1F, CT_CONTROL},        {'\t', '\r', CT_CONTROL | CT_SPACE},
    {' ', ' ', CT_SPACE | CT_BLANK}, {'!', '~', CT_PUNCT},
    {'0', '9', CT_DIGIT | CT_HEX},   {'A', 'Z', CT_UPPER},
    {'A', 'F', CT_UPPER | CT_HEX},   {'a', 'z', CT_LOWER},
    {'a', 'f', CT_LOWER | CT_HEX},   {0x7F, 0x7F, CT_CONTROL},
};
constexpr Pairs kAsciiPairs = {'A', 'a', 26};

constexpr int kBelowZero = 128; // entries for the negative values of a signed char
constexpr int kEntries = kBelowZero + 256;

struct Tables {
    unsigned char kind[kEntries], lower[kEntries], upper[kEntries];
};

// A mark that the legend does not know, or one too few, ends up at the throw and so stops the build.
constexpr unsigned char kindOf(char mark) {
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

constexpr void pair(Tables& tables, const Pairs& pairs) {
    for (int i = 0; i < pairs.length; ++i) {
        const int upper = kBelowZero + pairs.upper + i;
        const int lower = kBelowZero + pairs.lower + i;
        if ((tables.kind[upper] & CT_UPPER) && (tables.kind[lower] & CT_LOWER)) {
            tables.lower[upper] = static_cast<unsigned char>(pairs.lower + i);
            tables.upper[lower] = static_cast<unsigned char>(pairs.upper + i);
        }
    }
}

constexpr Tables build(const CharSet& set) {
    Tables tables{};
    for (const Range& range : kAscii) {
        for (int c = range.first; c <= range.last; ++c)
            tables.kind[kBelowZero + c] = range.kind;
    }
    for (int c = 0x80; c <= 0xFF; ++c)
        tables.kind[kBelowZero + c] = kindOf(c < 0xA0 ? set.c1 : set.marks[c - 0xA0]);

    for (int c = 0; c <= 0xFF; ++c)
        tables.lower[kBelowZero + c] = tables.upper[kBelowZero + c] = static_cast<unsigned char>(c);
    pair(tables, kAsciiPairs);
    for (const Pairs& pairs : set.pairs)
        pair(tables, pairs);

    // A signed char finds what its unsigned twin finds, but -1 is also the end of a file: it has no class.
    for (int i = 0; i < kBelowZero; ++i) {
        tables.kind[i] = tables.kind[i + 256];
        tables.lower[i] = tables.lower[i + 256];
        tables.upper[i] = tables.upper[i + 256];
    }
    tables.kind[kBelowZero - 1] = 0;
    return tables;
}

constexpr std::array<Tables, kSetCount> buildAll() {
    std::array<Tables, kSetCount> all{};
    for (std::size_t i = 0; i < kSetCount; ++i)
        all[i] = build(kSets[i]);
    return all;
}

constexpr auto kTables = buildAll();

} // namespace

const unsigned char* const g_charClass[11] = {
    kTables[0].kind, kTables[1].kind, kTables[2].kind, kTables[3].kind, kTables[4].kind,  kTables[5].kind,
    kTables[6].kind, kTables[7].kind, kTables[8].kind, kTables[9].kind, kTables[10].kind,
};

const unsigned char* const g_charToLower[12] = {
    kTables[0].lower, kTables[1].lower, kTables[2].lower,  kTables[3].lower,
    kTables[4].lower, kTables[5].lower, kTables[6].lower,  kTables[7].lower,
    kTables[8].lower, kTables[9].lower, kTables[10].lower, nullptr,
};

const unsigned char* const g_charToUpper[12] = {
    kTables[0].upper, kTables[1].upper, kTables[2].upper,  kTables[3].upper,
    kTables[4].upper, kTables[5].upper, kTables[6].upper,  kTables[7].upper,
    kTables[8].upper, kTables[9].upper, kTables[10].upper, nullptr,
};
