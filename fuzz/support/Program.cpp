#include "support/Program.h"

#include <string>

#include "support/ProgramExpressions.h"
#include "support/ProgramScope.h"

namespace velto::fuzz {
namespace {

constexpr std::size_t deepest = 4;

/// What every program begins with, so that there is something to name.
constexpr std::string_view prelude =
    "var x = 1\nvar t = \"text\"\n"
    "func isGood(_ a) return a != nil end\n"
    "func isLess(_ a, _ b) if a is Number && b is Number return a < b end return false end\n"
    "func show(_ a) return \"<\\(a)>\" end\n";

class Writer {
 public:
  explicit Writer(Choices& choices) : choices_(choices), expressions_(choices, scope_) {
    scope_.variables = {{"x", Kind::number}, {"t", Kind::text}};
    scope_.routines = {
        {"isGood", {""}, Kind::boolean}, {"isLess", {"", ""}, Kind::boolean}, {"show", {""}, Kind::text}};
  }

  std::string program(bool hasPrelude) {
    std::string text(hasPrelude ? prelude : "");
    while (choices_.areLeft() && !choices_.isOneOf(24)) text.append(statement());
    return text;
  }

  std::string template_() {
    std::string text = templateText();
    while (choices_.areLeft() && !choices_.isOneOf(12)) text.append(tag()).append(templateText());
    return text;
  }

  std::string document() {
    return std::string(choices_.among({"{\"a\": [1, 2, 3]}", "{\"a\": [\"x y\", {\"b\": null}], \"c\": true}",
                                       "{\"a\": []}", "[1]", "{", "{\"a\": [[], [1.5], \"\\u00e9\"]}"}));
  }

 private:
  std::string statement() {
    switch (choices_.below(depth_ < deepest ? 16 : 6)) {
      case 0:
        return "print(" + expressions_.make(Kind::any) + ");\n";
      case 1:
        return declaration();
      case 2:
        return assignment();
      case 3:
        return expressions_.make(expressions_.kind()) + ";\n";
      case 4:
        return jump();
      case 5:
        return "print(show(" + expressions_.make(Kind::any) + "));\n";
      case 6:
      case 7:
        return branches();
      case 8:
      case 9:
        return forLoop();
      case 10:
        return "while " + expressions_.make(Kind::boolean) + ";\n" + body("if x > 3 break end x = x + 1;\n") + "end\n";
      case 11:
        return switch_();
      case 12:
      case 13:
        return function();
      default:
        return otherFile();
    }
  }

  std::string declaration() {
    const Kind kind = expressions_.kind();
    const std::string value = expressions_.make(kind);
    const std::string name = freshName("v");
    scope_.variables.push_back({name, kind});
    return "var " + name + (choices_.isOneOf(64) ? "" : " = " + value) + ";\n";
  }

  std::string assignment() {
    const Kind kind = choices_.isOneOf(8) ? expressions_.kind() : static_cast<Kind>(choices_.below(2));
    const Variable* variable = scope_.variable(kind, choices_);
    const std::string name = variable ? variable->name : kind == Kind::text ? "t" : "x";
    const std::string value = expressions_.make(kind);
    if (!choices_.isOneOf(3)) return name + " = " + value + ";\n";
    if (kind == Kind::text) return name + " = \"\\(" + name + ")more\";\n";
    return name + " = " + name + " + " + value + ";\n";
  }

  std::string jump() {
    if (depth_ == 0) return "x = 0;\n";
    return "if " + expressions_.make(Kind::boolean) + "; " +
           std::string(choices_.among({"break;", "continue;", "return;", "return x"})) + " end\n";
  }

  std::string branches() {
    std::string text = "if " + expressions_.make(Kind::boolean) + ";\n" + body("");
    while (choices_.isOneOf(3)) text.append("else if " + expressions_.make(Kind::boolean) + ";\n" + body(""));
    if (choices_.isOneOf(2)) text.append("else;\n" + body(""));
    return text + "end\n";
  }

  std::string forLoop() {
    const std::size_t before = scope_.variables.size();
    const std::string name = freshName("i");
    std::string text;
    if (choices_.isOneOf(3)) {
      const std::string key = freshName("k");
      text = "for (" + key + ", " + name + ") in " + expressions_.make(Kind::table) + ";\n";
      scope_.variables.push_back({key, Kind::text});
    } else {
      const Kind sequence = choices_.isOneOf(2) ? Kind::list : Kind::range;
      text = "for " + name + " in " + expressions_.make(sequence) + ";\n";
    }
    scope_.variables.push_back({name, Kind::number});
    text.append(body("")).append("end\n");
    scope_.variables.resize(before);
    return text;
  }

