// SPDX-License-Identifier: MIT
// What happens when memory runs out. The global allocation operators are replaced, hence a program of its
// own: each operation runs with its first allocation failing, then its second, and so on until it gets
// through.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <utility>

#include "page_fixture.h"
#include "pageslice/page.h"
#include "pageslice/tokens_c.h"
#include "text/string_utils.h"
#include "url/standard_url.h"

namespace {

long g_nLive = 0;         // arrays and objects not yet released
std::size_t g_nBytes = 0; // in them
std::size_t g_nPeak = 0;  // of g_nBytes
long g_nUntilFailure = 0; // 1: the next allocation fails; 0: none does

constexpr std::size_t HEADER = 16; // holds a block's size

void* pAllocate(std::size_t n) noexcept {
    if (g_nUntilFailure > 0 && --g_nUntilFailure == 0)
        return nullptr;
    ++g_nLive;
    g_nPeak = std::max(g_nPeak, g_nBytes += n);
    char* const p = static_cast<char*>(std::malloc(n + HEADER));
    std::memcpy(p, &n, sizeof n);
    return p + HEADER;
}

void* pAllocateOrThrow(std::size_t n) {
    void* const p = pAllocate(n);
    return p != nullptr ? p : throw std::bad_alloc();
}

void Release(void* p) noexcept {
    if (p == nullptr)
        return;
    char* const pBlock = static_cast<char*>(p) - HEADER;
    std::size_t n = 0;
    std::memcpy(&n, pBlock, sizeof n);
    g_nBytes -= n;
    --g_nLive;
    std::free(pBlock);
}

} // namespace

// clang-format off
void* operator new(std::size_t n) { return pAllocateOrThrow(n); }
void* operator new[](std::size_t n) { return pAllocateOrThrow(n); }
void* operator new(std::size_t n, const std::nothrow_t&) noexcept { return pAllocate(n); }
void* operator new[](std::size_t n, const std::nothrow_t&) noexcept { return pAllocate(n); }
void operator delete(void* p) noexcept { Release(p); }
void operator delete[](void* p) noexcept { Release(p); }
void operator delete(void* p, std::size_t) noexcept { Release(p); }
void operator delete[](void* p, std::size_t) noexcept { Release(p); }
// clang-format on

