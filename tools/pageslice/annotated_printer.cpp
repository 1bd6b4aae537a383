// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <queue>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "annotated_assets.h"
#include "display.h"
#include "printers.h"
#include "runs.h"

namespace program {
namespace {

constexpr std::size_t BLOCK = 4096;      // bytes that browsers lay out at once, when scrolled to
constexpr std::size_t LONG_LINE = 16384; // is broken, so that no block is much larger
constexpr std::size_t ENTRY_LIMIT = 90;  // characters of an entry's text
constexpr std::size_t RESERVE = 512;     // of the output, for what stands around the last text

enum Kind : std::uint8_t { TITLE, LINK_URL, LINK_TEXT, IMAGE, CELL, ITEM, MISSED, KINDS };

struct KindName {
    char letter; // its class in the style sheet
    Section section;
    const char* pLabel;
};
constexpr std::array<KindName, KINDS> NAMES = {{{'t', SECTION_TITLE, "Title"},
                                                {'u', SECTION_LINKS, "Link URLs"},
                                                {'k', SECTION_LINKS, "Link texts"},
                                                {'i', SECTION_IMAGES, "Images"},
                                                {'c', SECTION_CELLS, "Cells"},
                                                {'l', SECTION_ITEMS, "List items"},
                                                {'m', SECTION_LINKS, "Only with --rules standard"}}};

// One slice in the source. Slices nest and overlap, so the source is cut into pieces wherever one starts or
// ends; a slice is then a run of consecutive pieces.
struct Mark {
    std::size_t start;
    std::size_t end; // exclusive
    std::uint32_t firstPiece;
    std::uint32_t lastPiece;
    Kind kind;
};

void putEscaped(Report& out, std::string_view utf8) {
    while (!utf8.empty()) {
        const std::size_t run = std::min(utf8.find_first_of("<&\""), utf8.size());
        out.put(utf8.substr(0, run));
        utf8.remove_prefix(run);
        if (!utf8.empty()) {
            out.put(utf8.front() == '<' ? "&lt;" : utf8.front() == '&' ? "&amp;" : "&quot;");
            utf8.remove_prefix(1);
        }
    }
}

// As people can see it: characters without a shape by their names.
void putVisible(Report& out, std::string_view utf8) {
    std::string shown;
    while (!utf8.empty()) {
        const std::size_t run = plainRun(utf8);
        putEscaped(out, utf8.substr(0, run));
        utf8.remove_prefix(run);
        if (utf8.empty()) {
            return;
        }
        const Decoded decoded = decodeUtf8(utf8);
        const char32_t c = decoded.character;
        shown.clear();
        if (c == '\n' || c == '\t') {
            out.put(utf8.front());
        } else if (decoded.valid && c >= 0xA0 && (isUnseen(c) || hasNoWidth(c))) {
            appendName(shown, c);
            out.put("<i>");
            out.put(shown);
            out.put("</i>");
        } else {
            appendLegible(shown, utf8);
            putEscaped(out, shown);
        }
        utf8.remove_prefix(decoded.size);
    }
}

// As in id=s12.
void putNumbered(Report& out, std::string_view before, std::size_t number) {
    out.put(before);
    out.putNumber(number);
}

// Gathers what is marked. So many marks that the page made of them could break its bounds do not come.
class Marks {
public:
    Marks(const Page& shown, const Options& wanted)
        : page(shown), options(wanted), most(shown.bytes().size() / 12 + 1000) {}

    std::vector<Mark> all(const std::vector<Slice>& standardLinks) {
        add(page.title(), TITLE);
        links(standardLinks);
        for (const Image& image : page.images()) {
            add(image.src, IMAGE);
        }
        for (const Cell& cell : page.cells()) {
            add(cell.text, CELL);
        }
        for (const Item& item : page.items()) {
            add(item.text, ITEM);
        }
        // Of two that start together, the inner one comes last.
        std::sort(marks.begin(), marks.end(), [](const Mark& a, const Mark& b) {
            return a.start != b.start ? a.start < b.start : a.end > b.end;
        });
        return std::move(marks);
    }

    std::size_t leftOut() const { return tooMany; }

private:
    // Both sets are in the order of the page; what only the standard one has is missed.
    void links(const std::vector<Slice>& standardLinks) {
        auto next = standardLinks.begin();
        const auto missedBefore = [&](const char* pPlace) {
            for (; next != standardLinks.end() && next->data() < pPlace; ++next) {
                add(*next, MISSED);
            }
        };
        for (const Link& link : page.links()) {
            missedBefore(link.href.data());
            if (next != standardLinks.end() && next->data() == link.href.data()) {
                ++next;
            }
            add(link.href, LINK_URL);
            add(link.text, LINK_TEXT);
        }
        missedBefore(page.bytes().data() + page.bytes().size());
    }

    void add(Slice slice, Kind kind) {
        if (slice.empty() || !options.shows(NAMES[kind].section)) {
            return;
        }
        if (marks.size() >= most) {
            ++tooMany;
            return;
        }
        const std::size_t start = page.offsetOf(slice);
        marks.push_back({start, start + slice.size(), 0, 0, kind});
    }

