// SPDX-License-Identifier: MIT
// The tables of attributes: which words there are, and for each record which of them it reads and where their
// values go. Look-ups, parses, Clear and the debug dumps are made from them. A new attribute is a word, a row
// and the field of a record.
#ifndef PAGESLICE_TAGS_ATTRIBUTE_TABLES_H
#define PAGESLICE_TAGS_ATTRIBUTE_TABLES_H

#include <cstddef>
#include <cstdint>
#include <tuple>

#include "pageslice/records.h"
#include "tags/tag_img.h"
#include "text/string_utils.h"

namespace pageslice {

struct AttributeWord {
    const char* pWord;
    int nCode;
};
inline constexpr AttributeWord ATTRIBUTE_WORDS[] = {
    {"src", ATTR_SRC},       {"lowsrc", ATTR_LOWSRC}, {"alt", ATTR_ALT},         {"align", ATTR_ALIGN},
    {"height", ATTR_HEIGHT}, {"width", ATTR_WIDTH},   {"border", ATTR_BORDER},   {"hspace", ATTR_HSPACE},
    {"vspace", ATTR_VSPACE}, {"usemap", ATTR_USEMAP}, {"ismap", ATTR_ISMAP},     {"name", ATTR_NAME},
    {"href", ATTR_HREF},     {"rel", ATTR_REL},       {"rev", ATTR_REV},         {"title", ATTR_TITLE},
    {"valign", ATTR_VALIGN}, {"nowrap", ATTR_NOWRAP}, {"rowspan", ATTR_ROWSPAN}, {"colspan", ATTR_COLSPAN},
};

// What an attribute's value becomes, by the field that it goes to. A number is read from the value's own
// characters only.
inline void PutValue(text& field, const text& value) noexcept {
    field = value;
}
inline void PutValue(url& field, const text& value) noexcept {
    field = value;
}
inline void PutValue(alt_text& field, const text& value) noexcept {
    field = value;
}
inline void PutValue(align& field, const text& value) noexcept {
    field = value.ConvertToAlign();
}
inline void PutValue(int& field, const text& value) noexcept {
    field = nParseDecimal(value.m_pStart, static_cast<std::size_t>(value.m_pEnd - value.m_pStart) + 1);
}

// A field while its attribute is not given.
inline void PutNothing(text& field) noexcept {
    field.Clear();
}
inline void PutNothing(align& field) noexcept {
    field = ALIGN_UNKNOWN;
}
inline void PutNothing(int& field) noexcept {
    field = -1;
}

// An attribute whose value fills a field. The label is that of the dump.
template <class Record, class Field>
struct Attribute {
    constexpr Attribute(const char* pItsLabel, int nItsCode, Field Record::*pItsField) noexcept
        : pLabel(pItsLabel), nCode(nItsCode), pField(pItsField) {}

    const char* pLabel;
    int nCode;
    Field Record::*pField;
    static constexpr bool TAKES_VALUE = true;

    void Clear(Record& record) const noexcept { PutNothing(record.*pField); }
    void Store(Record& record, const text& value) const noexcept { PutValue(record.*pField, value); }
};

// An attribute whose name alone counts: no value is read.
template <class Record>
struct Flag {
    constexpr Flag(const char* pItsLabel, int nItsCode, int Record::*pItsFlag) noexcept
        : pLabel(pItsLabel), nCode(nItsCode), pFlag(pItsFlag) {}

    const char* pLabel;
    int nCode;
    int Record::*pFlag;
    static constexpr bool TAKES_VALUE = false;

    void Clear(Record& record) const noexcept { record.*pFlag = 0; }
    void Store(Record& record, const text& /*value*/) const noexcept { record.*pFlag = 1; }
};

// An attribute whose value is read past.
struct ReadPast {
    int nCode;
    static constexpr bool TAKES_VALUE = true;

    template <class Record>
    void Clear(Record& /*record*/) const noexcept {}
    template <class Record>
    void Store(Record& /*record*/, const text& /*value*/) const noexcept {}
};

// A field that no attribute fills.
template <class Record, class Field>
struct Unfilled {
    constexpr Unfilled(const char* pItsLabel, Field Record::*pItsField) noexcept
        : pLabel(pItsLabel), pField(pItsField) {}

    const char* pLabel;
    Field Record::*pField;
    static constexpr int nCode = ATTR_NONE;
    static constexpr bool TAKES_VALUE = true;

    void Clear(Record& record) const noexcept { PutNothing(record.*pField); }
    void Store(Record& /*record*/, const text& /*value*/) const noexcept {}
};

// Whether the names that a record does not list take a value too, which is read past. If they do not, the
// words of such a value are met as names.
enum class Others { TAKE_VALUE, TAKE_NONE };

template <Others OTHERS, class... Rows>
class AttributeTable {
public:
    constexpr explicit AttributeTable(Rows... rows) noexcept : m_rows(rows...), m_nTaking(nTaking(rows...)) {}

