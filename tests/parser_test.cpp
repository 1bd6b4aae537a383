// SPDX-License-Identifier: MIT
#include "fuzz/invariants.h"
#include "page_fixture.h"
#include "parser/image_walk.h"

namespace {

using namespace std::string_literals;

// A private member, reached through an explicit instantiation, where access is not checked.
using ImageQuery = int (HtmlParser::*)(url&) const noexcept;
ImageQuery pImageQuery();
template <ImageQuery query>
struct Reach {
    friend ImageQuery pImageQuery() { return query; }
};
template struct Reach<&HtmlParser::bIsImageInPage>;

TEST(TagScanner, Names) {
    RunPages("tag names", [](const text& page) {
        const OpenParser parser(page, nullptr);
        const text tName = parser.tFindNextTagName(page.m_pStart);
        return Joined(Chars(tName, page), parser.nIdentifyTagType(tName));
    });
    EXPECT_EQ(OpenParser().nIdentifyTagName(text()), TAG_UNKNOWN);
}

TEST(TagScanner, WalksToATag) {
    RunPages("a cell before the table's end", [](const text& page) {
        const OpenParser parser(page, nullptr);
        EXPECT_EQ(parser.bFindNextTagType(page.m_pStart, TAG_NONE, TAG_TITLE), 1);
        return std::to_string(parser.bFindNextTagType(page.m_pStart, TAG_TD, TAG_END_TABLE));
    });
}

TEST(HtmlParser, Indexes) {
    RunPages("index", [](const text& page) {
        OpenParser parser;
        EXPECT_EQ(parser.Load(page, nullptr, 1), 0);
        EXPECT_EQ(parser.m_bInitialized, 1);
        return Index(parser);
    });
}

TEST(HtmlParser, IndexesAgainWhenCleared) {
    RunCases("index", [](const text& page) {
        OpenParser parser(page, nullptr);
        parser.InitializeHtmlFile();
        parser.Clear();
        EXPECT_EQ(Index(parser), "");
        EXPECT_EQ(parser.m_bInitialized, 0);
        parser.InitializeHtmlFile();
        return Index(parser);
    });
}

// Every tag that the pass knows and its end tag, with every byte behind the name, against the plain rules.
TEST(HtmlParser, EveryByteBehindEveryName) {
    std::vector<std::string> names = {"", "ab", "tablex", "titles", " title", "\0"s};
    names.insert(names.end(), reference::TAG_WORDS.begin(), reference::TAG_WORDS.end());
    for (std::size_t i = 0; i < 512 * names.size(); ++i) {
        const std::string tag = (i % 2 == 0 ? "<" : "</") + names[i / 512] + static_cast<char>(i / 2);
        const std::string page = "x<td><title>1<li>2<a href=p>3" + tag + "href=q>4</title></li></a></td>";
        ASSERT_NO_THROW(invariants::CheckAnswers({page.data(), page.data() + page.size() - 1, 0}))
            << testing::PrintToString(page);
    }
}

// The sources of a page's image tags as a walk finds them that has no pass to follow.
std::string WalkedImages(const text& page) {
    std::string sources;
    ImageWalk walk(page.m_pStart, page);
    for (tag_img record; walk.pNext(record) != nullptr;)
        if (!record.m_urlSrc.IsEmpty())
            (sources += ' ') += String(record.m_urlSrc).c_str();
    return sources;
}

TEST(HtmlParser, HandsOutUrlLists) {
    RunPages("lists", [](const text& page) {
        OpenParser parser(page, nullptr);
        EXPECT_EQ(parser.m_bInitialized, 0);
        const std::string lists = Lists(parser);
        EXPECT_EQ(parser.m_bInitialized, 1);
        EXPECT_EQ(WalkedImages(page),
                  lists.substr(lists.find(':') + 1, lists.find(" links") - lists.find(':') - 1));
        return lists;
    });
}

// Which images there are hangs on the page as it is now; which links, on the pass.
TEST(HtmlParser, KeepsListsApart) {
    RunCases("lists", [](const text& page) {
        const auto imagesOf = [](const std::string& lists) { return lists.substr(0, lists.find(" links")); };
        const auto linksOf = [](const std::string& lists) { return lists.substr(lists.find(" links")); };
        OpenParser parser(page, "http://host/"), copy(page, nullptr);
        const std::string lists = Lists(parser);
        EXPECT_EQ(Lists(parser), lists) << "the second call must not index again";
        copy.InitializeHtmlFile();
        copy = parser;
        EXPECT_EQ(Lists(copy), lists);
        copy.Load(page, nullptr, 1);
        copy.InitializeHtmlFile();
        EXPECT_EQ(imagesOf(Lists(copy)), imagesOf(lists)) << "after a second pass";
        copy.Clear();
        EXPECT_EQ(Lists(copy), lists) << "after a fresh start";

        std::string own = String(page) + " ";
        const text tOwn(own.data(), own.data() + own.size() - 1, 0);
        OpenParser overwritten(tOwn, nullptr);
        Lists(overwritten);
        for (char& c : own)
            c = c == '<' ? '(' : c;
        OpenParser fresh(tOwn, nullptr);
        fresh.InitializeHtmlFile();
        overwritten = fresh;
        EXPECT_EQ(imagesOf(Lists(overwritten)), "images 0:") << "another page in the same memory";

        parser.m_tPage.m_pEnd -= page.GetLength() / 2;
        OpenParser half(parser.m_tPage, nullptr);
        EXPECT_EQ(Lists(parser), imagesOf(Lists(half)) + linksOf(lists)) << "half of the page";
        return lists;
    });
}

TEST(HtmlParser, FindsImageSources) {
    RunPages("image sources", [](const text& row) {
        const char* const pBar = std::find(row.m_pStart, row.m_pEnd, '|');
        const OpenParser parser(text(row.m_pStart, pBar - 1, 0), nullptr);
        url source, none;
        source = text(pBar + 1, row.m_pEnd, 0);
        (parser.*pImageQuery())(none); // either answer will do
        return std::to_string((parser.*pImageQuery())(source));
    });
}

TEST(HtmlParser, ConvertsToPlainText) {
    RunPages("plain text", [](const text& page) {
        OpenParser parser(page, nullptr);
        char* pText = nullptr;
        EXPECT_EQ(parser.bConvertHtmlToPlainText(&pText), 1);
        EXPECT_EQ(parser.m_bInitialized, 0);
        // There is room for all characters of the page; behind the last one written all is NUL.
        const std::string all(std::unique_ptr<char[]>(pText).get(),
                              static_cast<std::size_t>(page.GetLength()) + 1);
        EXPECT_EQ(all.back(), '\0');
        return all.substr(0, all.find_last_not_of('\0') + 1);
    });
}

TEST(HtmlParser, HasNothingWithoutAPage) {
    OpenParser parsers[] = {{}, {text(), nullptr}, {text(FULL.m_pEnd, FULL.m_pStart, 0), nullptr}};
    for (OpenParser& parser : parsers) {
        EXPECT_EQ(parser.m_bInitialized, 0);
        EXPECT_EQ(parser.m_pUrl, nullptr);
        parser.InitializeHtmlFile();
        EXPECT_EQ(Index(parser) + Lists(parser), "images 0: links 0:");
        char* pText = nullptr;
        EXPECT_EQ(parser.bConvertHtmlToPlainText(&pText), 1);
        EXPECT_EQ(parser.bConvertHtmlToPlainText(nullptr), 0);
        EXPECT_EQ(parser.pMakeTitleCopy(), nullptr);
        EXPECT_STREQ(std::unique_ptr<char[]>(pText).get(), "");
        int nLanguage = 77;
        EXPECT_EQ(Joined(parser.bLanguageOfPage(&nLanguage), parser.bLanguageOfPage(nullptr), nLanguage,
                         parser.bIsLanguageEnglish(), parser.bLoadLanguageDictionary(nullptr)),
                  "0|0|77|1|1");
    }
}

TEST(HtmlParser, LoadReplacesPageUrlAndIndex) {
    std::string address = "http://host/1";
    OpenParser parser(text("<td>1<title>x</title></td>            "), address.c_str());
    address[0] = '?';
    EXPECT_STREQ(parser.m_pUrl, "http://host/1");
    EXPECT_EQ(Index(parser), "");
    parser.InitializeHtmlFile();
    parser.InitializeHtmlFile();
    EXPECT_EQ(Index(parser), "title=x, td: 1<title>x</title>, td: 1<title>x</title>") << "a second pass adds";
    EXPECT_STREQ(std::unique_ptr<char[]>(parser.pMakeTitleCopy()).get(), "x");
    EXPECT_EQ(parser.Load(parser.m_vCellTexts[0], parser.m_pUrl, 1), 0);
    EXPECT_EQ(Index(parser), "title=x");
    EXPECT_EQ(parser.Load(parser.m_tTitle, parser.m_pUrl + 7, 0), 0);
    EXPECT_EQ(String(parser.m_tPage) + parser.m_pUrl, "xhost/1");
    EXPECT_EQ(parser.Load(FULL, nullptr, 0), 0);
    EXPECT_EQ(parser.m_pUrl, nullptr);
    EXPECT_EQ(Joined(parser.m_tPage.bIsNullTerminated(), parser.m_bInitialized, Index(parser)), "1|0|");
}

TEST(HtmlParser, CopiesAreIndependent) {
    auto pSource = std::make_unique<OpenParser>(FULL, "http://host/");
    pSource->InitializeHtmlFile();
    OpenParser copy(*pSource), assigned(text("<td width=1>"), "old");
    assigned.InitializeHtmlFile();
    assigned = *pSource;
    assigned = static_cast<const OpenParser&>(assigned);
    pSource.reset();
    for (OpenParser* p : {&copy, &assigned}) {
        EXPECT_EQ(Index(*p), FULL_INDEX);
        EXPECT_EQ(Lists(*p), "images 12: a.gif b.gif links 14: b.html a.html");
        EXPECT_EQ(Index(*p), FULL_INDEX) << "the copy counts as indexed";
        auto i = p->m_urlMap.begin();
        EXPECT_EQ(String(i++->first.m_urlHref), "b.html");
        EXPECT_EQ(std::distance(p->m_urlMap.begin(), i), 1);
        p->Clear();
        EXPECT_STREQ(p->m_pUrl, "http://host/");
        *p = OpenParser();
        EXPECT_EQ(p->m_tPage.IsEmpty(), 1);
        EXPECT_EQ(p->m_pUrl, nullptr);
    }
}

} // namespace
