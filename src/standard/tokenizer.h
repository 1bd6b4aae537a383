// SPDX-License-Identifier: MIT
// A page's tokens, one after the other: its markup and the text between.
#ifndef PAGESLICE_STANDARD_TOKENIZER_H
#define PAGESLICE_STANDARD_TOKENIZER_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "standard/attributes.h"
#include "standard/doctype.h"
#include "standard/markup_reader.h"
#include "text/character_references.h"

namespace pageslice::standard {

enum class token_kind : std::uint8_t { text, start_tag, end_tag, comment, doctype, cdata };

struct token {
    token_kind kind;
    value_kind decoding;    // of its text
    bool is_foreign;        // of svg and math, or in them
    std::string_view bytes; // all of it
    std::string_view name;  // of a tag, as written
    std::string_view text;  // of text, comment, CDATA and doctype, without the markup around it
    bool is_cut_off;        // a doctype that the page's end ends

    const char* name_end() const noexcept { return name.data() + name.size(); }    // of a tag
    const char* close() const noexcept { return bytes.data() + bytes.size() - 1; } // its '>'
};

class tokenizer {
public:
    explicit tokenizer(std::string_view page) noexcept : m_reader(page), m_text(page.data()) {}

    // False at the page's end. Linear in all; nothing is allocated.
    bool next(token& found) noexcept;

    // Reads the attributes of a tag, those that came before under the same name left out. Linear in the tag.
    // Throws std::bad_alloc.
    void read_attributes(const token& tag);
    void forget_attributes() noexcept { m_attributes.clear(); }
    const std::vector<attribute>& attributes() const noexcept { return m_attributes; }

private:
    void leave_out_repeated();

    markup_reader m_reader;
    markup m_piece{};   // read, and to be given after the text before it
    const char* m_text; // where that text begins; null when it was given
    bool m_at_end = false;
    std::vector<attribute> m_attributes;
    struct sorted_name {
        std::uint64_t key; // of the name
        std::size_t index; // of the attribute
    };
    std::vector<sorted_name> m_order; // for tags with many attributes
};

} // namespace pageslice::standard

#endif
