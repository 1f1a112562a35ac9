// `velto run`: a program file, through `Processor`.
#include "Commands.h"
#include "Job.h"
#include "Stages.h"

namespace command {

int run(const RunOptions& options) {
  const auto printer = std::make_shared<MessagePrinter>(options.messages);
  return finish(*printer, options.file, [&] {
    const Place place = placeOf(options);
    velto::Processor processor(place.base, printer);
    for (const auto& [name, value] : prepareGlobals(options)) processor.globals.insert_or_assign(name, value);
    processor.process(place.file);
  });
}

}  // namespace command
