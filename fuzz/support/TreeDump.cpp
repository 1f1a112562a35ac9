// What a tree holds, one line for each node.
#include "Velto/Value/Value.h"
#include "support/SourceMap.h"
#include "support/TreeText.h"
#include "support/TreeWalk.h"

namespace velto::fuzz {
namespace {

class Dump final : public TreeWalk {
 public:
  explicit Dump(bool hasRanges) noexcept : hasRanges_(hasRanges) {}

  std::string text;

 protected:
  void begin(std::string_view kind, const Range& range) override {
    text.append(depth_, ' ').append(kind);
    if (hasRanges_) text.append(" ").append(placeOf(range));
    text.append("\n");
    ++depth_;
  }
  void end() override { --depth_; }
  void token(const Token& token) override {
    const std::string description(token.description());
    begin(description, token.range);
    end();
  }
  void body(std::string_view name) override { detail(name); }
  void detail(std::string_view detail) override { text.append(depth_, ' ').append("= ").append(detail).append("\n"); }

 private:
  bool hasRanges_;
  std::size_t depth_ = 0;
};

}  // namespace

std::string dump(const Statements& statements, bool hasRanges) {
  Dump dump(hasRanges);
  dump.walk(statements);
  return std::move(dump.text);
}

}  // namespace velto::fuzz
