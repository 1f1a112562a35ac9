// Programs of the grammar, which the bytes choose. Nearly all of them do something.
#include <cstdint>

#include "support/Choices.h"
#include "support/Program.h"
#include "support/Require.h"
#include "support/Run.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velto;
  fuzz::Choices choices({data, size});
  const fuzz::Files files = fuzz::makeProgram(choices);
  const std::string end = fuzz::checkRun(files);
  fuzz::require(end == "done" || end == "failed" || end.starts_with("stopped"), "A program of the grammar runs.",
                fuzz::textOf(files));
  return 0;
}
