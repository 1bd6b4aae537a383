// SPDX-License-Identifier: MIT
// What bounds the memory that indexing a page takes, for whoever indexes one.
#ifndef PAGESLICE_TEXT_INDEX_LIMITS_H
#define PAGESLICE_TEXT_INDEX_LIMITS_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace pageslice {

// Thrown where a page holds more than its limits allow.
struct limit_exceeded {};

// How many entries an index may hold, and how many bytes of memory at any moment; SIZE_MAX is no limit.
struct index_limits {
    std::size_t links = SIZE_MAX;
    std::size_t images = SIZE_MAX;
    std::size_t cells = SIZE_MAX;
    std::size_t items = SIZE_MAX;
    std::size_t bytes = SIZE_MAX;
};

// Throws limit_exceeded where one entry more would be too many.
inline void admit_one_more(std::size_t size, std::size_t most) {
    if (size >= most) {
        throw limit_exceeded();
    }
}

// The bytes that are left for the arrays of one index. While an array grows, the old one and the new one both
// count.
class memory_budget {
public:
    explicit memory_budget(std::size_t bytes) noexcept : m_left(bytes) {}

    // How many entries an array that is full gets room for next: twice as many, and at first as many as
    // usual, unless only fewer fit. Throws limit_exceeded where none fits.
    std::size_t next_capacity(std::size_t capacity, std::size_t usual, std::size_t entry_bytes) {
        const std::size_t next = std::min(std::max(usual, 2 * capacity), m_left / entry_bytes);
        if (next <= capacity) {
            throw limit_exceeded();
        }
        m_left -= (next - capacity) * entry_bytes;
        return next;
    }

    // Adds an entry to an array that only this function lets grow.
    template <class Entry>
    void append(std::vector<Entry>& list, const Entry& entry, std::size_t usual) {
        if (list.size() == list.capacity()) {
            // An entry may be a pointer. NOLINTNEXTLINE(bugprone-sizeof-expression)
            list.reserve(next_capacity(list.capacity(), usual, sizeof(Entry)));
        }
        list.push_back(entry);
    }

private:
    std::size_t m_left;
};

} // namespace pageslice

#endif
