// Shared ownership by a count inside the object, and the weak reference that goes with it.
#pragma once

#include <atomic>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <utility>

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

#include "Velto/Forward.h"

namespace [[gnu::visibility("default")]] velto {

/// A count of holders. A locked instruction is needed only once the process has had a second thread.
class HolderCount {
 public:
  constexpr explicit HolderCount(std::uint32_t initial) noexcept : count_(initial) {}

  [[gnu::always_inline]] void increment() noexcept {
    if (isSingleThreaded()) {
      count_.store(count_.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    } else {
      count_.fetch_add(1, std::memory_order_relaxed);
    }
  }

  /// True when the last holder has gone.
  [[gnu::always_inline]] bool decrement(std::uint32_t holders = 1) noexcept {
    if (isSingleThreaded()) {
      const std::uint32_t left = count_.load(std::memory_order_relaxed) - holders;
      count_.store(left, std::memory_order_relaxed);
      return left == 0;
    }
    return count_.fetch_sub(holders, std::memory_order_acq_rel) == holders;
  }

  /// Acquires: whoever finds itself the only holder may write where former holders have read.
  std::uint32_t get() const noexcept { return count_.load(std::memory_order_acquire); }

 private:
  static bool isSingleThreaded() noexcept {
#if __has_include(<sys/single_threaded.h>)
    return __libc_single_threaded != 0;
#else
    return false;
#endif
  }

  std::atomic<std::uint32_t> count_;
};

/// Base of what `Ref` holds. A copy of a counted object is a new object without holders.
class Counted {
 public:
  constexpr Counted() noexcept = default;
  Counted(const Counted&) noexcept {}
  Counted& operator=(const Counted&) noexcept { return *this; }
  virtual ~Counted() = default;

  [[gnu::always_inline]] void retain() const noexcept { holders_.increment(); }
  [[gnu::always_inline]] void release() const noexcept {
    if (holders_.decrement()) dispose();
  }
  std::uint32_t holderCount() const noexcept { return holders_.get(); }

 protected:
  /// Runs when the last holder has gone: ends this object, now or, where it stands deep within others that are being
  /// disposed of, a little later.
  virtual void dispose() const noexcept;

 private:
  virtual void end() const noexcept { delete this; }

  mutable HolderCount holders_{0};
};

/// A pointer to the one type will do where a pointer to the other is wanted.
template <typename From, typename To>
concept ReferableAs = std::convertible_to<From*, To*>;

/// A shared owner of a `Counted` object, one pointer in size; may be empty.
template <typename T>
class Ref {
 public:
  constexpr Ref() noexcept = default;
  constexpr Ref(std::nullptr_t) noexcept {}
  [[gnu::always_inline]] explicit Ref(T* pointer) noexcept : pointer_(pointer) {
    if (pointer_) pointer_->retain();
  }
  [[gnu::always_inline]] Ref(const Ref& other) noexcept : Ref(other.pointer_) {}
  [[gnu::always_inline]] Ref(Ref&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  template <ReferableAs<T> U>
  Ref(Ref<U> other) noexcept : pointer_(other.detach()) {}
  [[gnu::always_inline]] Ref& operator=(Ref other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  void swap(Ref& other) noexcept { std::swap(pointer_, other.pointer_); }
  [[gnu::always_inline]] ~Ref() {
    if (pointer_) pointer_->release();
  }

  T* get() const noexcept { return pointer_; }
  T& operator*() const noexcept { return *pointer_; }
  T* operator->() const noexcept { return pointer_; }
  explicit operator bool() const noexcept { return pointer_ != nullptr; }

  /// Gives the hold to the caller, who must `release` it.
  T* detach() noexcept { return std::exchange(pointer_, nullptr); }

  friend bool operator==(const Ref& left, const Ref& right) noexcept { return left.pointer_ == right.pointer_; }
  friend bool operator==(const Ref& left, std::nullptr_t) noexcept { return left.pointer_ == nullptr; }

 private:
  T* pointer_ = nullptr;
};

template <typename T, typename... Parameters>
Ref<T> makeRef(Parameters&&... parameters) {
  return Ref<T>(new T(std::forward<Parameters>(parameters)...));
}

/// Base of what `WeakRef` can look at. When the last `Ref` goes, `clear` lets go of the contents; the memory stays
/// until the last `WeakRef` has gone, so that a dead object can be told from a live one.
class WeaklyCounted : public Counted {
 public:
  bool isAlive() const noexcept { return holderCount() > 0; }
  /// How many `WeakRef`s look at it.
  std::uint32_t observerCount() const noexcept { return observers_.get() - (isAlive() ? 1 : 0); }
  bool isObserved() const noexcept { return observerCount() != 0; }
  /// Of an object that a `Ref` holds: whether no other one does, and nothing observes it. Both counts are at least 1,
  /// and if no other bit is set they are 1.
  [[gnu::always_inline]] bool isUnshared() const noexcept { return (holderCount() | observers_.get()) == 1; }

  [[gnu::always_inline]] void observe() const noexcept { observers_.increment(); }
  [[gnu::always_inline]] void unobserve() const noexcept {
    if (observers_.decrement()) dispose();
  }

 protected:
  virtual void clear() noexcept = 0;

 private:
  /// Runs twice: when the last `Ref` has gone, and when the last observer has.
  void end() const noexcept final {
    if (observers_.get() == 0) {
      delete this;
    } else {
      const_cast<WeaklyCounted*>(this)->clear();
      unobserve();
    }
  }

  mutable HolderCount observers_{1};  // all `Ref`s together count as one observer
};

/// Looks at a `WeaklyCounted` object without keeping it alive; reads as null once it is dead.
template <typename T>
class WeakRef {
 public:
  constexpr WeakRef() noexcept = default;
  explicit WeakRef(T* pointer) noexcept : pointer_(pointer) {
    if (pointer_) pointer_->observe();
  }
  WeakRef(const WeakRef& other) noexcept : WeakRef(other.pointer_) {}
  WeakRef(WeakRef&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  WeakRef& operator=(WeakRef other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ~WeakRef() {
    if (pointer_) pointer_->unobserve();
  }

  T* get() const noexcept {
    T* const pointer = pointer_;
    return pointer && pointer->isAlive() ? pointer : nullptr;
  }

 private:
  T* pointer_ = nullptr;
};

}  // namespace velto
