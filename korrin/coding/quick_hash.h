#pragma once

// Where a short text goes in a small table.

#include <cstddef>
#include <string_view>

namespace korrin::json {

/// A hash of length, middle byte and last byte. An author can choose colliding texts: use it only
/// in tables whose worst case is bounded.
constexpr std::size_t quickHash(std::string_view text) {
  if (text.empty()) return 0;
  const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  return text.size() + byte(text.size() / 2) * 7u + byte(text.size() - 1) * 13u;
}

}  // namespace korrin::json
