// `velto tree`: the statements of a file, one JSON object a line.
#include "Commands.h"
#include "Outcome.h"
#include "Stages.h"
#include "TreeWriter.h"

namespace command {
namespace {

void print(const velto::Statements& statements) {
  const auto output = velto::FileSystem::local()->standardOutput();
  for (const velto::Statement& statement : statements) output->write(TreeWriter().json(statement) + "\n");
}

}  // namespace

int tree(const TreeOptions& options) {
  const auto printer = std::make_shared<MessagePrinter>(options.messages);
  return finish(*printer, options.file, [&] {
    velto::Parser parser(unpack(scan(options.file, options.mode, printer), printer), printer);
    print(parser.parse());
    if (parser.hadError()) throw StageFailure{"parse"};
  });
}

}  // namespace command
