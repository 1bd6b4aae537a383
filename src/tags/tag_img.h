// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_TAGS_TAG_IMG_H
#define PAGESLICE_TAGS_TAG_IMG_H

#include "output/alt_text.h"
#include "pageslice/records.h"

inline namespace pageslice_v1 {

// An image tag. Only the attributes from src to usemap take a value; the words of any other attribute's
// value are met as names. pParse also gives null when no '<' stands before `p` above the page's first
// character.
class tag_img : public tag {
public:
    tag_img();
    tag_img(const char* p, const text& page);
    void Clear() noexcept;
    const char* pParse(const char* p, const text& page) noexcept;
    void PrintDebug() const;

    url m_urlSrc;
    url m_urlLowSrc;
    alt_text m_altText;
    align m_align;
    int m_nHeight;
    int m_nWidth;
    int m_nBorder;
    int m_nHSpace;
    int m_nVSpace;
    url m_urlUseMap;
    int m_bIsMap;
};

} // namespace pageslice_v1

#endif
