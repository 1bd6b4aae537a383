// SPDX-License-Identifier: MIT
#include "output/plain_text.h"

#include <algorithm>
#include <cstddef>

#include "scan/primitives.h"
#include "text/byte_count.h"

namespace pageslice {

namespace {

// The rule, character by character, from p on. Stops at a tag that the page does not close.
template <class Put>
void WriteFrom(const char* p, const char* pPageEnd, bool bSeparated, Put put) noexcept {
    for (; p < pPageEnd; ++p) {
        const char c = *p;
        if (c == '<') {
            p = Scan().FindTagEnd(p, pPageEnd, false);
            if (p == nullptr) {
                return;
            }
        }
        const bool bSeparator = c == '<' || c == '\n' || c == '\r' || c == ' ';
        if (!bSeparator) {
            put(c);
        } else if (!bSeparated) {
            put(' ');
        }
        bSeparated = bSeparator;
    }
}

// The whole blocks of a page, compressed into room for as many characters as the page has. From where its
// text starts a block overwrites no more than its own size, and so much room is always left. Whether a tag is
// ever closed shows late, so the last place between two tags is remembered, to go back to where one is not.
class BlockWriter {
public:
    BlockWriter(const char* p, const char* pPageEnd, char* pOut) noexcept
        : m_p(p), m_pPageEnd(pPageEnd), m_pOut(pOut), m_pSafe(p), m_pSafeOut(pOut) {}

    char* pWrite() noexcept {
        CompressState state;
        while (const std::size_t nBlocks = std::min(nWholeBlocks(), SCAN_SWEEP_BLOCKS)) {
            m_pOut = Scan().CompressMarkup(m_p, nBlocks, m_pOut, state);
            m_p += nBlocks * SCAN_BLOCK;
            if (!state.bInTag) {
                m_pSafe = m_p;
                m_pSafeOut = m_pOut;
                m_bSafeSeparated = state.bSeparated;
            }
        }
        return pFinish(state);
    }

private:
    std::size_t nWholeBlocks() const noexcept {
        const auto nLeft = static_cast<std::size_t>(m_pPageEnd - m_p);
        return nLeft / SCAN_BLOCK;
    }

    char* pFinish(const CompressState& state) const noexcept {
        const char* const pTagEnd =
            state.bInTag ? Scan().FindTagEnd(m_p, m_pPageEnd, state.bQuoted) : nullptr;
        return pTagEnd != nullptr ? pResume(pTagEnd + 1, m_pOut, true)
                                  : pResume(m_pSafe, m_pSafeOut, m_bSafeSeparated);
    }

    char* pResume(const char* p, char* pOut, bool bSeparated) const noexcept {
        WriteFrom(p, m_pPageEnd, bSeparated, [&pOut](char c) { *pOut++ = c; });
        return pOut;
    }

    const char* m_p;
    const char* m_pPageEnd;
    char* m_pOut;
    const char* m_pSafe;
    char* m_pSafeOut;
    bool m_bSafeSeparated = true;
};

} // namespace

char* pWritePlainText(const text& page, char* pOut) noexcept {
    return nByteCount(page) == 0 ? pOut : BlockWriter(page.m_pStart, page.m_pEnd + 1, pOut).pWrite();
}

void WritePlainText(const text& page, OutputText& out) noexcept {
    const std::size_t n = nByteCount(page);
    if (out.bIsConsole() == 0 && out.m_pBufEnd - out.m_pCurrent >= static_cast<std::ptrdiff_t>(n)) {
        out.m_pCurrent = pWritePlainText(page, out.m_pCurrent);
        Scan().ZeroFill(out.m_pCurrent, out.m_pBufEnd + 1);
    } else if (n > 0) {
        WriteFrom(page.m_pStart, page.m_pEnd + 1, true, [&out](char c) { out.bPutChar(c); });
    }
}

} // namespace pageslice
