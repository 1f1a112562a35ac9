// Whole programs without files, over numbers of rounds.
#include <benchmark/benchmark.h>

#include "Velto/Velto.h"

namespace velto::benchmarks {
namespace {

Statements parse(const String& program) {
  const auto logger = std::make_shared<ArrayLogger>();
  Scanner scanner(program, Scanner::Mode::program, logger, "benchmark");
  return Parser(Unpacker(scanner.scanTokens(), logger).unpack(), logger).parse();
}

/// Runs `program` with the global `n`, its output counted and dropped.
void measure(benchmark::State& state, const char* program) {
  const Statements statements = parse(program);
  std::size_t written = 0;
  for (auto _ : state) {
    Interpreter interpreter;
    interpreter.print = [&](const String& text) { written += text.size(); };
    interpreter.globals().define("n", state.range(0));
    Resolver(interpreter).resolve(statements);
    interpreter.interpret(statements);
    if (interpreter.hadError) state.SkipWithError("the program failed");
  }
  benchmark::DoNotOptimize(written);
  state.SetItemsProcessed(state.range(0) * state.iterations());
  state.SetComplexityN(state.range(0));
}

void rounds(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(16)->Range(1 << 8, 1 << 16)->Complexity()->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(measure, additions, "var sum = 0 for i in 0..<n sum = sum + i end")->Apply(rounds);
BENCHMARK_CAPTURE(measure, calls, "func f(_ x) return x end for i in 0..<n f(i) end")->Apply(rounds);
BENCHMARK_CAPTURE(measure, closures,
                  "func make(_ x) func get() return x end return get end for i in 0..<n make(i)() end")
    ->Apply(rounds);
BENCHMARK_CAPTURE(measure, interpolation, "for i in 0..<n print(\"\\(i) of \\(n)\\n\") end")->Apply(rounds);
BENCHMARK_CAPTURE(measure, members, "for i in 0..<n print(\"hello world\".upperCamelCased()) end")->Apply(rounds);
BENCHMARK_CAPTURE(measure, dictionaries, "var d = [\"a\": 1, \"b\": 2] for i in 0..<n print(d[\"b\"]) end")
    ->Apply(rounds);
BENCHMARK_CAPTURE(measure, branches, "for i in 0..<n if i == 3 print(1) else if i < 0 print(2) else print(3) end end")
    ->Apply(rounds);

}  // namespace
}  // namespace velto::benchmarks
