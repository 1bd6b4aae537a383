// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_PARSER_URL_MAP_DUMP_H
#define PAGESLICE_PARSER_URL_MAP_DUMP_H

#include "pageslice/url_map.h"

inline namespace pageslice_v1 {

class OutputText;

// Debug list of the map: every entry's link text, then every entry's link by its file title, numbered
// through. The entries go into `out`, their numbers to the console in any case; the heading and the rules
// are printed when `out` is the console.
void PrintUrlMap(const UrlMap& map, OutputText& out);

} // namespace pageslice_v1

#endif
