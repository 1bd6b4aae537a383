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
constexpr std::size_t MOST_AT_ONCE = 64;                // lines to a job

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

// A line, and what became of it.
struct Line {
    Bytes bytes;
    LineReader::Got got = LineReader::Got::nothing;
    std::size_t number = 0; // from 1
    std::optional<Failure> failure;
};

// Reads lines and answers them, with memory that serves line after line. Short lines that have come together
// are one job: handing each to a thread of its own takes longer than to answer it.
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
        count = 0;
        if (stream.output.failed()) {
            return false;
        }
        do {
            Line& line = lines[count];
            line.got = stream.input.next(line.bytes, LINE_LIMIT);
            if (line.got == LineReader::Got::nothing) {
                break;
            }
            line.number = ++stream.lines;
            ++count;
        } while (count < lines.size() && stream.input.hasWholeLine());
        return count != 0;
    }

    void work(const std::function<void()>& myTurn) {
        awaitTurn = myTurn;
        for (std::size_t i = 0; i < count; ++i) {
            work(lines[i]);
        }
    }

    void emit() {
        report.passRest();
        stream.output.finishAnswer();
        for (std::size_t i = 0; i < count; ++i) {
            if (lines[i].failure) {
                complain(lines[i]);
            }
            stream.console.progress(++stream.answers, 0);
        }
    }

private:
    void work(Line& line) {
        line.failure.reset();
        request = {};
        report.start();
        asked.line = line.number;
        try {
            answer(line);
        } catch (const std::bad_alloc&) {
            line.failure = Failure{NO_MEMORY};
        } catch (const Failure& other) {
            line.failure = other;
        }
        if (line.failure && report.size() == 0) {
            asked.id = request.id;
            printErrorAsJson(asked, line.failure->what(), stream.options, report);
        }
        if (line.bytes.size() > KEPT_ROOM) {
            line.bytes.release();
        }
        if (repaired.size() > KEPT_ROOM) {
            repaired.release();
        }
    }

    void answer(Line& line) {
        if (line.got == LineReader::Got::tooLongLine) {
            throw Failure{"Longer than 256 MiB"};
        }
        if (line.got == LineReader::Got::tooLargeForMemory) {
            throw std::bad_alloc();
        }
        readRequest(line.bytes, repaired, request);
        asked.id = request.id;
        asked.isRepaired = request.isRepaired;
        Source source;
        source.url = request.url.empty() ? std::string_view(stream.options.base) : request.url;
        source.rules = stream.options.rules;
        source.encoding = "UTF-8"; // whatever the page says of itself: JSON is
        const Page page(source, request.html);
        line.failure = printAsJson(page, asked, stream.options, report);
    }

    void complain(const Line& line) {
        std::array<char, 32> name = {'l', 'i', 'n', 'e', ' '};
        const auto end = std::to_chars(name.data() + 5, name.data() + name.size(), line.number);
        stream.console.error({name.data(), static_cast<std::size_t>(end.ptr - name.data())},
                             line.failure->what());
    }

    Stream& stream;
    Report report;
    std::function<void()> awaitTurn;
    std::array<Line, MOST_AT_ONCE> lines;
    std::size_t count = 0; // of the lines
    Bytes repaired;
    Request request;
    Asked asked;
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
