// pageslice: shows what HTML pages hold.
#include <exception>
#include <iostream>
#include <string>

#include "input.h"
#include "options.h"
#include "page.h"
#include "printers.h"

namespace pageslice {
namespace {

int run(const Options& options) {
    int code = EXIT_ALL_WELL;
    for (const std::string& name : options.files) {
        try {
            const std::string bytes = readAll(name);
            const Page page = readPage(name, bytes, options.base, options.shows(SECTION_TEXT));
            std::cout << printForPeople(page, options, false);
        } catch (const std::exception& error) {
            std::cerr << "pageslice: " + name + ": " + error.what() + "\n";
            code = EXIT_SOME_FAILED;
        }
    }
    if (!std::cout.flush()) {
        std::cerr << "pageslice: cannot write to standard output\n";
        code = EXIT_SOME_FAILED;
    }
    return code;
}

} // namespace
} // namespace pageslice

int main(int argc, char** argv) {
    pageslice::Options options;
    pageslice::useBinaryStandardStreams();
    const auto code = pageslice::parseOptions(argc, argv, options);
    return code ? *code : pageslice::run(options);
}
