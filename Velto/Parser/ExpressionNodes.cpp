// How the record of each kind of expression becomes a node, and the node a record.
#include "Velto/Parser/ExpressionNodes.h"

namespace velto {

namespace {

template <typename Record>
constexpr ExpressionKinds::Kind kindOf = ExpressionKinds::of<Record>;

constexpr std::uint8_t detailOf(TokenType type) noexcept {
  return static_cast<std::uint8_t>(type);
}

/// How many columns a literal takes, which has to fit into the byte that tells it.
std::uint8_t widthOf(const Stretch& range, Packing& packing) noexcept {
  const Int width = columnsBetween(range.start.column, range.end.column);
  packing.expect(width >= 0 && width <= UINT8_MAX && range.start.line == range.end.line);
  return static_cast<std::uint8_t>(width);
}

}  // namespace

NodeOf<ArrayLiteral>::NodeOf(const Stretch& range, const std::vector<Expression>& elements, Packing& packing) noexcept
    : ExpressionNode(kindOf<ArrayLiteral>, packing.start(range)),
      endPlace(packing.end(range)),
      count(packing.count(std::ssize(elements))) {
  makeItemsBehind<Expression>(*this, elements, [](const Expression& element) { return element; });
}

NodeOf<ArrayLiteral>::~NodeOf() {
  endItems(elements());
}

ArrayLiteral NodeOf<ArrayLiteral>::unpacked() const {
  return {.id = NodeAccess::id(*this), .range = rangeOf(*this), .elements = {elements().begin(), elements().end()}};
}

NodeOf<Assignment>::NodeOf(const Stretch& range, const Token& name, const Expression& value, Packing& packing,
                           const Uuid& id) noexcept
    : ExpressionNode(kindOf<Assignment>, packing.start(range)),
      endPlace(packing.end(range)),
      name(name.lexeme),
      value(value),
      id(id) {
  packing.expect(packing.name(name) == start);
}

Assignment NodeOf<Assignment>::unpacked() const {
  return {.id = NodeAccess::id<Assignment>(id),
          .range = rangeOf(*this),
          .name = NodeAccess::name(*this, name, start),
          .value = value};
}

NodeOf<Binary>::NodeOf(const Point& start, const Expression& left, const Token& operator_, const Expression& right,
                       Packing& packing) noexcept
    : ExpressionNode(kindOf<Binary>, packing.start(start), detailOf(operator_.type)),
      operatorPlace(packing.usual(operator_)),
      left(left),
      right(right) {
  expectTold(packing, right.node());
}

Binary NodeOf<Binary>::unpacked() const {
  return {.id = NodeAccess::id(*this),
          .range = rangeOf(*this),
          .left = left,
          .operator_ = NodeAccess::usualToken(*this, operator_(), operatorPlace),
          .right = right};
}

NodeOf<Call>::NodeOf(const Stretch& range, const Expression& callee, const Token& paren,
                     const std::vector<Call::Argument>& arguments, Packing& packing) noexcept
    : ExpressionNode(kindOf<Call>, packing.start(range)),
      parenPlace(packing.usual(paren)),
      endPlace(packing.end(range)),
      count(packing.count(std::ssize(arguments))),
      callee(callee) {
  makeItemsBehind<CallArgument>(*this, arguments, [&](const Call::Argument& argument) -> CallArgument {
    if (!argument.label) return {argument.value, {}, {}, false};
    return {argument.value, argument.label->lexeme, packing.name(*argument.label), true};
  });
}

NodeOf<Call>::~NodeOf() {
  endItems(arguments());
}

Call NodeOf<Call>::unpacked() const {
  std::vector<Call::Argument> all;
  all.reserve(count);
  for (const CallArgument& argument : arguments()) {
    if (argument.hasLabel) {
      all.push_back({NodeAccess::name(*this, argument.label, argument.labelPlace), argument.value});
    } else {
      all.push_back({std::nullopt, argument.value});
    }
  }
  return {.id = NodeAccess::id(*this),
          .range = rangeOf(*this),
          .callee = callee,
          .paren = NodeAccess::usualToken(*this, TokenType::leftParen, parenPlace),
          .arguments = std::move(all)};
}

NodeOf<DictionaryLiteral>::NodeOf(const Stretch& range, const std::vector<std::pair<Expression, Expression>>& elements,
                                  Packing& packing) noexcept
    : ExpressionNode(kindOf<DictionaryLiteral>, packing.start(range)),
      endPlace(packing.end(range)),
      count(packing.count(std::ssize(elements))) {
  makeItemsBehind<Element>(*this, elements, [](const std::pair<Expression, Expression>& element) -> Element {
    return {element.first, element.second};
  });
}

NodeOf<DictionaryLiteral>::~NodeOf() {
  endItems(elements());
}

DictionaryLiteral NodeOf<DictionaryLiteral>::unpacked() const {
  std::vector<std::pair<Expression, Expression>> all;
  all.reserve(count);
  for (const Element& element : elements()) all.emplace_back(element.key, element.value);
  return {.id = NodeAccess::id(*this), .range = rangeOf(*this), .elements = std::move(all)};
}

NodeOf<Grouping>::NodeOf(const Stretch& range, const Expression& expression, Packing& packing) noexcept
    : ExpressionNode(kindOf<Grouping>, packing.start(range)), endPlace(packing.end(range)), expression(expression) {
}

Grouping NodeOf<Grouping>::unpacked() const {
  return {.id = NodeAccess::id(*this), .range = rangeOf(*this), .expression = expression};
}

NodeOf<Literal>::NodeOf(const Stretch& range, const Value& value, Packing& packing) noexcept
    : ExpressionNode(kindOf<Literal>, packing.start(range), widthOf(range, packing)),
      type(typeOf(value)),
      ifNumber(value.number() ? *value.number() : 0) {
  packing.expect(type != Type::other);
}

NodeOf<Literal>::Type NodeOf<Literal>::typeOf(const Value& value) noexcept {
  if (value.number()) return Type::number;
  if (const bool* const boolean = value.boolean()) return *boolean ? Type::true_ : Type::false_;
  return value.isNil() ? Type::nil : Type::other;
}

Value NodeOf<Literal>::otherValue() const noexcept {
  if (type == Type::other) return NodeAccess::spelled(*this).value;
  return type == Type::nil ? Value::nil() : Value(type == Type::true_);
}

Literal NodeOf<Literal>::unpacked() const {
  return {.id = NodeAccess::id(*this), .range = rangeOf(*this), .value = value()};
}

NodeOf<Logical>::NodeOf(const Point& start, const Expression& left, const Token& operator_, const Expression& right,
                        Packing& packing) noexcept
    : ExpressionNode(kindOf<Logical>, packing.start(start), detailOf(operator_.type)),
      operatorPlace(packing.usual(operator_)),
      left(left),
      right(right) {
  expectTold(packing, right.node());
}

Logical NodeOf<Logical>::unpacked() const {
  return {.id = NodeAccess::id(*this),
          .range = rangeOf(*this),
          .left = left,
          .operator_ = NodeAccess::usualToken(*this, operator_(), operatorPlace),
          .right = right};
}

NodeOf<Member>::NodeOf(const Stretch& range, const Expression& object, const Token& dot, const Token& member,
                       Packing& packing) noexcept
    : ExpressionNode(kindOf<Member>, packing.start(range)),
      dotPlace(packing.usual(dot)),
      memberPlace(packing.name(member)),
      object(object),
      member(member.lexeme) {
}

Member NodeOf<Member>::unpacked() const {
  return {.id = NodeAccess::id(*this),
          .range = rangeOf(*this),
          .object = object,
          .dot = NodeAccess::usualToken(*this, TokenType::dot, dotPlace),
          .member = NodeAccess::name(*this, member, memberPlace)};
}

NodeOf<Tuple>::NodeOf(const Stretch& range, const std::vector<Token>& names, Packing& packing) noexcept
    : ExpressionNode(kindOf<Tuple>, packing.start(range)),
      endPlace(packing.end(range)),
      count(packing.count(std::ssize(names))) {
  makeItemsBehind<Name>(*this, names, [&](const Token& name) -> Name { return {name.lexeme, packing.name(name)}; });
}

NodeOf<Tuple>::~NodeOf() {
  endItems(names());
}

Tuple NodeOf<Tuple>::unpacked() const {
  std::vector<Token> all;
  all.reserve(count);
  for (const Name& name : names()) all.push_back(NodeAccess::name(*this, name.lexeme, name.place));
  return {.id = NodeAccess::id(*this), .range = rangeOf(*this), .names = std::move(all)};
}

NodeOf<TypeCheck>::NodeOf(const Stretch& range, const Expression& instance, const Token& is, const Token& type,
                          Packing& packing) noexcept
    : ExpressionNode(kindOf<TypeCheck>, packing.start(range)),
      isPlace(packing.usual(is)),
      typePlace(packing.name(type)),
      instance(instance),
      type(type.lexeme) {
}

TypeCheck NodeOf<TypeCheck>::unpacked() const {
  return {.id = NodeAccess::id(*this),
          .range = rangeOf(*this),
          .instance = instance,
          .is = NodeAccess::usualToken(*this, TokenType::is, isPlace),
          .type = NodeAccess::name(*this, type, typePlace)};
}

NodeOf<StringExpression>::NodeOf(const Stretch& range, const String& literal,
                                 const std::vector<StringExpression::Interpolation>& interpolations,
                                 Packing& packing) noexcept
    : ExpressionNode(kindOf<StringExpression>, packing.start(range)),
      endPlace(packing.end(range)),
      literal(literal),
      count(packing.count(std::ssize(interpolations))) {
  makeItemsBehind<Interpolation>(*this, interpolations,
                                 [&](const StringExpression::Interpolation& interpolation) -> Interpolation {
                                   return {interpolation.value, interpolation.position};
                                 });
}

NodeOf<StringExpression>::~NodeOf() {
  endItems(interpolations());
}

StringExpression NodeOf<StringExpression>::unpacked() const {
  std::vector<StringExpression::Interpolation> all;
  all.reserve(count);
  for (const Interpolation& each : interpolations()) all.push_back({each.position, each.value});
  return {.id = NodeAccess::id(*this), .range = rangeOf(*this), .literal = literal, .interpolations = std::move(all)};
}

NodeOf<Subscript>::NodeOf(const Stretch& range, const Expression& subscriptee, const Token& bracket,
                          const Expression& index, Packing& packing) noexcept
    : ExpressionNode(kindOf<Subscript>, packing.start(range)),
      bracketPlace(packing.usual(bracket)),
      endPlace(packing.end(range)),
      subscriptee(subscriptee),
      index(index) {
}

Subscript NodeOf<Subscript>::unpacked() const {
  return {.id = NodeAccess::id(*this),
          .range = rangeOf(*this),
          .subscriptee = subscriptee,
          .bracket = NodeAccess::usualToken(*this, TokenType::leftSquareBracket, bracketPlace),
          .index = index};
}

NodeOf<Unary>::NodeOf(const Stretch& range, const Token& operator_, const Expression& right, Packing& packing) noexcept
    : ExpressionNode(kindOf<Unary>, packing.start(range), detailOf(operator_.type)),
      endPlace(packing.end(range)),
      right(right) {
  packing.expect(packing.usual(operator_) == start);
}

Unary NodeOf<Unary>::unpacked() const {
  return {.id = NodeAccess::id(*this),
          .range = rangeOf(*this),
          .operator_ = NodeAccess::usualToken(*this, operator_(), start),
          .right = right};
}

NodeOf<Variable>::NodeOf(const Stretch&, const Token& name, Packing& packing, const Uuid& id) noexcept
    : ExpressionNode(kindOf<Variable>, packing.name(name)), name(name.lexeme), id(id) {
}

Variable NodeOf<Variable>::unpacked() const {
  return {.id = NodeAccess::id<Variable>(id), .range = rangeOf(*this), .name = NodeAccess::name(*this, name, start)};
}

}  // namespace velto
