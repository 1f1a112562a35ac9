// What whole programs cost with their data in several scripts, against the same in Latin letters.
//
//     VeltoScripts VELTO FOLDER
//
// VELTO is the command, and FOLDER a place to work in, which is emptied.
#include <cstdio>
#include <fstream>

#include "benchmarks/Model.h"
#include "benchmarks/workloads/Workspace.h"

namespace {

using namespace velto::benchmarks;

void measure(const Workspace& workspace, const char* workload, MakeData makeData, std::size_t size) {
  constexpr const char* names[] = {"latin", "cyrillic", "greek", "japanese"};
  double ofLatin = 0;
  for (const Script script : {Script::latin, Script::cyrillic, Script::greek, Script::japanese}) {
    workspace.prepare(workload, [&](const std::filesystem::path& folder) {
      std::ofstream(folder / "data.json") << makeData(script, size);
    });
    const Cost cost = workspace.run(size);
    if (script == Script::latin) ofLatin = cost.milliseconds;
    std::printf("%-10s %6zu %-10s %8.1f %6.2f %8.1f%s\n", workload, size, names[static_cast<std::size_t>(script)],
                cost.milliseconds, cost.milliseconds / ofLatin, cost.megabytes, cost.isComplete ? "" : "  FAILED");
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) {
    std::fputs("usage: VeltoScripts VELTO FOLDER\n", stderr);
    return 2;
  }
  const Workspace workspace(arguments[1], arguments[2]);
  std::printf("%-28s %8s %6s %8s\n", "", "ms", "ratio", "MB");
  measure(workspace, "entities", model, 2'000);
  measure(workspace, "table", table, 10'000);
}
