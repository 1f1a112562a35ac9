// Expressions that mostly mean something.
#pragma once

#include <string>

#include "support/Choices.h"
#include "support/ProgramScope.h"

namespace velto::fuzz {

class ProgramExpressions {
 public:
  ProgramExpressions(Choices& choices, ProgramScope& scope) noexcept : choices_(choices), scope_(scope) {}

  /// An expression of that kind, seldom one of another. It can stand as an operand.
  std::string make(Kind kind);
  Kind kind();
  /// A text for template text and literals.
  std::string plainText();

 private:
  std::string leaf(Kind kind);
  std::string number();
  std::string text();
  std::string boolean();
  std::string list();
  std::string table();
  std::string range();
  std::string literal();
  std::string interpolated();
  std::string call(const Routine& routine);
  std::string function(std::size_t parameters);

  Choices& choices_;
  ProgramScope& scope_;
  std::size_t depth_ = 0;
  bool isInText_ = false;  // where no literal may stand, as its quote would end the text around it
};

}  // namespace velto::fuzz
