/* SPDX-License-Identifier: MIT */
/* console PROGRAM   starts the program in this console, ends it by Ctrl-C and sees whether the console is as
 * before. */
#include <windows.h>

#include <stdio.h>

enum { CODE_PAGE = 850, UTF_8 = 65001 };

static BOOL WINAPI stay(DWORD event) {
    return event == CTRL_C_EVENT;
}

int main(int argc, char** argv) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, NULL, TRUE};
    STARTUPINFOA start;
    PROCESS_INFORMATION child;
    HANDLE keyboard, wire;
    DWORD before = 0, within, after = 0;
    const HANDLE console =
        CreateFileA("CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                    OPEN_EXISTING, 0, NULL);
    char line[1000];
    int i;
    if (argc != 2 || !SetConsoleOutputCP(CODE_PAGE) || !SetConsoleMode(console, ENABLE_PROCESSED_OUTPUT) ||
        !GetConsoleMode(console, &before) || !CreatePipe(&keyboard, &wire, &inherited, 0))
        return 2; /* no console */
    SetHandleInformation(wire, HANDLE_FLAG_INHERIT, 0);
    SetConsoleCtrlHandler(stay, TRUE);
    ZeroMemory(&start, sizeof start);
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = keyboard;
    start.hStdOutput = start.hStdError = console;
    snprintf(line, sizeof line, "\"%s\" --color=always -", argv[1]);
    if (!CreateProcessA(NULL, line, NULL, NULL, TRUE, 0, NULL, NULL, &start, &child))
        return 3;
    within = before;
    for (i = 0; i < 1000 && (GetConsoleOutputCP() != UTF_8 || within == before); ++i) {
        Sleep(10);
        GetConsoleMode(console, &within);
    }
    if (i == 1000 || !GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0))
        return 4; /* the program changes nothing: there is nothing to see */
    if (WaitForSingleObject(child.hProcess, 10000) != WAIT_OBJECT_0)
        return 5;
    GetConsoleMode(console, &after);
    return GetConsoleOutputCP() != CODE_PAGE || after != before;
}
