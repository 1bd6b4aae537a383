// SPDX-License-Identifier: MIT
// Everything that holds for a page, on generated pages, on the stored fuzz inputs and on the samples cut off
// at each length. PAGESLICE_STRESS in the environment sets the number of generated pages.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "fuzz/invariants.h"
#include "fuzz/page_generator.h"
#include "tests/fence.h"

namespace {

// Does not go on after the first failure: the rest of a long run would only repeat it.
void CheckWith(const char* pScan, const std::string& characters, const std::string& name) {
    invariants::Use(pScan);
    try {
        WithFences(characters, [&](const text& tPage) {
            invariants::CheckPage(tPage);
            const std::size_t nStep = characters.size() / 16 + 1;
            for (std::size_t i = characters.size() % nStep; i < characters.size(); i += nStep)
                invariants::CheckPosition(tPage, tPage.m_pStart + i, tPage.m_pStart + i / 2);
        });
    } catch (const std::logic_error& difference) {
        FAIL() << pScan << ", " << name << ": " << testing::PrintToString(characters) << '\n'
               << difference.what();
    }
}

void Check(const std::string& characters, const std::string& name) {
    for (const char* pScan : invariants::SCANS)
        CheckWith(pScan, characters, name);
}

// The contents of the files below a folder, by path.
std::map<std::string, std::string> FilesBelow(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        if (entry.is_regular_file())
            files[entry.path().string()].assign(std::istreambuf_iterator<char>(file), {});
    }
    return files;
}

} // namespace

TEST(StressTest, GeneratedPages) {
    const char* pCount = std::getenv("PAGESLICE_STRESS");
    const int nPages = pCount == nullptr ? 2500 : std::atoi(pCount);
    PageGenerator generator(1);
    for (int i = 0; i < nPages && !HasFailure(); ++i)
        Check(generator.Next(), "page " + std::to_string(i));
}

// Trees of links that equal, begin and continue each other in every mixture, some with a NUL inside.
TEST(StressTest, PagesOfManyLinks) {
    std::mt19937 random(2);
    for (unsigned nRepeated = 0; nRepeated < 100 && !HasFailure(); ++nRepeated) {
        std::vector<std::string> links;
        std::string page = " "; // a tag on the first character would end the pass
        for (unsigned i = 0; i < 20 * nRepeated + 40; ++i) {
            std::string link = std::to_string(random());
            if (random() % 100 < nRepeated && !links.empty())
                link = links[random() % links.size()];
            if (random() % 8 == 0)
                link.insert(random() % link.size(), 1, "\0/"[random() % 2]);
            if (random() % 8 == 0)
                link.resize(random() % link.size() + 1);
            links.push_back(link);
            page += "<a href=" + link + ">x</a>";
        }
        ASSERT_NO_THROW(WithFences(page, invariants::CheckAnswers)) << nRepeated << " % repeated";
    }
}

TEST(StressTest, StoredInputs) {
    const auto files = FilesBelow(PAGESLICE_SAMPLES "/../fuzz/corpus");
    ASSERT_FALSE(files.empty());
    for (const auto& [path, characters] : files)
        Check(characters, path);
}

TEST(StressTest, SamplesAtEachLength) {
    const auto files = FilesBelow(PAGESLICE_SAMPLES);
    ASSERT_FALSE(files.empty());
    for (const auto& [path, characters] : files) {
        for (std::size_t n = 0; n <= characters.size(); ++n) {
            invariants::Use(invariants::SCANS[n % std::size(invariants::SCANS)]);
            ASSERT_NO_THROW(WithFences(characters.substr(0, n), invariants::CheckAnswers))
                << path << " cut off at " << n;
        }
    }
}
