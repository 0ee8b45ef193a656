#include "tests/support/outcome.h"

#include "korrin/validation/document_validation_error.h"
#include "korrin/validation/embedded_asset_safety.h"
#include "korrin/validation/raster_asset_safety.h"

namespace korrin::test {
namespace {

template <class Check>
Outcome outcomeOf(const Check& check) {
  try {
    return std::to_string(check());
  } catch (const DocumentValidationError& error) {
    if (error == DocumentValidationError::invalidImage) return Outcome(invalidImage);
    if (error == DocumentValidationError::imageTooLarge) return Outcome(imageTooLarge);
    throw;
  }
}

}  // namespace

Outcome rasterOutcome(std::span<const std::byte> bytes) {
  return outcomeOf([&] { return RasterAssetSafety::validate(bytes); });
}

Outcome assetOutcome(std::span<const std::byte> bytes, std::optional<std::string_view> mediaType) {
  return outcomeOf([&] { return EmbeddedAssetSafety::validate(bytes, mediaType); });
}

bool isLawful(const Outcome& outcome) {
  if (outcome == invalidImage || outcome == imageTooLarge) return true;
  const std::int64_t count = std::stoll(outcome);
  return count >= 0 && count <= RasterAssetSafety::maximumPixels;
}

}  // namespace korrin::test
