#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "printers.h"

namespace pageslice {
namespace {

using Json = nlohmann::ordered_json;

// Writes the object piece by piece: the tree of a page with a million slices would take many times the
// page's memory.
class JsonReport {
public:
    JsonReport(const Page& shown, const Options& wanted) : page(shown) {
        if (!page.file.empty()) {
            member("file", page.file);
        }
        if (!page.url.empty()) {
            member("url", page.url);
        }
        member("bytes", page.bytes.size());
        if (page.textLimit != Slice::npos) {
            member("shortened", true);
        }
        if (wanted.shows(SECTION_TITLE)) {
            member("title", page.title.data() == nullptr ? Json() : shortened(page.title));
            member("title_at", placeOf(page.title));
        }
        if (wanted.shows(SECTION_LINKS)) {
            array("links", page.links);
        }
        if (wanted.shows(SECTION_IMAGES)) {
            array("images", page.images);
        }
        if (wanted.shows(SECTION_ITEMS)) {
            array("items", page.items);
        }
        if (wanted.shows(SECTION_CELLS)) {
            array("cells", page.cells);
        }
        if (wanted.shows(SECTION_TEXT)) {
            member("text", page.text);
        }
        out += "}\n";
    }

    std::string out = "{";

private:
    // First and last byte, both inside the slice.
    Json placeOf(Slice slice) const {
        if (slice.data() == nullptr) {
            return {};
        }
        const auto start = static_cast<std::ptrdiff_t>(page.offsetOf(slice));
        return {start, start + static_cast<std::ptrdiff_t>(slice.size()) - 1};
    }

    Json shortened(Slice slice) const { return std::string(slice.substr(0, page.textLimit)); }

    Json objectOf(Slice slice) const { return {{"text", shortened(slice)}, {"at", placeOf(slice)}}; }

    Json objectOf(const Link& link) const {
        Json object = {{"href", link.href}, {"href_at", placeOf(link.href)}};
        object["text"] = shortened(link.text);
        object["text_at"] = placeOf(link.text);
        addUrl(object, link.url);
        return object;
    }

    Json objectOf(const Image& image) const {
        Json object = {{"src", image.src}, {"src_at", placeOf(image.src)}};
        if (image.alt.data() != nullptr) {
            object["alt"] = image.alt;
            object["alt_at"] = placeOf(image.alt);
        }
        if (image.width >= 0) {
            object["width"] = image.width;
        }
        if (image.height >= 0) {
            object["height"] = image.height;
        }
        addUrl(object, image.url);
        return object;
    }

    void addUrl(Json& object, const std::string& url) const {
        if (!page.url.empty()) {
            object["url"] = url;
        }
    }

    void member(const char* name, const Json& value) {
        out += out.size() == 1 ? "\"" : ",\"";
        out.append(name).append("\":");
        append(value);
    }

    template <class Element>
    void array(const char* name, const std::vector<Element>& elements) {
        member(name, Json::array());
        out.pop_back();
        for (const Element& element : elements) {
            out += out.back() == '[' ? "" : ",";
            append(objectOf(element));
        }
        out += ']';
    }

    // Bytes that are not UTF-8 become U+FFFD.
    void append(const Json& value) { out += value.dump(-1, ' ', false, Json::error_handler_t::replace); }

    const Page& page;
};

} // namespace

std::string printAsJson(const Page& page, const Options& options) {
    return std::move(JsonReport(page, options).out);
}

} // namespace pageslice
