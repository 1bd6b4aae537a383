// SPDX-License-Identifier: MIT
/* What Wine's <time.h> lacks. */
#include_next <time.h>

#ifndef PAGESLICE_FILL_TIME_H
#define PAGESLICE_FILL_TIME_H
struct timespec {
    time_t tv_sec;
    long tv_nsec;
};
#endif
