// Any text as a program, with any files beside it. Each file stands behind a record separator and its name; without
// one, all is the program.
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "support/Run.h"

namespace {

constexpr char separator = '\x1E';

velto::fuzz::Files filesOf(std::string_view data) {
  if (!data.starts_with(separator)) return {{"main.velto", std::string(data)}};
  velto::fuzz::Files files;
  while (!data.empty()) {
    data.remove_prefix(1);
    const std::string_view file = data.substr(0, data.find(separator));
    const std::string_view name = file.substr(0, file.find('\n'));
    files.emplace_back(name, file.substr(std::min(name.size() + 1, file.size())));
    data.remove_prefix(file.size());
  }
  return files;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  velto::fuzz::checkRun(filesOf({reinterpret_cast<const char*>(data), size}));
  return 0;
}
