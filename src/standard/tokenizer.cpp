// SPDX-License-Identifier: MIT
#include "standard/tokenizer.h"

#include <algorithm>

#include "standard/ascii.h"

namespace pageslice::standard {
namespace {

// So few attributes are compared with each other; more are sorted.
constexpr std::size_t FEW_ATTRIBUTES = 16;

value_kind decoding_of(text_mode mode) noexcept {
    switch (mode) {
    case text_mode::data: return value_kind::text;
    case text_mode::rcdata: return value_kind::rcdata;
    default: return value_kind::raw;
    }
}

token_kind kind_of(markup_kind kind) noexcept {
    switch (kind) {
    case markup_kind::start_tag: return token_kind::start_tag;
    case markup_kind::end_tag: return token_kind::end_tag;
    case markup_kind::doctype: return token_kind::doctype;
    case markup_kind::cdata: return token_kind::cdata;
    default: return token_kind::comment;
    }
}

bool comes_before(std::string_view a, std::string_view b) noexcept {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return nFoldAscii(x) < nFoldAscii(y); });
}

} // namespace

bool tokenizer::next(token& found) noexcept {
    for (;;) {
        if (m_text != nullptr) {
            m_at_end = !m_reader.next(m_piece);
            const std::string_view text = between(m_text, m_at_end ? m_reader.text_end() : m_piece.begin);
            m_text = nullptr;
            if (!text.empty()) {
                found = {token_kind::text,
                         decoding_of(m_piece.text_before),
                         m_piece.is_text_foreign,
                         text,
                         {},
                         text,
                         false};
                return true;
            }
        }
        if (m_at_end) {
            return false;
        }
        m_text = m_piece.end;
        if (m_piece.kind == markup_kind::nothing) {
            continue;
        }
        const bool is_tag = m_piece.kind == markup_kind::start_tag || m_piece.kind == markup_kind::end_tag;
        const bool is_cdata = m_piece.kind == markup_kind::cdata;
        found = {kind_of(m_piece.kind),
                 is_cdata ? value_kind::cdata : value_kind::raw,
                 m_piece.is_foreign,
                 between(m_piece.begin, m_piece.end),
                 is_tag ? m_piece.inside : std::string_view(),
                 is_tag ? std::string_view() : m_piece.inside,
                 m_piece.kind == markup_kind::doctype && m_piece.end[-1] != '>'};
        return true;
    }
}

void tokenizer::read_attributes(const token& tag) {
    m_attributes.clear();
    attribute_reader reader(tag.name_end(), tag.close() + 1);
    for (attribute found; reader.next(found);) {
        const bool is_repeated =
            m_attributes.size() < FEW_ATTRIBUTES &&
            std::any_of(m_attributes.begin(), m_attributes.end(),
                        [&](const attribute& a) { return equal_ignoring_case(a.name, found.name); });
        if (!is_repeated) {
            m_attributes.push_back(found);
        }
    }
    if (m_attributes.size() > FEW_ATTRIBUTES) {
        leave_out_repeated();
    }
}

void tokenizer::leave_out_repeated() {
    m_order.clear();
    for (std::size_t i = 0; i < m_attributes.size(); ++i) {
        m_order.push_back({key_of(m_attributes[i].name), i});
    }
    std::sort(m_order.begin(), m_order.end(), [&](const sorted_name& a, const sorted_name& b) {
        if (a.key != b.key) {
            return a.key < b.key;
        }
        const std::string_view x = m_attributes[a.index].name, y = m_attributes[b.index].name;
        return comes_before(x, y) || (!comes_before(y, x) && a.index < b.index);
    });
    for (std::size_t i = m_order.size() - 1; i > 0; --i) {
        attribute& later = m_attributes[m_order[i].index];
        if (equal_ignoring_case(later.name, m_attributes[m_order[i - 1].index].name)) {
            later.name = {};
        }
    }
    m_attributes.erase(std::remove_if(m_attributes.begin(), m_attributes.end(),
                                      [](const attribute& a) { return a.name.data() == nullptr; }),
                       m_attributes.end());
}

} // namespace pageslice::standard
