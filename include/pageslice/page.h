// SPDX-License-Identifier: MIT
// The library for hosts in C++: one page as a value, what it holds as ranges of string views.
//
//   const std::string html = read_somehow();
//   const pageslice::page page(html, "http://host/page.html");
//   for (const pageslice::link& link : page.links()) {
//       std::cout << page.absolute(link.href) << ' ' << link.text << '\n';
//   }
//
// By the rules of browsers, with whatever else `options` holds:
//
//   pageslice::options options;
//   options.rules = pageslice::rules::standard;
//   options.url = "http://host/page.html";
//   const pageslice::page page(html, options);
//
// Header-only, over the functions of pageslice_c.h: nothing of the standard library crosses the library's
// boundary, so that the host's compiler need not be the one that built it. No name outside `pageslice`, and
// those of pageslice_c.h, comes into the host.
//
// Errors: std::bad_alloc where memory runs out; std::invalid_argument for a page or an address that is no
// range of memory (its size above PTRDIFF_MAX, say); std::length_error for a page that exceeds a limit of its
// options, and for a plain text above INT_MAX bytes by the classic rules.
// Without exceptions (-fno-exceptions), what would throw ends the program by std::abort. Such a host opens
// pages by page::open and takes texts by the forms that fill a string, which all give the codes of
// pageslice_c.h; std::string itself then ends the program where memory runs out.
#ifndef PAGESLICE_PAGE_H
#define PAGESLICE_PAGE_H

#if defined(_MSVC_LANG) ? _MSVC_LANG < 201703L : __cplusplus < 201703L
#error "pageslice/page.h needs C++17: compile with -std=c++17 (or /std:c++17), or use pageslice/pageslice_c.h"
#endif

#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#if defined(__cpp_lib_ranges)
#include <ranges>
#endif

#include "pageslice/pageslice_c.h"

namespace pageslice {

// The rules that a page is read by: this library's own, or the HTML Standard's, as browsers read pages.
enum class rules { classic = PAGESLICE_CLASSIC, standard = PAGESLICE_STANDARD };

// Bounds on what a page can make the library take; 0 is none. A page that holds more is not opened.
struct limits {
    std::size_t links = 0;
    std::size_t images = 0;
    std::size_t cells = 0;
    std::size_t items = 0;
    std::size_t index_bytes = 0; // of memory for the index at any moment, its growing included
};

// How a page is opened. Address and encoding need not outlive the call.
struct options {
    pageslice::rules rules = pageslice::rules::classic;
    std::string_view url = {};      // the page's own address; null data() for none
    std::string_view encoding = {}; // its encoding's name as told from outside, by a server for one
    pageslice::limits limits = {};
};

// Of images.
enum class alignment {
    unknown = PAGESLICE_ALIGN_UNKNOWN,
    top = PAGESLICE_ALIGN_TOP,
    middle = PAGESLICE_ALIGN_MIDDLE,
    bottom = PAGESLICE_ALIGN_BOTTOM,
    left = PAGESLICE_ALIGN_LEFT,
    right = PAGESLICE_ALIGN_RIGHT,
    center = PAGESLICE_ALIGN_CENTER
};

// An anchor with a link. `text` is what stands between its tags, markup included; `element` is the start tag
// itself; the rest are its attributes as written, with a null data() where not given. All are views into the
// page's bytes.
struct link {
    std::string_view href;
    std::string_view text;
    std::string_view name;
    std::string_view rel;
    std::string_view rev;
    std::string_view title;
    std::string_view element;
};

// An image tag: views into the page's bytes, as in a link; numbers are -1 where not given. The classic rules
// do not read `srcset`.
struct image {
    std::string_view src;
    std::string_view lowsrc;
    std::string_view alt;
    std::string_view usemap;
    std::string_view srcset;
    std::string_view element; // the tag itself
    int width;
    int height;
    int border;
    int hspace;
    int vspace;
    pageslice::alignment alignment;
    bool is_map;
};

// A table cell: its text, markup included, as a view into the page's bytes, and its place. The classic rules
// tell the text only; all numbers are -1 then, and is_header is false.
struct cell {
    std::string_view text;
    int table;  // which table of the page, from 0 on
    int row;    // of the table
    int column; // position in the row, each cell counting 1
    int colspan;
    int rowspan;
    bool is_header;
};

// A list item: its text, markup included, as a view into the page's bytes.
struct item {
    std::string_view text;
};

// The elements of one collection of a page, made when they are looked at: a view that is cheap to copy, with
// random access in constant time. Elements are values, and outlive range, iterators and page; iterators
// outlive the range. Neither range nor iterators outlive the page object (a moved page takes them along).
// What Traits says: Element; count(handle); get(handle, index).
template <class Traits>
class range {
public:
    using value_type = typename Traits::Element;

