#pragma once

// The pointer behind every value that shares storage with its copies. It is half the size of
// std::shared_ptr, which decides the size of a List's spine, and knows whether it is the only
// owner, which decides whether an edit may happen in place.

#include <atomic>
#include <cstddef>
#include <utility>

#if __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#endif

#pragma GCC visibility push(default)

namespace korrin {

namespace detail {

/// Whether the C library vouches that no other thread runs: counting needs no atomic
/// read-modify-write then, which costs many times as much as an addition.
inline bool isOnlyThread() noexcept {
#if __has_include(<sys/single_threaded.h>)
  return __libc_single_threaded != 0;
#else
  return false;
#endif
}

}  // namespace detail

/// Base of everything held by `Shared`: the number of owners.
class Counted {
 public:
  Counted() = default;
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

 private:
  template <class Object>
  friend class Shared;
  std::atomic<std::size_t> owners_{0};
};

/// Counted ownership of a heap object derived from `Counted`, or of nothing. Copies cost one
/// increment, an atomic one once the process has started a thread; distinct copies may be used from
/// different threads at the same time. The object is disposed of by its static `destroy(Object*)`
/// when its last owner goes.
template <class Object>
class Shared {
 public:
  Shared() = default;
  /// Takes part in owning `object`, which may be null.
  explicit Shared(Object* object) noexcept : object_(object) { retain(); }
  /// Takes over a new object that nothing else refers to; cheaper than the constructor.
  static Shared adopt(Object* fresh) noexcept {
    fresh->owners_.store(1, std::memory_order_relaxed);
    return uncounted(fresh);
  }
  /// Takes over, or will leave to another, a share that is counted already.
  static Shared uncounted(Object* object) noexcept {
    Shared owner;
    owner.object_ = object;
    return owner;
  }
  Shared(const Shared& other) noexcept : object_(other.object_) { retain(); }
  Shared(Shared&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  Shared& operator=(Shared other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Shared() { release(); }

  Object* get() const noexcept { return object_; }
  Object& operator*() const noexcept { return *object_; }
  Object* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }

  /// Whether this is the only owner, so that a change is seen by nobody else.
  bool isUnique() const noexcept {
    // Acquire: what a former owner on another thread read is read before it is changed here.
    return object_->owners_.load(std::memory_order_acquire) == 1;
  }

  /// Ends this share of an object, which there must be, and owns nothing from then on. Returns the
  /// object if no other owner is left: its disposal is then the caller's. For a `destroy` that
  /// takes apart a deep structure without calling itself.
  Object* giveUp() noexcept {
    Object* const object = std::exchange(object_, nullptr);
    return endsLastShareOf(*object) ? object : nullptr;
  }

 private:
  void retain() noexcept {
    if (object_ == nullptr) return;
    std::atomic<std::size_t>& owners = object_->owners_;
    if (detail::isOnlyThread())
      owners.store(owners.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    else
      owners.fetch_add(1, std::memory_order_relaxed);
  }
  void release() noexcept {
    if (object_ != nullptr && endsLastShareOf(*object_)) Object::destroy(object_);
  }
  /// Ends one share of the object; says whether it was the last.
  static bool endsLastShareOf(Object& object) noexcept {
    // A sole owner needs no read-modify-write: nobody else can gain or lose a share meanwhile.
    const std::size_t count = object.owners_.load(std::memory_order_acquire);
    if (count == 1) return true;
    if (!detail::isOnlyThread()) return object.owners_.fetch_sub(1, std::memory_order_acq_rel) == 1;
    object.owners_.store(count - 1, std::memory_order_relaxed);
    return false;
  }

  Object* object_ = nullptr;
};

}  // namespace korrin

#pragma GCC visibility pop
