// SPDX-License-Identifier: MIT
// Commands, one a line, for a URL list or a sink, each beside a model that keeps the whole buffer. The first
// line's length is the size, its first character the choice.
#include "fuzz/invariants.h"
#include "fuzz/lines.h"
#include "output/alt_text.h"
#include "output/output_text.h"

namespace {

using invariants::Require;

struct List : UrlList {
    using UrlList::UrlList;
    std::string Buffer() const { return m_pBuffer == nullptr ? "" : std::string(m_pBuffer, m_pLast + 1); }
    std::size_t nCursor() const { return static_cast<std::size_t>(m_pCursor - m_pBuffer); }
};

// m: to the start, n: next entry, c: copy and assign, s: add a string, others: add a slice.
void RunList(const std::vector<std::string>& lines) {
    List list(static_cast<int>(lines[0].size()) - 1);
    std::string model = list.Buffer();
    std::size_t nAt = 0;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string line = lines[i] + ' ';
        const text tRest(line.data() + 1, line.data() + line.size() - 1, 0);
        if (line[0] == 'm') {
            Require((list.pMoveFirst() == nullptr) == model.empty(), "the list's start");
            nAt = 0;
        } else if (line[0] == 'n') {
            const std::string entry = nAt + 1 < model.size() ? model.c_str() + nAt : "";
            const char* p = list.pGetNext();
            Require(p == nullptr ? entry.empty() : entry == p, "the next entry");
            nAt += nAt + 1 < model.size() ? entry.size() + 1 : 0;
        } else if (line[0] == 'c') {
            const List copy(list);
            Require(copy.Buffer() == model && copy.nCursor() == 0, "a copy");
            list = copy;
            model.resize(std::max<std::size_t>(model.size(), 1)); // the target of an assignment has a buffer
            nAt = 0;
        } else {
            const bool bString = line[0] == 's';
            const std::string entry =
                bString ? line.c_str() + 1 : reference::CopyOf({tRest.m_pStart, tRest.m_pEnd});
            const bool bFits = nAt + entry.size() < model.size();
            Require((bString ? list.bAddUrl(line.c_str() + 1) : list.bAddUrl(tRest)) == bFits, "adding");
            if (bFits)
                model.replace(nAt, entry.size() + 1, entry + '\0');
            nAt += bFits ? entry.size() + 1 : 0;
        }
        Require(list.Buffer() == model && list.nCursor() == nAt, "the list after " + line);
    }
}

// l: a line end, a: print and trim, s: put a string, others: print.
void RunSink(const std::vector<std::string>& lines) {
    const std::size_t nRoom = lines[0].size();
    std::string content;
    std::vector<char> buffer(nRoom + 1, 'x');
    OutputText out(buffer.data(), buffer.data() + nRoom);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string line = lines[i] + ' ';
        const text tRest(line.data() + 1, line.data() + line.size() - 1, 0);
        alt_text tAlt;
        tAlt = tRest;
        if (line[0] == 'l') {
            Require(out.bPutLineEnd('\n') == (nRoom > 0), "a line end");
            content.resize(std::min(content.size(), std::max<std::size_t>(nRoom, 1) - 1));
            content += '\n';
        } else if (line[0] == 's') {
            out.bPutString(line.c_str() + 1);
            content += line.c_str() + 1;
        } else {
            (line[0] == 'a' ? tAlt : tRest).print(out, 0);
            content += line.substr(1);
        }
        content.resize(std::min(content.size(), nRoom));
        if (line[0] == 'a') {
            content.resize(content.find_last_not_of(std::string("]\r\n\0", 4)) + 1);
            content.erase(0, std::min(content.find_first_not_of('['), content.size()));
        }
        std::string wanted = content;
        wanted.resize(nRoom + 1);
        Require(std::string(buffer.begin(), buffer.end()) == wanted, "the sink after " + line);
        Require(out.GetLength() == static_cast<int>(content.size()), "the sink's length after " + line);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    const std::vector<std::string> lines = LinesOf(pData, n, 1);
    lines[0].starts_with('u') ? RunList(lines) : RunSink(lines);
    return 0;
}
