#include "input.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>
#include <system_error>

#ifdef __linux__
#include <sys/resource.h>
#endif
#include <unistd.h>

namespace pageslice {
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
    throw std::runtime_error(std::generic_category().message(code));
}

// SIZE_MAX where nobody says.
std::uintmax_t machineMemory() {
#ifdef _WIN32
    return SIZE_MAX;
#else
    const long pages = sysconf(_SC_PHYS_PAGES);
    return pages > 0 ? static_cast<std::uintmax_t>(pages) * static_cast<std::uintmax_t>(getpagesize())
                     : SIZE_MAX;
#endif
}

// Systems that hand out more memory than there is must not be taken at their word. Growing by doubling, the
// old and the new buffer together stay within this too.
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

std::string readRest(std::FILE* pFile, std::uintmax_t expected) {
    const std::uintmax_t limit = memoryForOnePage();
    if (expected > limit || expected > SIZE_MAX / 2) {
        throw std::bad_alloc();
    }
    std::string bytes;
    // One byte more than expected, so that the first read already meets the end.
    for (std::size_t step = static_cast<std::size_t>(expected) + 1;; step = CHUNK) {
        const std::size_t before = bytes.size();
        bytes.resize(before + step);
        const std::size_t got = std::fread(bytes.data() + before, 1, step, pFile);
        bytes.resize(before + got);
        if (got < step) {
            return bytes;
        }
        if (bytes.size() > limit) {
            throw std::bad_alloc();
        }
    }
}

// Adds a piece to a line, or drops the line.
LineReader::Got append(std::string& line, std::string_view piece, std::size_t limit) {
    auto trouble = LineReader::Got::tooLongLine;
    if (piece.size() <= limit - line.size()) {
        try {
            line += piece;
            return LineReader::Got::line;
        } catch (const std::bad_alloc&) {
            trouble = LineReader::Got::tooLargeForMemory;
        }
    }
    std::string().swap(line);
    return trouble;
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

std::string readAll(const std::string& name) {
    try {
        const File file = name == "-" ? File(stdin) : open(pathOf(name));
        std::string bytes = readRest(file.get(), sizeHint(name));
        if (std::ferror(file.get()) != 0) {
            fail(errno);
        }
        return bytes;
    } catch (const std::bad_alloc&) {
        throw std::runtime_error("Too large to hold in memory");
    }
}

LineReader::LineReader() {
    buffer.reserve(CHUNK);
}

LineReader::Got LineReader::next(std::string& line, std::size_t limit) {
    line.clear();
    for (Got got = Got::nothing;;) {
        if (used == buffer.size()) {
            fill();
        }
        if (buffer.empty()) {
            return got;
        }
        const std::size_t end = std::min(buffer.find('\n', used), buffer.size());
        if (got == Got::nothing || got == Got::line) {
            got = append(line, std::string_view(buffer).substr(used, end - used), limit);
        }
        used = std::min(end + 1, buffer.size());
        if (end != buffer.size()) {
            return got;
        }
    }
}

void LineReader::fill() {
    buffer.resize(CHUNK);
    const auto got = read(STDIN_FILENO, buffer.data(), CHUNK);
    hasFailed = got < 0;
    buffer.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    used = 0;
}

} // namespace pageslice
