// SPDX-License-Identifier: MIT
#include "text/char_tables.h"

#include <gtest/gtest.h>

#include <array>
#ifndef _WIN32
#include <cstddef>
#include <cwchar>
#include <iconv.h>
#include <locale.h>
#include <string>
#include <wctype.h>
#endif

namespace {

using Entry = std::array<int, 3>; // class, lower case, upper case

Entry lookUp(int set, int c) {
    return {g_charClass[set][c + 128], g_charToLower[set][c + 128], g_charToUpper[set][c + 128]};
}

// A few answers written out, so that they hold wherever the reference below is missing.
TEST(CharTables, GiveKnownAnswers) {
    const struct {
        int set, c;
        Entry entry;
    } rows[] = {
        {0, ' ', {0x88, ' ', ' '}},    {0, '\t', {0x18, '\t', '\t'}},  {0, '7', {0x24, '7', '7'}},
        {0, 'a', {0x21, 'a', 'A'}},    {0, 'Z', {0x02, 'z', 'Z'}},     {0, 0xC9, {0x02, 0xE9, 0xC9}},
        {0, -55, {0x02, 0xE9, 0xC9}},  {0, 0xDF, {0x01, 0xDF, 0xDF}},  {0, -1, {0, 0xFF, 0xFF}},
        {4, -1, {0, 0xFF, 0xAF}},      {4, 0xFD, {0x40, 0xFD, 0xFD}},  {5, 0xC1, {0x03, 0xC1, 0xC1}},
        {6, 0xF7, {0x01, 0xF7, 0xD7}}, {10, 0xC1, {0x01, 0xC1, 0xE1}}, {10, 0xB3, {0x02, 0xA3, 0xB3}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(lookUp(row.set, row.c), row.entry) << "set " << row.set << ", character " << row.c;
    EXPECT_EQ(g_charToLower[11], nullptr);
    EXPECT_EQ(g_charToUpper[11], nullptr);
}

#ifndef _WIN32

// Where the tables mean to differ from what iconv and the C library make of a character.
struct Exception {
    int set, byte;
    Entry entry;
};
// clang-format off
constexpr Exception kExceptions[] = {
    // No-break space; dotted capital I and dotless small i; final sigma.
    {0, 0xA0, {CT_CONTROL, 0xA0, 0xA0}},
    {2, 0xA9, {CT_UPPER, 0xB9, 0xA9}}, {2, 0xB9, {CT_LOWER, 0xB9, 0xA9}},
    {8, 0xDD, {CT_UPPER, 0xFD, 0xDD}}, {8, 0xFD, {CT_LOWER, 0xFD, 0xDD}},
    {6, 0xF2, {CT_LOWER, 0xF2, 0xF2}},
    // Left out: currency sign; euro, drachma and ypogegrammeni; direction marks.
    {5, 0xA4, {0, 0xA4, 0xA4}},
    {6, 0xA4, {0, 0xA4, 0xA4}}, {6, 0xA5, {0, 0xA5, 0xA5}}, {6, 0xAA, {0, 0xAA, 0xAA}},
    {7, 0xFD, {0, 0xFD, 0xFD}}, {7, 0xFE, {0, 0xFE, 0xFE}},
};
// clang-format on

// Letters to the C library, signs to the tables: ordinal indicators, micro, caron, tatweel and vowel marks.
constexpr wchar_t kSigns[] =
    L"\u00AA\u00BA\u00B5\u02C7\u0640\u064B\u064C\u064D\u064E\u064F\u0650\u0651\u0652";

template <typename From, typename To>
bool convert(const std::string& fromSet, From from, const std::string& toSet, To& to) {
    char* in = reinterpret_cast<char*>(&from);
    char* out = reinterpret_cast<char*>(&to);
    std::size_t inLeft = sizeof from, outLeft = sizeof to;
    const iconv_t how = iconv_open(toSet.c_str(), fromSet.c_str());
    const bool done = iconv(how, &in, &inLeft, &out, &outLeft) == 0 && outLeft == 0;
    iconv_close(how);
    return done;
}

// What iconv and the C library make of a byte.
Entry reference(const std::string& set, int byte, locale_t locale) {
    wchar_t wide = 0;
    if (!convert(set, static_cast<char>(byte), "WCHAR_T", wide))
        return {0, byte, byte};
    const wint_t c = static_cast<wint_t>(wide);
    if (iswcntrl_l(c, locale))
        return {CT_CONTROL | (byte < 0x80 && iswspace_l(c, locale) ? CT_SPACE : 0), byte, byte};
    if (byte == ' ')
        return {CT_SPACE | CT_BLANK, byte, byte};
    const int hex = iswxdigit_l(c, locale) ? CT_HEX : 0;
    if (iswdigit_l(c, locale))
        return {CT_DIGIT | hex, byte, byte};
    if (!iswalpha_l(c, locale) || std::wcschr(kSigns, wide))
        return {CT_PUNCT, byte, byte};
    const bool lower = iswlower_l(c, locale), upper = iswupper_l(c, locale), caseless = lower == upper;
    const auto inSet = [&](wint_t partner) {
        unsigned char found = 0;
        return convert("WCHAR_T", static_cast<wchar_t>(partner), set, found) ? found : byte;
    };
    return {hex | (lower || caseless ? CT_LOWER : 0) | (upper || caseless ? CT_UPPER : 0),
            inSet(towlower_l(c, locale)), inSet(towupper_l(c, locale))};
}

TEST(CharTables, AgreeWithTheCLibraryAtEveryPosition) {
    const locale_t locale = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
    ASSERT_TRUE(locale);
    for (int set = 0; set <= 10; ++set) {
        const std::string name = set == 10 ? "KOI8-R" : "ISO-8859-" + std::to_string(set + 1);
        for (int c = -128; c <= 255; ++c) {
            const int byte = c & 0xFF;
            Entry expected = reference(name, byte, locale);
            for (const Exception& exception : kExceptions) {
                if (exception.set == set && exception.byte == byte) {
                    EXPECT_NE(exception.entry, expected) << name << ": no exception at " << c;
                    expected = exception.entry;
                }
            }
            if (c == -1)
                expected[0] = 0;
            EXPECT_EQ(lookUp(set, c), expected) << name << " at " << c;
        }
    }
    freelocale(locale);
}

#endif

} // namespace
