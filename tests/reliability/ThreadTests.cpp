// Many runs at the same time.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>

#include <barrier>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "Velto/Velto.h"
#include "tests/reliability/SmallProject.h"

namespace velto::test {
namespace {

constexpr std::size_t threadCount = 8;
constexpr int runsOfEach = 10;

/// Reads the files of this machine, keeps in memory what is written, and copies nothing.
class ReadOnlyFiles final : public FileSystem {
 public:
  const std::shared_ptr<MemoryFileSystem> written = std::make_shared<MemoryFileSystem>();

 protected:
  std::string doRead(const Url& url) override { return FileSystem::local()->readBytes(url); }
  std::shared_ptr<FileHandle> doCreate(const Url& url) override { return written->create(url); }
  std::shared_ptr<FileHandle> doDescriptor(int number) override { return written->descriptor(number); }
  bool doCreateDirectory(const Url& url) override { return written->createDirectory(url); }
  bool doCopy(const Url&, const Url&) override { return false; }
  bool doIsDirectory(const Url& url) override { return FileSystem::local()->isDirectory(url); }
  Url doCurrentDirectory() override { return FileSystem::local()->currentDirectory(); }
};

/// The small project in a folder that goes with it.
class SharedFolder {
 public:
  SharedFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velto-threads-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("There is no folder for the test.");
    path = pattern;
    for (const auto& [name, bytes] : smallProject()) {
      std::filesystem::create_directories((path / name).parent_path());
      std::ofstream(path / name, std::ios::binary) << bytes;
    }
  }
  ~SharedFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  SharedFolder(const SharedFolder&) = delete;
  SharedFolder& operator=(const SharedFolder&) = delete;

  std::filesystem::path path;
};

/// Runs `work` on all threads at the same time, which are given their numbers.
void onThreads(const std::function<void(std::size_t number)>& work) {
  std::barrier start(threadCount);
  std::vector<std::thread> threads;
  for (std::size_t number = 0; number < threadCount; ++number) {
    threads.emplace_back([&, number] {
      start.arrive_and_wait();
      work(number);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

/// Records of which all threads read the same ones.
Value sharedModel() {
  std::vector<Value> records;
  for (int number = 0; number < 50; ++number) {
    const std::string name = "Ame\u0301lie " + std::to_string(number * 31 % 50);
    records.push_back(Value::dictionaryLiteral(
        {{"n\u00E4me", name}, {"number", number}, {"tags", Value::arrayLiteral({name, number, nullptr})}}));
  }
  return Array(std::move(records));
}

const char* const program = R"velto(
func isLater(_ left, _ right) return left["number"] > right["number"] end
func text(_ record) return "\(record)" end
var longest = ""
for record in model.sorted(by: isLater)
  if record["näme"].hasSuffix("1") longest = "\(longest)\(record)" end
  var tags = record["tags"]
  if tags == [record["näme"], record["number"], nil] print(tags.joined(separator: "-").upperCamelCased()) end
end
print(longest[0..<10]) print(book) print(answer()) print(model.map(text).joined(separator: ";"))
)velto";

std::string outputOf(const Value& model, const Value& book, const Value& answer) {
  const auto files = std::make_shared<MemoryFileSystem>();
  files->files["/main.velto"] = program;
  const auto logger = std::make_shared<ArrayLogger>();
  Processor processor(Url("/"), logger, files);
  processor.globals = {{"model", model}, {"book", book}, {"answer", answer}};
  try {
    processor.process("main.velto");
  } catch (const VeltoError&) {
    return std::string(logger->messages.at(0).description().view());
  }
  return files->files["<1>"];
}

TEST(Threads, RunOverOneFolder) {
  const SharedFolder folder;
  const std::map<String, Value> globals = smallProjectGlobals();
  std::vector<std::string> faults(threadCount);
  onThreads([&](std::size_t number) {
    for (int run = 0; run < runsOfEach; ++run) {
      const auto files = std::make_shared<ReadOnlyFiles>();
      files->written->directories.insert("/out");
      Processor processor(Url(folder.path.string()), std::make_shared<ArrayLogger>(), files);
      processor.globals = globals;
      processor.globals["outputPath"] = "/out";
      processor.process("main.velto");
      Files written;
      for (const auto& [path, bytes] : files->written->files) {
        if (path.starts_with("/out/")) written[path.substr(5)] = bytes;
      }
      if (files->written->files["<1>"] != expectedOutput()) faults[number] = files->written->files["<1>"];
      for (const auto& [path, bytes] : written) {
        if (expectedFiles().at(path) != bytes) faults[number] = path;
      }
    }
  });
  for (const std::string& fault : faults) EXPECT_EQ(fault, "");
}

TEST(Threads, ShareAModel) {
  const Value model = sharedModel();
  const Value book = smallProjectGlobals().at("book");
  const Value answer = makeRef<Function0>("answer", []() -> Value { return 42; });
  const std::string expected = outputOf(sharedModel(), book, answer);
  ASSERT_THAT(expected, testing::HasSubstr("Am"));
  std::vector<std::string> outputs(threadCount);
  onThreads([&](std::size_t number) {
    for (int run = 0; run < runsOfEach; ++run) outputs[number] = outputOf(model, book, answer);
  });
  for (const std::string& output : outputs) EXPECT_EQ(output, expected);
}

TEST(Threads, RunOneTree) {
  const auto logger = std::make_shared<ArrayLogger>();
  Scanner scanner("var total = 0 for i in 0..<100 func add(_ x) return x + i end total = add(total) end print(total)",
                  Scanner::Mode::program, logger, "shared");
  const Statements statements = Parser(Unpacker(scanner.scanTokens(), logger).unpack(), logger).parse();
  std::vector<std::string> outputs(threadCount);
  onThreads([&](std::size_t number) {
    for (int run = 0; run < runsOfEach; ++run) {
      Interpreter interpreter(Url("/"), std::make_shared<ArrayLogger>(), std::make_shared<MemoryFileSystem>());
      interpreter.print = [&](const String& text) { outputs[number] += text.view(); };
      Resolver(interpreter).resolve(statements);
      interpreter.interpret(statements);
    }
  });
  std::string expected;
  for (int run = 0; run < runsOfEach; ++run) expected += "4950";
  for (const std::string& output : outputs) EXPECT_EQ(output, expected);
}

TEST(Threads, LetGoOfWhatTheyShareInAnyOrder) {
  for (int round = 0; round < runsOfEach; ++round) {
    std::vector<Value> copies(threadCount, sharedModel());
    onThreads([&](std::size_t number) {
      const Value part = copies[number].array()->elements()[number];
      copies[number] = nullptr;
      EXPECT_TRUE(part.dictionary()->find("number"));
    });
  }
}

}  // namespace
}  // namespace velto::test
