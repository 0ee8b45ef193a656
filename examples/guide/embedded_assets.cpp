// Taking images into a document, one at a time, under a limit on all of them together.

#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <iostream>
#include <span>
#include <string_view>

#include <korrin/korrin.h>

using namespace korrin;

// [accept]
class EmbeddedImages {
 public:
  /// Returns when the image may be embedded; throws a DocumentValidationError otherwise.
  void accept(std::span<const std::byte> bytes, std::string_view mediaType) {
    const std::int64_t pixels = EmbeddedAssetSafety::validate(bytes, mediaType);
    if (pixels > RasterAssetSafety::maximumAggregatePixels - total_)
      throw DocumentValidationError(DocumentValidationError::imageTooLarge);
    total_ += pixels;
  }

  std::int64_t total() const { return total_; }

 private:
  std::int64_t total_ = 0;  // pixels of all that was accepted
};
// [/accept]

// The start of a PNG of 7000 by 7000 pixels: all that is looked at.
constexpr std::array<unsigned char, 33> largeImage = {
    0x89, 'P',  'N',  'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I',  'H',  'D',  'R', 0,
    0,    0x1B, 0x58, 0,   0,    0x1B, 0x58, 8,    2, 0, 0, 0,  0x16, 0xF9, 0x2C, 0xD8};

constexpr std::string_view notAnImage = "To whom it may concern";

void show(EmbeddedImages& images, std::span<const std::byte> bytes, std::string_view mediaType) {
  try {
    images.accept(bytes, mediaType);
    std::cout << "accepted; pixels in all: " << images.total() << '\n';
  } catch (const DocumentValidationError& error) {
    std::cout << error.what() << '\n';
  }
}

int main() {
  EmbeddedImages images;
  for (int time = 0; time < 3; ++time)
    show(images, std::as_bytes(std::span(largeImage)), "image/png");
  show(images, std::as_bytes(std::span(notAnImage)), "image/png");

  // [manifest]
  KorrinProject project = KorrinProject::newDocument();
  List<AssetManifestEntry> entries = project.assetManifest;
  entries.push_back({.sha256 = "0f1e2d3c4b5a69788796a5b4c3d2e1f00f1e2d3c4b5a69788796a5b4c3d2e1f0",
                     .filename = "backdrop.png",
                     .mediaType = "image/png",
                     .byteCount = 33});
  DocumentCommand::replaceAssetManifest(entries).apply(project);
  // [/manifest]
  std::cout << "images in the document: " << project.assetManifest.size() << '\n';
}
