// How objects end that nobody holds any more.
#include "Velto/Platform/Disposal.h"

#include <boost/container/small_vector.hpp>
#include <cstdint>
#include <new>

#include "Velto/Platform/Ref.h"

namespace velto {

namespace {

/// How many objects may end within one another. More than that wait, so that the stack stays shallow; most structures
/// are flatter, and end without any waiting.
constexpr int deepest = 16;

/// Room for many without a question for memory: objects end where there is none, too. That they may be of two kinds
/// takes no room, as no object has an odd address: that one byte behind an object tells that it is of the other kind.
class Waiting {
 public:
  void push(const Ending& ending) {
    if (objects_.empty()) firstEnd_ = ending.end;
    const bool isOfFirst = ending.end == firstEnd_;
    if (!isOfFirst) otherEnd_ = ending.end;
    objects_.push_back(static_cast<const char*>(ending.object) + (isOfFirst ? 0 : 1));
  }
  bool isEmpty() const noexcept { return objects_.empty(); }
  Ending pop() noexcept {
    const char* const object = objects_.back();
    objects_.pop_back();
    const bool isOfFirst = reinterpret_cast<std::uintptr_t>(object) % 2 == 0;
    return isOfFirst ? Ending{object, firstEnd_} : Ending{object - 1, otherEnd_};
  }

 private:
  boost::container::small_vector<const char*, 1024> objects_;
  void (*firstEnd_)(const void* object) noexcept = nullptr;
  void (*otherEnd_)(const void* object) noexcept = nullptr;
};

/// What the thread is disposing of just now. A destructor has no other way to hand something on.
struct Disposals {
  int depth = 0;
  Waiting* waiting = nullptr;  // that of the outermost disposal; null when there is none
};

// Reached through a fixed offset: it is looked at whenever an object ends.
[[gnu::tls_model("initial-exec")]] thread_local constinit Disposals disposals;

/// The outermost disposal of a thread, which lasts until nothing waits any more.
class OutermostDisposal {
 public:
  OutermostDisposal() noexcept { disposals = {1, &waiting_}; }
  OutermostDisposal(const OutermostDisposal&) = delete;
  OutermostDisposal& operator=(const OutermostDisposal&) = delete;
  ~OutermostDisposal() { disposals = {}; }

  void endThoseThatWait() noexcept {
    while (!waiting_.isEmpty()) {
      const Ending next = waiting_.pop();
      next.end(next.object);
    }
  }

 private:
  Waiting waiting_;
};

/// False where there is no memory left for those that wait; the object has to end at once then.
bool waits(Ending ending) noexcept try {
  disposals.waiting->push(ending);
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

/// Stands apart, so that those within it don't take the room for many.
[[gnu::noinline]] void endOutermost(Ending ending) noexcept {
  OutermostDisposal disposal;
  ending.end(ending.object);
  disposal.endThoseThatWait();
}

}  // namespace

void endInTurn(Ending ending) noexcept {
  if (disposals.depth == 0) {
    endOutermost(ending);
  } else if (disposals.depth >= deepest && waits(ending)) {
    return;
  } else {
    ++disposals.depth;
    ending.end(ending.object);
    --disposals.depth;
  }
}

void Counted::dispose() const noexcept {
  endInTurn({this, [](const void* object) noexcept { static_cast<const Counted*>(object)->end(); }});
}

}  // namespace velto
