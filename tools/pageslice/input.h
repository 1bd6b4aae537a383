// Where pages come from.
#ifndef PAGESLICE_TOOLS_INPUT_H
#define PAGESLICE_TOOLS_INPUT_H

#include <cstddef>
#include <string>

namespace pageslice {

// All bytes of a file, or of standard input for "-", whatever they are. Throws std::runtime_error, whose
// message says in a few words why the page cannot be had; a page that would take more than half of the
// machine's memory is refused before it does.
std::string readAll(const std::string& name);

// The next line of standard input, without its line end. False at the end of the input. Of a line beyond
// `limit` bytes the first ones are kept and the rest is skipped.
bool readLine(std::string& line, std::size_t limit);

} // namespace pageslice

#endif
