// SPDX-License-Identifier: MIT
#include "pageslice/url.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/afx_parse_url.h"
#include "text/byte_count.h"
#include "url/bounded_length.h"

inline namespace pageslice_v1 {

using namespace pageslice;

namespace {

// The length of "http://", the head that every URL is taken to have.
constexpr int HEAD_LENGTH = 7;

// How many characters of `word` the text read so far ends with, after `c` was read behind nMatched of them.
// borders[i]: how many characters of `word` its own beginning up to i ends with, that whole not counted.
std::size_t nMatchedAfter(char c, std::size_t nMatched, std::string_view word,
                          const std::vector<std::size_t>& borders) {
    while (nMatched > 0 && c != word[nMatched]) {
        nMatched = borders[nMatched - 1];
    }
    return nMatched + (c == word[nMatched] ? 1 : 0);
}

// Index of the first occurrence of the non-empty `word`, or npos. It never looks back in `s`: a host that
// nearly occurs in the scheme over and over would make the plain search quadratic.
std::size_t nFindWord(std::string_view s, std::string_view word) {
    std::vector<std::size_t> borders(word.size(), 0);
    for (std::size_t i = 1; i < word.size(); ++i) {
        borders[i] = nMatchedAfter(word[i], borders[i - 1], word, borders);
    }
    std::size_t nMatched = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        nMatched = nMatchedAfter(s[i], nMatched, word, borders);
        if (nMatched == word.size()) {
            return i + 1 - nMatched;
        }
    }
    return std::string_view::npos;
}

} // namespace

url& url::operator=(text t) noexcept {
    text::operator=(t);
    return *this;
}

text url::tGetHostName(const char* pUrl) noexcept {
    return tGetHostName(text(pUrl));
}

text url::tGetHostName(const text& tUrl) noexcept {
    if (nByteCount(tUrl) == 0 || tUrl.GetLength() < HEAD_LENGTH) {
        return {};
    }
    const char* const pHost = tUrl.m_pStart + HEAD_LENGTH;
    const char* pEnd = pHost;
    while (*pEnd != '/' && *pEnd != '\0') {
        ++pEnd;
    }
    return {pHost, pEnd - 1, 0};
}

void url::tGetHostName(const text& tUrl, std::string& host) {
    const std::unique_ptr<char[]> pCopy(tUrl.pMakeCopy());
    if (pCopy == nullptr) {
        return;
    }
    std::uint32_t nServiceType = 0;
    std::string object;
    std::uint16_t nPort = 0;
    AfxParseURL(pCopy.get(), nServiceType, host, object, nPort);
}

text url::tGetDomainName(const text& tUrl) {
    std::string host;
    tGetHostName(tUrl, host);
    if (host.empty()) {
        return {};
    }
    const std::size_t nUrl =
        nBoundedLength(tUrl.m_pStart, static_cast<std::size_t>(tUrl.m_pEnd - tUrl.m_pStart) + 1);
    const std::size_t nHost = nFindWord({tUrl.m_pStart, nUrl}, host);
    if (nHost == std::string_view::npos) {
        return {};
    }
    const char* const pHost = tUrl.m_pStart + nHost;
    return tGetExtension(text(pHost, pHost + host.size() - 1, 0));
}

text url::tGetHostName() const noexcept {
    return tGetHostName(static_cast<const text&>(*this));
}

text url::tGetExtension(const text& tUrl) noexcept {
    if (nByteCount(tUrl) == 0 || *tUrl.m_pEnd == '.') {
        return {};
    }
    const char* p = tUrl.m_pEnd;
    while (p > tUrl.m_pStart && p[-1] != '.') {
        --p;
    }
    return {p, tUrl.m_pEnd, 0};
}

text url::tGetExtension(const char* pUrl) noexcept {
    return tGetExtension(text(pUrl));
}

text url::tGetExtension() const noexcept {
    return tGetExtension(static_cast<const text&>(*this));
}

text url::tGetFileTitle(const text& tUrl) noexcept {
    if (nByteCount(tUrl) == 0) {
        return {};
    }
    bool bDotSeen = false;
    const char* pTitleStart = nullptr;
    const char* pTitleEnd = nullptr;
    for (const char* p = tUrl.m_pEnd + 1; p > tUrl.m_pStart;) {
        --p;
        if (*p == '.') {
            bDotSeen = true;
        } else if (*p == '/') {
            // A '/' at the very end closes the last segment and does not begin a title.
            pTitleStart = pTitleStart == nullptr && p != tUrl.m_pEnd ? p + 1 : pTitleStart;
        } else if (bDotSeen && pTitleEnd == nullptr) {
            pTitleEnd = p;
        }
    }
    if (pTitleEnd == nullptr) {
        return {};
    }
    return {pTitleStart == nullptr ? tUrl.m_pStart : pTitleStart, pTitleEnd, 0};
}

text url::tGetFileTitle(const char* pUrl) noexcept {
    return tGetFileTitle(text(pUrl));
}

text url::tGetFileTitle() const noexcept {
    return tGetFileTitle(static_cast<const text&>(*this));
}

} // namespace pageslice_v1
