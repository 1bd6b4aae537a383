// SPDX-License-Identifier: MIT
// Whole URLs: where the path begins, the canonical form, resolution and comparison.
#include "pageslice/url.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstring>
#include <memory>

#include "text/char_tables.h"
#include "text/string_utils.h"

inline namespace pageslice_v1 {

namespace {

// URLs are read as ISO 8859-1.
constexpr int URL_CHARACTER_SET = 0;

// The tables begin 128 places before the entry of character 0, to be indexed with signed characters.
int nTableIndex(char c) noexcept {
    return static_cast<signed char>(c) + 128;
}

bool bIsUrlSpace(char c) noexcept {
    return (g_charClass[URL_CHARACTER_SET][nTableIndex(c)] & CT_SPACE) != 0;
}

unsigned char nToLower(char c) noexcept {
    return g_charToLower[URL_CHARACTER_SET][nTableIndex(c)];
}

void MakeLower(char* pFirst, char* pEnd) noexcept {
    std::transform(pFirst, pEnd, pFirst, [](char c) { return static_cast<char>(nToLower(c)); });
}

const char* pNeverNull(const char* s) noexcept {
    return s == nullptr ? "" : s;
}

int nClampToInt(std::size_t n) noexcept {
    return static_cast<int>(std::min<std::size_t>(n, INT_MAX));
}

// Length of the scheme with its ':', or 0. A ':' counts only when some '/' follows it.
std::size_t nSchemeLength(const char* s) noexcept {
    const std::size_t n = std::strcspn(s, ":/");
    return s[n] == ':' && std::strchr(s + n, '/') != nullptr ? n + 1 : 0;
}

// nFindPathStart without its int. Where the host ends the string, the '/' behind it is counted all the same.
std::size_t nPathStart(const char* s) noexcept {
    const std::size_t nScheme = nSchemeLength(s);
    const std::size_t nSlashes = std::strspn(s + nScheme, "/");
    const std::size_t nStart = nScheme + nSlashes;
    return nSlashes == 2 ? nStart + std::strcspn(s + nStart, "/") + 1 : nStart;
}

// Takes white space off the front, and everything from the next white space on off the back.
void TrimToFirstWord(char* s) noexcept {
    const char* p = s;
    while (bIsUrlSpace(*p)) {
        ++p;
    }
    while (*p != '\0' && !bIsUrlSpace(*p)) {
        *s++ = *p++;
    }
    *s = '\0';
}

// Characters that the canonical form loses at `p`: those of "//", "/./" and "/../" without the '/' that
// closes them; 0 elsewhere.
int nFoldableAt(const char* p) noexcept {
    if (p[0] != '/') {
        return 0;
    }
    if (p[1] == '/') {
        return 1;
    }
    if (p[1] != '.') {
        return 0;
    }
    if (p[2] == '/') {
        return 2;
    }
    return p[2] == '.' && p[3] == '/' ? 3 : 0;
}

// Folds the path behind its root. What stands before pTo is done, what stands at pFrom is still to be read,
// the gap between the two is what was removed. A step up takes the last segment back from what is done, so
// no byte is walked over backwards more than once.
void FoldPath(const char* pRoot, char* pScan) noexcept {
    char* pTo = pScan;
    const char* pFrom = pScan;
    while (*pFrom != '\0') {
        const int nFolded = nFoldableAt(pFrom);
        if (nFolded == 0) {
            *pTo++ = *pFrom++;
            continue;
        }
        pFrom += nFolded;
        if (nFolded == 3 && pTo != pRoot) {
            // Back to the '/' before the segment. The root ends the way up, whatever character it is.
            do {
                --pTo;
            } while (pTo != pRoot && *pTo != '/');
        }
    }
    *pTo = '\0';
}

// A new string of `nHead` characters of `pHead` and all of `pTail`; the caller releases it with delete[].
char* pJoin(const char* pHead, std::size_t nHead, const char* pTail) {
    const std::size_t nTail = std::strlen(pTail) + 1;
    char* const pJoined = new char[nHead + nTail];
    std::memcpy(pJoined, pHead, nHead);
    std::memcpy(pJoined + nHead, pTail, nTail);
    return pJoined;
}

// pResolveUrl before the result is brought into canonical form.
char* pJoinUrls(const char* pBase, const char* pUrl) {
    if (pUrl[std::strcspn(pUrl, ":/")] == ':') {
        return pJoin("", 0, pUrl);
    }
    if (*pUrl != '/') {
        const char* const pSlash = std::strrchr(pBase, '/');
        return pJoin(pBase, pSlash == nullptr ? 0 : static_cast<std::size_t>(pSlash - pBase) + 1, pUrl);
    }
    const std::size_t nRoot = nPathStart(pBase);
    if (nRoot == 0) {
        return pJoin("", 0, pUrl); // such a base names no place that the URL could be rooted in
    }
    // Where the host ends the base, the '/' that the URL begins with is the one that joins them.
    const std::size_t nBase = std::strlen(pBase);
    return nRoot > nBase ? pJoin(pBase, nBase, pUrl) : pJoin(pBase, nRoot, pUrl + 1);
}

struct Difference {
    std::size_t nIndex;
    int nOrder; // -1, 0 or 1
};

Difference FindDifference(const char* a, const char* b) noexcept {
    // Reaches no further than the shorter string's NUL: there the two differ, or both end.
    const std::size_t nPath = std::min(nPathStart(a), nPathStart(b));
    for (std::size_t i = 0; i < nPath; ++i) {
        if (nToLower(a[i]) != nToLower(b[i])) {
            return {i, nToLower(a[i]) < nToLower(b[i]) ? -1 : 1};
        }
    }
    const std::size_t nA = std::strlen(a);
    const std::size_t nB = std::strlen(b);
    const std::size_t nShorter = std::min(nA, nB);
    for (std::size_t i = nPath; i < nShorter; ++i) {
        if (a[i] != b[i]) {
            return {i, static_cast<signed char>(a[i]) < static_cast<signed char>(b[i]) ? -1 : 1};
        }
    }
    return {std::max(nPath, nShorter), (nA > nB ? 1 : 0) - (nA < nB ? 1 : 0)};
}

} // namespace

int url::nFindPathStart(const char* pUrl) noexcept {
    return nClampToInt(nPathStart(pNeverNull(pUrl)));
}

int url::bHasServerPart(const char* pUrl) noexcept {
    const char* const s = pNeverNull(pUrl);
    const char* const pColon = std::strchr(s, ':');
    return pColon != nullptr && nPathStart(s) != 0 && std::strncmp(pColon + 1, "//", 2) == 0 ? 1 : 0;
}

void url::NormalizeUrl(char* pUrl) noexcept {
    if (pUrl == nullptr) {
        return;
    }
    TrimToFirstWord(pUrl);
    char* const pRest = pUrl + nSchemeLength(pUrl);
    MakeLower(pUrl, pRest);
    char* const pBehindSlashes = pRest + std::strspn(pRest, "/");
    if (pBehindSlashes - pRest != 2) {
        FoldPath(pBehindSlashes == pRest ? pRest : pBehindSlashes - 1, pBehindSlashes);
        return;
    }
    char* const pHostEnd = pBehindSlashes + std::strcspn(pBehindSlashes, "/");
    MakeLower(pBehindSlashes, pHostEnd);
    if (*pHostEnd != '\0') {
        FoldPath(pHostEnd, pHostEnd + 1);
    }
}

char* url::pResolveUrl(const char* pBase, const char* pUrl) {
    char* const pResolved = pJoinUrls(pNeverNull(pBase), pNeverNull(pUrl));
    NormalizeUrl(pResolved);
    return pResolved;
}

char* url::pMakeAbsoluteCopy(const char* pBase) const {
    const std::unique_ptr<char[]> pCopy(pMakeCopy());
    return pCopy == nullptr ? nullptr : pResolveUrl(pBase, pCopy.get());
}

int url::nCommonPrefixLength(const char* a, const char* b) noexcept {
    return nClampToInt(FindDifference(pNeverNull(a), pNeverNull(b)).nIndex);
}

int url::nCompareUrls(const char* a, const char* b) noexcept {
    return FindDifference(pNeverNull(a), pNeverNull(b)).nOrder;
}

int url::nGetImageType(const text& tUrl) noexcept {
    struct Word {
        const char* pWord;
        int nType;
    };
    static constexpr Word WORDS[] = {{"gif", 2}, {"jpg", 1}, {"jpeg", 1}};
    const text tExtension = tGetExtension(tUrl);
    if (tExtension.IsEmpty() != 0) {
        return 0;
    }
    const auto n = static_cast<unsigned>(tExtension.GetLength());
    for (const Word& word : WORDS) {
        if (nStrNICmp(tExtension.m_pStart, word.pWord, n) == 0) {
            return word.nType;
        }
    }
    return 0;
}

int url::nGetImageType(const char* pUrl) noexcept {
    return nGetImageType(text(pUrl));
}

int url::nGetImageType() const noexcept {
    return nGetImageType(static_cast<const text&>(*this));
}

} // namespace pageslice_v1
