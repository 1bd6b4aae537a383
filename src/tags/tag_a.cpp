#include "pageslice/records.h"
#include "tags/parse_attributes.h"

tag_a::tag_a() = default;

tag_a::tag_a(const char* p, const text& page) {
    pParse(p, page);
}

void tag_a::Clear() noexcept {
    m_tName.Clear();
    m_urlHref.Clear();
    m_tRel.Clear();
    m_tRev.Clear();
    m_tTitle.Clear();
}

const char* tag_a::pParse(const char* p, const text& page) noexcept {
    const auto store = [this](int nCode, const text& value) {
        switch (nCode) {
        case ATTR_NAME: m_tName = value; break;
        case ATTR_HREF: m_urlHref = value; break;
        case ATTR_REL: m_tRel = value; break;
        case ATTR_REV: m_tRev = value; break;
        case ATTR_TITLE: m_tTitle = value; break;
        default: break;
        }
    };
    Clear();
    const char* const q = pParseAttributes(
        pSkipTagWord(p, page), page, [](int) { return true; }, store);
    return pSetTag(*this, p, q, page);
}
