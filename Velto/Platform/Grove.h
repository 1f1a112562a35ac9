// Memory for objects that come and go together.
#pragma once

#include <cstddef>

namespace [[gnu::visibility("default")]] velto {

/// Objects that are many, small and of many sizes, and of which most end at the same time: those that are made in one
/// grove stand side by side in pieces of memory. A piece goes with the last object in it, on whichever thread, also
/// where the grove has gone before: whoever keeps one object keeps its piece.
///
/// The objects need no more than the alignment of a pointer.
class Grove {
 public:
  /// No piece is larger than `largest` bytes, unless an object is.
  explicit Grove(std::size_t largest = 8192) noexcept : largest_(largest) {}
  Grove(const Grove&) = delete;
  Grove& operator=(const Grove&) = delete;
  ~Grove();

  void* allocate(std::size_t size);
  /// For an object that stands in no grove, but ends like one that does.
  static void* allocateAlone(std::size_t size);
  static void release(void* memory) noexcept;

 private:
  class Piece;

  Piece& pieceWithRoomFor(std::size_t size);
  void beginPiece(std::size_t size);

  std::size_t largest_;
  Piece* piece_ = nullptr;  // the one that is being filled
};

/// Base of what may stand in a grove: `new (grove) T` makes it there, and a plain `new` alone.
class Plantable {
 public:
  static void* operator new(std::size_t size) { return Grove::allocateAlone(size); }
  static void* operator new(std::size_t size, Grove& grove) { return grove.allocate(size); }
  static void operator delete(void* memory) noexcept { Grove::release(memory); }
  static void operator delete(void* memory, Grove&) noexcept { Grove::release(memory); }
};

}  // namespace velto
