#include "parser/url_map_builder.h"

#include <algorithm>
#include <cstring>

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
    Comparison(const char* pLink, std::size_t nLength, bool bHasNul) noexcept
        : m_pLink(pLink), m_nLength(nLength), m_nByWordFrom(bHasNul ? SIZE_MAX : sizeof(std::uint64_t)) {}

    bool bDiffersFrom(const char* pOther, std::size_t nOtherLength) const noexcept {
        const std::size_t nCommon = std::min(m_nLength, nOtherLength);
        // Links of one page begin alike and end differently. A NUL at the same place in both ends the
        // comparison, but without one in the new link there is no such place.
        if (nCommon >= m_nByWordFrom && nLastWord(m_pLink, nCommon) != nLastWord(pOther, nCommon)) {
            return true;
        }
        return std::strncmp(m_pLink, pOther, nCommon) != 0;
    }

private:
    const char* m_pLink;
    std::size_t m_nLength;
    std::size_t m_nByWordFrom; // with so many characters in common, the last ones are looked at first
};

void UrlMap::Reserve(std::size_t nEntries) {
    m_entries.reserve(nEntries);
    m_nodes.reserve(nEntries);
}

void UrlMap::Insert(const tag_a& anchor, const text& tLinkText) {
    UrlMapBuilder(*this).Insert(anchor, tLinkText);
}

void UrlMap::Clear() noexcept {
    m_entries.clear();
    m_nodes.clear();
    m_nRoot = NO_NODE;
    m_nFirst = NO_NODE;
    m_bHasNuls = false;
}

// Hangs a new leaf below its parent. In the order of iteration it stands right before the parent or right
// behind it, and no rotation changes that.
void UrlMap::Attach(std::uint32_t nNode, std::uint32_t nParent, int nSide) noexcept {
    if (nParent == NO_NODE) {
        m_nRoot = nNode;
        m_nFirst = nNode;
        return;
    }
    m_nodes[nParent].nChild[nSide] = nNode;
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
    return nNode != NO_NODE && m_nodes[nNode].nRed != 0;
}

int UrlMap::nSideOf(std::uint32_t nNode) const noexcept {
    return m_nodes[m_nodes[nNode].nParent].nChild[LEFT] == nNode ? LEFT : RIGHT;
}

// Turns the node down to the given side; its child on the other side takes its place.
void UrlMap::Rotate(std::uint32_t nNode, int nSide) noexcept {
    const int nOther = 1 - nSide;
    const std::uint32_t nRising = m_nodes[nNode].nChild[nOther];
    const std::uint32_t nInner = m_nodes[nRising].nChild[nSide];
    const std::uint32_t nParent = m_nodes[nNode].nParent;

    if (nParent == NO_NODE) {
        m_nRoot = nRising;
    } else {
        m_nodes[nParent].nChild[nSideOf(nNode)] = nRising;
    }
    m_nodes[nRising].nParent = nParent;
    m_nodes[nRising].nChild[nSide] = nNode;
    m_nodes[nNode].nParent = nRising;
    m_nodes[nNode].nChild[nOther] = nInner;
    if (nInner != NO_NODE) {
        m_nodes[nInner].nParent = nNode;
    }
}

// The insertion fix-up: no red node keeps a red parent. At last a node may go down below a child of its own:
// gives how many levels above the new node it stood, or 0.
std::size_t UrlMap::Rebalance(std::uint32_t nNode) noexcept {
    std::size_t nLevels = 2; // to the grandparent
    while (bIsRed(m_nodes[nNode].nParent)) {
        std::uint32_t nParent = m_nodes[nNode].nParent;
        const std::uint32_t nGrandparent = m_nodes[nParent].nParent;
        const int nSide = nSideOf(nParent);
        const std::uint32_t nUncle = m_nodes[nGrandparent].nChild[1 - nSide];
        if (bIsRed(nUncle)) {
            m_nodes[nParent].nRed = 0;
            m_nodes[nUncle].nRed = 0;
            m_nodes[nGrandparent].nRed = 1;
            nNode = nGrandparent;
            nLevels += 2;
            continue;
        }
        if (nSideOf(nNode) != nSide) {
            Rotate(nParent, nSide);
            nNode = nParent;
            nParent = m_nodes[nNode].nParent;
        }
        m_nodes[nParent].nRed = 0;
        m_nodes[nGrandparent].nRed = 1;
        Rotate(nGrandparent, 1 - nSide);
        return nLevels;
    }
    m_nodes[m_nRoot].nRed = 0;
    return 0;
}

