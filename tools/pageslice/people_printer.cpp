// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "display.h"
#include "printers.h"

namespace program {
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

std::string_view withoutBrackets(std::string_view alt) {
    const bool has = alt.size() > 1 && alt.front() == '[' && alt.back() == ']';
    return has ? alt.substr(1, alt.size() - 2) : alt;
}

// Alternative texts often carry brackets of their own.
std::string altOf(const Page& page, const Image& image, std::size_t limit) {
    std::string scratch;
    const std::size_t most = limit < Slice::npos / 16 ? 16 * limit : Slice::npos; // of an alt without end
    const std::string whole = oneLine(page.utf8(image.alt.substr(0, most), scratch), Markup::keep);
    return oneLine(withoutBrackets(whole), Markup::keep, limit);
}

struct Row {
    std::string text;
    std::string beside;
};

class Printer {
public:
    Printer(const Page& shown, const Options& wanted, Report& report)
        : page(shown), options(wanted), out(report), most(mostOutput(shown.bytes().size())) {}

    std::size_t whole() {
        head();
        section(SECTION_TITLE, "Title");
        section(SECTION_LINKS, "Links");
        section(SECTION_IMAGES, "Images");
        section(SECTION_ITEMS, "List items");
        section(SECTION_CELLS, "Cells");
        if (options.shows(SECTION_TEXT)) {
            text();
        }
        return 0;
    }

    // The only section wanted, one line for each row.
    std::size_t bare() {
        std::size_t printed = 0;
        const bool urlFirst = options.shows(SECTION_LINKS);
        const bool hasUrls = urlFirst || options.shows(SECTION_IMAGES);
        eachRow(static_cast<Section>(options.sections), page.textLimit(), [&](const Row& row) {
            if (!hasRoomFor(row)) {
                return false;
            }
            ++printed;
            fileName();
            out.put(fit(urlFirst ? row.beside : row.text));
            out.put(hasUrls ? "\t" : "");
            out.put(fit(urlFirst ? row.text : row.beside));
            out.put(options.lineEnd);
            return true;
        });
        return countOf(static_cast<Section>(options.sections)) - printed;
    }

    std::size_t bareText() {
        std::string scratch;
        Slice plain = page.plain(page.bytes(), scratch);
        std::string decoded;
        if (options.decode && !page.isStandard()) {
            plain = decoded = pageslice::decode(plain);
        }
        fileName();
        out.put(options.toTerminal ? withMarks(legible(plain)) : plain);
        out.put(options.lineEnd);
        return 0;
    }

    void counts() {
        bool first = true;
        fileName();
        for (const Section section :
             {SECTION_TITLE, SECTION_LINKS, SECTION_IMAGES, SECTION_ITEMS, SECTION_CELLS}) {
            if (options.shows(section)) {
                out.put(first ? "" : "\t");
                out.putNumber(section == SECTION_TITLE && page.title().data() == nullptr ? 0
                                                                                         : countOf(section));
                first = false;
            }
        }
        out.put(options.lineEnd);
    }

private:
    static constexpr std::size_t RESERVE = 512; // for what says how much is left out

    void head() {
        coloured("1", fit(shownName(page.file())));
        out.put(" (" + sizeInWords(page.bytes().size()) + ": " + counted(page.links().size(), "link") + ", " +
                counted(page.countImages(), "image") + ", " + counted(page.items().size(), "list item") +
                ", " + counted(page.cells().size(), "cell") + ")\n");
        const std::size_t readTo = page.isStandard() ? page.bytes().size() : page.readTo();
        if (readTo < page.bytes().size()) {
            out.put("Read to byte " + std::to_string(readTo) +
                    ", where the classic rules end; --rules standard reads on\n");
        }
    }

    void fileName() {
        if (options.withFilename) {
            out.put(options.lineEnd == '\0' ? std::string(page.file()) : fit(shownName(page.file())));
            out.put('\t');
        }
    }

    // Rows of a section; a title that is missing shows as an empty one.
    std::size_t countOf(Section section) const {
        switch (section) {
        case SECTION_TITLE: return 1;
        case SECTION_LINKS: return page.links().size();
        case SECTION_IMAGES: return page.countImages();
        case SECTION_ITEMS: return page.items().size();
        default: return page.cells().size();
        }
    }

    // Calls take(row) for the rows of a section until it gives false.
    template <class Take>
    void eachRow(Section section, std::size_t limit, Take take) const {
        const auto each = [&](const auto& elements, auto rowOf) {
            for (std::size_t i = 0; i < elements.size() && take(rowOf(elements[i])); ++i) {
            }
        };
        const auto labelled = [&](const auto& element) { return Row{textOf(element.text, limit), {}}; };
        switch (section) {
        case SECTION_TITLE: take(Row{titleOf(limit), {}}); break;
        case SECTION_LINKS:
            each(page.links(), [&](const Link& link) {
                return Row{textOf(link.text, limit), urlOf(link.href)};
            });
            break;
        case SECTION_IMAGES:
            for (const Image& image : page.images()) {
                if (page.shows(image) && !take(Row{urlOf(image.src), attributeOf(image, limit)})) {
                    break;
                }
            }
            break;
        case SECTION_ITEMS: each(page.items(), labelled); break;
        default: each(page.cells(), labelled); break;
        }
    }

    bool hasRoomFor(const Row& row) const { return row.text.size() + row.beside.size() + RESERVE <= left(); }

    std::string titleOf(std::size_t limit) const {
        std::string scratch;
        return options.decode
                   ? decoded(page.title(), limit)
                   : oneLine(page.utf8(page.shortened(page.title()), scratch), Markup::strip, limit);
    }

