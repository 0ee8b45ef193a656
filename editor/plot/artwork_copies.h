#pragma once

// Images on their way from the folders where they lie: looked for, judged, and put elsewhere.

#include <filesystem>
#include <optional>
#include <string>

#include "editor/plot/artwork_files.h"
#include "editor/plot/checked_image.h"

namespace korrin::editor {

struct CheckedFile {
  CheckedImage image;
  std::string digest;  ///< In lower case.
  std::filesystem::path path;
};

/// The image of that entry in the folders; nothing where it is not there or not safe.
std::optional<CheckedFile> checkedIn(ArtworkFolders& folders, const AssetManifestEntry& entry);

}  // namespace korrin::editor
