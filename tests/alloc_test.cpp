// What happens when memory runs out. The global allocation operators are replaced, hence a program of its
// own: each operation runs with its first allocation failing, then its second, and so on until it gets
// through.
#include <cstdlib>
#include <functional>
#include <new>
#include <utility>

#include "page_fixture.h"
#include "pageslice/page.h"
#include "text/string_utils.h"

namespace {

long g_nLive = 0;         // arrays and objects not yet released
long g_nUntilFailure = 0; // 1: the next allocation fails; 0: none does

void* pAllocate(std::size_t n) noexcept {
    if (g_nUntilFailure > 0 && --g_nUntilFailure == 0)
        return nullptr;
    ++g_nLive;
    return std::malloc(n + 1);
}

void* pAllocateOrThrow(std::size_t n) {
    void* const p = pAllocate(n);
    return p != nullptr ? p : throw std::bad_alloc();
}

void Release(void* p) noexcept {
    g_nLive -= p != nullptr ? 1 : 0;
    std::free(p);
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
    pageslice_page* pPage = nullptr;
    ASSERT_EQ(pageslice_open("x", 1, nullptr, 0, &pPage), PAGESLICE_OK);
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
        [] { pageslice::normalize(ADDRESS); },
        [&] {
            if (std::size_t n; pageslice_get_plain_text(pPage, nullptr, 0, &n) == PAGESLICE_NO_MEMORY)
                throw std::bad_alloc();
        },
        [] { pageslice::resolve(ADDRESS, ADDRESS); },
        [] { pageslice::page(pageslice::to_view(FULL)).plain_text(); }};
    for (const auto& operation : operations)
        ExpectNoLeaks([&](const Fails& fails) { fails(operation); });
    delete[] pNumber;
    pageslice_close(pPage);
    ExpectUsable(parser);
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
        EXPECT_TRUE((pImages == nullptr) == bFailed && (pLinks == nullptr) == bFailed);
        delete pImages;
        delete pLinks;
        ExpectUsable(parser);
    });
}

} // namespace