    std::string textOf(Slice captured, std::size_t limit) const {
        return options.decode ? decoded(captured, limit) : labelOf(captured, page, limit);
    }

    // As people read it.
    std::string decoded(Slice captured, std::size_t limit) const {
        std::string scratch;
        const Slice plain = page.plain(page.shortened(captured), scratch);
        return oneLine(page.isStandard() ? std::string(plain) : pageslice::decode(plain), Markup::keep,
                       limit);
    }

    std::string attributeOf(const Image& image, std::size_t limit) const {
        if (!options.decode) {
            return altOf(page, image, limit);
        }
        std::string scratch;
        return oneLine(pageslice::decode(page.utf8(image.alt, scratch), true), Markup::keep, limit);
    }

    std::string urlOf(Slice written) const {
        std::string scratch;
        std::string absolute;
        const std::string decoded =
            options.decode ? pageslice::decode(page.utf8(written, scratch), true) : std::string();
        if (page.absolute(written, absolute) && !absolute.empty()) {
            const bool isEncoded =
                options.decode && !page.isStandard(); // whose addresses are decoded already
            return oneLine(isEncoded ? pageslice::decode(absolute, true) : absolute, Markup::keep);
        }
        return oneLine(options.decode ? decoded : page.utf8(written, scratch), Markup::keep);
    }

    void section(Section section, const char* pTitle) {
        const std::size_t count = countOf(section);
        if (!options.shows(section) || count == 0) {
            return;
        }
        heading(pTitle);
        const bool isNumbered = section != SECTION_TITLE;
        const std::size_t digits = std::max<std::size_t>(3, std::to_string(count).size());
        const std::size_t column = columnFor(section);
        std::size_t printed = 0;
        eachRow(section, ROW_LIMIT, [&](const Row& row) {
            if (!hasRoomFor(row)) {
                return false;
            }
            const std::string shown = isNumbered ? std::to_string(++printed) : std::string();
            if (isNumbered) {
                coloured("2", std::string(digits - shown.size(), ' ') + shown);
            }
            out.put("  ");
            put(row, column);
            return true;
        });
        if (isNumbered && printed < count) {
            out.put("  ... and " + std::to_string(count - printed) + " more\n");
        }
    }

    // Where the second column of a section begins.
    std::size_t columnFor(Section section) const {
        std::size_t column = 0;
        eachRow(section, COLUMN_LIMIT + 1, [&](const Row& row) {
            const std::size_t width = countCharacters(fit(row.text));
            column = width <= COLUMN_LIMIT ? std::max(column, width) : column;
            return true;
        });
        return column;
    }

    void put(const Row& row, std::size_t column) {
        const std::string text = fit(row.text);
        out.put(text);
        if (!row.beside.empty()) {
            const std::size_t width = countCharacters(text);
            out.put(std::string(column - std::min(width, column) + (column == 0 ? 0 : 2), ' '));
            coloured("36", fit(row.beside));
        }
        out.put('\n');
    }

    // The plain text in lines of readable length.
    void text() {
        std::string scratch;
        Slice rest = page.plain(page.bytes(), scratch);
        bool first = true;
        while (!rest.empty() && left() > RESERVE) {
            const std::size_t end = std::min(rest.find('\n'), rest.size());
            const std::string line = oneLine(rest.substr(0, end), Markup::keep);
            if (first && !line.empty()) {
                heading("Text");
                first = false;
            }
            wrap(line);
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }

    void wrap(const std::string& oneLongLine) {
        std::string_view rest = oneLongLine;
        while (!rest.empty() && left() > RESERVE) {
            std::size_t end = rest.size();
            if (end > LINE_WIDTH) {
                const std::size_t space = rest.rfind(' ', LINE_WIDTH);
                end = space != std::string_view::npos ? space : std::min(rest.find(' '), rest.size());
            }
            out.put("  ");
            out.put(fit(std::string(rest.substr(0, std::min(end, left())))));
            out.put('\n');
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }

    void heading(const char* pTitle) {
        out.put('\n');
        coloured("1;34", pTitle);
        out.put('\n');
    }

    void coloured(const char* pCode, const std::string& s) {
        out.put(options.colours ? std::string("\x1b[") + pCode + 'm' + s + "\x1b[0m" : s);
    }

    std::string fit(const std::string& line) const { return options.toTerminal ? withMarks(line) : line; }

    // Without the line end that follows.
    std::size_t left() const { return most - std::min(most, out.size() + 1); }

    const Page& page;
    const Options& options;
    Report& out;
    std::size_t most;
};

} // namespace

std::string labelOf(Slice slice, const Page& page, std::size_t limit) {
    std::string scratch;
    std::string label = oneLine(page.utf8(page.shortened(slice), scratch), Markup::strip, limit);
    if (!label.empty()) {
        return label;
    }
    const Image& image = page.imageIn(slice);
    if (image.src.empty()) {
        return label;
    }
    return '[' +
           (image.alt.empty() ? oneLine(page.utf8(image.src, scratch), Markup::keep, limit)
                              : altOf(page, image, limit)) +
           ']';
}

std::size_t printForPeople(const Page& page, const Options& options, Report& report) {
    Printer printer(page, options, report);
    if (options.count) {
        printer.counts();
        return 0;
    }
    if (!options.isSingle()) {
        return printer.whole();
    }
    return options.sections == SECTION_TEXT ? printer.bareText() : printer.bare();
}

} // namespace program
