// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_PARSER_URL_MAP_BUILDER_H
#define PAGESLICE_PARSER_URL_MAP_BUILDER_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "pageslice/url_map.h"

inline namespace pageslice_v1 {

// Adds entries to a map one after the other; while it does, nobody else does. Most links differ from all that
// came before, and take the same path: down the tree's left spine. The builder keeps that spine at hand, so
// that a link is compared without waiting for the tree.
class UrlMapBuilder {
public:
    explicit UrlMapBuilder(UrlMap& map) noexcept;

    // See UrlMap::Insert.
    void Insert(const tag_a& anchor, const text& tLinkText);

private:
    struct Link {
        const char* p;
        std::size_t nLength;
    };
    class Comparison;

    // A red-black tree of n nodes is at most twice as high as the logarithm of n + 1, and n has 32 bits.
    static constexpr std::size_t DEEPEST = 64;
    // Nodes from the root on, each a child of the one before; a new leaf stands in it for a moment.
    using Path = std::array<std::uint32_t, DEEPEST + 1>;

    // Where a new leaf hangs: the path to it, and its side.
    struct Place {
        std::uint32_t* pPath;
        std::size_t nDepth;
        int nSide;
    };

    void FollowLeftSpine() noexcept;
    std::size_t nStepsAlongSpine(const Comparison& newLink) const noexcept;
    Place FindAside(const Comparison& newLink, std::uint32_t* pPath, std::size_t nDepth) const noexcept;
    void KeepSpine(std::size_t nLowered) noexcept;

    UrlMap& m_map;
    Path m_spine;
    std::array<Link, DEEPEST + 1> m_links; // of its nodes
    std::size_t m_nSteps = 0;
};

} // namespace pageslice_v1

#endif
