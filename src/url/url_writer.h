// SPDX-License-Identifier: MIT
// The URL Standard's parser. A '#' always begins the fragment and a '?' before it the query, so that these
// are split off first; what is left is read from part to part, and each part is written where it belongs in
// the serialized form.
#ifndef PAGESLICE_URL_URL_WRITER_H
#define PAGESLICE_URL_URL_WRITER_H

#include <cstddef>
#include <string_view>

#include "url/percent_encode.h"
#include "url/standard_url.h"

namespace pageslice::url_parts {

// What is added to a URL at most, apart from what its bytes and its host grow by: "file:///" and "/.".
inline constexpr std::size_t PUNCTUATION_GROWTH = 16;

// Splits off what stands from the first such byte on.
inline std::string_view split_at(char c, std::string_view& in) noexcept {
    const std::size_t i = in.find(c);
    if (i == std::string_view::npos) {
        return {};
    }
    const std::string_view rest = in.substr(i);
    in = in.substr(0, i);
    return rest;
}

class url_writer {
public:
    // Reads `input`, which has neither line breaks nor space around it, against a URL; `base` is empty
    // when there is none. Writes to `out`, which has room for both and for what they may grow by.
    url_writer(std::string_view input, std::string_view base, const url_record& base_record,
               char* out) noexcept;

    // Once. What was written counts only when the result is ok. Throws std::bad_alloc.
    url_result write();

    std::size_t size() const noexcept { return position(); }
    const url_record& record() const noexcept { return m_record; }

private:
    std::size_t position() const noexcept { return static_cast<std::size_t>(m_out - m_first); }
    bool is_file_based() const noexcept {
        return m_record.scheme == url_scheme::file && !m_base.empty() &&
               m_base_record.scheme == url_scheme::file;
    }
    bool is_slash(std::size_t i) const noexcept {
        return i < m_rest.size() && (m_rest[i] == '/' || (m_rest[i] == '\\' && is_special(m_record.scheme)));
    }
    std::string_view take_until_slash() noexcept;
    void skip_slashes() noexcept;
    void append(std::string_view bytes) noexcept;

    bool read_scheme() noexcept;
    url_result write_absolute();
    url_result write_reference();
    url_result write_relative();
    url_result write_after_base_path() noexcept;
    url_result write_file();
    url_result write_file_host();

    url_result write_authority();
    bool write_plain_domain() noexcept;
    url_result write_path_after_authority() noexcept;
    void write_credentials(std::string_view credentials) noexcept;
    url_result write_host_and_port(std::string_view in);
    void write_port(unsigned port) noexcept;

    void copy_base(std::size_t end) noexcept;
    url_result write_path() noexcept;
    void write_opaque_path() noexcept;
    void end_path() noexcept;
    void write_query() noexcept;
    void write_fragment() noexcept;

    std::string_view m_rest;     // what has not been read yet, up to the query
    std::string_view m_fragment; // with its '#'; empty when there is none
    std::string_view m_query;    // with its '?'
    std::string_view m_base;
    const url_record& m_base_record;
    char* m_first;
    char* m_out;
    url_record m_record;
};

} // namespace pageslice::url_parts

#endif
