// `velto tokens`: the tokens of a file, one JSON object a line.
#include "Commands.h"
#include "Json.h"
#include "Stages.h"

namespace command {
namespace {

void print(const std::vector<velto::Token>& tokens) {
  const auto output = velto::FileSystem::local()->standardOutput();
  for (const velto::Token& token : tokens) output->write(json::token(token) + "\n");
}

}  // namespace

int tokens(const TokensOptions& options) {
  const auto printer = std::make_shared<MessagePrinter>(options.messages);
  return finish(*printer, options.file, [&] {
    std::vector<velto::Token> tokens = scan(options.file, options.mode, printer);
    if (options.unpack) tokens = unpack(std::move(tokens), printer);
    print(tokens);
  });
}

}  // namespace command
