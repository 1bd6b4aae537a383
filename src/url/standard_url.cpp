// SPDX-License-Identifier: MIT
#include "url/standard_url.h"

#include <algorithm>
#include <cstdint>
#include <new>

#include "text/utf8.h"
#include "url/standard_host.h"
#include "url/url_writer.h"

namespace pageslice {
namespace {

using std::size_t;
using std::string_view;

string_view trimmed_url(string_view in) noexcept {
    const auto is_blank = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
    while (!in.empty() && is_blank(in.front())) {
        in.remove_prefix(1);
    }
    while (!in.empty() && is_blank(in.back())) {
        in.remove_suffix(1);
    }
    return in;
}

// What must be known of a reference before it is read.
struct url_survey {
    std::uint64_t room; // the bytes that it can come to, without a base
    bool has_line_breaks;

    explicit url_survey(string_view in) noexcept {
        using namespace url_parts;
        std::uint64_t growth = 0;
        unsigned all = 0;
        for (const char c : in) {
            all |= sets_of(c);
            growth += growth_of(c);
        }
        has_line_breaks = (all & LINE_BREAK) != 0;
        const bool may_need_idna = (all & (HIGH | PERCENT)) != 0;
        room = in.size() + growth + PUNCTUATION_GROWTH + (may_need_idna ? DOMAIN_GROWTH : ADDRESS_GROWTH);
    }
};

// Tabs and line ends count for nothing. One may part the bytes of a character, which is broken then and has
// to stay so.
char* copy_without_line_breaks(string_view in, char* out) noexcept {
    while (!in.empty()) {
        const utf8_prefix character = read_utf8(in);
        const bool dropped = (url_parts::sets_of(in[0]) & url_parts::LINE_BREAK) != 0;
        const string_view bytes = character.valid ? in.substr(0, character.size) : "\xEF\xBF\xBD";
        out = dropped ? out : std::copy(bytes.begin(), bytes.end(), out);
        in.remove_prefix(character.size);
    }
    return out;
}

// Bytes after a string's own, which go again unless they are kept.
class appended_room {
public:
    appended_room(std::string& out, std::uint64_t size) : m_out(out), m_before(out.size()) {
        if (size > out.max_size() - m_before) {
            throw std::bad_alloc();
        }
        out.resize(m_before + static_cast<size_t>(size));
    }
    ~appended_room() { m_out.resize(m_before); }
    appended_room(const appended_room&) = delete;
    appended_room& operator=(const appended_room&) = delete;

    char* data() noexcept { return m_out.data() + m_before; }
    // Keeps the first `size` of them, in place of all that the string held before.
    void keep(size_t size) noexcept {
        m_out.erase(0, m_before);
        m_before = size;
    }

private:
    std::string& m_out;
    size_t m_before;
};

// The URL is written after what `out` holds, so that a failure can leave that as it was.
url_result write_url(string_view in, string_view base, const url_record& base_record, std::string& out,
                     url_record& record) {
    in = trimmed_url(in);
    const url_survey survey(in);
    const std::uint64_t room = survey.room + base.size();
    appended_room written(out, room + (survey.has_line_breaks ? survey.room : 0));
    if (survey.has_line_breaks) {
        char* const copy = written.data() + room;
        in = {copy, static_cast<size_t>(copy_without_line_breaks(in, copy) - copy)};
    }
    url_parts::url_writer writer(in, base, base_record, written.data());
    const url_result result = writer.write();
    if (result == url_result::ok) {
        record = writer.record();
        written.keep(writer.size());
    }
    return result;
}

} // namespace

url_result standard_url::parse(string_view input, const standard_url& base) {
    std::string href;
    url_record record;
    const url_result result = write_url(input, base.m_href, base.m_record, href, record);
    if (result == url_result::ok) {
        m_href.swap(href);
        m_record = record;
    }
    return result;
}

url_result standard_url::resolve(string_view reference, std::string& out) const {
    url_record record;
    return write_url(reference, m_href, m_record, out, record);
}

} // namespace pageslice
