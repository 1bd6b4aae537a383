// The library for today's C++: one page as a value, what it holds as ranges of string views.
//
//   const std::string html = read_somehow();
//   const pageslice::page page(html, "http://host/page.html");
//   for (const pageslice::link& link : page.links()) {
//       std::cout << page.absolute(link.href) << ' ' << link.text << '\n';
//   }
//
// Header-only, over the functions of pageslice_c.h: nothing of the standard library crosses the library's
// boundary, so that the host's compiler need not be the one that built it.
#ifndef PAGESLICE_PAGE_H
#define PAGESLICE_PAGE_H

#include <climits>
#include <cstddef>
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
#include "pageslice/text.h"

namespace pageslice {

// Between slices and string views, for hosts that use both faces of the library: a slice is one of the
// exported classes, which only the compiler that built the library can link. A view made of a slice lives as
// long as the slice's characters, and the other way round. A slice that is empty or without characters gives
// an empty view; its data() is null exactly when the slice is empty.
inline std::string_view to_view(const ::text& slice) noexcept {
    const bool has_characters = slice.m_pStart != nullptr && slice.m_pStart <= slice.m_pEnd;
    return {slice.m_pStart, has_characters ? static_cast<std::size_t>(slice.m_pEnd - slice.m_pStart) + 1 : 0};
}

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

inline void check(int result) {
    switch (result) {
    case PAGESLICE_OK: return;
    case PAGESLICE_TOO_LARGE: throw std::length_error("pageslice: the page is too large for its plain text");
    default: throw std::bad_alloc(); // no other call of this file can fail in another way
    }
}

// Runs a call that writes at most n characters and their length.
template <class Call>
std::string string_of(std::size_t n, Call call) {
    std::string result(n, '\0');
    std::size_t length = 0;
    check(call(result.data(), n + 1, &length));
    result.resize(length);
    return result;
}

} // namespace detail

// No characters gives an empty slice. Not for temporaries that own their characters.
inline ::text to_text(std::string_view characters) noexcept {
    return characters.empty() ? ::text()
                              : ::text(characters.data(), characters.data() + (characters.size() - 1), 0);
}
template <class Owner, class = detail::if_owning<Owner>>
::text to_text(Owner&&) = delete;

// An anchor with a link and a text. `text` is what stands between its tags, markup included; the rest are its
// attributes as written, with a null data() where not given. All are views into the page's bytes.
struct link {
    std::string_view href;
    std::string_view text;
    std::string_view name;
    std::string_view rel;
    std::string_view rev;
    std::string_view title;
};

// An image tag: views into the page's bytes, as in a link; numbers are -1 where not given.
struct image {
    std::string_view src;
    std::string_view lowsrc;
    std::string_view alt;
    std::string_view usemap;
    int width;
    int height;
    int border;
    int hspace;
    int vspace;
    ::align alignment;
    bool is_map;
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

    iterator begin() const noexcept { return iterator(m_page, 0); }
    iterator end() const noexcept { return iterator(m_page, static_cast<std::ptrdiff_t>(m_size)); }
    std::size_t size() const noexcept { return m_size; }
    bool empty() const noexcept { return m_size == 0; }
    // index < size()
    value_type operator[](std::size_t index) const noexcept { return Traits::get(m_page, index); }

private:
    const pageslice_page* m_page;
    std::size_t m_size;
};

