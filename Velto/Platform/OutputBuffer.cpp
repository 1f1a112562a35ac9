// The buffer through which a thread writes to all its handles.
#include "Velto/Platform/OutputBuffer.h"

#include <utility>

namespace velto {
namespace {

// A plain pointer, so that a handle that outlives the end of its thread finds none instead of a dead one.
// Reached through a fixed offset: every piece of text that is printed asks for it.
[[gnu::tls_model("initial-exec")]] thread_local constinit OutputBuffer* buffer = nullptr;

struct BufferOwner {
  ~BufferOwner() { delete std::exchange(buffer, nullptr); }
};

}  // namespace

OutputBuffer& OutputBuffer::ofThread() {
  if (!buffer) {
    thread_local const BufferOwner owner;
    buffer = new OutputBuffer;
  }
  return *buffer;
}

/// Begins to hold bytes for `target`, with all others written before.
void OutputBuffer::writeElsewhere(const std::shared_ptr<FileHandle>& target, std::string_view bytes) {
  flushPendingOutput();
  if (bytes.size() > capacity) return target->write(bytes);
  if (bytes.empty()) return;
  if (!bytes_) bytes_ = std::make_unique_for_overwrite<char[]>(capacity);
  target_ = target;
  setPendingOutput(this);
  append(bytes);
}

void OutputBuffer::flush() noexcept {
  while (target_) writeOut();
}

/// What waits is taken out before it is written: the target may be a handle of a host that writes to another handle,
/// and so into this very buffer.
void OutputBuffer::writeOut() {
  const std::shared_ptr<FileHandle> target = std::exchange(target_, nullptr);
  std::unique_ptr<char[]> bytes = std::move(bytes_);
  const std::size_t size = std::exchange(size_, 0);
  setPendingOutput(nullptr);
  target->write({bytes.get(), size});
  if (!target_) bytes_ = std::move(bytes);
}

}  // namespace velto
