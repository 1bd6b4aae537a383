// SPDX-License-Identifier: MIT
// The elements that reading a page depends on, found by their names.
#ifndef PAGESLICE_STANDARD_ELEMENT_H
#define PAGESLICE_STANDARD_ELEMENT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/string_utils.h"

namespace pageslice::standard {

// Those that some code names; all others of HTML are known by their traits alone.
enum class element : std::uint8_t {
    unknown,
    some, // of HTML
    a,
    annotation_xml,
    area,
    base,
    br,
    caption,
    column, // col, colgroup
    dir,
    font,
    frameset,
    head,
    iframe,
    image,
    img,
    li,
    math,
    menu,
    noembed,
    noframes,
    ol,
    p,
    plaintext,
    pre, // and listing
    script,
    style,
    svg,
    table,
    row_group, // tbody, thead, tfoot
    td,
    template_,
    textarea,
    th,
    title,
    tr,
    ul,
    xmp
};

constexpr std::size_t ELEMENT_COUNT = static_cast<std::size_t>(element::xmp) + 1;

// How the text after a start tag is read.
enum class text_mode : std::uint8_t { data, rcdata, raw, script, plaintext };

enum element_trait : std::uint8_t {
    IS_HTML = 1,
    IS_VOID = 2,       // never has contents nor an end tag
    ENDS_FOREIGN = 4,  // its start tag ends svg and math
    IS_BLOCK = 8,      // begins and ends a line of text
    IS_OF_HEAD = 16,   // may stand in the head, and leaves it open
    HAS_OWN_TEXT = 32, // its text is read in a mode of its own
    OUTLIVES_END = 64  // head, body, html: their end tags close nothing
};

struct element_entry {
    std::string_view name;
    element id = element::unknown;
    std::uint8_t traits = 0;
    text_mode mode = text_mode::data;
    std::uint8_t number = 0; // from 1 on; 0 for what is not known
    std::uint64_t key = 0;
};

inline constexpr element_entry NO_ELEMENT = {};
constexpr std::size_t KNOWN_ELEMENTS = 256; // more than there are

// The first eight bytes of a name, or all of a shorter one with NULs after them, in small letters; the first
// byte stands lowest. A name of letters, digits and '-' is told from all others by it and its size.
constexpr std::size_t KEY_SIZE = 8;

constexpr std::uint64_t key_of(std::string_view name) noexcept {
    std::uint64_t key = 0;
    for (std::size_t i = name.size() < KEY_SIZE ? name.size() : KEY_SIZE; i-- > 0;) {
        key = key << 8 | static_cast<unsigned char>(nFoldAscii(name[i]));
    }
    return key;
}

// Elements by key; a slot that is taken passes what comes after on to the next one.
class element_table {
public:
    constexpr element_table() noexcept;

    const element_entry& find(std::uint64_t key, std::string_view name) const noexcept {
        for (std::size_t slot = slot_of(key);; slot = (slot + 1) % SLOTS) {
            const element_entry& entry = m_entries[slot];
            if (entry.key == 0) {
                return NO_ELEMENT;
            }
            if (entry.key == key && is_named(entry, name)) {
                return entry;
            }
        }
    }

private:
    static constexpr unsigned SLOT_BITS = 9;
    static constexpr std::size_t SLOTS = std::size_t{1} << SLOT_BITS;

    static constexpr std::size_t slot_of(std::uint64_t key) noexcept {
        return static_cast<std::size_t>((key * 0xCA623F703812B3A3) >> (64 - SLOT_BITS));
    }
    static bool is_named(const element_entry& entry, std::string_view name) noexcept {
        if (entry.name.size() != name.size()) {
            return false;
        }
        for (std::size_t i = KEY_SIZE; i < name.size(); ++i) {
            if (nFoldAscii(name[i]) != entry.name[i]) {
                return false;
            }
        }
        return true;
    }

    std::array<element_entry, SLOTS> m_entries{};
};

extern const element_table ELEMENTS;

// The element of that name, in letters of any size.
inline const element_entry& find_element(std::string_view name) noexcept {
    return ELEMENTS.find(key_of(name), name);
}

} // namespace pageslice::standard

#endif
