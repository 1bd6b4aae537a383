// SPDX-License-Identifier: MIT
#include "page_fixture.h"
#include "text/byte_count.h"
#include "url/standard_url.h"

namespace {

using pageslice::standard_url;
using pageslice::url_result;

std::string Resolved(const standard_url& base, std::string_view reference) {
    std::string out = "old";
    const url_result result = base.resolve(reference, out);
    EXPECT_TRUE(result == url_result::ok || out == "old");
    return result == url_result::ok ? out : result == url_result::not_a_url ? "-" : "?";
}

TEST(StandardUrl, Resolved) {
    RunCases("standard urls", [](const text& t) {
        const std::string_view row(t.m_pStart, pageslice::nByteCount(t));
        const std::string_view sBase = row.substr(0, row.find('|')), reference = row.substr(sBase.size() + 1);
        standard_url base;
        EXPECT_EQ(base.parse(sBase), sBase.empty() ? url_result::not_a_url : url_result::ok);
        EXPECT_EQ(base.href(), sBase);
        return Resolved(base, reference);
    });
}

TEST(StandardUrl, DomainsBeyondAscii) {
#if defined(PAGESLICE_IDN)
    constexpr bool IDN = true;
#else
    constexpr bool IDN = false;
#endif
    const standard_url none;
    EXPECT_EQ(Resolved(none, "http://u@FA%C3%9F.\xEF\xBC\xA1.XN--ZCA:8/"),
              IDN ? "http://u@xn--fa-hia.a.xn--zca:8/" : "?");
    EXPECT_EQ(Resolved(none, "http://\xEF\xBC\x91.2/"), IDN ? "http://1.0.0.2/" : "?");
    EXPECT_EQ(Resolved(none, "http://\xF0\x9F\x98\x80/"), "?"); // libidn2 refuses symbols
}

// A base may be resolved against itself, and stays what it was when that fails.
TEST(StandardUrl, ParsedAgainstItself) {
    standard_url url;
    ASSERT_EQ(url.parse("http://h/a/b?q"), url_result::ok);
    EXPECT_EQ(url.parse("../c#d", url), url_result::ok);
    EXPECT_EQ(url.parse("//:", url), url_result::not_a_url);
    EXPECT_EQ(url.href(), "http://h/c#d");
    EXPECT_EQ(Resolved(url, "#e"), "http://h/c#e");
}

} // namespace
