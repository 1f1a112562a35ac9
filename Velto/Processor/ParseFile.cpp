#include "Velto/Processor/ParseFile.h"

#include "Velto/Parser/Parser.h"
#include "Velto/Scanner/Unpacker.h"

namespace velto {

std::optional<Statements> parseFile(FileSystem& fileSystem, const Url& url, Scanner::Mode mode,
                                    const std::shared_ptr<Logger>& logger, const std::shared_ptr<TextPool>& texts) {
  Scanner scanner(fileSystem.readText(url), mode, logger, url.path(), texts);
  Unpacker unpacker(scanner.scanTokens(), logger);
  Parser parser(unpacker.unpack(), logger);
  Statements statements = parser.parse();
  if (parser.hadError()) return std::nullopt;
  return statements;
}

}  // namespace velto
