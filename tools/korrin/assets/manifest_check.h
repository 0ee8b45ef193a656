#pragma once

// The images that a plot's manifest names, looked for and judged.

#include <vector>

#include "korrin/model/project.h"

#include "assets/asset_folders.h"
#include "assets/judged_asset.h"

namespace korrin::host {

/// One judgement for each entry of the project's manifest, in its order. Files are found by digest
/// alone, whatever they are called.
std::vector<JudgedAsset> checkManifest(const KorrinProject& project, AssetFolders& folders);

}  // namespace korrin::host
