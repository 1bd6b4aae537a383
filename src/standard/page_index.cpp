// SPDX-License-Identifier: MIT
#include "standard/page_index.h"

#include <utility>

#include "standard/ascii.h"
#include "standard/attributes.h"
#include "standard/element.h"
#include "standard/markup_reader.h"
#include "standard/open_elements.h"

namespace pageslice::standard {
namespace {

// How many bytes of a page hold one of each, where there are many: room is made for so many at first.
constexpr std::size_t BYTES_PER_LINK = 256;
constexpr std::size_t BYTES_PER_ITEM = 512;
constexpr std::size_t BYTES_PER_CELL = 512;
constexpr std::size_t BYTES_PER_IMAGE = 1024;
constexpr std::size_t FEW = 8;

attribute find_in(const markup& tag, std::string_view name) noexcept {
    return find_attribute(tag.name_end(), tag.end, name);
}

class indexer {
public:
    indexer(std::string_view page, const index_limits& limits)
        : m_page(page), m_limits(limits), m_budget(limits.bytes), m_reader(page), m_index(page),
          m_recorder(m_index.outline, m_budget), m_text(page.data(), m_recorder) {}

    page_index run() {
        markup piece;
        while (m_reader.next(piece)) {
            if (m_title_begin != nullptr) {
                end_title(piece.begin);
            }
            m_text.take(piece);
            if (piece.is_foreign) {
                continue;
            }
            if (piece.kind == markup_kind::start_tag) {
                start(piece);
            } else if (piece.kind == markup_kind::end_tag) {
                end(piece);
            }
        }
        end_all(m_reader.text_end());
        m_text.finish(m_reader.text_end(), m_reader.mode());
        return std::move(m_index);
    }

private:
    void start(const markup& tag);
    void end(const markup& tag);
    void end_title(const char* at) noexcept;
    void end_all(const char* at) noexcept;

    void start_link(const markup& tag);
    void end_link(const char* at) noexcept;
    bool add_link(const markup& tag, const char* text_end);
    void add_image(const markup& tag);

    void start_table(const markup& tag);
    void start_row(const char* at);
    static void begin_row(open_elements::entry& table) noexcept;
    void start_cell(const markup& tag);
    void start_caption(const char* at);
    void start_list(const markup& tag);
    void start_item(const markup& tag);

    // Ends all open elements down to a place: with the one that stands there, or without it.
    void end_with(std::uint32_t place, const char* at) noexcept;
    void end_above(std::uint32_t place, const char* at) noexcept;
    void end_top(const char* at) noexcept;
    void end_in_table(element id, const char* at) noexcept;
    // Ends what stands in the topmost table and gives that one's place, or NONE.
    std::uint32_t go_back_to_table(const char* at) noexcept;

    template <class Record>
    void append(std::vector<Record>& list, const Record& record, std::size_t bytes_per_record) {
        m_budget.append(list, record, m_page.size() / bytes_per_record + FEW);
    }

    std::string_view m_page;
    const index_limits& m_limits;
    memory_budget m_budget;
    markup_reader m_reader;
    page_index m_index;
    text_outline::recorder m_recorder;
    text_walk<text_outline::recorder> m_text;

