// SPDX-License-Identifier: MIT
// Marks what callgrind counts, where its header was there to build with. Elsewhere, and outside callgrind,
// the marks do nothing.
#ifndef PAGESLICE_BENCH_CALLGRIND_H
#define PAGESLICE_BENCH_CALLGRIND_H

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_START_INSTRUMENTATION static_cast<void>(0)
#define CALLGRIND_STOP_INSTRUMENTATION static_cast<void>(0)
#define CALLGRIND_ZERO_STATS static_cast<void>(0)
#define CALLGRIND_DUMP_STATS_AT(name) static_cast<void>(name)
#endif

#endif
