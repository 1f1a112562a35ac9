// The stages of the pipeline, run one by one.
#include "Stages.h"

#include <new>
#include <utility>

#include "Outcome.h"

namespace command {
namespace {

std::string_view nameOf(velto::VeltoError::Step step) {
  switch (step) {
    case velto::VeltoError::Step::scan:
      return "scan";
    case velto::VeltoError::Step::parse:
      return "parse";
    case velto::VeltoError::Step::interpret:
      return "interpret";
  }
  return "";
}

int fail(MessagePrinter& printer, std::string_view step) {
  printer.reportStep(step);
  return failed;
}

int refuse(MessagePrinter& printer, const Trouble& trouble) {
  printer.reportTrouble(trouble.what);
  return unreadable;
}

}  // namespace

int finish(MessagePrinter& printer, const std::string& file, const std::function<void()>& work) try {
  work();
  return done;
} catch (const velto::VeltoError& error) {
  return fail(printer, nameOf(error.step));
} catch (const velto::ParseCache::Error&) {
  return fail(printer, nameOf(velto::VeltoError::Step::parse));
} catch (const StageFailure& failure) {
  return fail(printer, failure.step);
} catch (const velto::FileError& error) {
  return refuse(printer, cannotRead(file, error.what()));
} catch (const Trouble& trouble) {
  return refuse(printer, trouble);
} catch (const std::bad_alloc&) {
  return refuse(printer, Trouble{"out of memory"});
}

std::vector<velto::Token> scan(const std::string& file, velto::Scanner::Mode mode,
                               const std::shared_ptr<velto::Logger>& logger) {
  const velto::String source = velto::FileSystem::local()->readText(velto::Url(file));
  return velto::Scanner(source, mode, logger, file).scanTokens();
}

std::vector<velto::Token> unpack(std::vector<velto::Token> tokens, const std::shared_ptr<velto::Logger>& logger) {
  return velto::Unpacker(std::move(tokens), logger).unpack();
}

}  // namespace command
