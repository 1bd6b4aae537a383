// SPDX-License-Identifier: MIT
#ifndef PAGESLICE_TEXT_CHAR_TABLES_H
#define PAGESLICE_TEXT_CHAR_TABLES_H

inline namespace pageslice_v1 {

// Class and case of every character of eleven 8-bit character sets: constant data, one table read per answer,
// deaf to the locale of the host.
//
// The first index is the set: 0 to 9 are ISO 8859-1 to ISO 8859-10, 10 is KOI8-R. The second is the character
// plus 128, so that a signed char, an unsigned byte and the end-of-file value -1 (which has no class) can all
// be looked up without a cast:
//
//     if (g_charClass[0][*p + 128] & CT_SPACE) ...

// What a class entry is made of. A letter of a script without case is both CT_LOWER and CT_UPPER; a position
// that the set leaves unassigned has no bit at all. From 0x80 up only letters, CT_CONTROL and CT_PUNCT occur.
inline constexpr unsigned char CT_LOWER = 0x01;
inline constexpr unsigned char CT_UPPER = 0x02;
inline constexpr unsigned char CT_DIGIT = 0x04;
inline constexpr unsigned char CT_SPACE = 0x08; // tab, LF, vertical tab, form feed, CR and space
inline constexpr unsigned char CT_CONTROL = 0x10;
inline constexpr unsigned char CT_HEX = 0x20;
inline constexpr unsigned char CT_PUNCT = 0x40; // every other printable character
inline constexpr unsigned char CT_BLANK = 0x80; // the space, and not even the tab

// Each element points to 384 entries. A character without a partner in the other case maps to itself. The two
// lists of case maps end with a null pointer, the list of class tables does not.
extern const unsigned char* const g_charClass[11];
extern const unsigned char* const g_charToLower[12];
extern const unsigned char* const g_charToUpper[12];

} // namespace pageslice_v1

#endif
