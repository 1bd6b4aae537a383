// SPDX-License-Identifier: MIT
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <new>
#include <string>
#include <system_error>
#include <vector>

#ifdef _WIN32
#include <process.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "batch.h"
#include "bytes.h"
#include "failure.h"
#include "input.h"
#include "page.h"
#include "printers.h"
#include "report.h"

namespace program {
namespace {

namespace fs = std::filesystem;

// A file that takes its name only when it is whole: until then it stands beside, under another one.
class NewFile {
public:
    explicit NewFile(const fs::path& named) : target(resolved(named)), beside(target) {
        beside += ".part" + std::to_string(getpid());
#ifdef _WIN32
        pFile = _wfopen(beside.c_str(), L"wb");
#else
        pFile = std::fopen(beside.c_str(), "wbx");
#endif
        if (pFile == nullptr) {
            fail();
        }
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    ~NewFile() {
        if (pFile != nullptr) {
            static_cast<void>(std::fclose(pFile)); // what it holds is given up
        }
        std::error_code ignored;
        fs::remove(beside, ignored); // after finish() there is none
    }

    void write(std::string_view piece) {
        if (std::fwrite(piece.data(), 1, piece.size(), pFile) != piece.size()) {
            fail();
        }
    }

    void finish() {
        const int failed = std::fclose(pFile);
        pFile = nullptr;
        if (failed != 0) {
            fail();
        }
        std::error_code error;
        const fs::file_status former = fs::status(target, error);
        if (fs::is_regular_file(former)) {
            fs::permissions(beside, former.permissions(), error);
        }
        fs::rename(beside, target, error);
        if (error) {
            throw Failure{"Cannot be written: ", error.message()};
        }
    }

private:
    [[noreturn]] static void fail() {
        throw Failure{"Cannot be written: ", std::generic_category().message(errno)};
    }

    // What a link names is written, and not the link.
    static fs::path resolved(const fs::path& named) {
        std::error_code error;
        const fs::path whole = fs::canonical(named, error);
        return error ? named : whole;
    }

    fs::path target;
    fs::path beside;
    std::FILE* pFile;
};

bool isSameFile(const std::string& input, const fs::path& target) {
#ifndef _WIN32
    struct stat in = {};
    struct stat out = {};
    if (input == "-") {
        return fstat(STDIN_FILENO, &in) == 0 && stat(target.c_str(), &out) == 0 && in.st_dev == out.st_dev &&
               in.st_ino == out.st_ino;
    }
#endif
    std::error_code ignored;
    return input != "-" && fs::equivalent(pathOf(input), target, ignored);
}

// Where nobody reads it, a pipe would be waited at for ever.
void checkTarget(const std::string& input, const fs::path& target) {
    std::error_code ignored;
    if (isSameFile(input, target)) {
        throw Failure{"Is the page itself"};
    }
    const fs::file_status status = fs::status(target, ignored);
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        throw Failure{"Is no ordinary file; - is standard output"};
    }
}

// For a page read by the classic rules: the addresses that the standard ones find. None where that fails.
std::vector<Slice> linksByStandard(Source source, std::string_view bytes) {
    std::vector<Slice> addresses;
    if (source.rules == pageslice::rules::classic) {
        source.rules = pageslice::rules::standard;
        try {
            const Page page(source, bytes);
            for (std::size_t i = 0; !page.isConverted() && i < page.links().size(); ++i) {
                addresses.push_back(page.links()[i].href);
            }
        } catch (const Failure&) { // the page itself is more important
        }
    }
    return addresses;
}

void annotate(const Options& options, Report& report) {
    Bytes bytes;
    const std::string& file = options.files.front();
    readAll(file, bytes);
    const Source source = {file, options.base, options.rules, options.encoding};
    const std::vector<Slice> standardLinks = linksByStandard(source, bytes.view());
    printAnnotated(Page(source, bytes.view()), standardLinks, options, report);
    report.passRest();
}

// What is told of `what` where the work fails.
template <class Work>
bool told(const std::string& what, Console& console, Work work) {
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        console.error(what, NO_MEMORY);
    } catch (const Failure& failure) {
        console.error(what, failure.what());
    }
    return false;
}

} // namespace

void annotateFile(const Options& options, Console& console, Output& output) {
    const std::string& file = options.files.front();
    if (options.annotated == "-") {
        Report report([&output](std::string_view piece) { output.write(piece); });
        told(file, console, [&] { annotate(options, report); });
        return;
    }
    told(options.annotated, console, [&] {
        const fs::path target = pathOf(options.annotated);
        checkTarget(file, target);
        NewFile out(target);
        Report report([&out](std::string_view piece) { out.write(piece); });
        if (told(file, console, [&] { annotate(options, report); })) {
            out.finish();
        }
    });
}

} // namespace program
