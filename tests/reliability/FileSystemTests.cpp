// File systems of a host: what they throw, and texts that come in pieces.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <memory>
#include <new>
#include <string>

#include "Velto/Velto.h"
#include "tests/support/BareFileSystem.h"

namespace velto::test {
namespace {

using testing::IsEmpty;

/// A file system of a host's that throws what it likes.
template <typename Exception>
class ThrowingFileSystem final : public BareFileSystem {
 protected:
  std::string doRead(const Url& url) override {
    if (url.path() == "/main.velto")
      return "for part in [\"a\", \"b\"] execute(\"part\") end print(loadJSON(\"c.json\"))";
    if (url.path() == "/part") return "process(part, into: \"out\")";
    throw Exception();
  }
  std::shared_ptr<FileHandle> doCreate(const Url& url) override { return files_->create(url); }
  std::shared_ptr<FileHandle> doDescriptor(int number) override { return files_->descriptor(number); }

 private:
  std::shared_ptr<MemoryFileSystem> files_ = std::make_shared<MemoryFileSystem>();
};

struct ForeignError : std::exception {
  const char* what() const noexcept override { return "foreign"; }
};

TEST(AFileSystemOfAHost, MayThrowWhatItLikesWhereItReads) {
  const auto logger = std::make_shared<ArrayLogger>();
  Processor processor(Url("/"), logger, std::make_shared<ThrowingFileSystem<ForeignError>>());
  EXPECT_THROW(processor.process("main.velto"), VeltoError);
  ASSERT_EQ(logger->messages.size(), 4u);
  EXPECT_EQ(logger->messages[0].message, "Cannot process 'a': foreign");
  EXPECT_EQ(logger->messages[2].message, "Cannot process 'b': foreign");
}

TEST(AFileSystemOfAHost, TellsOfALackOfMemory) {
  const auto logger = std::make_shared<ArrayLogger>();
  Processor processor(Url("/"), logger, std::make_shared<ThrowingFileSystem<std::bad_alloc>>());
  EXPECT_THROW(processor.process("main.velto"), std::bad_alloc);
  EXPECT_TRUE(logger->messages.empty());
}

/// Texts of a host's in pieces, each read as a whole, or put into what is to become a text.
class TextsInPieces final : public BareFileSystem {
 public:
  enum class Way { whole, inPlace };

  explicit TextsInPieces(Way way) noexcept : way_(way) {}

  std::string program = "include \"part\" process(\"part\", into: \"out\")";
  std::shared_ptr<MemoryFileSystem> written = std::make_shared<MemoryFileSystem>();

 protected:
  std::string doRead(const Url& url) override {
    if (way_ == Way::inPlace) throw FileError("this is not the way");
    std::string bytes;
    read(url, bytes);
    return bytes;
  }
  void doReadInto(const Url& url, StringBuilder& bytes) override {
    if (way_ == Way::whole) return BareFileSystem::doReadInto(url, bytes);
    read(url, bytes);
  }
  std::shared_ptr<FileHandle> doCreate(const Url& url) override { return written->create(url); }
  std::shared_ptr<FileHandle> doDescriptor(int number) override { return written->descriptor(number); }

 private:
  template <typename Bytes>
  void read(const Url& url, Bytes& bytes) const {
    const std::string path(url.path().view());
    if (path == "/main.velto") {
      bytes.append(program.substr(0, 4));
      bytes.append(program.substr(4));
    } else if (path == "/part") {
      for (const char* piece : {"1 < 2 \xC3", "\xA9 <%", " print(3) %>\n"}) bytes.append(std::string(piece));
    } else if (path == "/torn") {
      bytes.append(std::string("print(\"never\")"));
      throw FileError("torn");
    } else if (path == "/foreign") {
      throw ForeignError();
    } else {
      bytes.append(std::string("print(\"\xC3\")"));
    }
  }

  Way way_;
};

class PiecesOfAHost : public testing::TestWithParam<TextsInPieces::Way> {
 protected:
  std::string failureOf(const String& file) {
    try {
      processor.process(file);
    } catch (const std::exception& error) {
      return error.what();
    }
    return "";
  }

  std::shared_ptr<TextsInPieces> files = std::make_shared<TextsInPieces>(GetParam());
  std::shared_ptr<ArrayLogger> logger = std::make_shared<ArrayLogger>();
  Processor processor{Url("/"), logger, files};
};

TEST_P(PiecesOfAHost, Arrive) {
  EXPECT_EQ(failureOf("main.velto"), "");
  EXPECT_THAT(logger->messages, IsEmpty());
  EXPECT_EQ(files->written->files["<1>"], "1 < 2 \u00E9 3\n");
  EXPECT_EQ(files->written->files["/out"], "1 < 2 \u00E9 3\n");
}

TEST_P(PiecesOfAHost, FailWhereTheyAreAskedFor) {
  const std::string garbled = "Invalid or incomplete multibyte or wide character";
  const std::string reasons[][2] = {{"torn", "torn"}, {"foreign", "foreign"}, {"garbled", garbled}};
  for (const auto& [file, reason] : reasons) {
    const std::string statements[][2] = {
        {"include \"" + file + "\"", "Cannot include '" + file + "': " + reason + "."},
        {"execute(\"" + file + "\")", "Cannot execute '" + file + "': " + reason},
        {"process(\"" + file + "\", into: \"out\")", "Cannot process '" + file + "': " + reason}};
    for (const auto& [statement, message] : statements) {
      logger->messages.clear();
      files->program = statement;
      EXPECT_THROW(processor.process("main.velto"), VeltoError);
      ASSERT_FALSE(logger->messages.empty()) << statement;
      EXPECT_EQ(logger->messages[0].message, String(message));
    }
  }
  EXPECT_EQ(files->written->files.count("<1>"), 0u);
}

TEST_P(PiecesOfAHost, LeaveTheDoorWhereTheyAreTheProgram) {
  EXPECT_EQ(failureOf("torn"), "torn");
  EXPECT_EQ(failureOf("foreign"), "foreign");
  EXPECT_EQ(failureOf("garbled"), "Invalid or incomplete multibyte or wide character");
  EXPECT_THAT(logger->messages, IsEmpty());
  EXPECT_EQ(files->written->files.count("<1>"), 0u);
}

INSTANTIATE_TEST_SUITE_P(Read, PiecesOfAHost, testing::Values(TextsInPieces::Way::whole, TextsInPieces::Way::inPlace),
                         [](const auto& info) {
                           return info.param == TextsInPieces::Way::whole ? "AsAWhole" : "InPlace";
                         });

}  // namespace
}  // namespace velto::test