UrlMapBuilder::UrlMapBuilder(UrlMap& map) noexcept : m_map(map) {
    FollowLeftSpine();
}

UrlMapBuilder::Step UrlMapBuilder::StepAt(std::uint32_t nNode) const noexcept {
    return {m_map.m_nodes[nNode].pLink, m_map.m_nodes[nNode].nLinkLength, nNode};
}

void UrlMapBuilder::FollowLeftSpine() noexcept {
    m_nDepth = 0;
    for (std::uint32_t n = m_map.m_nRoot; n != UrlMap::NO_NODE; n = m_map.m_nodes[n].nChild[LEFT]) {
        m_spine[m_nDepth++] = StepAt(n);
    }
}

void UrlMapBuilder::Insert(const tag_a& anchor, const text& tLinkText) {
    constexpr std::uint32_t NONE = UrlMap::NO_NODE;
    const char* const pLink = anchor.m_urlHref.m_pStart;
    const auto nLength = static_cast<std::size_t>(anchor.m_urlHref.m_pEnd - pLink) + 1;
    const bool bHasNul = std::memchr(pLink, '\0', nLength) != nullptr;
    const Place place = FindPlace(Comparison(pLink, nLength, bHasNul));

    const auto nNew = static_cast<std::uint32_t>(m_map.m_entries.size());
    // Room for both before either changes, so that a failure leaves the map as it was.
    if (m_map.m_nodes.size() == m_map.m_nodes.capacity()) {
        m_map.Reserve(std::max(FIRST_CAPACITY, 2 * m_map.m_nodes.size()));
    }
    m_map.m_entries.emplace_back(anchor, tLinkText);
    m_map.m_nodes.push_back({pLink, nLength, NONE, NONE, place.nParent, {NONE, NONE}, 1});
    m_map.m_bHasNuls |= bHasNul;
    m_map.Attach(nNew, place.nParent, place.nSide);
    KeepSpine(place, nNew, m_map.Rebalance(nNew));
}

UrlMapBuilder::Place UrlMapBuilder::FindPlace(const Comparison& newLink) const noexcept {
    std::size_t nSteps = 0;
    while (nSteps < m_nDepth && newLink.bDiffersFrom(m_spine[nSteps].pLink, m_spine[nSteps].nLength)) {
        ++nSteps;
    }
    if (nSteps == m_nDepth) {
        return {nSteps, nSteps, nSteps == 0 ? UrlMap::NO_NODE : m_spine[nSteps - 1].nNode, LEFT};
    }
    const UrlMap::Node* const pNodes = m_map.m_nodes.data();
    Place place{nSteps, nSteps + 1, m_spine[nSteps].nNode, RIGHT};
    for (;;) {
        const std::uint32_t n = pNodes[place.nParent].nChild[place.nSide];
        if (n == UrlMap::NO_NODE) {
            return place;
        }
        ++place.nDepth;
        place.nParent = n;
        place.nSide = newLink.bDiffersFrom(pNodes[n].pLink, pNodes[n].nLinkLength) ? LEFT : RIGHT;
    }
}

// nLevels above the new node, a node went down in the tree, unless this is 0.
void UrlMapBuilder::KeepSpine(const Place& place, std::uint32_t nNew, std::size_t nLevels) noexcept {
    if (place.nDepth > place.nSteps) {
        if (nLevels != 0 && place.nDepth - nLevels <= place.nSteps) {
            FollowLeftSpine();
        }
        return;
    }
    m_spine[m_nDepth++] = StepAt(nNew);
    if (nLevels == 0) {
        return;
    }
    // Among left children, a node goes down to the right and leaves the spine.
    for (std::size_t i = place.nDepth - nLevels; i < place.nDepth; ++i) {
        m_spine[i] = m_spine[i + 1];
    }
    --m_nDepth;
}
