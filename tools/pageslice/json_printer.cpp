// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "json_writer.h"
#include "printers.h"

namespace program {
namespace {

// Room for what stands around the texts of one element, and for the object's end.
constexpr std::size_t RESERVE = 512;

// Writes the object as it goes: a tree of a page with a million slices would take many times the page's
// memory.
class JsonReport {
public:
    JsonReport(const Page& shown, const Options& wanted, Report& report)
        : page(shown), options(wanted), json(report, wanted.toTerminal),
          most(mostOutput(shown.bytes().size())) {}

    std::optional<Failure> print(const Asked& asked) {
        json.open('{');
        std::optional<Failure> failure;
        try {
            head(asked);
            if (options.count) {
                counts();
            } else {
                sections();
            }
        } catch (const std::bad_alloc&) {
            failure = Failure{NO_MEMORY};
        } catch (const Failure& other) {
            failure = other;
        }
        if (failure) {
            json.closeTo(1);
            json.name("error");
            json.string(failure->what());
        }
        json.close();
        json.literal("\n");
        return failure;
    }

private:
    void head(const Asked& asked) {
        if (!asked.id.empty()) {
            json.name("id");
            json.copied(asked.id);
        }
        if (!page.file().empty()) {
            text("file", page.file());
        }
        if (!page.url().empty()) {
            text("url", page.url());
        }
        number("bytes", page.bytes().size());
        reading(asked);
        flag("shortened", page.textLimit() != Slice::npos);
    }

    // How the page was read, where that is not what goes without saying.
    void reading(const Asked& asked) {
        if (page.isStandard()) {
            text("rules", "standard");
        } else if (page.readTo() < page.bytes().size()) {
            number("read_to", page.readTo());
        }
        if (page.encoding() != "UTF-8") {
            text("encoding", page.encoding());
        }
        flag("converted", page.isConverted());
        flag("repaired", asked.isRepaired);
    }

    void counts() {
        const auto count = [&](Section section, const char* name, std::size_t value) {
            if (options.shows(section)) {
                number(name, value);
            }
        };
        count(SECTION_TITLE, "title", page.title().data() == nullptr ? 0 : 1);
        count(SECTION_LINKS, "links", page.links().size());
        count(SECTION_IMAGES, "images", page.countImages());
        count(SECTION_ITEMS, "items", page.items().size());
        count(SECTION_CELLS, "cells", page.cells().size());
    }

    void sections() {
        if (options.shows(SECTION_TITLE)) {
            title();
        }
        if (options.shows(SECTION_LINKS)) {
            array("links", page.links());
        }
        if (options.shows(SECTION_IMAGES)) {
            array("images", page.images());
        }
        if (options.shows(SECTION_ITEMS)) {
            array("items", page.items());
        }
        if (options.shows(SECTION_CELLS)) {
            array("cells", page.cells());
        }
        if (options.shows(SECTION_TEXT)) {
            const Slice plain = page.plain(page.bytes(), scratch);
            text("text", plain);
        }
        missing();
    }

    void title() {
        const Slice title = page.title();
        if (title.data() == nullptr) {
            null("title");
            null("title_at");
            return;
        }
        slice("title", page.shortened(title));
        place("title_at", title);
        plain("title_plain", title);
    }

    void element(const Link& link) {
        slice("href", link.href);
        place("href_at", link.href);
        markup("text", "text_at", link.text);
        url(link.href);
    }

    void element(const Image& image) {
        source(image);
        if (image.srcset.data() != nullptr) {
            attribute("srcset", "srcset_at", image.srcset);
        }
        if (image.alt.data() != nullptr) {
            attribute("alt", "alt_at", image.alt);
        }
        if (image.width >= 0) {
            number("width", static_cast<std::size_t>(image.width));
        }
        if (image.height >= 0) {
            number("height", static_cast<std::size_t>(image.height));
        }
        if (image.src.data() != nullptr) {
            url(image.src);
        }
    }

