// SPDX-License-Identifier: MIT
#include "options.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <map>
#include <numeric>
#include <sstream>
#include <string_view>

#include <CLI/CLI.hpp>

#include "display.h"
#include "pageslice/pageslice_c.h"

namespace program {
namespace {

void addSections(CLI::App& app, unsigned& sections) {
    const auto add = [&](const char* flag, unsigned section, const char* what) {
        app.add_flag(
               flag, [&sections, section](std::int64_t) { sections |= section; }, what)
            ->group("Sections (without one: all but the text)");
    };
    add("-t,--title", SECTION_TITLE, "The title");
    add("-l,--links", SECTION_LINKS, "Links with their texts");
    add("-i,--images", SECTION_IMAGES, "Images with their alternative texts");
    add("-e,--items", SECTION_ITEMS, "Texts of list items");
    add("-c,--cells", SECTION_CELLS, "Texts of table cells");
    add("-x,--text", SECTION_TEXT, "The plain text");
    add("-a,--all", SECTIONS_ALL, "All of these");
}

// 0 for what is no decimal number.
std::size_t decimal(const std::string& given) {
    std::size_t number = 0;
    const char* const pEnd = given.data() + given.size();
    const auto parsed = std::from_chars(given.data(), pEnd, number);
    return parsed.ptr == pEnd && parsed.ec == std::errc() ? number : 0;
}

void addInput(CLI::App& app, Options& options) {
    const std::string group = "How pages are read";
    const std::map<std::string, pageslice::rules> rules = {{"classic", pageslice::rules::classic},
                                                           {"standard", pageslice::rules::standard}};
    app.add_option("FILE", options.files, "Pages to read; - is standard input, and so is none")
        ->type_name(" ");
    app.add_option("--files0-from", options.fileList,
                   "Read the names of more pages from F, each ended by NUL")
        ->type_name("F")
        ->group(group);
    app.add_option("-b,--base", options.base, "The page's URL: print links and images absolute")
        ->type_name("URL")
        ->group(group);
    app.add_option("-r,--rules", options.rules, "classic, or standard: as browsers read pages")
        ->transform(CLI::Transformer(rules).description(""))
        ->type_name("RULES")
        ->group(group);
    app.add_option("-E,--encoding", options.encoding, "The pages' encoding, whatever they say themselves")
        ->type_name("LABEL")
        ->group(group);
    app.add_option_function<std::string>(
           "-P,--jobs", [&options](const std::string& given) { options.jobs = decimal(given); },
           "Work on N pages at once; the order of the output stays")
        ->type_name("N")
        ->group(group);
}

void addOutput(CLI::App& app, Options& options) {
    const std::string group = "How the report comes";
    const auto flag = [&](const char* name, bool& value, const char* what) {
        app.add_flag(name, value, what)->group(group);
    };
    flag("-j,--json", options.json, "One JSON object for each page, one a line");
    flag("-s,--stream", options.stream,
         "JSON lines {\"url\": ..., \"html\": ...} in, JSON lines out, each at once");
    app.add_option("-A,--annotate", options.annotated,
                   "Write a page that shows FILE with its slices coloured")
        ->type_name("OUT.html")
        ->group(group);
    flag("-n,--count", options.count, "Only how many there are, of each section asked for");
    flag("-d,--decode", options.decode, "Bare lines without markup and character references");
    flag("-H,--with-filename", options.withFilename, "The file's name before each bare line");
    app.add_flag(
           "-0,--null", [&options](std::int64_t) { options.lineEnd = '\0'; }, "End bare lines by NUL")
        ->group(group);
    app.add_option("--color", options.color, "auto, always or never")
        ->check(CLI::IsMember({"auto", "always", "never"}).description(""))
        ->type_name("WHEN")
        ->group(group);
}

// By the URL Standard, an absolute URL is one that needs no base.
bool isAbsolute(const std::string& url) {
    std::string ignored;
    const int code = pageslice::resolve_standard_into(ignored, {}, url);
    return code == PAGESLICE_OK || code == PAGESLICE_NEEDS_IDNA;
}

// An unknown label counts for nothing: then the page's own word does.
bool isEncoding(const std::string& label) {
    const auto with = [&](std::string_view page) {
        pageslice::options options;
        options.encoding = label;
        return pageslice::page(page, options).encoding();
    };
    return with("<meta charset=utf-8>") == with("<meta charset=koi8-r>");
}

// What the parser cannot see.
void check(const Options& options) {
    const auto refuse = [](bool wrong, const char* option, const char* why) {
        if (wrong) {
            throw CLI::ValidationError(option, why);
        }
    };
    const bool onlyInput = options.files == std::vector<std::string>{"-"};
    refuse(options.stream && (!onlyInput || !options.fileList.empty()), "--stream",
           "reads standard input and takes no FILE");
    refuse(options.stream && !options.encoding.empty(), "--encoding",
           "does not go with --stream, which is UTF-8");
    if (options.files.empty() && options.fileList.empty()) {
        throw CLI::RequiredError("FILE");
    }
    const bool single = options.files.size() == 1 && options.fileList.empty();
    refuse(!options.annotated.empty() && (!single || options.stream || options.json), "--annotate",
           "takes exactly one FILE and neither --json nor --stream");
    refuse(options.jobs < 1 || options.jobs > 256, "--jobs", "takes 1 to 256");
    refuse(!options.base.empty() && !isAbsolute(options.base), "--base", "takes an absolute URL");
    refuse(options.base.size() > 8192, "--base", "takes up to 8 KiB");
    refuse(!options.encoding.empty() && !isEncoding(options.encoding), "--encoding",
           "takes a name of an encoding");
    refuse(options.decode && (!options.isBare() || options.count), "--decode",
           "is for one section alone, as bare lines");
}

// How many letters one has to change, add or leave out.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char letter : a) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (letter == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

// The known option that is most like an unknown one; empty where none is near.
std::string nearest(const CLI::App& app, const std::string& unknown) {
    const std::string name = unknown.substr(0, unknown.find('='));
    std::string best;
    std::size_t least = name.size() < 24 && name.size() > 3 ? 4 : 0;
    for (const CLI::Option* const pOption : app.get_options()) {
        for (const std::string& known : pOption->get_lnames()) {
            const std::size_t far = distance(name, "--" + known);
            const bool begins = ("--" + known).rfind(name, 0) == 0;
            if (far < least || (begins && least != 0)) {
                least = begins ? 0 : far;
                best = "--" + known;
            }
        }
    }
    return best;
}

std::string complaint(const CLI::App* pApp, const CLI::Error& error) {
    std::string said = std::string("pageslice: ") + error.what();
    if (const std::size_t end = said.find(" was given a disallowed flag override");
        end != std::string::npos) {
        const std::size_t name = said.find(' ') + 1;
        said.resize(end);
        said.insert(name, "--").append(" takes no value");
    }
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) {
        const std::vector<std::string> unknown = pApp->remaining();
        const std::string known = unknown.empty() ? "" : nearest(*pApp, unknown.front());
        said = "pageslice: There is no option " + (unknown.empty() ? "" : unknown.front());
        said += known.empty() ? "" : "; did you mean " + known + '?';
    }
    return withMarks(oneLine(said, Markup::keep)) + " (pageslice --help tells more)\n";
}

constexpr const char* FOOTER = R"(
One section alone comes as bare lines for other programs.

Examples:
  pageslice page.html                          what the page holds
  pageslice --links --base http://h/ *.html    URL TAB text, a line for each link
  curl -s http://h/ | pageslice --rules standard --title --decode
  pageslice --json --all page.html | jq .links
  pageslice --annotate out.html page.html      a page to look at

Exit status: 0 all well, 1 some input failed, 2 wrong usage.
)";

} // namespace

