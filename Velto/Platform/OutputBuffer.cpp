// The buffer through which a thread writes to all its handles.
#include "Velto/Platform/OutputBuffer.h"

#include <pthread.h>

#include <atomic>
#include <new>
#include <utility>

namespace velto {

[[gnu::tls_model("initial-exec")]] thread_local constinit OutputBuffer* OutputBuffer::ofThread_ = nullptr;

namespace {

/// Set once objects of the program come to their ends, some of which may still write.
constinit std::atomic<bool> isProcessEnding = false;

}  // namespace

/// Ends the buffer of a thread with the thread, and that of the last one with the process. A `thread_local` object with
/// a destructor would do both, but where the C library finds no memory to take note of it, it stops the process.
class OutputBuffer::Owner {
 public:
  Owner() noexcept : hasKey_(::pthread_key_create(&key_, [](void*) { end(); }) == 0) {}
  Owner(const Owner&) = delete;
  Owner& operator=(const Owner&) = delete;
  ~Owner() {
    isProcessEnding = true;
    end();
    if (hasKey_) ::pthread_key_delete(key_);
  }

  void own(const OutputBuffer& made) const {
    if (!hasKey_ || ::pthread_setspecific(key_, &made) != 0) throw std::bad_alloc();
  }

 private:
  static void end() noexcept { delete std::exchange(ofThread_, nullptr); }

  pthread_key_t key_{};
  bool hasKey_;
};

OutputBuffer& OutputBuffer::makeOfThread() {
  static const Owner owner;
  auto made = std::make_unique<OutputBuffer>();
  if (!isProcessEnding) owner.own(*made);
  ofThread_ = made.release();
  return *ofThread_;
}

bool OutputBuffer::ofThreadHoldsBytesFor(const FileHandle& target) noexcept {
  return ofThread_ && ofThread_->target_.get() == &target;
}

void OutputBuffer::writeFirst(const std::shared_ptr<FileHandle>& target, std::string_view bytes) {
  flushPendingOutput();
  if (bytes.size() > capacity) return target->write(bytes);
  if (bytes.empty()) return;
  if (!bytes_) bytes_ = std::unique_ptr<char[]>(new char[capacity]);
  target_ = target;
  setPendingOutput(this);
  append(bytes);
}

OutputBuffer::~OutputBuffer() {
  if (target_) flushPendingOutputAnyway();
}

void OutputBuffer::flush() {
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
