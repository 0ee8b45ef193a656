#pragma once

// From files to the open plot and back, with the questions that only the user can answer.

#include <QObject>
#include <QString>

#include "korrin/coding/unknown_keys.h"

#include "editor/files/safety_copy.h"
#include "editor/plot/open_plot.h"

namespace korrin::editor {

class PlotFiles : public QObject {
  Q_OBJECT

 public:
  /// `folder` is where plots without a file are kept for the case of a crash.
  PlotFiles(OpenPlot& plot, QWidget* window, const QString& folder = defaultFolder());

  static QString defaultFolder();

  /// What the program begins with: what a crash left behind, then the named plot, or else what the
  /// user chooses of the templates.
  void start(const QString& path);

  /// Each asks about unsaved changes first. What could not be opened leaves the present plot as it
  /// is. Returns whether another plot is open.
  bool open(const QString& path);
  bool openAnother();
  bool begin();

  /// Returns whether the plot was saved.
  bool save();
  bool saveAs();
  bool saveTo(const QString& path);

  /// Whether the window may forget the plot: it is saved, or the user said so.
  bool mayForget();

  /// Removes the images that were kept for plots without a file or for the clipboard, where nobody
  /// can need them any more.
  void sweep();

  SafetyCopy& safetyCopy() { return *safetyCopy_; }

 Q_SIGNALS:
  void recentFilesChanged();
  /// Something to say in passing.
  void said(const QString& sentence);

 private:
  bool recoverLeftBehind();
  void recover(KorrinProject project);
  /// Where the plot was saved: the user may have chosen another name meanwhile.
  enum class Written { here, elsewhere, nowhere };
  Written write(DocumentFile& file, bool asks);
  Written saveElsewhere();
  QString name() const;

  OpenPlot& plot_;
  QWidget* window_;
  SafetyCopy* safetyCopy_;
  UnknownKeys dropped_;  // what the first save would drop; empty once the user knows
};

}  // namespace korrin::editor
