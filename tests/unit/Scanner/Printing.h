// Tokens, ranges and failures as one line of text, so that a case is a row of a table.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Velto/Scanner/Scanner.h"

namespace velto {

struct Row {
  std::string_view source;
  std::string_view expected;
};

/// "1:1-2:3": where it starts and where it ends.
std::string text(const Range& range);

/// "identifier{x} number{1.5}=1.5": type, lexeme and, where there is one, the literal.
std::string text(const std::vector<Token>& tokens);

/// What scanning gives: the tokens, or "1:1-1:2 error: message" for each message if it failed.
std::string scanned(std::string_view source, Scanner::Mode mode);

/// The same for what is left behind the unpacker, in `template_` mode.
std::string unpacked(std::string_view source);

/// Each token as type and range.
std::string scannedRanges(std::string_view source, Scanner::Mode mode);

void expectRows(const std::vector<Row>& rows, std::string (*actual)(std::string_view));

std::string scannedTemplate(std::string_view source);
std::string scannedProgram(std::string_view source);
std::string templateRanges(std::string_view source);
std::string programRanges(std::string_view source);

}  // namespace velto
