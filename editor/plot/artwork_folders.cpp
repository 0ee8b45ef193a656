// The folders of a plot's images: which they are, and what comes and goes there.

#include <QFile>
#include <utility>

#include "editor/plot/plot_artwork.h"

namespace korrin::editor {

std::vector<std::filesystem::path> PlotArtwork::folders() const {
  std::vector<std::filesystem::path> all;
  if (!file_.empty()) all = {artworkBeside(file_), file_.parent_path()};
  all.push_back(shared_);
  all.insert(all.end(), former_.begin(), former_.end());
  return all;
}

// A folder that is not there yet is watched as soon as something has changed beside it.
void PlotArtwork::watch() {
  QStringList wanted;
  for (const std::filesystem::path& folder : folders())
    if (!folder.empty()) wanted += QFile::decodeName(QByteArray::fromStdString(folder.string()));
  QStringList former;
  for (const QString& folder : watcher_.directories())
    if (!wanted.contains(folder)) former += folder;
  if (!former.isEmpty()) watcher_.removePaths(former);
  watcher_.addPaths(wanted);
}

void PlotArtwork::lookAgain() {
  // What is on its way may have looked before the change.
  if (!isIdle()) return whenToLookAgain_.start();
  watch();
  index_.reset();
  std::vector<std::pair<Text, std::filesystem::path>> files;
  for (auto& [digest, known] : known_) {
    if (known.isMissing) ask(digest);
    if (!known.path.empty()) files.emplace_back(digest, known.path);
  }
  if (files.empty()) return;
  ++pending_;
  pool_.start([this, files = std::move(files), generation = generation_] {
    std::vector<Text> gone;
    std::error_code error;
    for (const auto& [digest, path] : files)
      if (!std::filesystem::exists(path, error)) gone.push_back(digest);
    QMetaObject::invokeMethod(
        this,
        [this, generation, gone] {
          if (generation != generation_) return;
          --pending_;
          for (const Text& digest : gone) {
            brought_.clear();  // The next save looks for itself.
            if (known_.contains(digest)) ask(digest);
          }
        },
        Qt::QueuedConnection);
  });
}

}  // namespace korrin::editor