    const Page& page;
    const Options& options;
    std::size_t most;
    std::size_t tooMany = 0;
    std::vector<Mark> marks;
};

// Writes the source with its pieces, and into the marks which pieces are theirs.
class SourceWriter {
public:
    SourceWriter(const Page& shown, std::vector<Mark>& slices, Report& report)
        : page(shown), bytes(shown.bytes()), marks(slices), out(report) {}

    void write() {
        std::size_t next = 0; // the mark that starts next
        startBlock();
        for (std::size_t at = 0; at < bytes.size();) {
            while (!open.empty() && open.top().first == at) {
                closeInnermost();
            }
            for (; next < marks.size() && marks[next].start == at; ++next) {
                endPiece();
                open.emplace(marks[next].end, ~next);
                ++openKinds[marks[next].kind];
                unplaced.push_back(next);
            }
            at += write(bytes.substr(at, borderAfter(at, next) - at));
        }
        while (!open.empty()) {
            closeInnermost();
        }
        out.put("</section>");
    }

private:
    void closeInnermost() {
        endPiece();
        placeAll(); // where there was nothing but line ends in it
        endPiece();
        Mark& mark = marks[~open.top().second];
        mark.lastPiece = pieces - 1;
        --openKinds[mark.kind];
        open.pop();
    }

    // Where the next slice starts or ends.
    std::size_t borderAfter(std::size_t at, std::size_t nextMark) const {
        std::size_t border = bytes.size();
        border = nextMark < marks.size() ? std::min(border, marks[nextMark].start) : border;
        border = open.empty() ? border : std::min(border, open.top().first);
        return std::max(border, at + 1);
    }

    // Writes a line end, or what comes before one; gives how much that was.
    std::size_t write(std::string_view rest) {
        if (rest.front() == '\n' || rest.front() == '\r') {
            endPiece();
            endLine();
            return rest.substr(0, 2) == "\r\n" ? 2 : 1;
        }
        if (lineBytes >= LONG_LINE) {
            endPiece();
            startBlock();
        }
        std::size_t size = std::min(rest.find_first_of("\r\n"), rest.size());
        if (size > LONG_LINE) {
            const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
            const auto end = std::find_if(rest.begin() + LONG_LINE,
                                          rest.begin() + static_cast<std::ptrdiff_t>(size), isAscii);
            size = static_cast<std::size_t>(end - rest.begin()); // not inside a character
        }
        startPiece();
        putVisible(out, page.utf8(rest.substr(0, size), scratch));
        lineBytes += size;
        return size;
    }

    void startPiece() {
        if (closing.data() != nullptr || open.empty()) {
            return;
        }
        if (unplaced.empty()) {
            putNumbered(out, "<span data-s=", ~open.top().second);
            putClasses();
            ++pieces;
            closing = "</span>";
        } else {
            placeAll(); // the last one goes on
        }
    }

    void endPiece() {
        out.put(closing);
        closing = {};
    }

    // One element for each slice that has none so far, the innermost last, which stays open.
    void placeAll() {
        for (const std::size_t mark : unplaced) {
            endPiece();
            putNumbered(out, "<span id=s", mark);
            putClasses();
            closing = "</span>";
            marks[mark].firstPiece = pieces++;
        }
        unplaced.clear();
    }

    void putClasses() {
        const auto kinds =
            std::count_if(openKinds.begin(), openKinds.end(), [](std::size_t n) { return n != 0; });
        std::string_view before = kinds == 1 ? " class=" : " class=\"";
        for (std::size_t kind = 0; kind < KINDS; ++kind) {
            if (openKinds[kind] != 0) {
                out.put(before);
                out.put(NAMES[kind].letter);
                before = " ";
            }
        }
        out.put(kinds == 1 ? ">" : "\">");
    }

    void endLine() {
        ++lines;
        blockBytes += lineBytes + 1;
        lineBytes = 0;
        out.put('\n');
        if (blockBytes >= BLOCK) {
            startBlock();
        } else {
            out.put("<p>");
        }
    }

    // The counter stands on the first line: on the block itself it would be another one, for browsers lay a
    // block out apart.
    void startBlock() {
        out.put(isFirstBlock ? "" : "</section>");
        isFirstBlock = false;
        putNumbered(out, "<section><p style=\"counter-reset:line ", lines);
        out.put("\">");
        blockBytes = 0;
        lineBytes = 0;
    }

