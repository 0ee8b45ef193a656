#include "assets/asset_folders.h"

#include <algorithm>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>

#include "korrin/foundation/ascii.h"

#include "assets/sha256.h"
#include "documents/document_file.h"
#include "terminal/similar_file.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& folder, const std::error_code& error) {
  throw FileError(folder + ": cannot be read: " + error.message() + similarFileSuggestion(folder));
}

}  // namespace

AssetFolders::AssetFolders(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) {
    std::error_code error;
    fs::directory_iterator entry(path, error);
    if (error) fail(path, error);
    while (entry != fs::directory_iterator()) {
      // A file that goes away meanwhile, or a link to nowhere, is not there.
      std::error_code gone;
      if (entry->is_regular_file(gone)) {
        const std::uintmax_t size = entry->file_size(gone);
        if (!gone) files_.push_back({entry->path().string(), size, {}, false});
      }
      entry.increment(error);
      if (error) fail(path, error);
    }
  }
  std::ranges::sort(files_, {}, &File::path);
}

std::optional<FoundAsset> AssetFolders::readIf(File& file, const std::string& digest) {
  if (file.isUnreadable || (!file.digest.empty() && file.digest != digest)) return std::nullopt;
  try {
    std::string bytes = readFile(file.path, largestAsset);
    file.digest = sha256(std::as_bytes(std::span(bytes)));
    if (file.digest == digest) return FoundAsset{file.path, std::move(bytes), digest};
  } catch (const FileError&) {
    file.isUnreadable = true;
  }
  return std::nullopt;
}

std::optional<FoundAsset> AssetFolders::find(const Text& digest, std::int64_t byteCount) {
  if (!isDigest(digest)) return std::nullopt;
  const std::string wanted = lowerCase(digest.str());
  for (const bool isAsLong : {true, false})
    for (File& file : files_)
      if (std::cmp_equal(file.byteCount, byteCount) == isAsLong)
        if (std::optional<FoundAsset> found = readIf(file, wanted)) return found;
  return std::nullopt;
}

std::string AssetFolders::named(const Text& filename) const {
  const auto file = std::ranges::find_if(files_, [&](const File& candidate) {
    return Text(fs::path(candidate.path).filename().string()) == filename;
  });
  return file == files_.end() ? std::string() : file->path;
}

std::size_t AssetFolders::unreadableCount() const {
  return static_cast<std::size_t>(std::ranges::count(files_, true, &File::isUnreadable));
}

}  // namespace korrin::host
