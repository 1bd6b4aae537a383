#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "display.h"
#include "printers.h"

namespace pageslice {
namespace {

constexpr std::size_t ROW_LIMIT = 160;   // characters of a text in a row
constexpr std::size_t COLUMN_LIMIT = 40; // what stands beside a longer text follows it unaligned
constexpr std::size_t LINE_WIDTH = 96;

std::string sizeInWords(std::size_t bytes) {
    if (bytes < 1024) {
        return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
    }
    const bool small = bytes < std::size_t{1024} * 1024;
    const std::size_t tenths = small ? bytes * 10 / 1024 : bytes / 1024 * 10 / 1024;
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + (small ? " KiB" : " MiB");
}

std::string counted(std::size_t n, const char* noun) {
    return std::to_string(n) + ' ' + noun + (n == 1 ? "" : "s");
}

std::string urlLine(Slice written, const std::string& absolute) {
    return oneLine(absolute.empty() ? written : absolute, Markup::keep);
}

// Alternative texts often carry brackets of their own.
std::string altOf(const Image& image) {
    std::string alt = oneLine(image.alt, Markup::keep);
    const bool bracketed = alt.size() > 1 && alt.front() == '[' && alt.back() == ']';
    return bracketed ? alt.substr(1, alt.size() - 2) : alt;
}

// What a captured text shows. Where that is nothing but an image, its alternative text or name stands in.
std::string labelOf(Slice slice, const Page& page, std::size_t limit) {
    std::string label = oneLine(slice, Markup::strip, limit);
    if (!label.empty()) {
        return label;
    }
    const auto image = std::lower_bound(page.images.begin(), page.images.end(), slice.data(),
                                        [](const Image& a, const char* p) { return a.src.data() < p; });
    if (image == page.images.end() || image->src.data() >= slice.data() + slice.size()) {
        return label;
    }
    return '[' + (image->alt.empty() ? oneLine(image->src, Markup::keep, limit) : altOf(*image)) + ']';
}

struct Row {
    std::string text;
    std::string beside;
};

class Report {
public:
    Report(const Page& shown, const Options& wanted, bool onTerminal)
        : page(shown)
        , options(wanted)
        , terminal(onTerminal) {}

    std::string whole() {
        heading();
        if (options.shows(SECTION_TITLE)) {
            const std::string title = oneLine(page.title, Markup::strip);
            section("Title", {{title.empty() ? coloured("2", "(none)") : title, {}}}, false);
        }
        if (options.shows(SECTION_LINKS)) {
            section("Links", links(ROW_LIMIT), true);
        }
        if (options.shows(SECTION_IMAGES)) {
            section("Images", images(), true);
        }
        if (options.shows(SECTION_ITEMS)) {
            section("List items", texts(page.items, ROW_LIMIT), true);
        }
        if (options.shows(SECTION_CELLS)) {
            section("Cells", texts(page.cells, ROW_LIMIT), true);
        }
        if (options.shows(SECTION_TEXT)) {
            section("Text", wrapped(), false);
        }
        return std::move(out);
    }

    // The only section wanted, one line for each row.
    std::string bare() {
        switch (options.sections) {
        case SECTION_TITLE:
            return oneLine(page.title, Markup::strip, page.textLimit) + '\n';
        case SECTION_LINKS:
            return lines(urlsFirst(links(page.textLimit)), true);
        case SECTION_IMAGES:
            return lines(images(), true);
        case SECTION_ITEMS:
            return lines(texts(page.items, page.textLimit), false);
        case SECTION_CELLS:
            return lines(texts(page.cells, page.textLimit), false);
        default:
            return (terminal ? legible(page.text) : page.text) + '\n';
        }
    }

private:
    std::string coloured(const char* code, const std::string& s) const {
        return terminal ? std::string("\x1b[") + code + 'm' + s + "\x1b[0m" : s;
    }

    void heading() {
        out += coloured("1", oneLine(page.name, Markup::keep)) + " (" + sizeInWords(page.bytes.size()) +
               ": " + counted(page.links.size(), "link") + ", " + counted(page.images.size(), "image") +
               ", " + counted(page.items.size(), "list item") + ", " + counted(page.cells.size(), "cell") +
               ")\n";
    }

    std::vector<Row> links(std::size_t limit) const {
        std::vector<Row> rows;
        rows.reserve(page.links.size());
        for (const Link& link : page.links) {
            rows.push_back({labelOf(link.text, page, limit), urlLine(link.href, link.url)});
        }
        return rows;
    }

    static std::vector<Row> urlsFirst(std::vector<Row> rows) {
        for (Row& row : rows) {
            std::swap(row.text, row.beside);
        }
        return rows;
    }

    std::vector<Row> images() const {
        std::vector<Row> rows;
        rows.reserve(page.images.size());
        for (const Image& image : page.images) {
            rows.push_back({urlLine(image.src, image.url), altOf(image)});
        }
        return rows;
    }

    std::vector<Row> texts(const std::vector<Slice>& slices, std::size_t limit) const {
        std::vector<Row> rows;
        rows.reserve(slices.size());
        for (const Slice slice : slices) {
            rows.push_back({labelOf(slice, page, limit), {}});
        }
        return rows;
    }

    std::vector<Row> wrapped() const {
        std::vector<Row> rows;
        const std::string all = oneLine(page.text, Markup::keep);
        std::string_view rest = all;
        while (!rest.empty()) {
            std::size_t end = rest.size();
            if (end > LINE_WIDTH) {
                const std::size_t space = rest.rfind(' ', LINE_WIDTH);
                end = space != std::string_view::npos ? space : std::min(rest.find(' '), rest.size());
            }
            rows.push_back({std::string(rest.substr(0, end)), {}});
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        return rows;
    }

    void section(const char* title, const std::vector<Row>& rows, bool numbered) {
        if (rows.empty()) {
            return;
        }
        out += '\n' + coloured("1;34", title) + '\n';
        const std::size_t digits = std::max<std::size_t>(3, std::to_string(rows.size()).size());
        const std::size_t column = columnFor(rows);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::string number = numbered ? std::to_string(i + 1) : std::string();
            out += numbered ? coloured("2", std::string(digits - number.size(), ' ') + number) + "  " : "  ";
            row(rows[i], column);
        }
    }

    static std::size_t columnFor(const std::vector<Row>& rows) {
        std::size_t column = 0;
        for (const Row& row : rows) {
            const std::size_t width = countCharacters(row.text);
            column = width <= COLUMN_LIMIT ? std::max(column, width) : column;
        }
        return column;
    }

    void row(const Row& row, std::size_t column) {
        out += row.text;
        if (!row.beside.empty()) {
            const std::size_t width = countCharacters(row.text);
            out += std::string(column - std::min(width, column) + (column == 0 ? 0 : 2), ' ');
            out += coloured("36", row.beside);
        }
        out += '\n';
    }

    static std::string lines(const std::vector<Row>& rows, bool withBeside) {
        std::string all;
        for (const Row& row : rows) {
            all += row.text;
            if (withBeside) {
                all += '\t' + row.beside;
            }
            all += '\n';
        }
        return all;
    }

    const Page& page;
    const Options& options;
    bool terminal;
    std::string out;
};

bool isSingle(unsigned sections) {
    return (sections & (sections - 1)) == 0;
}

} // namespace

std::string printForPeople(const Page& page, const Options& options, bool terminal) {
    Report report(page, options, terminal);
    return isSingle(options.sections) ? report.bare() : report.whole();
}

} // namespace pageslice
