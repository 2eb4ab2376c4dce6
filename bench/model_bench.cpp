// SPDX-License-Identifier: MIT
// Speed of the hosts model on a 200,000-mapping block list. Run: build/bench/model_bench

#include "hosts_document.h"
#include "hosts_edits.h"

#include <benchmark/benchmark.h>
#include <fstream>
#include <sstream>

using namespace pinecove;

namespace {

const std::string& largeText() {
    static const std::string text = [] {
        std::ifstream in(PINECOVE_LARGE_HOSTS, std::ios::binary);
        std::ostringstream bytes;
        bytes << in.rdbuf();
        return bytes.str();
    }();
    return text;
}

// Parse, ids, table and order, from text already in memory.
void BM_Load(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto text = std::make_shared<const std::string>(largeText());
        state.ResumeTiming();
        HostsDocument document = parseHostsText(std::move(text));
        benchmark::DoNotOptimize(document);
        state.PauseTiming();
        document = {};
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(largeText().size()));
}
BENCHMARK(BM_Load)->Unit(benchmark::kMillisecond);

void BM_Serialized(benchmark::State& state) {
    const HostsDocument document = parseHostsText(largeText());
    for (auto _ : state)
        benchmark::DoNotOptimize(serialized(document));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(largeText().size()));
}
BENCHMARK(BM_Serialized)->Unit(benchmark::kMillisecond);

// The unapplied-edits test: the whole text against the baseline.
void BM_DirtyComparison(benchmark::State& state) {
    const HostsDocument document = parseHostsText(largeText());
    const std::string baseline = serialized(document);
    for (auto _ : state) {
        const bool dirty = serialized(document) != baseline;
        benchmark::DoNotOptimize(dirty);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(largeText().size()));
}
BENCHMARK(BM_DirtyComparison)->Unit(benchmark::kMillisecond);

void BM_ToggleThenSerialized(benchmark::State& state) {
    HostsDocument document = parseHostsText(largeText());
    // An entry in the middle of the file.
    const Uuid id = document.order[document.order.size() / 2];
    for (auto _ : state) {
        toggleEntry(document, id);
        benchmark::DoNotOptimize(serialized(document));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(largeText().size()));
}
BENCHMARK(BM_ToggleThenSerialized)->Unit(benchmark::kMillisecond);

// Every entry a load reads gets a new id: 200,000 of them for the block list.
void BM_NewId(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(Uuid::random());
}
BENCHMARK(BM_NewId);

} // namespace

BENCHMARK_MAIN();
