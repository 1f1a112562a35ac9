// Programs that are parsed once and run again and again.
#pragma once

#include <benchmark/benchmark.h>

#include <string>

#include "Velto/Velto.h"

namespace velto::benchmarks {

inline Statements parse(const String& program, const std::shared_ptr<TextPool>& texts = std::make_shared<TextPool>()) {
  const auto logger = std::make_shared<ArrayLogger>();
  Scanner scanner(program, Scanner::Mode::program, logger, "benchmark", texts);
  return Parser(Unpacker(scanner.scanTokens(), logger).unpack(), logger).parse();
}

/// Runs `program` with the global `n`, its output counted and dropped.
inline void measureProgram(benchmark::State& state, const std::string& program, std::int64_t n) {
  const Statements statements = parse(program);
  std::size_t written = 0;
  for (auto _ : state) {
    Interpreter interpreter;
    interpreter.print = [&](const String& text) { written += text.size(); };
    interpreter.globals().define("n", n);
    Resolver(interpreter).resolve(statements);
    interpreter.interpret(statements);
    if (interpreter.hadError) state.SkipWithError("the program failed");
  }
  benchmark::DoNotOptimize(written);
  state.SetItemsProcessed(state.range(0) * state.iterations());
  state.SetComplexityN(state.range(0));
}

}  // namespace velto::benchmarks
