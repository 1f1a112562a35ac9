#include "support/TreeRanges.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "support/Require.h"
#include "support/TreeWalk.h"

namespace velto::fuzz {
namespace {

/// Kinds whose range ends with a token behind all that they hold.
const std::set<std::string_view> closedKinds = {
    "ArrayLiteral", "Call",   "DictionaryLiteral", "For",  "FunctionDeclaration", "Grouping", "Member",
    "Subscript",    "Switch", "TypeCheck",         "While"};

class RangeCheck final : public TreeWalk {
 public:
  explicit RangeCheck(const SourceMap& map) : map_(map) {
    frames_.push_back({.kind = "source", .start = 0, .end = map.source().size(), .last = 0, .isBehind = false});
  }

 protected:
  void begin(std::string_view kind, const Range& range) override {
    const auto offsets = map_.offsets(range);
    require(offsets.has_value(), "A node stands at a place of the source.", placeOf(range));
    checkWithin(kind, offsets->first, offsets->second);
    const bool isString = kind == "StringExpression";
    frames_.push_back({.kind = kind,
                       .start = offsets->first,
                       .end = offsets->second,
                       .last = isString ? offsets->second : offsets->first,
                       .isBehind = isString});
  }

  void end() override { frames_.pop_back(); }

  /// A parameter may be its own label.
  void token(const Token& token) override {
    const auto offsets = map_.offsets(token.range);
    const bool isAgain = offsets && offsets->second == frames_.back().last && offsets->first >= frames_.back().start &&
                         frames_.back().kind == "FunctionDeclaration";
    if (isAgain) return;
    begin("token", token.range);
    end();
  }

  void body(std::string_view name) override {
    Frame& frame = frames_.back();
    if (name != "case" && name != "else if" && name != "else") return;
    frame.isBehind = true;
    frame.last = std::max(frame.last, frame.end);
  }

  void detail(std::string_view) override {}

 private:
  struct Frame {
    std::string_view kind;
    std::size_t start;
    std::size_t end;
    std::size_t last;  ///< where the part before ended
    bool isBehind;     ///< what follows lies behind the range
  };

  void checkWithin(std::string_view kind, std::size_t start, std::size_t end) {
    Frame& parent = frames_.back();
    const std::string pair = std::string(kind).append(" in ").append(parent.kind);
    require(start >= parent.last, "The parts of a node stand in order.", pair);
    require(end <= (parent.isBehind ? closedEnd() : parent.end), "A node lies within the one that holds it.", pair);
    parent.last = std::max(parent.last, end);
  }

  std::size_t closedEnd() const {
    const auto isClosed = [](const Frame& frame) { return frame.kind == "source" || closedKinds.contains(frame.kind); };
    return std::find_if(frames_.rbegin(), frames_.rend(), isClosed)->end;
  }

  const SourceMap& map_;
  std::vector<Frame> frames_;
};

}  // namespace

void checkRanges(const Statements& statements, const SourceMap& map) {
  RangeCheck(map).walk(statements);
}

}  // namespace velto::fuzz
