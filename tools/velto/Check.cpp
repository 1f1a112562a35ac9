// `velto check`: all that can be said of files without running them.
#include <algorithm>

#include "Commands.h"
#include "Outcome.h"
#include "Stages.h"

namespace command {
namespace {

void checkFile(const std::string& file, velto::Scanner::Mode mode, const std::shared_ptr<velto::Logger>& logger) {
  velto::Parser parser(unpack(scan(file, mode, logger), logger), logger);
  const velto::Statements statements = parser.parse();
  if (parser.hadError()) throw StageFailure{"parse"};
  velto::Interpreter interpreter(std::nullopt, logger);
  velto::Resolver resolver(interpreter);
  resolver.resolve(statements);
  if (resolver.hadError()) throw StageFailure{"resolve"};
}

}  // namespace

int check(const CheckOptions& options) {
  const auto printer = std::make_shared<MessagePrinter>(options.messages);
  int status = done;
  for (const std::string& file : options.files) {
    status = std::max(status, finish(*printer, file, [&] { checkFile(file, options.mode, printer); }));
  }
  return status;
}

}  // namespace command
