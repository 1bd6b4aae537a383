// SPDX-License-Identifier: MIT
// The string utilities on two strings and a number, one line each, beside what the standard library gives.
#include "fuzz/invariants.h"
#include "fuzz/lines.h"
#include "text/string_utils.h"

namespace {

using invariants::Require;

int nSign(int n) {
    return n < 0 ? -1 : n > 0;
}

std::string Folded(std::string s) {
    for (char& c : s)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
    return s;
}

// Separators become spaces; the words behind one get the prefix.
std::string Split(const std::string& s, const std::string& prefix) {
    std::string out;
    bool bBehind = false;
    for (const char c : s) {
        const bool bSeparator = std::string("./\t\n\r ").find(c) != std::string::npos;
        if (bBehind && !bSeparator)
            out += prefix;
        out += bSeparator ? ' ' : c;
        bBehind = bSeparator;
    }
    return out;
}

std::string Grouped(long long n) {
    std::string digits = std::to_string(n);
    for (std::size_t i = digits.size(); i > (n < 0 ? 4u : 3u); i -= 3)
        digits.insert(i - 3, 1, ',');
    return digits;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    const std::vector<std::string> lines = LinesOf(pData, n, 3);
    const std::vector<char> first = Exact(lines[0]), second = Exact(lines[1]), third = Exact(lines[2]);
    const std::string a = first.data(), b = second.data();
    const int nNumber = text(third.data()).ConvertToInt();
    const unsigned nCount = static_cast<unsigned>(nNumber) % 16;
    const std::string headA = a.substr(0, nCount), headB = b.substr(0, nCount);

    Require(nNumber == reference::nNumber({third.data(), third.data() + third.size() - 2}), "a number");
    Require(std::unique_ptr<char[]>(pFormatNumber(nNumber, nullptr)).get() == Grouped(nNumber),
            "a written number");

    Require(nSign(nStrNCmp(first.data(), second.data(), nCount)) == nSign(headA.compare(headB)), "order");
    Require(nSign(nStrNICmp(first.data(), second.data(), nCount)) ==
                nSign(Folded(headA).compare(Folded(headB))),
            "order without case");
    const std::size_t nBoth = std::min(a.size(), b.size());
    const int nOrder = a.substr(0, nBoth).compare(b.substr(0, nBoth)); // then the shorter sorts behind
    Require(
        nSign(text(first.data()).strncmp(text(second.data()))) ==
            (nOrder != 0 ? nSign(nOrder) : nSign(static_cast<int>(b.size()) - static_cast<int>(a.size()))),
        "order of slices");

    const std::string split = Split(a, b);
    std::vector<char> room(split.size() + 1);
    bSplitWords(room.data(), first.data(), second.data());
    Require(room.data() == split, "split");
    std::copy(first.begin(), first.end(), room.begin());
    bSplitWords(room.data(), room.data(), second.data());
    Require(room.data() == split, "split in place");
    return 0;
}
