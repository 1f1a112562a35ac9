// Templates rendered from parsed data into a sink that counts, over bytes of the data.
#include <benchmark/benchmark.h>

#include "benchmarks/CountingFileSystem.h"
#include "benchmarks/Model.h"
#include "benchmarks/Programs.h"

namespace velto::benchmarks {
namespace {

/// A workload of this project, without its reading of the data.
struct Rendering {
  const char* folder;
  const char* program;
  const char* data;
  MakeData makeData;
  std::int64_t bytesEach;  ///< of the data, roughly
};

constexpr Rendering entities{"entities", "execute(\"write.velto\")", "entities", model, 1700};
constexpr Rendering rows{"table", "process(\"table.txt\", into: \"-\")", "rows", table, 85};

void measureRendering(benchmark::State& state, const Rendering& rendering, Script script) {
  const auto texts = std::make_shared<TextPool>();
  const std::int64_t count = std::max<std::int64_t>(1, state.range(0) / rendering.bytesEach);
  const std::string document = rendering.makeData(script, static_cast<std::size_t>(count));
  const std::optional<Value> data = parseJSON(document, *texts);
  const Statements statements = parse(rendering.program, texts);
  const Url folder = Url::directory(String::concatenation({WORKLOADS, "/", rendering.folder}));
  const auto files = std::make_shared<CountingFileSystem>();
  for (auto _ : state) {
    Interpreter interpreter(folder, std::make_shared<ArrayLogger>(), files, texts);
    interpreter.globals().define(rendering.data, *data->dictionary()->find(rendering.data));
    Resolver(interpreter).resolve(statements);
    interpreter.interpret(statements);
    if (interpreter.hadError) state.SkipWithError("the program failed");
  }
  FileSystem::flush();
  state.SetBytesProcessed(static_cast<std::int64_t>(files->count()));
  state.SetComplexityN(static_cast<std::int64_t>(document.size()));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(10)->Range(1'000, 100'000'000)->Complexity()->Unit(benchmark::kMicrosecond);
}

BENCHMARK_CAPTURE(measureRendering, entities, entities, Script::latin)->Apply(sizes);
BENCHMARK_CAPTURE(measureRendering, entitiesInGreek, entities, Script::greek)->Apply(sizes);
BENCHMARK_CAPTURE(measureRendering, table, rows, Script::latin)->Apply(sizes);

}  // namespace
}  // namespace velto::benchmarks
