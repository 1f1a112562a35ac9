// Which memory the nodes of trees stand in.
#include "Velto/Parser/NodeMemory.h"

#include <utility>

namespace velto {

namespace {

thread_local NodeMemory::Planting* plantingOfThread = nullptr;

}  // namespace

NodeMemory::Planting::Planting() noexcept : outer_(std::exchange(plantingOfThread, this)) {
}

NodeMemory::Planting::~Planting() {
  plantingOfThread = outer_;
}

void* NodeMemory::allocate(std::size_t size) {
  return plantingOfThread ? plantingOfThread->grove_.allocate(size) : Grove::allocateAlone(size);
}

}  // namespace velto
