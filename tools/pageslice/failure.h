// SPDX-License-Identifier: MIT
// Why a page or a line cannot be answered.
#ifndef PAGESLICE_TOOLS_FAILURE_H
#define PAGESLICE_TOOLS_FAILURE_H

#include <array>
#include <cstddef>
#include <exception>
#include <initializer_list>
#include <string_view>

namespace program {

inline constexpr std::string_view NO_MEMORY = "Too large to hold in memory";

// Its message, made of a few pieces, stands in the exception itself: to say that memory ran out takes none.
class Failure : public std::exception {
public:
    Failure(std::initializer_list<std::string_view> pieces) noexcept {
        std::size_t length = 0;
        for (const std::string_view piece : pieces) {
            length += piece.copy(message.data() + length, message.size() - 1 - length);
        }
    }
    const char* what() const noexcept override { return message.data(); }

private:
    std::array<char, 256> message = {};
};

} // namespace program

#endif