    // To the algorithms of C++17 an input iterator, since it gives values and not references; to those of
    // C++20 a random-access one.
    class iterator {
    public:
        using iterator_concept = std::random_access_iterator_tag;
        using iterator_category = std::input_iterator_tag;
        using value_type = typename Traits::Element;
        using difference_type = std::ptrdiff_t;
        using reference = value_type;
        struct pointer {
            value_type element;
            const value_type* operator->() const noexcept { return &element; }
        };

        iterator() noexcept = default;
        iterator(const pageslice_page* page, difference_type index) noexcept : m_page(page), m_index(index) {}

        reference operator*() const noexcept { return (*this)[0]; }
        pointer operator->() const noexcept { return {**this}; }
        reference operator[](difference_type n) const noexcept {
            return Traits::get(m_page, static_cast<std::size_t>(m_index + n));
        }
        iterator& operator+=(difference_type n) noexcept {
            m_index += n;
            return *this;
        }
        iterator& operator-=(difference_type n) noexcept { return *this += -n; }
        iterator& operator++() noexcept { return *this += 1; }
        iterator& operator--() noexcept { return *this -= 1; }
        iterator operator++(int) noexcept { return ++*this - 1; }
        iterator operator--(int) noexcept { return --*this + 1; }
        friend iterator operator+(iterator i, difference_type n) noexcept { return i += n; }
        friend iterator operator+(difference_type n, iterator i) noexcept { return i += n; }
        friend iterator operator-(iterator i, difference_type n) noexcept { return i -= n; }
        friend difference_type operator-(const iterator& a, const iterator& b) noexcept {
            return a.m_index - b.m_index;
        }
        friend bool operator==(const iterator& a, const iterator& b) noexcept {
            return a.m_index == b.m_index;
        }
        friend bool operator!=(const iterator& a, const iterator& b) noexcept {
            return a.m_index != b.m_index;
        }
        friend bool operator<(const iterator& a, const iterator& b) noexcept { return a.m_index < b.m_index; }
        friend bool operator>(const iterator& a, const iterator& b) noexcept { return b < a; }
        friend bool operator<=(const iterator& a, const iterator& b) noexcept { return !(b < a); }
        friend bool operator>=(const iterator& a, const iterator& b) noexcept { return !(a < b); }

    private:
        const pageslice_page* m_page = nullptr;
        difference_type m_index = 0;
    };
    using const_iterator = iterator;

    explicit range(const pageslice_page* page) noexcept : m_page(page), m_size(Traits::count(page)) {}

