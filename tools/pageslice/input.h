// Where pages come from.
#ifndef PAGESLICE_TOOLS_INPUT_H
#define PAGESLICE_TOOLS_INPUT_H

#include <cstddef>
#include <string>

namespace pageslice {

// Sees to it that allocations fail before they take all memory of the machine: the system would end the
// program without a word instead, since it hands out more than there is.
void limitMemory();

// All bytes of a file, or of standard input for "-", whatever they are. Throws std::runtime_error, whose
// message says in a few words why the page cannot be had; a page that would take more than half of the
// machine's memory is refused before it does.
std::string readAll(const std::string& name);

// Standard input line by line. Takes what is there instead of waiting until a buffer is full, which the
// standard streams of some systems do.
class LineReader {
public:
    // Without its line end; false at the end of the input. Of a line beyond `limit` bytes the first ones are
    // kept and the rest is skipped.
    bool next(std::string& line, std::size_t limit);
    bool failed() const { return hasFailed; }

private:
    bool hasFailed = false;
    std::string buffer;
    std::size_t used = 0; // of the buffer
};

} // namespace pageslice

#endif
