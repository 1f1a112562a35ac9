// Sorting alone: what it asks, what it gives, and that a wild comparison does no harm.
#include "Velto/Library/Sorting.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <numeric>
#include <random>
#include <stdexcept>
#include <string>

namespace velto::sorting {
namespace {

using Numbers = std::vector<int>;

const auto ascending = [](int left, int right) { return left < right; };

std::vector<Numbers> inputs(std::size_t count) {
  std::mt19937 generator(static_cast<unsigned>(count));
  Numbers rising(count);
  std::iota(rising.begin(), rising.end(), 0);
  Numbers falling(rising.rbegin(), rising.rend());
  Numbers shuffled = rising;
  std::shuffle(shuffled.begin(), shuffled.end(), generator);
  Numbers few = shuffled;
  for (int& number : few) number %= 3;
  Numbers organPipe = rising;
  for (std::size_t index = count / 2; index < count; ++index) organPipe[index] = static_cast<int>(count - index);
  return {rising, falling, shuffled, few, organPipe, Numbers(count, 7)};
}

TEST(Sorting, OrdersEveryKindOfInputOfEverySize) {
  for (std::size_t count = 0; count < 70; ++count) {
    for (Numbers numbers : inputs(count)) {
      Numbers expected = numbers;
      std::sort(expected.begin(), expected.end());
      sort(numbers, ascending);
      EXPECT_EQ(numbers, expected) << count;
    }
  }
  for (Numbers numbers : inputs(20000)) {
    Numbers expected = numbers;
    std::sort(expected.begin(), expected.end());
    sort(numbers, ascending);
    EXPECT_EQ(numbers, expected);
  }
}

TEST(Sorting, HeapSortOrdersARangeAndLeavesTheRest) {
  for (std::size_t count = 0; count < 70; ++count) {
    for (const Numbers& middle : inputs(count)) {
      Numbers numbers = middle;
      numbers.insert(numbers.begin(), 1000);
      numbers.push_back(-1000);
      Numbers expected = numbers;
      std::sort(expected.begin() + 1, expected.end() - 1);
      Sorter(numbers, ascending).heapSort(1, numbers.size() - 1);
      EXPECT_EQ(numbers, expected) << count;
    }
  }
}

TEST(Sorting, WithoutDivisionsLeftAHeapSortFinishes) {
  for (const int depthLimit : {0, 1, 2}) {
    for (Numbers numbers : inputs(500)) {
      Numbers expected = numbers;
      std::sort(expected.begin(), expected.end());
      Sorter(numbers, ascending).introspectiveSort(0, numbers.size(), depthLimit);
      EXPECT_EQ(numbers, expected);
    }
  }
}

TEST(Sorting, AsksNothingOfFewerThanTwoElements) {
  const auto fail = [](int, int) -> bool { throw std::logic_error("asked"); };
  Numbers none;
  Numbers one = {1};
  sort(none, fail);
  sort(one, fail);
  EXPECT_EQ(one, Numbers{1});
}

TEST(Sorting, BelowTwentyElementsItInsertsFromRightToLeft) {
  Numbers numbers = {2, 3, 1};
  std::vector<std::pair<int, int>> questions;
  sort(numbers, [&](int left, int right) {
    questions.emplace_back(left, right);
    return left < right;
  });
  EXPECT_EQ(numbers, (Numbers{1, 2, 3}));
  EXPECT_EQ(questions, (std::vector<std::pair<int, int>>{{3, 2}, {1, 3}, {1, 2}}));
}

TEST(Sorting, BelowTwentyElementsAnAnswerOfAlwaysTrueReverses) {
  Numbers numbers(19);
  std::iota(numbers.begin(), numbers.end(), 0);
  const Numbers reversed(numbers.rbegin(), numbers.rend());
  sort(numbers, [](int, int) { return true; });
  EXPECT_EQ(numbers, reversed);
}

TEST(Sorting, TheNumberOfQuestionsStaysWithinTheOrderOfCountTimesLogarithm) {
  constexpr std::size_t count = 20000;
  for (Numbers numbers : inputs(count)) {
    std::size_t questions = 0;
    sort(numbers, [&](int left, int right) {
      ++questions;
      return left < right;
    });
    EXPECT_LT(questions, 4 * count * 15);
  }
}

/// Says of two elements as late as possible which comes first, and then that it is the one that was compared last, most
/// likely a pivot. What it has said stays true, and each division splits off next to nothing.
class Adversary {
 public:
  explicit Adversary(std::size_t count) : places_(count, undecided) {}

  bool isBefore(int left, int right) {
    ++questions;
    int& leftPlace = places_[static_cast<std::size_t>(left)];
    int& rightPlace = places_[static_cast<std::size_t>(right)];
    if (leftPlace == undecided && rightPlace == undecided) (left == suspect_ ? leftPlace : rightPlace) = next_++;
    if (leftPlace == undecided) suspect_ = left;
    if (rightPlace == undecided) suspect_ = right;
    return leftPlace < rightPlace;
  }

  std::size_t questions = 0;

 private:
  static constexpr int undecided = std::numeric_limits<int>::max();

  std::vector<int> places_;
  int next_ = 0;
  int suspect_ = -1;
};

TEST(Sorting, NoOrderMakesItAskMore) {
  constexpr std::size_t count = 4096;
  Numbers numbers(count);
  std::iota(numbers.begin(), numbers.end(), 0);
  Adversary rising(count);
  sort(numbers, [&](int left, int right) { return rising.isBefore(left, right); });
  EXPECT_LT(rising.questions, 5 * count * 12);
  std::iota(numbers.begin(), numbers.end(), 0);
  Adversary falling(count);
  sort(numbers, [&](int left, int right) { return falling.isBefore(right, left); });
  EXPECT_LT(falling.questions, 5 * count * 12);
}

TEST(Sorting, AnInconsistentComparisonOnlyMixesTheElements) {
  std::mt19937 generator(1);
  const std::vector<std::function<bool(int, int)>> comparisons = {
      [](int, int) { return true; },
      [](int, int) { return false; },
      [](int left, int right) { return left <= right; },
      [](int left, int right) { return (left + right) % 3 == 0; },
      [&](int, int) { return generator() % 2 == 0; },
  };
  for (const auto& comparison : comparisons) {
    for (std::size_t count = 0; count < 300; count += 7) {
      for (Numbers numbers : inputs(count)) {
        Numbers before = numbers;
        sort(numbers, comparison);
        std::sort(before.begin(), before.end());
        std::sort(numbers.begin(), numbers.end());
        EXPECT_EQ(numbers, before);
      }
    }
  }
}

TEST(Sorting, AnExceptionLosesNoElement) {
  for (int limit = 0; limit < 300; ++limit) {
    std::vector<std::shared_ptr<int>> elements;
    for (int number = 0; number < 50; ++number) elements.push_back(std::make_shared<int>(number * 37 % 50));
    int questions = 0;
    try {
      sort(elements, [&](const std::shared_ptr<int>& left, const std::shared_ptr<int>& right) {
        if (questions++ == limit) throw std::runtime_error("enough");
        return *left < *right;
      });
    } catch (const std::runtime_error&) {
    }
    EXPECT_TRUE(std::all_of(elements.begin(), elements.end(), [](const auto& element) { return element != nullptr; }));
  }
}

}  // namespace
}  // namespace velto::sorting
