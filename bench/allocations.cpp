#include "allocations.h"

#include <algorithm>
#include <cstddef>

namespace {

// The programs that count have one thread.
std::size_t g_count = 0;
std::ptrdiff_t g_held = 0;
std::ptrdiff_t g_peak = 0;

} // namespace

namespace bench {

void ResetAllocations() noexcept {
    g_count = 0;
    g_held = 0;
    g_peak = 0;
}

Allocations TakeAllocations() noexcept {
    return {g_count, static_cast<std::size_t>(g_peak)};
}

} // namespace bench

#if defined(__GLIBC__)

#include <malloc.h>

namespace {

void* Taken(void* p) noexcept {
    ++g_count;
    g_held += static_cast<std::ptrdiff_t>(malloc_usable_size(p));
    g_peak = std::max(g_peak, g_held);
    return p;
}

void* Given(void* p) noexcept {
    g_held -= static_cast<std::ptrdiff_t>(malloc_usable_size(p));
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

#endif
