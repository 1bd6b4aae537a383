// The three standard streams: what they are connected to, and what is said on standard error.
#ifndef PAGESLICE_TOOLS_CONSOLE_H
#define PAGESLICE_TOOLS_CONSOLE_H

#include <chrono>
#include <cstddef>
#include <string>

namespace pageslice {

// Messages and the progress line. Used by one thread at a time.
class Console {
public:
    // Puts the standard streams into binary mode: pages are bytes. Until the end, a Windows console takes
    // UTF-8.
    Console();
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    bool outputIsTerminal() const { return outTerminal; }
    // On a terminal, unless the environment says NO_COLOR.
    bool colours() const { return outColours; }

    // One line, "pageslice: what: why".
    void error(const std::string& what, const std::string& why);
    bool hadErrors() const { return errors; }
    // Says how far the work is; only where standard error is a terminal that results do not go to. A total
    // of 0 is not known.
    void progress(std::size_t done, std::size_t total);

private:
    void clearProgress();

    unsigned formerCodePage; // of the console; 0: nothing to restore
    bool outTerminal;
    bool outColours;
    bool showsProgress;
    bool progressStands = false;
    bool errors = false;
    std::chrono::steady_clock::time_point lastProgress;
};

} // namespace pageslice

#endif