    [[nodiscard]] iterator begin() const noexcept { return iterator(m_page, 0); }
    [[nodiscard]] iterator end() const noexcept {
        return iterator(m_page, static_cast<std::ptrdiff_t>(m_size));
    }
    [[nodiscard]] std::size_t size() const noexcept { return m_size; }
    [[nodiscard]] bool empty() const noexcept { return m_size == 0; }
    // index < size()
    [[nodiscard]] value_type operator[](std::size_t index) const noexcept {
        return Traits::get(m_page, index);
    }

private:
    const pageslice_page* m_page;
    std::size_t m_size;
};

namespace detail {

// A temporary that takes its characters with it when it goes, as std::string does. Views go without a trace.
template <class T>
constexpr bool owns_its_bytes =
    !std::is_lvalue_reference_v<T> && std::is_convertible_v<T, std::string_view> &&
    !std::is_trivially_destructible_v<T>;
template <class T>
using if_owning = std::enable_if_t<owns_its_bytes<T>>;

inline std::string_view view(const pageslice_slice& slice) noexcept {
    return {slice.data, slice.size};
}

template <class Error, class... What>
[[noreturn]] void fail(What... what) {
#if defined(__cpp_exceptions) || defined(_CPPUNWIND)
    throw Error(what...);
#else
    (static_cast<void>(what), ...);
    std::abort();
#endif
}

inline void check(int code) {
    switch (code) {
    case PAGESLICE_OK: return;
    case PAGESLICE_LIMIT: fail<std::length_error>("pageslice: the page exceeds a limit");
    case PAGESLICE_TOO_LARGE: fail<std::length_error>("pageslice: too large for plain text");
    case PAGESLICE_BAD_ARGUMENT:
        fail<std::invalid_argument>("pageslice: no range of memory, or an unknown option");
    default: fail<std::bad_alloc>();
    }
}

// As check, for calls whose empty result tells that there is no URL.
inline void check_url(int code) {
    if (code != PAGESLICE_NOT_A_URL && code != PAGESLICE_NEEDS_IDNA) {
        check(code);
    }
}

// Runs a call that writes a text and its length, mostly not longer than `room`. The string is empty unless
// the call succeeds. Room is made beside the string, which would fill all of it first, and keep it.
template <class Call>
int fill(std::string& result, std::size_t room, Call call) {
    result.clear();
    for (;;) {
        const std::unique_ptr<char[]> buffer(new char[room + 1]);
        std::size_t length = 0;
        const int code = call(buffer.get(), room + 1, &length);
        if (code == PAGESLICE_OK) {
            result.assign(buffer.get(), length);
        }
        if (code != PAGESLICE_TOO_SMALL) {
            return code;
        }
        room = length;
    }
}

// As fill, for calls that fail only where something is wrong.
template <class Call>
std::string string_of(std::size_t room, Call call) {
    std::string result;
    check(fill(result, room, call));
    return result;
}

inline pageslice_options options_of(const options& from) noexcept {
    pageslice_options to = {};
    to.rules = static_cast<int>(from.rules);
    to.url = from.url.data();
    to.url_size = from.url.size();
    to.encoding = from.encoding.data();
    to.encoding_size = from.encoding.size();
    to.most_links = from.limits.links;
    to.most_images = from.limits.images;
    to.most_cells = from.limits.cells;
    to.most_items = from.limits.items;
    to.most_index_bytes = from.limits.index_bytes;
    return to;
}

inline link element_of(const pageslice_link& c) noexcept {
    return {view(c.href), view(c.text),  view(c.name),   view(c.rel),
            view(c.rev),  view(c.title), view(c.element)};
}

inline image element_of(const pageslice_image& c) noexcept {
    return {view(c.src),    view(c.lowsrc),  view(c.alt), view(c.usemap),
            view(c.srcset), view(c.element), c.width,     c.height,
            c.border,       c.hspace,        c.vspace,    static_cast<alignment>(c.align),
            c.is_map != 0};
}

inline cell element_of(const pageslice_cell& c) noexcept {
    return {view(c.text), c.table, c.row, c.column, c.colspan, c.rowspan, c.is_header == 1};
}

inline item element_of(const pageslice_item& c) noexcept {
    return {view(c.text)};
}

// A collection whose elements the library writes into structures of a size that it is told.
template <class Structure, auto Count, auto Get>
struct structure_traits {
    using Element = decltype(element_of(Structure()));
    static std::size_t count(const pageslice_page* page) noexcept { return Count(page); }
    static Element get(const pageslice_page* page, std::size_t index) noexcept {
        Structure c = {};
        Get(page, index, &c, sizeof c);
        return element_of(c);
    }
};

template <auto Count, auto Get>
struct slice_traits {
    using Element = std::string_view;
    static std::size_t count(const pageslice_page* page) noexcept { return Count(page); }
    static std::string_view get(const pageslice_page* page, std::size_t index) noexcept {
        pageslice_slice slice = {};
        Get(page, index, &slice);
        return view(slice);
    }
};

} // namespace detail

using link_range = range<detail::structure_traits<pageslice_link, pageslice_count_links, pageslice_get_link>>;
using page_order_link_range =
    range<detail::structure_traits<pageslice_link, pageslice_count_links, pageslice_get_link_in_page_order>>;
using image_range =
    range<detail::structure_traits<pageslice_image, pageslice_count_images, pageslice_get_image>>;
using cell_range = range<detail::structure_traits<pageslice_cell, pageslice_count_cells, pageslice_get_cell>>;
using item_range = range<detail::structure_traits<pageslice_item, pageslice_count_items, pageslice_get_item>>;
using link_url_range = range<detail::slice_traits<pageslice_count_link_urls, pageslice_get_link_url>>;
using image_url_range = range<detail::slice_traits<pageslice_count_image_urls, pageslice_get_image_url>>;

// `url` made absolute against `base`, in canonical form, by the classic rules. A NUL ends a URL. What it does
// not do is listed at pageslice_resolve_url.
[[nodiscard]] inline std::string resolve(std::string_view base, std::string_view url) {
    return detail::string_of(base.size() + url.size(), [&](char* buffer, std::size_t n, std::size_t* length) {
        return pageslice_resolve_url(base.data(), base.size(), url.data(), url.size(), buffer, n, length);
    });
}

// `url` made absolute against `base` by the URL Standard; null data() is no base. Empty for what is no URL;
// the form that fills a string gives the code that says why.
[[nodiscard]] inline int resolve_standard_into(std::string& result, std::string_view base,
                                               std::string_view url) {
    return detail::fill(result, base.size() + url.size(),
                        [&](char* buffer, std::size_t n, std::size_t* length) {
                            return pageslice_resolve_standard_url(base.data(), base.size(), url.data(),
                                                                  url.size(), buffer, n, length);
                        });
}
[[nodiscard]] inline std::string resolve_standard(std::string_view base, std::string_view url) {
    std::string result;
    detail::check_url(resolve_standard_into(result, base, url));
    return result;
}

// `url` in canonical form, by the classic rules. A NUL ends it.
[[nodiscard]] inline std::string normalize(std::string_view url) {
    return detail::string_of(url.size(), [&](char* buffer, std::size_t n, std::size_t* length) {
        return pageslice_normalize_url(url.data(), url.size(), buffer, n, length);
    });
}

namespace detail {
inline std::string decode(std::string_view text, int kind) {
    const std::size_t room = pageslice_decoded_bound(text.data(), text.size(), kind);
    return string_of(room, [&](char* buffer, std::size_t n, std::size_t* length) {
        return pageslice_decode(text.data(), text.size(), kind, buffer, n, length);
    });
}
} // namespace detail

// Text, or an attribute's value, of a page in UTF-8 with its character references replaced by what they stand
// for, by the HTML Standard, as pageslice_decode does it.
[[nodiscard]] inline std::string decode(std::string_view text, bool in_attribute = false) {
    return detail::decode(text, in_attribute ? PAGESLICE_DECODE_ATTRIBUTE : PAGESLICE_DECODE_TEXT);
}

// One HTML page that lies in the host's memory, indexed when it is made.
//
// Lifetime: the page's bytes are never copied; they must live, unchanged, as long as the page object and
// every view that came from it. The views do not need the page object, only the bytes. The compiler refuses
// a page made from a temporary that owns its bytes, and ranges of a temporary page.
// A page moves but does not copy; a page moved from can be destroyed, assigned to, and asked: it is empty.
// Threads: reading one page from several threads is safe.
// Cost: linear in the page; nothing here allocates but the library itself and what makes a std::string.
class page {
public:
    // No page: empty.
    page() noexcept = default;
    // By the classic rules; `url` is the page's own address, of which a copy is kept.
    explicit page(std::string_view html, std::string_view url = {}) : page(html, with_url(url)) {}
    page(std::string_view html, const options& how) { detail::check(open(html, how, *this)); }
    template <class Owner, class = detail::if_owning<Owner>>
    explicit page(Owner&&, std::string_view = {}) = delete;
    template <class Owner, class = detail::if_owning<Owner>>
    page(Owner&&, const options&) = delete;

