// What another process costs.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace velto::benchmarks {

struct Cost {
  double milliseconds;  ///< of processor time, the least of several runs
  double system;        ///< those among them that the system took
  double megabytes;     ///< at the peak
  bool isComplete;      ///< it ended with success
};

/// Runs the command, whose output goes nowhere. It may have so many descriptors beside the three standard ones.
Cost costOf(const std::vector<std::string>& command, unsigned descriptors);

/// Does the work in another process, so that this one stays small: the peak of a process is at least that of the one
/// that it came from.
void workApart(const std::function<void()>& work);

}  // namespace velto::benchmarks
