#include "asset_support.h"

#include <span>

#include "korrin/templates/korrin_template.h"

#include "assets/sha256.h"
#include "tests/support/image_builder.h"
#include "tests/support/pdf_builder.h"

namespace korrin::host {

std::string stringOf(const test::Bytes& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string pngOf(std::uint32_t width, std::uint32_t height) {
  return stringOf(test::png({.width = width, .height = height}));
}

std::string pdfOf(std::string_view box) {
  return test::onePage("/MediaBox[" + std::string(box) + "]");
}

AssetManifestEntry entryFor(std::string_view bytes, std::string_view filename,
                            std::string_view mediaType) {
  return {.sha256 = sha256(test::asBytes(bytes)),
          .filename = filename,
          .mediaType = mediaType,
          .byteCount = static_cast<std::int64_t>(bytes.size())};
}

KorrinProject plotWith(const List<AssetManifestEntry>& entries) {
  KorrinProject project = KorrinProject::template_(KorrinTemplateID::fivePieceBand);
  for (const AssetManifestEntry& entry : entries) {
    PlotItem item = project.items.front();
    item.id = UUID::random();
    item.kind = PlotItemKind::custom;
    item.assetID = entry.sha256;
    item.groupID = std::nullopt;
    project.items.push_back(item);
  }
  project.assetManifest = entries;
  return project;
}

}  // namespace korrin::host
