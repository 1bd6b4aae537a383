// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <functional>
#include <new>
#include <optional>
#include <string>
#include <string_view>

#include "batch.h"
#include "bytes.h"
#include "failure.h"
#include "input.h"
#include "ordered.h"
#include "page.h"
#include "printers.h"
#include "report.h"

namespace program {
namespace {

// What the threads share.
struct Files {
    const Options& options;
    const std::vector<std::string>& names;
    Console& console;
    Output& output;
    std::size_t next = 0;
    std::size_t done = 0;
    bool isFirst = true; // whether no report went out yet
};

// Reads files and reports on them, with memory that serves file after file.
class FileWorker {
public:
    explicit FileWorker(Files& shared)
        : files(shared), report([this](std::string_view piece) {
              awaitTurn();
              write(piece);
          }) {}

    FileWorker(const FileWorker&) = delete; // its report knows where it stands
    FileWorker& operator=(const FileWorker&) = delete;

    bool next() {
        if (files.output.failed() || files.next == files.names.size()) {
            return false;
        }
        pName = &files.names[files.next++];
        return true;
    }

    void work(const std::function<void()>& myTurn) {
        awaitTurn = myTurn;
        failure.reset();
        isBegun = false;
        report.start();
        try {
            print();
        } catch (const std::bad_alloc&) {
            fail(Failure{NO_MEMORY});
        } catch (const Failure& other) {
            fail(other);
        }
    }

    void emit() {
        report.passRest();
        files.output.finishAnswer();
        if (failure) {
            files.console.error(*pName, failure->what());
        }
        files.console.progress(++files.done, files.names.size());
    }

private:
    // Half a report helps nobody.
    void fail(const Failure& why) {
        failure = why;
        if (!isBegun) {
            report.forget();
        }
    }

    void print() {
        const Options& options = files.options;
        readAll(*pName, bytes);
        const Page page({*pName, options.base, options.rules, options.encoding}, bytes.view());
        if (options.json) {
            failure = printAsJson(page, {}, options, report);
            return;
        }
        const std::size_t missing = printForPeople(page, options, report);
        if (missing > 0) {
            failure = Failure{"Has ", std::to_string(missing), " more, which would take too much room"};
        }
    }

    // Reports for people have an empty line between them.
    void write(std::string_view piece) {
        if (!isBegun && !files.isFirst && !files.options.json && !files.options.isBare()) {
            files.output.write("\n");
        }
        isBegun = true;
        files.isFirst = false;
        files.output.write(piece);
    }

    Files& files;
    Report report;
    std::function<void()> awaitTurn;
    const std::string* pName = nullptr;
    Bytes bytes;
    bool isBegun = false;
    std::optional<Failure> failure;
};

// The names that the command line gives, and those that it says where to find.
std::vector<std::string> namesOf(const Options& options) {
    std::vector<std::string> names = options.files;
    if (!options.fileList.empty()) {
        Bytes list;
        readAll(options.fileList, list);
        for (std::string_view rest = list.view(); !rest.empty();) {
            const std::size_t end = std::min(rest.find('\0'), rest.size());
            names.emplace_back(rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return names;
}

} // namespace

void printFiles(const Options& options, Console& console, Output& output) {
    std::vector<std::string> names;
    try {
        names = namesOf(options);
    } catch (const Failure& failure) {
        console.error(options.fileList, failure.what());
        return;
    }
    Files files{options, names, console, output};
    inOrder(threadsThatFit(std::min(options.jobs, names.size())), [&] { return FileWorker(files); });
}

} // namespace program
