// SPDX-License-Identifier: MIT
// pageslice_bench CORPUS SAMPLES [Google Benchmark's own options]
//
// Times every stage and every peer over both folders of pages, the whole job of both readers on the pages of
// each kind, on one page of growing size and on each hostile family, and what single things cost. Processor
// time is what counts. The environment variable PAGESLICE_SCAN names the scan implementation; where the
// processor lacks it nothing runs and the status is 3.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <exception>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "callgrind.h"
#include "hostile.h"
#include "kinds.h"
#include "page_set.h"

namespace {

using namespace bench;

constexpr int STATUS_LEVEL_MISSING = 3;

bool HasLevel(std::string_view scan) {
#if defined(__x86_64__) || defined(__i386__)
    if (scan == "avx512") {
        return __builtin_cpu_supports("avx512bw") != 0 && __builtin_cpu_supports("avx512vbmi2") != 0;
    }
    if (scan == "avx2") {
        return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("bmi2") != 0;
    }
    return scan == "sse2" || scan == "portable";
#else
    return scan == "portable";
#endif
}

// Counts first, so that what is timed finds its memory ready and its code warm.
void Measure(benchmark::State& state, PageSet& pages, const Stage& stage) {
    const Found found = pages.Find(stage);
    const AllocationsPerPage taken = pages.Allocate(stage);
    for ([[maybe_unused]] auto _ : state) {
        pages.Round(stage);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(pages.Bytes()) * state.iterations());
    const auto put = [&state](const char* name, auto value) {
        state.counters[name] = static_cast<double>(value);
    };
    put("pages", pages.Count());
    put("bytes", pages.Bytes());
    put("links", found.links);
    put("images", found.images);
    put("text", found.textBytes);
    put("titles", found.titleBytes);
    put("allocations", taken.meanCount);
    put("allocations_max", taken.most.count);
    put("peak", taken.meanPeakBytes);
    put("peak_max", taken.most.peakBytes);
}

void Register(const std::string& name, PageSet& pages, const Stage& stage) {
    benchmark::RegisterBenchmark(name.c_str(), [&pages, &stage](benchmark::State& state) {
        Measure(state, pages, stage);
    })->Unit(benchmark::kMicrosecond);
}

// A page is made when its turn comes and dropped behind, so that large ones do not crowd out the rest.
void RegisterPage(const std::string& name, const Family& family, std::size_t n) {
    benchmark::RegisterBenchmark(name.c_str(), [&family, n](benchmark::State& state) {
        std::vector<Page> made;
        made.emplace_back(MakePage(family, n));
        PageSet pages(std::move(made));
        Measure(state, pages, Stages()[0]);
    })->Unit(benchmark::kMicrosecond);
}

const Stage& StageNamed(std::string_view name) {
    return *std::find_if(Stages().begin(), Stages().end(),
                         [name](auto& stage) { return stage.name == name; });
}

// The four pages take turns, and of each the fastest turn counts: other work on the machine only ever adds.
void MeasureCost(benchmark::State& state, const Cost& cost, const Stage& stage, const std::string& name) {
    std::deque<PageSet> pages;
    for (Page& page : PagesOf(cost)) {
        std::vector<Page> one;
        one.push_back(std::move(page));
        pages.emplace_back(std::move(one)).Round(stage);
    }
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::string label =
            name + "/" + std::to_string(COST_UNITS * cost.things) + " @ " + std::to_string(i);
        CALLGRIND_START_INSTRUMENTATION;
        CALLGRIND_ZERO_STATS;
        pages[i].Round(stage);
        CALLGRIND_DUMP_STATS_AT(label.c_str());
        CALLGRIND_STOP_INSTRUMENTATION;
    }
    std::array<double, 4> best;
    best.fill(std::numeric_limits<double>::infinity());
    for ([[maybe_unused]] auto _ : state) {
        for (std::size_t i = 0; i < best.size(); ++i) {
            const auto begin = std::chrono::steady_clock::now();
            pages[i].Round(stage);
            const std::chrono::duration<double, std::nano> took = std::chrono::steady_clock::now() - begin;
            best[i] = std::min(best[i], took.count());
        }
    }
    state.counters["ns"] = PerThing(cost, best);
}

void RegisterCost(const Cost& cost, const char* reader, const Stage& stage) {
    const std::string name = std::string("cost/") + cost.name + ", " + reader;
    benchmark::RegisterBenchmark(name.c_str(), [&cost, &stage, name](benchmark::State& state) {
        MeasureCost(state, cost, stage, name);
    });
}

void RegisterCosts() {
    for (const Cost& cost : Costs()) {
        RegisterCost(cost, "classic", StageNamed("pass"));
        if (!cost.isClassicOnly) {
            RegisterCost(cost, "standard", StageNamed("standard_pass"));
        }
    }
}

void RegisterKinds(std::deque<PageSet>& kinds, const std::vector<Page>& pages) {
    for (const Kind& kind : Kinds()) {
        PageSet& chosen = kinds.emplace_back(PagesOfKind(kind, pages));
        for (const Stage& stage : Stages()) {
            const std::string_view name(stage.name);
            if (name == "job" || name == "standard" || name == "libxml2" || name == "gumbo") {
                Register(std::string("kind/") + kind.name + "/" + stage.name, chosen, stage);
            }
        }
    }
}

void RegisterAll(PageSet& corpus, PageSet& samples) {
    for (const Stage& stage : Stages()) {
        Register(std::string("corpus/") + stage.name, corpus, stage);
        Register(std::string("samples/") + stage.name, samples, stage);
    }
    constexpr std::size_t KIB = 1024;
    for (std::size_t kib = 1; kib <= 64 * KIB; kib *= 4) {
        RegisterPage("growth/" + std::to_string(kib) + "KiB", EverydayFamily(), kib * KIB);
    }
    for (const Family& family : HostileFamilies()) {
        RegisterPage(std::string("hostile/") + family.name, family, KIB * KIB);
    }
}

} // namespace

int main(int argc, char** argv) {
    const char* const scan = std::getenv("PAGESLICE_SCAN");
    if (scan != nullptr && !HasLevel(scan)) {
        std::fprintf(stderr, "pageslice_bench: this processor has no %s\n", scan);
        return STATUS_LEVEL_MISSING;
    }
    KeepReleasedMemory();
    benchmark::Initialize(&argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "pageslice_bench: needs the folder of the corpus and that of the samples\n");
        return 2;
    }
    try {
        std::vector<Page> loaded = LoadPages({argv[1]});
        std::deque<PageSet> kinds;
        RegisterKinds(kinds, loaded);
        RegisterCosts();
        PageSet corpus(std::move(loaded));
        PageSet samples(LoadPages({argv[2]}));
        RegisterAll(corpus, samples);
        benchmark::RunSpecifiedBenchmarks();
    } catch (const std::exception& e) {
        std::fprintf(stderr, "pageslice_bench: %s\n", e.what());
        return 1;
    }
}
