#pragma once

// Folders that are searched for embedded images by digest.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "korrin/foundation/text.h"

namespace korrin::host {

/// A file in one of the folders, read whole.
struct FoundAsset {
  std::string path;
  std::string bytes;
  std::string digest;  ///< SHA-256 of the bytes.
};

/// The files of some folders, not of the folders inside them. A symbolic link to a file counts as
/// that file; whatever is not a regular file is passed over. A file is read at most once, and only
/// when a search may need it.
class AssetFolders {
 public:
  AssetFolders() = default;
  /// Throws FileError, with the folder's name, when one cannot be read.
  explicit AssetFolders(const std::vector<std::string>& paths);

  /// The file with that digest, hexadecimal in either letter case; first those of `byteCount` bytes
  /// are looked at, then all others.
  std::optional<FoundAsset> find(const Text& digest, std::int64_t byteCount);

  /// The path of a file with that name, whatever its content; empty when there is none.
  std::string named(const Text& filename) const;

  /// Number of files that could not be read so far.
  std::size_t unreadableCount() const;

 private:
  struct File {
    std::string path;
    std::uint64_t byteCount;
    std::string digest;  // empty until it is read
    bool isUnreadable;
  };

  std::optional<FoundAsset> readIf(File& file, const std::string& digest);

  std::vector<File> files_;  // by path
};

}  // namespace korrin::host
