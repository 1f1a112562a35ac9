// How the record of each kind of statement becomes a node, and the node a record.
#include "Velto/Parser/StatementNodes.h"

namespace velto {

namespace {

template <typename Record>
constexpr StatementKinds::Kind kindOf = StatementKinds::of<Record>;

Position endOfUsual(TokenType type, Place start) noexcept {
  return start.advancedBy(static_cast<Int>(usualLexeme(type).size()));
}

Statements statementsOf(const StatementList& list) {
  return {list.begin(), list.end()};
}

}  // namespace

NodeOf<Break>::NodeOf(const Token& token, Packing& packing) noexcept
    : StatementNode(kindOf<Break>, packing.usual(token)) {
}

Position NodeOf<Break>::end() const noexcept {
  return endOfUsual(TokenType::break_, start);
}

Break NodeOf<Break>::unpacked() const {
  return {NodeAccess::usualToken(*this, TokenType::break_, start)};
}

CaseParts::CaseParts(const Stretch& range, const Pattern& pattern, const Statements& body, Packing& packing)
    : start(packing.start(range)),
      endPlace(packing.end(range)),
      expression(std::holds_alternative<Expression>(pattern) ? std::optional(std::get<Expression>(pattern))
                                                             : std::nullopt),
      type(expression ? String() : std::get<Token>(pattern).lexeme),
      body(body),
      typePlace(expression ? Place() : packing.name(std::get<Token>(pattern))) {
}

Case CaseParts::unpacked(const Node& node) const {
  return {.range = NodeAccess::range(node, start, endPlace),
          .pattern = expression ? Pattern(*expression) : Pattern(NodeAccess::name(node, type, typePlace)),
          .body = statementsOf(body)};
}

NodeOf<Case>::NodeOf(const Stretch& range, const Pattern& pattern, const Statements& body, Packing& packing)
    : StatementNode(kindOf<Case>, packing.start(range)), parts(range, pattern, body, packing) {
}

NodeOf<Continue>::NodeOf(const Token& token, Packing& packing) noexcept
    : StatementNode(kindOf<Continue>, packing.usual(token)) {
}

Position NodeOf<Continue>::end() const noexcept {
  return endOfUsual(TokenType::continue_, start);
}

Continue NodeOf<Continue>::unpacked() const {
  return {NodeAccess::usualToken(*this, TokenType::continue_, start)};
}

NodeOf<ExpressionBlock>::NodeOf(const Point& start, const Expression& expression, Packing& packing) noexcept
    : StatementNode(kindOf<ExpressionBlock>, packing.start(start)), expression(expression) {
  expectTold(packing, expression.node());
}

ExpressionBlock NodeOf<ExpressionBlock>::unpacked() const {
  return {.range = rangeOf(*this), .expression = expression};
}

NodeOf<ExpressionStatement>::NodeOf(const Expression& expression, Packing&) noexcept
    : StatementNode(kindOf<ExpressionStatement>, Place()), expression(expression) {
}

NodeOf<For>::NodeOf(const Stretch& range, const Tuple& tuple, const Expression& sequence, const Statements& body,
                    Packing& packing)
    : StatementNode(kindOf<For>, packing.start(range)),
      endPlace(packing.end(range)),
      sequence(sequence),
      body(body),
      tupleStart(packing.start(Stretch(tuple.range))),
      tupleEnd(packing.end(tuple.range)),
      count(packing.count(std::ssize(tuple.names))) {
  makeItemsBehind<Name>(*this, tuple.names, [&](const Token& name) -> Name {
    return {name.lexeme, packing.name(name)};
  });
}

NodeOf<For>::~NodeOf() {
  endItems(names());
}

For NodeOf<For>::unpacked() const {
  std::vector<Token> all;
  all.reserve(count);
  for (const Name& name : names()) all.push_back(NodeAccess::name(*this, name.lexeme, name.place));
  return {.range = rangeOf(*this),
          .tuple = {.id = NodeAccess::id<Tuple>(NodeAccess::identity(*this)),
                    .range = NodeAccess::range(*this, tupleStart, tupleEnd),
                    .names = std::move(all)},
          .sequence = sequence,
          .body = statementsOf(body)};
}

NodeOf<FunctionDeclaration>::NodeOf(const Stretch& range, const Token& name,
                                    const std::vector<FunctionParameter>& parameters, const Statements& body,
                                    Packing& packing)
    : StatementNode(kindOf<FunctionDeclaration>, packing.start(range)),
      endPlace(packing.end(range)),
      name(name.lexeme),
      body(body),
      count(packing.count(std::ssize(parameters))) {
  packing.expect(packing.name(name) == start);
  makeItemsBehind<Parameter>(*this, parameters, [&](const FunctionParameter& parameter) -> Parameter {
    const auto& [label, name] = parameter;
    const bool isLabelled = label.type != TokenType::underscore;
    return {label.lexeme, name.lexeme, isLabelled ? packing.name(label) : packing.usual(label), packing.name(name),
            isLabelled};
  });
}

NodeOf<FunctionDeclaration>::~NodeOf() {
  endItems(parameters());
}

FunctionDeclaration NodeOf<FunctionDeclaration>::unpacked() const {
  std::vector<FunctionParameter> all;
  all.reserve(count);
  for (const Parameter& parameter : parameters()) {
    const TokenType type = parameter.isLabelled ? TokenType::identifier : TokenType::underscore;
    all.push_back({.label = NodeAccess::ownToken(*this, type, parameter.label, parameter.labelPlace),
                   .name = NodeAccess::name(*this, parameter.name, parameter.namePlace)});
  }
  return {.range = rangeOf(*this),
          .name = NodeAccess::name(*this, name, start),
          .parameters = std::move(all),
          .body = statementsOf(body)};
}

namespace {

std::vector<const IfBranch*> inOrder(const IfBranch& mainBranch, const std::vector<IfBranch>& elseIfBranches,
                                     const std::optional<IfBranch>& elseBranch) {
  std::vector<const IfBranch*> branches{&mainBranch};
  for (const IfBranch& branch : elseIfBranches) branches.push_back(&branch);
  if (elseBranch) branches.push_back(&*elseBranch);
  return branches;
}

IfBranch unpackedBranch(const NodeOf<If>::Branch& branch) {
  return {branch.condition, statementsOf(branch.body)};
}

}  // namespace

NodeOf<If>::NodeOf(const Stretch& range, const IfBranch& mainBranch, const std::vector<IfBranch>& elseIfBranches,
                   const std::optional<IfBranch>& elseBranch, Packing& packing)
    : StatementNode(kindOf<If>, packing.start(range), elseBranch ? 1 : 0),
      endPlace(packing.end(range)),
      count(packing.count(static_cast<Int>(countOf(elseIfBranches, elseBranch)))) {
  packing.expect(mainBranch.condition.has_value());
  makeItemsBehind<Branch>(*this, inOrder(mainBranch, elseIfBranches, elseBranch), [](const IfBranch* branch) -> Branch {
    return {branch->condition, StatementList(branch->statements)};
  });
}

NodeOf<If>::~NodeOf() {
  endItems(branches());
}

If NodeOf<If>::unpacked() const {
  If record(rangeOf(*this), *mainBranch().condition, statementsOf(mainBranch().body));
  for (const Branch& branch : otherBranches()) record.elseIfBranches.push_back(unpackedBranch(branch));
  if (!hasElse()) return record;
  record.elseBranch = std::move(record.elseIfBranches.back());
  record.elseIfBranches.pop_back();
  return record;
}

NodeOf<Include>::NodeOf(const Token& include, const Expression& file, Packing& packing) noexcept
    : StatementNode(kindOf<Include>, packing.usual(include)), file(file) {
}

Include NodeOf<Include>::unpacked() const {
  return {.include = NodeAccess::usualToken(*this, TokenType::include, start), .file = file};
}

NodeOf<Return>::NodeOf(const Stretch& range, const Token& keyword, const std::optional<Expression>& value,
                       Packing& packing) noexcept
    : StatementNode(kindOf<Return>, packing.start(range)), value(value) {
  packing.expect(packing.usual(keyword) == start);
}

Position NodeOf<Return>::end() const noexcept {
  return value ? endOf(*value).position : endOfUsual(TokenType::return_, start);
}

Range keywordRangeOf(const NodeOf<Return>& node) {
  if (NodeAccess::isSpelledOut(node)) return NodeAccess::spelled(node).keyword.range;
  return NodeAccess::range(node, node.start, endOfUsual(TokenType::return_, node.start));
}

Return NodeOf<Return>::unpacked() const {
  return {.range = rangeOf(*this), .keyword = NodeAccess::usualToken(*this, TokenType::return_, start), .value = value};
}

NodeOf<Switch>::NodeOf(const Stretch& range, const Expression& expr, const std::vector<Case>& cases,
                       const Statements& defaultBody, Packing& packing)
    : StatementNode(kindOf<Switch>, packing.start(range)),
      endPlace(packing.end(range)),
      expr(expr),
      defaultBody(defaultBody),
      count(packing.count(std::ssize(cases))) {
  makeItemsBehind<CaseParts>(
      *this, cases, [&](const Case& clause) { return CaseParts(clause.range, clause.pattern, clause.body, packing); });
}

NodeOf<Switch>::~NodeOf() {
  endItems(cases());
}

Switch NodeOf<Switch>::unpacked() const {
  std::vector<Case> all;
  all.reserve(count);
  for (const CaseParts& clause : cases()) all.push_back(clause.unpacked(*this));
  return {.range = rangeOf(*this), .expr = expr, .cases = std::move(all), .defaultBody = statementsOf(defaultBody)};
}

NodeOf<VariableDeclaration>::NodeOf(const Stretch& range, const Token& name,
                                    const std::optional<Expression>& initializer, Packing& packing) noexcept
    : StatementNode(kindOf<VariableDeclaration>, packing.start(range)),
      namePlace(packing.name(name)),
      name(name.lexeme),
      initializer(initializer) {
}

Position NodeOf<VariableDeclaration>::end() const noexcept {
  return initializer ? endOf(*initializer).position : namePlace.advancedBy(columnsOf(name));
}

VariableDeclaration NodeOf<VariableDeclaration>::unpacked() const {
  return {.range = rangeOf(*this), .name = NodeAccess::name(*this, name, namePlace), .initializer = initializer};
}

NodeOf<Verbatim>::NodeOf(const Stretch& range, const String& text, Packing& packing) noexcept
    : StatementNode(kindOf<Verbatim>, packing.start(range)), endPlace(packing.end(range)), text(text) {
}

Verbatim NodeOf<Verbatim>::unpacked() const {
  return {.range = rangeOf(*this), .text = text};
}

NodeOf<While>::NodeOf(const Stretch& range, const Expression& condition, const Statements& body, Packing& packing)
    : StatementNode(kindOf<While>, packing.start(range)),
      endPlace(packing.end(range)),
      condition(condition),
      body(body) {
}

While NodeOf<While>::unpacked() const {
  return {.range = rangeOf(*this), .condition = condition, .body = statementsOf(body)};
}

}  // namespace velto
