// SPDX-License-Identifier: MIT
// Bytes of a page made fit for people's eyes and for consumers that insist on UTF-8.
#ifndef PAGESLICE_TOOLS_DISPLAY_H
#define PAGESLICE_TOOLS_DISPLAY_H

#include <cstddef>
#include <string>
#include <string_view>

namespace program {

struct Decoded {
    char32_t character;
    std::size_t size; // bytes it takes, at least 1
    bool valid;       // false: not UTF-8, and `character` is the one byte
};

// The character that stands first in `bytes`, which are not empty. Overlong forms, surrogates and what lies
// beyond U+10FFFF are not valid.
Decoded decodeUtf8(std::string_view bytes);
// How many bytes at the start of what is no UTF-8 count as one error: those that could have begun a
// character.
std::size_t brokenSize(std::string_view bytes);
// Control characters, and those that change the order in which what stands around them is shown.
bool isUnseen(char32_t character);
// Those that take no room.
bool hasNoWidth(char32_t character);
// As in ⟨U+202E⟩.
void appendName(std::string& out, char32_t character);
// Valid UTF-8 for a terminal, with the names of characters that would change the order of the others.
std::string withMarks(std::string_view utf8);
void appendUtf8(std::string& out, char32_t character);

// Appends the first character of `bytes` as people can read it, and gives the number of bytes it took: a
// byte that is not UTF-8 reads as the Western European character that old pages mean by it, a control
// byte as its picture, so that no page can give orders to a terminal.
std::size_t appendLegible(std::string& out, std::string_view bytes);

// The whole of `bytes` that way; line ends and tabs stay.
std::string legible(std::string_view bytes);

// A file's name in one line: a line end in it shows too.
std::string shownName(std::string_view name);

enum class Markup { strip, keep };

// Captured text in one line of valid UTF-8, white space collapsed and cut, with '…', after `limit`
// characters. Stripped tags count as white space unless they only change how letters look.
std::string oneLine(std::string_view bytes, Markup markup, std::size_t limit = std::string_view::npos);

// Characters of valid UTF-8.
std::size_t countCharacters(std::string_view utf8);

} // namespace program

#endif
