// The frame of a parse: bodies, errors and recovery.
#include "Velto/Parser/Parser.h"

#include <new>

#include "Velto/Diagnostics/Fail.h"
#include "Velto/Parser/NodeMemory.h"

namespace velto {

namespace {

[[noreturn]] void stopAtUnknownError(std::string_view what) {
  fatalError(String::concatenation({"Unknown error '", what, "'."}));
}

}  // namespace

Parser::Parser(std::vector<Token> tokens, std::shared_ptr<Logger> logger)
    : tokens_(std::move(tokens)), logger_(std::move(logger)) {
}

Statements Parser::parse() {
  const NodeMemory::Planting planting(tokens_.isAtEnd() ? String() : tokens_.current()->range.file);
  stack_ = StackGuard();  // for the thread that parses, whichever made the parser
  return body({});
}

/// Statements up to a token of one of these types, which stays, or to the end.
Statements Parser::body(Types stops) {
  Statements statements;
  while (!tokens_.isAtEnd() && !isAt(stops)) parseInto(statements);
  return statements;
}

/// Appends the next statement, or nothing after an error. A logger of the host's may throw anything; there is no going
/// on then, except for lack of memory, which is the host's to handle.
void Parser::parseInto(Statements& body) {
  try {
    body.push_back(declaration());
  } catch (const VeltoError&) {
    hadError_ = true;
    synchronize();
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    stopAtUnknownError(error.what());
  } catch (...) {
    stopAtUnknownError("unknown");
  }
}

const Token& Parser::consume(TokenType type, std::string_view message) {
  if (!match({type})) fail(place(), message);
  return previous();
}

/// Skips to a likely statement. The token of the error always goes, so recovery can't stand still; few types stop the
/// skipping, so that one mistake brings few messages.
void Parser::synchronize() {
  if (tokens_.isAtEnd()) return;
  do {
    tokens_.advance();
  } while (!tokens_.isAtEnd() &&
           !isAt({TokenType::verbatim, TokenType::for_, TokenType::if_, TokenType::return_, TokenType::while_}));
}

/// Even a `return`, which drops the error of its value, must not make a program that could not be read whole look
/// sound.
void Parser::failTooDeep() {
  hadError_ = true;
  fail(place(), "Nesting is too deep.");
}

/// Where an error is reported: at the current token, behind the end at the last one. There is one of them, since
/// nothing is parsed where no token is.
Range Parser::place() const {
  const Token* token = tokens_.current();
  return token ? token->range : previous().range;
}

/// For the two errors that have no place behind the end.
void Parser::failAtCurrent(std::string_view message) {
  const Token* token = tokens_.current();
  if (!token) fatalError(message);
  fail(token->range, message);
}

void Parser::fail(const Range& range, String message) {
  velto::fail(*logger_, VeltoError::Step::parse, range, std::move(message));
}

}  // namespace velto
