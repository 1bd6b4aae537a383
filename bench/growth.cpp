// SPDX-License-Identifier: MIT
// pageslice_growth BYTES [NAME...]
//
// Runs every hostile family, or those whose names begin so, at two sizes: pages of so many bytes and of twice
// as many, strings an eighth of that. Under callgrind each run leaves one dump named after it, from which
// growth.py tells whether the work doubled.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "callgrind.h"
#include "hostile.h"
#include "output/alt_text.h"
#include "output/output_text.h"
#include "pageslice/page.h"
#include "pageslice/tokens.h"
#include "stages.h"
#include "text/string_utils.h"

namespace {

using namespace bench;

// Everything that a host or a derived parser can ask of a page, each once.
class EveryQuestion : private HtmlParser {
public:
    explicit EveryQuestion(const text& page) : HtmlParser(page, PAGE_URL) {}

    void Ask() {
        UrlList* images = nullptr;
        UrlList* links = nullptr;
        GetUrlLists(&images, &links); // runs the pass
        const UrlList copied(*images);
        ReadAll(*images);
        ReadAll(*links);
        delete images;
        delete links;
        char* plain = nullptr;
        bConvertHtmlToPlainText(&plain);
        delete[] plain;
        delete[] pMakeTitleCopy();
        constexpr int NO_CODE = -1;
        bFindNextTagType(m_tPage.m_pStart, NO_CODE, NO_CODE);
        const HtmlParser copy(*this);
        HtmlParser assigned;
        assigned = copy;
        Clear();
    }

private:
    static void ReadAll(UrlList& list) {
        for (list.pMoveFirst(); list.pGetNext() != nullptr;) {
        }
    }
};

// What was looked at counts as used.
void Use(std::string_view s) {
    asm volatile("" : : "r"(s.data()), "r"(s.size()) : "memory");
}

text Whole(const std::string& s) {
    return text(s.data(), s.data() + s.size() - 1, 1);
}

void AskEverything(std::string& page) {
    EveryQuestion(Whole(page)).Ask();
}

// Everything that a page tells by the standard rules, each element once, and all of its tokens.
void AskStandard(std::string& s) {
    pageslice::options options;
    options.rules = pageslice::rules::standard;
    options.url = PAGE_URL;
    const pageslice::page page(s, options);
    for (const pageslice::link link : page.links()) {
        Use(link.href);
    }
    for (const pageslice::image image : page.images()) {
        Use(image.src);
    }
    for (const pageslice::cell cell : page.cells()) {
        Use(cell.text);
    }
    for (const pageslice::item item : page.list_items()) {
        Use(item.text);
    }
    Use(page.plain_text());
    const std::string copy = s; // of which nothing is known: it is read anew
    Use(page.plain_text(copy));
    pageslice::tokens tokens(s);
    for (const pageslice::token& token : tokens) {
        Use(token.bytes);
        for (const pageslice::attribute attribute : tokens.attributes()) {
            Use(attribute.value);
        }
    }
}

// Pages that are hostile to the standard rules alone.
constexpr Family STANDARD_FAMILIES[] = {
    {"references", "", "&", ""},
    {"references without end", "", "&aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", ""},
    {"numbers without end", "&#x", "1", ""},
    {"closes in apostrophes", "", "<p a='>'>", ""},
    {"quotes that prove nothing", "", "<a b=c\" d=\"e>f\">", ""},
    {"a tag of distinct attributes", "<p", " a^", ">"},
    {"short comments", "", "<!-->", ""},
    {"script escapes", "", "<script><!--<script></script>-->", ""},
    {"scripts in a script", "<script><!--", "<script>", ""},
    {"escapes in a script", "<script>", "<!---->", ""},
    {"dashes in a script", "<script><!--", "-", ""},
    {"titles that do not end", "<title>", "</titl", ""},
    {"nested svg", "", "<svg>", ""},
    {"svg opened and closed", "", "<svg><g><g></svg>", ""},
    {"deep svg, then strangers", "<svg><g><g><g><g><g><g><g><g><g><g><g><g><g><g><g><g><g><g>", "</q>", ""},
    {"html inside svg", "<svg><desc>", "<div></q>", ""},
    {"one kind of list in another", "<ol>", "<ul></ol>", ""},
    {"tables without cells", "", "<table>", ""},
    {"source sets of megabytes", "<img srcset=\"", "a 1x,", "\">"},
    {"templates", "", "<template>", ""},
    {"line ends kept", "<pre>", "\r\n", "x"},
    {"cells and breaks", "<table>", "<td><br>", "x"},
};

// The routines on URLs, each on the whole string; the string ends canonical.
void UseUrl(std::string& s) {
    const char* const p = s.c_str();
    const text slice = Whole(s);
    std::string host;
    url::tGetHostName(p);
    url::tGetHostName(slice, host);
    url::tGetDomainName(slice);
    url::tGetExtension(slice);
    url::tGetFileTitle(slice);
    url::nGetImageType(slice);
    url::nFindPathStart(p);
    nNumHostLevels(p);
    url::nCommonPrefixLength(p, s.substr(0).c_str());
    url::nCompareUrls(p, s.substr(0).c_str());
    url link;
    link = slice;
    std::string room(2 * s.size() + 2, '\0');
    OutputText out(room.data(), room.data() + room.size() - 1);
    link.println(out, 2);
    delete[] url::pResolveUrl(PAGE_URL, p);
    delete[] url::pResolveUrl(p, "../x/../y.html");
    delete[] url::pResolveUrl(p, "/x");
    url::NormalizeUrl(s.data());
}

// A slice printed into a sink, trimmed, and the sink's operations on what then stands in it.
void UseSink(std::string& s) {
    std::string room(s.size() + 2, '\0');
    OutputText out(room.data(), room.data() + room.size() - 1);
    alt_text alt;
    alt = Whole(s);
    alt.print(out, 1);
    alt.print(out, 1);
    out.bPutString(s.c_str());
    out.bTrimBrackets();
    out.SyncCursor();
    out.nNumWords();
    out.SetBuffer(room.data(), room.data() + room.size() - 1);
    out.bPadToWords(static_cast<int>(s.size() / 8));
    out.SetBuffer(room.data(), room.data() + room.size() - 1);
    out.bPutWords("word", static_cast<int>(s.size() / 8));
}

void UseStringUtilities(std::string& s) {
    const auto n = static_cast<unsigned>(s.size());
    const std::string other(s);
    std::string room(3 * s.size() + 2, '\0');
    bSplitWords(room.data(), s.c_str(), "+");
    room[0] = '\0';
    bAppendWords(room.data(), static_cast<int>(s.size()), "word", static_cast<int>(n / 8));
    nCountWords(s.c_str());
    nStrNICmp(s.c_str(), other.c_str(), n);
    nStrNCmp(s.c_str(), other.c_str(), n);
    nParseDecimal(s.c_str(), s.size());
    const text slice = Whole(s);
    slice.ConvertToAlign();
    slice.strncmp(Whole(other));
    delete[] slice.pMakeCopy();
    ReplaceChar(s.data(), s[0], 'y');
    SetLastChar(s.data(), 'z');
    RemoveLastChar(s.data());
}

void UseUrlList(std::string& s) {
    UrlList list(static_cast<int>(s.size()));
    while (list.bAddUrl("p") != 0 && list.bAddUrl(text(s.data(), s.data() + 9, 0)) != 0) {
    }
    UrlList copy(list);
    copy = list;
    for (copy.pMoveFirst(); copy.pGetNext() != nullptr;) {
    }
}

struct Routine {
    Family family;
    void (*run)(std::string& s);
};

constexpr Routine ROUTINES[] = {
    {{"URL of slashes", "http://h/", "/", "x"}, UseUrl},
    {{"URL of dots", "http://h/", ".", "/x"}, UseUrl},
    {{"URL of segments '.'", "http://h/", "./", "x"}, UseUrl},
    {{"URL of segments '..'", "http://h/", "../", "x"}, UseUrl},
    {{"URL down and up", "http://h/", "a/", "../x"}, UseUrl},
    {{"URL down and up in turn", "http://h/", "a/b/../", "x"}, UseUrl},
    {{"URL of spaces", "  http://h/", " ", "  "}, UseUrl},
    {{"URL with a long scheme", "", "s", "://h/x"}, UseUrl},
    {{"URL of schemes", "", "s://", "x"}, UseUrl},
    {{"host of labels", "http://", "a.", "h/x.gif"}, UseUrl},
    {{"host of letters", "http://", "A", "/x.gif"}, UseUrl},
    {{"host of ports", "http://", "h:8", "/x.gif"}, UseUrl},
    {{"host of users", "http://", "u@", "h/x.gif"}, UseUrl},
    {{"URL of queries", "http://h/x?", "a=^&", "#x"}, UseUrl},
    {{"URL of percents", "http://h/", "%41-_", ".jpg"}, UseUrl},
    {{"sink of opening brackets", "", "[", ""}, UseSink},
    {{"sink of closing brackets", "", "]", ""}, UseSink},
    {{"sink of brackets", "[[[", "[x]", "]]]"}, UseSink},
    {{"sink of line ends", "[", "]\r\n", ""}, UseSink},
    {{"sink of short words", "", "a ", ""}, UseSink},
    {{"strings of letters", "", "x", ""}, UseStringUtilities},
    {{"strings of separators", "", "./ ", ""}, UseStringUtilities},
    {{"strings of short words", "", "a ", ""}, UseStringUtilities},
    {{"strings of digits", "", "9", ""}, UseStringUtilities},
    {{"URL list", "", "x", ""}, UseUrlList},
};

// Only the run is counted: the string stands ready before, and what the run leaves is released behind.
constexpr const char* STANDARD = "standard: ";

void Measure(const Family& family, const char* rules, void (*run)(std::string& s), std::size_t n) {
    std::string s = MakePage(family, n);
    const std::string label = rules + std::string(family.name) + " @ " + std::to_string(s.size());
    std::fprintf(stderr, "growth: %s\n", label.c_str());
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS; // starting anew forgets what the last dump began with
    run(s);
    CALLGRIND_DUMP_STATS_AT(label.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
}

void MeasureTwice(const Family& family, const char* rules, void (*run)(std::string& s), std::size_t n) {
    Measure(family, rules, run, n);
    Measure(family, rules, run, 2 * n);
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string_view> arguments(argv + 1, argv + argc);
    const std::size_t bytes = argc < 2 ? 0 : std::strtoull(argv[1], nullptr, 10);
    if (bytes == 0) {
        std::fprintf(stderr, "pageslice_growth: needs a number of bytes\n");
        return 2;
    }
    const auto isWanted = [&arguments](std::string_view name) {
        const auto begins = [name](std::string_view s) { return name.starts_with(s); };
        return arguments.size() == 1 || std::any_of(arguments.begin() + 1, arguments.end(), begins);
    };
    for (const Family& family : HostileFamilies()) {
        if (isWanted(family.name)) {
            MeasureTwice(family, "", AskEverything, bytes);
            MeasureTwice(family, STANDARD, AskStandard, bytes);
        }
    }
    for (const Family& family : STANDARD_FAMILIES) {
        if (isWanted(family.name)) {
            MeasureTwice(family, STANDARD, AskStandard, bytes);
        }
    }
    for (const Routine& routine : ROUTINES) {
        if (isWanted(routine.family.name)) {
            MeasureTwice(routine.family, "", routine.run, bytes / 8);
        }
    }
}
