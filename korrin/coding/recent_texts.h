#pragma once

// Texts that a document repeats.

#include <array>
#include <cstddef>
#include <string_view>

#include "korrin/coding/quick_hash.h"
#include "korrin/foundation/text.h"

namespace korrin::json {

/// Gives equal texts that stand near each other one storage: a plot names the same symbols, stands
/// and suppliers over and over. Remembers where texts were read into, so they must stay there while
/// this lives, as fields of records do while their document is read.
class RecentTexts {
 public:
  /// Makes `field` the text `raw`.
  void read(const WellFormedUTF8& raw, Text& field) {
    if (raw.bytes.size() <= Text::mostInside) {
      field = Text(raw);  // which has no storage to share
      return;
    }
    const Text*& recent = slots_[quickHash(raw.bytes) % slotCount];
    if (recent != nullptr && std::string_view(*recent) == raw.bytes) {
      field = *recent;
    } else {
      field = Text(raw);
      recent = &field;
    }
  }

 private:
  static constexpr std::size_t slotCount = 64;

  std::array<const Text*, slotCount> slots_{};
};

}  // namespace korrin::json
