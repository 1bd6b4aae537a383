#include "pageslice/url_map.h"

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

// Asks the question of every descent: does the new link differ from another within the length of the
// shorter one?
class Comparison {
public:
    explicit Comparison(const char* pLink, std::size_t nLength) noexcept
        : m_pLink(pLink), m_nLength(nLength),
          m_nByWordFrom(std::memchr(pLink, '\0', nLength) == nullptr ? sizeof(std::uint64_t) : SIZE_MAX) {}

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

} // namespace

void UrlMap::Reserve(std::size_t nEntries) {
    m_entries.reserve(nEntries);
    m_nodes.reserve(nEntries);
}

void UrlMap::Insert(const tag_a& anchor, const text& tLinkText) {
    const char* const pLink = anchor.m_urlHref.m_pStart;
    const auto nLength = static_cast<std::size_t>(anchor.m_urlHref.m_pEnd - pLink) + 1;
    const Comparison newLink(pLink, nLength);
    const Node* const pNodes = m_nodes.data();
    std::uint32_t nParent = NO_NODE;
    int nSide = LEFT;
    for (std::uint32_t n = m_nRoot; n != NO_NODE;) {
        nParent = n;
        const Node& node = pNodes[n];
        if (newLink.bDiffersFrom(node.pLink, node.nLinkLength)) {
            nSide = LEFT;
            n = node.nChild[LEFT];
        } else {
            nSide = RIGHT;
            n = node.nChild[RIGHT];
        }
    }

    const auto nNew = static_cast<std::uint32_t>(m_entries.size());
    // Room for both before either changes, so that a failure leaves the map as it was.
    if (m_nodes.size() == m_nodes.capacity()) {
        Reserve(std::max(FIRST_CAPACITY, 2 * m_nodes.size()));
    }
    m_entries.emplace_back(anchor, tLinkText);
    m_nodes.push_back({pLink, nLength, NO_NODE, NO_NODE, nParent, {NO_NODE, NO_NODE}, true});
    Attach(nNew, nParent, nSide);
    Rebalance(nNew);
}

void UrlMap::Clear() noexcept {
    m_entries.clear();
    m_nodes.clear();
    m_nRoot = NO_NODE;
    m_nFirst = NO_NODE;
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
    return nNode != NO_NODE && m_nodes[nNode].bRed;
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

// The insertion fix-up: no red node keeps a red parent.
void UrlMap::Rebalance(std::uint32_t nNode) noexcept {
    while (bIsRed(m_nodes[nNode].nParent)) {
        std::uint32_t nParent = m_nodes[nNode].nParent;
        const std::uint32_t nGrandparent = m_nodes[nParent].nParent;
        const int nSide = nSideOf(nParent);
        const std::uint32_t nUncle = m_nodes[nGrandparent].nChild[1 - nSide];
        if (bIsRed(nUncle)) {
            m_nodes[nParent].bRed = false;
            m_nodes[nUncle].bRed = false;
            m_nodes[nGrandparent].bRed = true;
            nNode = nGrandparent;
            continue;
        }
        if (nSideOf(nNode) != nSide) {
            Rotate(nParent, nSide);
            nNode = nParent;
            nParent = m_nodes[nNode].nParent;
        }
        m_nodes[nParent].bRed = false;
        m_nodes[nGrandparent].bRed = true;
        Rotate(nGrandparent, 1 - nSide);
    }
    m_nodes[m_nRoot].bRed = false;
}
