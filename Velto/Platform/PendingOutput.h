// The output of this thread that waits in a buffer, for whoever must see it written first.
#pragma once

namespace velto {

/// A buffer that can have bytes waiting.
class PendingOutput {
 public:
  virtual ~PendingOutput() = default;

  /// Writes all that waits. What the handle throws passes through, with its bytes lost.
  virtual void flush() = 0;
};

/// The one buffer of this thread that has bytes waiting, null if there is none.
PendingOutput* pendingOutput() noexcept;

/// Registers the buffer that now has bytes waiting, or null. A buffer must take itself out before it goes.
void setPendingOutput(PendingOutput* output) noexcept;

/// Takes the registered buffer out and flushes it.
void flushPendingOutput();

/// The same where nothing may be thrown, as in a destructor: a lack of memory counts as an error of the handle.
void flushPendingOutputAnyway() noexcept;

}  // namespace velto
