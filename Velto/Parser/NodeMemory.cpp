// Pieces of memory that are filled with nodes.
#include "Velto/Parser/NodeMemory.h"

#include <algorithm>
#include <new>
#include <utility>

#include "Velto/Platform/Ref.h"

namespace velto {

namespace {

#if defined(__has_feature)
constexpr bool isChecked = __has_feature(address_sanitizer);
#elif defined(__SANITIZE_ADDRESS__)
constexpr bool isChecked = true;
#else
constexpr bool isChecked = false;
#endif

thread_local NodeMemory::Grove* groveOfThread = nullptr;

}  // namespace

/// Held by each node in it, and by the grove that fills it.
class NodeMemory::Piece {
 public:
  /// Trees of many nodes get larger and larger pieces, so that small ones waste little.
  static Piece* withRoomFor(std::size_t least, const Piece* before) {
    const std::size_t usual = before ? std::min(2 * before->size(), largest) : smallest;
    const std::size_t size = std::max(usual, sizeof(Piece) + least);
    void* const memory = ::operator new(size);
    return ::new (memory) Piece(size);
  }

  bool hasRoomFor(std::size_t size) const noexcept { return size <= static_cast<std::size_t>(end_ - next_); }
  void* take(std::size_t size) noexcept {
    holders_.increment();
    return std::exchange(next_, next_ + size);
  }
  void release() noexcept {
    if (holders_.decrement()) ::operator delete(this);
  }

 private:
  // Where addresses are checked a piece holds one node, so that it shows when somebody reaches over its end.
  static constexpr std::size_t smallest = isChecked ? 0 : 512;
  static constexpr std::size_t largest = isChecked ? 0 : 8192;

  explicit Piece(std::size_t size) noexcept
      : next_(reinterpret_cast<char*>(this + 1)), end_(reinterpret_cast<char*>(this) + size) {}

  std::size_t size() const noexcept { return static_cast<std::size_t>(end_ - reinterpret_cast<const char*>(this)); }

  HolderCount holders_{1};
  char* next_;
  char* const end_;
};

NodeMemory::Grove::Grove() noexcept : outer_(std::exchange(groveOfThread, this)) {
}

NodeMemory::Grove::~Grove() {
  groveOfThread = outer_;
  if (piece_) piece_->release();
}

NodeMemory::Piece& NodeMemory::Grove::pieceWithRoomFor(std::size_t size) {
  if (!piece_ || !piece_->hasRoomFor(size)) [[unlikely]]
    beginPiece(size);
  return *piece_;
}

/// Stands apart, so that the usual way has few registers to save.
[[gnu::noinline]] void NodeMemory::Grove::beginPiece(std::size_t size) {
  Piece* const next = Piece::withRoomFor(size, piece_);
  if (piece_) piece_->release();
  piece_ = next;
}

/// Before each node stands its piece, or null where it stands alone.
void* NodeMemory::allocate(std::size_t size) {
  constexpr std::size_t word = sizeof(void*);
  const std::size_t whole = (size + word - 1) / word * word + word;
  Piece* const piece = groveOfThread ? &groveOfThread->pieceWithRoomFor(whole) : nullptr;
  void* const memory = piece ? piece->take(whole) : ::operator new(whole);
  return ::new (memory) Piece*(piece) + 1;
}

void NodeMemory::release(void* memory) noexcept {
  Piece** const place = static_cast<Piece**>(memory) - 1;
  if (*place) {
    (*place)->release();
  } else {
    ::operator delete(place);
  }
}

}  // namespace velto
