#include "pageslice/html_parser.h"

#include <climits>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

#include "output/output_text.h"
#include "output/plain_text.h"
#include "parser/image_walk.h"
#include "scan/primitives.h"
#include "text/byte_count.h"

namespace {

char* pCopyUrl(const char* pUrl) {
    if (pUrl == nullptr) {
        return nullptr;
    }
    const std::size_t nSize = std::strlen(pUrl) + 1;
    return static_cast<char*>(std::memcpy(new char[nSize], pUrl, nSize));
}

} // namespace

HtmlParser::HtmlParser() : m_pUrl(nullptr), m_bInitialized(0) {}

HtmlParser::HtmlParser(const text& tPage, const char* pUrl) : HtmlParser() {
    Load(tPage, pUrl, 0);
}

HtmlParser::HtmlParser(const HtmlParser& other)
    : m_tPage(other.m_tPage), m_tagTr(other.m_tagTr), m_tagTd(other.m_tagTd), m_tagTable(other.m_tagTable),
      m_tTitle(other.m_tTitle), m_vCellTexts(other.m_vCellTexts), m_vListItems(other.m_vListItems),
      m_urlMap(other.m_urlMap), m_pUrl(pCopyUrl(other.m_pUrl)), m_language(other.m_language),
      m_bInitialized(other.m_bInitialized) {}

HtmlParser& HtmlParser::operator=(const HtmlParser& other) {
    if (this == &other) {
        return *this;
    }
    // Whatever can fail happens first, so that a failure leaves this parser as it was.
    std::vector<text> vCellTexts(other.m_vCellTexts);
    std::vector<text> vListItems(other.m_vListItems);
    UrlMap urlMap(other.m_urlMap);
    std::unique_ptr<char[]> pUrl(pCopyUrl(other.m_pUrl));

    m_tPage = other.m_tPage;
    m_tagTr = other.m_tagTr;
    m_tagTd = other.m_tagTd;
    m_tagTable = other.m_tagTable;
    m_tTitle = other.m_tTitle;
    m_vCellTexts = std::move(vCellTexts);
    m_vListItems = std::move(vListItems);
    m_urlMap = std::move(urlMap);
    delete[] m_pUrl;
    m_pUrl = pUrl.release();
    m_language = other.m_language;
    m_bInitialized = other.m_bInitialized;
    m_imageTrail.Clear();
    return *this;
}

HtmlParser::~HtmlParser() {
    delete[] m_pUrl;
}

int HtmlParser::Load(const text& tPage, const char* pUrl, int bIndex) {
    // Both arguments are taken before anything is given up: they may be this parser's own.
    const text tNewPage(tPage);
    char* const pNewUrl = pCopyUrl(pUrl);
    Clear();
    delete[] m_pUrl;
    m_pUrl = pNewUrl;
    m_tPage = tNewPage;
    if (bIndex != 0) {
        InitializeHtmlFile();
    }
    return 0;
}

void HtmlParser::Clear() noexcept {
    m_tagTr.Clear();
    m_tagTd.Clear();
    m_tagTable.Clear();
    m_tTitle.Clear();
    m_urlMap.Clear();
    m_vCellTexts.clear();
    m_vListItems.clear();
    m_bInitialized = 0;
    m_imageTrail.Clear();
}

int HtmlParser::bConvertHtmlToPlainText(char** ppText) {
    if (ppText == nullptr) {
        return 0;
    }
    *ppText = nullptr;
    const std::size_t n = nByteCount(m_tPage);
    if (n > INT_MAX) {
        return 0;
    }
    char* const pText = new (std::nothrow) char[n + 1];
    *ppText = pText;
    if (pText == nullptr) {
        return 0;
    }
    OutputText out;
    out.SetBufferUnfilled(pText, pText + n);
    WritePlainText(m_tPage, out);
    Scan().Clear(out.m_pCurrent, out.m_pBufEnd + 1);
    return 1;
}

char* HtmlParser::pMakeTitleCopy() const {
    return m_tTitle.pMakeCopy();
}
