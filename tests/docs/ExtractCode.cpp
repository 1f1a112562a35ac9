// Makes one program of a document for hosts: ExtractCode DOCUMENT PROGRAM.
//
// A chapter becomes one test. Its `cpp` blocks stand one behind the other in a function, those marked `cpp top` in
// front of it; an `output` block is what the function must have printed to `std::cout` and through the library.
#include <exception>
#include <fstream>
#include <iostream>
#include <sstream>
#include <vector>

#include "Document.h"
#include "harness/Case.h"

namespace {

using documents::Block;

struct Chapter {
  std::string title;
  std::string declarations;
  std::string body;
  std::string output;
};

/// Lifts the `#include` lines out of `code` and into `includes`; the lines keep their numbers in the document.
std::string withoutIncludes(const Block& block, const std::string& document, std::ostream& includes) {
  std::ostringstream code;
  code << "#line " << block.line + 1 << " \"" << document << "\"\n";
  std::istringstream lines(block.body);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("#include")) {
      includes << line << '\n';
      code << '\n';
    } else {
      code << line << '\n';
    }
  }
  return code.str();
}

std::vector<Chapter> chaptersOf(const std::string& document, std::ostream& includes) {
  std::vector<Chapter> chapters;
  for (const Block& block : documents::blocksOf(harness::readFile(document))) {
    if (block.language != "cpp" && block.language != "output") continue;
    if (chapters.empty() || chapters.back().title != block.chapter) chapters.push_back({block.chapter, "", "", ""});
    Chapter& chapter = chapters.back();
    if (block.language == "output") {
      chapter.output += block.body;
    } else {
      (block.name == "top" ? chapter.declarations : chapter.body) += withoutIncludes(block, document, includes);
    }
  }
  return chapters;
}

void write(const std::vector<Chapter>& chapters, const std::string& includes, std::ostream& program) {
  program << "#include <gtest/gtest.h>\n#include <unistd.h>\n#include <iostream>\n"
          << includes << "using namespace velto;\n";
  for (std::size_t index = 0; index < chapters.size(); ++index) {
    const Chapter& chapter = chapters[index];
    program << "namespace chapter" << index << " {\n"
            << chapter.declarations << "\nvoid run() {\n"
            << chapter.body << "}\n"
            << "TEST(Hosting, Chapter" << index << ") {\n"
            << "  std::cout.flush();\n  testing::internal::CaptureStdout();\n  run();\n  std::cout.flush();\n"
            << "  FileSystem::flush();\n"
            << "  EXPECT_EQ(testing::internal::GetCapturedStdout(), R\"output(" << chapter.output
            << ")output\") << R\"title(" << chapter.title << ")title\";\n}\n}\n";
  }
}

}  // namespace

int main(const int count, char** const arguments) {
  if (count != 3) {
    std::cerr << "usage: ExtractCode DOCUMENT PROGRAM\n";
    return 2;
  }
  try {
    std::ostringstream includes;
    const std::vector<Chapter> chapters = chaptersOf(arguments[1], includes);
    std::ofstream program(arguments[2]);
    write(chapters, includes.str(), program);
  } catch (const std::exception& error) {
    std::cerr << arguments[1] << ": " << error.what() << '\n';
    return 1;
  }
}
