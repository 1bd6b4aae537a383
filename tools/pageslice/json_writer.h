// SPDX-License-Identifier: MIT
// Pieces of JSON, written as they come.
#ifndef PAGESLICE_TOOLS_JSON_WRITER_H
#define PAGESLICE_TOOLS_JSON_WRITER_H

#include <cstddef>
#include <string_view>

#include "report.h"

namespace program {

// Objects and arrays that are still open can be closed at any moment, so that what was begun ends as JSON
// whatever happens. Its limit is one of bytes, as they are written.
class JsonWriter {
public:
    // Where the report goes to a terminal, what could act on it is escaped too.
    JsonWriter(Report& report, bool toTerminal) : out(report), careful(toTerminal) {}

    void open(char bracket);
    void close();
    // Leaves so many open.
    void closeTo(std::size_t brackets);

    // What comes before a value: a comma where one is needed, and in an object its name.
    void name(std::string_view name);
    void element();

    // Valid UTF-8, whatever the bytes are: what is none becomes U+FFFD. Only as much as fits into `most`
    // bytes is written; gives whether that was all.
    bool string(std::string_view bytes, std::size_t most = SIZE_MAX);
    void number(std::size_t value) { out.putNumber(value); }
    void literal(std::string_view json) { out.put(json); }
    // JSON that somebody else wrote, made valid UTF-8.
    void copied(std::string_view json);

    std::size_t size() const { return out.size(); }

private:
    static constexpr std::size_t DEEPEST = 8;

    void comma();
    // What stands for the first character, if it fits.
    bool putEscaped(std::string_view& bytes, std::size_t& left);
    std::size_t runAsItIs(std::string_view bytes) const;
    bool isEscaped(char32_t c) const;

    Report& out;
    bool careful;
    bool isFirst = true;
    std::size_t depth = 0;
    char closing[DEEPEST] = {};
};

} // namespace program

#endif
