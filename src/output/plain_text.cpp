#include "output/plain_text.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "scan/primitives.h"
#include "text/byte_count.h"

namespace {

// The rule, character by character, from p on. Stops at a tag that the page does not close.
void WriteFrom(const char* p, const char* pPageEnd, bool bSeparated, OutputText& out) noexcept {
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
            out.bPutChar(c);
        } else if (!bSeparated) {
            out.bPutChar(' ');
        }
        bSeparated = bSeparator;
    }
}

// The whole blocks of a page, squeezed into a buffer that has room for as many characters as the page. What
// a block may overwrite beyond its text is left at the page's end, for the rule in its plain form. Whether a
// tag is ever closed shows late, so the last place between two tags is remembered, to go back to where one
// is not.
class BlockWriter {
public:
    BlockWriter(const char* p, const char* pPageEnd, OutputText& out) noexcept
        : m_p(p), m_pPageEnd(pPageEnd), m_out(out), m_pSafe(p), m_pSafeOut(out.m_pCurrent) {}

    void Write() noexcept {
        char* pOut = m_out.m_pCurrent;
        SqueezeState state;
        while (const std::size_t nBlocks = std::min(nWholeBlocks(), SCAN_SWEEP_BLOCKS)) {
            pOut = Scan().SqueezeMarkup(m_p, nBlocks, pOut, state);
            m_p += nBlocks * SCAN_BLOCK;
            if (!state.bInTag) {
                m_pSafe = m_p;
                m_pSafeOut = pOut;
                m_bSafeSeparated = state.bSeparated;
            }
        }
        m_pOutEnd = pOut;
        Finish(state);
    }

private:
    std::size_t nWholeBlocks() const noexcept {
        const auto nLeft = static_cast<std::size_t>(m_pPageEnd - m_p);
        return nLeft < SQUEEZE_OVERRUN ? 0 : (nLeft - SQUEEZE_OVERRUN) / SCAN_BLOCK + 1;
    }

    void Finish(const SqueezeState& state) noexcept {
        const char* const pTagEnd =
            state.bInTag ? Scan().FindTagEnd(m_p, m_pPageEnd, state.bQuoted) : nullptr;
        if (pTagEnd != nullptr) {
            Resume(pTagEnd + 1, m_pOutEnd, true);
        } else {
            Resume(m_pSafe, m_pSafeOut, m_bSafeSeparated);
        }
    }

    // The sink's bytes behind its content are NULs again before it is written to.
    void Resume(const char* p, char* pOut, bool bSeparated) noexcept {
        m_out.m_pCurrent = pOut;
        const auto nGarbage = static_cast<std::size_t>(m_pOutEnd - pOut) + SQUEEZE_OVERRUN;
        std::memset(pOut, 0, std::min(nGarbage, static_cast<std::size_t>(m_out.m_pBufEnd - pOut) + 1));
        WriteFrom(p, m_pPageEnd, bSeparated, m_out);
    }

    const char* m_p;
    const char* m_pPageEnd;
    OutputText& m_out;
    const char* m_pSafe;
    char* m_pSafeOut;
    bool m_bSafeSeparated = true;
    char* m_pOutEnd = nullptr;
};

} // namespace

void WritePlainText(const text& page, OutputText& out) noexcept {
    if (nByteCount(page) == 0) {
        return;
    }
    const char* const pPageEnd = page.m_pEnd + 1;
    const bool bRoomForAll =
        out.bIsConsole() == 0 && out.m_pBufEnd - out.m_pCurrent >= pPageEnd - page.m_pStart;
    if (bRoomForAll) {
        BlockWriter(page.m_pStart, pPageEnd, out).Write();
    } else {
        WriteFrom(page.m_pStart, pPageEnd, true, out);
    }
}
