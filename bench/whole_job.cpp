// pageslice_job [--stage NAME] [--rounds N] FILE|FOLDER...
//
// Does the whole job, or one stage of it, for each page in turn, N rounds; prints the speed, what was
// allocated and what was found. Under callgrind with --instr-atstart=no exactly the rounds are counted.
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <deque>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_START_INSTRUMENTATION static_cast<void>(0)
#define CALLGRIND_STOP_INSTRUMENTATION static_cast<void>(0)
#endif

#include "allocations.h"
#include "pages.h"
#include "stages.h"

namespace {

using namespace bench;

struct Options {
    std::string stage = "job";
    int rounds = 15;
    std::vector<std::string> paths;
};

Options ReadOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word.rfind("--", 0) != 0) {
            options.paths.push_back(word);
            continue;
        }
        const std::string value = i + 1 < argc ? argv[++i] : "";
        if (word == "--stage") {
            options.stage = value;
        } else if (word != "--rounds" ||
                   std::from_chars(value.data(), value.data() + value.size(), options.rounds).ec !=
                       std::errc() ||
                   options.rounds < 1) {
            throw std::runtime_error("cannot use " + word + " " + value);
        }
    }
    return options;
}

const Stage& StageNamed(const std::string& name) {
    if (const Stage* const stage = FindStage(name)) {
        return *stage;
    }
    std::string names;
    for (const Stage& stage : Stages()) {
        names += std::string(" ") + stage.name;
    }
    throw std::runtime_error("no stage " + name + "; there are:" + names);
}

class Run {
public:
    Run(const Stage& stage, const std::vector<Page>& pages) : m_stage(stage), m_pages(pages) {
        for (const Page& page : pages) {
            m_indexed.emplace_back(page.Slice(), PAGE_URL).InitializeHtmlFile();
        }
    }

    void Round() {
        for (std::size_t i = 0; i < m_pages.size(); ++i) {
            m_stage.run(m_pages[i], m_indexed[i], nullptr);
        }
    }

    double SecondsOfRound() {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point begin = Clock::now();
        Round();
        return std::chrono::duration<double>(Clock::now() - begin).count();
    }

    void PrintFound() {
        Found found;
        for (std::size_t i = 0; i < m_pages.size(); ++i) {
            m_stage.run(m_pages[i], m_indexed[i], &found);
        }
        std::printf("found        %zu links, %zu images, %zu bytes of text, %zu of titles\n", found.links,
                    found.images, found.textBytes, found.titleBytes);
    }

    void PrintAllocations() {
        Allocations most;
        Allocations sum;
        for (std::size_t i = 0; i < m_pages.size(); ++i) {
            ResetAllocations();
            m_stage.run(m_pages[i], m_indexed[i], nullptr);
            const Allocations page = TakeAllocations();
            most = {std::max(most.count, page.count), std::max(most.peakBytes, page.peakBytes)};
            sum = {sum.count + page.count, sum.peakBytes + page.peakBytes};
        }
        const auto pages = static_cast<double>(m_pages.size());
        std::printf("allocations  per page: mean %.2f, max %zu; peak bytes: mean %.0f, max %zu\n",
                    static_cast<double>(sum.count) / pages, most.count,
                    static_cast<double>(sum.peakBytes) / pages, most.peakBytes);
    }

private:
    const Stage& m_stage;
    const std::vector<Page>& m_pages;
    std::deque<HtmlParser> m_indexed;
};

void PrintSpeed(std::vector<double> seconds, std::size_t bytes) {
    std::sort(seconds.begin(), seconds.end());
    const double giga = static_cast<double>(bytes) / 1e9;
    std::printf("GB/s         median %.3f, best %.3f, worst %.3f of %zu rounds\n",
                giga / seconds[seconds.size() / 2], giga / seconds.front(), giga / seconds.back(),
                seconds.size());
}

void Main(const Options& options) {
    const Stage& stage = StageNamed(options.stage);
    const std::vector<Page> pages = LoadPages(options.paths);
    Run run(stage, pages);
    run.PrintFound();
    run.PrintAllocations();

    std::vector<double> seconds;
    CALLGRIND_START_INSTRUMENTATION;
    for (int i = 0; i < options.rounds; ++i) {
        seconds.push_back(run.SecondsOfRound());
    }
    CALLGRIND_STOP_INSTRUMENTATION;
    const std::size_t bytes = TotalBytes(pages);
    std::printf("stage        %s: %zu bytes in %zu pages\n", stage.name, bytes, pages.size());
    PrintSpeed(std::move(seconds), bytes);
}

} // namespace

int main(int argc, char** argv) {
    try {
        Main(ReadOptions(argc, argv));
    } catch (const std::exception& e) {
        std::fprintf(stderr, "pageslice_job: %s\n", e.what());
        return 1;
    }
}
