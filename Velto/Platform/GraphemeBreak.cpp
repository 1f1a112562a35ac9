// Where extended grapheme clusters end: the rules GB3 to GB999 of Unicode's text segmentation (UAX 29), the one that
// keeps the conjuncts of Indic scripts together among them.
#include "Velto/Platform/Character.h"
#include "Velto/Platform/GraphemeBreakClass.h"
#include "Velto/Platform/Utf8.h"

namespace velto {

namespace {

enum class Join { never, always, dependsOnContext };

constexpr Join joinIf(bool condition) noexcept {
  return condition ? Join::always : Join::never;
}

/// What two neighbours tell by themselves. Context matters before the three classes that join to more than a neighbour.
Join join(BreakClass left, BreakClass right) noexcept {
  using enum BreakClass;
  if (left == carriageReturn) return joinIf(right == lineFeed);
  if (isControl(left) || isControl(right)) return Join::never;
  if (isExtender(right) || left == prepend) return Join::always;
  switch (right) {
    case leadingJamo:
    case syllableWithoutTrail:
    case syllableWithTrail:
      return joinIf(left == leadingJamo);
    case vowelJamo:
      return joinIf(left == leadingJamo || left == vowelJamo || left == syllableWithoutTrail);
    case trailingJamo:
      return joinIf(left == vowelJamo || left == trailingJamo || left == syllableWithoutTrail ||
                    left == syllableWithTrail);
    case pictographic:
      return left == joiner ? Join::dependsOnContext : Join::never;
    case consonant:
      return left == joiner || left == mark || left == linker ? Join::dependsOnContext : Join::never;
    case regionalIndicator:
      return left == regionalIndicator ? Join::dependsOnContext : Join::never;
    default:
      return Join::never;
  }
}

/// A cluster as far as it has been read.
class Cluster {
 public:
  explicit Cluster(BreakClass first) noexcept { append(first); }

  bool joins(BreakClass next) const noexcept {
    const Join rule = join(last_, next);
    return rule == Join::dependsOnContext ? waitsFor(next) : rule == Join::always;
  }

  void append(BreakClass next) noexcept {
    tail_ = tailWith(next);
    last_ = next;
  }

 private:
  /// What the cluster ends with, as far as more can join to it.
  enum class Tail { plain, pictograph, joinedPictograph, consonant, linkedConsonant, halfFlag };

  bool waitsFor(BreakClass next) const noexcept {
    switch (next) {
      case BreakClass::pictographic:
        return tail_ == Tail::joinedPictograph;
      case BreakClass::consonant:
        return tail_ == Tail::linkedConsonant;
      default:
        return tail_ == Tail::halfFlag;
    }
  }

  Tail tailWith(BreakClass next) const noexcept {
    const bool isConsonant = tail_ == Tail::consonant || tail_ == Tail::linkedConsonant;
    const Tail kept = isConsonant || tail_ == Tail::pictograph ? tail_ : Tail::plain;
    switch (next) {
      case BreakClass::pictographic:
        return Tail::pictograph;
      case BreakClass::consonant:
        return Tail::consonant;
      case BreakClass::regionalIndicator:
        return tail_ == Tail::halfFlag ? Tail::plain : Tail::halfFlag;
      case BreakClass::joiner:
        return tail_ == Tail::pictograph ? Tail::joinedPictograph : kept;
      case BreakClass::linker:
        return isConsonant ? Tail::linkedConsonant : kept;
      case BreakClass::mark:
        return kept;
      case BreakClass::extend:
        return isConsonant ? Tail::plain : kept;
      default:
        return Tail::plain;
    }
  }

  BreakClass last_ = BreakClass::other;
  Tail tail_ = Tail::plain;
};

std::size_t countLineEndPairs(std::string_view text) noexcept {
  std::size_t pairs = 0;
  for (std::size_t offset = text.find("\r\n"); offset != text.npos; offset = text.find("\r\n", offset + 2)) ++pairs;
  return pairs;
}

/// How many bytes at the start are whole characters in ASCII, whatever follows.
std::size_t wholeASCIIPrefixLength(std::string_view text) noexcept {
  std::size_t length = utf8::asciiPrefixLength(text);
  if (length == text.size() || length == 0) return length;
  --length;  // a mark may follow the last one
  return length > 0 && text[length - 1] == '\r' ? length - 1 : length;
}

BreakClass breakClassAt(std::string_view text, std::size_t offset) noexcept {
  return breakClass(utf8::decode(text, offset));
}

/// Whether no scalar begins at `offset`, or one that joins to nothing by itself.
bool isOtherAt(std::string_view text, std::size_t offset) noexcept {
  return offset == text.size() || breakClassAt(text, offset) == BreakClass::other;
}

}  // namespace

std::size_t nextBoundaryByRules(std::string_view text, std::size_t offset) noexcept {
  const BreakClass first = breakClass(utf8::decode(text, offset));
  if (first == BreakClass::other && isOtherAt(text, offset)) return offset;
  Cluster cluster(first);
  while (offset < text.size()) {
    std::size_t next = offset;
    const BreakClass class_ = breakClass(utf8::decode(text, next));
    if (!cluster.joins(class_)) break;
    cluster.append(class_);
    offset = next;
  }
  return offset;
}

std::size_t previousBoundaryByRules(std::string_view text, std::size_t offset) noexcept {
  std::size_t start = utf8::previousScalar(text, offset);
  BreakClass class_ = breakClassAt(text, start);
  while (start > 0) {
    const std::size_t before = utf8::previousScalar(text, start);
    const BreakClass classBefore = breakClassAt(text, before);
    if (join(classBefore, class_) == Join::never) break;
    start = before;
    class_ = classBefore;
  }
  // A boundary for sure, though those between flags may follow it.
  for (std::size_t next = start; next < offset; next = nextBoundary(text, next)) start = next;
  return start;
}

Int characterCount(std::string_view text) noexcept {
  std::size_t count = 0;
  while (!text.empty()) {
    const std::size_t plain = wholeASCIIPrefixLength(text);
    count += plain - countLineEndPairs(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty()) break;
    text.remove_prefix(nextBoundary(text, 0));
    ++count;
  }
  return static_cast<Int>(count);
}

}  // namespace velto
