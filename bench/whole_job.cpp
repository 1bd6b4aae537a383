// SPDX-License-Identifier: MIT
// pageslice_job [--stage NAME] [--rounds N] [--everyday BYTES] FILE|FOLDER...
//
// Does the whole job, or one stage of it, for each page in turn, N rounds; prints the speed, what was
// allocated and what was found. --everyday makes one more page, of so many bytes. Under callgrind with
// --instr-atstart=no exactly the rounds are counted.
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <ctime>
#include <exception>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "callgrind.h"
#include "hostile.h"
#include "page_set.h"

namespace {

using namespace bench;

struct Options {
    std::string stage = "job";
    int rounds = 15;
    int everydayBytes = 0;
    std::vector<std::string> paths;
};

int ReadNumber(const std::string& s) {
    int n = 0;
    if (std::from_chars(s.data(), s.data() + s.size(), n).ec != std::errc() || n < 1) {
        throw std::runtime_error("not a number above 0: " + s);
    }
    return n;
}

Options ReadOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (!word.starts_with("--")) {
            options.paths.push_back(word);
        } else if (word == "--stage" && i + 1 < argc) {
            options.stage = argv[++i];
        } else if (word == "--rounds" && i + 1 < argc) {
            options.rounds = ReadNumber(argv[++i]);
        } else if (word == "--everyday" && i + 1 < argc) {
            options.everydayBytes = ReadNumber(argv[++i]);
        } else {
            throw std::runtime_error("cannot use " + word);
        }
    }
    return options;
}

const Stage& StageNamed(const std::string& name) {
    std::string names;
    for (const Stage& stage : Stages()) {
        if (stage.name == name) {
            return stage;
        }
        names += std::string(" ") + stage.name;
    }
    throw std::runtime_error("no stage " + name + "; there are:" + names);
}

// Processor time: other programs that run beside this one do not count.
double SecondsOfRound(PageSet& pages, const Stage& stage) {
    const std::clock_t begin = std::clock();
    pages.Round(stage);
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

void PrintSpeed(std::vector<double> seconds, std::size_t bytes) {
    std::sort(seconds.begin(), seconds.end());
    const double giga = static_cast<double>(bytes) / 1e9;
    std::printf("GB/s         median %.3f, best %.3f, worst %.3f of %zu rounds\n",
                giga / seconds[seconds.size() / 2], giga / seconds.front(), giga / seconds.back(),
                seconds.size());
}

void Main(const Options& options) {
    const Stage& stage = StageNamed(options.stage);
    std::vector<Page> loaded = LoadPages(options.paths);
    if (options.everydayBytes > 0) {
        loaded.emplace_back(MakePage(EverydayFamily(), static_cast<std::size_t>(options.everydayBytes)));
    }
    PageSet pages(std::move(loaded));
    if (pages.Bytes() == 0) {
        throw std::runtime_error("no pages");
    }
    std::printf("stage        %s: %zu bytes in %zu pages\n", stage.name, pages.Bytes(), pages.Count());
    const Found found = pages.Find(stage);
    std::printf("found        %zu links, %zu images, %zu bytes of text, %zu of titles\n", found.links,
                found.images, found.textBytes, found.titleBytes);
    const AllocationsPerPage taken = pages.Allocate(stage);
    std::printf("allocations  per page: mean %.2f, max %zu; peak bytes: mean %.0f, max %zu\n",
                taken.meanCount, taken.most.count, taken.meanPeakBytes, taken.most.peakBytes);

    std::vector<double> seconds;
    CALLGRIND_START_INSTRUMENTATION;
    for (int i = 0; i < options.rounds; ++i) {
        seconds.push_back(SecondsOfRound(pages, stage));
    }
    CALLGRIND_STOP_INSTRUMENTATION;
    PrintSpeed(std::move(seconds), pages.Bytes());
}

} // namespace

int main(int argc, char** argv) {
    KeepReleasedMemory();
    try {
        Main(ReadOptions(argc, argv));
    } catch (const std::exception& e) {
        std::fprintf(stderr, "pageslice_job: %s\n", e.what());
        return 1;
    }
}
