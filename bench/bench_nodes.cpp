// Node registry costs: building and freeing big trees, and id lookup (what
// picking does for every hit). Run: build/bench/bench_nodes
#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <vector>

#include "core/CVChild.h"
#include "core/CVMFNode.h"

namespace {

void BM_CreateThenFreeThroughHolder(benchmark::State& state) {
    const int n = (int)state.range(0);
    for (auto _ : state) {
        auto* children = new CVMFNode<CVChild*>();
        for (int i = 0; i < n; ++i) children->Add(new CVChild);
        delete children;  // releases every child in order, as a root group does
    }
    state.SetComplexityN(n);
}

void BM_CreateThenFreeInRandomOrder(benchmark::State& state) {
    const int n = (int)state.range(0);
    std::mt19937 rng(42);
    std::vector<CVChild*> nodes(n);
    for (auto _ : state) {
        for (int i = 0; i < n; ++i) {
            nodes[i] = new CVChild;
            nodes[i]->Ref();
        }
        std::shuffle(nodes.begin(), nodes.end(), rng);
        for (CVChild* c : nodes) c->Unref();
    }
    state.SetComplexityN(n);
}

void BM_FindNodeByID(benchmark::State& state) {
    const int n = (int)state.range(0);
    std::vector<CVChild*> nodes(n);
    for (int i = 0; i < n; ++i) nodes[i] = new CVChild;
    // Punch holes so that lookups cross removed slots too.
    for (int i = 0; i < n; i += 3) {
        delete nodes[i];
        nodes[i] = nullptr;
    }
    std::mt19937 rng(1);
    std::uniform_int_distribution<int> pick(0, n - 1);
    int first = nodes[1]->GetID() - 1;
    for (auto _ : state) benchmark::DoNotOptimize(CVNode::FindNodeByID(first + pick(rng)));
    for (CVChild* c : nodes) delete c;
    state.SetComplexityN(n);
}

}  // namespace

BENCHMARK(BM_CreateThenFreeThroughHolder)->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_CreateThenFreeInRandomOrder)->RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_FindNodeByID)->RangeMultiplier(10)->Range(10000, 1000000)->Complexity();
BENCHMARK_MAIN();
