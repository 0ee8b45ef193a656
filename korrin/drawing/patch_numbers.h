#pragma once

// The channel and mix numbers of the rows that link to an item.

#include <cstdint>
#include <string>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::drawing {

class PatchNumbers {
 public:
  explicit PatchNumbers(const KorrinProject& project);

  /// Such as "Ch 3, 5, 7–12 · Mix 2", in ascending order, each number once; empty for an item that
  /// no numbered row links to.
  std::string of(const UUID& item) const;

 private:
  enum class Row { channel, mix };
  struct Link {
    UUID item;
    Row row;
    std::int64_t number;

    friend auto operator<=>(const Link&, const Link&) = default;
    friend bool operator==(const Link&, const Link&) = default;
  };

  std::vector<Link> links_;  // sorted
};

}  // namespace korrin::drawing