    constexpr bool bTakesValue(int nCode) const noexcept {
        return OTHERS == Others::TAKE_VALUE || (nCode < CODES && (m_nTaking >> nCode & 1) != 0);
    }

    // Calls visit(row) for each row, in the order of the dump.
    template <class Visit>
    void ForEach(Visit visit) const {
        std::apply([&visit](const Rows&... rows) { (visit(rows), ...); }, m_rows);
    }

    template <class Record>
    void Clear(Record& record) const noexcept {
        ForEach([&record](const auto& row) { row.Clear(record); });
    }

    template <class Record>
    void Store(Record& record, int nCode, const text& value) const noexcept {
        std::apply(
            [&](const Rows&... rows) {
                static_cast<void>(((nCode == rows.nCode ? (rows.Store(record, value), true) : false) || ...));
            },
            m_rows);
    }

private:
    static constexpr int CODES = 32; // attributes have lower ones

    static constexpr std::uint32_t nTaking(const Rows&... rows) noexcept {
        return ((Rows::TAKES_VALUE && rows.nCode < CODES ? std::uint32_t{1} << rows.nCode : 0) | ...);
    }

    std::tuple<Rows...> m_rows;
    std::uint32_t m_nTaking; // a bit for each code whose name takes a value
};

template <Others OTHERS, class... Rows>
constexpr AttributeTable<OTHERS, Rows...> MakeAttributeTable(Rows... rows) noexcept {
    return AttributeTable<OTHERS, Rows...>(rows...);
}

// clang-format off

inline constexpr auto ANCHOR_ATTRIBUTES = MakeAttributeTable<Others::TAKE_VALUE>(
    Attribute("href", ATTR_HREF, &tag_a::m_urlHref),
    Attribute("name", ATTR_NAME, &tag_a::m_tName),
    Attribute("rel", ATTR_REL, &tag_a::m_tRel),
    Attribute("rev", ATTR_REV, &tag_a::m_tRev),
    Attribute("title", ATTR_TITLE, &tag_a::m_tTitle));

inline constexpr auto IMAGE_ATTRIBUTES = MakeAttributeTable<Others::TAKE_NONE>(
    Attribute("src", ATTR_SRC, &tag_img::m_urlSrc),
    Attribute("lowsrc", ATTR_LOWSRC, &tag_img::m_urlLowSrc),
    Attribute("usemap", ATTR_USEMAP, &tag_img::m_urlUseMap),
    Attribute("alt text", ATTR_ALT, &tag_img::m_altText),
    Attribute("align", ATTR_ALIGN, &tag_img::m_align),
    Attribute("height", ATTR_HEIGHT, &tag_img::m_nHeight),
    Attribute("width", ATTR_WIDTH, &tag_img::m_nWidth),
    Attribute("border", ATTR_BORDER, &tag_img::m_nBorder),
    Attribute("hspace", ATTR_HSPACE, &tag_img::m_nHSpace),
    Attribute("vspace", ATTR_VSPACE, &tag_img::m_nVSpace),
    Flag("ismap", ATTR_ISMAP, &tag_img::m_bIsMap));

inline constexpr auto TABLE_ATTRIBUTES = MakeAttributeTable<Others::TAKE_VALUE>(
    Unfilled("caption", &tag_table::m_tCaption),
    Attribute("align", ATTR_ALIGN, &tag_table::m_align),
    Attribute("width", ATTR_WIDTH, &tag_table::m_nWidth),
    Attribute("border", ATTR_BORDER, &tag_table::m_nBorder),
    Unfilled("cellspacing", &tag_table::m_nCellSpacing),
    Unfilled("cellpadding", &tag_table::m_nCellPadding));

inline constexpr auto ROW_ATTRIBUTES = MakeAttributeTable<Others::TAKE_VALUE>(
    Attribute("align", ATTR_ALIGN, &tag_tr::m_align),
    Attribute("valign", ATTR_VALIGN, &tag_tr::m_valign));

inline constexpr auto CELL_ATTRIBUTES = MakeAttributeTable<Others::TAKE_NONE>(
    Flag("nowrap", ATTR_NOWRAP, &tag_td::m_bNoWrap),
    Attribute("rowspan", ATTR_ROWSPAN, &tag_td::m_nRowSpan),
    Attribute("colspan", ATTR_COLSPAN, &tag_td::m_nColSpan),
    Attribute("align", ATTR_ALIGN, &tag_td::m_align),
    Attribute("valign", ATTR_VALIGN, &tag_td::m_valign),
    Attribute("width", ATTR_WIDTH, &tag_td::m_nWidth),
    Attribute("height", ATTR_HEIGHT, &tag_td::m_nHeight),
    ReadPast{ATTR_HSPACE},
    ReadPast{ATTR_VSPACE},
    ReadPast{ATTR_USEMAP});

// clang-format on

} // namespace pageslice

#endif
