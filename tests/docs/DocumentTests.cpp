// Runs every example of the given documents: DocumentTests COMMAND DOCUMENT... With VELTO_UPDATE=1 in the environment
// the results of the examples that fail are rewritten to what came out. Document.h tells the form of an example.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "Document.h"
#include "harness/Case.h"
#include "harness/Command.h"
#include "harness/Difference.h"

namespace {

using namespace documents;
namespace files = std::filesystem;

struct Outcome {
  harness::CommandResult result;
  std::vector<std::string> written;  ///< for each result of the example, what came out in its place
};

bool shouldUpdate() {
  const char* update = std::getenv("VELTO_UPDATE");
  return update != nullptr && std::string_view(update) == "1";
}

std::string actual(const Block& expected, const harness::CommandResult& result, const files::path& folder) {
  if (expected.language == "output") return result.standardOutput;
  if (expected.language == "messages") return result.standardError;
  return files::exists(folder / expected.name) ? harness::readFile(folder / expected.name) : "(not written)\n";
}

Outcome run(const Example& example, const files::path& command) {
  const harness::TemporaryFolder folder;
  for (const Block& block : example.given) {
    if (!block.name.empty()) harness::writeFile(folder.path() / block.name, block.body);
  }
  Outcome outcome{harness::runCommand(command, example.arguments(), folder.path()), {}};
  for (const Block& block : example.results) {
    outcome.written.push_back(actual(block, outcome.result, folder.path()));
  }
  return outcome;
}

void rewrite(const files::path& document, const Block& block, std::string text) {
  if (!text.empty() && text.back() != '\n') text += '\n';
  std::string whole = harness::readFile(document);
  // Blocks behind this one may have moved since the document was read, so it is looked up anew.
  for (const Block& found : blocksOf(whole)) {
    if (found.line != block.line) continue;
    whole.replace(found.offset, found.body.size(), text);
    harness::writeFile(document, whole);
    return;
  }
}

class DocumentExample final : public testing::Test {
 public:
  DocumentExample(files::path command, files::path document, Example example)
      : command_(std::move(command)), document_(std::move(document)), example_(std::move(example)) {}

  void TestBody() override {
    const Outcome outcome = run(example_, command_);
    // From the last to the first, so that rewriting one leaves the lines of the others.
    for (std::size_t index = example_.results.size(); index > 0; --index) {
      compare(example_.results[index - 1], outcome.written[index - 1]);
    }
    expectNothingElse(outcome.result);
  }

 private:
  void compare(const Block& expected, const std::string& text) {
    const harness::Section section{expected.language == "output" ? "stdout" : expected.language, expected.name, false,
                                   expected.body};
    if (section.accepts(text)) return;
    if (shouldUpdate()) return rewrite(document_, expected, text);
    ADD_FAILURE_AT(document_.c_str(), static_cast<int>(expected.line)) << harness::difference(expected.body, text);
  }

  void expectNothingElse(const harness::CommandResult& result) {
    const int line = static_cast<int>(example_.line());
    if (!example_.acceptsExitStatus(result.exitStatus)) {
      ADD_FAILURE_AT(document_.c_str(), line) << "exit status " << result.exitStatus << "\n" << result.standardError;
    }
    if (!example_.find("output") && !result.standardOutput.empty()) {
      ADD_FAILURE_AT(document_.c_str(), line) << "output that isn't shown:\n" << result.standardOutput;
    }
  }

  files::path command_;
  files::path document_;
  Example example_;
};

void registerExamples(const files::path& command, const files::path& document) {
  // From the last to the first here too: an update of one example must not move the lines of the next.
  std::vector<Example> examples = examplesOf(blocksOf(harness::readFile(document)));
  for (auto next = examples.rbegin(); next != examples.rend(); ++next) {
    const Example& example = *next;
    const int line = static_cast<int>(example.line());
    testing::RegisterTest(document.filename().c_str(), ("line_" + std::to_string(line)).c_str(), nullptr, nullptr,
                          document.c_str(), line,
                          [=]() -> testing::Test* { return new DocumentExample(command, document, example); });
  }
}

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count < 3) {
    std::cerr << "usage: DocumentTests COMMAND DOCUMENT...\n";
    return 2;
  }
  for (int index = 2; index < count; ++index) {
    try {
      registerExamples(files::absolute(arguments[1]), arguments[index]);
    } catch (const std::exception& error) {
      std::cerr << arguments[index] << ": " << error.what() << '\n';
      return 1;
    }
  }
  return RUN_ALL_TESTS();
}
