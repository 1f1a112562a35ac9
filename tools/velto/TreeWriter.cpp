// Trees as JSON: the walk, and the forms of fields.
#include "TreeWriter.h"

#include <iterator>
#include <variant>

#include "Json.h"

namespace command {

std::string TreeWriter::json(const velto::Statement& statement) {
  text_.clear();
  pending_.push_back({.text = "", .statement = statement});
  while (!pending_.empty()) {
    const Piece piece = std::move(pending_.back());
    pending_.pop_back();
    write(piece);
  }
  return text_;
}

void TreeWriter::write(const Piece& piece) {
  text_ += piece.text;
  if (!piece.statement && !piece.expression) return;
  pieces_.assign(1, Piece());
  if (piece.statement) piece.statement->accept(*this);
  if (piece.expression) piece.expression->accept(*this);
  std::move(pieces_.rbegin(), pieces_.rend(), std::back_inserter(pending_));
}

TreeWriter& TreeWriter::begin(std::string_view kind, const velto::Range& range) {
  append("{\"kind\":" + json::quoted(kind) + ",\"range\":" + json::range(range));
  return *this;
}

void TreeWriter::put(const velto::Statement& statement) {
  pieces_.back().statement = statement;
  pieces_.emplace_back();
}

void TreeWriter::put(const velto::Expression& expression) {
  pieces_.back().expression = expression;
  pieces_.emplace_back();
}

void TreeWriter::put(const velto::Token& token) {
  append(json::token(token));
}

void TreeWriter::put(const velto::String& text) {
  append(json::quoted(text));
}

/// Of a literal: a boolean, a number or nil.
void TreeWriter::put(const velto::Value& value) {
  if (const bool* const boolean = value.boolean()) {
    append(*boolean ? "true" : "false");
  } else if (const double* const number = value.number()) {
    append(json::number(*number));
  } else {
    append("null");
  }
}

void TreeWriter::put(const velto::Call::Argument& argument) {
  append("{\"label\":");
  put(argument.label);
  field("value", argument.value).end();
}

void TreeWriter::put(const std::pair<velto::Expression, velto::Expression>& element) {
  append("[");
  put(element.first);
  append(",");
  put(element.second);
  append("]");
}

void TreeWriter::put(const velto::StringExpression::Interpolation& interpolation) {
  append("[" + std::to_string(interpolation.position) + ",");
  put(interpolation.value);
  append("]");
}

void TreeWriter::put(const velto::Pattern& pattern) {
  const bool isType = std::holds_alternative<velto::Token>(pattern);
  append(isType ? "{\"type\":" : "{\"expression\":");
  std::visit([this](const auto& part) { put(part); }, pattern);
  append("}");
}

void TreeWriter::put(const velto::IfBranch& branch) {
  append("{\"condition\":");
  put(branch.condition);
  field("statements", branch.statements).end();
}

void TreeWriter::put(const velto::FunctionParameter& parameter) {
  append("{\"label\":");
  put(parameter.label);
  field("name", parameter.name).end();
}

}  // namespace command
