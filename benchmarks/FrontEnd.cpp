// Scanning and parsing, over sizes in bytes.
#include <benchmark/benchmark.h>

#include "Velto/Velto.h"
#include "benchmarks/Sources.h"

namespace velto::benchmarks {
namespace {

using MakeSource = std::string (*)(std::size_t size);

std::vector<Token> scan(const String& source, Scanner::Mode mode) {
  const auto logger = std::make_shared<ArrayLogger>();
  Scanner scanner(source, mode, logger, "benchmark");
  return Unpacker(scanner.scanTokens(), logger).unpack();
}

void measureScan(benchmark::State& state, MakeSource makeSource, Scanner::Mode mode) {
  const String source = makeSource(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) benchmark::DoNotOptimize(scan(source, mode));
  state.SetBytesProcessed(static_cast<std::int64_t>(source.size()) * state.iterations());
  state.SetComplexityN(state.range(0));
}

void measureParse(benchmark::State& state, MakeSource makeSource, Scanner::Mode mode) {
  const String source = makeSource(static_cast<std::size_t>(state.range(0)));
  const std::vector<Token> tokens = scan(source, mode);
  const auto logger = std::make_shared<ArrayLogger>();
  for (auto _ : state) benchmark::DoNotOptimize(Parser(tokens, logger).parse());
  state.SetBytesProcessed(static_cast<std::int64_t>(source.size()) * state.iterations());
  state.SetComplexityN(state.range(0));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(10)->Range(1'000, 100'000'000)->Complexity()->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(measureScan, plainText, plainText, Scanner::Mode::template_)->Apply(sizes);
BENCHMARK_CAPTURE(measureScan, greekText, greekText, Scanner::Mode::template_)->Apply(sizes);
BENCHMARK_CAPTURE(measureScan, taggedText, taggedText, Scanner::Mode::template_)->Apply(sizes);
BENCHMARK_CAPTURE(measureScan, program, program, Scanner::Mode::program)->Apply(sizes);
BENCHMARK_CAPTURE(measureParse, taggedText, taggedText, Scanner::Mode::template_)->Apply(sizes);
BENCHMARK_CAPTURE(measureParse, program, program, Scanner::Mode::program)->Apply(sizes);

}  // namespace
}  // namespace velto::benchmarks