    const char* m_title_begin = nullptr; // of a title that is open
    static constexpr std::size_t NO_LINK = SIZE_MAX;
    std::size_t m_open_link = NO_LINK; // whose text goes on
    std::size_t m_templates = 0;       // that are open: what they hold is not of the page
    std::size_t m_tables = 0;
    open_elements m_open;
};

void indexer::start(const markup& tag) {
    if (tag.entry->id <= element::some) {
        return;
    }
    if (tag.entry->id == element::template_) {
        ++m_templates;
    }
    if (m_templates != 0) {
        return;
    }
    switch (tag.entry->id) {
    case element::a: start_link(tag); break;
    case element::area: add_link(tag, nullptr); break;
    case element::img:
    case element::image: add_image(tag); break;
    case element::title:
        if (m_index.title.data() == nullptr) {
            m_title_begin = tag.end;
        }
        break;
    case element::base:
        if (m_index.base.data() == nullptr) {
            const attribute href = find_in(tag, "href");
            m_index.base = href.is_given() ? href.value_or_empty() : std::string_view();
        }
        break;
    case element::table: start_table(tag); break;
    case element::column:
    case element::row_group: go_back_to_table(tag.begin); break;
    case element::caption: start_caption(tag.begin); break;
    case element::tr: start_row(tag.begin); break;
    case element::td:
    case element::th: start_cell(tag); break;
    case element::ul:
    case element::ol:
    case element::menu:
    case element::dir: m_open.push(tag.entry->id, 0, m_budget); break;
    case element::li: start_item(tag); break;
    default: break;
    }
}

void indexer::end(const markup& tag) {
    const element id = tag.entry->id;
    if (id <= element::some) {
        return;
    }
    if (m_templates != 0) {
        m_templates -= id == element::template_ ? 1 : 0;
        return;
    }
    switch (id) {
    case element::a: end_link(tag.begin); break;
    case element::table:
        if (const std::uint32_t place = m_open.find(id); place != open_elements::NONE) {
            end_with(place, tag.begin);
        }
        break;
    case element::row_group:
    case element::tr: go_back_to_table(tag.begin); break;
    case element::caption:
    case element::td:
    case element::th: end_in_table(id, tag.begin); break;
    case element::ul:
    case element::ol:
    case element::menu:
    case element::dir:
        if (const std::uint32_t place = m_open.find_in_scope(id); place != open_elements::NONE) {
            end_with(place, tag.begin);
        }
        break;
    case element::li:
        if (m_open.is_on_top(element::li)) {
            end_with(m_open.find(element::li), tag.begin);
        }
        break;
    default: break;
    }
}

void indexer::end_title(const char* at) noexcept {
    m_index.title = between(m_title_begin, at);
    m_title_begin = nullptr;
}

void indexer::end_all(const char* at) noexcept {
    if (m_title_begin != nullptr) {
        end_title(at);
    }
    end_link(at);
    if (!m_open.is_empty()) {
        end_with(0, at);
    }
}

void indexer::start_link(const markup& tag) {
    end_link(tag.begin); // also by an anchor that is no link itself
    if (add_link(tag, tag.end)) {
        m_open_link = m_index.links.size() - 1;
    }
}

void indexer::end_link(const char* at) noexcept {
    if (m_open_link != NO_LINK) {
        m_index.links[m_open_link].text_end = at;
        m_open_link = NO_LINK;
    }
}

bool indexer::add_link(const markup& tag, const char* text_end) {
    if (!find_in(tag, "href").is_given()) {
        return false;
    }
    admit_one_more(m_index.links.size(), m_limits.links);
    append(m_index.links, {tag.begin, text_end}, BYTES_PER_LINK);
    return true;
}

void indexer::add_image(const markup& tag) {
    admit_one_more(m_index.images.size(), m_limits.images);
    const bool has_source = find_in(tag, "src").is_given();
    if (m_index.all_have_source && !has_source) {
        m_index.all_have_source = false;
        for (const char* const image : m_index.images) {
            append(m_index.images_with_source, image, BYTES_PER_IMAGE);
        }
    } else if (has_source && !m_index.all_have_source) {
        append(m_index.images_with_source, tag.begin, BYTES_PER_IMAGE);
    }
    append(m_index.images, tag.begin, BYTES_PER_IMAGE);
}

// A table inside a cell or a caption is one of its own; anywhere else it ends the one that it stands in.
void indexer::start_table(const markup& tag) {
    const std::uint32_t place = m_open.find_in_scope(element::table);
    if (place != open_elements::NONE) {
        end_with(place, tag.begin);
    }
    m_open.push(element::table, m_tables++, m_budget);
}

std::uint32_t indexer::go_back_to_table(const char* at) noexcept {
    const std::uint32_t place = m_open.find(element::table);
    if (place != open_elements::NONE) {
        end_above(place, at);
        m_open.at(place).is_in_row = false;
    }
    return place;
}

void indexer::start_row(const char* at) {
    const std::uint32_t place = go_back_to_table(at);
    if (place != open_elements::NONE) {
        begin_row(m_open.at(place));
    }
}

void indexer::begin_row(open_elements::entry& table) noexcept {
    ++table.rows;
    table.columns = 0;
    table.is_in_row = true;
}

// A cell outside tables is none. One outside rows begins a row.
void indexer::start_cell(const markup& tag) {
    const std::uint32_t place = m_open.find(element::table);
    if (place == open_elements::NONE) {
        return;
    }
    end_above(place, tag.begin);
    open_elements::entry& table = m_open.at(place);
    if (!table.is_in_row) {
        begin_row(table);
    }
    admit_one_more(m_index.cells.size(), m_limits.cells);
    append(m_index.cells, {tag.begin, tag.end, table.number, table.rows - 1, table.columns++},
           BYTES_PER_CELL);
    m_open.push(tag.entry->id, m_index.cells.size() - 1, m_budget);
}

void indexer::start_caption(const char* at) {
    if (go_back_to_table(at) != open_elements::NONE) {
        m_open.push(element::caption, 0, m_budget);
    }
}

// An item ends the one before it, but not one that its list stands in.
void indexer::start_item(const markup& tag) {
    if (m_open.is_on_top(element::li)) {
        end_with(m_open.find(element::li), tag.begin);
    }
    admit_one_more(m_index.items.size(), m_limits.items);
    append(m_index.items, {tag.begin, tag.end}, BYTES_PER_ITEM);
    m_open.push(element::li, m_index.items.size() - 1, m_budget);
}

void indexer::end_in_table(element id, const char* at) noexcept {
    const std::uint32_t table = m_open.find(element::table);
    const std::uint32_t place = m_open.find(id);
    if (place != open_elements::NONE && table != open_elements::NONE && place > table) {
        end_with(place, at);
    }
}

void indexer::end_with(std::uint32_t place, const char* at) noexcept {
    end_above(place, at);
    end_top(at);
}

void indexer::end_above(std::uint32_t place, const char* at) noexcept {
    while (m_open.size() > std::size_t{place} + 1) {
        end_top(at);
    }
}

void indexer::end_top(const char* at) noexcept {
    const open_elements::entry& top = m_open.top();
    if (top.id == element::td || top.id == element::th) {
        m_index.cells[top.number].text_end = at;
    } else if (top.id == element::li) {
        m_index.items[top.number].text_end = at;
    }
    m_open.pop();
}

} // namespace

page_index index_page(std::string_view page, const index_limits& limits) {
    return indexer(page, limits).run();
}

} // namespace pageslice::standard
