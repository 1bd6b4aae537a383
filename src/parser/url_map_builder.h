#ifndef PAGESLICE_PARSER_URL_MAP_BUILDER_H
#define PAGESLICE_PARSER_URL_MAP_BUILDER_H

#include <array>
#include <cstddef>
#include <cstdint>

#include "pageslice/url_map.h"

// Adds entries to a map one after the other; while it does, nobody else does. Most links differ from all that
// came before, and take the same path: down the tree's left spine. The builder keeps that spine at hand, so
// that a link is compared without waiting for the tree.
class UrlMapBuilder {
public:
    explicit UrlMapBuilder(UrlMap& map) noexcept;

    // See UrlMap::Insert.
    void Insert(const tag_a& anchor, const text& tLinkText);

private:
    struct Step {
        const char* pLink;
        std::size_t nLength;
        std::uint32_t nNode;
    };
    // Where a new leaf hangs: its depth in the tree, and how many of the steps there are the spine's.
    struct Place {
        std::size_t nSteps;
        std::size_t nDepth;
        std::uint32_t nParent;
        int nSide;
    };
    // A red-black tree of n nodes is at most twice as high as the logarithm of n + 1, and n has 32 bits.
    static constexpr std::size_t DEEPEST = 64;

    class Comparison;

    Place FindPlace(const Comparison& newLink) const noexcept;
    Step StepAt(std::uint32_t nNode) const noexcept;
    void FollowLeftSpine() noexcept;
    void KeepSpine(const Place& place, std::uint32_t nNew, std::size_t nLevels) noexcept;

    UrlMap& m_map;
    std::array<Step, DEEPEST + 1> m_spine; // from the root; a new leaf stands in it for a moment
    std::size_t m_nDepth = 0;
};

#endif
