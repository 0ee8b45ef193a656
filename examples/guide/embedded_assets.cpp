// Taking images into a document, one at a time, under a limit on all of them together.

#include <array>
#include <cstddef>
#include <iostream>
#include <span>
#include <string_view>

#include <korrin/korrin.h>
#include <korrin/session.h>

using namespace korrin;

// The start of a PNG of 7000 by 7000 pixels: all that is looked at.
constexpr std::array<unsigned char, 33> largeImage = {
    0x89, 'P',  'N',  'G', '\r', '\n', 0x1A, '\n', 0, 0, 0, 13, 'I',  'H',  'D',  'R', 0,
    0,    0x1B, 0x58, 0,   0,    0x1B, 0x58, 8,    2, 0, 0, 0,  0x16, 0xF9, 0x2C, 0xD8};

constexpr std::string_view notAnImage = "To whom it may concern";

// [accept]
void take(AssetBudget& budget, std::span<const std::byte> bytes, std::string_view mediaType) {
  try {
    budget.admit(bytes, mediaType);
    std::cout << "accepted; pixels in all: " << budget.pixels() << '\n';
  } catch (const DocumentValidationError& error) {
    std::cout << error.what() << '\n';  // not safe to embed, and not counted
  }
}
// [/accept]

int main() {
  AssetBudget budget;  // of one document
  for (int time = 0; time < 3; ++time)
    take(budget, std::as_bytes(std::span(largeImage)), "image/png");
  take(budget, std::as_bytes(std::span(notAnImage)), "image/png");

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