namespace detail {

struct link_traits {
    using Element = link;
    static std::size_t count(const pageslice_page* page) noexcept { return pageslice_count_links(page); }
    static link get(const pageslice_page* page, std::size_t index) noexcept {
        pageslice_link c = {};
        pageslice_get_link(page, index, &c);
        return {view(c.href), view(c.text), view(c.name), view(c.rel), view(c.rev), view(c.title)};
    }
};

struct image_traits {
    using Element = image;
    static std::size_t count(const pageslice_page* page) noexcept { return pageslice_count_images(page); }
    static image get(const pageslice_page* page, std::size_t index) noexcept {
        pageslice_image c = {};
        pageslice_get_image(page, index, &c);
        return {view(c.src),  view(c.lowsrc), view(c.alt), view(c.usemap), c.width,
                c.height,     c.border,       c.hspace,    c.vspace,       static_cast<::align>(c.align),
                c.is_map != 0};
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

using link_range = range<detail::link_traits>;
using image_range = range<detail::image_traits>;
using cell_range = range<detail::slice_traits<pageslice_count_cells, pageslice_get_cell>>;
using item_range = range<detail::slice_traits<pageslice_count_items, pageslice_get_item>>;
using link_url_range = range<detail::slice_traits<pageslice_count_link_urls, pageslice_get_link_url>>;
using image_url_range = range<detail::slice_traits<pageslice_count_image_urls, pageslice_get_image_url>>;

// `url` made absolute against `base`, in canonical form. A NUL ends a URL. Throws std::bad_alloc.
// What it does not do is listed at pageslice_resolve_url.
inline std::string resolve(std::string_view base, std::string_view url) {
    return detail::string_of(base.size() + url.size(), [&](char* buffer, std::size_t n, std::size_t* length) {
        return pageslice_resolve_url(base.data(), base.size(), url.data(), url.size(), buffer, n, length);
    });
}

// `url` in canonical form. A NUL ends it. Throws std::bad_alloc.
inline std::string normalize(std::string_view url) {
    return detail::string_of(url.size(), [&](char* buffer, std::size_t n, std::size_t* length) {
        return pageslice_normalize_url(url.data(), url.size(), buffer, n, length);
    });
}

// One HTML page that lies in the host's memory, indexed when it is made.
//
// Lifetime: the page's bytes are never copied; they must live, unchanged, as long as the page object and
// every view that came from it. The views do not need the page object, only the bytes. The compiler refuses
// a page made from a temporary that owns its bytes, and ranges of a temporary page.
// A page moves but does not copy; a page moved from can be destroyed, assigned to, and asked: it is empty.
// Threads: reading one page from several threads is safe.
// Cost: linear in the page; nothing here allocates but the library itself and what returns a std::string.
class page {
public:
    // `url` is the page's own address, of which a copy is kept. Throws std::bad_alloc.
    explicit page(std::string_view html, std::string_view url = {}) {
        pageslice_page* opened = nullptr;
        detail::check(pageslice_open(html.data(), html.size(), url.data(), url.size(), &opened));
        m_page.reset(opened);
        m_size = html.size();
    }
    template <class Owner, class = detail::if_owning<Owner>>
    explicit page(Owner&&, std::string_view = {}) = delete;

    // The title as written; null data() for a page without one. Points into the page's bytes.
    std::string_view title() const noexcept { return slice(pageslice_get_title); }

    // The page's own address; null data() for none. Points into this object and dies with it.
    std::string_view url() const& noexcept { return slice(pageslice_get_url); }
    std::string_view url() const&& = delete;

    // In the order of the library's URL lists, which is the reverse of the page's where all links differ.
    // Elements point into the page's bytes, the range into this object.
    link_range links() const& noexcept { return link_range(m_page.get()); }
    link_range links() const&& = delete;

    // All image tags, in the order of the page. Elements point into the page's bytes, the range into this
    // object.
    image_range images() const& noexcept { return image_range(m_page.get()); }
    image_range images() const&& = delete;

    // The texts of the table cells and of the list items, markup included, in the order of the page.
    // Elements point into the page's bytes, the range into this object.
    cell_range cells() const& noexcept { return cell_range(m_page.get()); }
    cell_range cells() const&& = delete;
    item_range list_items() const& noexcept { return item_range(m_page.get()); }
    item_range list_items() const&& = delete;

    // The links' href in the order of links(), and the src of the images that have one in the order of the
    // page. URLs come as written; a NUL inside one cuts nothing off, as it does in a UrlList. Elements point
    // into the page's bytes, the range into this object.
    link_url_range link_urls() const& noexcept { return link_url_range(m_page.get()); }
    link_url_range link_urls() const&& = delete;
    image_url_range image_urls() const& noexcept { return image_url_range(m_page.get()); }
    image_url_range image_urls() const&& = delete;

    // Markup and white space as single spaces; the result is the caller's. It keeps room for as many bytes
    // as the page has: whoever stores many of them calls shrink_to_fit. Throws std::bad_alloc, and
    // std::length_error for a page of more than INT_MAX bytes.
    std::string plain_text() const {
        if (m_page == nullptr) {
            return {};
        }
        const std::size_t room = m_size <= INT_MAX ? m_size : 0; // none where the call refuses anyway
        return detail::string_of(room, [this](char* buffer, std::size_t n, std::size_t* length) {
            return pageslice_get_plain_text(m_page.get(), buffer, n, length);
        });
    }

    // A URL of the page made absolute against the page's own address, as resolve does it; the result is the
    // caller's. Throws std::bad_alloc.
    std::string absolute(std::string_view link_or_source) const { return resolve(url(), link_or_source); }

private:
    struct closer {
        void operator()(pageslice_page* page) const noexcept { pageslice_close(page); }
    };

    template <class Get>
    std::string_view slice(Get get) const noexcept {
        pageslice_slice found = {};
        get(m_page.get(), &found);
        return detail::view(found);
    }

    std::unique_ptr<pageslice_page, closer> m_page;
    std::size_t m_size = 0;
};

} // namespace pageslice

#if defined(__cpp_lib_ranges)
template <class Traits>
inline constexpr bool std::ranges::enable_borrowed_range<pageslice::range<Traits>> = true;
template <class Traits>
inline constexpr bool std::ranges::enable_view<pageslice::range<Traits>> = true;
#endif

#endif
