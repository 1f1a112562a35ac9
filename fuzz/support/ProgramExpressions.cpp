#include "support/ProgramExpressions.h"

namespace velto::fuzz {
namespace {

constexpr std::size_t deepest = 6;

}  // namespace

std::string ProgramExpressions::make(Kind kind) {
  if (choices_.isOneOf(128)) kind = this->kind();
  if (!choices_.areLeft() || depth_ >= deepest) return leaf(kind);
  ++depth_;
  const Variable* variable = choices_.isOneOf(3) ? scope_.variable(kind, choices_) : nullptr;
  std::string made;
  if (variable) {
    made = variable->name;
  } else if (kind == Kind::any) {
    const Routine* routine = choices_.isOneOf(4) ? scope_.routine(Kind::any, choices_) : nullptr;
    made = routine ? call(*routine) : make(static_cast<Kind>(choices_.below(6)));
  } else if (kind == Kind::number) {
    made = number();
  } else if (kind == Kind::text) {
    made = text();
  } else if (kind == Kind::boolean) {
    made = boolean();
  } else if (kind == Kind::list) {
    made = list();
  } else if (kind == Kind::table) {
    made = table();
  } else {
    made = range();
  }
  --depth_;
  return made;
}

Kind ProgramExpressions::kind() {
  return static_cast<Kind>(choices_.below(7));
}

std::string ProgramExpressions::leaf(Kind kind) {
  switch (kind) {
    case Kind::number:
      return "1";
    case Kind::text:
      return literal();
    case Kind::boolean:
      return "true";
    case Kind::list:
      return "[]";
    case Kind::table:
      return "[:]";
    case Kind::range:
      return "(0..<2)";
    case Kind::any:
      return "nil";
  }
  return "nil";
}

std::string ProgramExpressions::number() {
  switch (choices_.below(8)) {
    case 0:
      return std::string(choices_.among({"0", "1", "2", "3", "7", "10", "0.5", "2.25", "1000000", "9007199254740993"}));
    case 1: {
      const std::string left = make(Kind::number);
      const std::string_view sign = choices_.among({" + ", " - ", " * ", " / "});
      return "(" + left + std::string(sign) + make(Kind::number) + ")";
    }
    case 2:
      return "(-" + make(Kind::number) + ")";
    case 3:
      return make(Kind::list) + ".count";
    case 4:
      return make(Kind::table) + ".count";
    case 5:
      return make(Kind::range) + ".count";
    case 6: {
      const Routine* routine = scope_.routine(Kind::number, choices_);
      return routine ? call(*routine) : "4";
    }
    default:
      return "(x = " + make(Kind::number) + ")";
  }
}

std::string ProgramExpressions::text() {
  switch (choices_.below(8)) {
    case 0:
      return literal();
    case 1:
      return interpolated();
    case 2: {
      const Variable* variable = scope_.variable(Kind::text, choices_);
      const std::string name = variable ? variable->name : "t";
      return isInText_ ? name : "\"\\(" + name + ")\\(" + name + ")\"";
    }
    case 3:
      return make(Kind::text) +
             std::string(choices_.among({".lowercased()", ".uppercased()", ".trimmingWhitespace()", ".escaped()",
                                         ".lowerCamelCased()", ".upperCamelCased()", ".snakeCased()"}));
    case 4: {
      const std::string parts = make(Kind::list);
      return parts + ".joined(separator: " + make(Kind::text) + ")";
    }
    case 5: {
      if (!choices_.isOneOf(8)) return isInText_ ? "t" : "\"abc\"[" + std::to_string(choices_.below(3)) + "]";
      const std::string whole = make(Kind::text);
      return whole + "[" + make(choices_.isOneOf(2) ? Kind::range : Kind::number) + "]";
    }
    case 6: {
      const Routine* routine = scope_.routine(Kind::text, choices_);
      return routine ? call(*routine) : literal();
    }
    default:
      return "(t = " + make(Kind::text) + ")";
  }
}

std::string ProgramExpressions::boolean() {
  const auto operation = [&](Kind kind, std::string_view sign) {
    const std::string left = make(kind);
    return "(" + left + " " + std::string(sign) + " " + make(kind) + ")";
  };
  switch (choices_.below(8)) {
    case 0:
      return std::string(choices_.among({"true", "false"}));
    case 1:
      return operation(Kind::number, choices_.among({"<", "<=", ">", ">="}));
    case 2:
      return operation(kind(), choices_.among({"==", "!="}));
    case 3:
      return operation(Kind::boolean, choices_.among({"&&", "||"}));
    case 4:
      return "!" + make(Kind::boolean);
    case 5: {
      const std::string whole = make(Kind::text);
      const std::string test(choices_.among({".hasPrefix(", ".hasSuffix(", ".contains("}));
      return whole + test + make(Kind::text) + ")";
    }
    case 6:
      return make(choices_.isOneOf(2) ? Kind::table : Kind::list) + ".isEmpty";
    default: {
      const std::string instance = make(kind());
      return "(" + instance + " is " +
             std::string(choices_.among({"Number", "String", "Boolean", "Array", "Dictionary", "Other"})) + ")";
    }
  }
}

std::string ProgramExpressions::list() {
  switch (choices_.below(5)) {
    case 0: {
      std::string elements;
      const Kind kind = this->kind();
      for (std::size_t count = choices_.below(4); count > 0; --count) {
        elements.append(make(kind)).append(count > 1 ? ", " : "");
      }
      return "[" + elements + "]";
    }
    case 1: {
      const std::string whole = make(Kind::list);
      return whole + ".map(" + function(1) + ")";
    }
    case 2: {
      const std::string whole = make(Kind::list);
      return whole + ".filter(" + function(1) + ")";
    }
    case 3: {
      const std::string whole = make(Kind::list);
      return whole + ".sorted(by: " + function(2) + ")";
    }
    default:
      return isInText_ ? "[2]" : "loadJSON(\"data.json\")[\"a\"]";
  }
}

std::string ProgramExpressions::table() {
  if (choices_.isOneOf(4) && !isInText_) return "loadJSON(\"data.json\")";
  std::string entries;
  const Kind keys = choices_.isOneOf(3) ? kind() : Kind::text;
  const Kind values = kind();
  for (std::size_t count = choices_.below(4); count > 0; --count) {
    entries.append(make(keys)).append(": ").append(make(values)).append(count > 1 ? ", " : "");
  }
  return "[" + (entries.empty() ? ":" : entries) + "]";
}

/// Bounds that are the wrong way round stop everything, so that they are rare.
std::string ProgramExpressions::range() {
  const std::string_view sign = choices_.among({"..<", "..."});
  if (choices_.isOneOf(16)) return "(" + make(Kind::number) + std::string(sign) + make(Kind::number) + ")";
  const std::size_t lower = choices_.below(4);
  return "(" + std::to_string(lower) + std::string(sign) + std::to_string(lower + choices_.below(4)) + ")";
}

std::string ProgramExpressions::plainText() {
  return std::string(choices_.among({"", "a", "Ab c", "x_y-z", "hello World", "\n", " ", "\t", "1", "é", "e\u0301", "ß",
                                     "\U0001F600", "\U0001F1E9\U0001F1EA", "a\r\nb", "\u0600b"}));
}

std::string ProgramExpressions::literal() {
  if (isInText_) return "t";
  std::string pieces;
  do pieces.append(choices_.isOneOf(8) ? choices_.among({"\\n", "\\\"", "\\\\", "\\0", "\\t"}) : plainText());
  while (choices_.isOneOf(3));
  return "\"" + pieces + "\"";
}

std::string ProgramExpressions::interpolated() {
  if (isInText_) return "t";
  std::string pieces;
  do {
    isInText_ = true;
    const std::string value = make(kind());
    isInText_ = false;
    pieces.append("a\\(").append(value).append(")b");
  } while (choices_.isOneOf(3));
  return "\"" + pieces + "\"";
}

std::string ProgramExpressions::call(const Routine& routine) {
  std::string arguments;
  for (const std::string& label : routine.labels) {
    if (&label != &routine.labels.front()) arguments.append(", ");
    if (!label.empty()) arguments.append(label).append(": ");
    arguments.append(make(kind()));
  }
  return routine.name + "(" + arguments + ")";
}

std::string ProgramExpressions::function(std::size_t parameters) {
  const Routine* routine = scope_.routine(parameters, choices_);
  if (routine) return routine->name;
  return parameters == 1 ? "isGood" : "isLess";
}

}  // namespace velto::fuzz
