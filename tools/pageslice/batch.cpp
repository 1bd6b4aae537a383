#include "batch.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include <nlohmann/json.hpp>

#include "input.h"
#include "ordered.h"
#include "page.h"
#include "printers.h"

namespace pageslice {
namespace {

constexpr std::size_t LINE_LIMIT = std::size_t{256} << 20;
// Longer ones name no page. Without a limit, one long URL before each of many links is memory without end.
constexpr std::size_t URL_LIMIT = 8192;

struct Line {
    std::size_t number = 0;
    std::string json;
    LineReader::Got got = LineReader::Got::nothing;
};

struct Answer {
    std::string input; // what it answers, as messages name it
    std::string report;
    std::string error;
};

// Runs one piece of work; what it throws becomes the answer's error.
template <class Report>
Answer answer(const std::string& input, Report report) {
    Answer result;
    try {
        result.input = input;
        result.report = report();
    } catch (const std::bad_alloc&) {
        result.error = "Too large to hold in memory";
    } catch (const std::exception& error) {
        result.error = error.what();
    }
    return result;
}

void put(const Answer& answered, Console& console) {
    if (answered.error.empty()) {
        std::cout << answered.report;
    } else {
        console.error(answered.input, answered.error);
    }
}

bool isBlank(const std::string& line) {
    return line.find_first_not_of(" \t\r") == std::string::npos;
}

std::string takeString(nlohmann::json& object, const char* name) {
    if (!object[name].is_string()) {
        throw std::runtime_error(std::string("Its \"") + name + "\" is not a string");
    }
    return std::move(object[name].get_ref<std::string&>());
}

std::string reportOnLine(Line& line, const Options& options) {
    if (line.got == LineReader::Got::tooLongLine) {
        throw std::runtime_error("Longer than 256 MiB");
    }
    if (line.got == LineReader::Got::tooLargeForMemory) {
        throw std::bad_alloc();
    }
    nlohmann::json object;
    try {
        object = nlohmann::json::parse(line.json);
    } catch (const nlohmann::json::parse_error& error) {
        throw std::runtime_error("Not JSON from byte " + std::to_string(error.byte) + " on");
    }
    if (!object.is_object()) {
        throw std::runtime_error("Not a JSON object");
    }
    const std::string html = takeString(object, "html");
    const std::string url = object.contains("url") ? takeString(object, "url") : options.base;
    if (url.size() > URL_LIMIT) {
        throw std::runtime_error("Its \"url\" is longer than 8 KiB");
    }
    std::string().swap(line.json); // no use for it while the page is read
    return printAsJson(readPage({}, url, html, options.shows(SECTION_TEXT)), options);
}

std::string reportOnFile(const std::string& file, const Options& options) {
    const std::string bytes = readAll(file);
    const Page page = readPage(file, options.base, bytes, options.shows(SECTION_TEXT));
    return options.json ? printAsJson(page, options) : printForPeople(page, options);
}

} // namespace

void printFiles(const Options& options, Console& console) {
    std::size_t next = 0;
    std::size_t done = 0;
    const bool apart = !options.json && !options.isSingle();
    bool first = true;
    inOrder(
        threadsThatFit(std::min(options.jobs, options.files.size())),
        [&] { return next < options.files.size() ? &options.files[next++] : nullptr; },
        [&](const std::string& file) { return answer(file, [&] { return reportOnFile(file, options); }); },
        [&](const Answer& answered) {
            if (apart && !first && answered.error.empty()) {
                std::cout << '\n';
            }
            first = first && !answered.error.empty();
            put(answered, console);
            console.progress(++done, options.files.size());
        });
}

void printStream(const Options& options, Console& console) {
    LineReader input;
    std::size_t number = 0;
    std::size_t done = 0;
    inOrder(
        threadsThatFit(options.jobs),
        [&] {
            Line line;
            do {
                line.number = ++number;
                line.got = input.next(line.json, LINE_LIMIT);
            } while (line.got == LineReader::Got::line && isBlank(line.json));
            return line.got != LineReader::Got::nothing ? std::optional(std::move(line)) : std::nullopt;
        },
        [&](Line& line) {
            return answer("line " + std::to_string(line.number), [&] { return reportOnLine(line, options); });
        },
        [&](const Answer& answered) {
            put(answered, console);
            std::cout.flush();
            console.progress(++done, 0);
        });
    if (input.failed()) {
        console.error("standard input", "Cannot be read");
    }
}

void annotateFile(const Options& options, Console& console) {
    const std::string& file = options.files.front();
    const std::string& target = options.annotated;
    const std::filesystem::path targetPath = pathOf(target);
    const Answer annotated = answer(file, [&] {
        const std::string bytes = readAll(file);
        return printAnnotated(readPage(file, options.base, bytes, true));
    });
    std::error_code ignored;
    if (!annotated.error.empty() || target == "-") {
        put(annotated, console);
    } else if (std::filesystem::equivalent(pathOf(file), targetPath, ignored)) {
        console.error(target, "Is the page itself");
    } else {
        std::ofstream out(targetPath, std::ios::binary);
        if (!(out << annotated.report << std::flush)) {
            console.error(target, "Cannot be written");
        }
    }
}

} // namespace pageslice
