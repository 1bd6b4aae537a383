// SPDX-License-Identifier: MIT
// Paths by the URL Standard, written behind what stands before them.
#ifndef PAGESLICE_URL_STANDARD_PATH_H
#define PAGESLICE_URL_STANDARD_PATH_H

#include <string_view>

#include "url/url_record.h"

namespace pageslice::url_parts {

// "c:", or "c|" as it was once written.
bool is_drive(std::string_view in) noexcept;
// Whether a segment that is a drive stands first.
bool starts_with_drive(std::string_view in) noexcept;
// The "/c:" that this path begins with; empty when it does not.
std::string_view drive_of(std::string_view path) noexcept;

// A path while it is written: a '/' and a segment, as often as there are segments.
class path_writer {
public:
    // The path begins at `start`, where [start, out) of it is already written.
    path_writer(url_scheme scheme, char* start, char* out) noexcept
        : m_scheme(scheme), m_start(start), m_out(out) {}

    // Takes the last segment away, but for the drive of a file.
    void shorten() noexcept;
    // Writes the segments of a text, "a/b" as "/a/b", with dots followed; there is always one, though it may
    // be empty.
    void write(std::string_view text) noexcept;

    char* end() const noexcept { return m_out; }

private:
    std::string_view write_segment(std::string_view& text) noexcept;
    void mend_drive(char* segment) noexcept;

    url_scheme m_scheme;
    char* m_start;
    char* m_out;
};

} // namespace pageslice::url_parts

#endif
