// SPDX-License-Identifier: MIT
// Tokens beside those of the model, with every scan, between fences.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "fuzz/page_generator.h"
#include "fuzz/scans.h"
#include "fuzz/token_check.h"
#include "pageslice/text_view.h"
#include "tests/fence.h"

namespace {

void Check(const std::string& page) {
    for (const char* const pScan : invariants::SCANS) {
        if (!invariants::Use(pScan))
            continue;
        const auto check = [](const text& t) { invariants::CheckTokens(pageslice::to_view(t)); };
        ASSERT_NO_THROW(WithFences(page, check)) << pScan << ": " << testing::PrintToString(page);
    }
}

// The pieces of generated pages, parted by '|'; a '^' becomes a number.
constexpr const char* PIECES =
    R"(<a href="b^.html">|<p class='x>y'>|<p a=b c = "d" e>|<p title="<b>" title=z TITLE>|<td/>|<br />|<b/ / x=/>|)"
    R"(</p>|</P x="y>z">|</a/>|</>|</ >|</1>|<|</|<a|<a b|<a b=|<a b="|<a b='|<a"b='c'>|<a =x=y>|<a"<base href=k>|)"
    R"(<a/="x">|<a ="x>y">|<a b=c="x d="e>f">|<a b="c"d='e'f>|<a b=">"|<a b==">|<a b=c/>|<a b=c"d>|<a b='"'c="'">|)"
    R"(="|=">|"|'|=|>|/|/>|--|-|!|]|]]|]]>|?|word |&amp;|&lt|a > b|x="y"|)"
    R"(<!-->|<!--->|<!---->|<!-- x -->|<!--x--!>|<!--x--!-->|<!--x---->|<!--<!-->|<!--<!--->|<!--x-- >|<!--|-->|--!>|)"
    R"(<!>|<!x>|<?x?>|<!-|</ x>|<!doctype html>|<!DOCTYPE html PUBLIC "a" 'b'>|<!doctype html system "s" x>|<!doctype|)"
    R"(<!doctypehtml public"a>|<!doctype>|<script>|</script>|<SCRIPT |</SCRIPT/|</scrip>|<script x="y>z">|<!--<script>|)"
    R"(<style>|</style>|</style |<title>|</title>|<textarea>|</textarea>|<xmp>|</xmp>|<iframe>|</iframe>|<noscript>|)"
    R"(<plaintext>|<svg>|<SVG a="b>c">|</svg>|<svg/>|<math>|</math>|<g>|</g>|<mi>|</mi>|<desc>|</desc>|<foreignObject>|)"
    R"(</foreignObject>|<annotation-xml encoding="text/html">|<annotation-xml>|</annotation-xml>|<font color>|<font>|<mglyph>|)"
    R"(<![CDATA[|<![CDATA[x]]>|<![cdata[x]]>|<image>|<table>|</table>|<div>|</div>|<span>|</span>|</br>)"
    "|<a\n b\r\n=\t'c'\f>|</a\n>|<!doctype\rhtml\n>|\r\n|\n|    ";

TEST(Tokens, GeneratedPages) {
    const char* const pCount = std::getenv("PAGESLICE_STRESS");
    PageGenerator generator(3, PIECES);
    for (int n = pCount == nullptr ? 2500 : std::atoi(pCount); n > 0 && !HasFatalFailure(); --n)
        Check(generator.Next());
}

// What looks like an end and is none, with every part of it at the edge of a window of 64 bytes, and of the
// sweep of a few kilobytes.
TEST(Tokens, AtEveryPlaceOfAWindow) {
    // A '~' becomes a run of every length, of a kind that tells nothing.
    constexpr std::string_view ROWS[] = {
        R"(<p title='a>b~'>c</p>)",
        R"(<p ~ title="a>b~" x='~"'>c)",
        R"(<~a b="c">d</~a>e)",
        R"(<a ~="x>y" b>c)",
        R"(<a"~<base href=k>)",
        R"(<a/="~x">b"c>)",
        R"(<a ="~x>y">z)",
        R"(<a b=c="x~ d="e>f">g)",
        R"(<a b="~"c=d>e"f>)",
        R"(<a b = ~"c">d>)",
        R"(<a b=~'c">'>d>)",
        R"(<br~/><br ~ / ><br a=~/>)",
        R"(<a b~ B="c" b='d'>e)",
        R"(x<!--~-->y<!--~--!>z<!--~--->w<!--~>)",
        R"(<!--~<!-->x-->y)",
        R"(<!doctype ~html public "~" '~>'>x)",
        R"(<?~>x</~>y<!~>z)",
        R"(<script>~</scripts></script ~>x<script><!--~<script></script>~--></script>y)",
        R"(<script><!--<script~</script>--~></script>x)",
        R"(<script><!--~-><script>~-></script>~--></script>x)",
        R"(<style>~</sty</style>x<title>~</titles></title~ y>z</title>)",
        R"(<svg><![CDATA[~]]]>x<style><b></style>~</svg><style><b></style>)",
        R"(<svg a="~>" /><math><mi~><style><b></style></mi></math>x)",
        R"(~<a b="c")",
        R"(<a b="~</a>)",
        R"(<title>~</title)",
        {"x < y ~<1<\0<<</>~</><a\0b c\0=\0>", 30},
    };
    for (const std::string_view row : ROWS)
        for (std::size_t n = 0; n < 70 && !HasFatalFailure(); ++n) {
            std::string page(n % 3 == 0 ? 0 : n % 3 == 1 ? n : 4095 - n, 'x');
            for (const char c : row)
                page += c == '~' ? std::string(n, n % 2 == 0 ? 'y' : '_') : std::string(1, c);
            Check(page);
        }
}

} // namespace
