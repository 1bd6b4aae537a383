#include <algorithm>
#include <vector>

#include "page_fixture.h"

namespace {

std::string Name(const text& page) {
    return Chars(tag().tGetAttributeName(page.m_pStart, page), page);
}

std::string Value(const text& page) {
    text value("left over");
    const char* const p = tag().pGetAttributeValue(page.m_pStart, value, page);
    return Chars(value, page) + "|" + Rest(p, page);
}

std::string TagName(const text& page) {
    return Chars(OpenParser(page, nullptr).tFindNextTagName(page.m_pStart), page);
}

TEST(Attributes, NamesValuesAndCodes) {
    RunCases("attribute names", Name);
    RunCases("attribute values", Value);
    RunCases("attribute codes",
             [](const text& name) { return std::to_string(tag().nGetAttributeCode(name)); });
    text value("left over");
    EXPECT_TRUE(tag().tGetAttributeName(nullptr, FULL).IsEmpty() &&
                tag_td().pParse(nullptr, FULL) == nullptr);
    EXPECT_TRUE(tag().pGetAttributeValue(nullptr, value, FULL) == nullptr && value.IsEmpty());
    EXPECT_EQ(tag().nGetAttributeCode(text()), ATTR_NONE);
}

TEST(Attributes, EveryByteInEveryPosition) {
    struct Row {
        std::string (*scan)(const text&);
        std::string page; // '?' stands for the byte, here and in the results
        std::vector<std::pair<std::string, std::string>>
            results; // bytes, result; last the one for all others
    };
    const Row rows[] = {
        {Name, "?b ", {{"\t\n\r ", "b"}, {"=><", "?"}, {"", "?b"}}},
        {Name, "a?b ", {{"\t\n\r =><", "a"}, {"", "a?b"}}},
        {Name, "ab?", {{"\t\n\r =><", "ab"}, {"", "-"}}},
        {Value, "?b ", {{"\t\n\r =", "b| "}, {"\"", "-|-"}, {"><", "-|?b "}, {"", "?b| "}}},
        {Value, "=a?b ", {{"\t\n\r ><", "a|?b "}, {"", "a?b| "}}},
        {Value, "=\"?b\"", {{"\">", "-|b\""}, {"", "?b|"}}},
        {Value, "=\"a?b\"", {{"\">", "a|b\""}, {"", "a?b|"}}},
        {Value, "=\"ab?", {{"\">", "ab|"}, {"", "-|-"}}},
        {TagName, "?b >", {{"<", "b"}, {"", "-"}}},
        {TagName, "<?b >", {{" ", "b"}, {">", ""}, {"", "?b"}}},
        {TagName, "<a?b >", {{" >", "a"}, {"", "a?b"}}},
        {TagName, "<ab?", {{" >", "ab"}, {"", "-"}}},
    };
    for (const Row& row : rows)
        for (int i = 0; i < 256; ++i) {
            const char c = static_cast<char>(i);
            std::string page = row.page, expected = row.results.back().second;
            for (const auto& [bytes, result] : row.results)
                expected = bytes.find(c) != std::string::npos ? result : expected;
            std::replace(page.begin(), page.end(), '?', c);
            std::replace(expected.begin(), expected.end(), '?', c);
            WithFences(page, [&](const text& t) { EXPECT_EQ(row.scan(t), expected) << row.page << i; });
        }
}

// The fields that a parse from p gives to a record that already holds all it can, and where the parse
// stopped.
template <class Record, bool bKeepsTag>
std::string Parse(const char* p, const text& page) {
    static const text full(
        "x<x name=n href=h rel=r rev=v title=t src=s lowsrc=l alt=a align=top height=9 width=9 "
        "border=9 hspace=9 vspace=9 usemap=u ismap valign=top nowrap rowspan=9 colspan=9>");
    Record record(full.m_pStart + 3, full);
    const char* const q = record.pParse(p, page);
    const text tTag(std::find(page.m_pStart, page.m_pEnd, '<'), std::min(q, page.m_pEnd), 0);
    EXPECT_EQ(Chars(record.m_tTag, page), bKeepsTag && q != nullptr ? String(tTag) : "-");
    const std::string result = Fields(record, page) + "|" + Rest(q, page);
    const char* const pTag = record.m_tTag.m_pStart;
    record.Clear();
    EXPECT_EQ(Fields(record, page), "");
    EXPECT_EQ(record.m_tTag.m_pStart, pTag) << "Clear leaves the tag's slice";
    return result;
}

TEST(Records, Parse) {
    RunCases("anchors", [](const text& page) { return Parse<tag_a, true>(page.m_pStart + 3, page); });
    RunCases("images", [](const text& page) { return Parse<tag_img, true>(page.m_pStart + 5, page); });
    RunCases("tables", [](const text& page) { return Parse<tag_table, false>(page.m_pStart + 6, page); });
    RunCases("rows", [](const text& page) { return Parse<tag_tr, false>(page.m_pStart + 3, page); });
    RunCases("cells", [](const text& page) { return Parse<tag_td, false>(page.m_pStart + 3, page); });
}

} // namespace
