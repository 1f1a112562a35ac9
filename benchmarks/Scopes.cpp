// Scopes, over their number, over how deep they are nested, and over how far a variable lies from its use.
#include <benchmark/benchmark.h>

#include "benchmarks/Programs.h"

namespace velto::benchmarks {
namespace {

/// Blocks one inside the other, each with a variable that is made of the next one outward; `innermost` stands in the
/// last.
std::string nested(std::int64_t depth, const std::string& innermost) {
  std::string program = "var v0 = 0\n";
  for (std::int64_t level = 1; level <= depth; ++level) {
    program += "if true var v" + std::to_string(level) + " = v" + std::to_string(level - 1) + "\n";
  }
  program += innermost;
  for (std::int64_t level = 1; level <= depth; ++level) program += "\nend";
  return program;
}

void measureBlocks(benchmark::State& state, const char* program) {
  measureProgram(state, program, state.range(0));
}

void measureNested(benchmark::State& state) {
  measureProgram(state, nested(state.range(0), ""), 0);
}

/// A thousand uses of the outermost variable from the innermost scope.
void measureDistance(benchmark::State& state) {
  measureProgram(state, nested(state.range(0), "for i in 0..<n v0 end"), 1000);
}

void rounds(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(16)->Range(1 << 8, 1 << 20)->Complexity()->Unit(benchmark::kMicrosecond);
}

void depths(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(4)->Range(1, 1 << 10)->Complexity()->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(measureBlocks, empty, "for i in 0..<n if true 1 end end")->Apply(rounds);
BENCHMARK_CAPTURE(measureBlocks, oneVariable, "for i in 0..<n if true var a = i end end")->Apply(rounds);
BENCHMARK_CAPTURE(measureBlocks, fiveVariables,
                  "for i in 0..<n if true var a = i var b = a var c = b var d = c var e = d end end")
    ->Apply(rounds);
BENCHMARK_CAPTURE(measureBlocks, capturedScope, "for i in 0..<n var a = i func get() return a end get() end")
    ->Apply(rounds);
BENCHMARK(measureNested)->Apply(depths);
BENCHMARK(measureDistance)->Apply(depths);

}  // namespace
}  // namespace velto::benchmarks
