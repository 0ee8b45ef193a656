#pragma once

// Judged images for a program to read; docs/asset-report.md describes the objects.

#include <span>
#include <string>

#include "assets/asset_report.h"
#include "assets/judged_asset.h"
#include "terminal/exit_code.h"

namespace korrin::host {

/// The images in order, their total and its limit.
AssetSection assetSection(std::span<const JudgedAsset> assets);

/// The report on all images as one JSON object, indented, without a final line break.
std::string assetReport(std::span<const JudgedAsset> assets, ExitCode exitCode);

}  // namespace korrin::host
