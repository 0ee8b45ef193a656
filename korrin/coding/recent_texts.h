#pragma once

// Texts that a document repeats.

#include <array>
#include <cstddef>
#include <string_view>

#include "korrin/foundation/text.h"

namespace korrin::json {

/// Gives equal texts that stand near each other one storage: a plot names the same symbols, stands
/// and suppliers over and over.
class RecentTexts {
 public:
  /// `raw` as a text.
  const Text& text(std::string_view raw) {
    Text& slot = slots_[slotOf(raw)];
    if (std::string_view(slot) != raw) slot = Text(raw);
    return slot;
  }

 private:
  static constexpr std::size_t slotCount = 64;

  static std::size_t slotOf(std::string_view raw) {
    if (raw.empty()) return 0;
    const auto byte = [raw](std::size_t i) { return static_cast<unsigned char>(raw[i]); };
    return (raw.size() + byte(raw.size() / 2) * 7u + byte(raw.size() - 1) * 13u) % slotCount;
  }

  std::array<Text, slotCount> slots_;
};

}  // namespace korrin::json
