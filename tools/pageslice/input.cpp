// SPDX-License-Identifier: MIT
#include "input.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>
#include <utility>

#include "failure.h"

#ifndef _WIN32
#include <poll.h>
#endif
#ifdef __linux__
#include <sys/resource.h>
#endif
#include <unistd.h>

namespace program {
namespace {

constexpr std::size_t CHUNK = std::size_t{1} << 16;

struct Closer {
    void operator()(std::FILE* pFile) const noexcept {
        if (pFile != stdin) {
            static_cast<void>(std::fclose(pFile)); // nothing was written: nothing can be lost
        }
    }
};
using File = std::unique_ptr<std::FILE, Closer>;

[[noreturn]] void fail(int code) {
    throw Failure{std::generic_category().message(code)};
}

#ifdef __linux__
// The lowest limit that a control group sets: the program's own one, and inside a container the root's.
std::uintmax_t controlGroupMemory() {
    std::ifstream groups("/proc/self/cgroup");
    std::uintmax_t least = SIZE_MAX;
    const auto look = [&least](const std::string& file) {
        std::uintmax_t limit = 0;
        if (std::ifstream(file) >> limit) { // "max" is no number
            least = std::min(least, limit);
        }
    };
    for (std::string line; std::getline(groups, line);) {
        const std::size_t path = line.find(':', line.find(':') + 1) + 1;
        const bool isSecond = line.compare(0, 3, "0::") == 0; // version
        const bool isMemory = line.find(":memory:") != std::string::npos;
        std::string group = isSecond || isMemory ? line.substr(path) : "/";
        const std::string root = isSecond ? "/sys/fs/cgroup" : "/sys/fs/cgroup/memory";
        const std::string name = isSecond ? "/memory.max" : "/memory.limit_in_bytes";
        for (;; group.erase(group.rfind('/'))) { // each group keeps to those around it
            std::string file = root;
            look(file.append(group == "/" ? "" : group).append(name));
            if (group.empty() || group == "/") {
                break;
            }
        }
    }
    return least;
}
#endif

// SIZE_MAX where nobody says.
std::uintmax_t machineMemory() {
#ifdef _WIN32
    return SIZE_MAX;
#else
    const long pages = sysconf(_SC_PHYS_PAGES);
    const std::uintmax_t all =
        pages > 0 ? static_cast<std::uintmax_t>(pages) * static_cast<std::uintmax_t>(getpagesize())
                  : SIZE_MAX;
#ifdef __linux__
    return std::min(all, controlGroupMemory());
#else
    return all;
#endif
#endif
}

// Systems that hand out more memory than there is must not be taken at their word.
std::uintmax_t memoryForOnePage() {
    return machineMemory() / 2;
}

File open(const std::filesystem::path& path) {
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) {
        fail(EISDIR);
    }
#ifdef _WIN32
    File file(_wfopen(path.c_str(), L"rb"));
#else
    File file(std::fopen(path.c_str(), "rb"));
#endif
    if (file == nullptr) {
        fail(errno);
    }
    return file;
}

// How many bytes to make room for. Files that do not know their size (pipes, devices) say 0.
std::uintmax_t sizeHint(const std::string& name) {
    std::error_code error;
    const std::uintmax_t size = name == "-" ? 0 : std::filesystem::file_size(pathOf(name), error);
    return error ? 0 : size;
}

void readRest(std::FILE* pFile, std::uintmax_t expected, Bytes& bytes) {
    static const std::uintmax_t limit = memoryForOnePage();
    if (expected > limit || expected > SIZE_MAX / 2) {
        throw std::bad_alloc();
    }
    // One byte more than expected, so that the first read already meets the end.
    for (std::size_t step = static_cast<std::size_t>(expected) + 1;; step = CHUNK) {
        const std::size_t got = std::fread(bytes.room(step), 1, step, pFile);
        bytes.commit(got);
        if (got < step) {
            return;
        }
        if (bytes.size() > limit) {
            throw std::bad_alloc();
        }
    }
}

// Adds a piece to a line, or drops the line.
LineReader::Got append(Bytes& line, std::string_view piece, std::size_t limit) {
    auto trouble = LineReader::Got::tooLongLine;
    if (piece.size() <= limit - line.size()) {
        try {
            line.append(piece);
            return LineReader::Got::line;
        } catch (const std::bad_alloc&) {
            trouble = LineReader::Got::tooLargeForMemory;
        }
    }
    line.release();
    return trouble;
}

// Whether a read of standard input would give something at once.
bool hasInput() {
#ifdef _WIN32
    return false; // nobody says so for all kinds of input
#else
    pollfd ready = {STDIN_FILENO, POLLIN, 0};
    return poll(&ready, 1, 0) > 0;
#endif
}

bool canTryAgain() {
#ifndef _WIN32
    if (errno == EAGAIN || errno == EWOULDBLOCK) { // whoever shares the pipe has made it so
        pollfd ready = {STDIN_FILENO, POLLIN, 0};
        return poll(&ready, 1, -1) >= 0 || errno == EINTR;
    }
#endif
    return errno == EINTR;
}

} // namespace

