// Memory for the nodes of trees.
#pragma once

#include <cstddef>

namespace [[gnu::visibility("default")]] velto {

/// Nodes are many, small and of many sizes, and those of a tree come and go together. So the nodes that are made while
/// a `Grove` lives stand side by side in pieces of memory; a piece goes with the last node in it, on whichever thread.
class NodeMemory {
  class Piece;

 public:
  /// One that is made later on the same thread takes over for as long as it lives.
  class Grove {
   public:
    Grove() noexcept;
    Grove(const Grove&) = delete;
    Grove& operator=(const Grove&) = delete;
    ~Grove();

   private:
    friend NodeMemory;

    Piece& pieceWithRoomFor(std::size_t size);
    void beginPiece(std::size_t size);

    Piece* piece_ = nullptr;  // the one that is being filled
    Grove* outer_;
  };

  /// For objects that need no more than the alignment of a pointer.
  static void* allocate(std::size_t size);
  static void release(void* memory) noexcept;
};

}  // namespace velto
