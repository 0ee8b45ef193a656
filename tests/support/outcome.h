#pragma once

// What a check on embedded images says, as one comparable and printable value.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace korrin::test {

/// "invalidImage", "imageTooLarge", or the number returned, in decimal digits.
using Outcome = std::string;

inline constexpr std::string_view invalidImage = "invalidImage";
inline constexpr std::string_view imageTooLarge = "imageTooLarge";

/// The outcome of RasterAssetSafety::validate. Any other error passes through, and so fails the
/// test.
Outcome rasterOutcome(std::span<const std::byte> bytes);

/// The outcome of EmbeddedAssetSafety::validate.
Outcome assetOutcome(std::span<const std::byte> bytes, std::optional<std::string_view> mediaType);

/// Whether it is one of the three kinds: an error of the two, or a count that the limits allow.
bool isLawful(const Outcome& outcome);

}  // namespace korrin::test
