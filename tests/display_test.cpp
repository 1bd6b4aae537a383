// SPDX-License-Identifier: MIT
// The program's view of bytes: which are characters, and how those are shown.
#include "tools/pageslice/display.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using program::Decoded;

// Whether bytes are one well-formed character, by the table of the Unicode Standard: ranges of the first and
// the second byte; all others are 80 to BF.
bool IsCharacter(const std::string& bytes) {
    struct Form {
        int nFirst, nLast, nSecond, nSecondLast;
        std::size_t nSize;
    };
    static constexpr Form FORMS[] = {
        {0x00, 0x7F, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
        {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
        {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};
    const auto in = [&](std::size_t i, int nLow, int nHigh) {
        const int n = static_cast<unsigned char>(bytes[i]);
        return nLow <= n && n <= nHigh;
    };
    for (const Form& form : FORMS)
        if (bytes.size() == form.nSize && in(0, form.nFirst, form.nLast))
            return (form.nSize < 2 || in(1, form.nSecond, form.nSecondLast)) &&
                   (form.nSize < 3 || in(2, 0x80, 0xBF)) && (form.nSize < 4 || in(3, 0x80, 0xBF));
    return false;
}

// Every first and second byte, with what may and what may not follow: also overlong forms, surrogates, and
// what lies behind the last character.
TEST(Display, DecodesCharactersOnly) {
    const std::vector<std::string> rests = {"",         "\x80",     "\xBF",     "\x7F",     "\xC0",
                                            "\x80\x80", "\xBF\xBF", "\x80\x7F", "\x80\xC0", "\x7F\x80"};
    for (int i = 0; i < 256 * 257; ++i)
        for (const std::string& rest : rests) {
            std::string bytes(1, static_cast<char>(i % 256));
            if (i >= 256)
                bytes += static_cast<char>(i / 256 - 1);
            bytes += rest;
            const Decoded decoded = program::decodeUtf8(bytes);
            const std::string taken = bytes.substr(0, decoded.size);
            ASSERT_EQ(decoded.valid, IsCharacter(taken)) << testing::PrintToString(bytes);
            if (decoded.valid) {
                std::string again;
                program::appendUtf8(again, decoded.character);
                ASSERT_EQ(again, taken);
            } else {
                for (std::size_t n = 1; n <= bytes.size(); ++n)
                    ASSERT_FALSE(IsCharacter(bytes.substr(0, n))) << testing::PrintToString(bytes);
                ASSERT_EQ(taken, bytes.substr(0, 1));
                ASSERT_EQ(decoded.character, static_cast<unsigned char>(bytes[0]));
            }
        }
}

TEST(Display, ShowsWhatActsOnATerminal) {
    for (int i = 0; i < 256; ++i) {
        const std::string shown = program::legible("a" + std::string(1, static_cast<char>(i)) + "b");
        ASSERT_GT(shown.size(), 2U) << i;
        ASSERT_EQ(shown.front(), 'a') << i;
        ASSERT_EQ(shown.back(), 'b') << i;
        for (std::string rest = shown; !rest.empty();) {
            const Decoded decoded = program::decodeUtf8(rest);
            ASSERT_TRUE(decoded.valid) << i;
            ASSERT_TRUE(decoded.character == '\n' || decoded.character == '\t' ||
                        !program::isUnseen(decoded.character))
                << i;
            rest.erase(0, decoded.size);
        }
    }
}

TEST(Display, CollapsesIntoOneLine) {
    using program::Markup;
    const struct {
        const char *pText, *pStripped, *pKept;
        std::size_t nLimit;
    } rows[] = {{"", "", "", 9},
                {" \t a\r\n b ", "a b", "a b", 9},
                {"a<b>b</b><p>c</p>", "ab c", "a<b>b</b>…", 9},
                {"a<p x=\">\">b", "a b", "a<p x=\">\">b", 99},
                {"a<b", "a<b", "a<b", 9},
                {"abcdefghij", "abcdefghi…", "abcdefghi…", 9},
                {"abcdefghi", "abcdefghi", "abcdefghi", 9},
                {"<BR/>é\xE9", "éé", "<BR/>éé", 9},
                {"<Code>a</CODE ><i>b</i>", "ab", "<Code>a</…", 9}};
    for (const auto& row : rows) {
        EXPECT_EQ(program::oneLine(row.pText, Markup::strip, row.nLimit), row.pStripped) << row.pText;
        EXPECT_EQ(program::oneLine(row.pText, Markup::keep, row.nLimit), row.pKept) << row.pText;
    }
    EXPECT_EQ(program::countCharacters("aé😀"), 3U);
}

} // namespace
