// Takes the first host out of a document: ExtractHost DOCUMENT FOLDER. All blocks that have a name become files; the
// `console` block behind those of the host, which are `cmake` and `cpp`, shows how it is started and then what it
// prints, which becomes expected.txt.
#include <exception>
#include <iostream>

#include "Document.h"
#include "harness/Case.h"

namespace {

void extract(const std::string& document, const std::filesystem::path& folder) {
  bool hasHost = false;
  for (const documents::Block& block : documents::blocksOf(harness::readFile(document))) {
    if (!block.name.empty()) harness::writeFile(folder / block.name, block.body);
    if (block.language == "cpp") hasHost = true;
    if (hasHost && block.language == "console") {
      harness::writeFile(folder / "expected.txt", block.body.substr(block.body.find('\n') + 1));
      return;
    }
  }
  throw std::runtime_error("no host, or not what it prints");
}

}  // namespace

int main(const int count, char** const arguments) {
  if (count != 3) {
    std::cerr << "usage: ExtractHost DOCUMENT FOLDER\n";
    return 2;
  }
  try {
    extract(arguments[1], arguments[2]);
  } catch (const std::exception& error) {
    std::cerr << arguments[1] << ": " << error.what() << '\n';
    return 1;
  }
}
