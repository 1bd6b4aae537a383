// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_URL_LIST_H
#define PAGESLICE_URL_LIST_H

#include <cstddef>
#include <new>

#include "pageslice/export.h"
#include "pageslice/text.h"

inline namespace pageslice_v1 {

// URLs packed one after the other, each with its NUL, in one buffer whose size never changes.
//
//      m_pBuffer                  m_pCursor         m_pLast
//        |                          |                 |
//        v                          v                 v
//      [ a ][ b ][NUL][ x ][ y ][NUL][NUL][NUL][NUL][NUL]
//
// One cursor serves filling and reading: after filling, call pMoveFirst, then pGetNext until it gives
// null. Adding after pMoveFirst writes over the entries.
//
// Ownership: the list owns its buffer; entries handed out point into it and die with it (Clear,
// assignment, destruction). A list is used by one thread at a time.
class PAGESLICE_API UrlList {
public:
    // A zero-filled buffer of nSize bytes; no buffer when nSize is 0 or less. Throws std::bad_alloc.
    explicit UrlList(int nSize);
    // Copies the whole buffer; the copy's cursor stands at its start. Throws std::bad_alloc.
    UrlList(const UrlList& other);
    // Copies the whole buffer, as the copy constructor does; when memory runs out, std::bad_alloc is
    // thrown and the target keeps what it held. From a list without a buffer the target gets one zero byte.
    UrlList& operator=(const UrlList& other);
    ~UrlList();

    // Releases the buffer; what follows finds a list without one.
    void Clear() noexcept;

    // 1 when the list has no buffer. A buffer without entries is not empty in this sense.
    int bIsEmpty() const noexcept;

    // Adds one entry at the cursor: 1 when added or when there is nothing to add (null pointer, empty
    // slice), 0 when it does not fit, and then nothing changes. An entry of n characters needs n + 1 bytes.
    // The URL may lie in this list's own buffer.
    int bAddUrl(const char* pUrl) noexcept;
    // A NUL inside the slice ends the copied characters; the rest of its n bytes is zero.
    int bAddUrl(const text& tUrl) noexcept;

    // Puts the cursor at the start; gives the first entry, which the next pGetNext gives again. Null
    // without a buffer.
    const char* pMoveFirst() noexcept;

    // The entry at the cursor, which moves after it; null at the end and for an empty entry.
    const char* pGetNext() noexcept;

    // A list is made and deleted in the library's own memory, so that either side can delete what the other
    // made, also where the two do not share one C++ run-time library.
    static void* operator new(std::size_t nSize);
    static void* operator new(std::size_t nSize, const std::nothrow_t&) noexcept;
    static void* operator new(std::size_t, void* pPlace) noexcept { return pPlace; }
    static void operator delete(void* pList) noexcept;
    static void operator delete(void* pList, const std::nothrow_t&) noexcept;
    static void operator delete(void*, void*) noexcept {}

    // The library's own way to add many; not exported.
    class Filler;

private:
    void Initialize(int nSize);

public:
    // To be read; what changes them is the list's business.
    char* m_pBuffer;
    char* m_pLast;
    char* m_pCursor;
};

} // namespace pageslice_v1

#endif
