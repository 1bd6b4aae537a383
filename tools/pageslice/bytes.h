// SPDX-License-Identifier: MIT
// A growing run of bytes.
#ifndef PAGESLICE_TOOLS_BYTES_H
#define PAGESLICE_TOOLS_BYTES_H

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>

namespace program {

// Unlike a std::string it grows in place where the system can, by half and not by doubling, and sets no
// byte that is written over at once: what it holds may take most of the memory that there is.
class Bytes {
public:
    char* data() const { return pData.get(); }
    std::size_t size() const { return used; }
    std::size_t spare() const { return capacity - used; }
    bool empty() const { return used == 0; }
    std::string_view view() const { return {pData.get(), used}; }

    void append(std::string_view more) {
        std::copy(more.begin(), more.end(), room(more.size()));
        used += more.size();
    }
    // Gives a place for so many bytes after the last; `commit` says how many of them have come.
    char* room(std::size_t count) {
        if (capacity - used < count) {
            grow(count);
        }
        return pData.get() + used;
    }
    void commit(std::size_t count) { used += count; }
    void clear() { used = 0; }
    void release() {
        pData.reset();
        used = capacity = 0;
    }

private:
    struct Freer {
        void operator()(char* p) const noexcept { std::free(p); }
    };

    void grow(std::size_t count) {
        if (count > SIZE_MAX / 4 - used) {
            throw std::bad_alloc();
        }
        const std::size_t wanted = std::max(used + count, capacity + capacity / 2);
        char* const pGrown = static_cast<char*>(std::realloc(pData.get(), wanted));
        if (pGrown == nullptr) {
            throw std::bad_alloc();
        }
        static_cast<void>(pData.release()); // went into the larger one
        pData.reset(pGrown);
        capacity = wanted;
    }

    std::unique_ptr<char, Freer> pData;
    std::size_t used = 0;
    std::size_t capacity = 0;
};

} // namespace program

#endif
