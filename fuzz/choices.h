#pragma once

// Choices for a fuzz target that draws values instead of reading a format.

#include <cstdint>
#include <span>

namespace korrin::fuzz {

/// Makes choices of bytes, and always the first choice once they are used up.
class Choices {
 public:
  explicit Choices(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  int below(int limit) {
    int value = next();
    if (limit > 256) value = value << 8 | next();
    return value % limit;
  }

 private:
  int next() {
    if (bytes_.empty()) return 0;
    const int byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte;
  }

  std::span<const std::uint8_t> bytes_;
};

}  // namespace korrin::fuzz
