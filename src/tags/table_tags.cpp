#include "pageslice/records.h"
#include "tags/parse_attributes.h"

namespace {

bool bEveryNameTakesValue(int /*nCode*/) noexcept {
    return true;
}

bool bTakesValueInCell(int nCode) noexcept {
    switch (nCode) {
    case ATTR_ALIGN:
    case ATTR_HEIGHT:
    case ATTR_WIDTH:
    case ATTR_HSPACE:
    case ATTR_VSPACE:
    case ATTR_USEMAP:
    case ATTR_VALIGN:
    case ATTR_ROWSPAN:
    case ATTR_COLSPAN: return true;
    default: return false;
    }
}

} // namespace

tag_table::tag_table() {
    Clear();
}

tag_table::tag_table(const char* p, const text& page) {
    pParse(p, page);
}

void tag_table::Clear() noexcept {
    m_tCaption.Clear();
    m_align = ALIGN_UNKNOWN;
    m_nWidth = -1;
    m_nBorder = -1;
    m_nCellSpacing = -1;
    m_nCellPadding = -1;
}

const char* tag_table::pParse(const char* p, const text& page) noexcept {
    const auto store = [this](int nCode, const text& value) {
        switch (nCode) {
        case ATTR_ALIGN: m_align = value.ConvertToAlign(); break;
        case ATTR_WIDTH: m_nWidth = nNumberOf(value); break;
        case ATTR_BORDER: m_nBorder = nNumberOf(value); break;
        default: break;
        }
    };
    Clear();
    return pParseAttributes(p, page, bEveryNameTakesValue, store);
}

tag_tr::tag_tr() {
    Clear();
}

tag_tr::tag_tr(const char* p, const text& page) {
    pParse(p, page);
}

void tag_tr::Clear() noexcept {
    m_align = ALIGN_UNKNOWN;
    m_valign = ALIGN_UNKNOWN;
}

const char* tag_tr::pParse(const char* p, const text& page) noexcept {
    const auto store = [this](int nCode, const text& value) {
        switch (nCode) {
        case ATTR_ALIGN: m_align = value.ConvertToAlign(); break;
        case ATTR_VALIGN: m_valign = value.ConvertToAlign(); break;
        default: break;
        }
    };
    Clear();
    return pParseAttributes(pSkipTagWord(p, page), page, bEveryNameTakesValue, store);
}

tag_td::tag_td() {
    Clear();
}

tag_td::tag_td(const char* p, const text& page) {
    pParse(p, page);
}

void tag_td::Clear() noexcept {
    m_bNoWrap = 0;
    m_nRowSpan = -1;
    m_nColSpan = -1;
    m_align = ALIGN_UNKNOWN;
    m_valign = ALIGN_UNKNOWN;
    m_nWidth = -1;
    m_nHeight = -1;
}

const char* tag_td::pParse(const char* p, const text& page) noexcept {
    const auto store = [this](int nCode, const text& value) {
        switch (nCode) {
        case ATTR_NOWRAP: m_bNoWrap = 1; break;
        case ATTR_ALIGN: m_align = value.ConvertToAlign(); break;
        case ATTR_VALIGN: m_valign = value.ConvertToAlign(); break;
        case ATTR_WIDTH: m_nWidth = nNumberOf(value); break;
        case ATTR_HEIGHT: m_nHeight = nNumberOf(value); break;
        case ATTR_ROWSPAN: m_nRowSpan = nNumberOf(value); break;
        case ATTR_COLSPAN: m_nColSpan = nNumberOf(value); break;
        default: break; // hspace, vspace and usemap are read past; the rest has no value here
        }
    };
    Clear();
    return pParseAttributes(pSkipTagWord(p, page), page, bTakesValueInCell, store);
}
