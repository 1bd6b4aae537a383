// SPDX-License-Identifier: MIT
#include "pageslice/url_list.h"

#include <cstring>
#include <utility>

#include "scan/primitives.h"
#include "url/bounded_length.h"

inline namespace pageslice_v1 {

using namespace pageslice;

namespace {

// Adds an entry of nPadded bytes, the last nPadded - nCharacters of them zero, and its NUL.
int bAddEntry(UrlList& list, const char* p, std::size_t nCharacters, std::size_t nPadded) noexcept {
    // After the last byte there is no room for the empty entry either. Room is measured rather than added
    // up, because the cursor plus a hostile length may lie after the address space.
    if (list.m_pBuffer == nullptr || list.m_pCursor > list.m_pLast ||
        nPadded > static_cast<std::size_t>(list.m_pLast - list.m_pCursor)) {
        return 0;
    }
    std::memmove(list.m_pCursor, p, nCharacters); // an entry of this very list may overlap the cursor
    if (nCharacters < nPadded) {
        std::memset(list.m_pCursor + nCharacters, 0, nPadded - nCharacters);
    }
    list.m_pCursor += nPadded;
    *list.m_pCursor++ = '\0';
    return 1;
}

} // namespace

void* UrlList::operator new(std::size_t nSize) {
    return ::operator new(nSize);
}

void* UrlList::operator new(std::size_t nSize, const std::nothrow_t& noThrow) noexcept {
    return ::operator new(nSize, noThrow);
}

void UrlList::operator delete(void* pList) noexcept {
    ::operator delete(pList);
}

void UrlList::operator delete(void* pList, const std::nothrow_t& noThrow) noexcept {
    ::operator delete(pList, noThrow);
}

UrlList::UrlList(int nSize) : m_pBuffer(nullptr), m_pLast(nullptr), m_pCursor(nullptr) {
    Initialize(nSize);
}

UrlList::UrlList(const UrlList& other)
    : UrlList(other.m_pBuffer == nullptr ? 0 : static_cast<int>(other.m_pLast - other.m_pBuffer) + 1) {
    if (m_pBuffer != nullptr) {
        std::memcpy(m_pBuffer, other.m_pBuffer, static_cast<std::size_t>(m_pLast - m_pBuffer) + 1);
    }
}

UrlList& UrlList::operator=(const UrlList& other) {
    if (this == &other) {
        return *this;
    }
    UrlList copy(other);
    if (copy.m_pBuffer == nullptr) {
        copy.Initialize(1); // the target of an assignment always has a buffer
    }
    std::swap(m_pBuffer, copy.m_pBuffer);
    std::swap(m_pLast, copy.m_pLast);
    m_pCursor = m_pBuffer;
    return *this;
}

UrlList::~UrlList() {
    Clear();
}

void UrlList::Clear() noexcept {
    delete[] m_pBuffer;
    m_pBuffer = m_pLast = m_pCursor = nullptr;
}

int UrlList::bIsEmpty() const noexcept {
    return m_pBuffer == nullptr ? 1 : 0;
}

int UrlList::bAddUrl(const char* pUrl) noexcept {
    if (pUrl == nullptr) {
        return 1;
    }
    const std::size_t n = std::strlen(pUrl);
    return bAddEntry(*this, pUrl, n, n);
}

int UrlList::bAddUrl(const text& tUrl) noexcept {
    if (tUrl.m_pStart == nullptr || tUrl.m_pEnd == nullptr || tUrl.m_pEnd < tUrl.m_pStart - 1) {
        return 1;
    }
    const auto n = static_cast<std::size_t>(tUrl.m_pEnd + 1 - tUrl.m_pStart);
    return bAddEntry(*this, tUrl.m_pStart, nBoundedLength(tUrl.m_pStart, n), n);
}

const char* UrlList::pMoveFirst() noexcept {
    m_pCursor = m_pBuffer;
    return m_pBuffer;
}

const char* UrlList::pGetNext() noexcept {
    if (m_pCursor >= m_pLast) {
        return nullptr;
    }
    const char* const p = m_pCursor;
    m_pCursor += nBoundedLength(p, static_cast<std::size_t>(m_pLast - p)) + 1;
    return *p == '\0' ? nullptr : p;
}

// Sets the fields and releases nothing: there is no buffer before.
void UrlList::Initialize(int nSize) {
    m_pBuffer = m_pLast = m_pCursor = nullptr;
    if (nSize <= 0) {
        return;
    }
    m_pBuffer = m_pCursor = new char[static_cast<std::size_t>(nSize)];
    m_pLast = m_pBuffer + (nSize - 1);
    Scan().ZeroFill(m_pBuffer, m_pLast + 1);
}

} // namespace pageslice_v1
