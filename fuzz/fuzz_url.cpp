// SPDX-License-Identifier: MIT
// The URL routines on two URLs, one line each. The canonical form of a canonical form is always itself:
// what a removal leaves behind never makes another scheme, host or root of the rest.
#include "fuzz/invariants.h"
#include "fuzz/lines.h"
#include "fuzz/reference_url.h"
#include "pageslice/url.h"

namespace {

using invariants::Require;
using reference::Normalized;

std::string Canonical(const std::string& s) {
    std::vector<char> copy = Exact(s);
    url::NormalizeUrl(copy.data());
    return copy.data();
}

// `s` against `base`, before it is brought into canonical form.
std::string Joined(const std::string& base, const std::string& s) {
    if (s.find(':') < s.find('/'))
        return s;
    if (!s.starts_with('/'))
        return base.substr(0, base.rfind('/') + 1) + s;
    const auto nPath = static_cast<std::size_t>(url::nFindPathStart(base.c_str()));
    return base.substr(0, nPath) + s.substr(nPath == 0 || nPath > base.size() ? 0 : 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    const std::vector<std::string> lines = LinesOf(pData, n, 2);
    const std::vector<char> first = Exact(lines[0]), second = Exact(lines[1]);
    const std::string a = first.data(), b = second.data();
    const text tUrl(first.data());

    Require(Canonical(a) == Normalized(a) && Canonical(Canonical(a)) == Canonical(a), "canonical form");
    url member;
    member = tUrl;
    const std::unique_ptr<char[]> absolute(member.pMakeAbsoluteCopy(second.data()));
    Require(absolute.get() == Normalized(Joined(b, a)), "resolved");

    const int nSame = url::nCommonPrefixLength(first.data(), second.data());
    const int nOrder = url::nCompareUrls(first.data(), second.data());
    Require(nSame == url::nCommonPrefixLength(second.data(), first.data()), "common beginning both ways");
    Require(nOrder == -url::nCompareUrls(second.data(), first.data()), "order both ways");
    Require((nOrder == 0) == (nSame >= static_cast<int>(std::max(a.size(), b.size()))), "equal URLs");

    for (const text& t : {url::tGetHostName(tUrl), url::tGetDomainName(tUrl), url::tGetExtension(tUrl)})
        Require(t.IsEmpty() || (tUrl.Surrounds(t) && t.GetLength() >= 0), "a slice outside the URL");
    const text tTitle = url::tGetFileTitle(tUrl); // may end before it starts
    Require(tTitle.IsEmpty() || (tTitle.m_pStart >= tUrl.m_pStart && tTitle.m_pEnd <= tUrl.m_pEnd),
            "a file title");

    std::string extension = a.substr(a.ends_with('.') ? a.size() : a.rfind('.') + 1);
    Require(extension.empty() ? url::tGetExtension(tUrl).IsEmpty()
                              : url::tGetExtension(tUrl) == extension.c_str(),
            "extension");
    reference::Lower(extension, 0, extension.size());
    const auto begins = [&](std::string_view word) {
        return !extension.empty() && word.starts_with(extension);
    };
    Require(url::nGetImageType(tUrl) == (begins("gif")                     ? 2
                                         : begins("jpg") || begins("jpeg") ? 1
                                                                           : 0),
            "image type");
    return 0;
}
