// The table of all messages: each is produced by a test that it names, and the sources hold no other.
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "Sources.h"

namespace {

namespace files = std::filesystem;

/// One message of the system, as in tests/messages.table.
struct Row {
  int line = 0;
  std::string text;
  std::vector<std::string> producers;

  /// What stands between the placeholders.
  std::vector<std::string> pieces() const {
    static const std::regex placeholder(R"(\{[a-z ]+\})");
    const std::sregex_token_iterator begin(text.begin(), text.end(), placeholder, -1);
    return {begin, std::sregex_token_iterator()};
  }

  std::string longestPiece() const {
    const std::vector<std::string> all = pieces();
    const auto isShorter = [](const std::string& a, const std::string& b) { return a.size() < b.size(); };
    return *std::max_element(all.begin(), all.end(), isShorter);
  }
};

std::vector<Row> readTable() {
  std::vector<Row> rows;
  int number = 0;
  for (const std::string& line : sources::linesOf("tests/messages.table")) {
    number++;
    if (line.empty() || line.starts_with("#")) continue;
    if (line.starts_with("    ") && !rows.empty()) {
      rows.back().producers.push_back(line.substr(4));
    } else {
      rows.push_back({number, line, {}});
    }
  }
  return rows;
}

const std::vector<Row>& table() {
  static const std::vector<Row> rows = readTable();
  return rows;
}

std::string escapedForRegex(const std::string& text) {
  static const std::regex special(R"([.^$|()\[\]{}*+?\\])");
  return std::regex_replace(text, special, R"(\$&)");
}

/// Finds the message in a line of either form.
std::regex patternOf(const Row& row) {
  std::string pattern;
  for (const std::string& piece : row.pieces()) {
    if (!pattern.empty()) pattern += ".*";
    pattern += escapedForRegex(piece);
  }
  if (row.text.ends_with("}")) pattern += ".*";
  if (row.text.starts_with("{")) pattern = ".*" + pattern;
  return std::regex("(fatal: |: error: |: info: |\"message\":\")" + pattern + "(\"\\})?");
}

bool hasMessageLine(const std::string& file, const Row& row) {
  const std::regex pattern = patternOf(row);
  bool isInMessages = false;
  for (const std::string& line : sources::linesOf(file)) {
    if (line.starts_with("--- ")) isInMessages = line.starts_with("--- messages");
    std::smatch match;
    if (isInMessages && std::regex_search(line, match, pattern) && match.suffix().length() == 0) return true;
  }
  return false;
}

/// "never: why" is the producer of a message that nothing can bring forth.
bool isNever(const std::string& producer) {
  return producer.starts_with("never: ");
}

bool produces(const std::string& producer, const Row& row) {
  const std::string file = "tests/" + producer;
  if (!files::exists(file)) return false;
  if (file.ends_with(".case")) return hasMessageLine(file, row);
  return sources::textOf(file).find(row.longestPiece()) != std::string::npos;
}

/// The string literals of one line of C++, comments left out.
std::vector<std::string> literalsOf(const std::string& line) {
  static const std::regex form(R"re(//.*|'(?:[^'\\]|\\.)+'|"((?:[^"\\]|\\.)*)")re");
  std::vector<std::string> literals;
  for (std::sregex_iterator match(line.begin(), line.end(), form), end; match != end; ++match) {
    if ((*match)[1].matched) literals.push_back((*match)[1]);
  }
  return literals;
}

/// Two words or a word and a quoted sign: the text of a message, or a piece of one.
bool isWording(const std::string& literal) {
  static const std::regex form(R"([A-Za-z'`] ['`A-Za-z])");
  return (std::regex_search(literal, form) && !literal.starts_with("<")) || literal == " called here";
}

bool standsInTheTable(const std::string& literal) {
  return std::any_of(table().begin(), table().end(), [&](const Row& row) {
    const std::vector<std::string> pieces = row.pieces();
    return std::any_of(pieces.begin(), pieces.end(),
                       [&](const std::string& piece) { return piece.find(literal) != std::string::npos; });
  });
}

TEST(Messages, EachHasATestThatProducesIt) {
  EXPECT_GT(table().size(), 90u);
  for (const Row& row : table()) {
    EXPECT_FALSE(row.producers.empty()) << "tests/messages.table:" << row.line << ": " << row.text;
    for (const std::string& producer : row.producers) {
      EXPECT_TRUE(isNever(producer) || produces(producer, row))
          << "tests/messages.table:" << row.line << ": " << producer << " doesn't show: " << row.text;
    }
  }
}

TEST(Messages, TheSourcesHoldNoOther) {
  for (const std::string& file : sources::filesBelow("Velto")) {
    int number = 0;
    for (const std::string& line : sources::linesOf(file)) {
      number++;
      for (const std::string& literal : literalsOf(line)) {
        EXPECT_TRUE(!isWording(literal) || standsInTheTable(literal)) << file << ":" << number << ": " << literal;
      }
    }
  }
}

TEST(Messages, EachStandsInTheSources) {
  std::string all;
  for (const std::string& file : sources::filesBelow("Velto")) all += sources::textOf(file);
  for (const Row& row : table()) {
    for (const std::string& piece : row.pieces()) {
      EXPECT_NE(all.find(piece), std::string::npos) << "tests/messages.table:" << row.line << ": " << piece;
    }
  }
}

}  // namespace
