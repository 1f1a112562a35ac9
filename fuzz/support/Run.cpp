#include "support/Run.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "Velto/Diagnostics/VeltoError.h"
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/Resolver.h"
#include "Velto/Platform/MemoryFileSystem.h"
#include "Velto/Processor/ParseFile.h"
#include "Velto/Processor/Processor.h"
#include "support/Bounds.h"
#include "support/HostNodes.h"
#include "support/Require.h"
#include "support/SourceMap.h"

namespace velto::fuzz {
namespace {

constexpr Limits limits{.steps = 4'000, .largest = std::size_t{1} << 18, .memory = std::size_t{8} << 20};

/// All that a run leaves behind.
class Outcome {
 public:
  explicit Outcome(const Files& files) {
    for (const auto& [name, content] : files) fileSystem->files["/" + name] = content;
  }

  const std::shared_ptr<MemoryFileSystem> fileSystem = std::make_shared<MemoryFileSystem>();
  const std::shared_ptr<ArrayLogger> logger = std::make_shared<ArrayLogger>();
  std::string end;
  std::optional<Stopped> stopped;

  /// How much memory and stack there is left differs between two runs.
  bool isCutShort() const {
    const auto isExhausted = [](const Message& message) {
      return message.message == "Stack exhausted." || message.message == "Nesting is too deep.";
    };
    return (stopped && stopped->reason == Stop::Reason::memory) ||
           std::any_of(logger->messages.begin(), logger->messages.end(), isExhausted);
  }
  /// Short ways take fewer steps.
  bool isOutOfSteps() const { return stopped && stopped->reason == Stop::Reason::steps; }
  std::string output() const {
    const auto output = fileSystem->files.find("<1>");
    return output != fileSystem->files.end() ? output->second : std::string();
  }
  std::string description() const;

  /// Runs `action` within the limits, and notes how it ended.
  template <typename Action>
  void run(const Limits& limits, const Action& action) {
    stopped = bounded(limits, [&] {
      try {
        action();
        end = "done";
      } catch (const VeltoError& error) {
        end = error.step == VeltoError::Step::interpret ? "failed" : "not run";
      } catch (const Error&) {
        end = "not read";
      }
    });
    FileSystem::flush();
    if (stopped) end = "stopped: " + stopped->fatal;
  }
};

std::string Outcome::description() const {
  std::string text = end + "\n";
  for (const Message& message : logger->messages) {
    text.append(placeOf(message.range())).append(" ").append(message.description()).append("\n");
  }
  for (const std::string& folder : fileSystem->directories) text.append("folder ").append(folder).append("\n");
  for (const auto& [path, content] : fileSystem->files) {
    text.append("file ").append(path).append("\n").append(content).append("\n");
  }
  return text;
}

/// Whatever ended the run, all scopes but the globals are gone, and what is printed goes where it went before.
void checkLeftBehind(Interpreter& interpreter, const Outcome& outcome) {
  require(interpreter.stack().size() == 1, "A run leaves no scope on the stack.");
  require(interpreter.stack().front().get() == &interpreter.globals(), "The outermost scope stays the outermost.");
  const std::string before = outcome.output();
  interpreter.print("probe");
  FileSystem::flush();
  requireEqual(outcome.output(), before + "probe", "Output goes where it went before the run.");
  outcome.fileSystem->files["<1>"] = before;
  if (before.empty()) outcome.fileSystem->files.erase("<1>");
}

enum class Nodes { language, host };

void checkFailure(bool hasFailed, const ArrayLogger& logger) {
  const auto isError = [](const Message& message) { return message.level == Message::Level::error; };
  require(!hasFailed || std::any_of(logger.messages.begin(), logger.messages.end(), isError),
          "A failure is told by a message.");
}

/// The same steps as a `Processor` takes, with an interpreter that can be looked at.
Outcome runInterpreter(const Files& files, Nodes nodes = Nodes::language, const Limits& limits = fuzz::limits) {
  Outcome outcome(files);
  const Url base = Url::directory("");
  const auto texts = std::make_shared<TextPool>();
  Interpreter interpreter(base, outcome.logger, outcome.fileSystem, texts);
  outcome.run(limits, [&] {
    const Url program = base.appendingPathComponent(files.front().first);
    std::optional<Statements> statements =
        parseFile(*outcome.fileSystem, program, Scanner::Mode::program, outcome.logger, texts);
    if (!statements) throw VeltoError(VeltoError::Step::parse);
    if (nodes == Nodes::host) statements = withHostNodes(*statements);
    Resolver(interpreter).resolve(*statements);
    interpreter.interpret(*statements);
    checkFailure(interpreter.hadError, *outcome.logger);
    if (interpreter.hadError) throw VeltoError(VeltoError::Step::interpret);
  });
  checkLeftBehind(interpreter, outcome);
  return outcome;
}

Outcome runProcessor(const Files& files) {
  Outcome outcome(files);
  Processor processor(Url(""), outcome.logger, outcome.fileSystem);
  outcome.run(limits, [&] { processor.process(files.front().first); });
  return outcome;
}

/// Any of the steps of a run, or of its pieces of memory, to stop there and see what is left behind.
long someOf(long count, const Files& files) {
  const std::size_t number = std::hash<std::string>()(textOf(files));
  return static_cast<long>(number % static_cast<std::size_t>(std::max(count, 1L)));
}

/// Beyond ASCII texts need memory to be compared, and end everything if there is none.
bool isPlain(const Files& files) {
  const auto isASCII = [](char byte) { return static_cast<signed char>(byte) >= 0; };
  return std::all_of(files.begin(), files.end(), [&](const auto& file) {
    return std::all_of(file.second.begin(), file.second.end(), isASCII) &&
           file.second.find("\\u") == std::string::npos && std::all_of(file.first.begin(), file.first.end(), isASCII);
  });
}

/// Its texts differ from run to run.
bool makesUUIDs(const Files& files) {
  return std::any_of(files.begin(), files.end(),
                     [](const auto& file) { return file.second.find("makeUUID") != std::string::npos; });
}

void checkStop(const Outcome& outcome) {
  requireLegal(outcome.stopped, {
                                    "A cursor can't move beyond the end of its text.",
                                    "Failed to interpret a number",
                                    "Expected expression.",
                                    "Expected ',', ':' or ']'.",
                                    "The number ",
                                    "Argument ",
                                    "The upper bound of a range is below its lower bound",
                                    "A loop can't run up to the largest integer.",
                                    "The hash of a closed range can't be told",
                                    "The scope of a resolved variable ",
                                });
}

}  // namespace

std::string checkRun(const Files& files) {
  const Outcome first = runInterpreter(files);
  const long steps = stepsTaken();
  const long pieces = piecesTaken();
  checkStop(first);
  if (!first.stopped) {
    runInterpreter(files, Nodes::language, {.steps = someOf(steps, files)});
    if (isPlain(files)) runInterpreter(files, Nodes::language, {.pieces = someOf(pieces, files)});
  }
  if (makesUUIDs(files)) return first.end;
  const Outcome second = runProcessor(files);
  if (first.isCutShort() || second.isCutShort()) return first.end;
  // How often the stack is asked for depends on where the identities of nodes fall in a table.
  if (first.isOutOfSteps() || second.isOutOfSteps()) return first.end;
  requireEqual(first.description(), second.description(), "Two runs leave the same behind.");
  const Outcome third = runInterpreter(files, Nodes::host);
  if (third.isCutShort() || third.isOutOfSteps()) return first.end;
  requireEqual(first.description(), third.description(), "A run of the host's nodes leaves the same behind.");
  return first.end;
}

std::string textOf(const Files& files) {
  std::string text;
  for (const auto& [name, content] : files) text.append("--- ").append(name).append("\n").append(content).append("\n");
  return text;
}

}  // namespace velto::fuzz
