// SPDX-License-Identifier: MIT
#include "parser/url_map_dump.h"

#include <cstdio>

#include "output/output_text.h"

inline namespace pageslice_v1 {

namespace {

void PrintRule(const OutputText& out, const char* pRule) {
    if (out.bIsConsole() != 0) {
        std::printf("%s\n", pRule);
    }
}

} // namespace

void PrintUrlMap(const UrlMap& map, OutputText& out) {
    int i = 0;
    PrintRule(out, "-------Url Map below-------");
    for (const UrlMap::value_type& entry : map) {
        std::printf("%d: ", i++);
        entry.second.println(out);
    }
    PrintRule(out, "---------------------------");
    for (const UrlMap::value_type& entry : map) {
        std::printf("%d: ", i++);
        entry.first.m_urlHref.println(out, 1);
    }
    PrintRule(out, "---------------------------");
}

} // namespace pageslice_v1
