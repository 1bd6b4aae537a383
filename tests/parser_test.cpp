#include "page_fixture.h"

namespace {

// A private member, reached through an explicit instantiation, where access is not checked.
using ImageQuery = int (HtmlParser::*)(url&) const noexcept;
ImageQuery pImageQuery();
template <ImageQuery query>
struct Reach {
    friend ImageQuery pImageQuery() { return query; }
};
template struct Reach<&HtmlParser::bIsImageInPage>;

TEST(TagScanner, FindsAndIdentifiesNames) {
    RunCases("tag names", [](const text& page) {
        const OpenParser parser(page, nullptr);
        const text tName = parser.tFindNextTagName(page.m_pStart);
        return Chars(tName, page) + ' ' + std::to_string(parser.nIdentifyTagType(tName));
    });
    RunCases("a cell before the table's end", [](const text& page) {
        const OpenParser parser(page, nullptr);
        EXPECT_EQ(parser.bFindNextTagType(page.m_pStart, TAG_NONE, TAG_TITLE), 1);
        return std::to_string(parser.bFindNextTagType(page.m_pStart, TAG_TD, TAG_END_TABLE));
    });
    EXPECT_EQ(OpenParser().nIdentifyTagName(text()), TAG_UNKNOWN);
}

TEST(HtmlParser, Indexes) {
    RunCases("index", [](const text& page) {
        OpenParser parser;
        EXPECT_TRUE(parser.Load(page, nullptr, 1) == 0 && parser.m_bInitialized == 1);
        const std::string index = Index(parser);
        parser.Clear();
        EXPECT_TRUE(Index(parser).empty() && parser.m_bInitialized == 0);
        parser.InitializeHtmlFile();
        EXPECT_EQ(Index(parser), index);
        return index;
    });
}

TEST(HtmlParser, HandsOutUrlLists) {
    RunCases("lists", [](const text& page) {
        OpenParser parser(page, "http://host/");
        EXPECT_EQ(parser.m_bInitialized, 0);
        const std::string lists = Lists(parser);
        EXPECT_EQ(parser.m_bInitialized, 1);
        EXPECT_EQ(Lists(parser), lists) << "the second call must not index again";
        OpenParser copy(page, nullptr);
        copy.InitializeHtmlFile();
        copy = parser;
        EXPECT_EQ(Lists(copy), lists);
        parser.m_tPage.m_pEnd -= page.GetLength() / 2; // the index stays, the image tags are another page's
        OpenParser shorter(parser.m_tPage, nullptr);
        const std::string fewer = Lists(shorter);
        EXPECT_EQ(Lists(parser), fewer.substr(0, fewer.find(" links")) + lists.substr(lists.find(" links")));
        return lists;
    });
    RunCases("image sources", [](const text& row) {
        const char* const pBar = std::find(row.m_pStart, row.m_pEnd, '|');
        const OpenParser parser(text(pBar + 1, row.m_pEnd, 0), nullptr);
        url source, none;
        source = text(row.m_pStart, pBar - 1, 0);
        (parser.*pImageQuery())(none); // either answer will do
        return std::to_string((parser.*pImageQuery())(source));
    });
}

TEST(HtmlParser, ConvertsToPlainText) {
    RunCases("plain text", [](const text& page) {
        OpenParser parser(page, nullptr);
        char* pText = nullptr;
        EXPECT_TRUE(parser.bConvertHtmlToPlainText(&pText) == 1 && parser.m_bInitialized == 0);
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
        EXPECT_TRUE(parser.m_bInitialized == 0 && parser.m_pUrl == nullptr);
        parser.InitializeHtmlFile();
        EXPECT_EQ(Index(parser) + Lists(parser), "images 0: links 0:");
        char* pText = nullptr;
        EXPECT_TRUE(parser.bConvertHtmlToPlainText(&pText) == 1 && parser.pMakeTitleCopy() == nullptr &&
                    parser.bConvertHtmlToPlainText(nullptr) == 0);
        EXPECT_STREQ(std::unique_ptr<char[]>(pText).get(), "");
        int nLanguage = 77;
        EXPECT_TRUE(!parser.bLanguageOfPage(&nLanguage) && !parser.bLanguageOfPage(nullptr) &&
                    nLanguage == 77);
        EXPECT_TRUE(parser.bIsLanguageEnglish() == 1 && parser.bLoadLanguageDictionary(nullptr) == 1);
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
    EXPECT_TRUE(parser.m_tPage.bIsNullTerminated() == 1 && parser.m_pUrl == nullptr);
    EXPECT_TRUE(Index(parser).empty() && parser.m_bInitialized == 0);
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
        EXPECT_TRUE(i++->first.m_urlHref == "b.html" && i == std::next(p->m_urlMap.begin()));
        p->Clear();
        EXPECT_STREQ(p->m_pUrl, "http://host/");
        *p = OpenParser();
        EXPECT_TRUE(p->m_tPage.IsEmpty() && p->m_pUrl == nullptr);
    }
}

} // namespace
