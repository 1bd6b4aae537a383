// SPDX-License-Identifier: MIT
#include "standard/foreign_content.h"

#include <initializer_list>

#include "standard/ascii.h"
#include "standard/attributes.h"

namespace pageslice::standard {
namespace {

std::uint32_t hash_of(std::string_view name) noexcept {
    std::uint32_t hash = 2166136261;
    for (const char c : name) {
        hash = (hash ^ static_cast<unsigned char>(nFoldAscii(c))) * 16777619;
    }
    return hash;
}

const char* name_end(const tag_view& tag) noexcept {
    return tag.name.data() + tag.name.size();
}

bool is_any_of(std::string_view name, std::initializer_list<std::string_view> names) noexcept {
    for (const std::string_view known : names) {
        if (equal_folded(name, known)) {
            return true;
        }
    }
    return false;
}

bool has_attribute(const tag_view& tag, std::string_view name) noexcept {
    return find_attribute(name_end(tag), tag.close + 1, name).name.data() != nullptr;
}

bool ends_foreign(const tag_view& tag) noexcept {
    if (tag.entry.id == element::font) {
        return has_attribute(tag, "color") || has_attribute(tag, "face") || has_attribute(tag, "size");
    }
    return (tag.entry.traits & ENDS_FOREIGN) != 0;
}

bool holds_html_by_its_encoding(const tag_view& tag) noexcept {
    const std::string_view encoding = find_attribute(name_end(tag), tag.close + 1, "encoding").value;
    return is_any_of(encoding, {"text/html", "application/xhtml+xml"});
}

bool is_root(element id) noexcept {
    return id == element::svg || id == element::math;
}

// What never is open when another tag comes, or is never closed by its end tag.
bool is_never_closed(const element_entry& entry) noexcept {
    return (entry.traits & (IS_VOID | OUTLIVES_END)) != 0;
}

} // namespace

// Whether the element that is open now takes a start tag for one of HTML, or of a new root.
bool foreign_content::takes_as_html(const tag_view& tag) noexcept {
    if (m_size == 0) {
        return true;
    }
    switch (top().kind) {
    case kind::foreign: return false;
    case kind::annotation: return tag.entry.id == element::svg;
    case kind::math_text: return !is_any_of(tag.name, {"mglyph", "malignmark"});
    default: return true;
    }
}

void foreign_content::push(const open_element& opened) noexcept {
    if (m_size == MOST_OPEN) {
        ++m_deeper;
    } else {
        m_open[m_size++] = opened;
    }
}

void foreign_content::push_foreign(const tag_view& tag, bool is_math) noexcept {
    if (is_self_closing(name_end(tag), tag.close)) {
        return;
    }
    kind what = kind::foreign;
    if (!is_math) {
        what = is_any_of(tag.name, {"foreignobject", "desc", "title"}) ? kind::holds_html : kind::foreign;
    } else if (tag.entry.id == element::annotation_xml) {
        what = holds_html_by_its_encoding(tag) ? kind::holds_html : kind::annotation;
    } else if (is_any_of(tag.name, {"mi", "mo", "mn", "ms", "mtext"})) {
        what = kind::math_text;
    }
    push({hash_of(tag.name), what, is_math});
}

// Up to an element that holds HTML, or out of all.
void foreign_content::leave() noexcept {
    m_deeper = 0;
    while (m_size != 0 && (top().kind == kind::foreign || top().kind == kind::annotation)) {
        --m_size;
    }
}

bool foreign_content::start(const tag_view& tag) noexcept {
    if (takes_as_html(tag)) {
        if (is_root(tag.entry.id)) {
            push_foreign(tag, tag.entry.id == element::math);
            return true;
        }
    } else if (ends_foreign(tag)) {
        leave();
    } else {
        push_foreign(tag, top().is_math);
        return true;
    }
    if (m_size != 0 && !is_never_closed(tag.entry)) {
        push({hash_of(tag.name), kind::html, false});
    }
    return false;
}

// An end tag by the rules of HTML: it closes the element of its name among those of HTML right below a place
// of the stack, and all in it. Where the stack begins, what was counted outside tells. False when it closes
// none.
bool foreign_content::end_html(std::size_t above, const tag_view& tag, std::uint32_t name) noexcept {
    if (is_never_closed(tag.entry)) {
        return false;
    }
    for (std::size_t i = above; i != 0; --i) {
        const open_element& element = m_open[i - 1];
        if (element.kind != kind::html) {
            return false;
        }
        if (element.name == name) {
            m_size = i - 1;
            return true;
        }
    }
    if ((tag.entry.traits & HAS_OWN_TEXT) != 0 || m_counts[counter_of(tag.entry, key_of(tag.name))] == 0) {
        return false;
    }
    m_size = 0;
    return true;
}

bool foreign_content::end(const tag_view& tag) noexcept {
    if (m_deeper != 0) {
        --m_deeper;
        return is_current();
    }
    const std::uint32_t name = hash_of(tag.name);
    if (tag.entry.id == element::p || tag.entry.id == element::br) {
        leave();
    }
    if (!is_current()) {
        end_html(m_size, tag, name);
        return false;
    }
    bool has_scope = false; // elements that hold HTML hide what is open around them
    std::size_t i = m_size;
    do {
        --i;
        if (m_open[i].name == name) {
            m_size = i;
            return true;
        }
        has_scope = has_scope || m_open[i].kind != kind::foreign;
    } while (i != 0 && m_open[i - 1].kind != kind::html);
    return has_scope || !end_html(i, tag, name);
}

} // namespace pageslice::standard
