// What holds of every scan that succeeds.
#pragma once

#include <vector>

#include "Velto/Scanner/Scanner.h"
#include "support/SourceMap.h"

namespace velto::fuzz {

/// Tokens stand in order, each lexeme is what the source holds at its range, and between two of them there is nothing
/// but blanks and comments.
void checkRanges(const std::vector<Token>& tokens, const SourceMap& map);

/// Numbers and strings carry what their lexemes stand for, all others nothing.
void checkLiterals(const std::vector<Token>& tokens);

/// The tokens written one by one scan to the same kinds.
void checkPrintedAgain(const std::vector<Token>& tokens, Scanner::Mode mode);

/// Unpacking drops tags and empty texts, cuts texts by blanks and a line feed at most, and leaves all else.
void checkUnpacked(const std::vector<Token>& packed, const std::vector<Token>& unpacked);

}  // namespace velto::fuzz
