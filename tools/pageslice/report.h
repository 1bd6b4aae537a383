// SPDX-License-Identifier: MIT
// Where a printer writes the report on one page.
#ifndef PAGESLICE_TOOLS_REPORT_H
#define PAGESLICE_TOOLS_REPORT_H

#include <cstddef>
#include <functional>
#include <string_view>

#include "bytes.h"

namespace program {

// Keeps the beginning, so that short reports can be made in any order and many at once, and passes a long
// one on in pieces, so that none takes much memory. Writing to it never fails for lack of memory.
class Report {
public:
    using PassOn = std::function<void(std::string_view)>;

    // The first call of `passOn` may have to wait until the reports before this one are out. Allocates.
    explicit Report(PassOn passOn);

    void put(std::string_view text) {
        count += text.size();
        if (text.size() > kept.spare() && !makeRoom(text.size())) {
            pass(text);
        } else {
            kept.append(text);
        }
    }
    void put(char c) { put(std::string_view(&c, 1)); }
    void putNumber(std::size_t number);

    // How many bytes were put since the start.
    std::size_t size() const { return count; }
    // Begins a new report after those that are still here.
    void start() { count = 0; }
    // What is still here is not to leave.
    void forget() { kept.clear(); }
    void passRest();

private:
    // Gives false for what had better leave at once.
    bool makeRoom(std::size_t wanted);

    PassOn pass;
    Bytes kept;
    std::size_t count = 0;
};

} // namespace program

#endif
