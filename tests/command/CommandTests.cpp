// The command in its surroundings: CommandTests COMMAND.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "Process.h"

namespace {

using command_test::Process;
using command_test::Result;
using Arguments = std::vector<std::string>;

std::string commandUnderTest;

class CommandTest : public testing::Test {
 protected:
  CommandTest() {
    char name[] = "/tmp/velto-command-XXXXXX";
    folder = ::mkdtemp(name);
    put("main.velto", "print(1)");
    put("wrong.velto", "print(1 2)");
    process.program = commandUnderTest;
    process.folder = folder;
    ::unsetenv("NO_COLOR");
  }
  ~CommandTest() override { std::filesystem::remove_all(folder); }

  void put(const std::string& path, const std::string& content) const {
    std::ofstream(folder + "/" + path, std::ios::binary) << content;
  }

  std::string contentOf(const std::string& path) const {
    std::ifstream file(folder + "/" + path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  Result run(Arguments arguments) {
    process.arguments = std::move(arguments);
    return command_test::run(process);
  }

  Result runInTerminal(Arguments arguments) {
    process.arguments = std::move(arguments);
    return command_test::runInTerminal(process);
  }

  std::string folder;
  Process process;
};

TEST_F(CommandTest, RefusesAWrongCommandLineWithItsUsage) {
  const std::vector<Arguments> wrong{
      {},
      {"unknown"},
      {"--unknown"},
      {"--unknown", "run", "main.velto"},
      {"run"},
      {"render"},
      {"check"},
      {"check", "--"},
      {"tokens"},
      {"tree"},
      {"run", "--unknown", "main.velto"},
      {"check", "--unknown", "main.velto"},
      {"check", "main.velto", "-u"},
      {"check", "--unknown=", "main.velto"},
      {"run", "main.velto", "main.velto"},
      {"run", "--into", "out.txt", "main.velto"},
      {"check", "--mode", "text", "main.velto"},
      {"tokens", "--mode", "text", "main.velto"},
      {"tree", "--mode=", "main.velto"},
      {"run", "--mode", "program", "main.velto"},
      {"run", "--messages", "xml", "main.velto"},
      {"run", "--messages=", "main.velto"},
      {"run", "--color", "sometimes", "main.velto"},
      {"run", "main.velto", "--base"},
      {"run", "--set", "x", "main.velto"},
      {"run", "--set", "=x", "main.velto"},
      {"run", "--set=", "main.velto"},
      {"run", "--set-json", "a=", "main.velto"},
      {"run", "--set-json", "a={", "main.velto"},
      {"run", "--set-json", "=1", "main.velto"},
      {"run", "--data", "model.json", "main.velto"},
      {"render", "--data", "=model.json", "main.velto"},
      {"run", "--set", "a=\xFF", "main.velto"},
      {"check", "\xC3"},
  };
  for (const Arguments& arguments : wrong) {
    const Result result = run(arguments);
    const std::string shown = testing::PrintToString(arguments);
    EXPECT_EQ(result.status, 2) << shown;
    EXPECT_EQ(result.output, "") << shown;
    EXPECT_TRUE(result.messages.starts_with("velto: ")) << shown << result.messages;
    EXPECT_NE(result.messages.find("\nUsage: velto "), std::string::npos) << shown << result.messages;
  }
}

TEST_F(CommandTest, TellsWhatIsWrong) {
  const auto reason = [&](Arguments arguments) {
    const std::string messages = run(std::move(arguments)).messages;
    return messages.substr(0, messages.find('\n'));
  };
  EXPECT_EQ(reason({"run", "--set", "x", "main.velto"}), "velto: --set: expected NAME=TEXT, got 'x'");
  EXPECT_EQ(reason({"run", "--set=", "main.velto"}), "velto: --set: expected NAME=TEXT, got ''");
  EXPECT_EQ(reason({"run", "--set-json", "a=", "main.velto"}), "velto: --set-json: invalid JSON for 'a'");
  EXPECT_EQ(reason({"run", "--data", "x", "main.velto"}), "velto: --data: expected NAME=FILE, got 'x'");
  EXPECT_EQ(reason({"check", "\xFF"}), "velto: an argument isn't valid UTF-8");
  EXPECT_EQ(reason({"check"}), "velto: FILE is required");
  EXPECT_EQ(reason({"chekc", "a.velto"}), "velto: there is no command 'chekc'");
  EXPECT_EQ(reason({"check", "a", "-b"}), "velto: The following argument was not expected: -b");
}

TEST_F(CommandTest, HelpsOnDemand) {
  for (const char* command : {"run", "render", "check", "tokens", "tree"}) {
    const Result result = run({command, "--help"});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.output.find(std::string("Usage: velto ") + command + " [OPTIONS] "), std::string::npos);
    EXPECT_NE(result.output.find("--messages text|json"), std::string::npos);
    EXPECT_EQ(result.messages, "");
    EXPECT_NE(run({"--help"}).output.find("\n  " + std::string(command) + " "), std::string::npos);
  }
  EXPECT_EQ(run({"--help"}).status, 0);
}

TEST_F(CommandTest, TellsItsVersion) {
  const Result result = run({"--version"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "Velto 1.0\n");
}

TEST_F(CommandTest, TakesWhatLooksLikeAnOptionForTheValueOfOne) {
  EXPECT_EQ(run({"run", "--set", "--base=x", "main.velto"}).status, 0);
  EXPECT_EQ(run({"run", "--set", "a=--", "--", "main.velto"}).status, 0);
  put("--base=", "print(2)");
  EXPECT_EQ(run({"run", "--", "--base="}).output, "2");
}

TEST_F(CommandTest, ShowsTheSourceInATerminal) {
  EXPECT_EQ(runInTerminal({"check", "--color", "never", "wrong.velto"}).messages,
            "wrong.velto:1:9: error: Expect ')' after arguments.\r\nprint(1 2)\r\n        ^\r\n");
}

TEST_F(CommandTest, ColorsInATerminal) {
  const std::string colored =
      "\x1B[1;31mwrong.velto:1:9: error: Expect ')' after arguments.\x1B[0m\r\nprint(1 2)\r\n"
      "\x1B[1;31m        ^\x1B[0m\r\n";
  EXPECT_EQ(runInTerminal({"check", "wrong.velto"}).messages, colored);
  process.prepare = [] { ::setenv("NO_COLOR", "", 1); };
  EXPECT_EQ(runInTerminal({"check", "wrong.velto"}).messages, colored);
  process.prepare = [] { ::setenv("NO_COLOR", "1", 1); };
  EXPECT_EQ(runInTerminal({"check", "wrong.velto"}).messages,
            runInTerminal({"check", "--color", "never", "wrong.velto"}).messages);
  EXPECT_EQ(runInTerminal({"check", "--color", "always", "wrong.velto"}).messages, colored);
}

TEST_F(CommandTest, IsPlainElsewhere) {
  const std::string plain = "wrong.velto:1:9: error: Expect ')' after arguments.\n";
  EXPECT_EQ(run({"check", "wrong.velto"}).messages, plain);
  EXPECT_EQ(run({"check", "--color", "never", "wrong.velto"}).messages, plain);
  EXPECT_EQ(run({"check", "--color", "always", "wrong.velto"}).messages,
            "\x1B[1;31m" + plain.substr(0, plain.size() - 1) + "\x1B[0m\nprint(1 2)\n\x1B[1;31m        ^\x1B[0m\n");
}

TEST_F(CommandTest, KeepsJsonFreeOfSourceAndColor) {
  EXPECT_EQ(run({"check", "--messages", "json", "--color", "always", "wrong.velto"}).messages,
            "{\"file\":\"wrong.velto\",\"range\":[1,9,1,10],\"level\":\"error\",\"message\":\"Expect ')' after "
            "arguments.\"}\n{\"step\":\"parse\"}\n");
}

/// What a terminal shows under a message, for a source and a command that checks it.
class ExcerptTest : public CommandTest {
 protected:
  std::string excerpt(const std::string& source, const Arguments& options = {}) {
    put("main.velto", source);
    Arguments arguments{"run", "--color", "never"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    arguments.push_back("main.velto");
    std::string messages = runInTerminal(arguments).messages;
    for (std::size_t at; (at = messages.find('\r')) != messages.npos;) messages.erase(at, 1);
    return messages.substr(messages.find('\n') + 1);
  }
};

TEST_F(ExcerptTest, UnderlinesTheWholeRange) {
  EXPECT_EQ(excerpt("print(undefined)"), "print(undefined)\n      ^~~~~~~~~\n");
}

TEST_F(ExcerptTest, KeepsTabsBeforeTheRange) {
  EXPECT_EQ(excerpt("\t1\tmissing"), "\t1\tmissing\n\t \t^~~~~~~\n");
}

TEST_F(ExcerptTest, ShowsTheLineOfTheRange) {
  EXPECT_EQ(excerpt("var a = 1\n\nmissing\nvar b"), "missing\n^~~~~~~\n");
  EXPECT_EQ(excerpt("\n  missing\n"), "  missing\n  ^~~~~~~\n");
}

TEST_F(ExcerptTest, ShowsThePartThatHoldsTheRangeOfALineWithCarriageReturns) {
  const auto shown = [&](const std::string& source) {
    put("page.txt", source);
    const std::string messages = run({"render", "--color", "always", "page.txt"}).messages;
    return messages.substr(messages.find('\n') + 1);
  };
  const std::string marked = "<%= missing %>\n\x1B[1;31m    ^~~~~~~\x1B[0m\n";
  EXPECT_EQ(shown("<%= missing %>\r\nb\n"), marked);
  EXPECT_EQ(shown("a\r\nb\r\n<%= missing %>\r\nc\n"), marked);
  EXPECT_EQ(shown("a\r\nb\n<%= missing %>\r\nc\n"), marked);
}

TEST_F(ExcerptTest, CountsCharactersAsPeopleDo) {
  EXPECT_EQ(excerpt("\"e\xCC\x81\" missing"), "\"e\xCC\x81\" missing\n    ^~~~~~~\n");
}

TEST_F(ExcerptTest, EndsWithTheFirstLineOfARange) {
  EXPECT_EQ(excerpt("for a in (1 +\n 2) end"), "for a in (1 +\n         ^~~~\n");
}

TEST_F(ExcerptTest, MarksAtLeastOnePlace) {
  EXPECT_EQ(excerpt("print(1"), "print(1\n      ^\n");
  EXPECT_EQ(excerpt("print(\x01)"), "print( )\n      ^\n");
}

/// A program that fails in line 3 after it has written `text` over itself.
class OverwrittenSourceTest : public ExcerptTest {
 protected:
  std::string excerptFrom(const std::string& text) {
    put("text.txt", text);
    return excerpt("process(\"text.txt\", into: \"main.velto\")\n\nprint(missing)\n", {"--output", "."});
  }
};

TEST_F(OverwrittenSourceTest, IsShownAsItIsNow) {
  EXPECT_EQ(excerptFrom("\n\n0123456789"), "0123456789\n      ^~~~\n");
}

TEST_F(OverwrittenSourceTest, MarksTheEndOfALineThatIsTooShort) {
  EXPECT_EQ(excerptFrom("\n\nab\nc"), "ab\n  ^\n");
}

TEST_F(OverwrittenSourceTest, IsLeftOutWhereThereAreFewerLines) {
  EXPECT_EQ(excerptFrom("a\nb"), "");
}

TEST_F(ExcerptTest, NeverReadsAPipe) {
  ASSERT_EQ(::mkfifo((folder + "/pipe").c_str(), 0600), 0);
  process.prepare = [] {
    if (::fork() == 0) {
      const int writingEnd = ::open("pipe", O_WRONLY);
      if (::write(writingEnd, "print(1 2)", 10) != 10) _exit(1);
      _exit(0);
    }
  };
  const Result result = runInTerminal({"check", "--color", "never", "pipe"});
  EXPECT_EQ(result.messages, "pipe:1:9: error: Expect ')' after arguments.\r\n");
}

// The address sanitizer itself needs more addresses than the limit leaves.
#ifndef __SANITIZE_ADDRESS__
TEST_F(CommandTest, EndsWhenMemoryRunsOut) {
  put("main.velto", "var s = \"0123456789abcdef\" while true s = \"\\(s)\\(s)\" end");
  process.prepare = [] {
    constexpr rlimit addresses{400 << 20, 400 << 20};
    ::setrlimit(RLIMIT_AS, &addresses);
  };
  const Result text = run({"run", "main.velto"});
  EXPECT_EQ(text.status, 3);
  EXPECT_EQ(text.messages, "velto: out of memory\n");
  const Result json = run({"run", "--messages", "json", "main.velto"});
  EXPECT_EQ(json.status, 3);
  EXPECT_EQ(json.messages, "{\"error\":\"out of memory\"}\n");
}
#endif

TEST_F(CommandTest, HoldsThreeDescriptorsAtMostHoweverManyFilesItWrites) {
  put("main.velto", "for i in 0..<500 process(\"page.txt\", into: \"\\(i).txt\") end");
  put("page.txt", "<% include \"line.txt\" %>");
  put("line.txt", "page <%= i %>");
  process.prepare = [] {
    ::close_range(3, ~0U, 0);
    constexpr rlimit descriptors{6, 6};
    ::setrlimit(RLIMIT_NOFILE, &descriptors);
  };
  const Result result = run({"run", "--output", ".", "main.velto"});
  EXPECT_EQ(result.status, 0) << result.messages;
  EXPECT_EQ(contentOf("0.txt"), "page 0");
  EXPECT_EQ(contentOf("499.txt"), "page 499");
}

TEST_F(CommandTest, WritesItsFilesThoughNobodyReadsItsOutput) {
  put("main.velto", "print(\"a\")\nprocess(\"page.txt\", into: \"out.txt\")\n");
  put("page.txt", "text");
  process.prepare = [] {
    int ends[2];
    if (::pipe(ends) != 0) _exit(126);
    ::close(ends[0]);
    ::dup2(ends[1], STDOUT_FILENO);
  };
  EXPECT_EQ(run({"run", "--output", ".", "main.velto"}).status, 0);
  EXPECT_EQ(contentOf("out.txt"), "text");
}

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count != 2) return 2;
  commandUnderTest = std::filesystem::absolute(arguments[1]);
  return RUN_ALL_TESTS();
}
