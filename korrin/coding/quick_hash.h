#pragma once

// Where a short text goes in a small table.

#include <cstddef>
#include <string_view>

namespace korrin::json {

/// Tells texts apart that differ in length, in the middle or at the end, at the same cost for texts
/// of any length. Whoever writes a document can make its texts collide: a table that uses this
/// stays fast with any of them.
constexpr std::size_t quickHash(std::string_view text) {
  if (text.empty()) return 0;
  const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  return text.size() + byte(text.size() / 2) * 7u + byte(text.size() - 1) * 13u;
}

}  // namespace korrin::json
