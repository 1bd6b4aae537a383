// SPDX-License-Identifier: MIT
#include "page.h"

#include <algorithm>
#include <new>
#include <optional>

#include "failure.h"
#include "runs.h"
#include "transcode.h"

namespace program {
namespace {

// What the index may take: the page itself, its report and this stay within eight times the page.
pageslice::limits limitsFor(std::size_t pageSize) {
    constexpr std::size_t FREE_BYTES = std::size_t{12} << 20;
    pageslice::limits limits;
    limits.index_bytes = FREE_BYTES + 5 * std::min(pageSize, SIZE_MAX / 8);
    return limits;
}

void check(int code) {
    switch (code) {
    case PAGESLICE_OK: return;
    case PAGESLICE_LIMIT: throw Failure{"Holds more than the memory for a page of its size can list"};
    case PAGESLICE_TOO_LARGE: throw Failure{"Its plain text is too large"};
    case PAGESLICE_BAD_ARGUMENT: throw Failure{"Cannot be read by these rules"};
    default: throw std::bad_alloc();
    }
}

// Pages in a row are mostly in one encoding. Each thread has one of its own.
const Transcoder& transcoderFor(std::string_view encoding) {
    struct Known {
        std::string_view encoding;
        Transcoder transcoder;
    };
    thread_local std::optional<Known> last;
    if (!last || last->encoding != encoding) {
        last.reset();
        last.emplace(Known{encoding, Transcoder(encoding)});
    }
    return last->transcoder;
}

} // namespace

Page::Page(const Source& source, std::string_view pageBytes) : from(source), html(pageBytes) {
    open(from.encoding);
    pageEncoding = found.encoding();
    if (pageEncoding != "UTF-8") {
        pTranscoder = &transcoderFor(pageEncoding);
        if (!pTranscoder->hasAsciiMarkup()) {
            converted = pTranscoder->utf8Page(html);
            pTranscoder = nullptr;
            html = converted;
            open("UTF-8");
        }
    }
    constexpr std::size_t SHORT_TEXT = 80;
    constexpr std::size_t FREE_BYTES = std::size_t{1} << 20;
    if (sumOfTexts() / 8 > html.size() + FREE_BYTES) {
        limit = SHORT_TEXT;
    }
}

void Page::open(std::string_view encodingName) {
    pageslice::options options;
    options.rules = from.rules;
    options.url = from.url.empty() ? std::string_view() : from.url;
    options.encoding = encodingName;
    options.limits = limitsFor(html.size());
    check(pageslice::page::open(html, options, found));
}

std::size_t Page::countImages() const {
    const auto all = images();
    return isStandard() ? all.size() : found.image_urls().size();
}

Slice Page::utf8(Slice slice, std::string& scratch) const {
    if (pTranscoder == nullptr || asciiRun(slice) == slice.size()) {
        return slice;
    }
    scratch = pTranscoder->utf8(slice);
    return scratch;
}

Slice Page::plain(Slice slice, std::string& scratch) const {
    std::string other;
    const Slice text = utf8(slice, other);
    check(found.plain_text_into(scratch, text));
    return scratch;
}

bool Page::absolute(Slice written, std::string& result) const {
    std::string scratch;
    const int code = hasUrls() ? found.absolute_into(result, utf8(written, scratch)) : PAGESLICE_NOT_A_URL;
    if (code == PAGESLICE_NO_MEMORY) {
        throw std::bad_alloc();
    }
    return code == PAGESLICE_OK;
}

const Image& Page::imageIn(Slice slice) const {
    if (sources.empty()) {
        for (const Slice source : found.image_urls()) {
            sources.push_back(source.data());
        }
    }
    const auto source = std::lower_bound(sources.begin(), sources.end(), slice.data());
    if (source == sources.end() || *source >= slice.data() + slice.size()) {
        lastImage = {};
    } else if (lastImage.src.data() != *source) {
        const auto startsBefore = [&](const Image& image) { return image.element.data() < *source; };
        lastImage = *(std::partition_point(images().begin(), images().end(), startsBefore) - 1);
    }
    return lastImage;
}

std::size_t Page::sumOfTexts() const {
    std::size_t sum = title().size();
    const auto add = [&sum](const auto& elements) {
        for (const auto& element : elements) {
            sum += element.text.size();
        }
    };
    add(links());
    add(items());
    add(cells());
    return sum;
}

} // namespace program
