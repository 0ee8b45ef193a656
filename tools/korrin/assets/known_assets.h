#pragma once

// The artwork identifiers that the rule missingAsset takes for known.

#include <array>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "korrin/foundation/text.h"

namespace korrin::host {

/// The symbols that the built-in templates and the example plots are drawn with.
inline constexpr std::array<std::string_view, 13> builtinAssets = {
    "krn.audio.iem.v1",
    "krn.audio.microphone.v1",
    "krn.audio.wedge.v1",
    "krn.backline.bass-amp.v1",
    "krn.backline.guitar-amp.v1",
    "krn.furniture.table.v1",
    "krn.instrument.acoustic-guitar.v1",
    "krn.instrument.drums.v1",
    "krn.instrument.keyboard.v1",
    "krn.people.performer.v1",
    "krn.staging.riser.v1",
    "krn.utility.di.v1",
    "krn.utility.power.v1",
};

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
