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
std::string altOf(const Image& image, std::size_t limit) {
    const std::string whole = oneLine(image.alt, Markup::keep);
    std::string_view alt = whole;
    if (alt.size() > 1 && alt.front() == '[' && alt.back() == ']') {
        alt = alt.substr(1, alt.size() - 2);
    }
    return oneLine(alt, Markup::keep, limit);
}

struct Row {
    std::string text;
    std::string beside;
};

// Plain text in lines of readable length.
std::vector<Row> wrapped(const std::string& oneLongLine) {
    std::vector<Row> rows;
    std::string_view rest = oneLongLine;
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

std::size_t columnFor(const std::vector<Row>& rows) {
    std::size_t column = 0;
    for (const Row& row : rows) {
        const std::size_t width = countCharacters(row.text);
        column = width <= COLUMN_LIMIT ? std::max(column, width) : column;
    }
    return column;
}

class Report {
public:
    Report(const Page& shown, const Options& wanted) : page(shown), options(wanted) {}

    std::string whole() {
        out = coloured("1", oneLine(page.file, Markup::keep)) + " (" + sizeInWords(page.bytes.size()) + ": " +
              counted(page.links.size(), "link") + ", " + counted(page.images.size(), "image") + ", " +
              counted(page.items.size(), "list item") + ", " + counted(page.cells.size(), "cell") + ")\n";
        section(SECTION_TITLE, "Title");
        section(SECTION_LINKS, "Links");
        section(SECTION_IMAGES, "Images");
        section(SECTION_ITEMS, "List items");
        section(SECTION_CELLS, "Cells");
        section(SECTION_TEXT, "Text");
        return out;
    }

    // The only section wanted, one line for each row.
    std::string bare() const {
        if (options.sections == SECTION_TEXT) {
            return (options.toTerminal ? legible(page.text) : page.text) + '\n';
        }
        const bool hasUrls = options.shows(SECTION_LINKS) || options.shows(SECTION_IMAGES);
        std::string lines;
        for (const Row& row : rowsOf(static_cast<Section>(options.sections), page.textLimit)) {
            const bool urlBeside = options.shows(SECTION_LINKS);
            lines += urlBeside ? row.beside + '\t' + row.text : row.text;
            lines += (hasUrls && !urlBeside ? '\t' + row.beside : "") + '\n';
        }
        return lines;
    }

private:
    std::vector<Row> rowsOf(Section section, std::size_t limit) const {
        std::vector<Row> rows;
        if (section == SECTION_TITLE) {
            rows.push_back({oneLine(page.title, Markup::strip, limit), {}});
        } else if (section == SECTION_LINKS) {
            for (const Link& link : page.links) {
                rows.push_back({labelOf(link.text, page, limit), urlLine(link.href, link.url)});
            }
        } else if (section == SECTION_IMAGES) {
            for (const Image& image : page.images) {
                rows.push_back({urlLine(image.src, image.url), altOf(image, limit)});
            }
        } else if (section == SECTION_TEXT) {
            rows = wrapped(oneLine(page.text, Markup::keep));
        } else {
            for (const Slice slice : section == SECTION_ITEMS ? page.items : page.cells) {
                rows.push_back({labelOf(slice, page, limit), {}});
            }
        }
        return rows;
    }

    void section(Section section, const char* title) {
        const std::vector<Row> rows =
            options.shows(section) ? rowsOf(section, ROW_LIMIT) : std::vector<Row>();
        if (rows.empty()) {
            return;
        }
        out += '\n' + coloured("1;34", title) + '\n';
        const bool isNumbered = section != SECTION_TITLE && section != SECTION_TEXT;
        const std::size_t digits = std::max<std::size_t>(3, std::to_string(rows.size()).size());
        const std::size_t column = columnFor(rows);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::string number = isNumbered ? std::to_string(i + 1) : std::string();
            out +=
                isNumbered ? coloured("2", std::string(digits - number.size(), ' ') + number) + "  " : "  ";
            row(rows[i], column);
        }
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

    std::string coloured(const char* code, const std::string& s) const {
        return options.colours ? std::string("\x1b[") + code + 'm' + s + "\x1b[0m" : s;
    }

    const Page& page;
    const Options& options;
    std::string out;
};

} // namespace

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
    return '[' + (image->alt.empty() ? oneLine(image->src, Markup::keep, limit) : altOf(*image, limit)) + ']';
}

std::string printForPeople(const Page& page, const Options& options) {
    Report report(page, options);
    return options.isSingle() ? report.bare() : report.whole();
}

} // namespace pageslice
