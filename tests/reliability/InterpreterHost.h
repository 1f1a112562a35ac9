// An interpreter over the small project, for what only a host of one sees.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "Velto/Velto.h"
#include "tests/reliability/Place.h"

namespace velto::test {

/// An interpreter of a host's that prints into a text.
class InterpreterHost {
 public:
  explicit InterpreterHost(const MemoryPlace::Wrap& wrap = [](auto files) { return files; })
      : interpreter(Url("/project"), logger, wrap(files)) {
    for (const auto& [name, value] : smallProjectGlobals()) interpreter.globals().define(name, value);
    interpreter.globals().define("outputPath", "/output");
    interpreter.print = [this](const String& text) { printed = std::move(printed).appending(text); };
  }

  Statements parsed(const std::string& source) const {
    Scanner scanner(source, Scanner::Mode::program, logger, "source");
    return Parser(Unpacker(scanner.scanTokens(), logger).unpack(), logger).parse();
  }

  const std::shared_ptr<MemoryFileSystem> files = projectFiles();
  const std::shared_ptr<ArrayLogger> logger = std::make_shared<ArrayLogger>();
  Interpreter interpreter;
  String printed;

 private:
  /// They are there before the interpreter asks for its folder.
  static std::shared_ptr<MemoryFileSystem> projectFiles() {
    const auto files = std::make_shared<MemoryFileSystem>();
    for (const auto& [path, bytes] : smallProject()) files->files["/project/" + path] = bytes;
    files->directories.insert("/output");
    return files;
  }
};

}  // namespace velto::test
