#pragma once

// Whether a file's bytes may be embedded in a plot, in words that a person understands. The verdict
// and its reason are the library's; what stands here are the words.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "korrin/validation/document_validation_error.h"

namespace korrin::host {

/// What the bytes are, whatever they are called.
struct AssetType {
  std::string_view name;       ///< Such as "PNG".
  std::string_view mediaType;  ///< Such as "image/png".
};

struct AssetVerdict {
  std::optional<AssetType> type;  ///< Absent when nothing knows the bytes.
  std::string size;               ///< "120 x 80 px", "595 x 842 pt"; empty when unknown.
  std::optional<DocumentValidationError> error;  ///< Absent when the bytes may be embedded.
  std::int64_t pixels;  ///< What an accepted asset adds to the plot's total.
  std::string reason;   ///< Why it is refused; empty when accepted.
};

/// Judges the bytes under that media type; without one, under that of the type they have.
AssetVerdict judgeAsset(std::span<const std::byte> bytes,
                        std::optional<std::string_view> mediaType);

/// The number with a comma after each three digits: "16,000".
std::string grouped(std::uint64_t number);

}  // namespace korrin::host
