// Runs that get no more memory at some point, at each of them in turn.
#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/Resolver.h"
#include "Velto/Platform/MemoryFileSystem.h"
#include "Velto/Processor/ParseFile.h"

namespace {

constexpr long unlimited = std::numeric_limits<long>::max();

/// How many pieces of memory this program gets until one is refused.
long piecesLeft = unlimited;

void* piece(std::size_t size) noexcept {
  if (piecesLeft != unlimited && --piecesLeft < 0) {
    piecesLeft = unlimited;  // what has to be undone may ask for some
    return nullptr;
  }
  return std::malloc(size);
}

}  // namespace

void* operator new(std::size_t size) {
  if (void* memory = piece(size)) return memory;
  throw std::bad_alloc();
}

void* operator new[](std::size_t size) {
  return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return piece(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return piece(size);
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete[](void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace velto {
namespace {

class LackOfMemoryTest : public testing::Test {
 protected:
  /// Runs "main.velto" with `pieces` of memory, and tells whether they were enough.
  bool runWith(long pieces) {
    const auto fileSystem = std::make_shared<MemoryFileSystem>(files_);
    const auto logger = std::make_shared<ArrayLogger>();
    const auto texts = std::make_shared<TextPool>();
    Interpreter interpreter(Url::directory(""), logger, fileSystem, texts);
    piecesLeft = pieces;
    bool isDone = false;
    try {
      const std::optional<Statements> statements =
          parseFile(*fileSystem, Url("main.velto"), Scanner::Mode::program, logger, texts);
      Resolver(interpreter).resolve(*statements);
      interpreter.interpret(*statements);
      isDone = piecesLeft != unlimited;
    } catch (const std::bad_alloc&) {
      isDone = false;
    }
    piecesLeft = unlimited;
    checkLeftBehind(interpreter, *fileSystem);
    return isDone;
  }

  MemoryFileSystem files_;

 private:
  static void checkLeftBehind(Interpreter& interpreter, MemoryFileSystem& fileSystem) {
    EXPECT_EQ(interpreter.stack().size(), 1u);
    interpreter.print("behind");
    FileSystem::flush();
    EXPECT_TRUE(fileSystem.files["<1>"].ends_with("behind"));
  }
};

TEST_F(LackOfMemoryTest, UndoesAllThatHasToBeUndone) {
  files_.files["/main.velto"] = R"velto(
    var held = nil
    func make(_ number)
      var own = "\(number)"
      func inner() return "\(own)!" end
      return inner
    end
    for number in 0..<3
      func keep() return number end
      held = keep
      print(make(number)())
    end
    var number = 0
    while number < 3
      var seen = [number, "a"]
      func look() return seen end
      held = look
      number = number + 1
    end
    process("part.txt", into: "out.txt")
    include "part.txt"
    execute("more.velto")
    print(["b", "a"].sorted(by: isLess).map(make).count)
  )velto";
  files_.files["/part.txt"] = R"velto(text <%= loadJSON("data.json")["key"] %>
    <%- for a in [1, 2] -%><%= a %><% end -%>
  )velto";
  files_.files["/more.velto"] = R"velto(
    func isLess(_ a, _ b) return "\(b)".hasPrefix("b") end
    switch 1 case 1: print(1) end
  )velto";
  files_.files["/data.json"] = R"({"key": [1, "a long text that has no room within its value"]})";

  constexpr long most = 100'000;
  long pieces = 0;
  while (pieces < most && !runWith(pieces)) ++pieces;
  EXPECT_GT(pieces, 100);
  EXPECT_LT(pieces, most);
}

}  // namespace
}  // namespace velto
