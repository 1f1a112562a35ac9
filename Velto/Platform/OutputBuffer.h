// The buffer through which a thread writes to all its handles.
#pragma once

#include <memory>
#include <string_view>

#include "Velto/Platform/FileSystem.h"
#include "Velto/Platform/PendingOutput.h"

namespace velto {

/// Holds bytes for one handle at a time: whoever writes to another one makes it write out first, so that the order of
/// the bytes is that of the calls, whatever the handles lead to.
class OutputBuffer final : public PendingOutput {
 public:
  static constexpr std::size_t capacity = 64 * 1024;

  /// That of this thread, made when it is first asked for. It writes out what is left when the thread ends.
  static OutputBuffer& ofThread() { return ofThread_ ? *ofThread_ : makeOfThread(); }
  /// Whether the buffer of this thread holds bytes for `target`.
  static bool ofThreadHoldsBytesFor(const FileHandle& target) noexcept;

  ~OutputBuffer() override;

  /// Writes the bytes if this thread has just written to `target`, and has room for them; else false.
  static bool writeOn(const FileHandle& target, std::string_view bytes) noexcept {
    OutputBuffer* const buffer = ofThread_;
    const bool hasRoom = buffer && buffer->hasRoomFor(target, bytes);
    if (hasRoom) buffer->append(bytes);
    return hasRoom;
  }
  /// Begins to hold bytes for `target`, with all others written before.
  void writeFirst(const std::shared_ptr<FileHandle>& target, std::string_view bytes);
  void flush() override;

 private:
  // A plain pointer, so that a handle that outlives the end of its thread finds none instead of a dead one.
  // Reached through a fixed offset: every piece of text that is printed asks for it.
  [[gnu::tls_model("initial-exec")]] static thread_local constinit OutputBuffer* ofThread_;
  class Owner;

  [[gnu::cold, gnu::noinline]] static OutputBuffer& makeOfThread();
  bool hasRoomFor(const FileHandle& target, std::string_view bytes) const noexcept {
    return target_.get() == &target && bytes.size() <= capacity - size_;
  }
  /// Copies last, so that nothing has to be kept meanwhile.
  void append(std::string_view bytes) noexcept {
    char* const end = bytes_.get() + size_;
    size_ += bytes.size();
    bytes.copy(end, bytes.size());
  }
  void writeOut();

  std::shared_ptr<FileHandle> target_;  // null while nothing waits
  std::unique_ptr<char[]> bytes_;       // null until it is needed, and while it is being written
  std::size_t size_ = 0;
};

}  // namespace velto