    // The same without exceptions: PAGESLICE_OK, or another code, and then `opened` is empty.
    [[nodiscard]] static int open(std::string_view html, const options& how, page& opened) noexcept {
        const pageslice_options all = detail::options_of(how);
        pageslice_page* handle = nullptr;
        const int code = pageslice_open_with(html.data(), html.size(), &all, sizeof all, &handle);
        opened.m_page.reset(handle);
        opened.m_html = html;
        return code;
    }
    template <class Owner, class = detail::if_owning<Owner>>
    static int open(Owner&&, const options&, page&) = delete;

    // The title as written; null data() for a page without one. Points into the page's bytes.
    [[nodiscard]] std::string_view title() const noexcept { return slice(pageslice_get_title); }

    // What the page names as the base of its URLs, as written; null data() for none, and by the classic
    // rules.
    [[nodiscard]] std::string_view base() const noexcept { return slice(pageslice_get_base); }

    // The name of the encoding that browsers read the page in, as in "UTF-8"; null data() for a page moved
    // from. A constant.
    [[nodiscard]] std::string_view encoding() const noexcept { return slice(pageslice_get_encoding); }

    // How many of the page's bytes were read; fewer than all where the classic rules end earlier, as told at
    // pageslice_get_read_to. Linear in the rest.
    [[nodiscard]] std::size_t read_to() const noexcept {
        std::size_t bytes = 0;
        pageslice_get_read_to(m_page.get(), &bytes);
        return bytes;
    }

    // The page's own address; null data() for none. Points into this object and dies with it.
    [[nodiscard]] std::string_view url() const& noexcept { return slice(pageslice_get_url); }
    std::string_view url() const&& = delete;

