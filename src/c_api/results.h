// SPDX-License-Identifier: MIT
// How the functions of the C interface take arguments and hand results out.
#ifndef PAGESLICE_C_API_RESULTS_H
#define PAGESLICE_C_API_RESULTS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>

#include "pageslice/pageslice_c.h"
#include "text/index_limits.h"

namespace pageslice {

// The codes say all there is to say: beside what a lack of memory throws, only limits are exceeded.
template <class Call>
int guarded(Call call) noexcept {
    try {
        return call();
    } catch (const limit_exceeded&) {
        return PAGESLICE_LIMIT;
    } catch (...) {
        return PAGESLICE_NO_MEMORY;
    }
}

// Whether there is an array of so many bytes at p: one that exists, is no larger than arrays can be, and does
// not wrap around the end of the address space.
inline bool is_range(const void* p, std::size_t size) noexcept {
    if (p == nullptr) {
        return size == 0;
    }
    return size <= static_cast<std::size_t>(PTRDIFF_MAX) &&
           size <= UINTPTR_MAX - reinterpret_cast<std::uintptr_t>(p);
}

inline std::string_view view(const char* p, std::size_t size) noexcept {
    return {p, p == nullptr ? 0 : size};
}

inline pageslice_slice slice_of(std::string_view v) noexcept {
    return {v.empty() ? nullptr : v.data(), v.size()};
}

// As slice_of, but what is given and empty is not taken for missing.
inline pageslice_slice given(std::string_view v) noexcept {
    return {v.data(), v.size()};
}

// Into a structure of the host, which may be older or newer than the library's: what only one of the two
// knows is left out, or set to 0.
template <class Structure>
void give(const Structure& from, void* to, std::size_t to_size) noexcept {
    const std::size_t common = std::min(sizeof from, to_size);
    std::memcpy(to, &from, common);
    std::memset(static_cast<char*>(to) + common, 0, to_size - common);
}

// Out of a structure of the host. False when it says more than the library understands.
template <class Structure>
bool take(const void* from, std::size_t from_size, Structure& to) noexcept {
    const std::size_t common = std::min(sizeof to, from_size);
    std::memcpy(&to, from, common);
    const char* const bytes = static_cast<const char*>(from);
    return std::all_of(bytes + common, bytes + from_size, [](char c) { return c == 0; });
}

// A place for text: a buffer of the host, and where its length goes.
struct output {
    char* buffer;
    std::size_t capacity;
    std::size_t* length;

    bool is_usable() const noexcept { return length != nullptr && is_range(buffer, capacity_used()); }
    bool holds(std::size_t size) const noexcept { return buffer != nullptr && capacity > size; }

    // Copies the whole text with a NUL after it, or nothing.
    int put(std::string_view text) const noexcept {
        *length = text.size();
        if (!holds(text.size())) {
            return PAGESLICE_TOO_SMALL;
        }
        std::copy(text.begin(), text.end(), buffer);
        buffer[text.size()] = '\0';
        return PAGESLICE_OK;
    }

private:
    // A capacity without a buffer is none.
    std::size_t capacity_used() const noexcept { return buffer == nullptr ? 0 : capacity; }
};

constexpr std::size_t NO_BOUND = static_cast<std::size_t>(-1);

// Text that write(room) writes, `bound` bytes at most, of which it gives the end: in place where the buffer
// holds the most that it can be; else into room of its own, for whether it fits shows only at its end.
template <class Write>
int produce(std::size_t bound, const output& out, Write write) noexcept {
    if (bound == NO_BOUND) {
        return PAGESLICE_TOO_LARGE;
    }
    if (out.holds(bound)) {
        char* const end = write(out.buffer);
        *end = '\0';
        *out.length = static_cast<std::size_t>(end - out.buffer);
        return PAGESLICE_OK;
    }
    const std::unique_ptr<char[]> room(new (std::nothrow) char[bound + 1]);
    if (room == nullptr) {
        return PAGESLICE_NO_MEMORY;
    }
    const char* const end = write(room.get());
    return out.put({room.get(), static_cast<std::size_t>(end - room.get())});
}

} // namespace pageslice

#endif
