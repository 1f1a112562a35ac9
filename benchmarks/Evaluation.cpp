// Whole programs without files, over numbers of rounds.
#include <benchmark/benchmark.h>

#include "benchmarks/Programs.h"

namespace velto::benchmarks {
namespace {

void measure(benchmark::State& state, const char* program) {
  measureProgram(state, program, state.range(0));
}

void rounds(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(16)->Range(1 << 8, 1 << 20)->Complexity()->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(measure, additions, "var sum = 0 for i in 0..<n sum = sum + i end")->Apply(rounds);
BENCHMARK_CAPTURE(measure, interpolation, "for i in 0..<n print(\"\\(i) of \\(n)\\n\") end")->Apply(rounds);
BENCHMARK_CAPTURE(measure, members, "for i in 0..<n print(\"hello world\".upperCamelCased()) end")->Apply(rounds);
BENCHMARK_CAPTURE(measure, dictionaries, "var d = [\"a\": 1, \"b\": 2] for i in 0..<n print(d[\"b\"]) end")
    ->Apply(rounds);
BENCHMARK_CAPTURE(measure, branches, "for i in 0..<n if i == 3 print(1) else if i < 0 print(2) else print(3) end end")
    ->Apply(rounds);

}  // namespace
}  // namespace velto::benchmarks
