// SPDX-License-Identifier: MIT
#include "allocations.h"

#include <algorithm>
#include <climits>
#include <cstddef>

namespace {

// The programs that count have one thread. Between measurements nothing is counted: libraries that allocate
// much would be slowed down.
bool g_counting = false;
std::size_t g_count = 0;
std::ptrdiff_t g_held = 0;
std::ptrdiff_t g_peak = 0;

} // namespace

namespace bench {

void ResetAllocations() noexcept {
    g_count = 0;
    g_held = 0;
    g_peak = 0;
    g_counting = true;
}

Allocations TakeAllocations() noexcept {
    g_counting = false;
    return {g_count, static_cast<std::size_t>(g_peak)};
}

} // namespace bench

#if defined(__GLIBC__)

#include <malloc.h>

void bench::KeepReleasedMemory() noexcept {
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
    mallopt(M_TOP_PAD, 1 << 26);
}

namespace {

void* Taken(void* p) noexcept {
    if (g_counting) {
        ++g_count;
        g_held += static_cast<std::ptrdiff_t>(malloc_usable_size(p));
        g_peak = std::max(g_peak, g_held);
    }
    return p;
}

void* Given(void* p) noexcept {
    if (g_counting) {
        g_held -= static_cast<std::ptrdiff_t>(malloc_usable_size(p));
    }
    return p;
}

} // namespace

extern "C" {
void* __libc_malloc(std::size_t n);
void* __libc_calloc(std::size_t n, std::size_t size);
void* __libc_realloc(void* p, std::size_t n);
void __libc_free(void* p);

void* malloc(std::size_t n) {
    return Taken(__libc_malloc(n));
}

void* calloc(std::size_t n, std::size_t size) {
    return Taken(__libc_calloc(n, size));
}

void* realloc(void* p, std::size_t n) {
    return Taken(__libc_realloc(Given(p), n));
}

void free(void* p) {
    __libc_free(Given(p));
}
}

#else

void bench::KeepReleasedMemory() noexcept {}

#endif
