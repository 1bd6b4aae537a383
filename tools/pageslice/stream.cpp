// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <functional>
#include <new>
#include <optional>
#include <string_view>
#include <utility>

#include "batch.h"
#include "bytes.h"
#include "failure.h"
#include "input.h"
#include "ordered.h"
#include "page.h"
#include "printers.h"
#include "report.h"
#include "request.h"

namespace program {
namespace {

constexpr std::size_t LINE_LIMIT = std::size_t{256} << 20;
constexpr std::size_t KEPT_ROOM = std::size_t{4} << 20; // of a line's memory for the next one

// What the threads of a stream share.
struct Stream {
    Stream(const Options& wanted, Console& told, Output& written)
        : options(wanted), console(told), output(written),
          input([this](bool waits) { output.setAwaited(waits); }) {}

    const Options& options;
    Console& console;
    Output& output;
    LineReader input;
    std::size_t lines = 0;
    std::size_t answers = 0;
};

// Reads lines and answers them, with memory that serves line after line.
class StreamWorker {
public:
    explicit StreamWorker(Stream& shared)
        : stream(shared), report([this](std::string_view piece) {
              awaitTurn();
              stream.output.write(piece);
          }) {}

    StreamWorker(const StreamWorker&) = delete; // its report knows where it stands
    StreamWorker& operator=(const StreamWorker&) = delete;

    bool next() {
        if (stream.output.failed()) {
            return false;
        }
        asked.line = ++stream.lines;
        got = stream.input.next(line, LINE_LIMIT);
        return got != LineReader::Got::nothing;
    }

    void work(const std::function<void()>& myTurn) {
        awaitTurn = myTurn;
        failure.reset();
        request = {};
        report.start();
        try {
            answer();
        } catch (const std::bad_alloc&) {
            failure = Failure{NO_MEMORY};
        } catch (const Failure& other) {
            failure = other;
        }
        if (failure && report.size() == 0) {
            asked.id = request.id;
            printErrorAsJson(asked, failure->what(), stream.options, report);
        }
        if (line.size() > KEPT_ROOM) {
            line.release();
        }
        if (repaired.size() > KEPT_ROOM) {
            repaired.release();
        }
    }

    void emit() {
        report.passRest();
        stream.output.finishAnswer();
        if (failure) {
            std::array<char, 32> name = {'l', 'i', 'n', 'e', ' '};
            const auto end = std::to_chars(name.data() + 5, name.data() + name.size(), asked.line);
            stream.console.error({name.data(), static_cast<std::size_t>(end.ptr - name.data())},
                                 failure->what());
        }
        stream.console.progress(++stream.answers, 0);
    }

private:
    void answer() {
        if (got == LineReader::Got::tooLongLine) {
            throw Failure{"Longer than 256 MiB"};
        }
        if (got == LineReader::Got::tooLargeForMemory) {
            throw std::bad_alloc();
        }
        readRequest(line, repaired, request);
        asked.id = request.id;
        asked.isRepaired = request.isRepaired;
        Source source;
        source.url = request.url.empty() ? std::string_view(stream.options.base) : request.url;
        source.rules = stream.options.rules;
        source.encoding = "UTF-8"; // whatever the page says of itself: JSON is
        const Page page(source, request.html);
        failure = printAsJson(page, asked, stream.options, report);
    }

    Stream& stream;
    Report report;
    std::function<void()> awaitTurn;
    Bytes line;
    Bytes repaired;
    LineReader::Got got = LineReader::Got::nothing;
    Request request;
    Asked asked;
    std::optional<Failure> failure;
};

} // namespace

void printStream(const Options& options, Console& console, Output& output) {
    Stream stream(options, console, output);
    inOrder(threadsThatFit(options.jobs), [&] { return StreamWorker(stream); });
    if (stream.input.failed()) {
        console.error("standard input", "Cannot be read");
    }
}

} // namespace program
