// SPDX-License-Identifier: MIT
#include "tags/dumps.h"

#include <cstddef>
#include <cstdio>
#include <iterator>

#include "pageslice/records.h"
#include "tags/attribute_tables.h"
#include "tags/tag_img.h"

inline namespace pageslice_v1 {

using namespace pageslice;

namespace {

void PrintField(const char* pLabel, const text& t) {
    std::printf("%s = ", pLabel);
    t.println();
}

// A URL is a slice too, but shows its file title only.
void PrintField(const char* pLabel, const url& u) {
    std::printf("%s = ", pLabel);
    u.println(1);
}

void PrintField(const char* pLabel, const align& a) {
    std::printf("%s = ", pLabel);
    PrintAlignLn(a);
}

void PrintField(const char* pLabel, int n) {
    std::printf("%s = %d\n", pLabel, n);
}

template <class Record, class Field>
void PrintRow(const Record& record, const Attribute<Record, Field>& row) {
    PrintField(row.pLabel, record.*row.pField);
}

template <class Record, class Field>
void PrintRow(const Record& record, const Unfilled<Record, Field>& row) {
    PrintField(row.pLabel, record.*row.pField);
}

template <class Record>
void PrintRow(const Record& record, const Flag<Record>& row) {
    std::printf("%s = %s\n", row.pLabel, record.*row.pFlag != 0 ? "TRUE" : "FALSE");
}

template <class Record>
void PrintRow(const Record& /*record*/, const ReadPast& /*row*/) {}

template <class Record, class Table>
void PrintRows(const Record& record, const Table& table) {
    table.ForEach([&record](const auto& row) { PrintRow(record, row); });
}

template <class Record, class Table>
void PrintRecord(const char* pHeading, const Record& record, const Table& table) {
    std::printf("%s\n", pHeading);
    PrintRows(record, table);
    std::printf("------------------------------------------\n");
}

} // namespace

void PrintAlign(const align& a) {
    static constexpr const char* NAMES[] = {"ALIGN_UNKNOWN", "top",   "middle", "bottom",
                                            "left",          "right", "center"};
    const auto n = static_cast<std::size_t>(a);
    if (n < std::size(NAMES)) {
        std::printf("%s", NAMES[n]);
    }
}

void PrintAlignLn(const align& a) {
    PrintAlign(a);
    std::printf("\n");
}

void PrintTag(const char* p) {
    if (p != nullptr) {
        do {
            std::printf("%c", *p);
        } while (*p++ != '>');
    }
    std::printf("\n");
}

void tag_a::PrintDebug() const {
    PrintRecord("--------------- a tag --------------------", *this, ANCHOR_ATTRIBUTES);
}

void tag_img::PrintDebug() const {
    PrintRecord("-------------- img tag -------------------", *this, IMAGE_ATTRIBUTES);
}

void tag_table::PrintDebug() const {
    PrintRecord("--------------- table tag --------------------", *this, TABLE_ATTRIBUTES);
}

void tag_tr::PrintDebug() const {
    PrintRecord("-------------- tr tag --------------------", *this, ROW_ATTRIBUTES);
}

void tag_td::PrintDebug() const {
    PrintRecord("-------------- td tag -------------------", *this, CELL_ATTRIBUTES);
}

void tag_td::PrintDebugTh() const {
    PrintRecord("-------------- th tag -------------------", *this, CELL_ATTRIBUTES);
}

void tag_td::PrintFields() const {
    PrintRows(*this, CELL_ATTRIBUTES);
}

} // namespace pageslice_v1
