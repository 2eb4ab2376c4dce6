// SPDX-License-Identifier: MIT
// The store's edits on a 200,000-mapping block list: each edit, with the unapplied-edits test
// and the refreshed custom order, must fit in one 16 ms frame. Run: build/bench/store_bench

#include "hosts_store.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <benchmark/benchmark.h>

using namespace pinecove;

namespace {

// Never runs anything: the benchmarks measure edits, not writes.
class IdleRunner : public ScriptRunner {
public:
    void run(const WriteRequest&, std::function<void(Outcome)>) override {}
};

std::unique_ptr<HostsStore> largeStore() {
    HostsStore::Environment environment;
    environment.hostsPath = QStringLiteral(PINECOVE_LARGE_HOSTS);
    environment.runner = std::make_shared<IdleRunner>();
    return std::make_unique<HostsStore>(environment);
}

// Reads what a view reads after an edit: the dirty test and the entry now at `position`.
void observe(const HostsStore& store, int position) {
    benchmark::DoNotOptimize(store.isDirty());
    if (position < store.customOrder().size())
        benchmark::DoNotOptimize(store.customOrder().idAt(position));
}

void BM_StoreLoad(benchmark::State& state) {
    auto store = largeStore();
    for (auto _ : state)
        store->load();
}
BENCHMARK(BM_StoreLoad)->Unit(benchmark::kMillisecond);

void BM_StoreToggle(benchmark::State& state) {
    auto store = largeStore();
    const Uuid id = store->customOrder().idAt(store->customOrder().size() / 2);
    for (auto _ : state) {
        store->toggle(id);
        observe(*store, *store->customOrder().positionOf(id));
    }
}
BENCHMARK(BM_StoreToggle)->Unit(benchmark::kMillisecond);

void BM_StoreAdd(benchmark::State& state) {
    auto store = largeStore();
    int n = 0;
    for (auto _ : state) {
        store->add("127.0.0.1", {"added" + std::to_string(n++) + ".test"});
        observe(*store, 0);
    }
}
BENCHMARK(BM_StoreAdd)->Unit(benchmark::kMillisecond);

void BM_StoreDelete(benchmark::State& state) {
    auto store = largeStore();
    for (auto _ : state) {
        const int middle = store->customOrder().size() / 2;
        store->remove(store->customOrder().idAt(middle));
        observe(*store, middle);
    }
}
BENCHMARK(BM_StoreDelete)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QStandardPaths::setTestModeEnabled(true);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
