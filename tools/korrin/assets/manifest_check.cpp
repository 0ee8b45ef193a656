#include "assets/manifest_check.h"

#include <optional>
#include <string>

#include "korrin/foundation/ascii.h"

namespace korrin::host {
namespace {

std::string whyMissing(const AssetManifestEntry& entry, const AssetFolders& folders) {
  if (!isDigest(entry.sha256)) return "what the manifest gives as its digest is none";
  std::string reason = "no file has its digest";
  const std::string namesake = folders.named(entry.filename);
  if (!namesake.empty()) reason += "; " + namesake + " has other content";
  const std::size_t unreadable = folders.unreadableCount();
  if (unreadable > 0)
    reason += "; " + std::to_string(unreadable) +
              (unreadable == 1 ? " file cannot be read" : " files cannot be read");
  return reason;
}

}  // namespace

std::vector<JudgedAsset> checkManifest(const KorrinProject& project, AssetFolders& folders) {
  AssetJudge judge;
  std::vector<JudgedAsset> assets;
  for (const AssetManifestEntry& entry : project.assetManifest) {
    const std::optional<FoundAsset> found = folders.find(entry.sha256, entry.byteCount);
    assets.push_back(found ? judge.entry(entry, *found)
                           : judge.missing(entry, whyMissing(entry, folders)));
  }
  return assets;
}

}  // namespace korrin::host
