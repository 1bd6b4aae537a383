// SPDX-License-Identifier: MIT
// pageslice: shows what HTML pages hold.
#include <cstdio>
#include <exception>
#include <optional>
#include <string>
#include <system_error>

#ifdef _WIN32
#include <vector>

#include <windows.h>
#endif

#include "batch.h"
#include "console.h"
#include "input.h"
#include "options.h"
#include "output.h"

using namespace program;

namespace {

bool wantsColours(const Options& options, const Console& console) {
    return options.color == "always" || (options.color == "auto" && console.colours());
}

int work(int argc, char** argv, Console& console, Output& output) {
    Options options;
    const std::optional<int> code = parseOptions(argc, argv, console, output, options);
    if (!code) {
        limitMemory();
        options.toTerminal = console.outputIsTerminal();
        options.colours = wantsColours(options, console);
        output.setAwaited(options.toTerminal);
        if (options.stream) {
            printStream(options, console, output);
        } else if (!options.annotated.empty()) {
            annotateFile(options, console, output);
        } else {
            printFiles(options, console, output);
        }
    }
    if (!output.flush()) {
        console.error("standard output", std::generic_category().message(output.failure()));
    }
    return console.hadErrors() ? EXIT_SOME_FAILED : code.value_or(EXIT_ALL_WELL);
}

// Whatever memory there is, the program ends with a word.
int run(int argc, char** argv) {
    static Output output;
    try {
        Console console;
        return work(argc, argv, console, output);
    } catch (const std::exception&) {
        static constexpr char SAID[] = "pageslice: Too little memory\n";
        static_cast<void>(std::fputs(SAID, stderr));
        output.flush();
        return EXIT_SOME_FAILED;
    }
}

} // namespace

#ifdef _WIN32
namespace {

std::string utf8Of(const wchar_t* pWide) {
    const auto convert = [pWide](char* pOut, int size) {
        return WideCharToMultiByte(CP_UTF8, 0, pWide, -1, pOut, size, nullptr, nullptr);
    };
    std::string utf8(static_cast<std::size_t>(convert(nullptr, 0)), '\0'); // with the NUL
    convert(utf8.data(), static_cast<int>(utf8.size()));
    return utf8;
}

} // namespace

// Has the start-up code expand *.html, which no shell does there.
extern "C" {
int _dowildcard = -1;
}

// The narrow form of the arguments could not name files outside the system's code page.
extern "C" int wmain(int argc, wchar_t** argv) {
    std::vector<std::string> utf8;
    for (int i = 0; i < argc; ++i) {
        utf8.push_back(utf8Of(argv[i]));
    }
    std::vector<char*> arguments;
    for (std::string& argument : utf8) {
        arguments.push_back(argument.data());
    }
    return run(argc, arguments.data());
}
#else
int main(int argc, char** argv) {
    return run(argc, argv);
}
#endif
