// What whole programs cost at several sizes, and how that grows.
//
//     VeltoGrowth VELTO FOLDER [WORKLOAD...]
//
// VELTO is the command, and FOLDER a place to work in, which is emptied. Each line shows the processor time, the peak
// of memory, and by which power of the size both have grown since the line before, the cost of an empty program
// apart: 1.0 is in proportion to the work. How much of the time the system took is shown as well. No program may hold
// more than three descriptors of its own at once.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <span>

#include "benchmarks/Model.h"
#include "benchmarks/workloads/Workspace.h"

namespace {

namespace fs = std::filesystem;
using namespace velto::benchmarks;

/// Writes what a workload needs beside its own files.
using Write = void (*)(const fs::path& folder, std::size_t size);

struct Workload {
  const char* name;
  const char* unit;
  std::array<std::size_t, 3> sizes;
  Write write;
};

void writeNothing(const fs::path&, std::size_t) {
}

void writeKeys(const fs::path& folder, std::size_t size) {
  std::ofstream data(folder / "data.json");
  for (std::size_t index = 0; index < size; ++index) data << (index == 0 ? '{' : ',') << "\"key " << index << "\":1";
  data << '}';
}

void writeElements(const fs::path& folder, std::size_t size) {
  std::ofstream data(folder / "data.json");
  for (std::size_t index = 0; index < size; ++index) data << (index == 0 ? '[' : ',') << index % 1000;
  data << ']';
}

void writeTemplates(const fs::path& folder, std::size_t size) {
  fs::create_directory(folder / "pages");
  for (std::size_t index = 0; index < size; ++index) {
    std::ofstream(folder / "pages" / (std::to_string(index) + ".txt"))
        << "Page " << index << "<% if index == " << index << " %> in round <%= round + 1 %><% end %>\n";
  }
}

/// So many scopes one inside the other, each with a variable of its own, run a thousand times.
void writeScopes(const fs::path& folder, std::size_t size) {
  std::ofstream program(folder / "main.velto");
  program << "for round in 0..<1000\nvar v0 = round\n";
  for (std::size_t depth = 1; depth <= size; ++depth) {
    program << "if true\nvar v" << depth << " = v" << depth - 1 << " + 1\n";
  }
  for (std::size_t depth = 0; depth <= size; ++depth) program << "end\n";
}

/// The same in a template, whose variables are looked for from scope to scope.
void writeTemplateScopes(const fs::path& folder, std::size_t size) {
  std::ofstream(folder / "main.velto") << "for round in 0..<1000\nprocess(\"page.txt\", into: \"-\")\nend\n";
  std::ofstream page(folder / "page.txt");
  page << "<% var v0 = round %>";
  for (std::size_t depth = 1; depth <= size; ++depth) {
    page << "<% if true\nvar v" << depth << " = v" << depth - 1 << " + 1 %><%= v" << depth << " %>\n";
  }
  for (std::size_t depth = 1; depth <= size; ++depth) page << "<% end %>";
}

/// The same where all of them read the outermost variable.
void writeDistantScopes(const fs::path& folder, std::size_t size) {
  std::ofstream(folder / "main.velto") << "var v0 = 1\nprocess(\"page.txt\", into: \"-\")\n";
  std::ofstream page(folder / "page.txt");
  for (std::size_t depth = 1; depth <= size; ++depth) page << "<% if true\nvar v" << depth << " = v0 %>\n";
  page << "<% for round in 0..<100000 %><%= v0 %><% end %>";
  for (std::size_t depth = 1; depth <= size; ++depth) page << "<% end %>";
}

void writeVariables(const fs::path& folder, std::size_t size) {
  std::ofstream program(folder / "main.velto");
  for (std::size_t index = 0; index < size; ++index) program << "var v" << index << " = " << index << "\n";
  program << "var sum = 0\n";
  for (std::size_t index = 0; index < size; ++index) program << "sum = sum + v" << index << "\n";
}

void writeCalls(const fs::path& folder, std::size_t size) {
  std::ofstream(folder / "main.velto") << "func down(_ depth)\nif depth == 0\nreturn 0\nend\n"
                                       << "return 1 + down(depth - 1)\nend\n"
                                       << "for round in 0..<100\ndown(" << size << ")\nend\n";
}

void writeEntities(const fs::path& folder, std::size_t size) {
  std::ofstream(folder / "data.json") << model(Script::latin, size);
}

void writeTable(const fs::path& folder, std::size_t size) {
  std::ofstream(folder / "data.json") << table(Script::latin, size);
}

constexpr Workload workloads[] = {
    {"entities", "entities, a file each", {200, 2'000, 20'000}, writeEntities},
    {"table", "rows", {10'000, 100'000, 1'000'000}, writeTable},
    {"keys", "keys in a dictionary", {10'000, 100'000, 1'000'000}, writeKeys},
    {"elements", "elements in an array", {100'000, 1'000'000, 10'000'000}, writeElements},
    {"text", "bytes in a string", {1'000'000, 10'000'000, 100'000'000}, writeNothing},
    {"files", "files written", {1'000, 10'000, 100'000}, writeNothing},
    {"templates", "templates in the cache", {100, 1'000, 10'000}, writeTemplates},
    {"scopes", "scopes nested", {10, 100, 1'000}, writeScopes},
    {"templateScopes", "scopes nested in a template", {10, 100, 1'000}, writeTemplateScopes},
    {"distantScopes", "scopes to the variable", {10, 100, 1'000}, writeDistantScopes},
    {"variables", "variables in a scope", {1'000, 10'000, 100'000}, writeVariables},
    {"calls", "calls nested", {10, 100, 1'000}, writeCalls},
};

class Measurement {
 public:
  Measurement(const fs::path& velto, fs::path folder) : workspace_(velto, std::move(folder)) {
    workspace_.prepare("empty", [](const fs::path& place) { std::ofstream(place / "main.velto") << ""; });
    empty_ = workspace_.run(0);
    std::printf("%-58s %8s %6s %8s %8s %6s\n", "", "ms", "power", "system", "MB", "power");
    std::printf("%-58s %8.1f %6s %8.1f %8.1f\n", "an empty program", empty_.milliseconds, "", empty_.system,
                empty_.megabytes);
  }

  void measure(const Workload& workload) const {
    std::size_t sizeBefore = 0;
    Cost before = empty_;
    for (const std::size_t size : workload.sizes) {
      workspace_.prepare(workload.name, [&](const fs::path& place) { workload.write(place, size); });
      const Cost cost = workspace_.run(size);
      std::printf("%-14s %10zu %-32s", workload.name, size, workload.unit);
      const double growth = static_cast<double>(size) / static_cast<double>(sizeBefore);
      show(cost.milliseconds - empty_.milliseconds, before.milliseconds - empty_.milliseconds, growth);
      std::printf(" %8.1f", cost.system);
      show(cost.megabytes - empty_.megabytes, before.megabytes - empty_.megabytes, growth);
      std::puts(cost.isComplete ? "" : "  FAILED");
      std::fflush(stdout);
      before = cost;
      sizeBefore = size;
    }
  }

 private:
  /// A cost, and the power of the size by which it has grown; none where there was too little of it before.
  static void show(double cost, double before, double growth) {
    constexpr double least = 1;
    std::printf(" %8.1f ", cost);
    if (before < least || !std::isfinite(growth)) {
      std::printf("%6s", "");
    } else {
      std::printf("%6.2f", std::log(std::max(cost, least) / before) / std::log(growth));
    }
  }

  Workspace workspace_;
  Cost empty_{};
};

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) {
    std::fputs("usage: VeltoGrowth VELTO FOLDER [WORKLOAD...]\n", stderr);
    return 2;
  }
  const std::span<char*> names(arguments + 3, static_cast<std::size_t>(count - 3));
  Measurement measurement(arguments[1], fs::path(arguments[2]));
  for (const Workload& workload : workloads) {
    if (names.empty() || std::ranges::find(names, std::string_view(workload.name)) != names.end()) {
      measurement.measure(workload);
    }
  }
}
