// A folder in which workloads run.
#include "benchmarks/workloads/Workspace.h"

#include <utility>

namespace velto::benchmarks {

namespace fs = std::filesystem;

Workspace::Workspace(const fs::path& velto, fs::path folder) : velto_(fs::absolute(velto)), folder_(std::move(folder)) {
}

void Workspace::prepare(const std::string& name, const std::function<void(const fs::path& folder)>& write) const {
  fs::remove_all(folder_);
  fs::create_directories(folder_);
  const fs::path source = fs::path(WORKLOADS) / name;
  if (fs::exists(source)) fs::copy(source, folder_);
  workApart([&] { write(folder_); });
}

Cost Workspace::run(std::size_t size) const {
  constexpr unsigned descriptors = 3;  // of its own at once, however many files it reads and writes
  return costOf({velto_, "run", "--output", folder_ / "output", "--set-json", "size=" + std::to_string(size),
                 folder_ / "main.velto"},
                descriptors);
}

}  // namespace velto::benchmarks
