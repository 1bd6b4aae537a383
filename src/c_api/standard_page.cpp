// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "c_api/page_handle.h"
#include "c_api/urls.h"
#include "standard/ascii.h"
#include "standard/attributes.h"
#include "standard/page_index.h"
#include "standard/plain_text.h"
#include "text/character_references.h"

namespace pageslice {
namespace {

using standard::attribute;
using standard::between;

// A start tag whose '<' is known, taken apart again.
class start_tag {
public:
    start_tag(const char* open, std::string_view page) noexcept
        : m_open(open), m_page_end(page.data() + page.size()),
          m_name_end(standard::find_name_end(open + 1, m_page_end)) {}

    std::string_view element() const noexcept { return between(m_open, end()); }
    std::string_view name() const noexcept { return between(m_open + 1, m_name_end); }
    const char* end() const noexcept { return standard::find_tag_close(m_name_end, m_page_end) + 1; }
    std::string_view value(std::string_view name) const noexcept {
        const attribute found = standard::find_attribute(m_name_end, m_page_end, name);
        return found.is_given() ? found.value_or_empty() : std::string_view();
    }

private:
    const char* m_open;
    const char* m_page_end;
    const char* m_name_end;
};

// A number as attributes have them: digits after white space and a sign. What is none, or below 0, gives -1.
int number_in(std::string_view value, int most) noexcept {
    value = standard::trimmed(value);
    if (!value.empty() && value.front() == '+') {
        value.remove_prefix(1);
    }
    int number = -1;
    for (const char c : value) {
        if (c < '0' || c > '9') {
            break;
        }
        number = std::min((number < 0 ? 0 : number) * 10 + (c - '0'), most);
    }
    return number;
}

constexpr int MOST = 100'000'000; // pixels: ten times this is an int

int alignment_of(std::string_view value) noexcept {
    constexpr struct {
        std::string_view name;
        int code;
    } KNOWN[] = {{"top", PAGESLICE_ALIGN_TOP},          {"middle", PAGESLICE_ALIGN_MIDDLE},
                 {"absmiddle", PAGESLICE_ALIGN_MIDDLE}, {"bottom", PAGESLICE_ALIGN_BOTTOM},
                 {"left", PAGESLICE_ALIGN_LEFT},        {"right", PAGESLICE_ALIGN_RIGHT},
                 {"center", PAGESLICE_ALIGN_CENTER}};
    for (const auto& known : KNOWN) {
        if (standard::equal_folded(value, known.name)) {
            return known.code;
        }
    }
    return PAGESLICE_ALIGN_UNKNOWN;
}

class standard_page final : public pageslice_page {
public:
    standard_page(std::string_view page, const pageslice_options& options)
        : pageslice_page(page, options), m_index(standard::index_page(page, limits_of(options))) {
        resolve_base();
    }

    std::size_t read_to() const noexcept override { return html.size(); }
    pageslice_slice title() const noexcept override { return given(m_index.title); }
    pageslice_slice base() const noexcept override { return given(m_index.base); }

    std::size_t count_links() const noexcept override { return m_index.links.size(); }
    std::size_t count_images() const noexcept override { return m_index.images.size(); }
    std::size_t count_cells() const noexcept override { return m_index.cells.size(); }
    std::size_t count_items() const noexcept override { return m_index.items.size(); }
    std::size_t count_image_urls() const noexcept override { return images_with_source().size(); }

    pageslice_link link(std::size_t index) const noexcept override;
    pageslice_link link_in_page_order(std::size_t index) const noexcept override { return link(index); }
    pageslice_slice link_url(std::size_t index) const noexcept override {
        return given(tag_at(m_index.links[index].open).value("href"));
    }
    pageslice_image image(std::size_t index) const noexcept override;
    pageslice_slice image_url(std::size_t index) const noexcept override {
        return given(tag_at(images_with_source()[index]).value("src"));
    }
    pageslice_cell cell(std::size_t index) const noexcept override;
    pageslice_item item(std::size_t index) const noexcept override {
        const standard::item_record& record = m_index.items[index];
        return {given(between(tag_at(record.open).end(), record.text_end))};
    }

