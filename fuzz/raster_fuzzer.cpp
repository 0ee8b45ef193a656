// Any bytes at all, given to the checks on raster images. Ends the program when an answer is none
// of the three outcomes, changes from one call to the next, or contradicts the facts of the header.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>
#include <string_view>

#include "korrin/validation/document_validation_error.h"
#include "korrin/validation/embedded_asset_safety.h"
#include "korrin/validation/raster/raster_facts.h"
#include "korrin/validation/raster_asset_safety.h"

namespace {

using korrin::DocumentValidationError;

struct Verdict {
  std::optional<DocumentValidationError> error;
  std::int64_t pixels;

  friend bool operator==(const Verdict&, const Verdict&) = default;
};

template <class Check>
Verdict verdictOf(const Check& check) {
  try {
    return {.error = std::nullopt, .pixels = check()};
  } catch (const DocumentValidationError& error) {
    return {.error = error, .pixels = 0};
  }
}

void require(bool holds) {
  if (!holds) std::abort();
}

// The verdict that the header's facts call for, worked out in another way than the library does.
Verdict verdictFor(const std::optional<korrin::RasterFacts>& facts) {
  if (!facts || !facts->size || facts->size->width == 0 || facts->size->height == 0)
    return {.error = DocumentValidationError::invalidImage, .pixels = 0};
  const long double width = static_cast<long double>(facts->size->width);
  const long double height = static_cast<long double>(facts->size->height);
  if (width > 16'000 || height > 16'000 || width * height > 50'000'000)
    return {.error = DocumentValidationError::imageTooLarge, .pixels = 0};
  return {.error = std::nullopt, .pixels = static_cast<std::int64_t>(width * height)};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span bytes(reinterpret_cast<const std::byte*>(data), size);
  const auto facts = korrin::readRasterFacts(bytes);
  const Verdict verdict = verdictOf([&] { return korrin::RasterAssetSafety::validate(bytes); });
  require(verdict == verdictFor(facts));

  const auto asAsset = [&](std::optional<std::string_view> mediaType) {
    return verdictOf([&] { return korrin::EmbeddedAssetSafety::validate(bytes, mediaType); });
  };
  require(asAsset(std::nullopt) == verdict);
  const Verdict invalid{.error = DocumentValidationError::invalidImage, .pixels = 0};
  if (facts) require(asAsset("application/pdf") == invalid);
  return 0;
}
