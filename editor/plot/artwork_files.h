#pragma once

// Where the images of a plot lie: in files of a folder, found by the SHA-256 digest of their bytes.
// A file is named by its digest. No name that a document or a dropped file brings becomes part of a
// path.

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::editor {

/// The folder for the images of the plot in that file: "tonight.assets" beside "tonight.json".
std::filesystem::path artworkBeside(const std::filesystem::path& plot);

/// The SHA-256 digest as 64 hexadecimal digits in lower case, the spelling of the manifest.
std::string digestOf(std::string_view bytes);

struct FoundArtwork {
  std::string bytes;
  std::string digest;  ///< In lower case.
  std::filesystem::path path;
};

/// Folders that are searched for images by digest. They are listed once, at the first search; files
/// in folders inside them are not looked at.
class ArtworkFolders {
 public:
  explicit ArtworkFolders(std::vector<std::filesystem::path> folders)
      : folders_(std::move(folders)) {}

  /// The bytes with the entry's digest, and their file: a file named by the digest, or in any file
  /// that is as long as the entry says, those of the first folder first. Nothing where there are
  /// none.
  std::optional<FoundArtwork> find(const AssetManifestEntry& wanted);

 private:
  struct File {
    std::filesystem::path path;
    std::string digest = {};  // empty until it is read
    bool isUnreadable = false;
  };

  void list();
  std::optional<std::string> readIf(File& file, const std::string& digest);

  std::vector<std::filesystem::path> folders_;
  std::vector<File> files_;
  std::multimap<std::uintmax_t, std::size_t> byLength_;
  std::multimap<std::string, std::size_t> byName_;  // of those named by a digest
  bool isListed_ = false;
};

/// Puts the bytes into a file of the folder, which is made where it is missing. Does nothing where
/// they lie there already, and replaces no file: a name that is taken by other content is passed
/// over. The digest is that of the bytes. Throws `FileError`.
void keepArtwork(const std::filesystem::path& folder, const std::string& digest,
                 std::string_view ending, std::string_view bytes);

}  // namespace korrin::editor
