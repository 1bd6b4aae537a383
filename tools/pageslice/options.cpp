#include "options.h"

#include <cstdint>

#include <CLI/CLI.hpp>

namespace pageslice {
namespace {

void addSections(CLI::App& app, unsigned& sections) {
    const auto add = [&](const char* flag, unsigned section, const char* what) {
        app.add_flag(
               flag, [&sections, section](std::int64_t) { sections |= section; }, what)
            ->group("Sections (without one: all but the text)");
    };
    add("--title", SECTION_TITLE, "The title");
    add("--links", SECTION_LINKS, "Links with their texts");
    add("--images", SECTION_IMAGES, "Images with their alternative texts");
    add("--items", SECTION_ITEMS, "Texts of list items");
    add("--cells", SECTION_CELLS, "Texts of table cells");
    add("--text", SECTION_TEXT, "The plain text");
    add("--all", SECTIONS_ALL, "All of these");
}

// What the parser cannot see.
void check(const Options& options) {
    const bool onlyInput = options.files.empty() || options.files == std::vector<std::string>{"-"};
    if (options.stream && !onlyInput) {
        throw CLI::ValidationError("--stream", "reads standard input and takes no FILE");
    }
    if (!options.stream && options.files.empty()) {
        throw CLI::RequiredError("FILE");
    }
    if (!options.annotated.empty() && (options.files.size() != 1 || options.stream || options.json)) {
        throw CLI::ValidationError("--annotate", "takes exactly one FILE and neither --json nor --stream");
    }
    if (options.jobs < 1 || options.jobs > 256) {
        throw CLI::ValidationError("--jobs", "takes 1 to 256");
    }
}

} // namespace

std::optional<int> parseOptions(int argc, char** argv, Options& options) {
    CLI::App app("Shows what HTML pages hold. One section alone comes as bare lines for other programs.",
                 "pageslice");
    app.add_option("FILE", options.files, "Pages to read; - is standard input")->type_name(" ");
    addSections(app, options.sections);
    app.add_option("--base", options.base, "The page's URL: print links and images absolute")
        ->type_name("URL");
    app.add_flag("--json", options.json, "One JSON object for each page, one a line");
    app.add_flag("--stream", options.stream,
                 "JSON lines {\"url\": ..., \"html\": ...} in, JSON lines out, each at once");
    app.add_option("--jobs", options.jobs, "Work on N pages at once; the order of the output stays")
        ->type_name("N");
    app.add_option("--annotate", options.annotated, "Write a page that shows FILE with its slices coloured")
        ->type_name("OUT.html");
    app.set_version_flag("--version", "pageslice " PAGESLICE_VERSION);
    app.footer("Exit status: 0 all well, 1 some input failed, 2 wrong usage.\n");
    app.allow_windows_style_options(false); // /name is a path there too
    app.get_formatter()->column_width(22);
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return std::string("pageslice: ") + error.what() + " (pageslice --help tells more)\n";
    });
    try {
        app.parse(argc, argv);
        check(options);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EXIT_ALL_WELL : EXIT_WRONG_USAGE;
    }
    if (options.sections == 0) {
        options.sections = SECTIONS_BY_DEFAULT;
    }
    return std::nullopt;
}

} // namespace pageslice
