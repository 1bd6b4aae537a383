// SPDX-License-Identifier: MIT
#include "pageslice/records.h"
#include "tags/parse_attributes.h"

inline namespace pageslice_v1 {

using namespace pageslice;

tag_table::tag_table() {
    Clear();
}

tag_table::tag_table(const char* p, const text& page) {
    pParse(p, page);
}

void tag_table::Clear() noexcept {
    TABLE_ATTRIBUTES.Clear(*this);
}

const char* tag_table::pParse(const char* p, const text& page) noexcept {
    return pParseAttributes(*this, TABLE_ATTRIBUTES, p, page);
}

tag_tr::tag_tr() {
    Clear();
}

tag_tr::tag_tr(const char* p, const text& page) {
    pParse(p, page);
}

void tag_tr::Clear() noexcept {
    ROW_ATTRIBUTES.Clear(*this);
}

const char* tag_tr::pParse(const char* p, const text& page) noexcept {
    return pParseAttributes(*this, ROW_ATTRIBUTES, pSkipTagWord(p, page), page);
}

tag_td::tag_td() {
    Clear();
}

tag_td::tag_td(const char* p, const text& page) {
    pParse(p, page);
}

void tag_td::Clear() noexcept {
    CELL_ATTRIBUTES.Clear(*this);
}

const char* tag_td::pParse(const char* p, const text& page) noexcept {
    return pParseAttributes(*this, CELL_ATTRIBUTES, pSkipTagWord(p, page), page);
}

} // namespace pageslice_v1
