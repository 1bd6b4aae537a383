// SPDX-License-Identifier: MIT
// The attributes of one tag, one after the other, as the HTML Standard takes them apart.
#ifndef PAGESLICE_STANDARD_ATTRIBUTES_H
#define PAGESLICE_STANDARD_ATTRIBUTES_H

#include <string_view>

#include "standard/ascii.h"

namespace pageslice::standard {

// As written, without quotes. An attribute without '=' has a value with a null data().
struct attribute {
    std::string_view name;
    std::string_view value;

    // Of what a search gave: whether it found one, and what it says, which without '=' is nothing.
    bool is_given() const noexcept { return name.data() != nullptr; }
    std::string_view value_or_empty() const noexcept {
        return value.data() != nullptr ? value : name.substr(name.size());
    }
};

// Reads what stands between a tag's name and the '>' that ends it. That must be there, somewhere before
// `end`. Linear; duplicates are given too.
class attribute_reader {
public:
    attribute_reader(const char* name_end, const char* end) noexcept : m_at(name_end), m_end(end) {}

    bool next(attribute& found) noexcept;

    // After the last attribute: the tag's '>', and whether it ends in "/>", not in a value that ends in '/'.
    const char* close() const noexcept { return m_at; }
    bool is_self_closing() const noexcept { return m_self_closing; }

private:
    std::string_view read_value() noexcept;

    const char* m_at;
    const char* m_end;
    bool m_self_closing = false;
};

// Where a name that begins at p ends: at white space, '/', '>', or `end`.
const char* find_name_end(const char* p, const char* end) noexcept;

// The '>' that ends a tag whose name ends at p; null where the page ends before it does.
const char* find_tag_close(const char* p, const char* end) noexcept;

// Of a tag that ends before `end`: the first attribute of that name, letters of any size being equal; a null
// name.data() when there is none.
attribute find_attribute(const char* name_end, const char* end, std::string_view name) noexcept;

bool is_self_closing(const char* name_end, const char* close) noexcept;

} // namespace pageslice::standard

#endif
