// SPDX-License-Identifier: MIT
#include "output/output_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "pageslice/text.h"

inline namespace pageslice_v1 {

OutputText::OutputText() noexcept : OutputText(nullptr, nullptr) {}

OutputText::OutputText(char* pStart, char* pEnd) noexcept
    : m_pBufStart(pStart), m_pBufEnd(pEnd), m_pCurrent(pStart) {
    Fill('\0');
}

void OutputText::SetBuffer(char* pStart, char* pEnd) noexcept {
    SetBufferUnfilled(pStart, pEnd);
    Fill('\0');
}

void OutputText::SetBufferUnfilled(char* pStart, char* pEnd) noexcept {
    m_pBufStart = pStart;
    m_pBufEnd = pEnd;
    m_pCurrent = pStart;
}

void OutputText::Fill(char c) noexcept {
    if (m_pBufStart != nullptr && m_pBufEnd != nullptr && m_pBufStart <= m_pBufEnd) {
        std::memset(m_pBufStart, static_cast<unsigned char>(c),
                    static_cast<std::size_t>(m_pBufEnd - m_pBufStart) + 1);
    }
}

int OutputText::bPutChar(char c) noexcept {
    if (bIsConsole() != 0) {
        std::printf("%c", c);
        return 1;
    }
    if (bIsFull()) {
        return 0;
    }
    *m_pCurrent++ = c;
    return 1;
}

int OutputText::bPutLineEnd(char c) noexcept {
    if (bIsConsole() != 0 || !bIsFull()) {
        return bPutChar(c);
    }
    if (m_pBufStart == nullptr || m_pBufEnd == nullptr || GetSize() <= 1) {
        return 0;
    }
    m_pBufEnd[-1] = c;
    return 1;
}

int OutputText::bPutString(const char* s) noexcept {
    int bPut = 1;
    for (; s != nullptr && *s != '\0'; ++s) {
        bPut = bPutChar(*s);
    }
    return bPut;
}

int OutputText::bPutWords(const char* word, int count) noexcept {
    int bPut = 1;
    for (int i = 0; i < count; ++i) {
        if (bPutChar(' ') == 0) {
            return 0; // full, and it stays full for every repetition that is left
        }
        bPut = bPutString(word);
    }
    return bPut;
}

int OutputText::bPadToWords(int n) noexcept {
    const int nMissing = std::max(n, 0) - nNumWords();
    bPutWords("padword", nMissing);
    return bPutChar(' ');
}

int OutputText::bIsConsole() const noexcept {
    return m_pBufStart == nullptr && m_pBufEnd == nullptr ? 1 : 0;
}

int OutputText::GetSize() const noexcept {
    return text(m_pBufStart, m_pBufEnd, 0).GetLength();
}

int OutputText::GetLength() const noexcept {
    return text(m_pBufStart, m_pCurrent, 0).GetLength() - 1;
}

char* OutputText::GetBuffer() const noexcept {
    return m_pBufStart;
}

int OutputText::nNumWords() const noexcept {
    if (pFindLast() == nullptr || GetLength() == 0) {
        return 0;
    }
    // Bounded by the buffer, because Fill may have overwritten the NUL at its end.
    const auto* const pNul = static_cast<const char*>(
        std::memchr(m_pBufStart, '\0', static_cast<std::size_t>(m_pBufEnd - m_pBufStart) + 1));
    return text(m_pBufStart, pNul == nullptr ? m_pBufEnd : pNul - 1, 0).nNumWords();
}

char* OutputText::pFindLast() const noexcept {
    return pFindLastAtOrBefore(m_pBufEnd);
}

void OutputText::SyncCursor() noexcept {
    char* const pLast = pFindLast();
    m_pCurrent = pLast == nullptr ? m_pBufStart : pLast + 1;
}

int OutputText::bDropLast() noexcept {
    char* const pLast = pFindLast();
    if (pLast == nullptr) {
        return 0;
    }
    *pLast = '\0';
    SyncCursor();
    return 1;
}

int OutputText::bTrimBrackets() noexcept {
    if (bIsConsole() != 0) {
        return 1;
    }
    char* pLast = pFindLast();
    while (pLast != nullptr && (*pLast == ']' || *pLast == '\r' || *pLast == '\n')) {
        *pLast = '\0';
        pLast = pFindLastAtOrBefore(pLast);
    }
    if (pLast != nullptr) {
        char* const pEnd = pLast + 1;
        char* const pKept = std::find_if(m_pBufStart, pEnd, [](char c) { return c != '['; });
        std::fill(std::copy(pKept, pEnd, m_pBufStart), pEnd, '\0');
    }
    SyncCursor();
    return 1;
}

bool OutputText::bIsFull() const noexcept {
    return m_pBufStart == nullptr || m_pBufEnd == nullptr || m_pCurrent >= m_pBufEnd;
}

char* OutputText::pFindLastAtOrBefore(char* p) const noexcept {
    if (m_pBufStart == nullptr || p < m_pBufStart) {
        return nullptr;
    }
    while (*p == '\0') {
        if (p == m_pBufStart) {
            return nullptr;
        }
        --p;
    }
    return p;
}

} // namespace pageslice_v1
