// Which memory the nodes of trees stand in.
#include "Velto/Parser/NodeMemory.h"

#include <algorithm>
#include <new>
#include <utility>

#include "Velto/Platform/AddressCheck.h"
#include "Velto/Platform/Ref.h"

namespace velto {

namespace {

// Reached through a fixed offset: it is looked at whenever a node is made.
[[gnu::tls_model("initial-exec")]] thread_local constinit NodeMemory::Planting* plantingOfThread = nullptr;

}  // namespace

/// The nodes that stand behind it hold it. So that they needn't be counted one by one while it is filled, it begins
/// with more holders than it can ever have; whoever has filled it lets go of those that there aren't.
class NodeMemory::Piece {
 public:
  static constexpr std::uint32_t most = UINT32_MAX / 2;

  const String file;
  const Uuid id;

  static Piece* withRoomFor(std::size_t bytes, String file) {
    return ::new (::operator new(sizeof(Piece) + bytes)) Piece(std::move(file));
  }
  static Piece& of(const void* memory, Distance distance) noexcept {
    return *std::launder(
        reinterpret_cast<Piece*>(const_cast<std::byte*>(static_cast<const std::byte*>(memory) - distance * word)));
  }

  std::byte* room() noexcept { return reinterpret_cast<std::byte*>(this + 1); }
  Distance distanceTo(const std::byte* memory) noexcept {
    return static_cast<Distance>(static_cast<std::size_t>(memory - reinterpret_cast<std::byte*>(this)) / word);
  }
  void release(std::uint32_t holders = 1) noexcept {
    if (!holders_.decrement(holders)) return;
    this->~Piece();
    ::operator delete(this);
  }

 private:
  explicit Piece(String file) : file(std::move(file)) { static_assert(sizeof(Piece) % word == 0); }

  HolderCount holders_{most};
};

NodeMemory::Planting::Planting(String file) noexcept
    : file_(std::move(file)), outer_(std::exchange(plantingOfThread, this)) {
}

NodeMemory::Planting::~Planting() {
  plantingOfThread = outer_;
  finishPiece();
}

void NodeMemory::Planting::finishPiece() noexcept {
  if (piece_) piece_->release(Piece::most - taken_);
}

/// Trees of many nodes get larger and larger pieces, so that small ones waste little. Only a single node can make one
/// larger than `largest`, so that it doesn't reach beyond what can be told. Stands apart, so that the usual way has few
/// registers to save.
[[gnu::noinline]] void NodeMemory::Planting::beginPiece(std::size_t least) {
  constexpr std::size_t smallest = 512;
  constexpr std::size_t largest = 8192;
  static_assert(largest / word <= farthest);
  const std::size_t usual = (size_ == 0 ? smallest : std::min(2 * size_, largest)) - sizeof(Piece);
  const std::size_t room = areAddressesChecked ? least : std::max(usual, least);
  Piece* const next = Piece::withRoomFor(room, file_);
  finishPiece();
  piece_ = next;
  size_ = sizeof(Piece) + room;
  next_ = piece_->room();
  end_ = next_ + room;
  taken_ = 0;
}

inline NodeMemory::Spot NodeMemory::Planting::take(std::size_t size) {
  if (size > static_cast<std::size_t>(end_ - next_)) [[unlikely]]
    beginPiece(size);
  ++taken_;
  std::byte* const memory = std::exchange(next_, next_ + size);
  return {memory, piece_->distanceTo(memory)};
}

NodeMemory::Spot NodeMemory::allocate(std::size_t size) {
  const std::size_t whole = (size + word - 1) / word * word;
  return plantingOfThread ? plantingOfThread->take(whole) : allocateAlone(whole);
}

NodeMemory::Spot NodeMemory::allocateAlone(std::size_t size) {
  Piece* const piece = Piece::withRoomFor(size, String());
  piece->release(Piece::most - 1);
  return {piece->room(), piece->distanceTo(piece->room())};
}

void NodeMemory::release(const void* memory, Distance distance) noexcept {
  Piece::of(memory, distance).release();
}

const String* NodeMemory::file() noexcept {
  return plantingOfThread ? &plantingOfThread->file_ : nullptr;
}

const String& NodeMemory::fileOf(const void* memory, Distance distance) noexcept {
  return Piece::of(memory, distance).file;
}

Uuid NodeMemory::identityOf(const void* memory, Distance distance) noexcept {
  return Piece::of(memory, distance).id.sibling(distance);
}

}  // namespace velto
