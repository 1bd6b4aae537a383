// SPDX-License-Identifier: MIT
// Which of a page's pieces are text that a person reads, and what lies between them.
#ifndef PAGESLICE_STANDARD_TEXT_WALK_H
#define PAGESLICE_STANDARD_TEXT_WALK_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "standard/ascii.h"
#include "standard/attributes.h"
#include "standard/markup_reader.h"

namespace pageslice::standard {

// How a text is written.
struct text_style {
    bool has_references;
    bool keeps_spaces;
};

// Is told of all pieces of markup in turn, and tells a Sink of what is to be written: write(text, style),
// space(), break_line(), begin_line(), begin_row(), begin_cell(), end_table(), as text_writer has them.
template <class Sink>
class text_walk {
public:
    text_walk(const char* begin, Sink& sink) noexcept : m_text(begin), m_sink(sink) {}

    void take(const markup& piece) {
        if (m_text != piece.begin) {
            write(between(m_text, piece.begin), piece.text_before);
        }
        m_is_left_out = false;
        m_text = piece.end;
        if (piece.kind == markup_kind::start_tag) {
            start(piece);
        } else if (piece.kind == markup_kind::end_tag) {
            end(piece);
        } else if (piece.kind == markup_kind::cdata) {
            write(piece.inside, text_mode::raw);
        }
    }

    // After the last piece: the text up to the page's end.
    void finish(const char* end, text_mode mode) { write(between(m_text, end), mode); }

private:
    void write(std::string_view text, text_mode mode);
    void start(const markup& tag);
    void end(const markup& tag);
    void start_foreign(const markup& tag);

    const char* m_text; // that was not told of yet
    Sink& m_sink;
    bool m_is_in_head = true;                          // nothing of the body has come
    bool m_is_left_out = false;                        // the text up to the next tag
    bool m_keeps_spaces = false;                       // the text up to the next tag, as it stands
    bool m_drops_line_end = false;                     // one that comes right after pre's or textarea's start
    std::size_t m_templates = 0;                       // that are open
    std::size_t m_preserving = 0;                      // how many pre and listing are open
    const element_entry* m_left_out_foreign = nullptr; // script or style of svg that is open
};

// Most text between tags is, and most of that spaces or tabs, which go eight at a time.
inline bool is_all_spaces(std::string_view text) noexcept {
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p != end && is_space(*p)) {
        ++p;
        for (std::uint64_t eight = 0; end - p >= 8; p += 8) {
            std::memcpy(&eight, p, sizeof eight);
            if (eight != 0x2020202020202020 && eight != 0x0909090909090909) {
                break;
            }
        }
    }
    return p == end;
}

template <class Sink>
void text_walk<Sink>::write(std::string_view text, text_mode mode) {
    if (m_is_left_out || m_templates != 0 || m_left_out_foreign != nullptr) {
        return;
    }
    const bool keeps_spaces = m_preserving != 0 || m_keeps_spaces;
    if (!keeps_spaces && is_all_spaces(text)) {
        m_sink.space();
        return;
    }
    if (m_drops_line_end) {
        m_drops_line_end = false;
        const std::string_view first = text.substr(0, 2);
        text.remove_prefix(first == "\r\n"                                           ? 2
                           : !text.empty() && (first[0] == '\n' || first[0] == '\r') ? 1
                                                                                     : 0);
    }
    const bool has_references = mode == text_mode::data || mode == text_mode::rcdata;
    m_sink.write(text, {has_references, keeps_spaces});
    m_keeps_spaces = false;
}

template <class Sink>
void text_walk<Sink>::start(const markup& tag) {
    m_drops_line_end = false;
    if (tag.is_foreign) {
        start_foreign(tag);
        return;
    }
    const std::uint8_t traits = tag.entry->traits;
    m_is_in_head = m_is_in_head && (traits & IS_OF_HEAD) != 0;
    if ((traits & IS_BLOCK) != 0) {
        m_sink.begin_line();
    }
    switch (tag.entry->id) {
    case element::br: m_sink.break_line(); break;
    case element::table:
    case element::tr: m_sink.begin_row(); break;
    case element::td:
    case element::th: m_sink.begin_cell(); break;
    case element::pre:
        ++m_preserving;
        m_drops_line_end = true;
        break;
    case element::textarea:
        m_keeps_spaces = true;
        m_drops_line_end = true;
        break;
    case element::xmp:
    case element::plaintext: m_keeps_spaces = true; break;
    case element::script:
    case element::style:
    case element::title: m_is_left_out = true; break;
    case element::noframes: m_is_left_out = m_is_in_head; break;
    case element::template_: ++m_templates; break;
    default: break;
    }
}

template <class Sink>
void text_walk<Sink>::end(const markup& tag) {
    m_drops_line_end = m_keeps_spaces = false;
    if (tag.is_foreign) {
        m_left_out_foreign = m_left_out_foreign == tag.entry ? nullptr : m_left_out_foreign;
        return;
    }
    if ((tag.entry->traits & IS_BLOCK) != 0) {
        m_sink.begin_line();
    }
    switch (tag.entry->id) {
    case element::br: m_sink.break_line(); break; // as a start tag
    case element::table: m_sink.end_table(); break;
    case element::pre: m_preserving -= m_preserving != 0 ? 1 : 0; break;
    case element::template_: m_templates -= m_templates != 0 ? 1 : 0; break;
    default: break;
    }
}

template <class Sink>
void text_walk<Sink>::start_foreign(const markup& tag) {
    const element id = tag.entry->id;
    if ((id == element::script || id == element::style) && !is_self_closing(tag.name_end(), tag.close())) {
        m_left_out_foreign = tag.entry;
    }
}

} // namespace pageslice::standard

#endif
