// Sorting by a function that need not be an ordering.
#pragma once

#include <bit>
#include <cstddef>
#include <utility>
#include <vector>

namespace velto::sorting {

/// Ranges below this size are sorted by insertion.
inline constexpr std::size_t insertionLimit = 20;

/// Sorts a range of a vector, of which it never reads an element outside, whatever `isBefore` answers. That may throw;
/// the elements are then all there, in some order.
template <typename Element, typename IsBefore>
class Sorter {
 public:
  Sorter(std::vector<Element>& elements, const IsBefore& isBefore) noexcept
      : elements_(elements), isBefore_(isBefore) {}

  void sort() {
    const std::size_t count = elements_.size();
    if (count > 1) introspectiveSort(0, count, 2 * (static_cast<int>(std::bit_width(count)) - 1));
  }

  /// Asks `isBefore(new, earlier)` from right to left, and moves on while it is true.
  void insertionSort(std::size_t begin, std::size_t end) {
    for (std::size_t sorted = begin + 1; sorted < end; ++sorted) {
      for (std::size_t place = sorted; place > begin && isBefore(place, place - 1); --place) exchange(place, place - 1);
    }
  }

  void heapSort(std::size_t begin, std::size_t end) {
    const std::size_t count = end - begin;
    for (std::size_t root = count / 2; root > 0; --root) siftDown(begin, root - 1, count);
    for (std::size_t left = count; left > 1; --left) {
      exchange(begin, begin + left - 1);
      siftDown(begin, 0, left - 1);
    }
  }

  /// Quicksort, until `depthLimit` divisions stand one within the other; a heap sort finishes what is left then.
  void introspectiveSort(std::size_t begin, std::size_t end, int depthLimit) {
    if (end - begin < insertionLimit) return insertionSort(begin, end);
    if (depthLimit == 0) return heapSort(begin, end);
    const std::size_t pivot = partition(begin, end);
    introspectiveSort(begin, pivot, depthLimit - 1);
    introspectiveSort(pivot + 1, end, depthLimit - 1);
  }

 private:
  bool isBefore(std::size_t left, std::size_t right) { return isBefore_(elements_[left], elements_[right]); }
  void exchange(std::size_t left, std::size_t right) { std::swap(elements_[left], elements_[right]); }

  /// Moves what comes before a pivot to the left of it and the rest to the right; gives the place of the pivot.
  std::size_t partition(std::size_t begin, std::size_t end) {
    moveMedianToFront(begin, end);
    std::size_t left = begin + 1;
    std::size_t right = end - 1;
    while (true) {
      while (left <= right && isBefore(left, begin)) ++left;
      while (left <= right && isBefore(begin, right)) --right;
      if (left >= right) break;
      exchange(left++, right--);
    }
    const std::size_t place = left - 1;
    exchange(begin, place);
    return place;
  }

  /// Orders the first, the middle and the last element, and puts the middle one of the three in front as the pivot.
  void moveMedianToFront(std::size_t begin, std::size_t end) {
    const std::size_t middle = begin + (end - begin) / 2;
    const std::size_t last = end - 1;
    if (isBefore(middle, begin)) exchange(middle, begin);
    if (isBefore(last, middle)) {
      exchange(last, middle);
      if (isBefore(middle, begin)) exchange(middle, begin);
    }
    exchange(begin, middle);
  }

  void siftDown(std::size_t begin, std::size_t root, std::size_t count) {
    while (root * 2 + 1 < count) {
      std::size_t child = root * 2 + 1;
      if (child + 1 < count && isBefore(begin + child, begin + child + 1)) ++child;
      if (!isBefore(begin + root, begin + child)) return;
      exchange(begin + root, begin + child);
      root = child;
    }
  }

  std::vector<Element>& elements_;
  const IsBefore& isBefore_;
};

template <typename Element, typename IsBefore>
void sort(std::vector<Element>& elements, const IsBefore& isBefore) {
  Sorter<Element, IsBefore>(elements, isBefore).sort();
}

}  // namespace velto::sorting
