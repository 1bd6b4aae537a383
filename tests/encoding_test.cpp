// SPDX-License-Identifier: MIT
#include "page_fixture.h"
#include "standard/encoding.h"
#include "text/byte_count.h"

namespace {

using pageslice::standard::encoding_of_label;
using pageslice::standard::sniff_encoding;

TEST(Encoding, Names) {
    RunCases("labels", [](const text& label) {
        return std::string(encoding_of_label({label.m_pStart, pageslice::nByteCount(label)}));
    });
}

TEST(Encoding, Sniffing) {
    RunCases("encodings", [](const text& t) {
        const std::string_view row(t.m_pStart, pageslice::nByteCount(t));
        const std::size_t bar = row.find('|');
        return std::string(sniff_encoding(row.substr(bar + 1), row.substr(0, bar)));
    });
}

// A declaration counts when its '>' is the 1024th byte, and not when it is the next one.
TEST(Encoding, ReadsTheFirst1024Bytes) {
    for (const std::string declaration : {"<meta charset=big5>", "<meta charset='big5'/>"}) {
        const std::string page = std::string(1024 - declaration.size(), ' ') + declaration;
        EXPECT_EQ(sniff_encoding(page, ""), "Big5");
        EXPECT_EQ(sniff_encoding(" " + page, ""), "windows-1252");
    }
    const std::string xml = "<?xml encoding='big5'";
    EXPECT_EQ(sniff_encoding(xml + std::string(1023 - xml.size(), ' ') + ">", ""), "Big5");
    EXPECT_EQ(sniff_encoding(xml + std::string(1024 - xml.size(), ' ') + ">", ""), "windows-1252");
}

} // namespace
