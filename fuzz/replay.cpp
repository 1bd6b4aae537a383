// SPDX-License-Identifier: MIT
// Runs the stored inputs of a target, fenced, as an ordinary program. The argument is their folder.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/fence.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t n);

int main(int, char** ppArguments) {
    int nInputs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ppArguments[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string input(std::istreambuf_iterator<char>(file), {});
        std::fprintf(stderr, "%s\n", entry.path().string().c_str());
        WithFences(input, [&](const text& t) {
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(t.m_pStart), input.size());
        });
        ++nInputs;
    }
    return nInputs == 0; // a folder without inputs is a mistake
}
