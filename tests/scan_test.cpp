// SPDX-License-Identifier: MIT
#include "page_fixture.h"
#include "scan/primitives.h"
#include "scan/tag_bounds.h"

namespace {

TEST(TagBounds, TagEnd) {
    RunPages("tag end", [](const text& page) { return Rest(pFindTagEnd(page.m_pStart, page), page); });
}

TEST(TagBounds, EndBeforeTag) {
    RunCases("end before tag",
             [](const text& page) { return Rest(pFindEndBeforeTag(page.m_pEnd, page.m_pStart), page); });
    EXPECT_EQ(pFindEndBeforeTag(nullptr, FULL.m_pStart), nullptr);
}

TEST(Scan, NoSuchLevel) {
    EXPECT_EQ(pageslice::pFindScan("no such level"), nullptr);
}

// Every byte at every distance from where a search starts, and again beside one that ends the search too.
TEST(Scan, EveryByteAtEveryDistance) {
    const auto check = [](const char* (*find)(const char*, const char*), const std::string& ends) {
        std::string bytes(80, 'x');
        const char *const pFirst = bytes.data(), *const pEnd = pFirst + bytes.size();
        for (std::size_t n = 0; n < 70; ++n)
            for (int i = 0; i < 256; ++i) {
                bytes[n] = static_cast<char>(i);
                bytes[n + 1] = n % 2 == 0 ? 'x' : '>';
                const std::size_t nEnd = std::min(bytes.find_first_of(ends), bytes.size());
                ASSERT_EQ(find(pFirst, pEnd), pFirst + nEnd) << "byte " << i << " behind " << n;
                bytes[n] = bytes[n + 1] = 'x';
            }
    };
    for (const char* const pScan : invariants::SCANS)
        if (invariants::Use(pScan)) {
            SCOPED_TRACE(pScan);
            check(pageslice::Scan().FindNameEnd, "\t\n\r =><");
            check(pageslice::Scan().FindValueEnd, "\t\n\r ><");
            check(pageslice::Scan().FindQuotedEnd, "\">");
        }
}

// Nothing behind the end, and nothing before the start.
TEST(Scan, ClearsEveryLength) {
    constexpr std::size_t LARGE = std::size_t{1} << 22;
    for (const char* const pScan : invariants::SCANS)
        for (std::size_t n = 0; n < 200 && invariants::Use(pScan); ++n)
            for (const std::size_t nSize : {n, n == 1 ? LARGE : n}) {
                std::string bytes(nSize + 2, 'x');
                pageslice::Scan().ZeroFill(&bytes[1], &bytes[nSize + 1]);
                ASSERT_TRUE(bytes == 'x' + std::string(nSize, '\0') + 'x') << pScan << ' ' << nSize;
            }
}

} // namespace
