// SPDX-License-Identifier: MIT
// Standard output.
#ifndef PAGESLICE_TOOLS_OUTPUT_H
#define PAGESLICE_TOOLS_OUTPUT_H

#include <array>
#include <cstddef>
#include <mutex>
#include <string_view>

namespace program {

// Gathers what is written into large pieces. After the first failure it takes no more. The threads of a
// stream share it: one writes, another that is about to wait for input sends what there is.
class Output {
public:
    void write(std::string_view bytes);
    // The end of an answer; it leaves at once where somebody waits for it.
    void finishAnswer();
    // Whether somebody may wait for each answer. Saying so sends what there is.
    void setAwaited(bool awaited);
    // Gives whether all was written.
    bool flush();

    bool failed() const;
    // The system's number for what went wrong; 0 for nothing.
    int failure() const;

private:
    void send(std::string_view bytes);
    void sendAll();

    mutable std::mutex mutex;
    bool isAwaited = false;
    int error = 0;
    std::size_t used = 0;
    std::array<char, std::size_t{1} << 16> buffer;
};

} // namespace program

#endif
