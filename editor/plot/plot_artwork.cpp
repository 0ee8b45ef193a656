#include "editor/plot/plot_artwork.h"

#include <QFile>
#include <QImageReader>
#include <QStandardPaths>
#include <algorithm>
#include <utility>

#include "korrin/foundation/ascii.h"
#include "korrin/session/document_file.h"
#include "korrin/validation/document_validation_error.h"
#include "korrin/validation/raster_asset_safety.h"

#include "editor/plot/artwork_copies.h"
#include "editor/plot/open_plot.h"

namespace korrin::editor {
namespace {

constexpr int longestSide = 1536;  // pixels: sharp on a screen
constexpr int shortSide = 256;     // for those that come when there are many
constexpr std::size_t memoryForLarge = std::size_t{192} << 20;
constexpr std::size_t memoryForAll = std::size_t{256} << 20;

bool fits(AssetBudget& budget, std::int64_t pixels) {
  try {
    budget.add(pixels);
    return true;
  } catch (const DocumentValidationError&) {
    return false;
  }
}

}  // namespace

PlotArtwork::PlotArtwork(OpenPlot& plot) : QObject(&plot), plot_(plot) {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
  shared_ = QFile::encodeName(data + "/unsaved/assets").toStdString();
  // What the core takes for safe may be decoded, with up to 8 bytes a pixel.
  QImageReader::setAllocationLimit(int(8 * RasterAssetSafety::maximumPixels >> 20) + 1);
  // One after the other: images are large, and their order counts where there are too many.
  pool_.setMaxThreadCount(1);
  // Files come by the dozen when somebody unpacks a folder.
  constexpr int delay = 300;  // milliseconds
  whenToLookAgain_.setSingleShot(true);
  whenToLookAgain_.setInterval(delay);
  connect(&watcher_, &QFileSystemWatcher::directoryChanged, &whenToLookAgain_,
          qOverload<>(&QTimer::start));
  connect(&whenToLookAgain_, &QTimer::timeout, this, &PlotArtwork::lookAgain);
  connect(&plot_, &OpenPlot::replaced, this, &PlotArtwork::begin);
  connect(&plot_, &OpenPlot::historyChanged, this, &PlotArtwork::follow);
  connect(&plot_, &OpenPlot::changed, this, [this](const ChangeSet& changes) {
    if (changes.affectsDocumentStructure) hasEntries_ = false;
    mayForget_ = true;
  });
}

PlotArtwork::~PlotArtwork() {
  pool_.clear();
  pool_.waitForDone();
}

void PlotArtwork::setSharedFolder(std::filesystem::path folder) {
  shared_ = std::move(folder);
  index_.reset();
  watch();
}

void PlotArtwork::begin() {
  ++generation_;  // What is still on its way is of the plot before.
  pool_.clear();
  pending_ = 0;
  known_.clear();
  brought_.clear();
  former_.clear();
  hasEntries_ = false;
  budget_ = {};
  memory_ = 0;
  index_.reset();
  file_ = plot_.file() != nullptr ? plot_.file()->path() : std::filesystem::path();
  watch();
}

// The plot may have got a file, or another one.
void PlotArtwork::follow() {
  const std::filesystem::path file =
      plot_.file() != nullptr ? plot_.file()->path() : std::filesystem::path();
  if (file == file_) return;
  if (!file_.empty()) former_.push_back(artworkBeside(file_));
  if (!file_.empty()) former_.push_back(file_.parent_path());
  file_ = file;
  watch();
  index_.reset();
  for (auto& [digest, known] : known_)
    if (known.isMissing) ask(digest);
}

AssetManifestEntry PlotArtwork::entryOf(const Text& sha256) {
  if (!std::exchange(hasEntries_, true)) {
    entries_.clear();
    for (const AssetManifestEntry& entry : plot_.project().assetManifest)
      entries_.emplace(entry.sha256, entry);
  }
  const auto found = entries_.find(sha256);
  if (found != entries_.end()) return found->second;
  return {.sha256 = sha256, .filename = {}, .mediaType = {}, .byteCount = 0};
}

QImage PlotArtwork::pictureOf(const Text& sha256) {
  if (!isDigest(sha256)) return {};
  const auto [known, isNew] = known_.try_emplace(sha256);
  if (isNew) ask(sha256);
  return known->second.picture;
}

bool PlotArtwork::isMissing(const Text& sha256) const {
  const auto known = known_.find(sha256);
  return known != known_.end() && known->second.isMissing;
}

std::set<Text> PlotArtwork::missing() const {
  std::set<Text> digests;
  for (const auto& [digest, known] : known_)
    if (known.isMissing) digests.insert(digest);
  return digests;
}

void PlotArtwork::ask(const Text& sha256) {
  if (!index_) index_ = std::make_shared<ArtworkFolders>(folders());
  known_[sha256].state = State::asked;
  ++pending_;
  pool_.start([this, entry = entryOf(sha256), folders = index_, generation = generation_] {
    Loaded loaded;
    if (std::optional<CheckedFile> found = checkedIn(*folders, entry))
      loaded = {.isThere = true,
                .path = std::move(found->path),
                .pixels = found->image.pixels(),
                .picture = found->image.decoded(longestSide)};
    QMetaObject::invokeMethod(
        this,
        [this, generation, digest = entry.sha256, loaded] {
          if (generation == generation_) arrive(digest, loaded);
        },
        Qt::QueuedConnection);
  });
}

// Images that no item shows take neither room nor memory. Each is asked for again if an undo brings
// it back.
void PlotArtwork::forgetUnused() {
  if (!std::exchange(mayForget_, false)) return;
  std::set<Text> used;
  for (const PlotItem& item : plot_.project().items)
    if (known_.contains(item.assetID)) used.insert(item.assetID);
  std::erase_if(known_, [&used](const auto& each) {
    return each.second.state != State::asked && !used.contains(each.first);
  });
  recount();
}

void PlotArtwork::recount() {
  budget_ = {};
  memory_ = 0;
  for (auto& [digest, known] : known_) {
    if (known.isCounted) known.isCounted = fits(budget_, known.pixels);
    memory_ += std::size_t(known.picture.sizeInBytes());
  }
}

void PlotArtwork::arrive(const Text& sha256, Loaded loaded) {
  --pending_;
  const bool wasMissing = isMissing(sha256);
  // What it took before, if it was there, is free.
  const Known before = std::exchange(known_[sha256], {});
  if (before.isCounted || !before.picture.isNull()) recount();
  const auto takes = [this](const QImage& image, std::size_t limit) {
    return memory_ + std::size_t(image.sizeInBytes()) <= limit;
  };
  if (budget_.pixels() + loaded.pixels > RasterAssetSafety::maximumAggregatePixels ||
      !takes(loaded.picture, memoryForLarge))
    forgetUnused();
  Known& known = known_[sha256];
  // A save need not look again for what lies where the plot's images do.
  const std::filesystem::path folder = folders().front();
  if (loaded.isThere && loaded.path.parent_path() == folder) brought_.emplace(folder, sha256);
  known = {.state = State::known,
           .isMissing = !loaded.isThere,
           .picture = {},
           .path = std::move(loaded.path),
           .pixels = loaded.pixels,
           .isCounted = loaded.isThere && fits(budget_, loaded.pixels)};
  if (known.isCounted && !loaded.picture.isNull()) {
    if (!takes(loaded.picture, memoryForLarge))
      loaded.picture = loaded.picture.scaled(shortSide, shortSide, Qt::KeepAspectRatio,
                                             Qt::SmoothTransformation);
    if (takes(loaded.picture, memoryForAll)) {
      memory_ += std::size_t(loaded.picture.sizeInBytes());
      known.picture = std::move(loaded.picture);
    }
  }
  if (loaded.isThere || !wasMissing) Q_EMIT arrived(sha256);
}

PlotArtwork::Source PlotArtwork::bytes(bool forPainting) const {
  std::map<Text, AssetManifestEntry> entries;
  for (const AssetManifestEntry& entry : plot_.project().assetManifest)
    entries.emplace(entry.sha256, entry);
  return [folders = std::make_shared<ArtworkFolders>(folders()), entries = std::move(entries),
          forPainting](const Text& sha256) -> std::optional<std::string> {
    const auto entry = entries.find(sha256);
    std::optional<CheckedFile> found = checkedIn(
        *folders, entry != entries.end()
                      ? entry->second
                      : AssetManifestEntry{
                            .sha256 = sha256, .filename = {}, .mediaType = {}, .byteCount = 0});
    if (!found || (forPainting && !found->image.canBeDrawn())) return std::nullopt;
    return std::move(found->image).take();
  };
}

PlotArtwork::Source PlotArtwork::bytesForFiles() const { return bytes(false); }

PlotArtwork::Source PlotArtwork::bytesForPainting() const { return bytes(true); }

bool PlotArtwork::hasRoomFor(const CheckedImage& image, const std::string& digest,
                             std::int64_t further) {
  forgetUnused();
  const auto known = known_.find(Text(digest));
  if (known != known_.end() && known->second.isCounted) return true;
  AssetBudget budget = budget_;
  return fits(budget, further) && fits(budget, image.pixels());
}

void PlotArtwork::keep(const CheckedImage& image, const std::string& digest) {
  const std::filesystem::path folder = folders().front();
  keepArtwork(folder, digest, image.ending(), image.bytes());
  brought_.emplace(folder, Text(digest));
  index_.reset();
  // It may have been missing so far.
  const auto known = known_.find(Text(digest));
  if (known != known_.end() && known->second.isMissing) ask(known->first);
}

}  // namespace korrin::editor
