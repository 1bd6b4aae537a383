#include "tags/tag_img.h"

#include "tags/parse_attributes.h"

tag_img::tag_img() {
    Clear();
}

tag_img::tag_img(const char* p, const text& page) {
    pParse(p, page);
}

void tag_img::Clear() noexcept {
    m_urlSrc.Clear();
    m_urlLowSrc.Clear();
    m_altText.Clear();
    m_align = ALIGN_UNKNOWN;
    m_nHeight = -1;
    m_nWidth = -1;
    m_nBorder = -1;
    m_nHSpace = -1;
    m_nVSpace = -1;
    m_urlUseMap.Clear();
    m_bIsMap = 0;
}

const char* tag_img::pParse(const char* p, const text& page) noexcept {
    const auto bTakesValue = [](int nCode) { return nCode >= ATTR_SRC && nCode <= ATTR_USEMAP; };
    const auto store = [this](int nCode, const text& value) {
        switch (nCode) {
        case ATTR_SRC: m_urlSrc = value; break;
        case ATTR_LOWSRC: m_urlLowSrc = value; break;
        case ATTR_ALT: m_altText = value; break;
        case ATTR_ALIGN: m_align = value.ConvertToAlign(); break;
        case ATTR_HEIGHT: m_nHeight = nNumberOf(value); break;
        case ATTR_WIDTH: m_nWidth = nNumberOf(value); break;
        case ATTR_BORDER: m_nBorder = nNumberOf(value); break;
        case ATTR_HSPACE: m_nHSpace = nNumberOf(value); break;
        case ATTR_VSPACE: m_nVSpace = nNumberOf(value); break;
        case ATTR_USEMAP: m_urlUseMap = value; break;
        case ATTR_ISMAP: m_bIsMap = 1; break;
        default: break;
        }
    };
    Clear();
    return pSetTag(*this, p, pParseAttributes(p, page, bTakesValue, store), page);
}
