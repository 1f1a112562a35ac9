// The end of objects that hold one another.
#pragma once

namespace velto {

/// An object that nobody holds any more, and what ends it: for all objects that aren't `Counted` it has to be the same.
struct Ending {
  const void* object;
  void (*end)(const void* object) noexcept;
};

/// Ends the object now or, where it stands deep within others that are just ending, a little later. So a chain of a
/// million objects is freed with a stack that doesn't grow.
void endInTurn(Ending ending) noexcept;

}  // namespace velto
