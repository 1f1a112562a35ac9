// Memory for the nodes of trees.
#pragma once

#include <cstddef>

#include "Velto/Platform/Grove.h"

namespace [[gnu::visibility("default")]] velto {

/// The nodes of a tree come and go together, so that those that are made while a tree is parsed stand in one grove.
class NodeMemory {
 public:
  /// Where the nodes stand that this thread makes while it lives. One that is made later takes over for as long as it
  /// lives.
  class Planting {
   public:
    Planting() noexcept;
    Planting(const Planting&) = delete;
    Planting& operator=(const Planting&) = delete;
    ~Planting();

   private:
    friend NodeMemory;

    Grove grove_;
    Planting* outer_;
  };

  static void* allocate(std::size_t size);
  static void release(void* memory) noexcept { Grove::release(memory); }
};

}  // namespace velto
