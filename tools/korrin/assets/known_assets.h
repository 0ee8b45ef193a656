#pragma once

// The artwork identifiers that the rule missingAsset takes for known.

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "korrin/foundation/text.h"

namespace korrin::host {

/// What the user calls known.
struct AssetOptions {
  std::vector<std::string> files = {};  ///< Files of identifiers, one a line.
  bool useBuiltin = false;              ///< Whether the built-in symbols are known.
};

/// The assets that the rule compares with, or why it cannot be run.
struct KnownAssets {
  std::unordered_set<Text> identifiers = {};
  std::string notRunReason = {};  ///< Empty when there are identifiers.
};

/// Throws FileError, with the file's name, when a file cannot be read.
KnownAssets knownAssets(const AssetOptions& options);

/// Adds one identifier a line; blanks around it and blank lines do not count.
void addAssetLines(std::string_view lines, std::unordered_set<Text>& assets);

}  // namespace korrin::host
