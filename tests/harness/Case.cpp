// Reading and writing the files of language cases.
#include "Case.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>

#include "Escapes.h"

namespace harness {

namespace {

const std::string sectionMark = "--- ";

Section sectionWithHead(const std::string& line) {
  std::istringstream words(line.substr(sectionMark.size()));
  Section section;
  words >> section.kind;
  const bool isNamed = section.kind == "file" || section.kind == "wrote" || section.kind == "exit";
  if (isNamed && !(words >> section.name)) throw std::runtime_error("a name is missing in: " + line);
  if (!isNamed && section.kind != "stdout" && section.kind != "messages") {
    throw std::runtime_error("unknown section: " + line);
  }
  std::string word;
  while (words >> word) {
    if (word != "escaped") throw std::runtime_error("unknown word in: " + line);
    section.isEscaped = true;
  }
  return section;
}

void refuseRepeated(const std::vector<Section>& sections) {
  std::set<std::pair<std::string, std::string>> seen;
  for (const Section& section : sections) {
    const std::string name = section.kind == "exit" ? "" : section.name;
    if (!seen.emplace(section.kind, name).second) throw std::runtime_error("repeated section: " + section.kind);
  }
}

bool acceptsLine(const std::string& expected, const std::string& actual) {
  return expected == actual || (expected == "fatal: ..." && actual.starts_with("fatal: "));
}

bool acceptsLines(const std::string& expected, const std::string& actual) {
  std::istringstream expectedLines(expected);
  std::istringstream actualLines(actual);
  std::string expectedLine;
  std::string actualLine;
  while (std::getline(expectedLines, expectedLine)) {
    if (!std::getline(actualLines, actualLine) || !acceptsLine(expectedLine, actualLine)) return false;
  }
  return !std::getline(actualLines, actualLine) && (actual.empty() || actual.back() == '\n');
}

/// Takes the characters of one word off `line` as a shell would; nothing at the end of the line.
std::optional<std::string> nextWord(std::istringstream& line) {
  if (!(line >> std::ws) || line.peek() == std::char_traits<char>::eof()) return std::nullopt;
  std::string word;
  char quote = 0;
  for (char character = 0; line.get(character);) {
    if (quote == 0 && character == ' ') return word;
    if (character == quote) {
      quote = 0;
    } else if (quote == 0 && (character == '\'' || character == '"')) {
      quote = character;
    } else {
      if (character == '\\' && quote != '\'') line.get(character);
      word += character;
    }
  }
  if (quote != 0) throw std::runtime_error("a quote is never closed in the command line");
  return word;
}

}  // namespace

std::string Section::text() const {
  return isEscaped ? unescape(body) : body;
}

bool Section::accepts(const std::string& actual) const {
  if (kind == "messages" && !isEscaped) return acceptsLines(body, actual);
  return actual == text() || (!isEscaped && actual + "\n" == body);
}

const Section* Case::find(const std::string& kind, const std::string& name) const {
  const auto isMeant = [&](const Section& section) { return section.kind == kind && section.name == name; };
  const auto found = std::find_if(sections.begin(), sections.end(), isMeant);
  return found == sections.end() ? nullptr : &*found;
}

int Case::exitStatus() const {
  for (const Section& section : sections) {
    if (section.kind == "exit") return std::stoi(section.name);
  }
  return 0;
}

std::vector<std::string> Case::words() const {
  std::istringstream line(commandLine);
  std::vector<std::string> words;
  while (std::optional<std::string> word = nextWord(line)) words.push_back(std::move(*word));
  return words;
}

Case readCase(const std::filesystem::path& path) {
  std::istringstream lines(readFile(path));
  Case result;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(sectionMark)) {
      result.sections.push_back(sectionWithHead(line));
    } else if (!result.sections.empty()) {
      result.sections.back().body += line + "\n";
    } else if (line.starts_with("$ ")) {
      if (!result.commandLine.empty()) throw std::runtime_error("more than one command line");
      result.commandLine = line.substr(2);
    } else {
      result.description.push_back(line);
    }
  }
  if (!result.commandLine.starts_with("velto")) throw std::runtime_error("no line that begins with \"$ velto\"");
  if (result.description.empty()) throw std::runtime_error("no sentence on what the case promises");
  refuseRepeated(result.sections);
  return result;
}

void writeCase(const std::filesystem::path& path, const Case& languageCase) {
  std::string text;
  for (const std::string& line : languageCase.description) text += line + "\n";
  text += "$ " + languageCase.commandLine + "\n";
  for (const Section& section : languageCase.sections) {
    text += sectionMark + section.kind + (section.name.empty() ? "" : " " + section.name);
    text += (section.isEscaped ? " escaped\n" : "\n") + section.body;
  }
  writeFile(path, text);
}

std::string readFile(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw std::runtime_error("can't read " + path.string());
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

void writeFile(const std::filesystem::path& path, const std::string& text) {
  if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path());
  std::ofstream stream(path, std::ios::binary | std::ios::trunc);
  stream << text;
  if (!stream.flush()) throw std::runtime_error("can't write " + path.string());
}

}  // namespace harness
