// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_URL_MAP_H
#define PAGESLICE_URL_MAP_H

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include "pageslice/records.h"
#include "pageslice/text.h"

inline namespace pageslice_v1 {

// The page's anchors with their link texts: an ordered collection that keeps every entry, equal keys
// included.
//
// It is a red-black tree whose descent asks one question at each node: do the two link URLs differ within
// the length of the shorter one? If they do, go left, else right. That is no ordering of URLs. Links that
// all differ iterate in reverse order of insertion; a link that equals another, begins it or continues it
// may land after that one.
//
// The entries stand in one growing array and the tree's links, as indices, in a second one beside it, so
// that a copy is a copy of two arrays and iterates like its source. Iterators are invalidated by Insert
// and assignment. Insert costs O(log n) comparisons of URLs; a walk over all entries O(n).
// Reserve and Insert are the library's own, and reached by linking statically.
class UrlMap {
public:
    using value_type = std::pair<tag_a, text>; // the anchor, its link text

    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = UrlMap::value_type;
        using difference_type = std::ptrdiff_t;
        using pointer = const value_type*;
        using reference = const value_type&;

        const_iterator() noexcept = default;
        reference operator*() const noexcept { return m_pMap->m_entries[m_nNode]; }
        pointer operator->() const noexcept { return &**this; }
        const_iterator& operator++() noexcept {
            m_nNode = m_pMap->m_nodes[m_nNode].nNext;
            return *this;
        }
        const_iterator operator++(int) noexcept {
            const const_iterator before = *this;
            ++*this;
            return before;
        }
        // The link URL of the entry, without a look at the entry.
        text Link() const noexcept {
            const Node& node = m_pMap->m_nodes[m_nNode];
            return text(node.pLink, node.pLink + node.nLinkLength - 1, 0);
        }
        bool operator==(const const_iterator& other) const noexcept { return m_nNode == other.m_nNode; }
        bool operator!=(const const_iterator& other) const noexcept { return m_nNode != other.m_nNode; }

    private:
        friend class UrlMap;
        const_iterator(const UrlMap& map, std::uint32_t nNode) noexcept : m_pMap(&map), m_nNode(nNode) {}

        const UrlMap* m_pMap = nullptr;
        std::uint32_t m_nNode = NO_NODE;
    };

    const_iterator begin() const noexcept { return const_iterator(*this, m_nFirst); }
    const_iterator end() const noexcept { return const_iterator(*this, NO_NODE); }
    std::size_t size() const noexcept { return m_entries.size(); }
    bool empty() const noexcept { return m_entries.empty(); }
    // The entries in the order of their insertion, which is the page's; nEntry < size().
    const value_type& Inserted(std::size_t nEntry) const noexcept { return m_entries[nEntry]; }
    // Whether a link URL holds a NUL.
    bool bHasNuls() const noexcept { return m_bHasNuls; }
    // Bytes of all link URLs together.
    std::size_t nLinkBytes() const noexcept { return m_nLinkBytes; }

    // For how many entries there is room, and what one takes.
    std::size_t nCapacity() const noexcept { return m_nodes.capacity(); }
    static constexpr std::size_t nEntryBytes() noexcept { return sizeof(value_type) + sizeof(Node); }

    // Makes room for as many entries in all, so that arrays need not grow on the way there. Throws
    // std::bad_alloc.
    void Reserve(std::size_t nEntries);
    // Adds an entry; the anchor's link URL holds at least one character. Throws std::bad_alloc, and then the
    // map is as it was.
    void Insert(const tag_a& anchor, const text& tLinkText);

private:
    friend class UrlMapBuilder;
    static constexpr std::uint32_t NO_NODE = UINT32_MAX;

    // The link stands here once more, so that a descent touches this array only.
    struct Node {
        const char* pLink;
        std::size_t nLinkLength;
        std::uint32_t nPrevious; // in the order of iteration
        std::uint32_t nNext;
        std::uint32_t nChild[2]; // left, right
        bool bRed;
    };

    std::size_t AddLeaf(std::uint32_t* pPath, std::size_t nDepth, int nSide) noexcept;
    void PutBeside(std::uint32_t nNode, std::uint32_t nParent, int nSide) noexcept;
    bool bIsRed(std::uint32_t nNode) const noexcept;
    int nSideOf(std::uint32_t nNode, std::uint32_t nParent) const noexcept;
    void Rotate(std::uint32_t nNode, std::uint32_t nParent, int nSide) noexcept;
    std::size_t Rebalance(std::uint32_t* pPath, std::size_t nDepth) noexcept;

    std::vector<value_type> m_entries;
    std::vector<Node> m_nodes;
    std::uint32_t m_nRoot = NO_NODE;
    std::uint32_t m_nFirst = NO_NODE; // of the iteration
    bool m_bHasNuls = false;
    std::size_t m_nLinkBytes = 0;
};

} // namespace pageslice_v1

#endif
