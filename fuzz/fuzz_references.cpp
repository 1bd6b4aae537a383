// SPDX-License-Identifier: MIT
// A value decoded as if it stood at each place, against the plain rules, into no more room than was promised.
#include <vector>

#include "fuzz/invariants.h"
#include "fuzz/reference_decode.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n) {
    using pageslice::value_kind;
    const std::string_view in(reinterpret_cast<const char*>(pData), n);
    for (const value_kind kind : {value_kind::text, value_kind::rcdata, value_kind::attribute}) {
        std::vector<char> room(pageslice::decoded_bound(in, kind));
        char* const pEnd = pageslice::decode_references(in, kind, room.data());
        invariants::Require(std::string(room.data(), pEnd) == reference::Decoded(std::string(in), kind),
                            "decoded");
    }
    return 0;
}
