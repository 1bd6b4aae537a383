// SPDX-License-Identifier: MIT
#include "report.h"

#include <array>
#include <charconv>
#include <new>
#include <utility>

namespace program {
namespace {

constexpr std::size_t FIRST_ROOM = std::size_t{1} << 14;
constexpr std::size_t MOST_KEPT = std::size_t{1} << 20;

} // namespace

Report::Report(PassOn passOn) : pass(std::move(passOn)) {
    kept.room(FIRST_ROOM);
}

void Report::putNumber(std::size_t number) {
    std::array<char, 24> digits; // more than 64 bits take
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number);
    put({digits.data(), static_cast<std::size_t>(end.ptr - digits.data())});
}

void Report::passRest() {
    if (!kept.empty()) {
        pass(kept.view());
    }
    kept.clear();
}

bool Report::makeRoom(std::size_t wanted) {
    if (kept.size() + wanted <= MOST_KEPT) {
        try {
            kept.room(wanted);
            return true;
        } catch (const std::bad_alloc&) { // then it leaves earlier
        }
    }
    pass(kept.view());
    kept.clear();
    return wanted <= kept.spare();
}

} // namespace program
