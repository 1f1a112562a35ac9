// What a generated program can name.
#pragma once

#include <string>
#include <vector>

#include "support/Choices.h"

namespace velto::fuzz {

/// What a variable most likely holds. The language checks nothing, and neither do wrong guesses hurt.
enum class Kind { number, text, boolean, list, table, range, any };

struct Variable {
  std::string name;
  Kind kind;
};

struct Routine {
  std::string name;
  std::vector<std::string> labels;  ///< empty for a parameter without a label
  Kind result;
};

class ProgramScope {
 public:
  std::vector<Variable> variables;
  std::vector<Routine> routines;

  /// A variable of that kind, or null.
  const Variable* variable(Kind kind, Choices& choices) const {
    std::vector<const Variable*> fitting;
    for (const Variable& variable : variables) {
      if (variable.kind == kind || kind == Kind::any) fitting.push_back(&variable);
    }
    return fitting.empty() ? nullptr : fitting[choices.below(fitting.size())];
  }

  /// A function that gives that kind, or null.
  const Routine* routine(Kind result, Choices& choices) const {
    std::vector<const Routine*> fitting;
    for (const Routine& routine : routines) {
      if (routine.result == result) fitting.push_back(&routine);
    }
    return fitting.empty() ? nullptr : fitting[choices.below(fitting.size())];
  }

  /// A function with so many parameters without labels, or null.
  const Routine* routine(std::size_t parameters, Choices& choices) const {
    std::vector<const Routine*> fitting;
    for (const Routine& routine : routines) {
      if (routine.labels.size() == parameters) fitting.push_back(&routine);
    }
    return fitting.empty() ? nullptr : fitting[choices.below(fitting.size())];
  }
};

}  // namespace velto::fuzz
