// SPDX-License-Identifier: MIT
#include "tags/attribute_scanner.h"

#include <cstddef>
#include <cstdint>

#include "pageslice/records.h"

namespace pageslice {

namespace {

constexpr std::ptrdiff_t nLongestName() noexcept {
    std::size_t nLongest = 0;
    for (const AttributeWord& word : ATTRIBUTE_WORDS) {
        nLongest = nWordLength(word.pWord) > nLongest ? nWordLength(word.pWord) : nLongest;
    }
    return static_cast<std::ptrdiff_t>(nLongest);
}
static_assert(nLongestName() < static_cast<std::ptrdiff_t>(WORD_SIZE), "a word is looked up with its mark");

int nGetNameCode(const char* p, const char* pLast, const char* pPageEnd) noexcept {
    const std::ptrdiff_t n = pLast - p + 1;
    if (n == 1 && *p == '>') {
        return ATTR_TAG_END;
    }
    if (n < 1 || n > nLongestName()) {
        return ATTR_UNKNOWN;
    }
    const std::uint64_t nWord = nLoadWord(p, static_cast<std::size_t>(pPageEnd - p));
    return ATTRIBUTE_TABLE.nFind(
        nFirstBytes(nWord, static_cast<std::size_t>(n)) | std::uint64_t{WORD_MARK} << (8 * n), ATTR_UNKNOWN);
}

} // namespace

NameAt ReadAnyName(const char* p, const char* pPageEnd) noexcept {
    const char* const pLast = pFindLastOfName(p, pPageEnd);
    return {pLast, pLast == nullptr ? ATTR_NONE : nGetNameCode(p, pLast, pPageEnd)};
}

} // namespace pageslice

inline namespace pageslice_v1 {

using namespace pageslice;

text tag::tGetAttributeName(const char* p, const text& page) const noexcept {
    if (p == nullptr || page.m_pEnd == nullptr) {
        return text();
    }
    const char* const pStart = pSkipClass(p, page.m_pEnd + 1, BEFORE_NAME);
    const char* const pLast = pFindLastOfName(pStart, page.m_pEnd + 1);
    return pLast == nullptr ? text() : text(pStart, pLast, 0);
}

const char* tag::pGetAttributeValue(const char* p, text& value, const text& page) const noexcept {
    if (p == nullptr || page.m_pEnd == nullptr) {
        value.Clear();
        return nullptr;
    }
    return pScanValue(p, page.m_pEnd + 1, value);
}

int tag::nGetAttributeCode(text name) const noexcept {
    if (name.m_pStart == nullptr || name.m_pEnd == nullptr) {
        return ATTR_NONE;
    }
    return nGetNameCode(name.m_pStart, name.m_pEnd, name.m_pEnd + 1);
}

} // namespace pageslice_v1
