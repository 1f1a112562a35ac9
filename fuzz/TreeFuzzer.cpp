// Any text through the parser, as a program and as a template.
#include <cstdint>
#include <memory>
#include <set>
#include <string>

#include "Velto/Parser/Parser.h"
#include "support/Bounds.h"
#include "support/Require.h"
#include "support/Scan.h"
#include "support/SourceMap.h"
#include "support/TreeRanges.h"
#include "support/TreeText.h"
#include "support/TreeWalk.h"

namespace velto::fuzz {
namespace {

struct Parsed {
  Statements statements;
  std::vector<Message> messages;
  bool hadError = false;
  bool isStopped = false;

  bool isSound() const { return !hadError && messages.empty() && !isStopped; }
};

Parsed parse(const std::vector<Token>& tokens, std::string_view source) {
  Parsed result;
  const auto stopped = bounded({}, [&] {
    const auto logger = std::make_shared<ArrayLogger>();
    Parser parser(tokens, logger);
    result.statements = parser.parse();
    result.hadError = parser.hadError();
    result.messages = logger->messages;
  });
  requireLegal(stopped, {"Expected expression.", "Expected ',', ':' or ']'."});
  require(!stopped || stopped->reason == Stop::Reason::fatal, "No parse of so short a text comes to the limits.");
  result.isStopped = stopped.has_value();
  require(!result.hadError || !result.messages.empty(), "An error is told by a message.");
  checkPlaces(result.messages, source);
  return result;
}

/// Nothing but the end of the tokens stops a parse: with one more there is something to report at. Behind an `end` no
/// rule asks for anything.
void checkStop(std::vector<Token> tokens, std::string_view source) {
  tokens.emplace_back(TokenType::end, "end", tokens.back().range);
  require(!parse(tokens, source).isStopped, "Only the end of the tokens stops a parse.");
}

/// No two nodes have one identity, not even those of two parses.
class Identities final : public TreeWalk {
 protected:
  void begin(std::string_view, const Range&) override {}
  void end() override {}
  void token(const Token&) override {}
  void detail(std::string_view) override {}
  void body(std::string_view) override {}
  void identity(const Uuid& id) override {
    require(seen_.insert(std::string(id.description())).second, "A node has an identity of its own.");
  }

 private:
  std::set<std::string> seen_;
};

void checkTwice(const Parsed& first, const Parsed& second) {
  requireEqual(dump(first.statements, true), dump(second.statements, true), "Two parses give the same tree.");
  require(first.messages.size() == second.messages.size(), "Two parses give the same messages.");
  Identities identities;
  identities.walk(first.statements);
  identities.walk(second.statements);
}

/// A tree that is written as a source and parsed again is the same.
void checkWrittenAgain(const Statements& statements) {
  const String source = sourceText(statements);
  const Scanned scanned = scan(source, Scanner::Mode::template_);
  require(scanned.tokens.has_value(), "A written tree can be scanned.", source);
  const auto tokens = unpack(*scanned.tokens, source);
  require(tokens.has_value(), "A written tree can be unpacked.", source);
  const Parsed parsed = parse(*tokens, source);
  require(parsed.isSound(), "A written tree can be parsed.", source);
  requireEqual(dump(statements, false), dump(parsed.statements, false), "A written tree parses to itself.");
}

void check(const String& source, Scanner::Mode mode) {
  const Scanned scanned = scan(source, mode);
  const auto tokens = scanned.tokens ? unpack(*scanned.tokens, source) : std::nullopt;
  if (!tokens) return;
  const Parsed parsed = parse(*tokens, source);
  if (parsed.isStopped) return checkStop(*tokens, source);
  checkRanges(parsed.statements, SourceMap(source));
  checkTwice(parsed, parse(*tokens, source));
  if (parsed.isSound()) checkWrittenAgain(parsed.statements);
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
