// SPDX-License-Identifier: MIT
// How a URL prints itself into the sink: by the title of the file it names.
#include "output/output_text.h"
#include "pageslice/url.h"

inline namespace pageslice_v1 {

namespace {

// Letters as they are, every run of other characters as one space, as far as there is room.
void PrintAsWords(const text& t, OutputText& out) {
    bool bInGap = false;
    for (const char* p = t.m_pStart; p <= t.m_pEnd; ++p) {
        const bool bLetter = t.IsAlphabetic(*p) != 0;
        if ((bLetter || !bInGap) && out.bPutChar(bLetter ? *p : ' ') == 0) {
            return;
        }
        bInGap = !bLetter;
    }
}

} // namespace

int url::print(OutputText& out, int bNewLine, int nMode) const {
    const text t = nMode == 1 || nMode == 2 ? tGetFileTitle() : text();
    t.print(out, bNewLine);
    if (t.IsAlphabetic() == 0) {
        PrintAsWords(t, out);
        if (bNewLine != 0) {
            out.bPutLineEnd('\n');
        }
    }
    return out.GetLength();
}

int url::println(OutputText& out, int nMode) const {
    return print(out, 1, nMode);
}

int url::println(int nMode) const {
    OutputText console;
    return println(console, nMode);
}

} // namespace pageslice_v1
