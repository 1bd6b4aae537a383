// SPDX-License-Identifier: MIT
#include <vector>

#include "fuzz/reference_decode.h"
#include "page_fixture.h"
#include "text/byte_count.h"
#include "text/character_references.h"

namespace {

using pageslice::value_kind;

std::string Decoded(std::string_view in, value_kind kind) {
    std::vector<char> room(pageslice::decoded_bound(in, kind));
    return {room.data(), pageslice::decode_references(in, kind, room.data())};
}

TEST(References, Decoded) {
    RunCases("references", [](const text& t) {
        const std::string_view row(t.m_pStart, pageslice::nByteCount(t));
        const std::size_t bar = row.find('|');
        return Decoded(row.substr(bar + 1), row[0] == 't'   ? value_kind::text
                                            : row[0] == 'r' ? value_kind::rcdata
                                                            : value_kind::attribute);
    });
}

TEST(References, EveryNameIsFound) {
    EXPECT_EQ(reference::Names().size(), 2231U);
    for (const auto& [name, value] : reference::Names())
        EXPECT_EQ(Decoded("&" + name, value_kind::attribute), value) << name;
}

} // namespace
