#pragma once

// Embedded images one after the other, as a plot takes them in: each with what was found about it,
// and all together within the limit on a plot's pixels.

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "korrin/foundation/enumeration.h"
#include "korrin/model/project.h"
#include "korrin/session/asset_budget.h"

#include "assets/asset_folders.h"
#include "assets/asset_verdict.h"
#include "terminal/exit_code.h"

namespace korrin::host {

enum class AssetStatus {
  accepted,
  invalidImage,    ///< Not an image or PDF that can be read.
  imageTooLarge,   ///< Too large by itself, or together with the accepted images before it.
  wrongByteCount,  ///< Safe, but not as long as the manifest says.
  missing,         ///< No file has the digest that the manifest gives.
  unreadable,      ///< The file cannot be read.
};

/// One image and what was found about it.
struct JudgedAsset {
  std::string name;  ///< As the user or the manifest calls it; any bytes.
  AssetStatus status;
  std::string remark = {};               ///< Why it is not accepted, or what else there is to know.
  std::optional<std::string> file = {};  ///< The file with its bytes; absent when not found.
  std::optional<AssetType> type = {};    ///< Of its content; absent when not known.
  std::string size = {};                 ///< As in AssetVerdict.
  std::optional<std::int64_t> pixels = {};  ///< Its own number; absent when refused for itself.
  bool isRepeated = false;                  ///< Whether the same bytes were accepted before.
  std::int64_t totalPixels = 0;             ///< Of the images that were counted up to this one.
  AssetManifestEntry entry = {};  ///< As a manifest has it; empty when its bytes are unknown.
};

/// Takes in images and keeps the total. The same bytes under several names are one image, and are
/// counted once; an image with which the total would exceed the limit is refused and not counted.
class AssetJudge {
 public:
  /// A file of that path. Without a media type that of its content is taken.
  JudgedAsset file(const std::string& path, std::span<const std::byte> bytes,
                   const std::optional<std::string>& mediaType);

  /// An entry of a manifest, and the file that has its digest.
  JudgedAsset entry(const AssetManifestEntry& entry, const FoundAsset& found);

  /// A file that cannot be read, or an entry of a manifest whose bytes no file has.
  JudgedAsset unreadable(const std::string& path, std::string remark) const;
  JudgedAsset missing(const AssetManifestEntry& entry, std::string remark) const;

 private:
  JudgedAsset take(JudgedAsset asset, std::span<const std::byte> bytes, const std::string& digest,
                   std::optional<std::string_view> mediaType);

  AssetBudget budget_;
  std::map<std::string, std::string> names_;  // of accepted images, by digest
};

struct AssetCounts {
  std::size_t accepted = 0;
  std::size_t refused = 0;
  std::size_t missing = 0;
  std::size_t unreadable = 0;
};
AssetCounts countsOf(std::span<const JudgedAsset> assets);

/// `clean` when all are accepted, `unusable` when one is unreadable, otherwise `findings`.
ExitCode exitCodeOf(std::span<const JudgedAsset> assets);

}  // namespace korrin::host

namespace korrin {

template <>
struct CaseTable<host::AssetStatus> {
  static constexpr std::array cases = {
      Case{host::AssetStatus::accepted, "accepted"},
      Case{host::AssetStatus::invalidImage, "invalidImage"},
      Case{host::AssetStatus::imageTooLarge, "imageTooLarge"},
      Case{host::AssetStatus::wrongByteCount, "wrongByteCount"},
      Case{host::AssetStatus::missing, "missing"},
      Case{host::AssetStatus::unreadable, "unreadable"},
  };
};

}  // namespace korrin
