#include "scan/tag_walk.h"

#include <algorithm>
#include <cstring>

#include "platform/bits.h"

namespace {

// A sweep that is cut short was work for nothing, so the first ones are short.
constexpr std::size_t FIRST_SWEEP_BLOCKS = 4;

} // namespace

TagWalk::TagWalk(const char* pFrom, const text& page) noexcept
    : m_pPageEnd(page.m_pEnd == nullptr ? nullptr : page.m_pEnd + 1), m_pFrom(pFrom), m_pSingleUntil(pFrom),
      m_nSweepBlocks(FIRST_SWEEP_BLOCKS) {
    m_sweep.nVisits = 0;
}

const char* TagWalk::pNextBehindSweep() noexcept {
    if (m_pOpen != nullptr) {
        const char* const pEnd = pStepEnd();
        if (pEnd == nullptr) {
            return nullptr;
        }
        DropSweep();
        m_pFrom = pEnd + 1;
        m_bQuoted = false;
    }
    while (m_pFrom != nullptr && m_pFrom < m_pPageEnd) {
        if (m_pFrom < m_pSingleUntil) {
            return pSingleStep();
        }
        if (bSweep()) {
            return pTakeVisit();
        }
    }
    return nullptr;
}

const char* TagWalk::pSingleStep() noexcept {
    if (m_pOpen == nullptr || m_pOpen < m_pFrom) {
        m_pOpen = static_cast<const char*>(std::memchr(m_pFrom, '<', nLeft()));
    }
    return m_pOpen;
}

// Sweeps from m_pFrom on. False when that found no visit: then m_pFrom has moved on within the same step,
// or single steps are due.
bool TagWalk::bSweep() noexcept {
    const std::size_t nBlocks = std::min(nLeft() / SCAN_BLOCK, m_nSweepBlocks);
    if (nBlocks > 0) {
        Scan().MarkTags(m_pFrom, nBlocks, m_bQuoted, m_sweep);
    } else {
        char tail[SCAN_BLOCK] = {};
        std::memcpy(tail, m_pFrom, nLeft());
        Scan().MarkTags(tail, 1, m_bQuoted, m_sweep);
    }
    m_nSweepBlocks = std::min(2 * m_nSweepBlocks, SCAN_SWEEP_BLOCKS);
    m_nNextVisit = 0;
    m_pSwept = m_pFrom;
    if (m_sweep.nVisits > 0) {
        return true;
    }
    const std::size_t nSwept = std::min(m_sweep.nBlocks * SCAN_BLOCK, nLeft());
    if (nSwept == 0) {
        m_pSingleUntil = m_pFrom + std::min(SCAN_BLOCK, nLeft());
    } else {
        m_pFrom += nSwept;
        m_bQuoted = m_sweep.bQuotedAtEnd;
    }
    DropSweep();
    return false;
}

void TagWalk::DropSweep() noexcept {
    m_pSwept = nullptr;
    m_sweep.nVisits = 0;
    m_nNextVisit = 0;
    m_pEnd = nullptr;
}

const char* TagWalk::pStepEnd() noexcept {
    if (m_pEnd != nullptr) {
        return m_pEnd;
    }
    if (m_pSwept == nullptr) {
        m_pEnd = Scan().FindTagEnd(m_pFrom, m_pPageEnd, m_bQuoted);
        return m_pEnd;
    }
    // The first close behind the '<'; each '>' of the sweep belongs to the step that it ends.
    const auto nOpen = static_cast<std::size_t>(m_pOpen - m_pSwept);
    std::uint64_t nBits = ~std::uint64_t{0} << nOpen % SCAN_BLOCK;
    for (std::size_t i = nOpen / SCAN_BLOCK; i < m_sweep.nBlocks; ++i) {
        nBits &= m_sweep.nCloses[i];
        if (nBits != 0) {
            return m_pSwept + i * SCAN_BLOCK + nLowestBit(nBits);
        }
        nBits = ~std::uint64_t{0};
    }
    const std::size_t nSwept = m_sweep.nBlocks * SCAN_BLOCK;
    if (nSwept >= static_cast<std::size_t>(m_pPageEnd - m_pSwept)) {
        return nullptr;
    }
    return Scan().FindTagEnd(m_pSwept + nSwept, m_pPageEnd, m_sweep.bQuotedAtEnd);
}

void TagWalk::ContinueBehind(const char* pEnd) noexcept {
    if (m_nNextVisit < m_sweep.nVisits && pEnd == pStepEnd()) {
        return; // what was swept holds
    }
    if (m_nNextVisit < m_sweep.nVisits) {
        m_nSweepBlocks = FIRST_SWEEP_BLOCKS;
    }
    DropSweep();
    m_pEnd = pEnd;
    if (pEnd == nullptr) {
        m_pOpen = nullptr;
        m_pFrom = nullptr;
    }
}
