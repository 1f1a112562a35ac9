// A language case: one file with a command line, the files that it needs, and what must come of it.
//
//     One sentence on what is promised.
//     $ velto run main.velto
//     --- file main.velto
//     print("a")
//     --- stdout
//     a
//
// The `$` line is a real command line, split as a shell splits words; its first word stands for the built command. Each
// case runs in a fresh folder that holds nothing but its files. The sections:
//
//     file NAME      a file to write first, its folders made; a NAME that ends in "/" is an empty folder
//     stdout         what must stand on standard output
//     messages       what must stand on standard error, whole lines; the line "fatal: ..." stands for any line that
//                    begins with "fatal: "
//     exit N         the exit status, 134 for an end by SIGABRT
//     wrote NAME     the contents of a file that the command wrote; every file that is new or changed must be named
//
// A section left out means empty, or 0. In a plain section each line counts with its line feed, but for one thing: in
// `stdout` and `wrote` the very last line feed may be missing from the real text. Where that matters, or where a
// character can't be seen, `escaped` behind the section's name switches on `\n`, `\r`, `\t`, `\0`, `\\`, `\u{301}`, the
// byte `\xFF`, and `\-` for a hyphen that opens a line. Such a section is compared to the letter: real line ends count
// as line feeds, and a backslash at the end of a line takes its line feed away.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace harness {

struct Section {
  std::string kind;
  std::string name;
  bool isEscaped = false;
  std::string body;

  /// The body with its escapes resolved.
  std::string text() const;
  /// Whether `actual` is what this section asks for.
  bool accepts(const std::string& actual) const;
};

struct Case {
  std::vector<std::string> description;
  std::string commandLine;
  std::vector<Section> sections;

  /// The section of that kind and name, or nothing.
  const Section* find(const std::string& kind, const std::string& name = "") const;
  int exitStatus() const;
  std::vector<std::string> words() const;
};

/// Throws `std::runtime_error` with the words for whoever wrote the file.
Case readCase(const std::filesystem::path& path);
void writeCase(const std::filesystem::path& path, const Case& languageCase);

std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, const std::string& text);

}  // namespace harness
