// Any text through the scanner and the unpacker, as a program and as a template.
#include <cstdint>

#include "support/Require.h"
#include "support/Scan.h"
#include "support/SourceMap.h"
#include "support/TokenChecks.h"

namespace velto::fuzz {
namespace {

void check(const String& source, Scanner::Mode mode) {
  const Scanned scanned = scan(source, mode);
  if (!scanned.tokens) return;
  const SourceMap map(source);
  checkRanges(*scanned.tokens, map);
  checkLiterals(*scanned.tokens);
  checkPrintedAgain(*scanned.tokens, mode);
  const auto unpacked = unpack(*scanned.tokens, source);
  require(unpacked || mode == Scanner::Mode::template_, "A program has no tags to go wrong.");
  if (unpacked) checkUnpacked(*scanned.tokens, *unpacked);
}

}  // namespace
}  // namespace velto::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace velto;
  const String source = fuzz::sourceOf(data, size);
  fuzz::check(source, Scanner::Mode::program);
  fuzz::check(source, Scanner::Mode::template_);
  return 0;
}
