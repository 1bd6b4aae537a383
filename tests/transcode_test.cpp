// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "tools/pageslice/transcode.h"

namespace {

using namespace std::string_literals;
using program::Transcoder;

TEST(Transcode, GivesUtf8) {
    const struct {
        const char* pEncoding;
        std::string bytes, utf8;
    } rows[] = {
        {"UTF-8", "a\xC3\xA9\xF0\x9F\x98\x80", "aé😀"},
        // One mark for each sequence that a character could have begun with.
        {"UTF-8", "\xFFx\xE2\x82x\xE2\x82", "\uFFFDx\uFFFDx\uFFFD"},
        {"UTF-8", "\xC0\xAF\xED\xA0\x80\xF5", "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"UTF-8", "\xE0\x9F\xBF\xF0\x8F\x80\x80\xF4\x90",
         "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"UTF-16LE", "a\0\xAC\x20\x3D\xD8\x00\xDE"s, "a€😀"},
        {"UTF-16BE", "\0a\x20\xAC\xD8\x3D\xDE\x00"s, "a€😀"},
        {"UTF-16BE", "\xDE\x00\xD8\x3D\0a\xD8\x3D\x20"s, "\uFFFD\uFFFDa\uFFFD"},
        {"windows-1252", "a\x80\x81\xE9"s, "a€\u0081é"},
        {"windows-1251", "\xCF\xF0\x98", "Пр\u0098"},
        {"windows-1253", "\xD2\xC1", "\uFFFDΑ"},
        {"windows-1255", "\xCA\xE0", "\u05BAא"},
        {"ISO-8859-8-I", "\xE0\xBF", "א\uFFFD"},
        {"KOI8-U", "\xAE\xC1", "ўа"},
        {"macintosh", "\xC6\xF0\xDB", "∆\uF8FF€"},
        {"x-mac-cyrillic", "\x80\xFF", "А€"},
        {"x-user-defined", "a\x80\xFF", "a\uF780\uF7FF"},
        {"GBK", "\xC4\xE3", "你"},
        {"Big5", "\xA7\x41", "你"},
        {"Shift_JIS", "\x83\x65\xB1\x5C", "テｱ\\"},
        {"EUC-JP", "\xC6\xFC\x8E\xB1", "日ｱ"},
        {"EUC-KR", "\xC7\xD1\x81\x41", "한갂"},
#ifndef _WIN32 // whose stand-in knows neither
        {"gb18030", "\xC4\xE3\x90\x30\x81\x30", "你\U00010000"},
        {"ISO-2022-JP", "\x1B$BF|\x1B(Ba", "日a"},
#endif
        {"replacement", "anything", "\uFFFD"},
        {"replacement", "", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Transcoder(row.pEncoding).utf8(row.bytes), row.utf8) << row.pEncoding;
    }
}

TEST(Transcode, PagesLoseTheirByteOrderMark) {
    EXPECT_EQ(Transcoder("UTF-8").utf8Page("\uFEFFa\uFEFF"), "a\uFEFF");
    EXPECT_EQ(Transcoder("UTF-16LE").utf8Page("\xFF\xFE\x61\0"s), "a");
    EXPECT_EQ(Transcoder("UTF-8").utf8("\uFEFFa"), "\uFEFFa");
    EXPECT_EQ(Transcoder("windows-1252").utf8Page("\xEF\xBB\xBF"), "ï»¿");
    for (const char* const pEncoding : {"UTF-8", "Shift_JIS"})
        EXPECT_TRUE(Transcoder(pEncoding).hasAsciiMarkup()) << pEncoding;
    for (const char* const pEncoding : {"UTF-16BE", "ISO-2022-JP"})
        EXPECT_FALSE(Transcoder(pEncoding).hasAsciiMarkup()) << pEncoding;
}

#ifndef _WIN32 // which has marks of its own for what it does not know
// Errors in a long text, and a text that ends inside a character.
TEST(Transcode, GoesOnAfterErrors) {
    std::string bytes, utf8;
    for (int i = 0; i < 3000; ++i) {
        bytes += "\xC4\xE3\xFF";
        utf8 += "你\uFFFD";
    }
    const Transcoder gbk("GBK");
    EXPECT_TRUE(gbk.utf8(bytes) == utf8);
    EXPECT_EQ(gbk.utf8("x\xC4"), "x\uFFFD");
    EXPECT_EQ(Transcoder("EUC-KR").utf8("\xA2\xE8"), "\uFFFD"); // which the system passes as a whole
    EXPECT_EQ(gbk.utf8("\xC4\xE3"), "你");
}
#endif

} // namespace
