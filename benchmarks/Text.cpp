// Spellings, case, searches and growth of texts in several scripts, over numbers of words.
#include <benchmark/benchmark.h>

#include "Velto/Velto.h"

namespace velto::benchmarks {
namespace {

enum Script { latin, cyrillic, greek, japanese };

String wordsOf(Script script, std::int64_t count) {
  constexpr std::string_view words[] = {"Invoice number ", "Номер Счёта ", "Αριθμός τιμολογίου ", "請求書 ばんごう "};
  StringBuilder text;
  for (std::int64_t word = 0; word < count; ++word) text.append(words[script]);
  return std::move(text).build();
}

void measureForm(benchmark::State& state, Script script, const char* name) {
  const String text = wordsOf(script, state.range(0));
  Interpreter interpreter;
  const Value form = *Value(text).get(name);
  for (auto _ : state) benchmark::DoNotOptimize(form.callable()->call(interpreter, {}, [](const String&) {}));
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
  state.SetComplexityN(state.range(0));
}

void measureComparison(benchmark::State& state, Script script) {
  const String text = wordsOf(script, state.range(0));
  const String same = String::fromWellFormed(text);
  for (auto _ : state) benchmark::DoNotOptimize(text == same);
  state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
  state.SetComplexityN(state.range(0));
}

void measureGrowth(benchmark::State& state) {
  for (auto _ : state) {
    String text;
    for (std::int64_t index = 0; index < state.range(0); ++index) text = std::move(text).appending(" piece");
    benchmark::DoNotOptimize(text);
  }
  state.SetItemsProcessed(state.range(0) * state.iterations());
  state.SetComplexityN(state.range(0));
}

void measureNumbers(benchmark::State& state, double step) {
  double number = 0;
  for (auto _ : state) benchmark::DoNotOptimize(numberDescription(number += step));
}

void words(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(16)->Range(1, 1 << 16)->Complexity();
}

BENCHMARK_CAPTURE(measureForm, camelLatin, latin, "lowerCamelCased")->Apply(words);
BENCHMARK_CAPTURE(measureForm, camelCyrillic, cyrillic, "lowerCamelCased")->Apply(words);
BENCHMARK_CAPTURE(measureForm, camelGreek, greek, "lowerCamelCased")->Apply(words);
BENCHMARK_CAPTURE(measureForm, camelJapanese, japanese, "lowerCamelCased")->Apply(words);
BENCHMARK_CAPTURE(measureForm, snakeLatin, latin, "snakeCased")->Apply(words);
BENCHMARK_CAPTURE(measureForm, snakeCyrillic, cyrillic, "snakeCased")->Apply(words);
BENCHMARK_CAPTURE(measureForm, uppercasedLatin, latin, "uppercased")->Apply(words);
BENCHMARK_CAPTURE(measureForm, uppercasedCyrillic, cyrillic, "uppercased")->Apply(words);
BENCHMARK_CAPTURE(measureForm, lowercasedGreek, greek, "lowercased")->Apply(words);
BENCHMARK_CAPTURE(measureForm, escapedLatin, latin, "escaped")->Apply(words);
BENCHMARK_CAPTURE(measureComparison, latin, latin)->Apply(words);
BENCHMARK_CAPTURE(measureComparison, greek, greek)->Apply(words);
BENCHMARK(measureGrowth)->Apply(words);
BENCHMARK_CAPTURE(measureNumbers, integers, 1.0);
BENCHMARK_CAPTURE(measureNumbers, fractions, 0.01);
BENCHMARK_CAPTURE(measureNumbers, longFractions, 1.0 / 7);

}  // namespace
}  // namespace velto::benchmarks
