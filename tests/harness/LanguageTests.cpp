// Runs every language case below a folder: LanguageTests COMMAND FOLDER. With VELTO_UPDATE=1 in the environment, the
// expectations of the cases that fail are rewritten to what came out. Case.h tells the form of a case.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>

#include "Case.h"
#include "Command.h"
#include "Difference.h"
#include "Escapes.h"

namespace {

using namespace harness;
namespace files = std::filesystem;

struct Outcome {
  CommandResult result;
  /// The files that are new or not as the case wrote them.
  std::map<std::string, std::string> written;
};

void layOut(const Case& languageCase, const files::path& folder) {
  for (const Section& section : languageCase.sections) {
    if (section.kind != "file") continue;
    if (section.name.ends_with('/')) {
      files::create_directories(folder / section.name);
    } else {
      writeFile(folder / section.name, section.text());
    }
  }
}

std::map<std::string, std::string> filesWritten(const Case& languageCase, const files::path& folder) {
  std::map<std::string, std::string> written;
  for (const files::directory_entry& entry : files::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    const std::string name = entry.path().lexically_relative(folder).generic_string();
    const std::string text = readFile(entry.path());
    const Section* given = languageCase.find("file", name);
    if (given == nullptr || given->text() != text) written[name] = text;
  }
  return written;
}

Outcome run(const Case& languageCase, const files::path& command) {
  const TemporaryFolder folder;
  layOut(languageCase, folder.path());
  std::vector<std::string> arguments = languageCase.words();
  arguments.erase(arguments.begin());
  Outcome outcome;
  outcome.result = runCommand(command, arguments, folder.path());
  outcome.written = filesWritten(languageCase, folder.path());
  return outcome;
}

/// What is wrong with one text, for people; empty if nothing is.
std::string complaint(const Section* section, const std::string& head, const std::string& actual) {
  const Section nothing;
  const Section& expected = section != nullptr ? *section : nothing;
  if (expected.accepts(actual)) return "";
  return head + (expected.isEscaped ? " (to the letter):\n" : ":\n") + difference(expected.text(), actual);
}

std::string complaints(const Case& languageCase, const Outcome& outcome) {
  std::string result;
  result += complaint(languageCase.find("stdout"), "stdout", outcome.result.standardOutput);
  result += complaint(languageCase.find("messages"), "messages", outcome.result.standardError);
  const std::string expectedStatus = std::to_string(languageCase.exitStatus());
  const std::string actualStatus = std::to_string(outcome.result.exitStatus);
  if (actualStatus != expectedStatus) result += "exit " + actualStatus + " instead of " + expectedStatus + "\n";
  for (const auto& [name, text] : outcome.written) {
    const Section* section = languageCase.find("wrote", name);
    if (section == nullptr) result += "no section names a file that was written: " + name + "\n";
    if (section != nullptr) result += complaint(section, "wrote " + name, text);
  }
  for (const Section& section : languageCase.sections) {
    const bool isMissing = section.kind == "wrote" && !outcome.written.contains(section.name);
    if (isMissing) result += "nothing was written to " + section.name + "\n";
  }
  return result;
}

Section rewritten(const Case& languageCase, const std::string& kind, const std::string& name, const std::string& text) {
  const Section* given = languageCase.find(kind, name);
  if (given != nullptr && given->accepts(text)) return *given;
  Section section{kind, name, (given != nullptr && given->isEscaped) || !isPlain(text), ""};
  if (kind == "messages" && !text.ends_with('\n')) section.isEscaped = true;
  section.body = section.isEscaped ? escape(text) : text;
  if (!section.body.empty() && !section.body.ends_with('\n')) section.body += '\n';
  return section;
}

Case updated(const Case& languageCase, const Outcome& outcome) {
  Case result = languageCase;
  std::erase_if(result.sections, [](const Section& section) { return section.kind != "file"; });
  const auto add = [&](const std::string& kind, const std::string& name, const std::string& text) {
    if (kind == "wrote" || !text.empty()) result.sections.push_back(rewritten(languageCase, kind, name, text));
  };
  add("stdout", "", outcome.result.standardOutput);
  add("messages", "", outcome.result.standardError);
  if (outcome.result.exitStatus != 0) {
    result.sections.push_back({"exit", std::to_string(outcome.result.exitStatus), false, ""});
  }
  for (const auto& [name, text] : outcome.written) add("wrote", name, text);
  return result;
}

class LanguageTest : public testing::Test {
 public:
  LanguageTest(files::path command, files::path path) : command_(std::move(command)), path_(std::move(path)) {}

  void TestBody() override {
    try {
      check();
    } catch (const std::exception& error) {
      ADD_FAILURE_AT(path_.c_str(), 1) << error.what();
    }
  }

 private:
  void check() const {
    const Case languageCase = readCase(path_);
    const Outcome outcome = run(languageCase, command_);
    const char* update = std::getenv("VELTO_UPDATE");
    if (update == nullptr || std::string(update) != "1") {
      const std::string wrong = complaints(languageCase, outcome);
      if (!wrong.empty()) ADD_FAILURE_AT(path_.c_str(), 1) << languageCase.commandLine << "\n" << wrong;
    } else if (const Case newCase = updated(languageCase, outcome); !isSame(languageCase, newCase)) {
      writeCase(path_, newCase);
      std::cout << path_.string() << ": rewritten\n";
    }
  }

  static bool isSame(const Case& left, const Case& right) {
    const auto isSameSection = [](const Section& a, const Section& b) {
      return a.kind == b.kind && a.name == b.name && a.isEscaped == b.isEscaped && a.body == b.body;
    };
    return std::is_permutation(left.sections.begin(), left.sections.end(), right.sections.begin(), right.sections.end(),
                               isSameSection);
  }

  files::path command_;
  files::path path_;
};

/// GoogleTest's filters take no other characters.
std::string testName(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](const char c) { return std::isalnum(c) == 0; }, '_');
  return text;
}

std::vector<files::path> casesBelow(const files::path& folder) {
  std::vector<files::path> paths;
  for (const files::directory_entry& entry : files::recursive_directory_iterator(folder)) {
    if (entry.path().extension() == ".case") paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

void registerCase(const files::path& command, const files::path& folder, const files::path& path) {
  const std::string suite = testName(path.parent_path().lexically_relative(folder).string());
  const std::string name = testName(path.stem().string());
  const auto make = [command, path]() -> LanguageTest* { return new LanguageTest(command, path); };
  testing::RegisterTest(suite.c_str(), name.c_str(), nullptr, nullptr, path.c_str(), 1, make);
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 3) {
    std::cerr << "usage: LanguageTests COMMAND FOLDER\n";
    return 2;
  }
  const files::path command = files::absolute(argv[1]);
  const files::path folder = argv[2];
  const std::vector<files::path> paths = casesBelow(folder);
  if (paths.empty() || !files::exists(command)) {
    std::cerr << "no cases below " << folder << ", or no command at " << command << "\n";
    return 2;
  }
  for (const files::path& path : paths) registerCase(command, folder, path);
  return RUN_ALL_TESTS();
}
