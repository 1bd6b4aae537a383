// SPDX-License-Identifier: MIT
#include "c_api/urls.h"

#include <memory>
#include <string>
#include <string_view>

#include "c_api/results.h"
#include "pageslice/pageslice_c.h"
#include "pageslice/url.h"
#include "url/standard_url.h"

int pageslice::resolve_classic(std::string_view base, std::string_view relative, const output& out) {
    const std::unique_ptr<char[]> result(
        url::pResolveUrl(std::string(base).c_str(), std::string(relative).c_str()));
    return out.put(result.get());
}

int pageslice_resolve_url(const char* base, size_t base_size, const char* url, size_t url_size, char* buffer,
                          size_t capacity, size_t* length) noexcept {
    const pageslice::output out{buffer, capacity, length};
    if (!pageslice::is_range(base, base_size) || !pageslice::is_range(url, url_size) || !out.is_usable()) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::guarded([&] {
        return pageslice::resolve_classic(pageslice::view(base, base_size), pageslice::view(url, url_size),
                                          out);
    });
}

int pageslice::put_url(url_result result, std::string_view url, const output& out) noexcept {
    switch (result) {
    case url_result::ok: return out.put(url);
    case url_result::needs_idna: return PAGESLICE_NEEDS_IDNA;
    default: return PAGESLICE_NOT_A_URL;
    }
}

int pageslice_resolve_standard_url(const char* base, size_t base_size, const char* url, size_t url_size,
                                   char* buffer, size_t capacity, size_t* length) noexcept {
    const pageslice::output out{buffer, capacity, length};
    if (!pageslice::is_range(base, base_size) || !pageslice::is_range(url, url_size) || !out.is_usable()) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::guarded([&] {
        pageslice::standard_url parsed_base;
        if (base != nullptr) {
            const pageslice::url_result result = parsed_base.parse(pageslice::view(base, base_size));
            if (result != pageslice::url_result::ok) {
                return pageslice::put_url(result, {}, out);
            }
        }
        std::string resolved;
        const pageslice::url_result result = parsed_base.resolve(pageslice::view(url, url_size), resolved);
        return pageslice::put_url(result, resolved, out);
    });
}

int pageslice_normalize_url(const char* url, size_t url_size, char* buffer, size_t capacity,
                            size_t* length) noexcept {
    const pageslice::output out{buffer, capacity, length};
    if (!pageslice::is_range(url, url_size) || !out.is_usable()) {
        return PAGESLICE_BAD_ARGUMENT;
    }
    return pageslice::guarded([&] {
        std::string result(pageslice::view(url, url_size));
        url::NormalizeUrl(result.data());
        return out.put(result.c_str());
    });
}
