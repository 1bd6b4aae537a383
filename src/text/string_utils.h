// SPDX-License-Identifier: MIT
// Small routines on NUL-terminated strings and single characters. None keeps state. A null string counts as
// the empty one, and nothing is written through it. They are kept as a set, whichever of them the library
// calls.
#ifndef PAGESLICE_TEXT_STRING_UTILS_H
#define PAGESLICE_TEXT_STRING_UTILS_H

#include <cstddef>

inline namespace pageslice_v1 {

// Letters are ASCII letters only, so that no locale and no byte from 0x80 up can change an answer.
inline bool bIsAsciiLetter(char c) noexcept {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr char nFoldAscii(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// Compares at most n characters, as unsigned bytes and without regard to the case of ASCII letters; stops at
// a NUL. 0 when equal.
int nStrNICmp(const char* a, const char* b, unsigned n) noexcept;
// The same, case counting, bytes as unsigned characters.
int nStrNCmp(const char* a, const char* b, unsigned n) noexcept;

// 1 for tab, LF, CR and space.
inline int bIsWhiteSpace(char c) noexcept {
    return c == '\t' || c == '\n' || c == '\r' || c == ' ' ? 1 : 0;
}
// 1 for '.', '/' and white space.
int bIsSeparator(char c) noexcept;

// Runs of ASCII letters.
int nCountWords(const char* s) noexcept;

// Editing in place. SetLastChar and RemoveLastChar leave the empty string alone, GetLastChar gives NUL for
// it. TruncateAt keeps the first n characters. ReplaceChar visits every position up to the NUL that ends
// the string, also when it writes NULs itself.
void SetLastChar(char* s, char c) noexcept;
void RemoveLastChar(char* s) noexcept;
void TruncateAt(char* s, unsigned n) noexcept;
char GetLastChar(const char* s) noexcept;
void ReplaceChar(char* s, char from, char to) noexcept;

// Decimal text with a comma between groups of three digits. The caller releases the result with delete[].
// A buffer passed in comes from new char[], holds the text of |n| and its NUL, and is given up: it is
// returned filled, or released and replaced by a new one when n is negative. Throws std::bad_alloc, and
// then the buffer passed in stays the caller's.
char* pFormatNumber(int n, char* buf);

// Appends a space and `word`, `count` times, then one more space. 0, with the appends made so far in
// place, when the next one would make the string longer than nLimit characters; the buffer holds
// nLimit + 2 bytes. Nothing happens for a count of 0; a negative one appends the last space only.
int bAppendWords(char* s, int nLimit, const char* word, int count) noexcept;

// Copies src to dst with every separator turned into a space and `prefix` written before every word that
// follows one. dst may be src. dst holds strlen(src) + 1 characters and strlen(prefix) for each such word.
// Always 1. Throws std::bad_alloc when dst is src and memory runs out.
int bSplitWords(char* dst, const char* src, const char* prefix);

// The position behind the first "://", or the string's start without one.
const char* pSkipScheme(const char* url) noexcept;
// Dot-separated labels between "://" and the next '/' or the string's end.
int nNumHostLevels(const char* url) noexcept;

// The decimal number at p as text::ConvertToInt reads it, looking at nMax characters at most.
int nParseDecimal(const char* p, std::size_t nMax) noexcept;

} // namespace pageslice_v1

#endif
