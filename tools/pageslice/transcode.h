// SPDX-License-Identifier: MIT
// Pages of any encoding for readers of UTF-8.
#ifndef PAGESLICE_TOOLS_TRANSCODE_H
#define PAGESLICE_TOOLS_TRANSCODE_H

#include <array>
#include <string>
#include <string_view>

#include "system_decoder.h"

namespace program {

// Turns bytes of one encoding into UTF-8. What the encoding does not know becomes U+FFFD, and so does all
// that is not ASCII where the system does not know the encoding. Used by one thread at a time.
class Transcoder {
public:
    // `encoding` is a name that the Encoding Standard gives, as in "windows-1252".
    explicit Transcoder(std::string_view encoding);

    // Whether ASCII bytes stand for markup and for nothing else. A page where they do not has to become UTF-8
    // before it is read.
    bool hasAsciiMarkup() const { return markupIsAscii; }
    // What is cut out of a page: a text, an attribute's value.
    std::string utf8(std::string_view bytes) const;
    // A page, without the byte order mark that it may begin with.
    std::string utf8Page(std::string_view page) const;

private:
    enum class Form { utf8, utf16be, utf16le, oneByte, system, none };

    static Form formOf(std::string_view encoding);
    void fillTable(std::string_view encoding);
    char32_t characterOf(unsigned char byte) const;

    Form form;
    bool markupIsAscii;
    SystemDecoder system;
    std::array<char32_t, 128> table{}; // of the bytes from 0x80 up, where each is a character
};

} // namespace program

#endif
