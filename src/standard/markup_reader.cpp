// SPDX-License-Identifier: MIT
#include "standard/markup_reader.h"

#include "standard/ascii.h"
#include "standard/text_ends.h"

namespace pageslice::standard {

const char* markup_reader::find_own_text_end() noexcept {
    switch (m_mode) {
    case text_mode::script: return find_script_end(m_at, m_map);
    case text_mode::plaintext: return m_map.end();
    default: return find_raw_end(m_at, m_own_text->name, m_map);
    }
}

// A tag where svg or math is open, or the one that opens it.
bool markup_reader::follow_foreign(markup& tag) noexcept {
    const bool is_end = tag.kind == markup_kind::end_tag;
    const tag_view view{tag.inside, tag.close(), *tag.entry};
    tag.is_foreign = is_end ? m_foreign.is_open() && m_foreign.end(view) : m_foreign.start(view);
    m_mode = is_end || tag.is_foreign ? text_mode::data : tag.entry->mode;
    m_own_text = tag.entry;
    if (!tag.is_foreign) {
        m_foreign.count(*tag.entry, key_of(tag.inside), is_end);
    }
    return true;
}

// The last two bytes of a page hold no more than the beginning of a comment.
bool markup_reader::read_last(const char* open, markup& piece) noexcept {
    for (; m_map.end() - open > 1; ++open) {
        if (open[0] == '<' && (open[1] == '!' || open[1] == '?')) {
            return read_other(open, piece);
        }
        if (open[0] == '<' && is_letter(open[1])) {
            m_cut_off = open;
            m_at = m_map.end();
            return false;
        }
    }
    return false;
}

// Comments, doctypes, CDATA sections, and what looks like one of them.
bool markup_reader::read_other(const char* open, markup& piece) noexcept {
    const std::string_view rest = between(open, m_map.end());
    piece.entry = &NO_ELEMENT;
    piece.begin = open;
    piece.is_foreign = m_foreign.is_current();
    piece.kind = markup_kind::comment;
    marked_text read;
    if (rest.substr(0, 4) == "<!--") {
        read = read_comment(open, m_map);
    } else if (starts_folded(rest, "<!doctype")) {
        piece.kind = markup_kind::doctype;
        read = read_bogus_comment(open + 9, m_map);
    } else if (piece.is_foreign && rest.substr(0, 9) == "<![CDATA[") {
        piece.kind = markup_kind::cdata;
        read = read_cdata(open + 9, m_map);
    } else if (rest.substr(0, 3) == "</>") {
        piece.kind = markup_kind::nothing;
        read = {{}, open + 3};
    } else {
        read = read_bogus_comment(open + (rest[1] == '?' ? 1 : 2), m_map);
    }
    piece.inside = read.text;
    piece.end = m_at = read.end;
    return true;
}

} // namespace pageslice::standard
