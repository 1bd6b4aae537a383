// Where pages come from.
#ifndef PAGESLICE_TOOLS_INPUT_H
#define PAGESLICE_TOOLS_INPUT_H

#include <string>

namespace pageslice {

// Pages are bytes: no line end is translated on the way in or out. Call before the first read or write.
void useBinaryStandardStreams();

// All bytes of a file, or of standard input for "-", whatever they are. Throws std::runtime_error, whose
// message says in a few words why the page cannot be had; a page that would take more than half of the
// machine's memory is refused before it does.
std::string readAll(const std::string& name);

} // namespace pageslice

#endif
