// Two texts side by side, for people.
#include "Difference.h"

#include <algorithm>
#include <sstream>
#include <vector>

#include "Escapes.h"

namespace harness {

namespace {

std::vector<std::string> linesOf(const std::string& text) {
  std::istringstream stream(isPlain(text) ? text : escape(text));
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// `lengths[i][j]`: how many lines the texts from line i and from line j on have in common, in order.
using Lengths = std::vector<std::vector<std::size_t>>;

Lengths commonLengths(const std::vector<std::string>& left, const std::vector<std::string>& right) {
  Lengths lengths(left.size() + 1, std::vector<std::size_t>(right.size() + 1, 0));
  for (std::size_t i = left.size(); i > 0; --i) {
    for (std::size_t j = right.size(); j > 0; --j) {
      lengths[i - 1][j - 1] =
          left[i - 1] == right[j - 1] ? lengths[i][j] + 1 : std::max(lengths[i][j - 1], lengths[i - 1][j]);
    }
  }
  return lengths;
}

}  // namespace

std::string difference(const std::string& expected, const std::string& actual) {
  const std::vector<std::string> left = linesOf(expected);
  const std::vector<std::string> right = linesOf(actual);
  const Lengths lengths = commonLengths(left, right);
  std::string result;
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < left.size() || j < right.size()) {
    if (i < left.size() && j < right.size() && left[i] == right[j]) {
      result += "    " + left[i++] + "\n";
      j++;
    } else if (j == right.size() || (i < left.size() && lengths[i + 1][j] >= lengths[i][j + 1])) {
      result += "  - " + left[i++] + "\n";
    } else {
      result += "  + " + right[j++] + "\n";
    }
  }
  return result;
}

}  // namespace harness
