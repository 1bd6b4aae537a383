// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_TEXT_H
#define PAGESLICE_TEXT_H

#if defined(PAGESLICE_WITHOUT_CLASSES)
#error                                                                                                       \
    "This package's C++ classes are of another family of compilers: use pageslice/page.h or pageslice/pageslice_c.h"
#endif

#include "pageslice/export.h"

inline namespace pageslice_v1 {

class OutputText; // what prints write into; only the library makes one, so hosts print to the console

// Alignment words of image, table, row and cell attributes.
enum align {
    ALIGN_UNKNOWN = 0,
    ALIGN_TOP = 1,
    ALIGN_MIDDLE = 2,
    ALIGN_BOTTOM = 3,
    ALIGN_LEFT = 4,
    ALIGN_RIGHT = 5,
    ALIGN_CENTER = 6
};

// A run of characters that somebody else owns.
//
//     m_pStart           m_pEnd
//        |                  |
//        v                  v
//      [ H ][ e ][ l ][ l ][ o ]        both ends inclusive, GetLength() is 5
//
// A slice is in one of three states:
//   empty        both pointers null                IsEmpty() is 1, GetLength() is 1 (see there)
//   zero-length  m_pEnd one position before m_pStart   IsEmpty() is 0, GetLength() is 0
//   ordinary     m_pStart <= m_pEnd
// A slice whose end lies before its start by more than that is treated as one without characters.
//
// Ownership and lifetime: a slice owns nothing and frees nothing. It is valid as long as the characters
// it points to; a slice of a page dies with the page's buffer. Only pMakeCopy allocates.
// Threads: no shared state; any number of slices may look at the same characters at once.
// Cost: every member is constant time or one pass over the slice.
// Results that answer a question are 1 for yes and 0 for no. Letters are ASCII letters only; characters
// are examined as signed char, so bytes from 0x80 up are never letters.
class PAGESLICE_API text {
public:
    // An empty slice.
    text() noexcept;

    // The characters of a NUL-terminated string, without its NUL; the flag is 1. "" gives a zero-length
    // slice, a null pointer an empty one.
    text(const char* s) noexcept;

    // Stores the three values as they are; nothing is checked.
    text(const char* pStart, const char* pEnd, int bNullTerminated) noexcept;

    // A view of the same characters. The copy is always a plain `text`, whatever the source was.
    text(const text& t) noexcept;
    text& operator=(const text& t) noexcept;

    // Stores the three values as they are; nothing is checked.
    void Set(const char* pStart, const char* pEnd, int bNullTerminated) noexcept;
    void Set(const text& t) noexcept;

    // Makes the slice empty.
    void Clear() noexcept;

    int IsEmpty() const noexcept;

    // Characters in the slice: end - start + 1, with no test for emptiness, so an empty slice answers 1.
    // A difference that no int holds gives the nearest int.
    int GetLength() const noexcept;

    // What the maker of the slice knew about a NUL behind its last character. Carried along, never used.
    int bIsNullTerminated() const noexcept;

    // 1 when `t` lies inside this slice, ends included (addresses are compared, not characters).
    int Surrounds(const text& t) const noexcept;

    // 1 for 'a' to 'z' and 'A' to 'Z'. Does not look at the slice.
    int IsAlphabetic(char c) const noexcept;

    // 1 when every character is an ASCII letter, also for a slice without characters.
    int IsAlphabetic() const noexcept;

    // Number of maximal runs of ASCII letters; 0 for a slice without characters.
    int nNumWords() const noexcept;

    // Three-way comparison, bytes as unsigned characters: negative when this slice sorts first, 0 when
    // equal, positive when it sorts after. A NUL at the same place in both ends the comparison of
    // characters. Of two slices where one begins the other, the shorter sorts AFTER the longer. An empty
    // slice compares as one without characters.
    int strncmp(const text& t) const noexcept;

    int operator==(const text& t) const noexcept;
    // Compares with the characters of a NUL-terminated string; a null pointer counts as an empty slice.
    int operator==(const char* s) const noexcept;
    // 1 when the slice is exactly this one character.
    int operator==(char c) const noexcept;
    // 1 exactly when strncmp(t) is negative.
    int operator<(const text& t) const noexcept;

    // A new NUL-terminated copy, made with new char[]: the caller releases it with delete[]. A NUL inside
    // the slice ends the copied characters, the rest of the array is zero. Null for an empty slice;
    // throws std::bad_alloc when memory runs out.
    char* pMakeCopy() const;

    // The alignment word that the slice spells, in any case; ALIGN_UNKNOWN for everything else.
    align ConvertToAlign() const noexcept;

    // The decimal number at the slice's start: white space, a sign, digits; 0 without a digit. Reading ends
    // at the first other character and NOT at the slice's end, so use it on slices of a NUL-terminated
    // buffer. Digits beyond int give the nearest int. 0 for an empty slice.
    int ConvertToInt() const noexcept;

    // The table of virtual functions is part of the binary interface: print, println(), println(out),
    // PrintDebug stand in slots 0 to 3. Compilers that follow the Microsoft rule lay out the overloads of
    // one name in reverse order of declaration, hence the two orders below.
    //
    // print: writes the slice into `out`, then a line end when bNewLine is not 0; returns the number of
    //   characters in out's buffer afterwards (0 for the console). A slice without characters writes
    //   nothing and returns 0; an empty slice writes one line end, whatever bNewLine says.
    // println(out): print(out, 1). println(): println to the console.
    // PrintDebug: the two pointers as decimal numbers, on the console.
    virtual int print(OutputText& out, int bNewLine) const;
#if defined(_MSC_VER)
    virtual int println(OutputText& out) const;
    virtual int println() const;
#else
    virtual int println() const;
    virtual int println(OutputText& out) const;
#endif
    virtual void PrintDebug() const;

    int m_bNullTerminated;
    const char* m_pStart;
    const char* m_pEnd;
};

} // namespace pageslice_v1

#endif
