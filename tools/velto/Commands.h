// The commands and their options.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Globals.h"
#include "MessagePrinter.h"
#include "Velto/Velto.h"

namespace command {

struct RunOptions {
  MessageOptions messages;
  std::optional<std::string> base;
  std::optional<std::string> output;
  GlobalOptions globals;
  std::string file;
};

struct RenderOptions : RunOptions {
  std::optional<std::string> into;
};

struct CheckOptions {
  MessageOptions messages;
  velto::Scanner::Mode mode = velto::Scanner::Mode::program;
  std::vector<std::string> files;
};

struct TokensOptions {
  MessageOptions messages;
  velto::Scanner::Mode mode = velto::Scanner::Mode::template_;
  bool unpack = false;
  std::string file;
};

struct TreeOptions {
  MessageOptions messages;
  velto::Scanner::Mode mode = velto::Scanner::Mode::template_;
  std::string file;
};

// Each gives the exit status of the process.
int run(const RunOptions& options);
int render(const RenderOptions& options);
int check(const CheckOptions& options);
int tokens(const TokensOptions& options);
int tree(const TreeOptions& options);

}  // namespace command
