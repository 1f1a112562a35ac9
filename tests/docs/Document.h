// The fenced blocks of a Markdown document, and the examples that they make.
//
// An example is a row of blocks: first what is given, then what comes of it.
//
//     ```velto NAME        a program or a template; without a NAME it is main.velto
//     ```json NAME         any other block with a NAME is a file as well
//     ```console           "$ velto ...": the command line. Without it a program, whose NAME ends in ".velto", is run,
//                          and a template is rendered; with data from data.json if there is such a file
//     ```output            what stands on standard output
//     ```messages          what stands on standard error. Without it the exit status must be 0, and with a line that
//                          begins with "fatal: " 134
//     ```wrote NAME        a file that the command wrote
//
// A given block behind a result begins the next example. Blocks without a NAME in other languages are prose.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace documents {

struct Block {
  std::size_t line = 0;  ///< of the opening fence
  std::string language;
  std::string name;
  std::string body;
  std::size_t offset = 0;  ///< of the body in the document
  std::string chapter;     ///< the heading that it stands under
};

std::vector<Block> blocksOf(const std::string& document);

struct Example {
  std::vector<Block> given;
  std::vector<Block> results;
  std::string commandLine;

  std::size_t line() const { return given.front().line; }
  const Block* find(const std::string& kind, const std::string& name = "") const;
  /// The words of the `console` block, or of what stands for it, without "velto" itself.
  std::vector<std::string> arguments() const;
  bool acceptsExitStatus(int status) const;
};

/// Throws `std::runtime_error` for an example without a result, and for a result without an example.
std::vector<Example> examplesOf(const std::vector<Block>& blocks);

}  // namespace documents
