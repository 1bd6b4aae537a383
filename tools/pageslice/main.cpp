// pageslice: shows what HTML pages hold.
#include <iostream>

#ifdef _WIN32
#include <string>
#include <vector>

#include <windows.h>
#endif

#include "batch.h"
#include "console.h"
#include "input.h"
#include "options.h"

namespace {

int run(int argc, char** argv) {
    using namespace pageslice;
    Options options;
    if (const auto code = parseOptions(argc, argv, options)) {
        return *code;
    }
    limitMemory();
    Console console;
    options.toTerminal = console.outputIsTerminal();
    options.colours = console.colours();
    if (options.stream) {
        printStream(options, console);
    } else if (!options.annotated.empty()) {
        annotateFile(options, console);
    } else {
        printFiles(options, console);
    }
    if (!std::cout.flush()) {
        console.error("standard output", "Cannot be written");
    }
    return console.hadErrors() ? EXIT_SOME_FAILED : EXIT_ALL_WELL;
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
