// SPDX-License-Identifier: MIT
#include "bulk.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace {

// The structures of the C interface begin with their slices and go on with their numbers.
union Element {
    pageslice_link link;
    pageslice_image image;
    pageslice_cell cell;
    pageslice_item item;
};

static_assert(offsetof(pageslice_link, element) == 6 * sizeof(pageslice_slice), "slice 6 of a link");
static_assert(offsetof(pageslice_image, element) == 5 * sizeof(pageslice_slice), "slice 5 of an image");
static_assert(offsetof(pageslice_image, is_map) == 6 * sizeof(pageslice_slice) + 6 * sizeof(int), "number 6");
static_assert(offsetof(pageslice_cell, is_header) == sizeof(pageslice_slice) + 5 * sizeof(int), "number 5");

void get(const pageslice_page* page, int kind, size_t index, Element& e) {
    switch (kind) {
    case PAGEBULK_LINKS: pageslice_get_link_in_page_order(page, index, &e.link, sizeof e.link); break;
    case PAGEBULK_IMAGES: pageslice_get_image(page, index, &e.image, sizeof e.image); break;
    case PAGEBULK_CELLS: pageslice_get_cell(page, index, &e.cell, sizeof e.cell); break;
    default: pageslice_get_item(page, index, &e.item, sizeof e.item); break;
    }
}

size_t index_of(const pagebulk_rows& rows, size_t row) {
    return rows.first + row * static_cast<size_t>(rows.step); // wraps back for negative steps
}

const void* bytes_of(const Element& e, size_t offset) {
    return reinterpret_cast<const char*>(&e) + offset;
}

pageslice_slice slice_of(const Element& e, int slice) {
    pageslice_slice result;
    std::memcpy(&result, bytes_of(e, static_cast<size_t>(slice) * sizeof result), sizeof result);
    return result;
}

int number_of(const Element& e, int kind, int number) {
    const size_t slices = kind == PAGEBULK_IMAGES ? 6 : 1;
    int result = 0;
    std::memcpy(&result,
                bytes_of(e, slices * sizeof(pageslice_slice) + static_cast<size_t>(number) * sizeof result),
                sizeof result);
    return result;
}

// Memory that grows and is not cleared first.
class Buffer {
public:
    Buffer() = default;
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;
    ~Buffer() { std::free(m_data); }

    bool make_room(size_t more) {
        if (more <= m_capacity - m_size) {
            return true;
        }
        const size_t wanted = std::max({m_size + more, 2 * m_capacity, size_t{256}});
        char* const grown = wanted < more ? nullptr : static_cast<char*>(std::realloc(m_data, wanted));
        if (grown == nullptr) {
            return false;
        }
        m_data = grown;
        m_capacity = wanted;
        return true;
    }
    char* end() { return m_data + m_size; }
    size_t room() const { return m_capacity - m_size; }
    size_t size() const { return m_size; }
    void add(size_t written) { m_size += written; }
    void clear() { m_size = 0; }
    char* release() {
        char* const data = m_data;
        m_data = nullptr;
        return data;
    }

private:
    char* m_data = nullptr;
    size_t m_size = 0;
    size_t m_capacity = 0;
};

bool is_high(char c) {
    return static_cast<unsigned char>(c) >= 0x80;
}

constexpr size_t STEP = 8;

// Whether the next STEP bytes are all ASCII.
bool is_ascii(const char* p) {
    unsigned long long word = 0;
    std::memcpy(&word, p, STEP);
    return (word & 0x8080808080808080U) == 0;
}

bool has_high(pageslice_slice s) {
    size_t i = 0;
    while (i + STEP <= s.size && is_ascii(s.data + i)) {
        i += STEP;
    }
    return std::any_of(s.data + i, s.data + s.size, is_high);
}

// Whether decoding a value would change it.
bool has_reference(pageslice_slice s) {
    return s.size != 0 &&
           (std::memchr(s.data, '&', s.size) != nullptr || std::memchr(s.data, '\r', s.size) != nullptr ||
            std::memchr(s.data, '\0', s.size) != nullptr);
}

char* put_utf8(char* out, unsigned c) {
    if (c < 0x80) {
        *out++ = static_cast<char>(c);
        return out;
    }
    if (c < 0x800) {
        *out++ = static_cast<char>(0xC0 | c >> 6U);
    } else {
        *out++ = static_cast<char>(0xE0 | c >> 12U);
        *out++ = static_cast<char>(0x80 | (c >> 6U & 0x3F));
    }
    *out++ = static_cast<char>(0x80 | (c & 0x3F));
    return out;
}

// Points the slice to itself in UTF-8, in `room`.
bool transcode(pageslice_slice& s, const unsigned short* high, Buffer& room) {
    room.clear();
    if (!room.make_room(3 * s.size)) {
        return false;
    }
    char* out = room.end();
    for (size_t i = 0; i < s.size;) {
        if (i + STEP <= s.size && is_ascii(s.data + i)) {
            std::memcpy(out, s.data + i, STEP);
            out += STEP;
            i += STEP;
            continue;
        }
        const auto byte = static_cast<unsigned char>(s.data[i++]);
        out = put_utf8(out, byte < 0x80 ? byte : high[byte - 0x80]);
    }
    s = {room.end(), static_cast<size_t>(out - room.end())};
    return true;
}

