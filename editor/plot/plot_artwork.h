#pragma once

// The images of the open plot. Their files lie in a folder beside the plot's file or, while there
// is none, in a folder of the user's. They are found, judged and decoded on a thread of their own:
// whoever paints takes what is there and hears of the rest.

#include <QFileSystemWatcher>
#include <QImage>
#include <QObject>
#include <QThreadPool>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "korrin/session/asset_budget.h"

#include "editor/plot/artwork_files.h"
#include "editor/plot/checked_image.h"

namespace korrin::editor {

class OpenPlot;

class PlotArtwork : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the plot.
  explicit PlotArtwork(OpenPlot& plot);
  ~PlotArtwork() override;

  /// Where images lie while their plot has no file, and those that were copied to the clipboard.
  void setSharedFolder(std::filesystem::path folder);
  const std::filesystem::path& sharedFolder() const { return shared_; }

  /// The image for a screen. Null where it cannot be drawn, and until `arrived`: the first call
  /// asks for it. All pictures together take a bounded amount of memory.
  QImage pictureOf(const Text& sha256);
  /// Whether the bytes were looked for, and are not there or not safe.
  bool isMissing(const Text& sha256) const;
  /// All of which that is known. Asks nothing of the disk.
  std::set<Text> missing() const;
  /// Whether everything that was asked for has arrived.
  bool isIdle() const { return pending_ == 0; }

  /// The bytes of an image of the plot, for drawings; only those that are safe.
  using Source = std::function<std::optional<std::string>(const Text& sha256)>;
  Source bytesForFiles() const;
  /// Of these, only images that Qt's painter can draw.
  Source bytesForPainting() const;

  /// Whether one more image goes into the plot, whose images may have so many pixels together, when
  /// others with `further` pixels come with it.
  bool hasRoomFor(const CheckedImage& image, const std::string& digest, std::int64_t further = 0);
  /// Puts an image where the plot's images lie. Throws `FileError`.
  void keep(const CheckedImage& image, const std::string& digest);

  /// Puts the images into a folder as well, as far as they are found and safe. Returns a sentence
  /// for each that cannot be written. The window is painted meanwhile; what the user presses waits.
  std::vector<std::string> bring(const List<AssetManifestEntry>& entries,
                                 const std::filesystem::path& folder);
  /// Puts them where the plot's images lie, such as those that have come by the clipboard.
  std::vector<std::string> bringHere(const List<AssetManifestEntry>& entries);
  /// Puts all images of the plot where that file's plot will look for them.
  std::vector<std::string> bringTo(const std::filesystem::path& plotFile);

 Q_SIGNALS:
  /// The image is there, or is known to be missing. Comes again when its file comes or goes.
  void arrived(const korrin::Text& sha256);

 private:
  enum class State { asked, known };
  struct Known {
    State state = State::asked;  // again, where its file may have come or gone
    bool isMissing = false;      // when it was last looked for
    QImage picture = {};
    std::filesystem::path path = {};
    std::int64_t pixels = 0;
    bool isCounted = false;  // in the budget
  };
  struct Loaded {
    bool isThere = false;
    std::filesystem::path path = {};
    std::int64_t pixels = 0;
    QImage picture = {};
  };

  std::vector<std::filesystem::path> folders() const;
  Source bytes(bool forPainting) const;
  void begin();
  void follow();
  void watch();
  void lookAgain();
  void ask(const Text& sha256);
  void forgetUnused();
  void recount();
  void arrive(const Text& sha256, Loaded loaded);
  AssetManifestEntry entryOf(const Text& sha256);

  OpenPlot& plot_;
  std::filesystem::path shared_;
  std::filesystem::path file_;                  // the plot's, as the images know it
  std::vector<std::filesystem::path> former_;   // folders that the plot has left
  std::map<Text, AssetManifestEntry> entries_;  // of the manifest, made when it is asked for
  bool hasEntries_ = false;
  std::map<Text, Known> known_;
  std::set<std::pair<std::filesystem::path, Text>> brought_;
  AssetBudget budget_;
  std::size_t memory_ = 0;  // bytes of the pictures
  bool mayForget_ = false;  // whether an image may have gone since it was last looked
  int pending_ = 0;
  int generation_ = 0;
  std::shared_ptr<ArtworkFolders> index_;  // used on the thread
  QFileSystemWatcher watcher_;
  QTimer whenToLookAgain_;
  QThreadPool pool_;
};

}  // namespace korrin::editor
