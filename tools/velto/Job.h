// What `run` and `render` have in common: the file with its base directory, and the globals.
#pragma once

#include <string>

#include "Commands.h"
#include "Velto/Velto.h"

namespace command {

struct Place {
  velto::Url base;
  std::string file;  ///< relative to `base`
};

/// Without `--base`, the directory of the file is the base.
Place placeOf(const RunOptions& options);

/// The globals of the command line, and `outputPath`, whose directory is made. Throws `Trouble`.
Globals prepareGlobals(const RunOptions& options);

}  // namespace command