class Reader {
public:
    Reader(const pageslice_page* page, const unsigned short* high, int care)
        : m_page(page), m_high(high), m_care(care) {}

    // One more value: what is made of a slice. NO_MEMORY, or OK.
    int append(pageslice_slice s, int how) {
        if (m_care == PAGEBULK_CARE_ALL || (m_care == PAGEBULK_CARE_HIGH && has_high(s))) {
            needs_care = true;
        }
        const bool is_missing = s.data == nullptr;
        if (m_high != nullptr && has_high(s) && !transcode(s, m_high, m_utf8)) {
            return PAGESLICE_NO_MEMORY;
        }
        const int result = convert(s, how);
        return result == PAGESLICE_NO_MEMORY ? result : end_value(is_missing || result != PAGESLICE_OK);
    }

    int append_name(pageslice_slice s) {
        const size_t start = data.size();
        const int result = append(s, PAGESLICE_DECODE_RAW);
        char* const end = data.end();
        for (char* p = end - (data.size() - start); p != end; ++p) {
            *p = static_cast<char>(*p >= 'A' && *p <= 'Z' ? *p + ('a' - 'A') : *p);
        }
        return result;
    }

    void give(pagebulk_texts& texts) {
        texts.needs_care = needs_care;
        texts.missing_count = m_missing_count;
        texts.count = m_missing.size();
        texts.size = data.size();
        texts.data = data.release();
        texts.ends = reinterpret_cast<size_t*>(m_ends.release());
        texts.missing = reinterpret_cast<unsigned char*>(m_missing.release());
    }

    Buffer data; // each value and a NUL
    bool needs_care = false;

private:
    int end_value(bool is_missing) {
        const size_t end = data.size();
        if (!data.make_room(1) || !m_ends.make_room(sizeof end) || !m_missing.make_room(1)) {
            return PAGESLICE_NO_MEMORY;
        }
        *data.end() = '\0';
        data.add(1);
        std::memcpy(m_ends.end(), &end, sizeof end);
        m_ends.add(sizeof end);
        *m_missing.end() = is_missing ? 1 : 0;
        m_missing.add(1);
        m_missing_count += is_missing ? 1 : 0;
        return PAGESLICE_OK;
    }

    int convert(pageslice_slice s, int how) {
        switch (how) {
        case PAGEBULK_PLAIN:
            return write(pageslice_plain_text_bound(m_page, s.size),
                         [&](char* room, size_t size, size_t* length) {
                             return pageslice_get_plain_text_of(m_page, s.data, s.size, room, size, length);
                         });
        case PAGEBULK_ABSOLUTE:
            return write(s.size + 256, [&](char* room, size_t size, size_t* length) {
                return pageslice_absolute(m_page, s.data, s.size, room, size, length);
            });
        case PAGEBULK_AS_WRITTEN: return copy(s);
        default: return decode(s, how);
        }
    }

    int decode(pageslice_slice s, int kind) {
        if (!has_reference(s)) {
            return copy(s);
        }
        return write(pageslice_decoded_bound(s.data, s.size, kind),
                     [&](char* room, size_t size, size_t* length) {
                         return pageslice_decode(s.data, s.size, kind, room, size, length);
                     });
    }

    int copy(pageslice_slice s) {
        if (!data.make_room(s.size)) {
            return PAGESLICE_NO_MEMORY;
        }
        if (s.size != 0) {
            std::memcpy(data.end(), s.data, s.size);
        }
        data.add(s.size);
        return PAGESLICE_OK;
    }

    template <class Call>
    int write(size_t expected, Call call) {
        size_t length = 0;
        if (!data.make_room(expected + 1)) {
            return PAGESLICE_NO_MEMORY;
        }
        int result = call(data.end(), data.room(), &length);
        if (result == PAGESLICE_TOO_SMALL) {
            if (!data.make_room(length + 1)) {
                return PAGESLICE_NO_MEMORY;
            }
            result = call(data.end(), data.room(), &length);
        }
        if (result == PAGESLICE_OK) {
            data.add(length);
        }
        return result;
    }

    const pageslice_page* m_page;
    const unsigned short* m_high;
    int m_care;
    Buffer m_utf8;
    Buffer m_ends;
    Buffer m_missing;
    size_t m_missing_count = 0;
};

int append_token(Reader& reader, pageslice_tokens* tokens, const pageslice_token& token, size_t attributes) {
    switch (token.kind) {
    case PAGESLICE_TOKEN_START_TAG:
    case PAGESLICE_TOKEN_END_TAG: {
        int result = reader.append_name(token.name);
        pageslice_attribute a = {};
        for (size_t i = 0; i < attributes && result == PAGESLICE_OK; ++i) {
            pageslice_get_attribute(tokens, i, &a, sizeof a);
            result = reader.append_name(a.name);
            result = result == PAGESLICE_OK ? reader.append(a.value, PAGESLICE_DECODE_ATTRIBUTE) : result;
        }
        return result;
    }
    case PAGESLICE_TOKEN_DOCTYPE: {
        int result = reader.append_name(token.name);
        for (const pageslice_slice& id : {token.public_id, token.system_id}) {
            result = result == PAGESLICE_OK ? reader.append(id, PAGESLICE_DECODE_RAW) : result;
        }
        return result;
    }
    default: return reader.append(token.text, token.decoding);
    }
}

} // namespace

