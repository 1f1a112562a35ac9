// Renders a workload: reads and parses everything first, and runs the last statement of the program alone.
//
//     VeltoRender WORKLOAD DATA OUTPUT [steady]
//
// The program is DATA/velto/WORKLOAD/main.velto, beside its templates and its data. What it writes goes to the folder
// OUTPUT/WORKLOAD, and what it prints to a file of that name. With `steady` the bytes are only counted, the statement
// runs several times, and the median time of one run is shown: "steady_ms 12.345".
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string_view>
#include <vector>

#include "Velto/Velto.h"
#include "benchmarks/CountingFileSystem.h"

namespace {

using namespace velto;
using benchmarks::CountingFileSystem;

/// Writes below a folder, and what is printed into a file.
class FolderFileSystem final : public FileSystem {
 public:
  explicit FolderFileSystem(const Url& target) : target_(target) {}

 protected:
  std::string doRead(const Url& url) override { return local()->readBytes(url); }
  std::shared_ptr<FileHandle> doCreate(const Url& url) override {
    if (!local()->createDirectory(target_)) return nullptr;
    return local()->create(target_.appendingPathComponent(url.path()));
  }
  std::shared_ptr<FileHandle> doDescriptor(int) override {
    if (!printed_) printed_ = std::make_shared<Printed>(target_);
    return printed_;
  }
  bool doCreateDirectory(const Url&) override { return true; }
  bool doCopy(const Url&, const Url&) override { return true; }
  bool doIsDirectory(const Url& url) override { return local()->isDirectory(url); }
  Url doCurrentDirectory() override { return local()->currentDirectory(); }

 private:
  /// A file that isn't there before something is printed.
  class Printed final : public FileHandle {
   public:
    explicit Printed(const Url& target) : target_(target) {}
    void write(std::string_view bytes) override {
      if (!file_) file_ = local()->create(target_);
      if (file_) file_->write(bytes);
    }

   private:
    Url target_;
    std::shared_ptr<FileHandle> file_;
  };

  Url target_;
  std::shared_ptr<Printed> printed_;
};

class Workload {
 public:
  Workload(const Url& folder, std::shared_ptr<FileSystem> files)
      : files_(std::move(files)), interpreter_(folder, logger_, files_, texts_), statements_(parse(folder)) {
    Resolver(interpreter_).resolve(statements_);
    if (statements_.empty()) return;
    rendering_.push_back(statements_.back());
    statements_.pop_back();
    interpreter_.interpret(statements_);
  }

  void render() {
    interpreter_.interpret(rendering_);
    if (!interpreter_.hadError) return;
    for (const Message& message : logger_->messages) std::fprintf(stderr, "%s\n", std::string(message.message).c_str());
    std::exit(1);
  }

 private:
  Statements parse(const Url& folder) {
    const Url file = folder.appendingPathComponent("main.velto");
    Scanner scanner(files_->readText(file), Scanner::Mode::program, logger_, file.path(), texts_);
    return Parser(Unpacker(scanner.scanTokens(), logger_).unpack(), logger_).parse();
  }

  const std::shared_ptr<ArrayLogger> logger_ = std::make_shared<ArrayLogger>();
  const std::shared_ptr<TextPool> texts_ = std::make_shared<TextPool>();
  std::shared_ptr<FileSystem> files_;
  Interpreter interpreter_;
  Statements statements_;
  Statements rendering_;
};

double millisecondsOf(Workload& workload) {
  const auto start = std::chrono::steady_clock::now();
  workload.render();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void renderSteadily(Workload& workload) {
  constexpr int rounds = 7;
  std::vector<double> times;
  workload.render();
  for (int round = 0; round < rounds; ++round) times.push_back(millisecondsOf(workload));
  std::ranges::nth_element(times, times.begin() + rounds / 2);
  std::fprintf(stderr, "steady_ms %.3f\n", times[rounds / 2]);
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 4) {
    std::fputs("usage: VeltoRender WORKLOAD DATA OUTPUT [steady]\n", stderr);
    return 2;
  }
  const bool isSteady = count > 4 && std::string_view(arguments[4]) == "steady";
  const Url folder = Url::directory(String::concatenation({arguments[2], "/velto/", arguments[1]}));
  const Url target = Url(arguments[3]).appendingPathComponent(arguments[1]);
  std::shared_ptr<FileSystem> files = std::make_shared<CountingFileSystem>();
  if (!isSteady) files = std::make_shared<FolderFileSystem>(target);
  Workload workload(folder, std::move(files));
  if (isSteady) {
    renderSteadily(workload);
  } else {
    workload.render();
  }
}
