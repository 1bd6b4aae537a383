// SPDX-License-Identifier: MIT
// The three standard streams: what they are connected to, and what is said on standard error.
#ifndef PAGESLICE_TOOLS_CONSOLE_H
#define PAGESLICE_TOOLS_CONSOLE_H

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace program {

// Messages and the progress line. Used by one thread at a time.
class Console {
public:
    // Puts the standard streams into binary mode: pages are bytes. Until the end, a Windows console takes
    // UTF-8. There is one console at a time.
    Console();
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    bool inputIsTerminal() const { return inTerminal; }
    bool outputIsTerminal() const { return outTerminal; }
    // What "auto" means: on a terminal that knows them, unless the environment says NO_COLOR.
    bool colours() const { return outColours; }

    // One line, "pageslice: what: why", on which nothing acts that a name may hold. Takes no memory.
    void error(std::string_view what, std::string_view why);
    bool hadErrors() const { return errors; }
    // Says how far the work is; only where standard error is a terminal that results do not go to. A total
    // of 0 is not known.
    void progress(std::size_t done, std::size_t total);

private:
    void clearProgress();

    bool inTerminal = false;
    bool outTerminal = false;
    bool outColours = false;
    bool showsProgress = false;
    bool progressStands = false;
    bool errors = false;
    std::chrono::steady_clock::time_point lastProgress;
};

} // namespace program

#endif
