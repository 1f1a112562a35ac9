// The example of `make demo`, over numbers of runs, written to memory.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "Velto/Velto.h"

namespace velto::benchmarks {
namespace {

std::shared_ptr<MemoryFileSystem> exampleFiles() {
  namespace fs = std::filesystem;
  auto files = std::make_shared<MemoryFileSystem>();
  const fs::path folder = fs::path(EXAMPLES) / "entities";
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    const std::string path = "/" + fs::relative(entry.path(), folder).string();
    if (entry.is_directory()) {
      files->directories.insert(path);
    } else {
      std::ifstream stream(entry.path(), std::ios::binary);
      files->files[path] = std::string(std::istreambuf_iterator<char>(stream), {});
    }
  }
  files->directories.insert("/out");
  return files;
}

void measureExample(benchmark::State& state) {
  const auto files = exampleFiles();
  for (auto _ : state) {
    for (std::int64_t run = 0; run < state.range(0); ++run) {
      Processor processor(Url("/"), std::make_shared<ArrayLogger>(), files);
      processor.globals["outputPath"] = "/out";
      processor.process("generate.velto");
    }
  }
  state.SetItemsProcessed(state.range(0) * state.iterations());
  state.SetComplexityN(state.range(0));
}

BENCHMARK(measureExample)->RangeMultiplier(4)->Range(1, 16)->Complexity()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velto::benchmarks
