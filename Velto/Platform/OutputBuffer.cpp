// The buffer through which a thread writes to all its handles.
#include "Velto/Platform/OutputBuffer.h"

#include <utility>

namespace velto {
namespace {

// A plain pointer, so that a handle that outlives the end of its thread finds none instead of a dead one.
thread_local constinit OutputBuffer* buffer = nullptr;

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

void OutputBuffer::write(const std::shared_ptr<FileHandle>& target, std::string_view bytes) {
  if (target_ != target || bytes_.size() + bytes.size() > capacity) flushPendingOutput();
  if (bytes.size() > capacity) return target->write(bytes);
  if (bytes.empty()) return;
  if (!target_) {
    target_ = target;
    bytes_.reserve(capacity);
    setPendingOutput(this);
  }
  bytes_.append(bytes);
}

void OutputBuffer::flush() noexcept {
  while (target_) writeOut();
}

/// What waits is taken out before it is written: the target may be a handle of a host that writes to another handle,
/// and so into this very buffer.
void OutputBuffer::writeOut() {
  const std::shared_ptr<FileHandle> target = std::exchange(target_, nullptr);
  std::string bytes = std::exchange(bytes_, std::string());
  setPendingOutput(nullptr);
  target->write(bytes);
  if (target_) return;
  bytes.clear();
  bytes_ = std::move(bytes);
}

}  // namespace velto
