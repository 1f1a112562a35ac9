// Where the small project lies and is run: on the disk, or in memory.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Velto/Velto.h"
#include "tests/reliability/SmallProject.h"
#include "tests/reliability/StandardOutput.h"

namespace velto::test {

/// What a host can tell of a run.
struct Outcome {
  Files files;  ///< below `outputPath`
  std::string output;
  std::vector<std::string> messages;
  std::optional<VeltoError::Step> step;  ///< of the error that was thrown
  bool lackedMemory = false;             ///< whether `std::bad_alloc` was thrown
  std::optional<std::string> fileError;  ///< what the `FileError` that was thrown says

  bool operator==(const Outcome&) const = default;
};

class Place {
 public:
  virtual ~Place() = default;

  /// Runs `program` from an output folder that is empty. What the host asks of the library happens in `work`, which
  /// `during` has to call.
  Outcome run(
      const std::string& program,
      const std::function<void(const std::function<void()>& work)>& during = [](const auto& work) { work(); });

 private:
  virtual void clear() = 0;
  virtual std::shared_ptr<FileSystem> fileSystem() = 0;
  virtual std::string base() const = 0;
  virtual Files written() = 0;
  virtual std::string output() = 0;
};

/// A folder of its own below that for temporary files, which goes with it.
class LocalPlace final : public Place {
 public:
  LocalPlace();
  ~LocalPlace() override;
  LocalPlace(const LocalPlace&) = delete;
  LocalPlace& operator=(const LocalPlace&) = delete;

 private:
  void clear() override;
  std::shared_ptr<FileSystem> fileSystem() override { return FileSystem::local(); }
  std::string base() const override { return folder_.string(); }
  Files written() override;
  std::string output() override { return standardOutput_.take(); }

  std::filesystem::path folder_;
  StandardOutput standardOutput_;
};

class MemoryPlace final : public Place {
 public:
  /// What the library sees instead of the files.
  using Wrap = std::function<std::shared_ptr<FileSystem>(std::shared_ptr<MemoryFileSystem>)>;

  explicit MemoryPlace(Wrap wrap = [](auto files) { return files; }) : wrap_(std::move(wrap)) {}

 private:
  void clear() override;
  std::shared_ptr<FileSystem> fileSystem() override { return wrap_(files_); }
  std::string base() const override { return "/project"; }
  Files written() override;
  std::string output() override { return files_->files["<1>"]; }

  Wrap wrap_;
  std::shared_ptr<MemoryFileSystem> files_;
};

/// How many descriptors of this process are open.
int openDescriptors() noexcept;

}  // namespace velto::test
