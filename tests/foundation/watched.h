#pragma once

// An element that reports what happens to it, and fails when told to.

#include "korrin/foundation/list.h"

namespace korrin {

struct ElementFailure {};

/// What the elements of one test report to.
struct Watch {
  int alive = 0;
  int copies = 0;
  /// How many more copies and moves succeed; all of them while negative.
  int untilFailure = -1;

  void mayFail() {
    if (untilFailure == 0) throw ElementFailure{};
    if (untilFailure > 0) --untilFailure;
  }
};

/// Has no default value; both copying and moving may throw.
class Watched {
 public:
  Watched(Watch& watch, int value) : watch_(&watch), value_(value) { ++watch_->alive; }
  Watched(const Watched& other) : watch_(other.watch_), value_(other.value_) {
    watch_->mayFail();
    ++watch_->copies;
    ++watch_->alive;
  }
  Watched(Watched&& other) : watch_(other.watch_), value_(other.value_) {
    watch_->mayFail();
    other.value_ = -1'000'000;
    ++watch_->alive;
  }
  Watched& operator=(const Watched& other) = delete;
  ~Watched() { --watch_->alive; }

  int value() const { return value_; }
  void setValue(int value) { value_ = value; }

  friend bool operator==(const Watched& a, const Watched& b) { return a.value_ == b.value_; }

 private:
  Watch* watch_;
  int value_;
};

/// So many elements, numbered from 0 on, of which `watch` has seen no copies yet.
inline List<Watched> watched(Watch& watch, int count) {
  List<Watched> list;
  for (int i = 0; i < count; ++i) list.emplace_back(watch, i);
  watch.copies = 0;
  return list;
}

}  // namespace korrin