    // By the classic rules in the order of the library's URL lists, which is the reverse of the page's where
    // all links differ; by the standard ones in the order of the page. The second gives the same links in the
    // order of the page by both. Elements point into the page's bytes, the range into this object.
    [[nodiscard]] link_range links() const& noexcept { return link_range(m_page.get()); }
    link_range links() const&& = delete;
    [[nodiscard]] page_order_link_range links_in_page_order() const& noexcept {
        return page_order_link_range(m_page.get());
    }
    page_order_link_range links_in_page_order() const&& = delete;

    // All image tags, in the order of the page. Elements point into the page's bytes, the range into this
    // object.
    [[nodiscard]] image_range images() const& noexcept { return image_range(m_page.get()); }
    image_range images() const&& = delete;

    // The table cells and the list items in the order of the page. Elements point into the page's bytes, the
    // range into this object.
    // Their texts may overlap, and sum to far more than the page: who copies them out counts what was copied.
    // How large the index itself can become, and how to bound it, is told at pageslice_get_item.
    [[nodiscard]] cell_range cells() const& noexcept { return cell_range(m_page.get()); }
    cell_range cells() const&& = delete;
    [[nodiscard]] item_range list_items() const& noexcept { return item_range(m_page.get()); }
    item_range list_items() const&& = delete;

    // The links' href in the order of links(), and the src of the images that have one in the order of the
    // page. URLs come as written; a NUL inside one cuts nothing off, as it does in a UrlList. Elements point
    // into the page's bytes, the range into this object.
    [[nodiscard]] link_url_range link_urls() const& noexcept { return link_url_range(m_page.get()); }
    link_url_range link_urls() const&& = delete;
    [[nodiscard]] image_url_range image_urls() const& noexcept { return image_url_range(m_page.get()); }
    image_url_range image_urls() const&& = delete;

    // The plain text of the page, or of any slice of it (a link's text, say), by the page's rules; the result
    // is the caller's.
    [[nodiscard]] std::string plain_text() const { return plain_text(m_html); }
    [[nodiscard]] std::string plain_text(std::string_view slice) const {
        std::string text;
        detail::check(plain_text_into(text, slice));
        return text;
    }
    // The same into a string; gives a code, and an empty string unless that is PAGESLICE_OK.
    [[nodiscard]] int plain_text_into(std::string& text) const { return plain_text_into(text, m_html); }
    [[nodiscard]] int plain_text_into(std::string& text, std::string_view slice) const {
        const std::size_t room = pageslice_plain_text_bound(m_page.get(), slice.size());
        return detail::fill(text, room, [&](char* buffer, std::size_t n, std::size_t* length) {
            return m_page == nullptr ? PAGESLICE_OK
                                     : pageslice_get_plain_text_of(m_page.get(), slice.data(), slice.size(),
                                                                   buffer, n, length);
        });
    }

    // A URL of the page, as written there, made absolute by the page's rules, which pageslice_absolute lists;
    // the result is the caller's. Empty for what is no URL; the form that fills a string gives the code that
    // says why.
    [[nodiscard]] std::string absolute(std::string_view link_or_source) const {
        std::string result;
        detail::check_url(absolute_into(result, link_or_source));
        return result;
    }
    [[nodiscard]] int absolute_into(std::string& result, std::string_view link_or_source) const {
        return detail::fill(result, url().size() + link_or_source.size(),
                            [&](char* buffer, std::size_t n, std::size_t* length) {
                                return m_page == nullptr
                                           ? PAGESLICE_NOT_A_URL
                                           : pageslice_absolute(m_page.get(), link_or_source.data(),
                                                                link_or_source.size(), buffer, n, length);
                            });
    }

    // The C interface's handle of this page, which keeps it; null for a page moved from.
    [[nodiscard]] const pageslice_page* handle() const noexcept { return m_page.get(); }

private:
    struct closer {
        void operator()(pageslice_page* page) const noexcept { pageslice_close(page); }
    };

    static options with_url(std::string_view url) noexcept {
        options all;
        all.url = url;
        return all;
    }

    template <class Get>
    std::string_view slice(Get get) const noexcept {
        pageslice_slice found = {};
        get(m_page.get(), &found);
        return detail::view(found);
    }

    std::unique_ptr<pageslice_page, closer> m_page = {};
    std::string_view m_html = {};
};

} // namespace pageslice

#if defined(__cpp_lib_ranges)
template <class Traits>
inline constexpr bool std::ranges::enable_borrowed_range<pageslice::range<Traits>> = true;
template <class Traits>
inline constexpr bool std::ranges::enable_view<pageslice::range<Traits>> = true;
#endif

#endif
