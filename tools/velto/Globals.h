// The globals that the command line defines.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "Velto/Velto.h"

namespace command {

using Globals = std::vector<std::pair<velto::String, velto::Value>>;

/// `--set`, `--set-json` and `--data`, in the order of the command line.
class GlobalOptions {
 public:
  // These throw `std::invalid_argument` for text that isn't of the form that the option has.
  void addText(const std::string& nameAndText);
  void addJson(const std::string& nameAndJson);
  void addData(const std::string& nameAndFile);
  /// As `addData`, or a file alone, each key of which becomes a global.
  void addDataOrKeys(const std::string& argument);

  /// Reads the data files; throws `Trouble` for one that can't be read.
  Globals load() const;

 private:
  struct DataFile {
    std::string path;
  };
  struct Option {
    std::optional<velto::String> name;  // absent where the keys of a file are the names
    std::variant<velto::Value, DataFile> source;
  };

  std::vector<Option> options_;
};

}  // namespace command
