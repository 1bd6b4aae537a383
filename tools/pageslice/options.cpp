#include "options.h"

#include <CLI/CLI.hpp>

namespace pageslice {

std::optional<int> parseOptions(int argc, char** argv, Options& options) {
    CLI::App app("Shows what HTML pages hold: title, links, images, list items, table cells, plain text.",
                 "pageslice");
    bool text = false;
    app.add_option("FILE", options.files, "Pages to read; - is standard input")->required()->type_name("");
    app.add_flag("--text", text, "Print the plain text");
    app.add_option("--base", options.base, "Print links and images absolute, as seen from URL")
        ->type_name("URL");
    app.set_version_flag("--version", "pageslice " PAGESLICE_VERSION);
    app.footer("Exit status: 0 all well, 1 some input failed, 2 wrong usage.\n");
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return std::string("pageslice: ") + error.what() + " (pageslice --help tells more)\n";
    });
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EXIT_ALL_WELL : EXIT_WRONG_USAGE;
    }
    if (text) {
        options.sections = SECTION_TEXT;
    }
    return std::nullopt;
}

} // namespace pageslice
