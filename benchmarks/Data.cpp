// JSON documents and long collections, over numbers of elements.
#include <benchmark/benchmark.h>

#include "Velto/Velto.h"

namespace velto::benchmarks {
namespace {

void measureJSON(benchmark::State& state) {
  std::string document = "[";
  for (std::int64_t index = 0; index < state.range(0); ++index) {
    document += (index ? "," : "") + ("{\"name\":\"entity " + std::to_string(index)) +
                "\",\"size\":" + std::to_string(index) + ",\"isPublic\":true,\"tags\":[\"a\",\"b\"],\"parent\":null}";
  }
  document += "]";
  for (auto _ : state) benchmark::DoNotOptimize(parseJSON(document));
  state.SetBytesProcessed(static_cast<std::int64_t>(document.size()) * state.iterations());
  state.SetComplexityN(state.range(0));
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

void elements(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(16)->Range(1 << 6, 1 << 18)->Complexity()->Unit(benchmark::kMicrosecond);
}

BENCHMARK(measureJSON)->Apply(elements);
BENCHMARK(measureDictionary)->Apply(elements);

}  // namespace
}  // namespace velto::benchmarks