std::optional<int> parseOptions(int argc, char** argv, const Console& console, Output& output,
                                Options& options) {
    CLI::App app("Shows what HTML pages hold.", "pageslice");
    addSections(app, options.sections);
    addInput(app, options);
    addOutput(app, options);
    app.set_version_flag("-V,--version", std::string("pageslice ") + pageslice_version_string());
    for (CLI::Option* const pOption : app.get_options()) {
        if (pOption->get_expected_max() == 0) {
            pOption->disable_flag_override(); // what is given with '=' would else be its value
        }
    }
    app.footer(FOOTER);
    app.allow_windows_style_options(false); // /name is a path there too
    app.get_formatter()->column_width(28);
    app.failure_message(complaint);
    try {
        app.parse(argc, argv);
        if (options.files.empty() && options.fileList.empty() &&
            (options.stream || !console.inputIsTerminal())) {
            options.files.emplace_back("-");
        }
        if (options.sections == 0) {
            options.sections = options.annotated.empty() ? SECTIONS_BY_DEFAULT : SECTIONS_ALL;
        }
        check(options);
    } catch (const CLI::ParseError& error) {
        std::ostringstream help;
        std::ostringstream complaints;
        const int code = app.exit(error, help, complaints);
        output.write(help.str());
        static_cast<void>(std::fputs(complaints.str().c_str(), stderr));
        return code == 0 ? EXIT_ALL_WELL : EXIT_WRONG_USAGE;
    }
    return std::nullopt;
}

} // namespace program
