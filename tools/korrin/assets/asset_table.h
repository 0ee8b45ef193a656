#pragma once

// Judged images for a person to read.

#include <ostream>
#include <span>
#include <string>

#include "assets/judged_asset.h"
#include "terminal/terminal.h"

namespace korrin::host {

/// Prints a table of the images, one a row: verdict, name, type, size, pixels, the total so far and
/// what there is to remark. Unreadable files have no row. No name reaches the terminal as a
/// command.
void printAssets(std::ostream& out, const Terminal& terminal, std::span<const JudgedAsset> assets);

/// Such as "2 accepted, 1 refused, 9,600 of 100,000,000 pixels".
std::string assetSummary(std::span<const JudgedAsset> assets);

/// Prints the entries of the accepted images as a plot's member "assetManifest", one entry a line,
/// and below it the digests of images not to embed, one a line before its name. The JSON is
/// what a document holds, but for characters that a terminal would obey, which stand escaped.
void printManifest(std::ostream& out, std::span<const JudgedAsset> assets);

}  // namespace korrin::host
