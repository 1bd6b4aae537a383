// SPDX-License-Identifier: MIT
#include "standard/plain_text.h"

#include <cstdint>

#include "standard/markup_reader.h"
#include "standard/text_walk.h"
#include "standard/text_writer.h"

namespace pageslice::standard {

std::size_t plain_text_bound(std::size_t size) noexcept {
    const std::size_t growth = size / 5;
    return size > SIZE_MAX - growth ? SIZE_MAX : size + growth;
}

char* write_plain_text(std::string_view html, char* out) noexcept {
    text_writer writer(html, out, plain_text_bound(html.size()));
    text_walk<text_writer> walk(html.data(), writer);
    markup_reader reader(html);
    for (markup piece; reader.next(piece);) {
        walk.take(piece);
    }
    walk.finish(reader.text_end(), reader.mode());
    return writer.end();
}

char* write_plain_text(std::string_view page, const text_outline& outline, char* out) noexcept {
    text_writer writer(page, out, plain_text_bound(page.size()));
    outline.replay(writer);
    return writer.end();
}

char* write_title_text(std::string_view title, char* out) noexcept {
    text_writer writer(title, out, plain_text_bound(title.size()));
    writer.write(title, {true, false});
    return writer.end();
}

} // namespace pageslice::standard