    void source(const Image& image) {
        if (image.src.data() != nullptr) {
            attribute("src", "src_at", image.src);
        } else {
            null("src");
        }
    }

    void element(const Item& item) { markup("text", "at", item.text); }

    void element(const Cell& cell) {
        markup("text", "at", cell.text);
        const auto tell = [&](const char* name, int value) {
            if (value >= 0) {
                number(name, static_cast<std::size_t>(value));
            }
        };
        tell("table", cell.table);
        tell("row", cell.row);
        tell("column", cell.column);
        tell("colspan", cell.colspan);
        tell("rowspan", cell.rowspan);
        flag("header", cell.is_header);
    }

    // Each address once more as it is to be fetched.
    void url(Slice written) {
        if (!page.hasUrls()) {
            return;
        }
        if (page.absolute(written, scratch)) {
            text("url", scratch);
        } else {
            null("url");
        }
    }

    // A text as it stands in the page, with its tags, and as people read it.
    void markup(const char* name, const char* placeName, Slice captured) {
        slice(name, page.shortened(captured));
        place(placeName, captured);
        plain("plain", captured);
    }

    void plain(const char* name, Slice captured) {
        text(name, page.plain(page.shortened(captured), scratch));
    }

    void attribute(const char* name, const char* placeName, Slice value) {
        slice(name, value);
        place(placeName, value);
    }

    void slice(const char* name, Slice bytes) { text(name, page.utf8(bytes, scratch)); }

    // First and last byte, both inside the slice.
    void place(const char* name, Slice slice) {
        const std::size_t start = page.offsetOf(slice);
        json.name(name);
        json.literal("[");
        json.number(start);
        json.literal(",");
        if (start + slice.size() == 0) {
            json.literal("-1");
        } else {
            json.number(start + slice.size() - 1);
        }
        json.literal("]");
    }

    void text(const char* name, Slice utf8) {
        json.name(name);
        wasCut = !json.string(utf8, left()) || wasCut;
    }

    void number(const char* name, std::size_t value) {
        json.name(name);
        json.number(value);
    }

    void flag(const char* name, bool value) {
        if (value) {
            json.name(name);
            json.literal("true");
        }
    }

    void null(const char* name) {
        json.name(name);
        json.literal("null");
    }

    template <class Elements>
    void array(const char* name, const Elements& elements) {
        json.name(name);
        json.open('[');
        std::size_t at = 0;
        for (; at < elements.size() && left() >= RESERVE; ++at) {
            const auto one = elements[at];
            if (isShown(one)) {
                json.element();
                json.open('{');
                element(one);
                json.close();
            }
        }
        json.close();
        for (; at < elements.size(); ++at) {
            leftOut += isShown(elements[at]) ? 1U : 0U;
        }
    }

    bool isShown(const Image& image) const { return page.shows(image); }
    template <class Element>
    bool isShown(const Element& /*element*/) const {
        return true;
    }

    std::size_t left() const { return most - std::min(most, json.size() + RESERVE); }

    // What of the page is not in the report.
    void missing() {
        flag("shortened", wasCut && page.textLimit() == Slice::npos);
        if (leftOut > 0) {
            number("left_out", leftOut);
        }
    }

    const Page& page;
    const Options& options;
    JsonWriter json;
    std::size_t most;
    std::size_t leftOut = 0;
    bool wasCut = false;
    std::string scratch;
};

} // namespace

std::optional<Failure> printAsJson(const Page& page, const Asked& asked, const Options& options,
                                   Report& report) {
    return JsonReport(page, options, report).print(asked);
}

void printErrorAsJson(const Asked& asked, std::string_view why, const Options& options, Report& report) {
    JsonWriter json(report, options.toTerminal);
    json.open('{');
    json.name("line");
    json.number(asked.line);
    if (!asked.id.empty()) {
        json.name("id");
        json.copied(asked.id);
    }
    json.name("error");
    json.string(why);
    json.close();
    json.literal("\n");
}

} // namespace program
