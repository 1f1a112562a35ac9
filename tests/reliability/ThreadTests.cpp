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

/// The files of this machine. What goes to a standard stream is kept in memory, since that has no order between
/// threads.
class LocalFiles : public FileSystem {
 public:
  const std::shared_ptr<MemoryFileSystem> kept = std::make_shared<MemoryFileSystem>();

  std::string output() const { return kept->files["<1>"]; }

 protected:
  std::string doRead(const Url& url) override { return FileSystem::local()->readBytes(url); }
  std::shared_ptr<FileHandle> doCreate(const Url& url) override { return FileSystem::local()->create(url); }
  std::shared_ptr<FileHandle> doDescriptor(int number) override { return kept->descriptor(number); }
  bool doCreateDirectory(const Url& url) override { return FileSystem::local()->createDirectory(url); }
  bool doCopy(const Url& source, const Url& target) override { return FileSystem::local()->copy(source, target); }
  bool doIsDirectory(const Url& url) override { return FileSystem::local()->isDirectory(url); }
  Url doCurrentDirectory() override { return FileSystem::local()->currentDirectory(); }
};

/// They are only read here: what is written is kept in memory as well, and nothing is copied.
class ReadOnlyFiles final : public LocalFiles {
 protected:
  std::shared_ptr<FileHandle> doCreate(const Url& url) override { return kept->create(url); }
  bool doCreateDirectory(const Url& url) override { return kept->createDirectory(url); }
  bool doCopy(const Url&, const Url&) override { return false; }
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
for record in records.sorted(by: isLater)
  if record["näme"].hasSuffix("1") longest = "\(longest)\(record)" end
  var tags = record["tags"]
  if tags == [record["näme"], record["number"], nil] print(tags.joined(separator: "-").upperCamelCased()) end
end
print(longest[0..<10]) print(book) print(answer()) print(records.map(text).joined(separator: ";"))
)velto";

std::string outputOf(const Value& model, const Value& book, const Value& answer) {
  const auto files = std::make_shared<MemoryFileSystem>();
  files->files["/main.velto"] = program;
  const auto logger = std::make_shared<ArrayLogger>();
  Processor processor(Url("/"), logger, files);
  processor.globals = {{"records", model}, {"book", book}, {"answer", answer}};
  try {
    processor.process("main.velto");
  } catch (const VeltoError&) {
    return std::string(logger->messages.at(0).description().view());
  }
  return files->files["<1>"];
}

/// The small project, and one over a model of the host's, in a folder that goes with it; beside one for outputs.
class SharedFolder {
 public:
  SharedFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velto-threads-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("There is no folder for the test.");
    path_ = pattern;
    for (const auto& [name, bytes] : smallProject()) write(name, bytes);
    write("shared.velto", "process(\"shared.txt\", into: \"shared.out\")");
    write("shared.txt", "<%" + std::string(program) + "%>");
  }
  ~SharedFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  SharedFolder(const SharedFolder&) = delete;
  SharedFolder& operator=(const SharedFolder&) = delete;

  std::filesystem::path project() const { return path_ / "project"; }

  /// An empty folder for what one thread writes.
  std::filesystem::path emptyOutput(std::size_t thread) const {
    const std::filesystem::path output = path_ / "outputs" / std::to_string(thread);
    std::filesystem::remove_all(output);
    std::filesystem::create_directories(output);
    return output;
  }

 private:
  void write(const std::string& name, const std::string& bytes) const {
    std::filesystem::create_directories((project() / name).parent_path());
    std::ofstream(project() / name, std::ios::binary) << bytes;
  }

  std::filesystem::path path_;
};

/// The files below `folder`, by their paths in there.
Files filesBelow(const std::string& folder, const Files& all) {
  Files found;
  for (const auto& [path, bytes] : all) {
    if (path.starts_with(folder + "/")) found[path.substr(folder.size() + 1)] = bytes;
  }
  return found;
}

/// What is wrong with the first file that isn't as it should be; empty if there is none.
std::string faultOf(const Files& written, const Files& expected) {
  for (const auto& [path, bytes] : expected) {
    if (!written.contains(path)) return path + " is missing";
    if (written.at(path) != bytes) return path + " is: " + written.at(path);
  }
  for (const auto& [path, bytes] : written) {
    if (!expected.contains(path)) return path + " is too much";
  }
  return "";
}

/// Runs both programs of the folder. Gives what the first one that fails says.
std::string runAll(const SharedFolder& folder, const std::map<String, Value>& globals, const std::string& output,
                   const std::shared_ptr<FileSystem>& files) {
  const auto logger = std::make_shared<ArrayLogger>();
  for (const String main : {"main.velto", "shared.velto"}) {
    Processor processor(Url(folder.project().string()), logger, files);
    processor.globals = globals;
    processor.globals["outputPath"] = output;
    try {
      processor.process(main);
    } catch (const VeltoError&) {
      return std::string(logger->messages.at(0).description().view());
    }
  }
  return "";
}

/// The model and all else that the threads share, and what comes of it.
class SharedValues {
 public:
  SharedValues() {
    globals["records"] = sharedModel();
    globals["answer"] = makeRef<Function0>("answer", []() -> Value { return 42; });
    output = outputOf(sharedModel(), globals.at("book"), globals.at("answer"));
    files["shared.out"] = output;
  }

  std::map<String, Value> globals = smallProjectGlobals();
  std::string output;
  Files files = expectedFiles();
};

TEST(Threads, RunOverOneFolder) {
  const SharedFolder folder;
  SharedValues shared;
  ASSERT_EQ(std::erase_if(shared.files, [](const auto& file) { return file.first.starts_with("static/"); }), 2u);
  std::vector<std::string> faults(threadCount);
  onThreads([&](std::size_t number) {
    for (int run = 0; run < runsOfEach && faults[number].empty(); ++run) {
      const auto files = std::make_shared<ReadOnlyFiles>();
      files->kept->directories.insert("/out");
      faults[number] = runAll(folder, shared.globals, "/out", files);
      if (faults[number].empty()) faults[number] = faultOf(filesBelow("/out", files->kept->files), shared.files);
      if (files->output() != expectedOutput()) faults[number] += " printed: " + files->output();
    }
  });
  for (const std::string& fault : faults) EXPECT_EQ(fault, "");
}

TEST(Threads, WriteIntoFoldersOfTheirOwn) {
  const SharedFolder folder;
  const SharedValues shared;
  std::vector<std::string> faults(threadCount);
  onThreads([&](std::size_t number) {
    for (int run = 0; run < runsOfEach && faults[number].empty(); ++run) {
      const std::filesystem::path output = folder.emptyOutput(number);
      const auto files = std::make_shared<LocalFiles>();
      faults[number] = runAll(folder, shared.globals, output.string(), files);
      if (faults[number].empty()) faults[number] = faultOf(filesIn(output), shared.files);
      if (files->output() != expectedOutput()) faults[number] += " printed: " + files->output();
    }
  });
  for (const std::string& fault : faults) EXPECT_EQ(fault, "");
}

TEST(Threads, ShareAModel) {
  const SharedValues shared;
  ASSERT_THAT(shared.output, testing::HasSubstr("Am"));
  std::vector<std::string> faults(threadCount);
  onThreads([&](std::size_t number) {
    const std::map<String, Value>& globals = shared.globals;
    for (int run = 0; run < runsOfEach; ++run) {
      const std::string output = outputOf(globals.at("records"), globals.at("book"), globals.at("answer"));
      if (output != shared.output) faults[number] = output;
    }
  });
  for (const std::string& fault : faults) EXPECT_EQ(fault, "");
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
