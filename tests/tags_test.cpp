// SPDX-License-Identifier: MIT
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
    return Joined(Chars(value, page), Rest(p, page));
}

std::string TagName(const text& page) {
    return Chars(OpenParser(page, nullptr).tFindNextTagName(page.m_pStart), page);
}

TEST(Attributes, Names) {
    RunPages("attribute names", Name);
    EXPECT_TRUE(tag().tGetAttributeName(nullptr, FULL).IsEmpty());
}

TEST(Attributes, Values) {
    RunPages("attribute values", Value);
    text value("left over");
    EXPECT_EQ(tag().pGetAttributeValue(nullptr, value, FULL), nullptr);
    EXPECT_TRUE(value.IsEmpty());
}

TEST(Attributes, Codes) {
    RunCases("attribute codes",
             [](const text& name) { return std::to_string(tag().nGetAttributeCode(name)); });
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

// The fields that a parse gives to a record that already holds all it can, and where the parse stopped. It
// starts so many characters behind the first '<'.
template <class Record, int nBehindOpen, bool bKeepsTag>
std::string Parse(const text& page) {
    static const text full(
        "x<x name=n href=h rel=r rev=v title=t src=s lowsrc=l alt=a align=top height=9 width=9 "
        "border=9 hspace=9 vspace=9 usemap=u ismap valign=top nowrap rowspan=9 colspan=9>");
    Record record(full.m_pStart + 3, full);
    EXPECT_EQ(record.pParse(nullptr, page), nullptr);
    const char* const pOpen = std::find(page.m_pStart, page.m_pEnd, '<');
    const char* const q = record.pParse(pOpen + nBehindOpen, page);
    const text tTag(pOpen, std::min(q, page.m_pEnd), 0);
    EXPECT_EQ(Chars(record.m_tTag, page), bKeepsTag && q != nullptr ? String(tTag) : "-");
    const std::string result = Joined(Fields(record, page), Rest(q, page));
    const char* const pTag = record.m_tTag.m_pStart;
    record.Clear();
    EXPECT_EQ(Fields(record, page), "");
    EXPECT_EQ(record.m_tTag.m_pStart, pTag) << "Clear leaves the tag's slice";
    return result;
}

TEST(Records, Anchors) {
    RunPages("anchors", Parse<tag_a, 2, true>);
}
TEST(Records, Images) {
    RunPages("images", Parse<tag_img, 4, true>);
}
TEST(Records, Tables) {
    RunPages("tables", Parse<tag_table, 6, false>);
}
TEST(Records, Rows) {
    RunPages("rows", Parse<tag_tr, 3, false>);
}
TEST(Records, Cells) {
    RunPages("cells", Parse<tag_td, 3, false>);
}

} // namespace