int pagebulk_read_texts(const pageslice_page* page, const pagebulk_rows* rows, const pagebulk_column* columns,
                        size_t column_count, const unsigned short* high, int care, size_t most_bytes,
                        pagebulk_texts* texts) {
    *texts = {};
    Reader reader(page, high, care);
    Element element;
    size_t row = 0;
    for (; row < rows->count && (row == 0 || reader.data.size() < most_bytes) && !reader.needs_care; ++row) {
        get(page, rows->kind, index_of(*rows, row), element);
        for (size_t i = 0; i < column_count; ++i) {
            if (reader.append(slice_of(element, columns[i].slice), columns[i].how) != PAGESLICE_OK) {
                return PAGESLICE_NO_MEMORY;
            }
        }
    }
    reader.give(*texts);
    texts->rows = row;
    return PAGESLICE_OK;
}

int pagebulk_read_tokens(pageslice_tokens* tokens, const char* html, const unsigned short* high, size_t most,
                         size_t most_bytes, pagebulk_texts* texts, ptrdiff_t* numbers, size_t* read) {
    *texts = {};
    *read = 0;
    Reader reader(nullptr, high, PAGEBULK_NO_CARE);
    pageslice_token token = {};
    while (*read < most && reader.data.size() < most_bytes &&
           pageslice_next_token(tokens, &token, sizeof token) == PAGESLICE_OK) {
        size_t attributes = 0;
        if (pageslice_read_attributes(tokens, &attributes) != PAGESLICE_OK ||
            append_token(reader, tokens, token, attributes) != PAGESLICE_OK) {
            return PAGESLICE_NO_MEMORY;
        }
        const ptrdiff_t start = token.bytes.data - html;
        const int more = (token.is_self_closing != 0 ? PAGEBULK_TOKEN_SELF_CLOSING : 0) |
                         (token.is_foreign != 0 ? PAGEBULK_TOKEN_FOREIGN : 0) |
                         (token.force_quirks != 0 ? PAGEBULK_TOKEN_QUIRKS : 0);
        for (const ptrdiff_t number :
             {start, start + static_cast<ptrdiff_t>(token.bytes.size), static_cast<ptrdiff_t>(token.kind),
              static_cast<ptrdiff_t>(more), static_cast<ptrdiff_t>(attributes)}) {
            *numbers++ = number;
        }
        ++*read;
    }
    reader.give(*texts);
    return PAGESLICE_OK;
}

void pagebulk_release(pagebulk_texts* texts) {
    std::free(texts->data);
    std::free(texts->ends);
    std::free(texts->missing);
    *texts = {};
}

void pagebulk_read_spans(const pageslice_page* page, const char* html, const pagebulk_rows* rows, int slice,
                         ptrdiff_t* spans) {
    Element element;
    for (size_t row = 0; row < rows->count; ++row) {
        get(page, rows->kind, index_of(*rows, row), element);
        const pageslice_slice s = slice_of(element, slice);
        const ptrdiff_t start = s.data == nullptr ? -1 : s.data - html;
        spans[2 * row] = start;
        spans[2 * row + 1] = s.data == nullptr ? -1 : start + static_cast<ptrdiff_t>(s.size);
    }
}

void pagebulk_read_numbers(const pageslice_page* page, const pagebulk_rows* rows, int number, int* numbers) {
    Element element;
    for (size_t row = 0; row < rows->count; ++row) {
        get(page, rows->kind, index_of(*rows, row), element);
        numbers[row] = number_of(element, rows->kind, number);
    }
}

int pagebulk_plain_text(const pageslice_page* page, const char* slice, size_t slice_size,
                        const unsigned short* high, char** text, size_t* text_size) {
    *text = nullptr;
    Buffer utf8;
    pageslice_slice s = {slice, slice_size};
    if (high != nullptr && has_high(s) && !transcode(s, high, utf8)) {
        return PAGESLICE_NO_MEMORY;
    }
    const size_t bound = pageslice_plain_text_bound(page, s.size);
    if (bound == 0 && s.size != 0) {
        return PAGESLICE_TOO_LARGE;
    }
    *text = static_cast<char*>(std::malloc(bound + 1));
    return *text == nullptr ? PAGESLICE_NO_MEMORY
                            : pageslice_get_plain_text_of(page, s.data, s.size, *text, bound + 1, text_size);
}

void pagebulk_free(char* text) {
    std::free(text);
}

void pagebulk_open(pagebulk_job* jobs, size_t count) {
    for (pagebulk_job* job = jobs; job != jobs + count; ++job) {
        job->result = pageslice_open_with(job->html, job->html_size, job->options, sizeof(pageslice_options),
                                          &job->page);
    }
}
