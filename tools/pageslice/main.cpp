// pageslice: shows what HTML pages hold.
#include <iostream>

#include "batch.h"
#include "console.h"
#include "input.h"
#include "options.h"

int main(int argc, char** argv) {
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
