#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "annotated_assets.h"
#include "display.h"
#include "printers.h"

namespace pageslice {
namespace {

constexpr std::size_t BLOCK = 4096;      // bytes that browsers lay out at once, when scrolled to
constexpr std::size_t LONG_LINE = 16384; // is broken, so that no block is much larger
constexpr std::size_t LIST_BLOCK = 100;  // entries of the side list
constexpr std::size_t ENTRY_LIMIT = 90;  // characters of an entry's text

enum Kind : std::size_t { TITLE, LINK_URL, LINK_TEXT, IMAGE, CELL, ITEM, KINDS };

constexpr std::array<char, KINDS> CLASSES = {'t', 'u', 'k', 'i', 'c', 'l'}; // in the style sheet

// One slice in the source. Slices nest and overlap, so the source is cut into pieces wherever one starts or
// ends; a slice is then a run of consecutive pieces.
struct Mark {
    std::size_t start;
    std::size_t end; // exclusive
    Kind kind;
    std::size_t firstPiece = 0;
    std::size_t lastPiece = 0;
};

std::string escaped(std::string_view utf8) {
    std::string out;
    for (const char c : utf8) {
        switch (c) {
        case '<': out += "&lt;"; break;
        case '&': out += "&amp;"; break;
        case '"': out += "&quot;"; break;
        default: out += c;
        }
    }
    return out;
}

// As in id=s12.
std::string numbered(const char* before, std::size_t number) {
    return before + std::to_string(number);
}

std::vector<Mark> marksOf(const Page& page) {
    std::vector<Mark> marks;
    const auto add = [&](Slice slice, Kind kind) {
        if (!slice.empty()) {
            const std::size_t start = page.offsetOf(slice);
            marks.push_back({start, start + slice.size(), kind});
        }
    };
    add(page.title, TITLE);
    for (const Link& link : page.links) {
        add(link.href, LINK_URL);
        add(link.text, LINK_TEXT);
    }
    for (const Image& image : page.images) {
        add(image.src, IMAGE);
    }
    for (const Slice cell : page.cells) {
        add(cell, CELL);
    }
    for (const Slice item : page.items) {
        add(item, ITEM);
    }
    // Of two that start together, the inner one comes last.
    std::sort(marks.begin(), marks.end(), [](const Mark& a, const Mark& b) {
        return a.start != b.start ? a.start < b.start : a.end > b.end;
    });
    return marks;
}

// Writes the source with its pieces, and into the marks which pieces are theirs.
class SourceWriter {
public:
    SourceWriter(std::string_view page, std::vector<Mark>& slices) : bytes(page), marks(slices) {}

    std::string whole() {
        std::size_t next = 0; // the mark that starts next
        startBlock();
        for (std::size_t at = 0; at < bytes.size();) {
            while (!open.empty() && open.begin()->first == at) {
                closeInnermost();
            }
            for (; next < marks.size() && marks[next].start == at; ++next) {
                endPiece();
                open.emplace(marks[next].end, ~next);
                ++openKinds[marks[next].kind];
                unplaced.push_back(next);
            }
            at += writeCharacter(bytes.substr(at));
        }
        while (!open.empty()) {
            closeInnermost();
        }
        return out + "</section>";
    }

private:
    void closeInnermost() {
        endPiece();
        placeAll(); // where there was nothing but line ends in it
        Mark& mark = marks[~open.begin()->second];
        mark.lastPiece = pieces - 1;
        --openKinds[mark.kind];
        open.erase(open.begin());
    }

    std::size_t writeCharacter(std::string_view rest) {
        const char c = rest.front();
        if (c == '\n' || c == '\r') {
            endPiece();
            const bool isPair = c == '\r' && rest.size() > 1 && rest[1] == '\n';
            endLine();
            return isPair ? 2 : 1;
        }
        if (lineBytes >= LONG_LINE) {
            endPiece();
            startBlock();
        }
        startPiece();
        std::string shown(1, c);
        std::size_t taken = 1;
        if (c != '\t') {
            shown.clear();
            taken = appendLegible(shown, rest);
        }
        out += escaped(shown);
        lineBytes += taken;
        return taken;
    }

