// SPDX-License-Identifier: MIT
#include "parser/url_map_builder.h"

#include <algorithm>
#include <cstring>
#include <utility>

inline namespace pageslice_v1 {

namespace {

constexpr std::size_t FIRST_CAPACITY = 16;

enum Side : int { LEFT = 0, RIGHT = 1 };

std::uint64_t nLastWord(const char* p, std::size_t n) noexcept {
    std::uint64_t nWord = 0;
    std::memcpy(&nWord, p + n - sizeof nWord, sizeof nWord);
    return nWord;
}

} // namespace

// Asks the question of every descent: does the new link differ from another within the length of the
// shorter one?
class UrlMapBuilder::Comparison {
public:
    Comparison(const Link& link, bool bHasNul) noexcept
        : m_link(link), m_nByWordFrom(bHasNul ? SIZE_MAX : sizeof(std::uint64_t)) {}

    bool bDiffersFrom(const Link& other) const noexcept {
        const std::size_t nCommon = std::min(m_link.nLength, other.nLength);
        // Links of one page begin alike and end differently. A NUL at the same place in both ends the
        // comparison, but without one in the new link there is no such place.
        if (nCommon >= m_nByWordFrom && nLastWord(m_link.p, nCommon) != nLastWord(other.p, nCommon)) {
            return true;
        }
        return *m_link.p != *other.p || std::strncmp(m_link.p, other.p, nCommon) != 0;
    }

private:
    Link m_link;
    std::size_t m_nByWordFrom; // with so many characters in common, the last ones are looked at first
};

void UrlMap::Reserve(std::size_t nEntries) {
    m_entries.reserve(nEntries);
    m_nodes.reserve(nEntries);
}

void UrlMap::Insert(const tag_a& anchor, const text& tLinkText) {
    UrlMapBuilder(*this).Insert(anchor, tLinkText);
}

// Adds a leaf, the last node of a path that begins at the root, on a side of the one before. Gives what
// Rebalance gives.
std::size_t UrlMap::AddLeaf(std::uint32_t* pPath, std::size_t nDepth, int nSide) noexcept {
    const std::uint32_t nNode = pPath[nDepth];
    if (nDepth == 0) {
        m_nRoot = nNode;
        m_nFirst = nNode;
    } else {
        m_nodes[pPath[nDepth - 1]].nChild[nSide] = nNode;
        PutBeside(nNode, pPath[nDepth - 1], nSide);
    }
    return Rebalance(pPath, nDepth);
}

// In the order of iteration a leaf stands right before its parent or right after it, and no rotation changes
// that.
void UrlMap::PutBeside(std::uint32_t nNode, std::uint32_t nParent, int nSide) noexcept {
    const std::uint32_t nPrevious = nSide == LEFT ? m_nodes[nParent].nPrevious : nParent;
    const std::uint32_t nNext = nSide == LEFT ? nParent : m_nodes[nParent].nNext;
    m_nodes[nNode].nPrevious = nPrevious;
    m_nodes[nNode].nNext = nNext;
    if (nPrevious == NO_NODE) {
        m_nFirst = nNode;
    } else {
        m_nodes[nPrevious].nNext = nNode;
    }
    if (nNext != NO_NODE) {
        m_nodes[nNext].nPrevious = nNode;
    }
}

bool UrlMap::bIsRed(std::uint32_t nNode) const noexcept {
    return nNode != NO_NODE && m_nodes[nNode].bRed;
}

int UrlMap::nSideOf(std::uint32_t nNode, std::uint32_t nParent) const noexcept {
    return m_nodes[nParent].nChild[LEFT] == nNode ? LEFT : RIGHT;
}

// Turns the node down to the given side; its child on the other side takes its place.
void UrlMap::Rotate(std::uint32_t nNode, std::uint32_t nParent, int nSide) noexcept {
    const int nOther = 1 - nSide;
    const std::uint32_t nRising = m_nodes[nNode].nChild[nOther];
    if (nParent == NO_NODE) {
        m_nRoot = nRising;
    } else {
        m_nodes[nParent].nChild[nSideOf(nNode, nParent)] = nRising;
    }
    m_nodes[nNode].nChild[nOther] = m_nodes[nRising].nChild[nSide];
    m_nodes[nRising].nChild[nSide] = nNode;
}

// The insertion fix-up for the last node of a path that begins at the root: no red node keeps a red parent.
// It may end with a rotation that puts a node of the path below one of its children: gives that node's depth
// before, or nDepth without a rotation. The path's last two nodes may have changed places.
std::size_t UrlMap::Rebalance(std::uint32_t* pPath, std::size_t nDepth) noexcept {
    std::size_t n = nDepth; // of the red node
    while (n >= 2 && bIsRed(pPath[n - 1])) {
        const std::uint32_t nParent = pPath[n - 1];
        const std::uint32_t nGrandparent = pPath[n - 2];
        const int nSide = nSideOf(nParent, nGrandparent);
        const std::uint32_t nUncle = m_nodes[nGrandparent].nChild[1 - nSide];
        m_nodes[nGrandparent].bRed = true;
        if (bIsRed(nUncle)) {
            m_nodes[nParent].bRed = false;
            m_nodes[nUncle].bRed = false;
            n -= 2;
            continue;
        }
        if (nSideOf(pPath[n], nParent) != nSide) {
            Rotate(nParent, nGrandparent, nSide);
            std::swap(pPath[n - 1], pPath[n]);
        }
        m_nodes[pPath[n - 1]].bRed = false;
        Rotate(nGrandparent, n >= 3 ? pPath[n - 3] : NO_NODE, 1 - nSide);
        return n - 2;
    }
    m_nodes[m_nRoot].bRed = false;
    return nDepth;
}

UrlMapBuilder::UrlMapBuilder(UrlMap& map) noexcept : m_map(map) {
    FollowLeftSpine();
}

void UrlMapBuilder::FollowLeftSpine() noexcept {
    m_nSteps = 0;
    for (std::uint32_t n = m_map.m_nRoot; n != UrlMap::NO_NODE; n = m_map.m_nodes[n].nChild[LEFT]) {
        m_spine[m_nSteps] = n;
        m_links[m_nSteps] = {m_map.m_nodes[n].pLink, m_map.m_nodes[n].nLinkLength};
        ++m_nSteps;
    }
}

void UrlMapBuilder::Insert(const tag_a& anchor, const text& tLinkText) {
    constexpr std::uint32_t NONE = UrlMap::NO_NODE;
    const char* const pLink = anchor.m_urlHref.m_pStart;
    const auto nLength = static_cast<std::size_t>(anchor.m_urlHref.m_pEnd - pLink) + 1;
    const bool bHasNul = std::memchr(pLink, '\0', nLength) != nullptr;

    const auto nNew = static_cast<std::uint32_t>(m_map.m_entries.size());
    // Room for both before either changes, so that a failure leaves the map as it was.
    if (m_map.m_nodes.size() == m_map.m_nodes.capacity()) {
        m_map.Reserve(std::max(FIRST_CAPACITY, 2 * m_map.m_nodes.size()));
    }
    m_map.m_entries.emplace_back(anchor, tLinkText);
    m_map.m_nodes.push_back({pLink, nLength, NONE, NONE, {NONE, NONE}, true});
    m_map.m_bHasNuls |= bHasNul;
    m_map.m_nLinkBytes += nLength;

    const Comparison newLink({pLink, nLength}, bHasNul);
    const std::size_t nSteps = nStepsAlongSpine(newLink);
    const bool bAside = nSteps < m_nSteps;
    Path aside;
    Place place{m_spine.data(), nSteps, LEFT};
    if (bAside) {
        std::copy_n(m_spine.begin(), nSteps + 1, aside.begin());
        place = FindAside(newLink, aside.data(), nSteps);
    } else {
        m_links[m_nSteps++] = {pLink, nLength};
    }
    place.pPath[place.nDepth] = nNew;
    const std::size_t nLowered = m_map.AddLeaf(place.pPath, place.nDepth, place.nSide);
    if (!bAside) {
        KeepSpine(nLowered);
    } else if (nLowered <= nSteps) {
        FollowLeftSpine();
    }
}

// How many nodes of the spine the new link differs from, up to the first that it does not differ from.
std::size_t UrlMapBuilder::nStepsAlongSpine(const Comparison& newLink) const noexcept {
    const Link* const pFirst = m_links.data();
    const Link* const pEnd = pFirst + m_nSteps;
    const Link* p = pFirst;
    while (p != pEnd && newLink.bDiffersFrom(*p)) {
        ++p;
    }
    return static_cast<std::size_t>(p - pFirst);
}

// The rest of a path that turns to the right at a depth.
UrlMapBuilder::Place UrlMapBuilder::FindAside(const Comparison& newLink, std::uint32_t* pPath,
                                              std::size_t nDepth) const noexcept {
    int nSide = RIGHT;
    for (;;) {
        const std::uint32_t n = m_map.m_nodes[pPath[nDepth]].nChild[nSide];
        ++nDepth;
        if (n == UrlMap::NO_NODE) {
            return {pPath, nDepth, nSide};
        }
        pPath[nDepth] = n;
        nSide = newLink.bDiffersFrom({m_map.m_nodes[n].pLink, m_map.m_nodes[n].nLinkLength}) ? LEFT : RIGHT;
    }
}

// After a new leaf on the spine. Among left children, the node that went down did so to the right, and left
// the spine.
void UrlMapBuilder::KeepSpine(std::size_t nLowered) noexcept {
    if (nLowered == m_nSteps - 1) {
        return;
    }
    --m_nSteps;
    for (std::size_t i = nLowered; i < m_nSteps; ++i) {
        m_links[i] = m_links[i + 1];
        m_spine[i] = m_spine[i + 1];
    }
}

} // namespace pageslice_v1
