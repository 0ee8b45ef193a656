#pragma once

// What a crash would lose of the open plot, kept by the session's autosave: beside the plot's file,
// or in a folder of the user's where the plot has none yet.

#include <QObject>
#include <QString>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "korrin/session/autosave.h"

#include "editor/plot/open_plot.h"

class QLockFile;

namespace korrin::editor {

/// Notes every edit of a plot as long as it is unsaved. Follows the plot from file to file. While
/// another window has the same file open it notes nothing, as the two would overwrite each other.
class SafetyCopy : public QObject {
  Q_OBJECT

 public:
  /// `folder` is for locks and for plots without a file; it is made where it is missing.
  SafetyCopy(OpenPlot& plot, QString folder, QObject* parent = nullptr);
  /// Keeps what is unsaved, as after a crash; see `forget`.
  ~SafetyCopy() override;

  /// Whether another running editor has this document open.
  bool isOpenElsewhere(const std::filesystem::path& document) const;

  /// Plots without a file that a crash left behind, those of running editors not among them.
  std::vector<Recovery> leftBehind() const;

  /// Whether this is the only plot without a file, among those of running editors and those that a
  /// crash left behind.
  bool isAlone() const;

  /// Removes such a plot, once it was taken over or given up.
  static void discard(const Recovery& recovery);

  /// The user gave up what is unsaved: removes the copy.
  void forget();

  /// Waits until everything noted is on the disk. Returns whether it is.
  bool flush();

 Q_SIGNALS:
  /// What is unsaved cannot be kept: why, in a sentence. Comes again as long as that lasts.
  void failed(const QString& reason);

 private:
  bool check();
  void follow();
  void move();
  bool isAtItsPlace() const;
  std::filesystem::path placeWithoutFile(int number) const;
  std::unique_ptr<QLockFile> lockOf(const std::filesystem::path& document) const;

  OpenPlot& plot_;
  QString folder_;
  std::filesystem::path document_;
  std::unique_ptr<QLockFile> lock_;
  std::unique_ptr<Autosave> autosave_;
  bool hasNoFile_ = false;
  bool isNoted_ = false;  // whether there may be a copy
  QTimer whenToCheck_;
};

}  // namespace korrin::editor
