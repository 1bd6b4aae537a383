// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_C_API_URLS_H
#define PAGESLICE_C_API_URLS_H

#include <string_view>

#include "c_api/results.h"
#include "url/standard_url.h"

namespace pageslice {

// `url` made absolute against `base` by the classic rules. Throws std::bad_alloc.
int resolve_classic(std::string_view base, std::string_view relative, const output& out);

// What parsing by the URL Standard gave: a URL, or why there is none.
int put_url(url_result result, std::string_view url, const output& out) noexcept;

} // namespace pageslice

#endif
