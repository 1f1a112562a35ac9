// A folder in which workloads run.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

#include "benchmarks/workloads/Process.h"

namespace velto::benchmarks {

class Workspace {
 public:
  /// `velto` is the command; `folder` is emptied for each workload.
  Workspace(const std::filesystem::path& velto, std::filesystem::path folder);

  /// Puts the files of the workload `name` into the folder, if it has any, and lets `write` add what is made for it.
  void prepare(const std::string& name, const std::function<void(const std::filesystem::path& folder)>& write) const;
  /// Runs what was prepared with the global `size`.
  Cost run(std::size_t size) const;

 private:
  std::filesystem::path velto_;
  std::filesystem::path folder_;
};

}  // namespace velto::benchmarks
