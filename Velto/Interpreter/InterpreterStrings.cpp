// Strings with interpolations, and texts that grow piece by piece.
#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Interpreter/InterpreterInline.h"
#include "Velto/Platform/Unicode.h"
#include "Velto/Value/Printing.h"

namespace velto {

namespace {

/// The offset in bytes that lies `units` UTF-16 code units behind `offset`.
std::size_t offsetBehind(const String& text, std::size_t offset, Int units) {
  if (text.isASCII()) return offset + static_cast<std::size_t>(units);
  while (units > 0) units -= unicode::decode(text, offset) > 0xFFFF ? 2 : 1;
  return offset;
}

}  // namespace

Value Interpreter::valueOf(const NodeOf<StringExpression>& node) {
  if (node.count == 0) return node.literal;
  StringBuilder text;
  appendPieces(node, 0, text);
  return std::move(text).build();
}

/// Appends the text from the interpolation `first` on; the one before it stands at the beginning.
void Interpreter::appendPieces(const NodeOf<StringExpression>& node, std::size_t first, StringBuilder& text) {
  const std::string_view literal = node.literal;
  std::size_t offset = 0;
  Int position = 0;
  for (const auto& interpolation : node.interpolations().subspan(first)) {
    const std::size_t next = offsetBehind(node.literal, offset, interpolation.position - position);
    text.append(literal.substr(offset, next - offset));
    appendDescription(evaluate(interpolation.value), text);
    offset = next;
    position = interpolation.position;
  }
  text.append(literal.substr(offset));
}

const NodeOf<StringExpression>* Interpreter::beginningWithItself(const NodeOf<Assignment>& node) {
  const auto& text = node.value.node<StringExpression>();
  if (text.count == 0 || text.interpolations()[0].position != 0) return nullptr;
  const Expression& beginning = text.interpolations()[0].value;
  const bool isSameName =
      beginning.kind() == ExpressionKinds::of<Variable> && beginning.node<Variable>().name.isSameAs(node.name);
  return isSameName ? &text : nullptr;
}

/// The same as evaluating and assigning the text, but that the variable's own text is appended to where it has stayed
/// what it was at the beginning, whatever the evaluation of the other pieces did.
Value Interpreter::grow(const NodeOf<Assignment>& node, const NodeOf<StringExpression>& text) {
  Value before = evaluate(text.interpolations()[0].value);
  StringBuilder rest;
  if (!before.string()) {
    appendDescription(before, rest);
    appendPieces(text, 1, rest);
    Value value = std::move(rest).build();
    store(node, value);
    return value;
  }
  appendPieces(text, 1, rest);
  const Local* local = locals.find(node.id);
  Value* const variable = local ? current().findInPlace(node.name, *local) : nullptr;
  const String* const present = variable ? variable->string() : nullptr;
  if (!present || !present->isSameAs(*before.string())) {
    Value value = String::concatenation({*before.string(), rest.view()});
    store(node, value);
    return value;
  }
  before = Value::nil();  // now the variable is the only holder, unless somebody else has the text
  variable->append(rest.view());
  return *variable;
}

}  // namespace velto
