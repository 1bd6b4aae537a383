// SPDX-License-Identifier: MIT
#include "c_api/page_handle.h"

#include <cstddef>
#include <cstdint>

#include "standard/encoding.h"

pageslice_page::pageslice_page(std::string_view page_html, const pageslice_options& options)
    : html(page_html), has_url(options.url != nullptr), url(pageslice::view(options.url, options.url_size)),
      encoding_told(
          pageslice::standard::encoding_of_label(pageslice::view(options.encoding, options.encoding_size))) {}

namespace pageslice {

index_limits limits_of(const pageslice_options& options) noexcept {
    const auto most = [](std::size_t given) { return given == 0 ? SIZE_MAX : given; };
    return {most(options.most_links), most(options.most_images), most(options.most_cells),
            most(options.most_items), most(options.most_index_bytes)};
}

} // namespace pageslice
