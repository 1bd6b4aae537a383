// SPDX-License-Identifier: MIT
// Everything a host needs: slices, URL helpers, URL lists and the page parser.
#ifndef PAGESLICE_PAGESLICE_H
#define PAGESLICE_PAGESLICE_H

#include "pageslice/export.h"
#include "pageslice/html_parser.h"
#include "pageslice/records.h"
#include "pageslice/text.h"
#include "pageslice/url.h"
#include "pageslice/url_list.h"
#include "pageslice/url_map.h"

#endif
