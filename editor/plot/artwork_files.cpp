#include "editor/plot/artwork_files.h"

#include <QCryptographicHash>
#include <cctype>
#include <system_error>

#include "korrin/foundation/ascii.h"
#include "korrin/session/document_file.h"

#include "editor/plot/checked_image.h"

namespace korrin::editor {
namespace {

namespace fs = std::filesystem;

// A folder with more files than these is somebody's downloads, not a plot's images.
constexpr int mostFiles = 10'000;

constexpr std::size_t digestLength = 64;

std::string lowerCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// The file's bytes where they have the digest.
std::optional<std::string> readIf(const fs::path& path, const std::string& digest) {
  try {
    std::string bytes = DocumentFile(path).openBytes(CheckedImage::maximumSize);
    if (digestOf(bytes) == digest) return bytes;
  } catch (const FileError&) {
    // What cannot be read is not there.
  }
  return std::nullopt;
}

}  // namespace

fs::path artworkBeside(const fs::path& plot) {
  fs::path folder = plot;
  folder.replace_extension("assets");
  return folder;
}

std::string digestOf(std::string_view bytes) {
  QCryptographicHash hash(QCryptographicHash::Sha256);
  hash.addData(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
  return hash.result().toHex().toStdString();
}

void ArtworkFolders::list() {
  isListed_ = true;
  for (const fs::path& folder : folders_) {
    std::error_code error;
    int count = 0;
    for (fs::directory_iterator entry(folder, error);
         !error && entry != fs::directory_iterator() && count < mostFiles;
         entry.increment(error), ++count) {
      std::error_code gone;
      if (!entry->is_regular_file(gone)) continue;
      const std::uintmax_t length = entry->file_size(gone);
      if (gone || length > CheckedImage::maximumSize) continue;
      byLength_.emplace(length, files_.size());
      const std::string name = lowerCase(entry->path().filename().string());
      if (isDigest(std::string_view(name).substr(0, digestLength)))
        byName_.emplace(name.substr(0, digestLength), files_.size());
      files_.push_back({.path = entry->path()});
    }
  }
}

std::optional<std::string> ArtworkFolders::readIf(File& file, const std::string& digest) {
  if (file.isUnreadable || (!file.digest.empty() && file.digest != digest)) return std::nullopt;
  try {
    std::string bytes = DocumentFile(file.path).openBytes(CheckedImage::maximumSize);
    file.digest = digestOf(bytes);
    if (file.digest == digest) return bytes;
  } catch (const FileError&) {
    file.isUnreadable = true;
  }
  return std::nullopt;
}

std::optional<FoundArtwork> ArtworkFolders::find(const AssetManifestEntry& wanted) {
  if (!isDigest(wanted.sha256)) return std::nullopt;
  if (!isListed_) list();
  const std::string digest = lowerCase(wanted.sha256.str());
  const auto search = [&](auto range) -> std::optional<FoundArtwork> {
    for (auto place = range.first; place != range.second; ++place) {
      File& file = files_[place->second];
      if (auto bytes = readIf(file, digest))
        return FoundArtwork{.bytes = std::move(*bytes), .digest = digest, .path = file.path};
    }
    return std::nullopt;
  };
  if (auto found = search(byName_.equal_range(digest))) return found;
  if (wanted.byteCount <= 0) return std::nullopt;
  return search(byLength_.equal_range(static_cast<std::uintmax_t>(wanted.byteCount)));
}

void keepArtwork(const fs::path& folder, const std::string& digest, std::string_view ending,
                 std::string_view bytes) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw FileError(folder, "cannot be made: " + error.message(), error);
  // A name may be taken by a damaged file, or by a link that somebody has planted.
  constexpr int mostNames = 9;
  for (int number = 1; number <= mostNames; ++number) {
    const std::string suffix = number == 1 ? "" : '-' + std::to_string(number);
    const fs::path path = folder / (digest + suffix + '.' + std::string(ending));
    if (fs::exists(fs::symlink_status(path, error))) {
      if (readIf(path, digest)) return;
      continue;
    }
    try {
      DocumentFile(path).saveBytes(bytes);
      return;
    } catch (const ChangedElsewhere&) {
      // Somebody else has put a file there in this instant.
    }
  }
  throw FileError(folder, "has no room for an image: files of its name hold something else");
}

}  // namespace korrin::editor
