// Tokens, ranges and failures as one line of text.
#include "tests/unit/Scanner/Printing.h"

#include <gtest/gtest.h>

#include "Velto/Diagnostics/VeltoError.h"
#include "Velto/Scanner/Unpacker.h"

namespace velto {

namespace {

std::string messages(const ArrayLogger& logger) {
  std::string result;
  for (const Message& message : logger.messages) {
    result += text(message.range()) + " " + std::string(rawValue(message.level)) + ": " + std::string(message.message);
  }
  return result;
}

template <typename Stage>
std::string outcome(const std::shared_ptr<ArrayLogger>& logger, Stage stage) {
  try {
    return stage();
  } catch (const VeltoError& error) {
    EXPECT_EQ(error.step, VeltoError::Step::scan);
    return messages(*logger);
  }
}

std::string join(const std::vector<std::string>& pieces) {
  std::string result;
  for (const std::string& piece : pieces) result += (result.empty() ? "" : " ") + piece;
  return result;
}

}  // namespace

std::string text(const Range& range) {
  return std::to_string(range.startLine) + ":" + std::to_string(range.startColumn) + "-" +
         std::to_string(range.endLine) + ":" + std::to_string(range.endColumn);
}

std::string text(const std::vector<Token>& tokens) {
  std::vector<std::string> pieces;
  for (const Token& token : tokens) {
    std::string piece = std::string(name(token.type)) + "{" + std::string(token.lexeme) + "}";
    if (token.literal) piece += "=" + std::string(token.literal->description());
    pieces.push_back(piece);
  }
  return join(pieces);
}

std::string scanned(std::string_view source, Scanner::Mode mode) {
  const auto logger = std::make_shared<ArrayLogger>();
  return outcome(logger, [&] { return text(Scanner(source, mode, logger, "a.txt").scanTokens()); });
}

std::string unpacked(std::string_view source) {
  const auto logger = std::make_shared<ArrayLogger>();
  return outcome(logger, [&] { return text(Unpacker(Scanner(source, logger).scanTokens(), logger).unpack()); });
}

std::string scannedRanges(std::string_view source, Scanner::Mode mode) {
  const auto logger = std::make_shared<ArrayLogger>();
  return outcome(logger, [&] {
    std::vector<std::string> pieces;
    for (const Token& token : Scanner(source, mode, logger, "a.txt").scanTokens()) {
      EXPECT_EQ(token.range.file, "a.txt");
      pieces.push_back(std::string(name(token.type)) + "@" + text(token.range));
    }
    return join(pieces);
  });
}

void expectRows(const std::vector<Row>& rows, std::string (*actual)(std::string_view)) {
  for (const Row& row : rows) EXPECT_EQ(actual(row.source), row.expected) << "source: " << row.source;
}

std::string scannedTemplate(std::string_view source) {
  return scanned(source, Scanner::Mode::template_);
}

std::string scannedProgram(std::string_view source) {
  return scanned(source, Scanner::Mode::program);
}

std::string templateRanges(std::string_view source) {
  return scannedRanges(source, Scanner::Mode::template_);
}

std::string programRanges(std::string_view source) {
  return scannedRanges(source, Scanner::Mode::program);
}

}  // namespace velto
