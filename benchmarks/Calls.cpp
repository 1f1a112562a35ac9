// Calls of functions, over numbers of calls and over how deep these are nested.
#include <benchmark/benchmark.h>

#include "benchmarks/Programs.h"

namespace velto::benchmarks {
namespace {

void measureCalls(benchmark::State& state, const char* program) {
  measureProgram(state, program, state.range(0));
}

/// The depth of a call tells how many calls there are.
void measureDepth(benchmark::State& state) {
  measureProgram(state, "func down(_ depth) if depth == 0 return 0 end return 1 + down(depth - 1) end down(n)",
                 state.range(0));
}

void rounds(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(16)->Range(1 << 8, 1 << 20)->Complexity()->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(measureCalls, plain, "func f(_ x) return x end for i in 0..<n f(i) end")->Apply(rounds);
BENCHMARK_CAPTURE(measureCalls, labels, "func f(a, b, c) return a end for i in 0..<n f(a: i, b: 1, c: 2) end")
    ->Apply(rounds);
BENCHMARK_CAPTURE(measureCalls, closures,
                  "func make(_ x) func get() return x end return get end for i in 0..<n make(i)() end")
    ->Apply(rounds);
BENCHMARK_CAPTURE(measureCalls, members, "var list = [1, 2] for i in 0..<n list.contains(i) end")->Apply(rounds);
BENCHMARK_CAPTURE(measureCalls, callbacks,
                  "func f(_ x) return x end var list = [1, 2, 3, 4, 5, 6, 7, 8] for i in 0..<n / 8 list.map(f) end")
    ->Apply(rounds);
BENCHMARK(measureDepth)->RangeMultiplier(4)->Range(1, 1 << 10)->Complexity()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace velto::benchmarks
