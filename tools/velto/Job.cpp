// What `run` and `render` have in common.
#include "Job.h"

#include "Outcome.h"

namespace command {

Place placeOf(const RunOptions& options) {
  if (options.base) return {velto::Url::directory(*options.base), options.file};
  const std::size_t slash = options.file.rfind('/');
  const std::size_t start = slash == std::string::npos ? 0 : slash + 1;
  return {velto::Url::directory(options.file.substr(0, start)), options.file.substr(start)};
}

Globals prepareGlobals(const RunOptions& options) {
  Globals globals = options.globals.load();
  if (options.output) {
    if (!velto::FileSystem::local()->createDirectory(velto::Url(*options.output))) {
      throw Trouble{"cannot make the directory '" + *options.output + "'"};
    }
    globals.emplace_back("outputPath", velto::Value(*options.output));
  }
  return globals;
}

}  // namespace command
