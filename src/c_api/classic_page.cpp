// SPDX-License-Identifier: MIT
#include <climits>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

#include "c_api/page_handle.h"
#include "c_api/urls.h"
#include "output/plain_text.h"
#include "pageslice/page_index.h"
#include "parser/image_trail.h"
#include "parser/image_walk.h"
#include "parser/indexing_pass.h"
#include "scan/tag_bounds.h"
#include "text/byte_count.h"

static_assert(PAGESLICE_ALIGN_UNKNOWN == ALIGN_UNKNOWN && PAGESLICE_ALIGN_TOP == ALIGN_TOP &&
                  PAGESLICE_ALIGN_MIDDLE == ALIGN_MIDDLE && PAGESLICE_ALIGN_BOTTOM == ALIGN_BOTTOM &&
                  PAGESLICE_ALIGN_LEFT == ALIGN_LEFT && PAGESLICE_ALIGN_RIGHT == ALIGN_RIGHT &&
                  PAGESLICE_ALIGN_CENTER == ALIGN_CENTER,
              "both interfaces give an alignment the same number");

namespace pageslice {
namespace {

text text_of(std::string_view bytes) noexcept {
    return bytes.empty() ? text() : text(bytes.data(), bytes.data() + (bytes.size() - 1), 0);
}

pageslice_slice slice_of(const text& t) noexcept {
    return pageslice::slice_of(std::string_view(t.m_pStart, nByteCount(t)));
}

// The whole tag, for a record ends where its scan of attributes did: at the '>' or at white space before it.
pageslice_slice element_of(const tag& record, const text& page) noexcept {
    const char* const end = pFindTagEnd(record.m_tTag.m_pEnd, page);
    return slice_of(end == nullptr ? record.m_tTag : text(record.m_tTag.m_pStart, end, 0));
}

pageslice_link link_of(const UrlMap::value_type& entry, const text& page) noexcept {
    const tag_a& anchor = entry.first;
    return {slice_of(anchor.m_urlHref), slice_of(entry.second),  slice_of(anchor.m_tName),
            slice_of(anchor.m_tRel),    slice_of(anchor.m_tRev), slice_of(anchor.m_tTitle),
            element_of(anchor, page)};
}

pageslice_image image_of(const tag_img& image, const text& page) noexcept {
    return {slice_of(image.m_urlSrc),
            slice_of(image.m_urlLowSrc),
            slice_of(image.m_altText),
            slice_of(image.m_urlUseMap),
            {},
            element_of(image, page),
            image.m_nWidth,
            image.m_nHeight,
            image.m_nBorder,
            image.m_nHSpace,
            image.m_nVSpace,
            image.m_align,
            image.m_bIsMap};
}

// Opens the parser's index and adds what makes each element reachable by its number.
class classic_page final : public pageslice_page, PageIndex {
public:
    classic_page(std::string_view page, const pageslice_options& options);

    std::size_t read_to() const noexcept override;
    pageslice_slice title() const noexcept override { return slice_of(m_tTitle); }
    pageslice_slice base() const noexcept override { return {}; }

    std::size_t count_links() const noexcept override { return m_links.size(); }
    std::size_t count_images() const noexcept override { return m_images.size(); }
    std::size_t count_cells() const noexcept override { return m_vCellTexts.size(); }
    std::size_t count_items() const noexcept override { return m_vListItems.size(); }
    std::size_t count_image_urls() const noexcept override { return m_images_with_url.size(); }

    pageslice_link link(std::size_t index) const noexcept override {
        return link_of(*m_links[index], m_tPage);
    }
    pageslice_link link_in_page_order(std::size_t index) const noexcept override {
        return link_of(m_urlMap.Inserted(index), m_tPage);
    }
    pageslice_slice link_url(std::size_t index) const noexcept override {
        return slice_of(m_links[index]->first.m_urlHref);
    }
    pageslice_image image(std::size_t index) const noexcept override {
        return image_of(image_at(m_images[index]), m_tPage);
    }
    pageslice_slice image_url(std::size_t index) const noexcept override {
        return slice_of(image_at(m_images_with_url[index]).m_urlSrc);
    }
    pageslice_cell cell(std::size_t index) const noexcept override {
        return {slice_of(m_vCellTexts[index]), -1, -1, -1, -1, -1, -1};
    }
    pageslice_item item(std::size_t index) const noexcept override { return {slice_of(m_vListItems[index])}; }

    std::size_t plain_text_bound(std::size_t size) const noexcept override {
        return size > INT_MAX ? NO_BOUND : size;
    }
    char* write_plain_text(std::string_view slice, char* out) const noexcept override {
        return pWritePlainText(text_of(slice), out);
    }
    int absolute(std::string_view relative, const output& out) const override {
        return resolve_classic(url, relative, out);
    }

private:
    void list_links(memory_budget& budget);
    void list_images(std::size_t most, memory_budget& budget);
    tag_img image_at(const char* open) const noexcept;

    text m_tPage;
    const char* m_last_open; // the '<' looked at last
    std::vector<const UrlMap::value_type*> m_links;
    std::vector<const char*> m_images; // the '<' of each; what its tag holds is read again when asked for
    std::vector<const char*> m_images_with_url;
};

classic_page::classic_page(std::string_view page, const pageslice_options& options)
    : pageslice_page(page, options), m_tPage(text_of(page)) {
    const index_limits limits = limits_of(options);
    memory_budget budget(limits.bytes);
    m_last_open = RunIndexingPass(m_tPage, *this, limits, budget);
    list_links(budget);
    list_images(limits.images, budget);
    ImageTrailAccess::Of(*this) = {}; // has served its purpose
}

void classic_page::list_links(memory_budget& budget) {
    for (const UrlMap::value_type& entry : m_urlMap) {
        budget.append(m_links, &entry, m_urlMap.size());
    }
}

void classic_page::list_images(std::size_t most, memory_budget& budget) {
    ImageWalk walk(m_tPage, *this);
    const std::size_t usual = walk.nMarks() + 1;
    for (tag_img image; walk.pNext(image) != nullptr;) {
        admit_one_more(m_images.size(), most);
        budget.append(m_images, image.m_tTag.m_pStart, usual);
        if (image.m_urlSrc.IsEmpty() == 0) {
            budget.append(m_images_with_url, image.m_tTag.m_pStart, usual);
        }
    }
}

// The page is read to its end unless a tag follows that was not looked at.
std::size_t classic_page::read_to() const noexcept {
    if (m_last_open == nullptr) {
        return html.size();
    }
    const std::string_view rest = html.substr(static_cast<std::size_t>(m_last_open - html.data()) + 1);
    const std::size_t next = rest.find('<');
    return next == std::string_view::npos ? html.size() : html.size() - rest.size() + next;
}

tag_img classic_page::image_at(const char* open) const noexcept {
    tag_img image;
    ImageWalk::pRead(open, m_tPage, image);
    return image;
}

} // namespace

std::unique_ptr<pageslice_page> open_classic(std::string_view html, const pageslice_options& options) {
    return std::make_unique<classic_page>(html, options);
}

} // namespace pageslice
