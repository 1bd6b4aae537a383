// SPDX-License-Identifier: MIT
// A page of characters beside memory that nobody may touch. The characters themselves can only be read, so
// that a write into the host's page stops the test as surely as a read one byte outside it.
#ifndef PAGESLICE_TESTS_FENCE_H
#define PAGESLICE_TESTS_FENCE_H

#include <algorithm>
#include <cstddef>
#include <new>
#include <string_view>

#if defined(_WIN32)
#include <windows.h>
#else
#include <sys/mman.h>
#endif

#include "pageslice/text.h"

enum class Fence {
    Behind, // the last character stands right before forbidden memory
    Before  // the first character stands right after it
};

class FencedPage {
public:
    FencedPage(std::string_view characters, Fence fence) : m_nCharacters(characters.size()) {
        const std::size_t nRoom = std::max<std::size_t>((m_nCharacters + UNIT - 1) / UNIT, 1) * UNIT;
        m_nMapped = nRoom + 2 * UNIT;
        m_pMapped = pMap(m_nMapped);
        char* pRoom = m_pMapped + UNIT;
        Protect(pRoom, nRoom, true);
        m_pFirst = fence == Fence::Behind ? pRoom + nRoom - m_nCharacters : pRoom;
        characters.copy(m_pFirst, m_nCharacters);
        Protect(pRoom, nRoom, false);
    }
    FencedPage(const FencedPage&) = delete;
    FencedPage& operator=(const FencedPage&) = delete;
    ~FencedPage() { Unmap(); }

    // Of zero length when there are no characters.
    text Slice() const { return {m_pFirst, m_pFirst + m_nCharacters - 1, 0}; }

private:
    // A multiple of the size of a memory page on every system.
    static constexpr std::size_t UNIT = 65536;

#if defined(_WIN32)
    static char* pMap(std::size_t n) {
        void* p = VirtualAlloc(nullptr, n, MEM_RESERVE | MEM_COMMIT, PAGE_NOACCESS);
        return p != nullptr ? static_cast<char*>(p) : throw std::bad_alloc();
    }
    static void Protect(char* p, std::size_t n, bool bWritable) {
        DWORD nBefore = 0;
        if (!VirtualProtect(p, n, bWritable ? PAGE_READWRITE : PAGE_READONLY, &nBefore))
            throw std::bad_alloc();
    }
    void Unmap() {
        VirtualFree(m_pMapped, 0, MEM_RELEASE);
    }
#else
    static char* pMap(std::size_t n) {
        void* p = mmap(nullptr, n, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        return p != MAP_FAILED ? static_cast<char*>(p) : throw std::bad_alloc();
    }
    static void Protect(char* p, std::size_t n, bool bWritable) {
        if (mprotect(p, n, bWritable ? PROT_READ | PROT_WRITE : PROT_READ) != 0)
            throw std::bad_alloc();
    }
    void Unmap() {
        munmap(m_pMapped, m_nMapped);
    }
#endif

    std::size_t m_nCharacters;
    std::size_t m_nMapped;
    char* m_pMapped;
    char* m_pFirst;
};

// Runs `check` on a slice of these characters in both arrangements.
template <typename Check>
void WithFences(std::string_view characters, Check check) {
    for (const Fence fence : {Fence::Behind, Fence::Before}) {
        const FencedPage page(characters, fence);
        check(page.Slice());
    }
}

#endif
