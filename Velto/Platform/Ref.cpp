// How objects end that nobody holds any more.
#include "Velto/Platform/Ref.h"

#include <boost/container/small_vector.hpp>
#include <new>

namespace velto {

namespace {

/// How many objects may end within one another. More than that wait, so that the stack stays shallow; most structures
/// are flatter, and end without any waiting.
constexpr int deepest = 16;

/// Room for many without a question for memory: objects end where there is none, too.
using Waiting = boost::container::small_vector<const Counted*, 1024>;

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

  /// Null when nothing waits.
  const Counted* next() noexcept {
    if (waiting_.empty()) return nullptr;
    const Counted* const object = waiting_.back();
    waiting_.pop_back();
    return object;
  }

 private:
  Waiting waiting_;
};

/// False where there is no memory left for those that wait; `object` has to end at once then.
bool waits(const Counted& object) noexcept try {
  disposals.waiting->push_back(&object);
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

}  // namespace

void Counted::dispose() const noexcept {
  if (disposals.depth == 0) {
    OutermostDisposal disposal;
    for (const Counted* object = this; object; object = disposal.next()) object->end();
  } else if (disposals.depth >= deepest && waits(*this)) {
    return;
  } else {
    ++disposals.depth;
    end();
    --disposals.depth;
  }
}

}  // namespace velto
