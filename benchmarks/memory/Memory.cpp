// How many bytes trees and documents hold for each byte that they come from, and where these go.
//
//     VeltoMemory [FILE...]
//
// Each FILE is a template, a program (*.velto) or a document (*.json). Without one, sources and data of its own are
// measured.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "benchmarks/Model.h"
#include "benchmarks/Sources.h"
#include "benchmarks/memory/Heap.h"
#include "benchmarks/memory/Sizes.h"

namespace {

using namespace velto;
using namespace velto::benchmarks;

void print(const std::string& what, std::size_t source, std::size_t held, const std::map<std::string, Size>& sizes) {
  const auto perByte = [&](std::size_t bytes) { return static_cast<double>(bytes) / static_cast<double>(source); };
  std::printf("%s: %zu bytes hold %zu, %.1f times as many\n", what.c_str(), source, held, perByte(held));
  std::size_t rest = held;
  for (const auto& [kind, size] : sizes) {
    std::printf("  %-26s %10zu %12zu bytes %6.2f times\n", kind.c_str(), size.count, size.bytes, perByte(size.bytes));
    rest -= size.bytes;
  }
  std::printf("  %-26s %10s %12zu bytes %6.2f times\n\n", "texts and all else", "", rest, perByte(rest));
}

Statements parse(const std::string& source, Scanner::Mode mode, const std::shared_ptr<TextPool>& names) {
  const auto logger = std::make_shared<ArrayLogger>();
  Scanner scanner(String(source), mode, logger, "measured", names);
  return Parser(Unpacker(scanner.scanTokens(), logger).unpack(), logger).parse();
}

/// The text of a template is kept once, whatever its tree looks like, and counts on neither side.
void measureTree(const std::string& what, const std::string& source, Scanner::Mode mode) {
  const std::size_t before = bytesHeld();
  const auto names = std::make_shared<TextPool>();
  const Statements statements = parse(source, mode, names);
  const std::size_t held = bytesHeld() - before;
  const std::size_t text = textSizeOf(statements);
  print(what, source.size() - text, held - text, sizesOf(statements));
}

void measureDocument(const std::string& what, const std::string& document) {
  const std::size_t before = bytesHeld();
  TextPool names;
  const std::optional<Value> value = parseJSON(document, names);
  const std::size_t held = bytesHeld() - before;
  print(what, document.size(), held, sizesOf(*value));
}

void measureFile(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(stream), {});
  if (path.extension() == ".json") return measureDocument(path, bytes);
  const bool isProgram = path.extension() == ".velto";
  measureTree(path, bytes, isProgram ? Scanner::Mode::program : Scanner::Mode::template_);
}

}  // namespace

int main(int count, char** arguments) {
  parse(program(1 << 10), Scanner::Mode::program, std::make_shared<TextPool>());  // what is made once in a process
  for (int index = 1; index < count; ++index) measureFile(arguments[index]);
  if (count > 1) return 0;

  constexpr std::size_t size = 1 << 20;
  measureTree("a program", program(size), Scanner::Mode::program);
  measureTree("a template", taggedText(size), Scanner::Mode::template_);
  measureDocument("a model", model(Script::latin, 2'000));
  measureDocument("a model in Greek", model(Script::greek, 2'000));
  measureDocument("a table", table(Script::latin, 10'000));
}
