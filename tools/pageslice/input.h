// SPDX-License-Identifier: MIT
// Where pages come from.
#ifndef PAGESLICE_TOOLS_INPUT_H
#define PAGESLICE_TOOLS_INPUT_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "bytes.h"

namespace program {

// Sees to it that allocations fail before they take all memory of the machine: the system would end the
// program without a word instead, since it hands out more than there is.
void limitMemory();

// Of so many threads, at least one, those whose stacks leave most of the memory to the pages: a stack counts
// as a whole, however little of it is used.
std::size_t threadsThatFit(std::size_t wanted);

// The path that an argument names. Arguments are UTF-8 on Windows, where a path made of them without this
// would take each byte for a character.
std::filesystem::path pathOf(const std::string& name);

// All bytes of a file, or of standard input for "-", whatever they are. Throws Failure, which says in a few
// words why the page cannot be had; a page that would take more than half of the machine's memory is refused
// before it does.
void readAll(const std::string& name, Bytes& bytes);

// Standard input line by line. Takes what is there instead of waiting until a buffer is full, which the
// standard streams of some systems do.
class LineReader {
public:
    enum class Got { nothing, line, tooLongLine, tooLargeForMemory };

    // `setWaiting` is told true before the input is waited for, and false when it has come. Allocates.
    explicit LineReader(std::function<void(bool)> setWaiting);
    // Gives the next line without its line end, or nothing at the end of the input. A line of more than
    // `limit` bytes, and one that memory cannot hold, is skipped and comes as an empty one. Does not throw.
    Got next(Bytes& line, std::size_t limit);
    // Whether the next line has come already, all of it.
    bool hasWholeLine() const { return buffer.view().find('\n', used) != std::string_view::npos; }
    bool failed() const { return hasFailed; }

private:
    void fill();

    std::function<void(bool)> tellWaiting;
    bool hasFailed = false;
    Bytes buffer;
    std::size_t used = 0; // of the buffer
};

} // namespace program

#endif
