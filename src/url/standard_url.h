// SPDX-License-Identifier: MIT
// URLs by the URL Standard, as browsers read them: parsed, resolved against a base, serialized.
#ifndef PAGESLICE_URL_STANDARD_URL_H
#define PAGESLICE_URL_STANDARD_URL_H

#include <string>
#include <string_view>

#include "url/url_record.h"

namespace pageslice {

enum class url_result {
    ok,
    not_a_url, // what browsers cannot parse, or a relative reference without a base
    // The host has characters beyond ASCII, or a label that begins with "xn--", and this build cannot tell
    // what it is: it has no libidn2, or one that refuses this host, which browsers may take.
    needs_idna
};

// A parsed URL, kept in its serialized form and with the places where its parts begin, so that many
// references can be resolved against it. New ones are empty, which is no URL.
//
// Input is UTF-8; each invalid sequence in it counts as U+FFFD, queries are written in UTF-8. The serialized
// form is ASCII. Takes time linear in the input and the base. Input and base are only read, and nothing
// outside them is.
class standard_url {
public:
    // Takes the URL that `input` is, or that it means as a reference against `base`, which may be this very
    // URL or empty. Stays what it was unless the result is ok. Throws std::bad_alloc, and then stays, too.
    url_result parse(std::string_view input, const standard_url& base = standard_url());

    // The same, with the serialized form put into `out` in place of what it held; `out` stays what it was
    // unless the result is ok, and its memory serves again. Neither the reference nor this URL may be in it.
    // This URL may be empty; then only an absolute URL is one. Throws std::bad_alloc, and then `out` stays.
    url_result resolve(std::string_view reference, std::string& out) const;

    // The serialized form; empty before a URL was parsed.
    const std::string& href() const noexcept { return m_href; }

private:
    std::string m_href;
    url_record m_record;
};

} // namespace pageslice

#endif
