// SPDX-License-Identifier: MIT
// The one table of tags: word, code and what the indexing pass does. All look-ups of tags are made from it
// when the library is compiled.
#ifndef PAGESLICE_PARSER_TAG_TABLE_H
#define PAGESLICE_PARSER_TAG_TABLE_H

#include <array>
#include <cstddef>
#include <iterator>
#include <vector>

#include "pageslice/html_parser.h"
#include "text/index_limits.h"
#include "text/word_table.h"

namespace pageslice {

// The texts that the pass captures, each from after a start tag to the '<' of the tag that closes it. First
// those that make a list.
enum class Captured : unsigned char { CELL, ITEM, TITLE, LINK, COUNT };

struct CapturedList {
    std::vector<text> PageIndex::*pList;
    std::size_t index_limits::*pMost;
};
inline constexpr CapturedList CAPTURED_LISTS[] = {
    {&PageIndex::m_vCellTexts, &index_limits::cells}, // CELL
    {&PageIndex::m_vListItems, &index_limits::items}, // ITEM
};
static_assert(std::size(CAPTURED_LISTS) == static_cast<std::size_t>(Captured::TITLE), "one for each");

// What the pass does at a tag.
enum class Act : unsigned char {
    NOTHING,
    OPEN,          // the row's text begins after the tag
    OPEN_OR_CLOSE, // the same; but where it is open already, it ends before the tag, and none begins
    CLOSE,         // the row's text ends before the tag
    READ_ANCHOR,   // reads the attributes, and the link's text begins
    READ_CELL,     // the same for the cell and its text
    READ_HEADER,   // reads the attributes for the tag's end alone
    READ_ROW,
    READ_TABLE,
    CLOSE_CELL,  // the cell's text ends before the tag, and the cell is forgotten
    CLOSE_ROW,   // row and cell are forgotten, an open text with them
    CLOSE_TABLE, // the table too
    MARK_IMAGE,  // for the walk that will look for images
    STOP         // the pass ends
};

struct TagAction {
    constexpr TagAction(Act actWanted, Captured textOfRow = Captured::COUNT) noexcept
        : act(actWanted), captured(textOfRow) {}

    Act act;
    Captured captured;
};

struct TagRow {
    const char* pWord;
    int nCode; // a closing tag's is TAG_END_OFFSET more
    TagAction atStart;
    TagAction atEnd;
};

// In the order of their codes.
// clang-format off
inline constexpr TagRow TAGS[] = {
    {"a",      TAG_A,       Act::READ_ANCHOR,                     {Act::CLOSE, Captured::LINK}},
    {"img",    TAG_IMG,     Act::MARK_IMAGE,                      Act::NOTHING},
    {"table",  TAG_TABLE,   Act::READ_TABLE,                      Act::CLOSE_TABLE},
    {"td",     TAG_TD,      Act::READ_CELL,                       Act::CLOSE_CELL},
    {"th",     TAG_TH,      Act::READ_HEADER,                     Act::NOTHING},
    {"tr",     TAG_TR,      Act::READ_ROW,                        Act::CLOSE_ROW},
    {"ul",     TAG_UL,      Act::NOTHING,                         {Act::CLOSE, Captured::ITEM}},
    {"ol",     TAG_OL,      Act::NOTHING,                         {Act::CLOSE, Captured::ITEM}},
    {"li",     TAG_LI,      {Act::OPEN_OR_CLOSE, Captured::ITEM}, {Act::CLOSE, Captured::ITEM}},
    {"!--",    TAG_COMMENT, Act::NOTHING,                         Act::NOTHING},
    {"meta",   TAG_META,    Act::NOTHING,                         Act::NOTHING},
    {"br",     TAG_BR,      Act::NOTHING,                         Act::NOTHING},
    {"hr",     TAG_HR,      Act::NOTHING,                         Act::NOTHING},
    {"p",      TAG_P,       Act::NOTHING,                         Act::NOTHING},
    {"center", TAG_CENTER,  Act::NOTHING,                         Act::NOTHING},
    {"pre",    TAG_PRE,     Act::NOTHING,                         Act::NOTHING},
    {"title",  TAG_TITLE,   {Act::OPEN, Captured::TITLE},         {Act::CLOSE, Captured::TITLE}},
    {"html",   TAG_HTML,    Act::NOTHING,                         Act::STOP},
};
// clang-format on

// The row of a tag at hand, by its code.
struct alignas(4) TagRule { // four bytes: the index is the offset, scaled
    TagAction action = Act::NOTHING;
    unsigned char nNameLength = 0; // with the slash of a closing tag
};

constexpr std::size_t nLongestTagWord() noexcept {
    std::size_t nLongest = 0;
    for (const TagRow& row : TAGS) {
        nLongest = nWordLength(row.pWord) > nLongest ? nWordLength(row.pWord) : nLongest;
    }
    return nLongest;
}
static_assert(1 + nLongestTagWord() + 1 <= WORD_SIZE,
              "a word with its slash and its end is looked up as one");

// Of the walk, for a name after spaces, which it does not read.
constexpr int TAG_AFTER_SPACES = 0;

constexpr bool bCodesInOrder() noexcept {
    int nCode = TAG_AFTER_SPACES;
    for (const TagRow& row : TAGS) {
        if (row.nCode != ++nCode) {
            return false;
        }
    }
    return nCode < TAG_END_OFFSET;
}
static_assert(bCodesInOrder(),
              "codes index the rules, no code is that of another tag, and none TAG_AFTER_SPACES");

constexpr auto MakeTagRules() noexcept {
    std::array<TagRule, TAG_END_OFFSET + std::size(TAGS) + 1> rules{};
    for (const TagRow& row : TAGS) {
        const auto nCode = static_cast<std::size_t>(row.nCode);
        const auto nLength = static_cast<unsigned char>(nWordLength(row.pWord));
        rules[nCode] = {row.atStart, nLength};
        rules[nCode + TAG_END_OFFSET] = {row.atEnd, static_cast<unsigned char>(nLength + 1)};
    }
    return rules;
}
inline constexpr auto TAG_RULES = MakeTagRules();

// What ends a tag's name.
inline constexpr char TAG_NAME_ENDS[] = {' ', '>'};

// For names without a slash.
constexpr auto MakeTagWords() noexcept {
    Keywords<2 * std::size(TAGS)> words;
    for (const TagRow& row : TAGS) {
        for (const char cEnd : TAG_NAME_ENDS) {
            words.Add(row.pWord, cEnd, row.nCode);
        }
    }
    return words;
}
inline constexpr WordTable<8> TAG_WORDS(MakeTagWords());

// For the walk of the pass: the tags that it acts on.
constexpr auto MakeWantedTags() noexcept {
    Keywords<4 * std::size(TAGS) + 1> words;
    for (const TagRow& row : TAGS) {
        for (const char cEnd : TAG_NAME_ENDS) {
            if (row.atStart.act != Act::NOTHING) {
                words.Add(row.pWord, cEnd, row.nCode);
            }
            if (row.atEnd.act != Act::NOTHING) {
                words.Add('/', row.pWord, cEnd, row.nCode + TAG_END_OFFSET);
            }
        }
    }
    words.Add("", ' ', TAG_AFTER_SPACES);
    return words;
}
inline constexpr WordTable<8> WANTED_TAGS(MakeWantedTags());

} // namespace pageslice

#endif
