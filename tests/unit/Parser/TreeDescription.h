// All that the records of a tree say, as text.
#pragma once

#include <string>

#include "Velto/Parser/RecordParts.h"
#include "Velto/Parser/Statement.h"

namespace velto {

/// Describes trees part by part, with every range and every token. Columns are told without the `shift` that they have.
class TreeDescription {
 public:
  explicit TreeDescription(Int shift = 0) : shift_(shift) {}

  template <typename Part>
  std::string of(const Part& part) const {
    if constexpr (ExpressionKinds::has<Part> || StatementKinds::has<Part>) {
      return "(" + std::to_string(kindOf<Part>()) + parts(part) + ")";
    } else {
      return described(part);
    }
  }

 private:
  template <typename Record>
  static int kindOf() {
    return ExpressionKinds::has<Record> ? ExpressionKinds::of<Record> : 100 + StatementKinds::of<Record>;
  }
  template <typename Record>
  std::string parts(const Record& record) const {
    return std::apply([&](const auto&... part) { return ((" " + of(part)) + ...); }, partsOf(record));
  }

  std::string described(const Expression& expression) const {
    std::string text;
    ExpressionKinds::dispatch(expression.kind(), [&]<typename Record>(std::type_identity<Record>) {
      text = of(*expression.as<Record>()) + "@" + of(expression.range());
    });
    return text;
  }
  std::string described(const Statement& statement) const {
    std::string text;
    StatementKinds::dispatch(statement.kind(), [&]<typename Record>(std::type_identity<Record>) {
      text = of(*statement.as<Record>()) + "@" + of(statement.range());
    });
    return text;
  }
  std::string described(const Range& range) const {
    return Range(range.file, range.startLine, range.startColumn - shift_, range.endLine, range.endColumn - shift_)
        .description();
  }
  std::string described(const Token& token) const {
    return "<" + std::string(token.description()) + of(token.literal) + of(token.range) + ">";
  }
  std::string described(const String& text) const { return "'" + std::string(text) + "'"; }
  std::string described(const Value& value) const { return value.description(); }
  std::string described(const IfBranch& branch) const { return of(branch.condition) + of(branch.statements); }
  std::string described(const FunctionParameter& parameter) const { return of(parameter.label) + of(parameter.name); }
  std::string described(const Call::Argument& argument) const { return of(argument.label) + of(argument.value); }
  std::string described(const StringExpression::Interpolation& interpolation) const {
    return std::to_string(interpolation.position) + of(interpolation.value);
  }
  std::string described(const std::pair<Expression, Expression>& pair) const {
    return of(pair.first) + of(pair.second);
  }
  std::string described(const Pattern& pattern) const {
    return std::visit([&](const auto& part) { return of(part); }, pattern);
  }
  template <typename Part>
  std::string described(const std::optional<Part>& part) const {
    return part ? of(*part) : "-";
  }
  template <typename Part>
  std::string described(const std::vector<Part>& parts) const {
    std::string text = "[";
    for (const Part& part : parts) text += of(part) + ",";
    return text + "]";
  }

  Int shift_;
};

}  // namespace velto
