// Memory for the nodes of trees.
#pragma once

#include <cstddef>
#include <cstdint>

#include "Velto/Platform/String.h"
#include "Velto/Platform/Uuid.h"

namespace velto {

/// The nodes of a tree come and go together, so that those that are made while a tree is parsed stand side by side in
/// pieces of memory. A piece goes with the last node in it, on whichever thread. What all nodes of a piece share is
/// told once, by the piece; each of them finds it by its distance from there.
class NodeMemory {
 public:
  class Piece;

  /// How many words lie between the beginning of a piece and something in it.
  using Distance = std::uint16_t;
  static constexpr std::size_t word = sizeof(void*);
  static constexpr Distance farthest = 0x3FFF;

  struct Spot {
    std::byte* memory;
    Distance distance;
  };

  /// Where the nodes stand that this thread makes while it lives. One that is made later takes over for as long as it
  /// lives.
  class Planting {
   public:
    /// For the nodes of a tree whose ranges lie in `file`.
    explicit Planting(String file) noexcept;
    Planting(const Planting&) = delete;
    Planting& operator=(const Planting&) = delete;
    ~Planting();

   private:
    friend NodeMemory;

    Spot take(std::size_t size);
    void beginPiece(std::size_t least);
    void finishPiece() noexcept;

    String file_;
    Piece* piece_ = nullptr;  // the one that is being filled
    std::size_t size_ = 0;    // of that, in bytes
    std::byte* next_ = nullptr;
    std::byte* end_ = nullptr;
    std::uint32_t taken_ = 0;  // of its places
    Planting* outer_;
  };

  /// Outside of any planting in a piece of its own.
  static Spot allocate(std::size_t size);
  static void release(const void* memory, Distance distance) noexcept;

  /// The file of the innermost planting; null outside of any.
  static const String* file() noexcept;
  /// That of the planting in which this was made; empty outside of any.
  static const String& fileOf(const void* memory, Distance distance) noexcept;
  /// An identity that nothing else has, for what stands there.
  static Uuid identityOf(const void* memory, Distance distance) noexcept;

 private:
  static Spot allocateAlone(std::size_t size);
};

}  // namespace velto
