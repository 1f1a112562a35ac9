// Pieces of memory that are filled with objects.
#include "Velto/Platform/Grove.h"

#include <algorithm>
#include <new>
#include <utility>

#include "Velto/Platform/AddressCheck.h"
#include "Velto/Platform/Ref.h"

namespace velto {

namespace {

constexpr std::size_t word = sizeof(void*);

/// With the word before the object, where its piece stands; null where it stands alone.
constexpr std::size_t wholeSize(std::size_t size) noexcept {
  return (size + word - 1) / word * word + word;
}

}  // namespace

/// Held by each object in it, and by the grove that fills it.
class Grove::Piece {
 public:
  /// Groves of many objects get larger and larger pieces, so that small ones waste little.
  static Piece* withRoomFor(std::size_t least, const Piece* before, std::size_t largest) {
    const std::size_t usual = areAddressesChecked ? 0 : before ? std::min(2 * before->size(), largest) : smallest;
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
  static constexpr std::size_t smallest = 512;

  explicit Piece(std::size_t size) noexcept
      : next_(reinterpret_cast<char*>(this + 1)), end_(reinterpret_cast<char*>(this) + size) {}

  std::size_t size() const noexcept { return static_cast<std::size_t>(end_ - reinterpret_cast<const char*>(this)); }

  HolderCount holders_{1};
  char* next_;
  char* const end_;
};

Grove::~Grove() {
  if (piece_) piece_->release();
}

void* Grove::allocate(std::size_t size) {
  Piece& piece = pieceWithRoomFor(wholeSize(size));
  return ::new (piece.take(wholeSize(size))) Piece*(&piece) + 1;
}

void* Grove::allocateAlone(std::size_t size) {
  return ::new (::operator new(wholeSize(size))) Piece*(nullptr) + 1;
}

void Grove::release(void* memory) noexcept {
  Piece** const place = static_cast<Piece**>(memory) - 1;
  if (*place) {
    (*place)->release();
  } else {
    ::operator delete(place);
  }
}

Grove::Piece& Grove::pieceWithRoomFor(std::size_t size) {
  if (!piece_ || !piece_->hasRoomFor(size)) [[unlikely]]
    beginPiece(size);
  return *piece_;
}

/// Stands apart, so that the usual way has few registers to save.
[[gnu::noinline]] void Grove::beginPiece(std::size_t size) {
  Piece* const next = Piece::withRoomFor(size, piece_, largest_);
  if (piece_) piece_->release();
  piece_ = next;
}

}  // namespace velto
