// SPDX-License-Identifier: MIT
#include "pageslice/html_parser.h"

#include <climits>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>

#include "output/output_text.h"
#include "output/plain_text.h"
#include "parser/image_trail.h"
#include "text/byte_count.h"

inline namespace pageslice_v1 {

using namespace pageslice;

namespace {

char* pCopyUrl(const char* pUrl) {
    if (pUrl == nullptr) {
        return nullptr;
    }
    const std::size_t nSize = std::strlen(pUrl) + 1;
    return static_cast<char*>(std::memcpy(new char[nSize], pUrl, nSize));
}

} // namespace

HtmlParser::HtmlParser() = default;

HtmlParser::HtmlParser(const text& tPage, const char* pUrl) : m_tPage(tPage), m_pUrl(pCopyUrl(pUrl)) {}

HtmlParser::HtmlParser(const HtmlParser& other)
    : PageIndex(other), m_tPage(other.m_tPage), m_pUrl(pCopyUrl(other.m_pUrl)), m_language(other.m_language) {
}

HtmlParser& HtmlParser::operator=(const HtmlParser& other) {
    if (this != &other) {
        // Whatever can fail happens first, so that a failure leaves this parser as it was.
        std::unique_ptr<char[]> pUrl(pCopyUrl(other.m_pUrl));
        static_cast<PageIndex&>(*this) = PageIndex(static_cast<const PageIndex&>(other));
        m_tPage = other.m_tPage;
        delete[] m_pUrl;
        m_pUrl = pUrl.release();
        m_language = other.m_language;
    }
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
    static_cast<PageIndex&>(*this) = {};
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
    return 1;
}

char* HtmlParser::pMakeTitleCopy() const {
    return m_tTitle.pMakeCopy();
}

} // namespace pageslice_v1
