// The fenced blocks of a Markdown document, and the examples that they make.
#include "Document.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "harness/Case.h"

namespace documents {

namespace {

constexpr std::string_view prompt = "$ velto ";

/// The backquotes that open or close a block, empty for any other line.
std::string fenceOf(const std::string& line) {
  const std::string fence = line.substr(0, line.find_first_not_of('`'));
  return fence.size() >= 3 ? fence : "";
}

Block openBlock(const std::string& line, const std::string& fence, const std::size_t number) {
  Block block;
  block.line = number;
  std::istringstream(line.substr(fence.size())) >> block.language >> block.name;
  return block;
}

bool isResult(const Block& block) {
  return block.language == "output" || block.language == "messages" || block.language == "wrote";
}

bool isCommand(const Block& block) {
  return block.language == "console" && block.body.starts_with(prompt);
}

/// Code of hosts is no file of an example, whatever its name.
bool isFile(const Block& block) {
  if (block.language == "cpp" || block.language == "cmake") return false;
  return block.language == "velto" || !block.name.empty();
}

std::string asProgram(const Block& block) {
  return block.name.empty() ? "main.velto" : block.name;
}

std::string defaultCommand(const std::vector<Block>& given) {
  const auto isMain = [](const Block& block) { return block.language == "velto"; };
  const auto main = std::find_if(given.begin(), given.end(), isMain);
  if (main == given.end()) throw std::runtime_error("an example with neither a program nor a template");
  if (main->name.ends_with(".velto")) return "velto run " + main->name;
  const auto isData = [](const Block& block) { return block.name == "data.json"; };
  const bool hasData = std::any_of(given.begin(), given.end(), isData);
  return "velto render " + std::string(hasData ? "--data data.json " : "") + main->name;
}

/// Collects examples block by block.
class Collector {
 public:
  void add(const Block& block) {
    if (isResult(block)) {
      if (example_.given.empty()) fail(block, "a result without an example");
      example_.results.push_back(block);
    } else if (isCommand(block) || isFile(block)) {
      if (!example_.results.empty()) finish();
      give(block);
    }
  }

  void finish() {
    if (example_.given.empty()) return;
    if (example_.results.empty()) fail(example_.given.front(), "an example without a result");
    examples_.push_back(std::exchange(example_, {}));
  }

  std::vector<Example> examples() && { return std::move(examples_); }

 private:
  [[noreturn]] static void fail(const Block& block, const std::string& what) {
    throw std::runtime_error("line " + std::to_string(block.line) + ": " + what);
  }

  void give(const Block& block) {
    example_.given.push_back(block);
    if (isCommand(block)) {
      example_.commandLine = block.body.substr(2, block.body.find('\n') - 2);
    } else {
      example_.given.back().name = asProgram(block);
    }
  }

  Example example_;
  std::vector<Example> examples_;
};

}  // namespace

std::vector<Block> blocksOf(const std::string& document) {
  std::vector<Block> blocks;
  std::istringstream lines(document);
  std::string line, fence, chapter;
  Block block;
  std::size_t offset = 0;
  for (std::size_t number = 1; std::getline(lines, line); ++number) {
    const std::string found = fenceOf(line);
    if (fence.empty() && !found.empty()) {
      block = openBlock(line, fence = found, number);
      block.offset = offset + line.size() + 1;
      block.chapter = chapter;
    } else if (!fence.empty() && line == fence) {
      block.body = document.substr(block.offset, offset - block.offset);
      blocks.push_back(block);
      fence.clear();
    } else if (fence.empty() && line.starts_with("## ")) {
      chapter = line.substr(3);
    }
    offset += line.size() + 1;
  }
  if (!fence.empty()) throw std::runtime_error("line " + std::to_string(block.line) + ": a block that isn't closed");
  return blocks;
}

const Block* Example::find(const std::string& kind, const std::string& name) const {
  const auto isIt = [&](const Block& block) { return block.language == kind && block.name == name; };
  const auto result = std::find_if(results.begin(), results.end(), isIt);
  return result == results.end() ? nullptr : &*result;
}

std::vector<std::string> Example::arguments() const {
  harness::Case command;
  command.commandLine = commandLine.empty() ? defaultCommand(given) : commandLine;
  std::vector<std::string> words = command.words();
  words.erase(words.begin());
  return words;
}

bool Example::acceptsExitStatus(const int status) const {
  const Block* messages = find("messages");
  if (messages == nullptr) return status == 0;
  const bool isFatal = ("\n" + messages->body).find("\nfatal: ") != std::string::npos;
  return isFatal ? status == 134 : status == 0 || status == 1;
}

std::vector<Example> examplesOf(const std::vector<Block>& blocks) {
  Collector collector;
  for (const Block& block : blocks) collector.add(block);
  collector.finish();
  return std::move(collector).examples();
}

}  // namespace documents
