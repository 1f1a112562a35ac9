// The buffer through which a thread writes to all its handles.
#include "Velto/Platform/OutputBuffer.h"

#include <utility>

namespace velto {

[[gnu::tls_model("initial-exec")]] thread_local constinit OutputBuffer* OutputBuffer::ofThread_ = nullptr;

struct OutputBuffer::Owner {
  ~Owner() { delete std::exchange(ofThread_, nullptr); }
};

OutputBuffer& OutputBuffer::makeOfThread() {
  thread_local const Owner owner;
  ofThread_ = new OutputBuffer;
  return *ofThread_;
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
