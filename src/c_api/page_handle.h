// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_C_API_PAGE_HANDLE_H
#define PAGESLICE_C_API_PAGE_HANDLE_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "c_api/results.h"
#include "pageslice/pageslice_c.h"

// One open page, whichever rules read it: what does not depend on them stands here, and what does is virtual.
// The functions of the C interface have checked every index and pointer before they ask.
struct pageslice_page {
    // `html` is not copied. Throws std::bad_alloc.
    pageslice_page(std::string_view html, const pageslice_options& options);
    pageslice_page(const pageslice_page&) = delete;
    pageslice_page& operator=(const pageslice_page&) = delete;
    virtual ~pageslice_page() = default;

    // One past the last byte that counts as read; may take time linear in what comes after it.
    virtual std::size_t read_to() const noexcept = 0;
    virtual pageslice_slice title() const noexcept = 0;
    virtual pageslice_slice base() const noexcept = 0;

    virtual std::size_t count_links() const noexcept = 0;
    virtual std::size_t count_images() const noexcept = 0;
    virtual std::size_t count_cells() const noexcept = 0;
    virtual std::size_t count_items() const noexcept = 0;
    virtual std::size_t count_image_urls() const noexcept = 0;
    virtual pageslice_link link(std::size_t index) const noexcept = 0;
    virtual pageslice_link link_in_page_order(std::size_t index) const noexcept = 0;
    virtual pageslice_slice link_url(std::size_t index) const noexcept = 0;
    virtual pageslice_image image(std::size_t index) const noexcept = 0;
    virtual pageslice_slice image_url(std::size_t index) const noexcept = 0;
    virtual pageslice_cell cell(std::size_t index) const noexcept = 0;
    virtual pageslice_item item(std::size_t index) const noexcept = 0;

    // The most bytes that the plain text of so many takes; pageslice::NO_BOUND where it cannot be made.
    virtual std::size_t plain_text_bound(std::size_t size) const noexcept = 0;
    // Writes the plain text of a slice from `out` on, where its bound has room; gives one past its end.
    virtual char* write_plain_text(std::string_view slice, char* out) const noexcept = 0;
    // Throws std::bad_alloc.
    virtual int absolute(std::string_view url, const pageslice::output& out) const = 0;

    const std::string_view html;
    const bool has_url;
    const std::string url;                // empty without one
    const std::string_view encoding_told; // from outside, by its standard name; a constant
};

namespace pageslice {

index_limits limits_of(const pageslice_options& options) noexcept;

// Read a page by the one or the other rules. They throw std::bad_alloc and limit_exceeded.
std::unique_ptr<pageslice_page> open_classic(std::string_view html, const pageslice_options& options);
std::unique_ptr<pageslice_page> open_standard(std::string_view html, const pageslice_options& options);

} // namespace pageslice

#endif
