// SPDX-License-Identifier: MIT
// How slices print themselves. The slice itself knows the sink by name only.
#include "output/alt_text.h"
#include "output/output_text.h"
#include "pageslice/text.h"

inline namespace pageslice_v1 {

int text::print(OutputText& out, int bNewLine) const {
    if (m_pStart > m_pEnd) {
        return 0;
    }
    if (m_pStart == nullptr) {
        out.bPutLineEnd('\n');
        return out.GetLength();
    }
    for (const char* p = m_pStart; p <= m_pEnd; ++p) {
        out.bPutChar(*p);
    }
    if (bNewLine != 0) {
        out.bPutLineEnd('\n');
    }
    return out.GetLength();
}

int text::println() const {
    OutputText console;
    return println(console);
}

int text::println(OutputText& out) const {
    return print(out, 1);
}

alt_text& alt_text::operator=(const text& t) noexcept {
    m_pStart = t.m_pStart;
    m_pEnd = t.m_pEnd;
    return *this;
}

int alt_text::print(OutputText& out, int bNewLine) const {
    text::print(out, bNewLine);
    out.bTrimBrackets();
    return out.GetLength();
}

} // namespace pageslice_v1
