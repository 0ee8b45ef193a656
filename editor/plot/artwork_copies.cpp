#include "editor/plot/artwork_copies.h"

#include <QApplication>
#include <QEventLoop>
#include <utility>

#include "korrin/session/document_file.h"

#include "editor/plot/open_plot.h"
#include "editor/plot/plot_artwork.h"

namespace korrin::editor {
namespace {

std::optional<std::string_view> typeOf(const AssetManifestEntry& entry) {
  if (entry.mediaType.empty()) return std::nullopt;
  return std::string_view(entry.mediaType);
}

// What lies in a folder after images were copied there.
struct Copied {
  std::vector<Text> present;
  std::vector<std::string> failures;  // a sentence each
};

Copied copy(const std::vector<AssetManifestEntry>& entries, ArtworkFolders from,
            const std::filesystem::path& folder) {
  Copied copied;
  ArtworkFolders target({folder});
  for (const AssetManifestEntry& entry : entries) {
    if (!target.find(entry)) {
      const std::optional<CheckedFile> found = checkedIn(from, entry);
      if (!found) continue;
      try {
        keepArtwork(folder, found->digest, found->image.ending(), found->image.bytes());
      } catch (const FileError& error) {
        copied.failures.emplace_back(error.what());
        continue;
      }
    }
    copied.present.push_back(entry.sha256);
  }
  return copied;
}

}  // namespace

std::optional<CheckedFile> checkedIn(ArtworkFolders& folders, const AssetManifestEntry& entry) {
  std::optional<FoundArtwork> found = folders.find(entry);
  if (!found) return std::nullopt;
  auto checked = CheckedImage::check(std::move(found->bytes), typeOf(entry));
  if (auto* image = std::get_if<CheckedImage>(&checked))
    return CheckedFile{.image = std::move(*image),
                       .digest = std::move(found->digest),
                       .path = std::move(found->path)};
  return std::nullopt;
}

std::vector<std::string> PlotArtwork::bring(const List<AssetManifestEntry>& entries,
                                            const std::filesystem::path& folder) {
  std::vector<AssetManifestEntry> wanted;
  for (const AssetManifestEntry& entry : entries)
    if (!brought_.contains({folder, entry.sha256})) wanted.push_back(entry);
  if (wanted.empty()) return {};
  // Reading and writing many megabytes takes seconds. Meanwhile the window paints, and keeps what
  // the user presses for later.
  Copied copied;
  QEventLoop untilCopied;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  QThreadPool thread;
  thread.start([&, from = folders()] {
    copied = copy(wanted, ArtworkFolders(from), folder);
    QMetaObject::invokeMethod(&untilCopied, &QEventLoop::quit, Qt::QueuedConnection);
  });
  untilCopied.exec(QEventLoop::ExcludeUserInputEvents);
  thread.waitForDone();
  QApplication::restoreOverrideCursor();
  for (const Text& digest : copied.present) brought_.emplace(folder, digest);
  index_.reset();
  return copied.failures;
}

std::vector<std::string> PlotArtwork::bringHere(const List<AssetManifestEntry>& entries) {
  return bring(entries, folders().front());
}

std::vector<std::string> PlotArtwork::bringTo(const std::filesystem::path& plotFile) {
  return bring(plot_.project().assetManifest, artworkBeside(plotFile));
}

}  // namespace korrin::editor