    std::size_t plain_text_bound(std::size_t size) const noexcept override {
        return standard::plain_text_bound(size);
    }
    char* write_plain_text(std::string_view slice, char* out) const noexcept override {
        const bool is_title = slice.data() == m_index.title.data() && slice.size() == m_index.title.size();
        if (is_title) {
            return standard::write_title_text(slice, out);
        }
        const bool is_page = slice.data() == html.data() && slice.size() == html.size();
        return is_page && m_index.outline.is_complete()
                   ? standard::write_plain_text(html, m_index.outline, out)
                   : standard::write_plain_text(slice, out);
    }
    int absolute(std::string_view relative, const output& out) const override;

private:
    void resolve_base();

    start_tag tag_at(const char* open) const noexcept { return {open, html}; }
    const std::vector<const char*>& images_with_source() const noexcept {
        return m_index.all_have_source ? m_index.images : m_index.images_with_source;
    }

    const standard::page_index m_index;
    standard_url m_base; // what URLs of the page are resolved against; empty for nothing
};

std::string decoded_value(std::string_view value) {
    std::string decoded(decoded_bound(value, value_kind::attribute), '\0');
    char* const end = decode_references(value, value_kind::attribute, decoded.data());
    decoded.resize(static_cast<std::size_t>(end - decoded.data()));
    return decoded;
}

// A base that is no URL counts as none.
void standard_page::resolve_base() {
    if (has_url) {
        m_base.parse(url);
    }
    if (m_index.base.data() != nullptr) {
        m_base.parse(decoded_value(m_index.base), m_base);
    }
}

int standard_page::absolute(std::string_view relative, const output& out) const {
    std::string resolved;
    const url_result result = m_base.resolve(decoded_value(relative), resolved);
    return put_url(result, resolved, out);
}

pageslice_link standard_page::link(std::size_t index) const noexcept {
    const standard::link_record& record = m_index.links[index];
    const start_tag tag = tag_at(record.open);
    const char* const text_end = record.text_end != nullptr ? record.text_end : tag.end();
    return {given(tag.value("href")), given(between(tag.end(), text_end)),
            given(tag.value("name")), given(tag.value("rel")),
            given(tag.value("rev")),  given(tag.value("title")),
            given(tag.element())};
}

pageslice_image standard_page::image(std::size_t index) const noexcept {
    const start_tag tag = tag_at(m_index.images[index]);
    return {given(tag.value("src")),
            given(tag.value("lowsrc")),
            given(tag.value("alt")),
            given(tag.value("usemap")),
            given(tag.value("srcset")),
            given(tag.element()),
            number_in(tag.value("width"), MOST),
            number_in(tag.value("height"), MOST),
            number_in(tag.value("border"), MOST),
            number_in(tag.value("hspace"), MOST),
            number_in(tag.value("vspace"), MOST),
            alignment_of(tag.value("align")),
            tag.value("ismap").data() != nullptr ? 1 : 0};
}

pageslice_cell standard_page::cell(std::size_t index) const noexcept {
    constexpr int MOST_COLUMNS = 1000, MOST_ROWS = 65534;
    const standard::cell_record& record = m_index.cells[index];
    const start_tag tag = tag_at(record.open);
    const int colspan = number_in(tag.value("colspan"), MOST_COLUMNS);
    const int rowspan = number_in(tag.value("rowspan"), MOST_ROWS);
    return {given(between(tag.end(), record.text_end)),
            static_cast<int>(record.table),
            static_cast<int>(record.row),
            static_cast<int>(record.column),
            std::max(colspan, 1),
            rowspan < 0 ? 1 : rowspan,
            standard::equal_folded(tag.name(), "th") ? 1 : 0};
}

} // namespace

std::unique_ptr<pageslice_page> open_standard(std::string_view html, const pageslice_options& options) {
    return std::make_unique<standard_page>(html, options);
}

} // namespace pageslice
