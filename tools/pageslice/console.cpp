#include "console.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace pageslice {
namespace {

#ifdef _WIN32
bool isTerminal(std::FILE* pFile) {
    return _isatty(_fileno(pFile)) != 0;
}

// Old consoles do not know the escape sequences of colours.
bool understandsColours() {
    const HANDLE console = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(console, &mode) != 0 && SetConsoleMode(console, mode | 0x0004) != 0;
}

// Gives the code page that the console had.
unsigned prepareStreams() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    const UINT former = GetConsoleOutputCP();
    return SetConsoleOutputCP(CP_UTF8) != 0 ? former : 0;
}

// The console outlives the program.
void restoreCodePage(unsigned former) {
    if (former != 0) {
        SetConsoleOutputCP(former);
    }
}
#else
bool isTerminal(std::FILE* pFile) {
    return isatty(fileno(pFile)) != 0;
}

bool understandsColours() {
    return true;
}

unsigned prepareStreams() {
    return 0;
}

void restoreCodePage(unsigned /*former*/) {}
#endif

} // namespace

Console::Console()
    : formerCodePage(prepareStreams()), outTerminal(isTerminal(stdout)),
      outColours(outTerminal && std::getenv("NO_COLOR") == nullptr && understandsColours()),
      showsProgress(!outTerminal && isTerminal(stderr)), lastProgress(std::chrono::steady_clock::now()) {
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr); // the reader and the writer may be two threads
}

Console::~Console() {
    clearProgress();
    restoreCodePage(formerCodePage);
}

void Console::error(const std::string& what, const std::string& why) {
    clearProgress();
    errors = true;
    std::cerr << "pageslice: " + what + ": " + why + '\n';
}

void Console::progress(std::size_t done, std::size_t total) {
    const auto now = std::chrono::steady_clock::now();
    if (!showsProgress || now - lastProgress < std::chrono::milliseconds(100)) {
        return;
    }
    lastProgress = now;
    progressStands = true;
    std::cerr << '\r' << done;
    if (total != 0) {
        std::cerr << " of " << total;
    }
    std::cerr << " pages\x1b[K";
}

void Console::clearProgress() {
    if (progressStands) {
        std::cerr << "\r\x1b[K";
        progressStands = false;
    }
}

} // namespace pageslice
