#pragma once

// An open file that is closed with its scope.

#include <utility>

namespace korrin::files {

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor();
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }

  int number() const { return number_; }
  bool isOpen() const { return number_ >= 0; }

 private:
  int number_ = -1;
};

}  // namespace korrin::files