    const Page& page;
    std::string_view bytes;
    std::vector<Mark>& marks;
    Report& out;
    std::string scratch;
    // The slices around the place being written, by their end and the complement of their number: the top
    // is the innermost, and the next to end.
    using Place = std::pair<std::size_t, std::size_t>;
    std::priority_queue<Place, std::vector<Place>, std::greater<>> open;
    std::array<std::size_t, KINDS> openKinds = {};
    std::vector<std::size_t> unplaced; // those of them that no piece stands for yet
    std::string_view closing;          // the end tag of the piece being written
    std::uint32_t pieces = 0;
    std::size_t lines = 0;
    std::size_t lineBytes = 0;
    std::size_t blockBytes = 0;
    bool isFirstBlock = true;
};

// Fills the page's places, which have names between '@', by the functions of those names.
class AnnotatedPage {
public:
    AnnotatedPage(const Page& shown, const Options& wanted, const std::vector<Slice>& standardLinks,
                  Report& report)
        : page(shown), options(wanted), out(report), most(mostOutput(shown.bytes().size())) {
        Marks gathered(page, options);
        marks = gathered.all(standardLinks);
        leftOut = gathered.leftOut();
    }

    void write() {
        std::string_view rest = ANNOTATED_PAGE;
        for (std::size_t at = rest.find('@'); at != std::string_view::npos; at = rest.find('@')) {
            const std::size_t end = rest.find('@', at + 1);
            out.put(rest.substr(0, at));
            put(rest.substr(at + 1, end - at - 1));
            rest.remove_prefix(end + 1);
        }
        out.put(rest);
    }

private:
    void put(std::string_view name) {
        if (name == "NAME") {
            putEscaped(out, withMarks(oneLine(page.file(), Markup::keep)));
        } else if (name == "HASH") {
            out.put(ANNOTATED_HASH);
        } else if (name == "STYLE") {
            out.put(ANNOTATED_STYLE);
        } else if (name == "SCRIPT") {
            out.put(ANNOTATED_SCRIPT);
        } else if (name == "KINDS") {
            kinds();
        } else if (name == "NOTE") {
            note();
        } else if (name == "SOURCE") {
            source();
        } else if (name == "LIST") {
            list();
        } else {
            text();
        }
    }

    void kinds() {
        for (const KindName& kind : NAMES) {
            const bool isHere = options.shows(kind.section) && (kind.letter != 'm' || misses());
            if (isHere) {
                out.put("<label class=");
                out.put(kind.letter);
                out.put("><input type=checkbox value=");
                out.put(kind.letter);
                out.put(" checked> ");
                out.put(kind.pLabel);
                out.put("</label>\n");
            }
        }
    }

    bool misses() const {
        return std::any_of(marks.begin(), marks.end(), [](const Mark& mark) { return mark.kind == MISSED; });
    }

    void note() {
        if (!page.isStandard() && page.readTo() < page.bytes().size()) {
            putNumbered(out, "<p class=note>Read to byte ", page.readTo());
            out.put(", where the classic rules end; <code>--rules standard</code> reads on.</p>\n");
        }
        if (leftOut > 0) {
            putNumbered(out, "<p class=note>", leftOut);
            out.put(" more slices are not shown: there are too many for a page of this size.</p>\n");
        }
    }

    void source() {
        putNumbered(out, "<div hidden data-bytes=", page.bytes().size());
        out.put("></div>");
        SourceWriter(page, marks, out).write();
    }

    void list() {
        for (const Mark& mark : marks) {
            out.put(NAMES[mark.kind].letter);
            putNumbered(out, "\t", mark.start);
            putNumbered(out, "\t", mark.end - 1);
            putNumbered(out, "\t", mark.firstPiece);
            putNumbered(out, "\t", mark.lastPiece);
            out.put('\t');
            const std::string shown = labelOf(mark);
            if (shown.size() * 6 + RESERVE <= left()) {
                putEscaped(out, shown);
            }
            out.put('\n');
        }
    }

    std::string labelOf(const Mark& mark) {
        const Slice slice = page.bytes().substr(mark.start, mark.end - mark.start);
        const bool isAddress = mark.kind == LINK_URL || mark.kind == IMAGE || mark.kind == MISSED;
        if (isAddress && page.hasUrls() && page.absolute(slice, absolute)) {
            return withMarks(oneLine(absolute, Markup::keep, ENTRY_LIMIT));
        }
        return withMarks(program::labelOf(slice, page, ENTRY_LIMIT));
    }

    void text() {
        if (!options.shows(SECTION_TEXT)) {
            return;
        }
        std::string scratch;
        Slice plain = page.plain(page.bytes(), scratch);
        while (!plain.empty() && left() > RESERVE + 12 * BLOCK) {
            const std::size_t size = std::min({plain.find(' ', BLOCK), BLOCK * 2, plain.size()});
            out.put("<section>");
            putVisible(out, plain.substr(0, size));
            out.put("</section>\n");
            plain.remove_prefix(size);
        }
        out.put(plain.empty() ? "" : "<p>The rest would take too much room.</p>");
    }

    std::size_t left() const { return most - std::min(most, out.size()); }

    const Page& page;
    const Options& options;
    Report& out;
    std::size_t most;
    std::size_t leftOut;
    std::vector<Mark> marks;
    std::string absolute;
};

} // namespace

void printAnnotated(const Page& page, const std::vector<Slice>& standardLinks, const Options& options,
                    Report& report) {
    AnnotatedPage(page, options, standardLinks, report).write();
}

} // namespace program
