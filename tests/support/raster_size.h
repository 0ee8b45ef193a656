#pragma once

#include <optional>

#include "korrin/validation/raster/raster_facts.h"

#include "tests/support/byte_writer.h"

namespace korrin::test {

/// The size that the header in `bytes` states; nothing for bytes that are not known or are damaged.
inline std::optional<PixelSize> sizeOf(const Bytes& bytes) {
  const auto facts = readRasterFacts(bytes);
  return facts ? facts->size : std::nullopt;
}

inline constexpr PixelSize threeByTwo{.width = 3, .height = 2};

}  // namespace korrin::test