  std::string switch_() {
    std::string text = "switch " + expressions_.make(Kind::any) + ";\n";
    for (std::size_t count = choices_.below(4); count > 0; --count) {
      const bool isType = choices_.isOneOf(3);
      text.append(
          "case " +
          (isType ? "is " + std::string(choices_.among({"Number", "String", "Array"})) : expressions_.make(Kind::any)) +
          ":\n" + body("") + "break\n");
    }
    if (choices_.isOneOf(2)) text.append("default:\n" + body("") + "break\n");
    return text + "end\n";
  }

  std::string function() {
    Routine routine{freshName("f"), {}, choices_.isOneOf(4) ? Kind::any : static_cast<Kind>(choices_.below(2))};
    const std::size_t before = scope_.variables.size();
    std::string parameters;
    for (std::size_t count = choices_.below(4); count > 0; --count) {
      const std::string name = freshName("p");
      const bool isLabelled = choices_.isOneOf(3);
      parameters.append(parameters.empty() ? "" : ", ").append(isLabelled ? "by " : "_ ").append(name);
      routine.labels.push_back(isLabelled ? "by" : "");
      scope_.variables.push_back({name, Kind::any});
    }
    if (choices_.isOneOf(4)) scope_.routines.push_back(routine);  // calls itself
    const bool isRecursive = !scope_.routines.empty() && scope_.routines.back().name == routine.name;
    const std::string statements = body("");
    const std::string value = expressions_.make(routine.result);
    scope_.variables.resize(before);
    if (!isRecursive) scope_.routines.push_back(routine);
    return "func " + routine.name + "(" + parameters + ")\n" + statements + "return " + value + "\nend\n";
  }

  std::string otherFile() {
    return std::string(choices_.among({"include \"part.txt\";\n", "process(\"part.txt\", into: \"out\");\n",
                                       "execute(\"more.velto\");\n", "process(\"part.txt\", into: \"-\");\n",
                                       "copy(from: \"part.txt\", to: \"copied\");\n", "mkdir(\"folder/inner\");\n",
                                       "process(\"part.txt\", into: \"folder/out\");\n", "include \"out\";\n",
                                       "var outputPath = \"folder\";\n", "include \"missing\";\n"}));
  }

  /// Statements of a block, whose names are forgotten behind it.
  std::string body(std::string_view first) {
    const std::size_t variables = scope_.variables.size();
    const std::size_t routines = scope_.routines.size();
    ++depth_;
    std::string text(first);
    while (choices_.areLeft() && !choices_.isOneOf(3)) text.append(statement());
    --depth_;
    scope_.variables.resize(std::min(variables, scope_.variables.size()));
    scope_.routines.resize(std::min(routines, scope_.routines.size()), Routine{});
    return text;
  }

  std::string tag() {
    if (choices_.isOneOf(8)) return "<%# note %>";
    const std::string open(choices_.among({"<% ", "<%- "}));
    const std::string close(choices_.among({" %>", " -%>"}));
    switch (choices_.below(4)) {
      case 0:
        return "<%= " + expressions_.make(Kind::any) + close;
      case 1:
        return open + statement() + close;
      case 2:
        return open + "if " + expressions_.make(Kind::boolean) + ";" + close + inner() + open + "end" + close;
      default:
        return open + "for item in " + expressions_.make(Kind::list) + ";" + close + inner() + "<%= item" + close +
               open + "end" + close;
    }
  }

  std::string inner() {
    ++depth_;
    std::string text = templateText();
    if (choices_.areLeft() && depth_ < deepest) text.append(tag()).append(templateText());
    --depth_;
    return text;
  }

  std::string templateText() {
    std::string text;
    do text.append(expressions_.plainText());
    while (choices_.isOneOf(3));
    return text;
  }

  std::string freshName(std::string_view start) { return std::string(start) + std::to_string(names_++); }

  Choices& choices_;
  ProgramScope scope_;
  ProgramExpressions expressions_;
  std::size_t depth_ = 0;
  std::size_t names_ = 0;
};

}  // namespace

Files makeProgram(Choices& choices) {
  Writer writer(choices);
  const std::string document = writer.document();
  const std::string program = writer.program(true);
  const std::string part = writer.template_();
  const std::string more = writer.program(false);
  return {{"main.velto", program}, {"part.txt", part}, {"more.velto", more}, {"data.json", document}};
}

}  // namespace velto::fuzz
