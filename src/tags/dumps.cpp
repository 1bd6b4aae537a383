#include "tags/dumps.h"

#include <cstddef>
#include <cstdio>
#include <iterator>

#include "pageslice/records.h"
#include "tags/tag_img.h"

namespace {

void PrintField(const char* pLabel, const text& t) {
    std::printf("%s = ", pLabel);
    t.println();
}

// A URL is a slice too, but shows its file title only.
void PrintField(const char* pLabel, const url& u) {
    std::printf("%s = ", pLabel);
    u.println(1);
}

void PrintField(const char* pLabel, const align& a) {
    std::printf("%s = ", pLabel);
    PrintAlignLn(a);
}

void PrintField(const char* pLabel, int n) {
    std::printf("%s = %d\n", pLabel, n);
}

void PrintFlag(const char* pLabel, int bFlag) {
    std::printf("%s = %s\n", pLabel, bFlag != 0 ? "TRUE" : "FALSE");
}

void PrintClosingRule() {
    std::printf("------------------------------------------\n");
}

} // namespace

void PrintAlign(const align& a) {
    static constexpr const char* NAMES[] = {"ALIGN_UNKNOWN", "top",   "middle", "bottom",
                                            "left",          "right", "center"};
    const auto n = static_cast<std::size_t>(a);
    if (n < std::size(NAMES)) {
        std::printf("%s", NAMES[n]);
    }
}

void PrintAlignLn(const align& a) {
    PrintAlign(a);
    std::printf("\n");
}

void PrintTag(const char* p) {
    if (p != nullptr) {
        do {
            std::printf("%c", *p);
        } while (*p++ != '>');
    }
    std::printf("\n");
}

void tag_a::PrintDebug() const {
    std::printf("--------------- a tag --------------------\n");
    PrintField("href", m_urlHref);
    PrintField("name", m_tName);
    PrintField("rel", m_tRel);
    PrintField("rev", m_tRev);
    PrintField("title", m_tTitle);
    PrintClosingRule();
}

void tag_img::PrintDebug() const {
    std::printf("-------------- img tag -------------------\n");
    PrintField("src", m_urlSrc);
    PrintField("lowsrc", m_urlLowSrc);
    PrintField("usemap", m_urlUseMap);
    PrintField("alt text", m_altText);
    PrintField("align", m_align);
    PrintField("height", m_nHeight);
    PrintField("width", m_nWidth);
    PrintField("border", m_nBorder);
    PrintField("hspace", m_nHSpace);
    PrintField("vspace", m_nVSpace);
    PrintFlag("ismap", m_bIsMap);
    PrintClosingRule();
}

void tag_table::PrintDebug() const {
    std::printf("--------------- table tag --------------------\n");
    PrintField("caption", m_tCaption);
    PrintField("align", m_align);
    PrintField("width", m_nWidth);
    PrintField("border", m_nBorder);
    PrintField("cellspacing", m_nCellSpacing);
    PrintField("cellpadding", m_nCellPadding);
    PrintClosingRule();
}

void tag_tr::PrintDebug() const {
    std::printf("-------------- tr tag --------------------\n");
    PrintField("align", m_align);
    PrintField("valign", m_valign);
    PrintClosingRule();
}

void tag_td::PrintDebug() const {
    std::printf("-------------- td tag -------------------\n");
    PrintFields();
    PrintClosingRule();
}

void tag_td::PrintDebugTh() const {
    std::printf("-------------- th tag -------------------\n");
    PrintFields();
    PrintClosingRule();
}

void tag_td::PrintFields() const {
    PrintFlag("nowrap", m_bNoWrap);
    PrintField("rowspan", m_nRowSpan);
    PrintField("colspan", m_nColSpan);
    PrintField("align", m_align);
    PrintField("valign", m_valign);
    PrintField("width", m_nWidth);
    PrintField("height", m_nHeight);
}
