// Commands, one a line, for a URL list and for a sink, each beside a model that keeps the whole buffer.
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

// m: to the start, n: next entry, c: copy and assign, x: clear, s: add a string, others: add a slice.
void RunList(Lines& lines) {
    List list(static_cast<int>(lines.Next().size()));
    std::string model = list.Buffer();
    std::size_t nAt = 0;
    while (lines.bMore()) {
        const std::string line = lines.Next() + ' ';
        const char command = line[0];
        const text tRest(line.data() + 1, line.data() + line.size() - 1, 0);
        if (command == 'm') {
            const char* p = list.pMoveFirst();
            Require((p == nullptr) == model.empty(), "the list's start");
            nAt = 0;
        } else if (command == 'n') {
            const std::string entry = nAt + 1 < model.size() ? model.c_str() + nAt : "";
            const char* p = list.pGetNext();
            Require(p == nullptr ? entry.empty() : entry == p, "the next entry");
            nAt += nAt + 1 < model.size() ? entry.size() + 1 : 0;
        } else if (command == 'c') {
            const List copy(list);
            Require(copy.Buffer() == model && copy.nCursor() == 0, "a copy");
            list = copy;
            model.resize(std::max<std::size_t>(model.size(), 1));
            nAt = 0;
        } else if (command == 'x') {
            list.Clear();
            model.clear();
            nAt = 0;
        } else {
            const std::string entry =
                command == 's' ? line.c_str() + 1 : reference::CopyOf({tRest.m_pStart, tRest.m_pEnd});
            const bool bFits = nAt + entry.size() < model.size();
            Require((command == 's' ? list.bAddUrl(line.c_str() + 1) : list.bAddUrl(tRest)) == bFits,
                    "adding");
            if (bFits)
                model.replace(nAt, entry.size() + 1, entry + '\0');
            nAt += bFits ? entry.size() + 1 : 0;
        }
        Require(list.Buffer() == model && list.nCursor() == nAt, "the list after " + line);
    }
}

// l: a line end, d: drop the last, a: print and trim, s: put a string, others: print.
void RunSink(Lines& lines) {
    const std::size_t nRoom = lines.Next().size();
    std::string content;
    std::vector<char> buffer(nRoom + 1, 'x');
    OutputText out(buffer.data(), buffer.data() + nRoom);
    while (lines.bMore()) {
        const std::string line = lines.Next() + ' ';
        const text tRest(line.data() + 1, line.data() + line.size() - 1, 0);
        if (line[0] == 'l') {
            Require(out.bPutLineEnd('\n') == (nRoom > 0), "a line end");
            content.resize(std::min(content.size(), std::max<std::size_t>(nRoom, 1) - 1));
            content += nRoom > 0 ? "\n" : "";
        } else if (line[0] == 'd') {
            const std::size_t nLast = content.find_last_not_of('\0');
            Require(out.bDropLast() == (nLast != content.npos), "dropping the last character");
            if (nLast != content.npos)
                content.resize(content.substr(0, nLast).find_last_not_of('\0') + 1);
        } else {
            alt_text tAlt;
            tAlt = tRest;
            if (line[0] == 's')
                out.bPutString(line.c_str() + 1);
            else
                (line[0] == 'a' ? tAlt : tRest).print(out, 0);
            content += line[0] == 's' ? line.c_str() + 1 : line.substr(1);
            content.resize(std::min(content.size(), nRoom));
            if (line[0] == 'a') {
                content.resize(content.find_last_not_of(std::string("]\r\n\0", 4)) + 1);
                content.erase(0, std::min(content.find_first_not_of('['), content.size()));
            }
        }
        std::string wanted = content;
        wanted.resize(nRoom + 1);
        Require(std::string(buffer.begin(), buffer.end()) == wanted, "the sink after " + line);
        Require(out.GetLength() == static_cast<int>(content.size()), "the sink's length after " + line);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    Lines lines(pData, n);
    if (lines.Next() == "list")
        RunList(lines);
    else
        RunSink(lines);
    return 0;
}
