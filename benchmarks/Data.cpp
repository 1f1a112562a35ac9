// JSON documents over their bytes, and long collections over numbers of elements.
#include <benchmark/benchmark.h>

#include "Velto/Velto.h"
#include "benchmarks/Model.h"

namespace velto::benchmarks {
namespace {

void measureJSON(benchmark::State& state, MakeData makeData, std::int64_t bytesEach) {
  const std::int64_t count = std::max<std::int64_t>(1, state.range(0) / bytesEach);
  const std::string document = makeData(Script::latin, static_cast<std::size_t>(count));
  for (auto _ : state) benchmark::DoNotOptimize(parseJSON(document));
  state.SetBytesProcessed(static_cast<std::int64_t>(document.size()) * state.iterations());
  state.SetComplexityN(static_cast<std::int64_t>(document.size()));
}

void measureDictionary(benchmark::State& state) {
  for (auto _ : state) {
    Dictionary dictionary;
    for (std::int64_t index = 0; index < state.range(0); ++index) dictionary.set(index, index);
    for (std::int64_t index = 0; index < state.range(0); ++index) benchmark::DoNotOptimize(dictionary.find(index));
  }
  state.SetItemsProcessed(state.range(0) * state.iterations());
  state.SetComplexityN(state.range(0));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(10)->Range(1'000, 100'000'000)->Complexity()->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(measureJSON, model, model, 1700)->Apply(sizes);
BENCHMARK_CAPTURE(measureJSON, table, table, 85)->Apply(sizes);
BENCHMARK(measureDictionary)->RangeMultiplier(10)->Range(100, 10'000'000)->Complexity()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velto::benchmarks