namespace {

constexpr char ADDRESS[] = "http://a.host.with.a.long.name.that.no.string.keeps.inside/";

// Runs an operation with its n-th allocation failing. Did it? Then std::bad_alloc came out.
using Fails = std::function<bool(const std::function<void()>& operation)>;

// Plays a scenario, which runs its operation once, with every allocation of the operation failing in turn.
void ExpectNoLeaks(const std::function<void(const Fails&)>& scenario) {
    bool bFailed = true;
    for (long n = 1; bFailed; ++n) {
        const long nBefore = g_nLive;
        scenario([&](const auto& operation) {
            bool bThrew = false;
            g_nUntilFailure = n;
            try {
                operation();
            } catch (const std::bad_alloc&) {
                bThrew = true;
            }
            bFailed = std::exchange(g_nUntilFailure, 0) == 0;
            EXPECT_EQ(bThrew, bFailed);
            return bFailed;
        });
        EXPECT_EQ(g_nLive, nBefore) << "leaked when allocation " << n << " failed";
        EXPECT_TRUE(n > 1 || bFailed) << "allocates nothing";
    }
}

// Can still be read, and loaded as if it were new.
void ExpectUsable(OpenParser& parser) {
    Index(parser);
    EXPECT_NO_THROW(parser.Load(FULL, ADDRESS, 1));
    EXPECT_EQ(Index(parser), FULL_INDEX);
}

TEST(Allocation, PageWithoutEntriesKeepsNoMemory) {
    OpenParser parser(text("<title>t</title><a x=\"a > b\">no link</a><b>bold</b></html>"), nullptr);
    const long nBefore = g_nLive;
    parser.InitializeHtmlFile();
    EXPECT_EQ(g_nLive, nBefore);
}

TEST(Allocation, FailureThrowsAndLeaksNothing) {
    OpenParser parser;
    parser.Load(FULL, ADDRESS, 1);
    UrlList list(9);
    char* pNumber = new char[6]; // stays the caller's where it cannot be replaced
    char words[] = "a b ";
    const std::function<void()> operations[] = {
        [] { delete[] FULL.pMakeCopy(); },
        [] { delete[] pFormatNumber(1000, nullptr); },
        [&] { pNumber = pFormatNumber(-1000, pNumber); },
        [&] { bSplitWords(words, words, ""); },
        [&] { OpenParser copy(parser); },
        [&] { delete[] parser.pMakeTitleCopy(); },
        [&] { UrlList copy(list); },
        [&] { list = UrlList(list); },
        [] { UrlList empty(9); },
        [] { url::tGetDomainName(text(ADDRESS)); },
        [] { delete[] url::pResolveUrl(ADDRESS, "../page.html"); },
        [] { pageslice::page(pageslice::to_view(FULL), ADDRESS); },
        [] { (void)pageslice::normalize(ADDRESS); },
        [] { (void)pageslice::resolve(ADDRESS, ADDRESS); },
        [] { (void)pageslice::resolve_standard(ADDRESS, ADDRESS); },
        [] { (void)pageslice::decode(ADDRESS); },
        [] { (void)pageslice::page(pageslice::to_view(FULL)).plain_text(); }};
    for (const auto& operation : operations)
        ExpectNoLeaks([&](const Fails& fails) { fails(operation); });
    delete[] pNumber;
    ExpectUsable(parser);
}

TEST(Allocation, CodesOfTheCInterface) {
    constexpr std::size_t SIZE = sizeof ADDRESS - 1;
    const std::string_view html = pageslice::to_view(FULL);
    pageslice_page *pPage = nullptr, *pOpened = nullptr;
    ASSERT_EQ(pageslice_open(html.data(), html.size(), ADDRESS, SIZE, &pPage), PAGESLICE_OK);
    pageslice_options standard = {};
    standard.rules = PAGESLICE_STANDARD;
    standard.url = ADDRESS;
    standard.url_size = SIZE;
    pageslice_page* pStandard = nullptr;
    ASSERT_EQ(pageslice_open_with(html.data(), html.size(), &standard, sizeof standard, &pStandard),
              PAGESLICE_OK);
    pageslice_tokens* pTokens = nullptr;
    std::size_t n = 0;
    const std::function<int()> calls[] = {
        [&] { return pageslice_open_with(html.data(), html.size(), &standard, sizeof standard, &pOpened); },
        [&] { return pageslice_get_plain_text(pStandard, nullptr, 0, &n); },
        [&] { return pageslice_absolute(pStandard, "x", 1, nullptr, 0, &n); },
        [&] {
            const int nCode = pageslice_open_tokens(html.data(), html.size(), &pTokens);
            n = pTokens != nullptr ? 1 : 0;
            pageslice_close_tokens(std::exchange(pTokens, nullptr));
            return nCode == PAGESLICE_OK ? PAGESLICE_TOO_SMALL : nCode; // as those that fill a buffer
        },
        [&] { return pageslice_open(html.data(), html.size(), ADDRESS, SIZE, &pOpened); },
        [&] { return pageslice_open_with(html.data(), html.size(), nullptr, 0, &pOpened); },
        [&] { return pageslice_get_plain_text(pPage, nullptr, 0, &n); },
        [&] { return pageslice_get_plain_text_of(pPage, "<p>x", 4, nullptr, 0, &n); },
        [&] { return pageslice_absolute(pPage, ADDRESS, SIZE, nullptr, 0, &n); },
        [&] { return pageslice_decode(ADDRESS, SIZE, 1, nullptr, 0, &n); },
        [&] { return pageslice_resolve_url(ADDRESS, SIZE, "x", 1, nullptr, 0, &n); },
        [&] { return pageslice_resolve_standard_url(ADDRESS, SIZE, "x", 1, nullptr, 0, &n); },
        [&] { return pageslice_normalize_url(ADDRESS, SIZE, nullptr, 0, &n); }};
    for (const auto& call : calls) {
        SCOPED_TRACE("call " + std::to_string(&call - calls));
        ExpectNoLeaks([&](const Fails& fails) {
            n = 0;
            int nCode = 0;
            const bool bFailed = fails([&] {
                if ((nCode = call()) == PAGESLICE_NO_MEMORY)
                    throw std::bad_alloc();
            });
            const bool bOpened = pOpened != nullptr;
            pageslice_close(std::exchange(pOpened, nullptr));
            EXPECT_EQ(nCode, bFailed ? PAGESLICE_NO_MEMORY : n > 0 ? PAGESLICE_TOO_SMALL : PAGESLICE_OK);
            EXPECT_EQ(bOpened || n > 0, !bFailed);
        });
    }
    pageslice_close(pPage);
    pageslice_close(pStandard);
}

// A tag of so many attributes that reading them takes memory.
TEST(Allocation, AttributesOfATag) {
    std::string html = "<a";
    for (int i = 0; i < 99; ++i)
        html += " a" + std::to_string(i);
    html += " a7=x>";
    ExpectNoLeaks([&](const Fails& fails) {
        pageslice_tokens* pTokens = nullptr;
        pageslice_token token = {};
        ASSERT_EQ(pageslice_open_tokens(html.data(), html.size(), &pTokens), PAGESLICE_OK);
        ASSERT_EQ(pageslice_next_token(pTokens, &token, sizeof token), PAGESLICE_OK);
        std::size_t nCount = 7;
        const bool bFailed = fails([&] {
            if (pageslice_read_attributes(pTokens, &nCount) == PAGESLICE_NO_MEMORY)
                throw std::bad_alloc();
        });
        EXPECT_EQ(nCount, bFailed ? 7U : 99U);
        EXPECT_EQ(pageslice_read_attributes(pTokens, &nCount), PAGESLICE_OK) << "once there is memory again";
        EXPECT_EQ(nCount, 99U);
        pageslice_close_tokens(pTokens);
    });
}

// A map that cannot grow keeps its size, its order and all that it holds.
TEST(Allocation, MapGrowsWholeOrNotAtAll) {
    std::string page = "x";
    for (char c = 'A'; c < 'A' + 33; ++c) // more than one growth
        page += "<a href=" + std::string(1, c) + ">t</a>";
    OpenParser parser(text(page.data(), page.data() + page.size() - 1, 0), nullptr);
    parser.InitializeHtmlFile();
    for (const std::size_t nRoom : {std::size_t{0}, std::size_t{16}, std::size_t{32}})
        ExpectNoLeaks([&](const Fails& fails) {
            UrlMap map;
            for (std::size_t i = 0; i < nRoom; ++i)
                map.Insert(parser.m_urlMap.Inserted(i).first, FULL);
            const bool bFailed = fails([&] { map.Insert(parser.m_urlMap.Inserted(nRoom).first, FULL); });
            EXPECT_EQ(map.size(), nRoom + (bFailed ? 0 : 1));
            EXPECT_EQ(static_cast<std::size_t>(std::distance(map.begin(), map.end())), map.size());
        });
}

// The floods that make the largest index for a page of their size.
TEST(Allocation, LimitsBoundMemory) {
    constexpr std::size_t MOST = 100000, HANDLE = 2000;
    using pageslice::rules;
    const std::pair<rules, std::string> rows[] = {{rules::classic, "<a href=b>c</a>"},
                                                  {rules::classic, "<td>x</td>"},
                                                  {rules::classic, "<img>"},
                                                  {rules::classic, "<img src=a>"},
                                                  {rules::classic, "<a title=\"x>y><img>"},
                                                  {rules::classic, ">"},
                                                  {rules::standard, "<a href>"},
                                                  {rules::standard, "<td>"},
                                                  {rules::standard, "<img>"},
                                                  {rules::standard, "<img src>"},
                                                  {rules::standard, "<li>"},
                                                  {rules::standard, "<ul><li>"},
                                                  {rules::standard, "<table><tr><td>"}};
    for (const auto& [rules, piece] : rows) {
        std::string html = "x<table>";
        while (html.size() < 200000)
            html += piece;
        html += "<li>";
        std::size_t nNeeded = 0;
        for (const std::size_t nMost : {std::size_t{0}, MOST}) {
            pageslice::options options;
            options.rules = rules;
            options.limits.index_bytes = nMost;
            g_nPeak = g_nBytes;
            const std::size_t nBefore = g_nBytes;
            {
                pageslice::page page;
                const int nCode = pageslice::page::open(html, options, page);
                EXPECT_EQ(nCode, nMost > 0 && nNeeded > nMost ? PAGESLICE_LIMIT : PAGESLICE_OK) << piece;
            }
            EXPECT_EQ(g_nBytes, nBefore);
            nNeeded = g_nPeak - nBefore;
            EXPECT_LE(nMost == 0 ? 0 : nNeeded, MOST + HANDLE) << piece;
        }
    }
}

TEST(Allocation, LoadKeepsOldOrNew) {
    ExpectNoLeaks([](const Fails& fails) {
        OpenParser parser(text("<td width=5>"), "old");
        parser.InitializeHtmlFile();
        const bool bFailed = fails([&] { parser.Load(FULL, ADDRESS, 1); });
        const bool bKept = bFailed && parser.m_pUrl == std::string("old");
        EXPECT_EQ(Index(parser).substr(0, 10), bKept ? "td width=5" : "title=Home");
        ExpectUsable(parser);
    });
}

TEST(Allocation, AssignmentIsAllOrNothing) {
    OpenParser source;
    source.Load(FULL, ADDRESS, 1);
    ExpectNoLeaks([&](const Fails& fails) {
        OpenParser target(text("x<a href=p>t</a><td>1</td><li>2</li><td width=5>"), "old");
        target.InitializeHtmlFile();
        const std::string before = Index(target);
        const bool bFailed = fails([&] { target = source; });
        EXPECT_EQ(Index(target), bFailed ? before : FULL_INDEX);
        EXPECT_STREQ(target.m_pUrl, bFailed ? "old" : ADDRESS);
        ExpectUsable(target);
    });
}

TEST(Allocation, FailureLeavesTheDocumentedResults) {
    ExpectNoLeaks([](const Fails& fails) {
        OpenParser parser(FULL, nullptr);
        char none = 0, *pText = &none;
        const bool bFailed = fails([&] {
            if (parser.bConvertHtmlToPlainText(&pText) == 0) // the one operation that does not throw
                throw std::bad_alloc();
        });
        EXPECT_EQ(pText == nullptr, bFailed);
        delete[] pText;
    });
    ExpectNoLeaks([](const Fails& fails) {
        OpenParser parser(FULL, nullptr);
        UrlList *pImages = nullptr, *pLinks = nullptr;
        const bool bFailed = fails([&] { parser.GetUrlLists(&pImages, &pLinks); });
        EXPECT_EQ(pImages == nullptr, bFailed);
        EXPECT_EQ(pLinks == nullptr, bFailed);
        delete pImages;
        delete pLinks;
        ExpectUsable(parser);
    });
}

TEST(Allocation, StandardUrlStays) {
    pageslice::standard_url base;
    ASSERT_EQ(base.parse(ADDRESS), pageslice::url_result::ok);
    ExpectNoLeaks([&](const Fails& fails) {
        std::string out = "old";
        const bool bFailed = fails([&] { static_cast<void>(base.resolve("other", out)); });
        EXPECT_EQ(out, bFailed ? "old" : std::string(ADDRESS) + "other");
    });
    ExpectNoLeaks([&](const Fails& fails) {
        pageslice::standard_url url = base;
        const bool bFailed = fails([&] { static_cast<void>(url.parse("other", url)); });
        EXPECT_EQ(url.href() == ADDRESS, bFailed);
    });
}

} // namespace
