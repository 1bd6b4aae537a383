// SPDX-License-Identifier: MIT
// A reference against a base, by the URL Standard: what comes out is ASCII, is a URL that stays as it is, and
// keeps its parts where the record of it says.
#include "fuzz/invariants.h"
#include "fuzz/lines.h"
#include "url/standard_url.h"

namespace {

using invariants::Require;
using pageslice::standard_url;
using pageslice::url_result;

std::string Resolved(const standard_url& base, const std::string& s) {
    const std::vector<char> exact(s.begin(), s.end());
    std::string out;
    const url_result result = base.resolve({exact.data(), exact.size()}, out);
    return result == url_result::ok ? out : "-";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    const std::vector<std::string> lines = LinesOf(pData, n, 2);
    standard_url base, url;
    static_cast<void>(base.parse(lines[0]));
    const std::string s = Resolved(base, lines[1]);
    Require((url.parse(lines[1], base) == url_result::ok) == (s != "-"), "parsed or resolved");
    if (s == "-")
        return 0;
    Require(std::all_of(s.begin(), s.end(), [](char c) { return c >= ' ' && c <= '~'; }), "ASCII");
    Require(url.href() == s && Resolved(base, s) == s && Resolved(standard_url(), s) == s, "stays as it is");

    const std::string bare = s.substr(0, s.find('#')), path = bare.substr(0, bare.find('?'));
    Require(Resolved(url, "#f") == bare + "#f", "another fragment");
    if (Resolved(url, "") != "-") { // no opaque path
        Require(Resolved(url, "") == bare && Resolved(url, "?q") == path + "?q", "another query");
        const std::string sibling = Resolved(url, "./x");
        Require(sibling == "-" || Resolved(url, "x") == sibling, "beside it");
    }
    return 0;
}
