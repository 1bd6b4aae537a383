// SPDX-License-Identifier: MIT
#include <functional>
#include <map>

#include "output/alt_text.h"
#include "output/output_text.h"
#include "page_fixture.h"

namespace {

using namespace std::string_literals;

std::string Console(const std::function<void()>& print) {
    testing::internal::CaptureStdout();
    print();
    return testing::internal::GetCapturedStdout();
}

// A sink over a buffer between bytes that must not change, and that would be counted or trimmed if read.
struct GuardedSink : OutputText {
    explicit GuardedSink(std::size_t nSize) : m_bytes(MARGIN + std::string(nSize, '#') + MARGIN) {
        static_cast<OutputText&>(*this) = {&m_bytes[MARGIN.size()], &m_bytes[MARGIN.size() + nSize - 1]};
    }
    ~GuardedSink() {
        EXPECT_EQ(m_bytes.find(MARGIN), 0U);
        EXPECT_EQ(m_bytes.rfind(MARGIN), m_bytes.size() - MARGIN.size());
    }

    // The content; behind it all is NUL, the last byte always.
    std::string Content() const {
        EXPECT_LE(m_pBufStart, m_pCurrent);
        EXPECT_LE(m_pCurrent, m_pBufEnd);
        EXPECT_EQ(std::string(m_pCurrent, m_pBufEnd + 1).find_first_not_of('\0'), std::string::npos);
        return {GetBuffer(), GetBuffer() + GetLength()};
    }

    static inline const std::string MARGIN = " ]words[ ";
    std::string m_bytes;
};

TEST(OutputText, Operations) {
    const std::map<std::string, std::function<int(OutputText&)>> operations = {
        {"line", [](OutputText& out) { return out.bPutLineEnd('\n'); }},
        {"NUL", [](OutputText& out) { return out.bPutChar('\0'); }},
        {"xyz", [](OutputText& out) { return out.bPutString("xyz"); }},
        {"nothing", [](OutputText& out) { return out.bPutString(""); }},
        {"words", [](OutputText& out) { return out.bPutWords("ab", 2); }},
        {"no-words", [](OutputText& out) { return out.bPutWords("ab", 0); }},
        {"pad", [](OutputText& out) { return out.bPadToWords(3); }},
        {"count", [](OutputText& out) { return out.nNumWords(); }},
        {"drop", [](OutputText& out) { return out.bDropLast(); }},
        {"trim", [](OutputText& out) { return out.bTrimBrackets(); }},
        {"fill", [](OutputText& out) { return out.Fill('x'), out.GetLength(); }},
        {"fill-[", [](OutputText& out) { return out.Fill('['), out.GetLength(); }},
        {"sync", [](OutputText& out) { return out.SyncCursor(), out.GetLength(); }},
        {"attach",
         [](OutputText& out) { return out.SetBuffer(out.m_pBufStart, out.m_pBufEnd), out.GetLength(); }}};
    RunCases("sinks", [&](const text& t) {
        const auto parts = PartsOf(t);
        GuardedSink out(std::stoul(parts[0]));
        std::istringstream words(parts[1]);
        std::string results;
        for (std::string word; words >> word;) {
            const auto found = operations.find(word);
            results += std::to_string(found == operations.end() ? out.bPutChar(word[0]) : found->second(out));
            results += words.eof() ? "" : " ";
        }
        return Joined(results, out.Content());
    });
}

TEST(OutputText, WithoutABufferWritesToTheConsole) {
    OutputText out;
    const auto print = [&] {
        const int answers[] = {out.bPutChar('x'),    out.bPutChar('\0'), out.bPutLineEnd('\n'),
                               out.bPutString("%d"), out.bPadToWords(1), out.bTrimBrackets(),
                               out.bDropLast()};
        EXPECT_EQ(std::vector(std::begin(answers), std::end(answers)), (std::vector{1, 1, 1, 1, 1, 1, 0}));
        EXPECT_EQ(out.pFindLast(), nullptr);
        out.Fill('x');
        out.SyncCursor();
    };
    EXPECT_EQ(Console(print), "x\0\n%d padword "s);
    EXPECT_EQ(Joined(out.bIsConsole(), out.GetLength(), out.nNumWords()), "1|0|0");
}

TEST(Text, Prints) {
    RunCases("prints", [](const text& row) {
        const text t(std::find(row.m_pStart, row.m_pEnd, '|') + 1, row.m_pEnd, 0);
        alt_text alternative;
        alternative = t;
        std::string results;
        for (const text* p : {&t, static_cast<const text*>(&alternative)})
            for (const bool bLine : {false, true}) {
                GuardedSink out(std::stoul(String(row)));
                out.bPutString("[a");
                results += '|' + std::to_string(bLine ? p->println(out) : p->print(out, 0));
                results += ' ' + out.Content();
            }
        return results.erase(0, 1);
    });
    GuardedSink out(9);
    const char s[] = "[x]";
    alt_text alternative;
    alternative = text(s);
    EXPECT_EQ(alternative.bIsNullTerminated(), 0);
    EXPECT_EQ(text().print(out, 0), 1) << "an empty slice is a line end, asked for or not";
    EXPECT_EQ(text(s + 2, s, 0).print(out, 1), 0);
    EXPECT_EQ(text(alternative).print(out, 0), 4) << "the copy of an alt_text is a plain text";
    EXPECT_EQ(out.Content(), "\n[x]");
    EXPECT_EQ(Console([&] { EXPECT_EQ(alternative.println(), 0); }), "[x]\n");
    EXPECT_EQ(Console([] { text().println(), text("").println(); }), "\n");
    const text numbers(reinterpret_cast<const char*>(1000), reinterpret_cast<const char*>(1009), 0);
    EXPECT_EQ(Console([&] { numbers.PrintDebug(); }), "m_pStart = 1000 m_pEnd = 1009\n");
}

} // namespace
