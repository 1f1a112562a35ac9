#include "tests/reliability/Place.h"

#include <fcntl.h>
#include <stdlib.h>

#include <fstream>
#include <iterator>
#include <new>
#include <stdexcept>

namespace velto::test {
namespace {

namespace files = std::filesystem;

constexpr const char* outputFolder = "output";

void write(const files::path& path, const std::string& bytes) {
  files::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string bytesOf(const files::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

Outcome Place::run(const std::string& program, const std::function<void(const std::function<void()>& work)>& during) {
  clear();
  const auto logger = std::make_shared<ArrayLogger>();
  Processor processor(Url(base()), logger, fileSystem());
  processor.globals = smallProjectGlobals();
  processor.globals["outputPath"] = base() + "/" + outputFolder;
  const String file(program);
  Outcome outcome;
  during([&] {
    try {
      processor.process(file);
    } catch (const VeltoError& error) {
      outcome.step = error.step;
    } catch (const FileError& error) {
      outcome.fileError = error.what();
    } catch (const std::bad_alloc&) {
      outcome.lackedMemory = true;
    }
  });
  for (const Message& message : logger->messages) outcome.messages.emplace_back(message.description().view());
  outcome.files = written();
  outcome.output = output();
  return outcome;
}

LocalPlace::LocalPlace() {
  std::string pattern = (files::temp_directory_path() / "velto-reliability-XXXXXX").string();
  if (!::mkdtemp(pattern.data())) throw std::runtime_error("There is no folder for the project.");
  folder_ = pattern;
  for (const auto& [path, bytes] : smallProject()) write(folder_ / path, bytes);
}

LocalPlace::~LocalPlace() {
  std::error_code ignored;
  files::remove_all(folder_, ignored);
}

void LocalPlace::clear() {
  files::remove_all(folder_ / outputFolder);
  files::create_directory(folder_ / outputFolder);
}

Files LocalPlace::written() {
  Files found;
  const files::path folder = folder_ / outputFolder;
  for (const files::directory_entry& entry : files::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) found[entry.path().lexically_relative(folder).string()] = bytesOf(entry.path());
  }
  return found;
}

void MemoryPlace::clear() {
  files_ = std::make_shared<MemoryFileSystem>();
  for (const auto& [path, bytes] : smallProject()) files_->files[base() + "/" + path] = bytes;
  files_->directories.insert(base() + "/" + outputFolder);
}

Files MemoryPlace::written() {
  Files found;
  const std::string prefix = base() + "/" + outputFolder + "/";
  for (const auto& [path, bytes] : files_->files) {
    if (path.starts_with(prefix)) found[path.substr(prefix.size())] = bytes;
  }
  return found;
}

int openDescriptors() noexcept {
  constexpr int most = 256;
  int count = 0;
  for (int number = 0; number < most; ++number) {
    if (::fcntl(number, F_GETFD) >= 0) ++count;
  }
  return count;
}

}  // namespace velto::test