std::filesystem::path pathOf(const std::string& name) {
#ifdef _WIN32
    return std::u8string(name.begin(), name.end());
#else
    return name;
#endif
}

void limitMemory() {
#ifdef __linux__
    std::ifstream statm("/proc/self/statm");
    std::uintmax_t pages = 0;
    for (int field = 0; field < 6; ++field) {
        statm >> pages; // the last one is what the limit counts
    }
    const std::uintmax_t most = machineMemory() / 4 * 3;
    rlimit limit = {};
    // A program that was built to watch its memory has asked for much more already, and uses little of it.
    if (statm && pages * static_cast<std::uintmax_t>(getpagesize()) < most &&
        getrlimit(RLIMIT_DATA, &limit) == 0 && limit.rlim_cur > most) {
        limit.rlim_cur = static_cast<rlim_t>(most);
        static_cast<void>(setrlimit(RLIMIT_DATA, &limit)); // without it, all goes on as before
    }
#endif
}

std::size_t threadsThatFit(std::size_t wanted) {
#ifdef __linux__
    rlimit memory = {};
    rlimit stack = {};
    if (getrlimit(RLIMIT_DATA, &memory) == 0 && getrlimit(RLIMIT_STACK, &stack) == 0 &&
        stack.rlim_cur != RLIM_INFINITY && stack.rlim_cur != 0) {
        const rlim_t fitting = std::max<rlim_t>(memory.rlim_cur / 4 / stack.rlim_cur, 1);
        return static_cast<std::size_t>(std::min<rlim_t>(fitting, wanted));
    }
#endif
    return wanted;
}

void readAll(const std::string& name, Bytes& bytes) {
    bytes.clear();
    try {
        const File file = name == "-" ? File(stdin) : open(pathOf(name));
        readRest(file.get(), sizeHint(name), bytes);
        if (std::ferror(file.get()) != 0) {
            fail(errno);
        }
    } catch (const std::bad_alloc&) {
        bytes.release();
        throw Failure{NO_MEMORY};
    }
}

LineReader::LineReader(std::function<void(bool)> setWaiting) : tellWaiting(std::move(setWaiting)) {
    buffer.room(CHUNK);
}

LineReader::Got LineReader::next(Bytes& line, std::size_t limit) {
    line.clear();
    for (Got got = Got::nothing;;) {
        if (used == buffer.size()) {
            fill();
        }
        if (buffer.empty()) {
            return got;
        }
        const std::size_t end = std::min(buffer.view().find('\n', used), buffer.size());
        if (got == Got::nothing || got == Got::line) {
            got = append(line, buffer.view().substr(used, end - used), limit);
        }
        used = std::min(end + 1, buffer.size());
        if (end != buffer.size()) {
            return got;
        }
    }
}

void LineReader::fill() {
    buffer.clear();
    used = 0;
    const bool waits = !hasInput();
    if (waits) {
        tellWaiting(true);
    }
    std::ptrdiff_t got = 0;
    do {
        got = read(STDIN_FILENO, buffer.room(CHUNK), CHUNK);
    } while (got < 0 && canTryAgain());
    if (waits) {
        tellWaiting(false);
    }
    hasFailed = got < 0;
    buffer.commit(got > 0 ? static_cast<std::size_t>(got) : 0);
}

} // namespace program