    void startPiece() {
        if (closing != nullptr || open.empty()) {
            return;
        }
        if (unplaced.empty()) {
            out += numbered("<span data-s=", ~open.begin()->second) + classes() + '>';
            ++pieces;
            closing = "</span>";
        } else {
            placeAll();
            closing = "</a>";
            out.resize(out.size() - 4); // the last one goes on
        }
    }

    void endPiece() {
        out += closing == nullptr ? "" : closing;
        closing = nullptr;
    }

    // One element for each slice that has none so far, the innermost last.
    void placeAll() {
        for (const std::size_t mark : unplaced) {
            out += numbered("<a id=s", mark) + numbered(" href=#e", mark) + classes() + "></a>";
            marks[mark].firstPiece = pieces++;
        }
        unplaced.clear();
    }

    std::string classes() const {
        std::string names;
        for (std::size_t kind = 0; kind < KINDS; ++kind) {
            if (openKinds[kind] != 0) {
                names += {' ', CLASSES[kind]};
            }
        }
        return " class=\"" + names.substr(1) + '"';
    }

    void endLine() {
        ++lines;
        blockBytes += lineBytes + 1;
        lineBytes = 0;
        out += '\n';
        if (blockBytes >= BLOCK) {
            startBlock();
        } else {
            out += "<p>";
        }
    }

    void startBlock() {
        out += out.empty() ? "" : "</section>";
        out += numbered("<section style=\"counter-reset:line ", lines) + "\"><p>";
        blockBytes = 0;
        lineBytes = 0;
    }

    std::string_view bytes;
    std::vector<Mark>& marks;
    // The slices around the place being written, by their end and the complement of their number: the
    // first is the innermost, and the next to end.
    std::set<std::pair<std::size_t, std::size_t>> open;
    std::array<std::size_t, KINDS> openKinds = {};
    std::vector<std::size_t> unplaced; // those of them that no piece stands for yet
    const char* closing = nullptr;     // the end tag of the piece being written
    std::size_t pieces = 0;
    std::size_t lines = 0;
    std::size_t lineBytes = 0;
    std::size_t blockBytes = 0;
    std::string out;
};

std::string listOf(const std::vector<Mark>& marks, const Page& page) {
    std::string out = "<ul>";
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const Mark& mark = marks[i];
        const std::string shown =
            labelOf(page.bytes.substr(mark.start, mark.end - mark.start), page, ENTRY_LIMIT);
        out += i != 0 && i % LIST_BLOCK == 0 ? "</ul><ul>" : "";
        out += std::string("<li class=") + CLASSES[mark.kind] + numbered("><a id=e", i) +
               numbered(" href=#s", i) + numbered(" data-p=", mark.firstPiece) +
               numbered(",", mark.lastPiece) + '>' + (shown.empty() ? "(no text)" : escaped(shown)) +
               numbered(" <small>", mark.start) + numbered("–", mark.end - 1) + "</small></a>\n";
    }
    return out + "</ul>";
}

std::string blocksOf(std::string_view plainText) {
    std::string out;
    while (!plainText.empty()) {
        const std::size_t size = std::min(plainText.find(' ', BLOCK), plainText.size());
        out += "<section>" + escaped(legible(plainText.substr(0, size))) + "</section>\n";
        plainText.remove_prefix(size);
    }
    return out;
}

} // namespace

std::string printAnnotated(const Page& page) {
    std::vector<Mark> marks = marksOf(page);
    const std::string source = SourceWriter(page.bytes, marks).whole();
    const std::map<std::string_view, std::string> parts = {
        {"NAME", escaped(oneLine(page.file, Markup::keep))},
        {"STYLE", ANNOTATED_STYLE},
        {"SCRIPT", ANNOTATED_SCRIPT},
        {"LIST", listOf(marks, page)},
        {"SOURCE", source},
        {"TEXT", blocksOf(page.text)}};
    std::string out;
    std::string_view rest = ANNOTATED_PAGE;
    for (std::size_t at = rest.find('@'); at != std::string_view::npos; at = rest.find('@')) {
        const std::size_t end = rest.find('@', at + 1);
        out.append(rest.substr(0, at)).append(parts.at(rest.substr(at + 1, end - at - 1)));
        rest.remove_prefix(end + 1);
    }
    return out.append(rest);
}

} // namespace pageslice
