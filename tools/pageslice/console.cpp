// SPDX-License-Identifier: MIT
#include "console.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "display.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace program {
namespace {

#ifdef _WIN32
bool isTerminal(std::FILE* pFile) {
    return _isatty(_fileno(pFile)) != 0;
}

// What a console was like before. It outlives the program, and a program ended by Ctrl-C too.
struct Former {
    UINT codePage = 0; // 0: nothing to restore
    DWORD outMode = 0;
    DWORD errorMode = 0;
};
Former former;

void restoreConsole() {
    const auto restore = [](DWORD stream, DWORD mode) {
        if (mode != 0) {
            SetConsoleMode(GetStdHandle(stream), mode);
        }
    };
    restore(STD_OUTPUT_HANDLE, former.outMode);
    restore(STD_ERROR_HANDLE, former.errorMode);
    if (former.codePage != 0) {
        SetConsoleOutputCP(former.codePage);
    }
}

BOOL WINAPI restoreAndGoOn(DWORD /*event*/) {
    restoreConsole();
    return FALSE; // what usually happens then
}

// Old consoles do not know escape sequences.
bool understandsEscapes(DWORD stream, DWORD& formerMode) {
    const HANDLE console = GetStdHandle(stream);
    DWORD mode = 0;
    if (GetConsoleMode(console, &mode) == 0) {
        return false;
    }
    formerMode = mode;
    return SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

bool understandsColours() {
    return understandsEscapes(STD_OUTPUT_HANDLE, former.outMode);
}

bool understandsProgress() {
    return understandsEscapes(STD_ERROR_HANDLE, former.errorMode);
}

void prepareStreams() {
    for (std::FILE* const pStream : {stdin, stdout, stderr}) {
        _setmode(_fileno(pStream), _O_BINARY);
    }
    const UINT codePage = GetConsoleOutputCP();
    former.codePage = SetConsoleOutputCP(CP_UTF8) != 0 ? codePage : 0;
    SetConsoleCtrlHandler(restoreAndGoOn, TRUE);
}
#else
bool isTerminal(std::FILE* pFile) {
    return isatty(fileno(pFile)) != 0;
}

bool understandsColours() {
    return true;
}

bool understandsProgress() {
    return true;
}

void prepareStreams() {}

void restoreConsole() {}
#endif

// By its convention, a variable that is set to nothing is not set.
bool isSet(const char* pName) {
    const char* const pValue = std::getenv(pName);
    return pValue != nullptr && *pValue != '\0';
}

bool isDumb() {
    const char* const pTerminal = std::getenv("TERM");
    return pTerminal != nullptr && std::strcmp(pTerminal, "dumb") == 0;
}

// A line on standard error, written as a whole, whatever its length, without memory of its own.
class Line {
public:
    void put(std::string_view text) {
        while (!text.empty()) {
            std::string shown; // of one character: short enough to stand in the object itself
            const Decoded decoded = decodeUtf8(text);
            if (decoded.valid && decoded.character >= 0xA0 && isUnseen(decoded.character)) {
                appendName(shown, decoded.character);
            } else {
                appendLegible(shown, text);
            }
            text.remove_prefix(decoded.size);
            const bool fits = used + shown.size() < sizeof buffer;
            used += fits ? shown.copy(buffer + used, shown.size()) : 0;
        }
    }
    Line() = default; // cppcheck-suppress uninitMemberVar
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;
    ~Line() {
        buffer[used++] = '\n';
        static_cast<void>(std::fwrite(buffer, 1, used, stderr));
    }

private:
    char buffer[8192] = {};
    std::size_t used = 0;
};

} // namespace

Console::Console() {
    prepareStreams();
    inTerminal = isTerminal(stdin);
    outTerminal = isTerminal(stdout);
    outColours = outTerminal && !isSet("NO_COLOR") && !isDumb() && understandsColours();
    showsProgress = !outTerminal && isTerminal(stderr) && !isDumb() && understandsProgress();
    lastProgress = std::chrono::steady_clock::now();
}

Console::~Console() {
    clearProgress();
    restoreConsole();
}

void Console::error(std::string_view what, std::string_view why) {
    clearProgress();
    errors = true;
    Line line;
    line.put("pageslice: ");
    line.put(what);
    line.put(": ");
    line.put(why);
}

void Console::progress(std::size_t done, std::size_t total) {
    const auto now = std::chrono::steady_clock::now();
    if (!showsProgress || now - lastProgress < std::chrono::milliseconds(100)) {
        return;
    }
    lastProgress = now;
    progressStands = true;
    if (total == 0) {
        static_cast<void>(std::fprintf(stderr, "\r%zu pages\x1b[K", done));
    } else {
        static_cast<void>(std::fprintf(stderr, "\r%zu of %zu pages\x1b[K", done, total));
    }
}

void Console::clearProgress() {
    if (progressStands) {
        static_cast<void>(std::fputs("\r\x1b[K", stderr));
        progressStands = false;
    }
}

} // namespace program
