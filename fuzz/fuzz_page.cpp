// SPDX-License-Identifier: MIT
// One page through all that a host can do with it, the debug dumps included. The dumps and what else the
// console gets are of no interest; the target's own messages go to standard error.
#include <cstdint>
#include <cstdio>

#include "fuzz/invariants.h"
#include "output/output_text.h"
#include "output/plain_text.h"
#include "parser/url_map_dump.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    static const bool bSilent = std::freopen("/dev/null", "w", stdout) != nullptr;
    invariants::Require(bSilent, "no place for the dumps");
    const text tPage = invariants::PageOf(pData, n);
    invariants::CheckPage(tPage);

    invariants::Parser parser(tPage, nullptr);
    parser.InitializeHtmlFile();
    char buffer[100];
    OutputText bounded(buffer, buffer + sizeof buffer - 1);
    pageslice::WritePlainText(tPage, bounded); // as much as fits
    const std::string plain = invariants::ReferenceOf(tPage).PlainText().substr(0, sizeof buffer - 1);
    invariants::Require(std::string(buffer, bounded.m_pCurrent) == plain, "the plain text in a short buffer");
    OutputText console;
    PrintUrlMap(parser.m_urlMap, bounded);
    PrintUrlMap(parser.m_urlMap, console);
    for (const auto& [anchor, tLinkText] : parser.m_urlMap)
        anchor.PrintDebug();
    for (const char* p = tPage.m_pStart; p <= tPage.m_pEnd; p += n / 8 + 1) {
        tag_img(p, tPage).PrintDebug();
        tag_table(p, tPage).PrintDebug();
        tag_tr(p, tPage).PrintDebug();
        tag_td(p, tPage).PrintDebugTh();
    }

    const std::size_t nLinks = parser.m_urlMap.size();
    parser.InitializeHtmlFile();
    invariants::Require(parser.m_urlMap.size() == 2 * nLinks, "a second pass adds every link again");
    return 0;
}
